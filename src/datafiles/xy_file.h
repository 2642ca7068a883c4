#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "datafiles/fit_point.h"
#include "legacy/session_record.h"

namespace quor::datafiles {

/// What a file of x-y points (.XY, .LRG) holds.
struct XYFileContent {
    std::string comment;
    std::vector<datafiles::FitPoint> points;
};

/// Reads a file's text (code page 1252): a comment line, then a point a line. x stands left of the
/// delimiter, y right of it, up to a further one; a comma in a number is a decimal mark. A line
/// without the delimiter is split at the first of ";", tab, blank that it has. Empty lines are
/// left out.
XYFileContent read_xy_text(const std::string& ansiText, char delimiter);
/// The text of a file with the active points.
std::string xy_text(const std::string& comment, std::span<const datafiles::FitPoint> points,
                    char delimiter);

/// Asks for a file and takes its points and comment into the XY editor's list. Empty on a cancel
/// or a failure (which is told), else the line for the status bar, "  Loaded: " and the file.
std::string xy_load();
/// The same for a known file.
std::string xy_load(const std::string& name);

/// Asks for a name and writes the active points of the editor's list. False when nothing was
/// written.
bool xy_save();
/// The same for any points.
bool xy_save(const std::string& comment, std::span<const datafiles::FitPoint> points);
/// Before the list is left: asks whether to save when it is `changed`. True when it may be left.
bool xy_save_frage(bool changed);

/// Asks for a name and writes a curve. False when nothing was written.
bool save_curve_as_xy(std::span<const FitPoint> curve);

}  // namespace quor::datafiles
