#pragma once

#include <QString>
#include <string>

#include "common/dialogs.h"

class QPrinter;

/// The dialogs of the desktop program: message boxes, input box, file dialogs, printing, clipboard.
namespace quor::dialogs {

/// The functions that show real dialogs in front of the active window.
Functions desktop();

/// A filter "Caption|*.EXT|Caption|*.EXT" in the form of the toolkit; several patterns of one
/// caption are separated by ";".
QString toolkitFilter(const std::string& filter);

/// Prints a text job, page by page, in a fixed-pitch face that fits its longest line; each page
/// bears the title and its number.
void printText(QPrinter& printer, const PrintJob& job);

}  // namespace quor::dialogs
