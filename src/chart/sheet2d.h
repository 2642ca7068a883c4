#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "chart/chart2d.h"
#include "chart/text_measure.h"
#include "chart/ticks.h"

namespace quor::chart {

/// A place on a sheet in pixels, y down.
struct SheetPoint {
    double x = 0, y = 0;
    friend bool operator==(const SheetPoint&, const SheetPoint&) = default;
};

/// A rectangle on the sheet, y down.
struct SheetRect {
    double left = 0, top = 0, width = 0, height = 0;
    double right() const { return left + width; }
    double bottom() const { return top + height; }
    bool contains(double x, double y) const {
        return x >= left && x <= right() && y >= top && y <= bottom();
    }
};

/// A text on the sheet: its centre, turn, and the rectangle around it.
struct SheetText {
    double x = 0, y = 0;
    int rotation = 0;
    SheetRect rect;
    bool shown = false;
};

/// A line of the legend: the sample of the line runs from `sample_left`, the text begins at
/// `text_left`, both centred on `y`.
struct LegendLine {
    SeriesRef series;
    double sample_left = 0, text_left = 0, y = 0;
};

/// A label on the sheet: the pixel of its place, and its text.
struct SheetLabel {
    int label = 0;  ///< index in `Chart2D::labels`
    double place_x = 0, place_y = 0;
    SheetText text;
};

/// The label of a curve that is written on its line: its turned rectangle has the paper's colour.
struct LineLabel {
    int curve = 0;  ///< index in `Chart2D::curves`
    SheetPoint centre;
    int rotation = 0;  ///< degrees counter-clockwise
    TextSize size;
    std::array<SheetPoint, 4> box{};  ///< corners of its ground
};

/// An axis on the sheet.
struct SheetAxis {
    Ticks ticks;
    std::vector<double> grid, fine_grid;  ///< values of grid lines; fine ones on logarithmic axes
    double line = 0;                      ///< pixel of the axis across its direction
    SheetText title;
    SheetRect numbers;  ///< where its line and numbers stand, for the mouse
};

/// Where everything of a 2D chart stands on a sheet of a given size, in pixels of 1/96 inch.
struct Sheet2D {
    SheetRect sheet, plot;
    Window window;
    SheetAxis x, y, y2;
    SheetText header, footer;
    SheetRect legend;
    std::vector<LegendLine> legend_lines;
    std::vector<SheetLabel> labels;
    std::vector<LineLabel> line_labels;

    static constexpr double kSampleWidth = 30;  ///< of the lines in the legend
    static constexpr double kTickLength = 5;    ///< of ticks with numbers, outwards
    static constexpr double kMinorTickLength = 3;
    static constexpr double kNumberGap = 4;  ///< between tick and number
};

Sheet2D lay_out(const Chart2D& chart, double width, double height, const MeasureText& measure);

/// Pixels of data values on a sheet.
class SheetScale {
  public:
    SheetScale(const Chart2D& chart, const SheetRect& plot) : scale_(chart), plot_(plot) {}
    SheetScale(const Window& window, bool x_logarithmic, bool y_logarithmic, const SheetRect& plot)
        : scale_(window, x_logarithmic, y_logarithmic), plot_(plot) {}
    double x(double value) const { return plot_.left + scale_.u(value) * plot_.width; }
    double y(double value) const { return plot_.bottom() - scale_.v(value) * plot_.height; }
    double value_of_x(double pixel) const { return scale_.x((pixel - plot_.left) / plot_.width); }
    double value_of_y(double pixel) const {
        return scale_.y((plot_.bottom() - pixel) / plot_.height);
    }
    const WindowScale& window() const { return scale_; }

  private:
    WindowScale scale_;
    SheetRect plot_;
};

/// The lines of a series inside the plot area, cut at its edges, so that they need no clipping
/// where they are painted. Holes, and values not above 0 on a logarithmic axis, interrupt them; a
/// reference line from below 0 begins at the edge of a logarithmic axis.
std::vector<std::vector<SheetPoint>> visible_lines(const Chart2D& chart, const Series& series,
                                                   const SheetRect& plot);

/// The same with the scale of that plot area at hand, by every `every`-th point of the series.
std::vector<std::vector<SheetPoint>> visible_lines(const Chart2D& chart, const Series& series,
                                                   const SheetRect& plot, const SheetScale& scale,
                                                   std::size_t every);

/// Puts the label of a curve beside it at `fraction` (0..1) along the part of the curve in the
/// window; a negative fraction takes the place that hides least. Returns false and changes
/// nothing when the curve is not in the window.
bool place_curve_label(const Chart2D& chart, int curve, double fraction, double width,
                       double height, const MeasureText& measure, Label& label);

}  // namespace quor::chart
