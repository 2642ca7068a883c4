#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quor::datafiles {

/// The lines of a pasted table that hold data: empty ones, and a first line in which no cell
/// begins with a number (headings), are left out.
std::vector<std::string> data_lines(std::string_view table);

/// Rows as lines of right-aligned columns, two blanks between them; '\n' ends a line.
std::string aligned_columns(const std::vector<std::vector<std::string>>& rows);

}  // namespace quor::datafiles
