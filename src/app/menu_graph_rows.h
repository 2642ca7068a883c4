#pragma once

#include <span>

#include "app/menu_catalogue.h"

namespace quor::menu {

/// The rows of the menus Graph-2D and Graph-3D, with the diagram that each one opens.
std::span<const Row> graph_rows();

}  // namespace quor::menu
