#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "datafiles/fit_point.h"
#include "legacy/session_record.h"

/// The list of the XY editor without its view: changes, order, clipboard. Lines count from 1.
namespace quor::datafiles {

inline constexpr float kInactiveMark = -1.0F;
bool IsActive(const datafiles::FitPoint& point);

enum class XYManipulation {
    OneMinusX,    ///< x = 1 - x
    InverseY,     ///< y = 1 / y
    AddToY,       ///< y = y + W
    MultiplyY,    ///< y = y * W
    LogarithmY,   ///< y = ln(y)
    ExponentialY  ///< y = exp(y)
};

/// Changes all points, active or not. When one of them has no such value the list stays as it is,
/// and a sentence names the line; else the text is empty.
std::string manipulate_xy(std::vector<datafiles::FitPoint>& points, XYManipulation what, double W);
void swap_xy(std::span<datafiles::FitPoint> points);
void sort_by_x(std::span<datafiles::FitPoint> points);  ///< ascending, equal ones keep their order
void sort_by_y(std::span<datafiles::FitPoint> points);
void remove_xy(std::vector<datafiles::FitPoint>& points, int first, int last);
void toggle_xy(std::span<datafiles::FitPoint> points, int first, int last);
void insert_xy(std::vector<datafiles::FitPoint>& points, int position,
               std::span<const datafiles::FitPoint> more);

/// Points from tab-separated lines; point or comma as decimal mark. Empty lines, and a first line
/// of headings, are left out.
std::vector<datafiles::FitPoint> xy_from_clipboard(std::string_view table);
/// The lines `first` to `last` tab-separated, numbers in the locale's form.
std::string xy_for_clipboard(std::span<const datafiles::FitPoint> points, int first, int last);
/// The whole list in aligned columns for the printer, inactive points in brackets.
std::string xy_list_text(std::span<const datafiles::FitPoint> points);

std::vector<datafiles::FitPoint> active_points(std::span<const datafiles::FitPoint> points);
/// True when there are enough active points for a set of points (1) or a curve (2); else it says
/// so.
bool enough_active_points(std::span<const datafiles::FitPoint> points, bool asPoints);

/// Range of active points. Without any, the maxima are -1E37 and the minima 1E37.
struct XYRange {
    float xMin = 1e37F, xMax = -1e37F, yMin = 1e37F, yMax = -1e37F;
};
XYRange range_of_active(std::span<const datafiles::FitPoint> points);

/// What the editor hands to the diagram.
struct XYGraph {
    std::string title, xTitle, yTitle;
    std::vector<datafiles::FitPoint> points;  ///< the active ones
    XYRange range;
    bool asPoints = true;  ///< a set of points, else a curve
};
/// The active points with the texts of their graph.
XYGraph make_xy_graph(std::span<const datafiles::FitPoint> points, bool asPoints);
/// The graph that was sent last; the action "graph_xy" shows it.
inline XYGraph xyGraph;

}  // namespace quor::datafiles
