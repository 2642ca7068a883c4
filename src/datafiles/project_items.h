#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace quor::datafiles {

/// Number of typed items of a project file, items 5 to 32.
inline constexpr std::size_t kProjectItems = 28;

/// The settings of the session as the typed items of a project file, one line each: numbers with
/// a point, texts in double quotes, truth values as #TRUE# and #FALSE#.
std::string project_item_lines();

/// Reads items back into the session, in order, as far as they go. An item that is no value of
/// its kind, or beyond its range, leaves its setting as it was. A decimal comma counts as a point.
void read_project_items(std::span<const std::string> lines);

}  // namespace quor::datafiles
