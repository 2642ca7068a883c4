#pragma once

#include <span>
#include <string>
#include <vector>

#include "datafiles/fit_point.h"

namespace quor::datafiles {

/// A list of x-y points with its comment, as the XY editor and its files (.XY, .LRG) hold it.
struct XyData {
    std::string comment{};
    std::vector<FitPoint> points{};

    bool operator==(const XyData&) const = default;
};

/// What a file holds.
struct XyFile {
    XyData data{};
    std::vector<std::size_t> wrong{};  ///< places (from 0) of points with a cell that is no number
};

/// Reads a file's text (code page 1252): a comment line, then a point a line. x stands left of the
/// delimiter, y right of it, up to a further one; a comma in a number is a decimal mark. A line
/// without the delimiter is split at the first of ";", tab, blank that it has. Empty lines are
/// left out; a line without two numbers gives an inactive point. Throws `progress::GivenUp` when
/// its user gives up.
XyFile read_xy_text(const std::string& ansi_text, char delimiter);
/// The text of a file with the active points. Throws `progress::GivenUp` as well.
std::string xy_text(const std::string& comment, std::span<const FitPoint> points, char delimiter);

}  // namespace quor::datafiles
