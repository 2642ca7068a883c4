#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "chart/chart2d.h"
#include "diagrams/axis_units.h"
#include "diagrams/curve.h"
#include "diagrams/diagram_request.h"

namespace quor::diagrams {

inline constexpr std::size_t kMaxParameters = 1200;  ///< points of a curve whose parameter is kept

/// Legend text and label of a curve.
struct CurveName {
    std::string legend, label;

    bool operator==(const CurveName&) const = default;
};

/// A curve of a sheet: what it was computed with, and what it shows beside the series of the chart
/// at the same place, which holds its points and its style. The place of a deleted curve stays,
/// with its style, for the next one.
struct SheetCurve {
    bool drawn = false;  ///< false: the place is free
    Basis basis;         ///< without a substance's name for points that no fluid has given
    Parameter parameter = Parameter::none;  ///< what z is
    std::vector<float> z;                   ///< parameters of the first `kMaxParameters` points
    CurveName name;                         ///< by what it holds constant, without its fluid
    CurveName given;     ///< as it was named last; what differs was changed by the user
    HeldValue held;      ///< what the name tells
    std::string source;  ///< second title of a diagram of this curve alone
};

/// Numbers of one axis as they stood before a change of units, and as it has left them: a change
/// back finds the very same numbers again.
struct UnitOrigin {
    enum class Of : std::uint8_t { x, y, xTicks, yTicks } of = Of::x;
    models::UnitChoice units;  ///< of the numbers before
    AxisScale before, after;   ///< of both units, for the fluid of the numbers
    std::vector<double> numbers, shown;
};

/// What can be taken back: a sheet's content before a step.
struct SheetContent {
    chart::Chart2D chart;
    std::vector<SheetCurve> curves;  ///< by place
    std::vector<bool> point_sets;    ///< by place; false: the place is free
    std::string given_footer;
};
struct UndoStep {
    std::string name;
    SheetContent before;
    bool is_design = false;  ///< a change of texts and styles, which goes on while they are typed
};

/// One diagram: its chart, its curves, and the request that stands behind it. Places count from 0.
struct DiagramSheet {
    chart::Chart2D chart;
    DiagramRequest request;
    models::UnitChoice units;          ///< of the axes; every curve is drawn in them
    Basis basis;                       ///< with which it was opened; none for one from a file
    StateParameters at{298.15, 0, 0};  ///< parameters of the next curve
    std::vector<SheetCurve> curves;
    std::vector<bool> point_sets;
    int current_place = -1;  ///< the place the last curve went to; -1 before the first one
    bool manual_scaling = false;
    std::string loaded_file;   ///< path of the saved diagram that is shown, empty for none
    std::string given_footer;  ///< the footer as it was given last

    std::vector<UndoStep> undo, redo;    ///< the newest last
    std::optional<double> T_of_maximum;  ///< K, of the slope that the header tells
    std::vector<UnitOrigin> origins;     ///< of what a change of units has left
};

/// An empty sheet for a request: window, header, footer and axis texts, in the units of a basis.
DiagramSheet open_sheet(const DiagramRequest& request, const Basis& basis,
                        const StateParameters& at);

/// The basis in the units of the sheet. Throws `faults::Fault` where the fluid has not what they
/// need.
Basis in_units_of(const DiagramSheet& sheet, const Basis& basis);

// ---- What is on it

bool is_drawn(const DiagramSheet& sheet, int place);
bool has_point_set(const DiagramSheet& sheet, int place);
int curve_count(const DiagramSheet& sheet);
int point_set_count(const DiagramSheet& sheet);
/// The place in the chart of the first reference line, behind the curves; and of the critical
/// points, behind the sets of points.
int first_reference_line(const DiagramSheet& sheet);
int critical_point_place(const DiagramSheet& sheet, bool experimental);

/// A curve with its basis; one of points alone has none.
struct NewCurve {
    CurvePoints points{};
    Parameter parameter = Parameter::none;
    Basis basis{};
    CurveName name{};
    std::string source{};  ///< second title of a diagram of this curve alone
    HeldValue held{};      ///< what the name tells
};
/// Puts a curve into the lowest free place, whose number it gives. Points from the end on that lie
/// at or beyond `x_max` are left out, unless that would leave nothing; the line to the first of
/// them is drawn up to it.
int store_curve(DiagramSheet& sheet, NewCurve curve, float x_max);
/// The same for points without a parameter, up to the window of the request.
int store_points(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                 const std::string& legend);
/// Puts a set of points into the lowest free place of them.
int store_point_set(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                    const std::string& legend);

}  // namespace quor::diagrams
