#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quor::datafiles {

/// Points read from a text. A line of it with a cell that is no number, or none that the point can
/// hold, gives an inactive point without that value.
template <class Point>
struct ReadPoints {
    std::vector<Point> points{};
    std::vector<std::size_t> wrong{};  ///< places (from 0) of such points

    void add(const Point& point, bool right) {
        if (!right) wrong.push_back(points.size());
        points.push_back(point);
    }
};

/// The lines of a pasted table that hold data, as parts of it: empty ones, and a first line in
/// which no cell begins with a number (headings), are left out.
std::vector<std::string_view> data_lines(std::string_view table);

/// Rows as lines of right-aligned columns, two blanks between them; '\n' ends a line.
std::string aligned_columns(const std::vector<std::vector<std::string>>& rows);

}  // namespace quor::datafiles
