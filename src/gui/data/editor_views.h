#pragma once

namespace quor::gui {

/// The editors of substance data and of x-y points, as the menu and other views open them.
namespace editor_views {

/// Registers the actions "mnuData_EditStoffdaten", "ShowSubstanceData" and "mnuData_EditXY".
void Install();

/// Files of experimental data and projects are chosen in the view with a preview from now on, all
/// others as before.
void installFileView();

}  // namespace editor_views

}  // namespace quor::gui
