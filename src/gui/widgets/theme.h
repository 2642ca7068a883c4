#pragma once

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QString>

class QApplication;

namespace quor::gui {

/// Look of the whole program: one spacing scale, pictures, marks. It follows the platform's style
/// and palette, light or dark.
namespace theme {

/// Distances in device-independent pixels; nothing else is used between widgets.
inline constexpr int kGap = 6;        ///< between a label and its field, between rows
inline constexpr int kGroupGap = 12;  ///< between groups
inline constexpr int kMargin = 10;    ///< round the contents of a view

/// Sets fonts, style sheet and icon of the application.
void install(QApplication& app);

/// A picture of data/icons by name, such as "new_project"; SVG, so sharp at every scale.
QIcon icon(const QString& name);

/// The fixed-pitch face for results and lists.
QFont fixedPitch();

/// True when the palette is dark.
bool isDark();

/// Colour of wrong values and failed results, readable on the present palette.
QColor errorColour();
/// Colour of notes that matter less.
QColor quietColour();

}  // namespace theme

}  // namespace quor::gui
