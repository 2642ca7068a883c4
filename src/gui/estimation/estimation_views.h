#pragma once

#include "datafiles/substance_editor.h"

namespace quor::gui {

class Desk;

/// Fitting and group contributions, as the menu and the editors open them.
namespace estimation_views {

/// Opens the doors `fit` (the editors send their points) and `estimate`.
void install(Desk& desk);

/// The fitting view on the page of its chosen model.
void openFitting(Desk& desk);
/// A group contribution method for the active substance.
void openGroups(Desk& desk, datafiles::GroupFrame frame);

}  // namespace estimation_views

}  // namespace quor::gui
