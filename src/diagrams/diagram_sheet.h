#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "chart/chart2d.h"
#include "chart/text_measure.h"
#include "diagrams/curve.h"
#include "diagrams/diagram_request.h"

namespace quor::diagrams {

inline constexpr std::size_t kMaxParameters = 1200;  ///< points of a curve whose parameter is kept

/// What a label of the chart belongs to; its index in the chart says it, in files as well.
enum class LabelKind : std::uint8_t { none, marker, criticalEx, criticalCalc, curve, text };

/// Markers by the index of their labels.
namespace marker_label {
inline constexpr int kFirstT = 1;  ///< T(cr), T(triple), T(LV) at p, T(LV) at normal pressure
inline constexpr int kFirstP = 1;  ///< p(cr), p(LV) at T, normal p
inline constexpr int kVolume = 5, kCovolume = 6;
}  // namespace marker_label

LabelKind kind_of(const chart::Label& label);
/// The index of the label of the curve at a place; -1 for any other label.
int curve_place_of(const chart::Label& label);
/// The index in the chart of the label of a curve, or of a critical point.
int label_index_of_curve(int place);
int label_index(LabelKind critical_point);

/// The label beside a curve.
struct CurveLabel {
    std::string text;
    bool shown = true;
    double shift = -1;  ///< 0..1 along the visible part; below 0 where it hides least
    friend bool operator==(const CurveLabel&, const CurveLabel&) = default;
};

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
    std::string source;  ///< second title of a diagram of this curve alone
    CurveLabel label;
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
    StateParameters at{298.15, 0, 0};  ///< parameters of the next curve
    std::vector<SheetCurve> curves;
    std::vector<bool> point_sets;
    bool swapped_axes = false;
    int current_place = -1;  ///< the place the last curve went to; -1 before the first one
    bool manual_scaling = false;
    std::string loaded_file;   ///< path of the saved diagram that is shown, empty for none
    std::string given_footer;  ///< the footer as it was given last

    std::vector<UndoStep> undo, redo;  ///< the newest last
};

/// An empty sheet for a request: window, header, footer and axis texts, in the units of a basis.
DiagramSheet open_sheet(const DiagramRequest& request, const Basis& basis,
                        const StateParameters& at);

/// The texts of the request go to header, footer and axes.
void show_texts(DiagramSheet& sheet, const models::ReferenceState& reference);

/// On which reference state and surroundings the caloric values of a diagram rest; empty for one
/// without such values.
std::string reference_note(const Diagram& diagram, const models::ReferenceState& reference);
/// The same of any diagram: the state in which h and s are zero, the surroundings of exergies.
std::string reference_text(bool zero_point, bool surroundings,
                           const models::ReferenceState& reference);

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

/// Names a curve; where the sheet has several fluids or models, these stand before.
void name_curve(DiagramSheet& sheet, int place, const CurveName& name);

/// Legend, labels and footer name the fluid and the model of each curve as soon as the sheet holds
/// more than one. Texts that the user has changed stay.
void name_fluids(DiagramSheet& sheet);

// ---- Deleting. Numbers count from 1 as the menus do, 0 means all.

void delete_curve(DiagramSheet& sheet, int number);
void delete_point_set(DiagramSheet& sheet, int number);
/// Everything but texts of the axes, header and footer.
void delete_total(DiagramSheet& sheet);
void delete_reference_lines(DiagramSheet& sheet);
void delete_marker_labels(DiagramSheet& sheet);
void delete_critical_point(DiagramSheet& sheet, bool experimental);
void delete_curve_labels(DiagramSheet& sheet);
void delete_texts(DiagramSheet& sheet);
void delete_legend(DiagramSheet& sheet);
/// Deletes a point of a curve that shows single points, after a question.
bool delete_single_point(DiagramSheet& sheet, int place, int point);

/// Keeps the present content as what the next undo brings back.
void remember(DiagramSheet& sheet, const std::string& step);
/// The content as it is now.
SheetContent content_of(const DiagramSheet& sheet);
/// Keeps the content before a change of texts and styles that was made on the chart itself, unless
/// nothing but the window has changed. Further changes of the same `step` belong to the first.
void remember_design(DiagramSheet& sheet, const SheetContent& before, const std::string& step);
/// Takes the last step back, or makes it again; false when there is none.
bool undo(DiagramSheet& sheet);
bool redo(DiagramSheet& sheet);

bool has_reference_lines(const DiagramSheet& sheet);
bool has_marker_labels(const DiagramSheet& sheet);
bool has_critical_point(const DiagramSheet& sheet, bool experimental);
bool has_curve_labels(const DiagramSheet& sheet);
bool has_texts(const DiagramSheet& sheet);
bool has_anything(const DiagramSheet& sheet);

// ---- Window

/// Window and computing range. Refused, and said, when a lower limit is not below its upper one.
bool set_coordinates(DiagramSheet& sheet, const chart::Window& window);
/// After the user has zoomed or panned the shown window: what spans the window reaches its new end.
/// The coordinates stay.
void follow_window(DiagramSheet& sheet);
/// The window goes to the data, as new coordinates; false without data.
bool fit_window(DiagramSheet& sheet);
/// The window as it was first proposed.
void default_coordinates(DiagramSheet& sheet);

/// `cmdChangeXY`: exchanges the axes with all that belongs to them.
void change_xy(DiagramSheet& sheet);
void set_logarithmic(DiagramSheet& sheet, bool x_axis, bool on);

/// Spacings and digits as typed; 0 or less leaves a value to the chart, digits below 0 too.
struct Scaling {
    double x_tick = 0, y_tick = 0, x_grid = 0, y_grid = 0;
    int x_digits = -1, y_digits = -1;
};
/// `optScaling`: index 0 leaves grid, ticks and digits to the chart, 1 takes the values.
void set_scaling(DiagramSheet& sheet, int index, const Scaling& values);

/// Labels of the curves, placed for a sheet of this size.
void place_labels(DiagramSheet& sheet, double width, double height,
                  const chart::MeasureText& measure);

/// A free text in the middle of the window.
void add_text(DiagramSheet& sheet, const std::string& text);

/// Lengths in characters at which header and footer, in their faces, still fit a small diagram.
inline constexpr std::size_t kHeaderLine = 50, kFooterLine = 70;

/// A title with line ends at blanks, so that a line has at most `length` characters; a longer word
/// stays whole.
std::string wrap_title(const std::string& title, std::size_t length);

}  // namespace quor::diagrams
