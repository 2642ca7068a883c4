#include "chart/sheet2d.h"

#include <algorithm>
#include <cmath>

#include "chart/line_labels.h"
#include "chart/placement.h"

namespace quor::chart {

namespace {

constexpr double kEdge = 10;       // free at the rim of the sheet
constexpr double kTextGap = 6;     // between numbers, titles and captions
constexpr double kLeastPlot = 24;  // smallest plot area to each side
constexpr double kLegendPad = 6;
constexpr double kLegendGap = 7;  // between sample and text
constexpr double kColumnGap = 16;

/// Size of the rectangle around a text that is turned.
TextSize turned(TextSize size, int rotation) {
    const double angle = rotation * 3.14159265358979323846 / 180;
    const double c = std::abs(std::cos(angle)), s = std::abs(std::sin(angle));
    return {c * size.width + s * size.height, s * size.width + c * size.height};
}

SheetText text_at(double x, double y, TextSize size, int rotation = 0) {
    const TextSize around = turned(size, rotation);
    return {x,
            y,
            rotation,
            {x - around.width / 2, y - around.height / 2, around.width, around.height},
            true};
}

bool is_upright(int rotation) {
    return std::abs(rotation) % 180 == 90;
}

/// The room around the plot area.
struct Margins {
    double left = kEdge, top = kEdge, right = kEdge, bottom = kEdge;
};

class LayoutMaker {
  public:
    LayoutMaker(const Chart2D& chart, double width, double height, const MeasureText& measure)
        : chart_(chart), measure_(measure), scale_(chart) {
        sheet_.sheet = {0, 0, width, height};
        sheet_.window = scale_.window();
    }

    Sheet2D make() {
        // Ticks depend on the plot area, and its margins on the width of the numbers: the second
        // pass knows the numbers of the first, the third settles what changed by it.
        sheet_.plot = plot_area({60, 30, 20, 45});
        for (int pass = 0; pass < 3; ++pass) {
            tick_axes();
            make_legend_size();
            sheet_.plot = plot_area(margins());
        }
        tick_axes();
        place_axes();
        place_texts();
        place_legend();
        place_labels();
        sheet_.line_labels = place_line_labels(chart_, sheet_.plot, measure_);
        return std::move(sheet_);
    }

  private:
    TextSize size_of(const std::string& text, const Font& font) const {
        return text.empty() ? TextSize{} : measure_(text, font);
    }

    TextSize title_size(const Axis& axis) const {
        return turned(size_of(axis.title, axis.title_font), axis.title_rotation);
    }

    /// Whole pixels, so that frame and axes are crisp on a screen.
    SheetRect plot_area(const Margins& m) const {
        const double w = sheet_.sheet.width, h = sheet_.sheet.height;
        const PlotArea& area = chart_.plot_area;
        SheetRect plot =
            area.automatic
                ? SheetRect{m.left, m.top, w - m.left - m.right, h - m.top - m.bottom}
                : SheetRect{area.left * w, area.top * h, area.width * w, area.height * h};
        plot.left = std::round(plot.left);
        plot.top = std::round(plot.top);
        plot.width = std::max(std::round(plot.width), kLeastPlot);
        plot.height = std::max(std::round(plot.height), kLeastPlot);
        return plot;
    }

    void tick_axes() {
        const auto along = [&](const Axis& axis, const Range& range, double length, bool upright) {
            TickRequest request;
            request.min = range.min;
            request.max = range.max;
            request.logarithmic = axis.logarithmic;
            request.spacing = axis.tick_spacing;
            request.decimals = axis.decimals;
            request.length = length;
            request.room = [&, upright](const std::string& text) {
                const TextSize size = measure_(text, axis.number_font);
                return upright ? size.height + 4 : size.width + 10;
            };
            return make_ticks(request);
        };
        sheet_.x.ticks = along(chart_.x, sheet_.window.x, sheet_.plot.width, false);
        sheet_.y.ticks = along(chart_.y, sheet_.window.y, sheet_.plot.height, true);
        if (chart_.y2.shown)
            sheet_.y2.ticks = along(chart_.y2, second_range(chart_), sheet_.plot.height, true);
    }

    TextSize widest_number(const Ticks& ticks, const Axis& axis) const {
        TextSize widest;
        for (const Tick& tick : ticks.major) {
            const TextSize size = size_of(tick.text, axis.number_font);
            widest.width = std::max(widest.width, size.width);
            widest.height = std::max(widest.height, size.height);
        }
        return widest;
    }

    static constexpr double kNumberReach = Sheet2D::kTickLength + Sheet2D::kNumberGap;

    /// Height or width that the numbers of an axis take outside the plot area.
    double numbers_outside(const Axis& axis, double number_size, double inside) const {
        if (!axis.shown || number_size <= 0) return 0;
        // In coarse steps, so that the plot area does not jump at every turn of the wheel.
        constexpr double kStep = 8;
        const double reach = kNumberReach + std::ceil(number_size / kStep) * kStep;
        return std::max(0.0, reach - inside);
    }

    /// How far the x axis line stands above the lower edge of the plot area, in pixels.
    double x_axis_inside() const {
        if (chart_.y.automatic_origin) return 0;
        return std::clamp(scale_.v(chart_.y.origin), 0.0, 1.0) * sheet_.plot.height;
    }
    double y_axis_inside() const {
        if (chart_.x.automatic_origin) return 0;
        return std::clamp(scale_.u(chart_.x.origin), 0.0, 1.0) * sheet_.plot.width;
    }

    double caption_height(const Caption& caption) const {
        if (caption.text.empty() || !caption.automatic) return 0;
        return size_of(caption.text, caption.font).height + kTextGap;
    }

    Margins margins() {
        const TextSize x_number = widest_number(sheet_.x.ticks, chart_.x);
        const TextSize y_number = widest_number(sheet_.y.ticks, chart_.y);
        const TextSize y2_number = widest_number(sheet_.y2.ticks, chart_.y2);
        x_numbers_ = numbers_outside(chart_.x, x_number.height, x_axis_inside());
        y_numbers_ = numbers_outside(chart_.y, y_number.width, y_axis_inside());
        y2_numbers_ = numbers_outside(chart_.y2, y2_number.width, 0);
        Margins m;
        const TextSize x_title = title_size(chart_.x), y_title = title_size(chart_.y),
                       y2_title = title_size(chart_.y2);
        m.bottom += x_numbers_ + caption_height(chart_.footer);
        if (x_title.height > 0) m.bottom += x_title.height + kTextGap;
        // Half of the first and the last number of x overhang the plot area.
        y_numbers_ = std::max(y_numbers_, x_number.width / 2 - kEdge / 2);
        y2_numbers_ = std::max(y2_numbers_, x_number.width / 2 - kEdge / 2);
        m.left += y_numbers_;
        m.top += caption_height(chart_.header);
        // A title that lies across stands above its axis.
        if (y_title.height > 0 && is_upright(chart_.y.title_rotation))
            m.left += y_title.width + kTextGap;
        else if (y_title.height > 0)
            m.top += y_title.height + kTextGap;
        m.right += y2_numbers_;
        if (y2_title.height > 0) m.right += y2_title.width + kTextGap;
        m.top = std::max(m.top, y_number.height / 2 + 4);
        if (chart_.legend.shown && chart_.legend.anchor == LegendAnchor::OutsideEast)
            m.right += sheet_.legend.width + kTextGap;
        if (chart_.legend.shown && chart_.legend.anchor == LegendAnchor::OutsideSouth)
            m.bottom += sheet_.legend.height + kTextGap;
        return m;
    }

    double pixel_x(double x) const { return sheet_.plot.left + scale_.u(x) * sheet_.plot.width; }
    double pixel_y(double y) const {
        return sheet_.plot.bottom() - scale_.v(y) * sheet_.plot.height;
    }

    /// Grid lines closer than this are one grey area, and follow the ticks instead.
    static constexpr double kLeastGrid = 4;

    static void make_grid(const Axis& axis, const Range& range, double length, SheetAxis& out) {
        if (!axis.grid_shown) return;
        const auto fits = [&](const std::vector<double>& lines) {
            return static_cast<double>(lines.size()) * kLeastGrid <= length;
        };
        if (axis.grid_spacing > 0) out.grid = multiples(range.min, range.max, axis.grid_spacing);
        if (!out.grid.empty() && fits(out.grid)) return;
        out.grid.clear();
        for (const Tick& tick : out.ticks.major) out.grid.push_back(tick.value);
        if (axis.logarithmic && fits(out.ticks.minor)) out.fine_grid = out.ticks.minor;
    }

    /// Inside the plot area the other axis would run through the number at the crossing.
    template <class Pixel>
    static void clear_number_at_crossing(Ticks& ticks, double crossing, Pixel pixel) {
        if (crossing <= 0) return;
        for (Tick& tick : ticks.major)
            if (std::abs(pixel(tick.value) - crossing) < 6) tick.text.clear();
    }

    void place_axes() {
        const SheetRect& p = sheet_.plot;
        make_grid(chart_.x, sheet_.window.x, p.width, sheet_.x);
        make_grid(chart_.y, sheet_.window.y, p.height, sheet_.y);
        sheet_.x.line = p.bottom() - x_axis_inside();
        sheet_.y.line = p.left + y_axis_inside();
        sheet_.y2.line = p.right();
        clear_number_at_crossing(sheet_.x.ticks, y_axis_inside(),
                                 [&](double value) { return scale_.u(value) * p.width; });
        clear_number_at_crossing(sheet_.y.ticks, x_axis_inside(),
                                 [&](double value) { return scale_.v(value) * p.height; });
        const double reach = kNumberReach;
        sheet_.x.numbers = {p.left, sheet_.x.line - 3, p.width,
                            reach + 3 + widest_number(sheet_.x.ticks, chart_.x).height};
        const double y_reach = reach + widest_number(sheet_.y.ticks, chart_.y).width;
        sheet_.y.numbers = {sheet_.y.line - y_reach, p.top, y_reach + 3, p.height};
        const double y2_reach = reach + widest_number(sheet_.y2.ticks, chart_.y2).width;
        if (chart_.y2.shown) sheet_.y2.numbers = {p.right() - 3, p.top, y2_reach + 3, p.height};
    }

    void place_texts() {
        const SheetRect& p = sheet_.plot;
        const double middle_x = p.left + p.width / 2, middle_y = p.top + p.height / 2;
        const auto title = [&](const Axis& axis, SheetAxis& out, double x, double y) {
            if (axis.title.empty()) return;
            out.title = text_at(x, y, size_of(axis.title, axis.title_font), axis.title_rotation);
        };
        const TextSize xs = title_size(chart_.x), ys = title_size(chart_.y),
                       y2s = title_size(chart_.y2);
        double below = p.bottom() + x_numbers_ + kTextGap;
        title(chart_.x, sheet_.x, middle_x, below + xs.height / 2);
        if (xs.height > 0) below += xs.height + kTextGap;
        double above = p.top - kTextGap;
        if (is_upright(chart_.y.title_rotation)) {
            title(chart_.y, sheet_.y, p.left - y_numbers_ - kTextGap - ys.width / 2, middle_y);
        } else {
            const double left = std::max(kEdge, p.left - y_numbers_);
            title(chart_.y, sheet_.y, left + ys.width / 2, above - ys.height / 2);
            if (ys.height > 0) above -= ys.height + kTextGap;
        }
        title(chart_.y2, sheet_.y2, p.right() + y2_numbers_ + kTextGap + y2s.width / 2, middle_y);
        const auto caption = [&](const Caption& c, SheetText& out, double y) {
            if (c.text.empty()) return;
            const TextSize size = size_of(c.text, c.font);
            out = c.automatic ? text_at(kept_on_sheet(middle_x, size.width), y, size)
                              : text_at(c.place.x * sheet_.sheet.width,
                                        c.place.y * sheet_.sheet.height, size);
        };
        caption(chart_.header, sheet_.header,
                above - size_of(chart_.header.text, chart_.header.font).height / 2);
        const double footer = size_of(chart_.footer.text, chart_.footer.font).height;
        caption(chart_.footer, sheet_.footer,
                std::min(sheet_.sheet.height - kEdge - footer / 2, 1e9));
    }

    /// The centre of a text of this width, moved so that the text stays on the sheet.
    double kept_on_sheet(double centre, double width) const {
        const double half = std::min(width / 2 + kEdge, sheet_.sheet.width / 2);
        return std::clamp(centre, half, sheet_.sheet.width - half);
    }

    struct LegendGrid {
        std::vector<SeriesRef> entries;
        std::size_t columns = 1, rows = 1;
        double column_width = 0, row_height = 0;
    };

    LegendGrid legend_grid() const {
        LegendGrid grid;
        grid.entries = legend_entries(chart_);
        const std::size_t n = grid.entries.size();
        if (n == 0) return grid;
        double widest = 0, highest = 8;
        for (const SeriesRef& entry : grid.entries) {
            const TextSize size = size_of(legend_text(entry), chart_.legend.font);
            widest = std::max(widest, size.width);
            highest = std::max(highest, size.height);
        }
        grid.row_height = highest + 3;
        grid.column_width = Sheet2D::kSampleWidth + kLegendGap + widest;
        const auto most = [](double room, double each) {
            return static_cast<std::size_t>(std::max(1.0, std::floor(room / each)));
        };
        if (chart_.legend.vertical) {
            const std::size_t fit = most(sheet_.plot.height - 4 * kLegendPad, grid.row_height);
            grid.columns = (n + fit - 1) / fit;
            grid.rows = (n + grid.columns - 1) / grid.columns;
        } else {
            const std::size_t fit = most(sheet_.plot.width - 2 * kLegendPad + kColumnGap,
                                         grid.column_width + kColumnGap);
            grid.rows = (n + fit - 1) / fit;
            grid.columns = (n + grid.rows - 1) / grid.rows;
        }
        return grid;
    }

    const std::string& legend_text(const SeriesRef& entry) const {
        return series_of(chart_, entry.group)[static_cast<std::size_t>(entry.index)].legend;
    }

    void make_legend_size() {
        sheet_.legend = {};
        if (!chart_.legend.shown) return;
        const LegendGrid grid = legend_grid();
        if (grid.entries.empty()) return;
        const auto columns = static_cast<double>(grid.columns);
        sheet_.legend.width =
            columns * grid.column_width + (columns - 1) * kColumnGap + 2 * kLegendPad;
        sheet_.legend.height = static_cast<double>(grid.rows) * grid.row_height + 2 * kLegendPad;
    }

    void place_legend() {
        make_legend_size();
        SheetRect& legend = sheet_.legend;
        if (legend.width <= 0) return;
        const SheetRect& p = sheet_.plot;
        LegendAnchor anchor = chart_.legend.anchor;
        if (anchor == LegendAnchor::Automatic)
            anchor = best_legend_anchor(chart_, p.width, p.height, legend.width, legend.height);
        if (anchor == LegendAnchor::Free) {
            legend.left = chart_.legend.place.x * sheet_.sheet.width;
            legend.top = chart_.legend.place.y * sheet_.sheet.height;
        } else if (anchor == LegendAnchor::OutsideEast) {
            legend.left = sheet_.sheet.width - kEdge - legend.width;
            legend.top = p.top;
        } else if (anchor == LegendAnchor::OutsideSouth) {
            legend.left = p.left + (p.width - legend.width) / 2;
            legend.top =
                sheet_.sheet.height - kEdge - caption_height(chart_.footer) - legend.height;
        } else {
            const LegendSpot spot =
                spot_of_legend(anchor, p.width, p.height, legend.width, legend.height);
            legend.left = p.left + spot.left;
            legend.top = p.top + spot.top;
        }
        const LegendGrid grid = legend_grid();
        for (std::size_t k = 0; k < grid.entries.size(); ++k) {
            // Under each other the entries run down the columns, side by side along the rows.
            const std::size_t column = chart_.legend.vertical ? k / grid.rows : k % grid.columns;
            const std::size_t row = chart_.legend.vertical ? k % grid.rows : k / grid.columns;
            LegendLine line;
            line.series = grid.entries[k];
            line.sample_left = legend.left + kLegendPad +
                               static_cast<double>(column) * (grid.column_width + kColumnGap);
            line.text_left = line.sample_left + Sheet2D::kSampleWidth + kLegendGap;
            line.y = legend.top + kLegendPad + (static_cast<double>(row) + 0.5) * grid.row_height;
            sheet_.legend_lines.push_back(line);
        }
    }

    /// Data coordinates of a label's place, if it has one.
    std::optional<std::array<double, 2>> place_of(const Label& label) const {
        if (!label.on_point) return std::array{label.x, label.y};
        const auto& all = series_of(chart_, label.group);
        if (label.series < 0 || label.series >= static_cast<int>(all.size())) return std::nullopt;
        const Series& series = all[static_cast<std::size_t>(label.series)];
        const auto point = static_cast<std::size_t>(std::max(label.point, 0));
        if (label.point < 0 || point >= series.x.size() || point >= series.y.size() ||
            !series.visible || !is_shown(series.x[point]) || !is_shown(series.y[point]))
            return std::nullopt;
        return std::array<double, 2>{series.x[point], series.y[point]};
    }

    void place_labels() {
        if (!chart_.labels_shown) return;
        for (std::size_t i = 0; i < chart_.labels.size(); ++i) {
            const Label& label = chart_.labels[i];
            if (!label.shown || label.text.empty()) continue;
            const auto place = place_of(label);
            if (!place) continue;
            const double px = pixel_x((*place)[0]), py = pixel_y((*place)[1]);
            constexpr double kSlack = 1;
            const SheetRect& p = sheet_.plot;
            const SheetRect wide{p.left - kSlack, p.top - kSlack, p.width + 2 * kSlack,
                                 p.height + 2 * kSlack};
            if (!wide.contains(px, py)) continue;
            const TextSize size = size_of(label.text, label.font);
            const TextSize padded{size.width + 4, size.height + 2};
            sheet_.labels.push_back(
                {static_cast<int>(i), px, py,
                 text_at(px + label.dx, py + label.dy, padded, label.rotation)});
        }
    }

    const Chart2D& chart_;
    const MeasureText& measure_;
    WindowScale scale_;
    Sheet2D sheet_;
    /// What numbers take outside the plot area below, left and right of it.
    double x_numbers_ = 0, y_numbers_ = 0, y2_numbers_ = 0;
};

/// The part of the segment a-b inside the rectangle as parameters 0..1 (Liang and Barsky).
std::optional<std::array<double, 2>> inside_part(const SheetRect& r, SheetPoint a, SheetPoint b) {
    double t0 = 0, t1 = 1;
    const double dx = b.x - a.x, dy = b.y - a.y;
    const std::array<std::array<double, 2>, 4> edges{
        {{-dx, a.x - r.left}, {dx, r.right() - a.x}, {-dy, a.y - r.top}, {dy, r.bottom() - a.y}}};
    for (const auto& [p, q] : edges) {
        if (p == 0) {
            if (q < 0) return std::nullopt;
            continue;
        }
        if (p < 0)
            t0 = std::max(t0, q / p);
        else
            t1 = std::min(t1, q / p);
    }
    if (t0 > t1) return std::nullopt;
    return std::array{t0, t1};
}

}  // namespace

namespace {

/// Collects the visible pieces of a line point by point.
class LineCutter {
  public:
    explicit LineCutter(const SheetRect& plot) : plot_(plot) {}

    void interrupt() { has_last_ = open_ = false; }

    void add(SheetPoint here) {
        if (has_last_) add_segment(here);
        last_ = here;
        has_last_ = true;
    }

    std::vector<std::vector<SheetPoint>> take() { return std::move(lines_); }

  private:
    void add_segment(SheetPoint here) {
        const auto part = inside_part(plot_, last_, here);
        if (!part) {
            open_ = false;
            return;
        }
        const auto at = [&](double t) {
            return SheetPoint{last_.x + t * (here.x - last_.x), last_.y + t * (here.y - last_.y)};
        };
        const auto [from, to] = *part;
        if (!open_ || from > 0) lines_.push_back({at(from)});
        lines_.back().push_back(to == 1 ? here : at(to));
        open_ = to == 1;
    }

    SheetRect plot_;
    SheetPoint last_;
    bool has_last_ = false;
    bool open_ = false;  // the last line goes on at `last_`
    std::vector<std::vector<SheetPoint>> lines_;
};

}  // namespace

std::vector<std::vector<SheetPoint>> visible_lines(const Chart2D& chart, const Series& series,
                                                   const SheetRect& plot) {
    return visible_lines(chart, series, plot, SheetScale(chart, plot), 1);
}

std::vector<std::vector<SheetPoint>> visible_lines(const Chart2D& chart, const Series& series,
                                                   const SheetRect& plot, const SheetScale& scale,
                                                   std::size_t every) {
    const Window& window = scale.window().window();
    const auto on_axis = [&](float value, const Axis& axis, const Range& range) -> double {
        // Far enough below the window that a line to it leaves at its edge.
        const bool below = series.is_reference && axis.logarithmic && !(value > 0);
        return below ? range.min * 1e-6 : value;
    };
    LineCutter cutter(plot);
    for (std::size_t i = 0; i < std::min(series.x.size(), series.y.size()); ++i) {
        // Holes count wherever they stand.
        if (i % every != 0 && is_shown(series.x[i]) && is_shown(series.y[i])) continue;
        const SheetPoint here{scale.x(on_axis(series.x[i], chart.x, window.x)),
                              scale.y(on_axis(series.y[i], chart.y, window.y))};
        if (is_shown(series.x[i]) && is_shown(series.y[i]) && std::isfinite(here.x) &&
            std::isfinite(here.y))
            cutter.add(here);
        else
            cutter.interrupt();
    }
    return cutter.take();
}

Sheet2D lay_out(const Chart2D& chart, double width, double height, const MeasureText& measure) {
    return LayoutMaker(chart, width, height, measure).make();
}

bool place_curve_label(const Chart2D& chart, int curve, double fraction, double width,
                       double height, const MeasureText& measure, Label& label) {
    const Sheet2D sheet = lay_out(chart, width, height, measure);
    const SheetRect& plot = sheet.plot;
    const TextSize size = measure(label.text, label.font);
    std::optional<LabelSpot> spot;
    if (fraction < 0) {
        std::vector<SheetRect> taken;
        const auto take = [&](SheetRect rect) {
            rect.left -= plot.left;
            rect.top -= plot.top;
            taken.push_back(rect);
        };
        if (sheet.legend.width > 0) take(sheet.legend);
        for (const SheetLabel& other : sheet.labels) take(other.text.rect);
        spot = best_spot(chart, curve, plot.width, plot.height, size.width, size.height, taken);
    } else {
        spot = spot_along_curve(chart, curve, fraction, plot.width, plot.height, size.width,
                                size.height);
    }
    if (!spot) return false;
    label.on_point = true;
    label.group = Group::Curves;
    label.series = curve;
    label.point = spot->point;
    label.dx = spot->dx;
    label.dy = spot->dy;
    return true;
}

}  // namespace quor::chart
