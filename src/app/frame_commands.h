#pragma once

#include "app/commands.h"
#include "gui/widgets/desk.h"

namespace quor::app {

/// What the commands of the main window do.
namespace frame_commands {

/// Adds the commands of the main window to those of the menus.
void add(gui::Desk& desk, Commands& commands);

}  // namespace frame_commands

}  // namespace quor::app
