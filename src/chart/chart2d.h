#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "chart/chart_style.h"

namespace quor::chart {

/// Stands in x or y of a series for "no point here": the line is interrupted.
inline constexpr float kHole = 1e30F;

/// True for a number that is drawn: finite and not the hole value.
inline bool is_shown(float value) {
    return std::isfinite(value) && std::abs(value) < kHole;
}

/// The label beside a curve.
struct CurveLabel {
    std::string text;
    bool shown = true;
    double shift = -1;     ///< 0..1 along the visible part; below 0 where it hides least
    bool on_line = false;  ///< written on the line and turned with it, wherever there is room
    friend bool operator==(const CurveLabel&, const CurveLabel&) = default;
};

/// A curve or a set of points. x and y have the same length.
struct Series {
    std::string legend;     ///< text in the legend; an empty one has no line there
    bool in_legend = true;  ///< false keeps it out of the legend whatever its text
    bool visible = true;
    bool is_reference = false;  ///< a reference line: it may reach far outside, fits pass it over
    std::vector<float> x, y;
    LineStyle line;
    SymbolShape symbol = SymbolShape::Hidden;
    float symbol_size = 7;  ///< pixels of 1/96 inch
    Colour symbol_colour = kInk;
    CurveLabel label{};  ///< of a curve; `Chart2D::labels` holds it as it is placed
    friend bool operator==(const Series&, const Series&) = default;
};

/// The two groups of series.
enum class Group : std::uint8_t { Curves = 1, Points = 2 };

/// One axis. Spacings of 0 and decimals of -1 leave the choice to the chart.
struct Axis {
    double min = 0, max = 1;
    bool automatic = false;  ///< the window follows the data
    bool logarithmic = false;
    double origin = 0;  ///< value at which the other axis crosses
    bool automatic_origin = true;
    double tick_spacing = 0;
    double grid_spacing = 0;
    int decimals = -1;
    bool shown = true;
    std::string title;
    Font title_font;
    Colour title_colour = kInk;
    int title_rotation = 0;  ///< degrees counter-clockwise: 0, 90, 180, 270
    Font number_font{{}, 9, false, false};
    Colour colour = kInk;
    bool grid_shown = true;
    LineStyle grid{LinePattern::Solid, kGridGrey, 1};
    friend bool operator==(const Axis&, const Axis&) = default;
};

/// Where the legend stands. `Automatic` takes the corner of the plot area that hides least;
/// `Free` puts its left top at `place`.
enum class LegendAnchor : std::uint8_t {
    Automatic,
    NorthWest,
    North,
    NorthEast,
    East,
    SouthEast,
    South,
    SouthWest,
    West,
    OutsideEast,
    OutsideSouth,
    Free
};

struct Legend {
    bool shown = false;
    LegendAnchor anchor = LegendAnchor::Automatic;
    SheetPlace place;
    bool vertical = true;  ///< entries under each other, else side by side
    Font font{{}, 9, false, false};
    Colour text_colour = kInk;
    Colour background = {255, 255, 255, 230};
    Frame frame{true, kFrameGrey, 1};
    friend bool operator==(const Legend&, const Legend&) = default;
};

/// A text in the diagram, at a point of a series or at a data coordinate. It is drawn only while
/// its place lies in the window.
struct Label {
    int index =
        0;  ///< what it is to the diagram's logic: below 7 a marker text, 7 and 8 critical points
    bool on_point = false;  ///< true: at point `point` of series `series` in `group`
    Group group = Group::Curves;
    int series = 0, point = 0;  ///< counted from 0
    double x = 0, y = 0;        ///< data coordinates when `on_point` is false
    std::string text;
    Font font{{}, 9, false, false};
    Colour text_colour = kInk;
    Colour background = {255, 255, 255, 0};
    Frame frame;
    double dx = 0, dy = 0;   ///< from the place to the text's centre, pixels of 1/96 inch, dy down
    int rotation = 0;        ///< degrees counter-clockwise
    bool connector = false;  ///< a thin line from the place to the text
    bool shown = true;
    friend bool operator==(const Label&, const Label&) = default;
};

/// The area between the axes, and the sheet around it.
struct PlotArea {
    bool automatic = true;  ///< the chart leaves just the room that numbers and texts need
    double left = 0.12, top = 0.1, width = 0.8, height = 0.75;  ///< fractions of the sheet
    Colour background = kWhite;
    Colour sheet = kWhite;
    Frame border{true, kInk, 1};
    Frame sheet_border{false, kFrameGrey, 1};
    friend bool operator==(const PlotArea&, const PlotArea&) = default;
};

/// All that a 2D chart shows. A plain record; the functions below and the files work on it, the
/// widget paints it.
struct Chart2D {
    std::vector<Series> curves;  ///< group 1
    std::vector<Series> points;  ///< group 2
    Axis x, y;
    Axis y2;  ///< the axis at the right: its title, and numbers where it is shown
    Caption header, footer;
    Legend legend;
    bool labels_shown = true;
    std::vector<Label> labels;
    PlotArea plot_area;
    PrintPlace print;
    bool swapped = false;  ///< x and y stand in each other's place: `swap_axes` was called
    Chart2D();
    friend bool operator==(const Chart2D&, const Chart2D&) = default;
};

/// The series of a group.
std::vector<Series>& series_of(Chart2D& chart, Group group);
const std::vector<Series>& series_of(const Chart2D& chart, Group group);

/// A curve with the default colour, pattern and width of slot `index` (0, 1, ...).
Series default_curve(int index);
/// A set of points with the default symbol, size and colour of slot `index`, without a line.
Series default_point_set(int index);

/// The series at `index` of the group, which is made longer by default series where it is shorter.
Series& series_at(Chart2D& chart, Group group, int index);

/// The symbol with which the points of a series are drawn: a curve without a line and without a
/// symbol shows dots.
SymbolShape shown_symbol(const Series& series, Group group);

/// A series of the legend.
struct SeriesRef {
    Group group;
    int index;
    friend bool operator==(const SeriesRef&, const SeriesRef&) = default;
};

/// The lines of the legend: visible series with points and a legend text, curves first.
std::vector<SeriesRef> legend_entries(const Chart2D& chart);

/// Exchanges x and y: the data of all series, windows, scales and texts of the axes, and the
/// places of labels. Done twice, it restores the chart.
void swap_axes(Chart2D& chart);

/// The range of one coordinate.
struct Range {
    double min = 0, max = 0;
    friend bool operator==(const Range&, const Range&) = default;
};

/// The window in data coordinates.
struct Window {
    Range x, y;
    friend bool operator==(const Window&, const Window&) = default;
};

/// Extent of all visible points, reference lines and holes passed over; on a logarithmic axis only
/// values above 0 count. Empty when nothing is to see.
std::optional<Window> data_extent(const Chart2D& chart);

/// The window that is shown: the limits of the axes; those of an automatic axis, and limits that
/// cannot be drawn (not finite, crossed, or not above 0 on a logarithmic axis), follow the data.
Window shown_window(const Chart2D& chart);

/// A window of round numbers around the data, as for the wish "fit"; nothing without data.
std::optional<Window> fitting_window(const Chart2D& chart);

/// The range of Y2: its limits, or the window of Y where it is automatic or cannot be drawn.
Range second_range(const Chart2D& chart);

/// Place of a value in a range: 0 at its lower end, 1 at its upper; minus infinity for a value not
/// above 0 on a logarithmic scale.
double unit_of(double value, const Range& range, bool logarithmic);

/// Maps data to the unit square of the window, (0, 0) at its lower left; a logarithmic axis maps
/// logarithms, and values not above 0 to minus infinity.
class WindowScale {
  public:
    explicit WindowScale(const Chart2D& chart);
    WindowScale(const Window& window, bool x_logarithmic, bool y_logarithmic)
        : window_(window), x_log_(x_logarithmic), y_log_(y_logarithmic) {}
    double u(double x) const { return unit_of(x, window_.x, x_log_); }
    double v(double y) const { return unit_of(y, window_.y, y_log_); }
    double x(double u) const { return value(u, window_.x, x_log_); }
    double y(double v) const { return value(v, window_.y, y_log_); }
    const Window& window() const { return window_; }

  private:
    static double value(double unit, const Range& range, bool logarithmic);
    Window window_;
    bool x_log_, y_log_;
};

/// A place in the plot area and the size of that area, all in pixels; y upwards from its lower
/// edge.
struct PlotPixel {
    double x = 0, y = 0;
    double width = 1, height = 1;
};

/// A point of a series near a pixel.
struct NearPoint {
    Group group;
    int series;
    int point;        ///< index of the nearest point
    double distance;  ///< pixels to that point, or to the line
};

/// The nearest point of the visible series within `limit` pixels; of equal ones that of the series
/// drawn last. Reference lines do not count.
std::optional<NearPoint> nearest_point(const Chart2D& chart, const PlotPixel& pixel, double limit);

/// As `nearest_point`, but lines are also near between their points: `distance` is that to the
/// line, `point` its nearest end. Reference lines count.
std::optional<NearPoint> nearest_series(const Chart2D& chart, const PlotPixel& pixel, double limit);

/// Deletes a point of a series with the labels on it; labels on later points stay with theirs.
/// Out of range nothing changes.
void delete_point(Chart2D& chart, Group group, int series, int point);

/// Empties a series and its labels; the slot keeps its style.
void clear_series(Chart2D& chart, Group group, int series);

}  // namespace quor::chart
