#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "datafiles/fit_point.h"
#include "datafiles/table_text.h"

/// The list of the XY editor without its view: changes, order, clipboard. Lines count from 1.
namespace quor::datafiles {

inline constexpr float kInactiveMark = -1.0F;
bool is_active(const FitPoint& point);

enum class XyManipulation {
    OneMinusX,    ///< x = 1 - x
    InverseY,     ///< y = 1 / y
    AddToY,       ///< y = y + W
    MultiplyY,    ///< y = y * W
    LogarithmY,   ///< y = ln(y)
    ExponentialY  ///< y = exp(y)
};

/// All points, active or not, changed. Refused with a sentence that names the line when one of them
/// has no such value.
Result<std::vector<FitPoint>> manipulated_xy(std::span<const FitPoint> points, XyManipulation what,
                                             double W);
void swap_xy(std::span<FitPoint> points);
void sort_by_x(std::span<FitPoint> points);  ///< ascending, equal ones keep their order
void sort_by_y(std::span<FitPoint> points);
void remove_xy(std::vector<FitPoint>& points, int first, int last);
void toggle_xy(std::span<FitPoint> points, int first, int last);
void insert_xy(std::vector<FitPoint>& points, int position, std::span<const FitPoint> more);

/// Adds the point of a line's first two cells; point or comma as decimal mark.
void add_xy(ReadPoints<FitPoint>& read, std::string_view x, std::string_view y);
/// Points from tab-separated lines; point or comma as decimal mark. Empty lines, and a first line
/// of headings, are left out.
ReadPoints<FitPoint> xy_from_clipboard(std::string_view table);
/// The lines `first` to `last` tab-separated, numbers in the locale's form.
std::string xy_for_clipboard(std::span<const FitPoint> points, int first, int last);
/// The whole list in aligned columns for the printer, inactive points in brackets.
std::string xy_list_text(std::span<const FitPoint> points);

std::vector<FitPoint> active_points(std::span<const FitPoint> points);
/// Refused when there are not enough active points for a set of points (1) or a curve (2).
Result<void> check_active_points(std::span<const FitPoint> points, bool as_points);

/// Range of active points. Without any, the maxima are -1E37 and the minima 1E37.
struct XyRange {
    float x_min = 1e37F, x_max = -1e37F, y_min = 1e37F, y_max = -1e37F;
};
XyRange range_of_active(std::span<const FitPoint> points);

/// What the editor hands to the diagram.
struct XyGraph {
    std::string title, x_title, y_title;
    std::vector<FitPoint> points;  ///< the active ones
    XyRange range;
    bool as_points = true;  ///< a set of points, else a curve
};
/// The active points with the texts of their graph.
XyGraph make_xy_graph(std::span<const FitPoint> points, bool as_points);

}  // namespace quor::datafiles
