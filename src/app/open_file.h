#pragma once

#include <string>

#include "app/commands.h"
#include "gui/widgets/desk.h"

namespace quor::app {

namespace open_file {

/// Opens a file as its menu row does, with its questions and refusals: a database, a project,
/// experimental data, points, a diagram or a surface, by its extension. A missing file and one of
/// another kind are told; a missing one is no recent file any more.
void open(gui::Desk& desk, Commands& commands, const std::string& file);

}  // namespace open_file

}  // namespace quor::app
