#include "chart/chart2d.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "chart/palette.h"
#include "chart/ticks.h"

namespace quor::chart {

namespace {

/// Collects the extent of one coordinate.
class Extent {
  public:
    explicit Extent(bool logarithmic) : logarithmic_(logarithmic) {}
    bool takes(float value) const { return is_shown(value) && (!logarithmic_ || value > 0); }
    void add(float value) {
        low_ = std::min<double>(low_, value);
        high_ = std::max<double>(high_, value);
    }
    bool any() const { return low_ <= high_; }
    Range range() const { return {low_, high_}; }

  private:
    bool logarithmic_;
    double low_ = std::numeric_limits<double>::infinity();
    double high_ = -std::numeric_limits<double>::infinity();
};

bool can_be_drawn(const Range& range, bool logarithmic) {
    return is_drawable(range.min, range.max, logarithmic);
}

Range shown_range(const Axis& axis, const std::optional<Range>& data) {
    const Range fixed{axis.min, axis.max};
    if (!axis.automatic && can_be_drawn(fixed, axis.logarithmic)) return fixed;
    if (axis.logarithmic && !axis.automatic && std::isfinite(axis.max) && axis.max > 0) {
        // A logarithmic axis from 0 or below begins with the least value of the data instead.
        const double low = data && data->min < axis.max ? data->min : axis.max / 1000;
        if (is_drawable(low, axis.max, true)) return {low, axis.max};
    }
    if (!data) return axis.logarithmic ? Range{0.1, 10} : Range{0, 1};
    const NiceWindow nice = make_nice_window(data->min, data->max, axis.logarithmic);
    return {nice.min, nice.max};
}

template <class Visit>
void for_each_series(const Chart2D& chart, Visit visit) {
    for (const Group group : {Group::Curves, Group::Points}) {
        const auto& all = series_of(chart, group);
        for (std::size_t i = 0; i < all.size(); ++i) visit(group, static_cast<int>(i), all[i]);
    }
}

std::size_t point_count(const Series& series) {
    return std::min(series.x.size(), series.y.size());
}

struct Pixel {
    double x, y;
};

double squared_distance(Pixel a, Pixel b) {
    return (a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y);
}

/// Squared distance of p from the segment a-b.
double squared_distance(Pixel p, Pixel a, Pixel b) {
    const double length2 = squared_distance(a, b);
    if (!(length2 > 0)) return squared_distance(p, a);
    const double t = ((p.x - a.x) * (b.x - a.x) + (p.y - a.y) * (b.y - a.y)) / length2;
    const double s = std::clamp(t, 0.0, 1.0);
    return squared_distance(p, {a.x + s * (b.x - a.x), a.y + s * (b.y - a.y)});
}

class PixelScale {
  public:
    PixelScale(const Chart2D& chart, double width, double height)
        : scale_(chart), width_(width), height_(height) {}
    std::optional<Pixel> of(const Series& series, std::size_t i) const {
        if (!is_shown(series.x[i]) || !is_shown(series.y[i])) return std::nullopt;
        const Pixel p{scale_.u(series.x[i]) * width_, scale_.v(series.y[i]) * height_};
        if (!std::isfinite(p.x) || !std::isfinite(p.y)) return std::nullopt;
        return p;
    }

  private:
    WindowScale scale_;
    double width_, height_;
};

bool takes_part(const Series& series, Group group) {
    if (!series.visible || point_count(series) == 0) return false;
    return series.line.pattern != LinePattern::None ||
           shown_symbol(series, group) != SymbolShape::Hidden;
}

}  // namespace

Chart2D::Chart2D() {
    header.font = {{}, 12, true, false};
    footer.font = {{}, 9, false, false};
    y.title_rotation = 90;
    y2.title_rotation = 90;
    y2.shown = false;
    y2.grid_shown = false;
}

std::vector<Series>& series_of(Chart2D& chart, Group group) {
    return group == Group::Curves ? chart.curves : chart.points;
}

const std::vector<Series>& series_of(const Chart2D& chart, Group group) {
    return group == Group::Curves ? chart.curves : chart.points;
}

Series default_curve(int index) {
    Series series;
    series.line = {default_pattern(index), default_colour(index), 1.5F};
    series.symbol_colour = series.line.colour;
    return series;
}

Series default_point_set(int index) {
    Series series;
    series.line = {LinePattern::None, default_colour(index), 1};
    series.symbol = default_symbol(index);
    series.symbol_colour = series.line.colour;
    return series;
}

Series& series_at(Chart2D& chart, Group group, int index) {
    auto& all = series_of(chart, group);
    while (static_cast<int>(all.size()) <= index) {
        const int next = static_cast<int>(all.size());
        all.push_back(group == Group::Curves ? default_curve(next) : default_point_set(next));
    }
    return all[static_cast<std::size_t>(std::max(index, 0))];
}

SymbolShape shown_symbol(const Series& series, Group group) {
    const bool bare = series.line.pattern == LinePattern::None &&
                      series.symbol == SymbolShape::Hidden && group == Group::Curves;
    return bare ? SymbolShape::Dot : series.symbol;
}

std::vector<SeriesRef> legend_entries(const Chart2D& chart) {
    std::vector<SeriesRef> entries;
    for_each_series(chart, [&](Group group, int index, const Series& series) {
        if (series.in_legend && !series.legend.empty() && series.visible && point_count(series) > 0)
            entries.push_back({group, index});
    });
    return entries;
}

void swap_axes(Chart2D& chart) {
    for (auto* group : {&chart.curves, &chart.points})
        for (Series& series : *group) std::swap(series.x, series.y);
    std::swap(chart.x, chart.y);
    // The turn of a title belongs to the side of the sheet, not to the quantity.
    std::swap(chart.x.title_rotation, chart.y.title_rotation);
    for (Label& label : chart.labels) std::swap(label.x, label.y);
    chart.swapped = !chart.swapped;
}

std::optional<Window> data_extent(const Chart2D& chart) {
    Extent x(chart.x.logarithmic), y(chart.y.logarithmic);
    for_each_series(chart, [&](Group group, int, const Series& series) {
        if (series.is_reference || !takes_part(series, group)) return;
        for (std::size_t i = 0; i < point_count(series); ++i) {
            if (!x.takes(series.x[i]) || !y.takes(series.y[i])) continue;
            x.add(series.x[i]);
            y.add(series.y[i]);
        }
    });
    if (!x.any()) return std::nullopt;
    return Window{x.range(), y.range()};
}

Window shown_window(const Chart2D& chart) {
    const auto needs_data = [](const Axis& axis) {
        return axis.automatic || !can_be_drawn({axis.min, axis.max}, axis.logarithmic);
    };
    std::optional<Window> data;
    if (needs_data(chart.x) || needs_data(chart.y)) data = data_extent(chart);
    return {shown_range(chart.x, data ? std::optional(data->x) : std::nullopt),
            shown_range(chart.y, data ? std::optional(data->y) : std::nullopt)};
}

std::optional<Window> fitting_window(const Chart2D& chart) {
    const auto data = data_extent(chart);
    if (!data) return std::nullopt;
    const NiceWindow x = make_nice_window(data->x.min, data->x.max, chart.x.logarithmic);
    const NiceWindow y = make_nice_window(data->y.min, data->y.max, chart.y.logarithmic);
    return Window{{x.min, x.max}, {y.min, y.max}};
}

Range second_range(const Chart2D& chart) {
    const Range own{chart.y2.min, chart.y2.max};
    if (!chart.y2.automatic && can_be_drawn(own, chart.y2.logarithmic)) return own;
    return shown_window(chart).y;
}

double unit_of(double value, const Range& range, bool logarithmic) {
    if (!logarithmic) return (value - range.min) / (range.max - range.min);
    if (!(value > 0)) return -std::numeric_limits<double>::infinity();
    return std::log(value / range.min) / std::log(range.max / range.min);
}

WindowScale::WindowScale(const Chart2D& chart)
    : window_(shown_window(chart)), x_log_(chart.x.logarithmic), y_log_(chart.y.logarithmic) {}

double WindowScale::value(double unit, const Range& range, bool logarithmic) {
    if (!logarithmic) return range.min + unit * (range.max - range.min);
    return range.min * std::pow(range.max / range.min, unit);
}

std::optional<NearPoint> nearest_point(const Chart2D& chart, const PlotPixel& pixel, double limit) {
    const PixelScale scale(chart, pixel.width, pixel.height);
    std::optional<NearPoint> best;
    double best2 = limit * limit;
    for_each_series(chart, [&](Group group, int index, const Series& series) {
        if (series.is_reference || !takes_part(series, group)) return;
        for (std::size_t i = 0; i < point_count(series); ++i) {
            const auto p = scale.of(series, i);
            if (!p) continue;
            const double d2 = squared_distance({pixel.x, pixel.y}, *p);
            if (d2 > best2) continue;
            best2 = d2;
            best = NearPoint{group, index, static_cast<int>(i), std::sqrt(d2)};
        }
    });
    return best;
}

std::optional<NearPoint> nearest_series(const Chart2D& chart, const PlotPixel& pixel,
                                        double limit) {
    const PixelScale scale(chart, pixel.width, pixel.height);
    const Pixel here{pixel.x, pixel.y};
    std::optional<NearPoint> best;
    double best2 = limit * limit;
    for_each_series(chart, [&](Group group, int index, const Series& series) {
        if (!takes_part(series, group)) return;
        const bool line = series.line.pattern != LinePattern::None;
        std::optional<Pixel> last;
        for (std::size_t i = 0; i < point_count(series); ++i) {
            const auto p = scale.of(series, i);
            if (p) {
                const bool segment = line && last;
                const double d2 =
                    segment ? squared_distance(here, *last, *p) : squared_distance(here, *p);
                if (d2 <= best2) {
                    best2 = d2;
                    const bool before =
                        segment && squared_distance(here, *last) < squared_distance(here, *p);
                    best = NearPoint{group, index, static_cast<int>(before ? i - 1 : i),
                                     std::sqrt(d2)};
                }
            }
            last = p;
        }
    });
    return best;
}

void delete_point(Chart2D& chart, Group group, int series, int point) {
    auto& all = series_of(chart, group);
    if (series < 0 || series >= static_cast<int>(all.size())) return;
    Series& target = all[static_cast<std::size_t>(series)];
    if (point < 0 || point >= static_cast<int>(point_count(target))) return;
    target.x.erase(target.x.begin() + point);
    target.y.erase(target.y.begin() + point);
    const auto on_series = [&](const Label& label) {
        return label.on_point && label.group == group && label.series == series;
    };
    std::erase_if(chart.labels,
                  [&](const Label& label) { return on_series(label) && label.point == point; });
    for (Label& label : chart.labels)
        if (on_series(label) && label.point > point) --label.point;
}

void clear_series(Chart2D& chart, Group group, int series) {
    auto& all = series_of(chart, group);
    if (series < 0 || series >= static_cast<int>(all.size())) return;
    Series& target = all[static_cast<std::size_t>(series)];
    target.x.clear();
    target.y.clear();
    target.legend.clear();
    target.label = {};
    target.is_reference = false;
    std::erase_if(chart.labels, [&](const Label& label) {
        return label.on_point && label.group == group && label.series == series;
    });
}

}  // namespace quor::chart
