#pragma once

#include <QString>
#include <string>

#include "gui/chart/picture_export.h"

class QWidget;

namespace quor::gui {

/// What the menu "Picture" of a diagram does, for charts of both kinds.
namespace picture_commands {

/// A diagram as it leaves the program.
struct Picture {
    chart::Painting painting;
    chart::PrintPlace print;  ///< gives the proportions of every picture
    QString title;
};

/// Puts the picture on the clipboard.
void copy(const Picture& picture);

/// Asks for a file and writes it; a failure is told.
void save(const Picture& picture, const std::string& folder);

/// Asks for a printer, in front of `parent`, and prints; a failure is told.
void print(const Picture& picture, QWidget* parent);

}  // namespace picture_commands

}  // namespace quor::gui
