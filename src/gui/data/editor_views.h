#pragma once

namespace quor::gui {

class Desk;

/// The editors of substance data, of experimental data and of x-y points, as the menu and other
/// views open them.
namespace editor_views {

/// Opens the doors `editSubstance`, `showSubstance`, `newMeasuredData`, `editMeasuredData` and
/// `editXy`.
void install(Desk& desk);

/// Files of experimental data and projects are chosen in the view with a preview from now on, all
/// others as before. The desk must live as long as files are chosen.
void installFileView(Desk& desk);

}  // namespace editor_views

}  // namespace quor::gui
