#pragma once

#include <span>

#include "session/menu_catalogue.h"

namespace menu {

/// The rows of the menus Graph-2D and Graph-3D, with the diagram that each one opens.
std::span<const Row> graph_rows();

}  // namespace menu
