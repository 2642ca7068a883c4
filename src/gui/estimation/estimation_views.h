#pragma once

namespace quor::gui {

/// Fitting and group contributions, as the menu and the editors open them.
namespace estimation_views {

/// Registers the actions "mnuFitting", "fit_data" (the editors send their points) and those of the
/// group contribution methods, and serves the substance editor with the latter.
void Install();

}  // namespace estimation_views

}  // namespace quor::gui
