#pragma once

#include "app/commands.h"
#include "gui/widgets/desk.h"

namespace quor::app {

namespace wiring {

/// Opens the doors between the views of a desk, and gives the rows of the menus the commands that
/// open views.
void connectViews(gui::Desk& desk, Commands& commands);

}  // namespace wiring

}  // namespace quor::app
