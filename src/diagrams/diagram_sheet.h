#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "chart/chart2d.h"
#include "chart/text_measure.h"
#include "diagrams/diagram_records.h"

namespace quor::Module9 {

inline constexpr int kMaxCurves = 24;
inline constexpr int kMaxPointSets = 12;
inline constexpr int kMaxParameters = 1200;  ///< points of a curve whose parameter is kept

/// Places of other things among the series: reference lines stand behind the curves, the critical
/// points behind the sets of experimental points.
inline constexpr int kFirstReferenceLine = kMaxCurves;
inline constexpr int kCriticalExSeries = kMaxPointSets;
inline constexpr int kCriticalCalcSeries = kMaxPointSets + 1;

/// What the index of a chart label says of it; below 7 it is the text of a reference line.
namespace LabelIndex {
inline constexpr int kFirstT = 1;  ///< T(cr), T(triple), T(LV) at p, T(LV) at normal pressure
inline constexpr int kFirstP = 1;  ///< p(cr), p(LV) at T, normal p
inline constexpr int kVolume = 5, kCovolume = 6;
inline constexpr int kMarkerEnd = 7;
inline constexpr int kCriticalEx = 7, kCriticalCalc = 8;
inline constexpr int kFirstCurve = 10;  ///< label of curve slot 0
inline constexpr int kFirstText = 100;  ///< additional texts of the user
}  // namespace LabelIndex

/// What a curve shows beside its series in the chart.
struct CurveLabel {
    std::string text;
    bool shown = true;
    double shift = -1;  ///< 0..1 along the visible part; below 0 where it hides least
    friend bool operator==(const CurveLabel&, const CurveLabel&) = default;
};

/// A slot as it was before a change.
struct SavedCurve {
    int slot = 0;
    bool free = true;
    chart::Series series;
    CurveLabel label;
    float mark = 0;
    std::vector<float> parameters;
};
struct SavedPointSet {
    int slot = 0;
    bool free = true;
    chart::Series series;
};
struct UndoStep {
    std::vector<SavedCurve> curves;
    std::vector<SavedPointSet> points;
};

/// One diagram: its chart, its request, and the bookkeeping of its slots. Slots count from 0.
struct DiagramSheet {
    DiagramSheet();

    chart::Chart2D chart;
    diagrams::DiagramRequest request;  ///< the coordinates are those in which curves are computed
    double T = 298.15, p = 0, v = 0;   ///< parameters of the next curve, K, kPa, m^3/kmol

    std::int16_t CurveCount = 0;
    std::int16_t PointSetCount = 0;
    std::array<bool, kMaxCurves> CurveFree{};
    std::array<bool, kMaxPointSets> PointSetFree{};
    /// z of the points 1 to 1200 of each curve; element 0 is unused.
    std::vector<std::array<float, kMaxParameters + 1>> CurveParameters;
    std::array<float, kMaxCurves> CurveMarks{};  ///< what z is, see diagrams::kMarkT
    std::array<CurveLabel, kMaxCurves> CurveLabels;
    bool SwappedAxes = false;
    int currentSlot = -1;  ///< the slot the last curve went to; -1 before the first one
    bool manualScaling = false;
    std::string loadedFile;  ///< path of the saved diagram that is shown, empty for none

    std::vector<UndoStep> undo;  ///< the newest last
};

/// An empty sheet for a request: window, header, footer and axis texts.
void open_sheet(DiagramSheet& sheet, const diagrams::DiagramRequest& request);

/// The texts of the request go to header, footer and axes.
void show_texts(DiagramSheet& sheet);

/// On which reference state and surroundings the caloric values of a diagram rest; empty for one
/// without such values.
std::string reference_note(std::int16_t DiagramType);
/// The same of any diagram: the state in which h and s are zero, the surroundings of exergies.
std::string reference_text(bool zeroPoint, bool surroundings);

/// Makes the sheet the diagram of the session, and takes over what the session has for it.
void give_to_session(const DiagramSheet& sheet);
void take_parameters(DiagramSheet& sheet);

/// Puts a curve into the lowest free slot; the number of the slot, or -1 after the refusal when
/// there is none. Points from the end on that lie at or beyond `xMax` are left out, unless that
/// would leave nothing; the line to the first of them is drawn up to the window's edge.
int store_curve(DiagramSheet& sheet, const diagrams::CurvePointArray& points);

/// The same for points without a parameter.
int store_points(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y);

/// Puts a set of points into the lowest free slot of them; -1 after the refusal.
int store_point_set(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                    const std::string& legend);
/// False, and said, when all sets of points are in use.
bool has_free_point_set(const DiagramSheet& sheet);

/// Sets legend text and label of a curve.
void name_curve(DiagramSheet& sheet, int slot, const std::string& legend, const std::string& label);

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
/// Asks for, and removes, a point of a curve that shows single points only.
bool delete_single_point(DiagramSheet& sheet, int slot, int point);

/// Takes back the last added or deleted curves or sets of points; false when there is nothing.
bool Undo(DiagramSheet& sheet);

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
bool Fit(DiagramSheet& sheet);
/// The window as it was first proposed.
void default_coordinates(DiagramSheet& sheet);

/// `cmdChangeXY`: exchanges the axes with all that belongs to them.
void change_xy(DiagramSheet& sheet);
void set_logarithmic(DiagramSheet& sheet, bool xAxis, bool on);

/// Spacings and digits as typed; 0 or less leaves a value to the chart, digits below 0 too.
struct Scaling {
    double xTick = 0, yTick = 0, xGrid = 0, yGrid = 0;
    int xDigits = -1, yDigits = -1;
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

}  // namespace quor::Module9
