#pragma once

#include <QString>
#include <string>

#include "common/dialogs.h"

/// The dialogs of the desktop program: message boxes, input box, file dialogs, printing, clipboard.
namespace quor::dialogs {

/// The functions that show real dialogs in front of the active window.
Functions desktop();

/// A filter "Caption|*.EXT|Caption|*.EXT" in the form of the toolkit; several patterns of one
/// caption are separated by ";".
QString toolkitFilter(const std::string& filter);

}  // namespace quor::dialogs
