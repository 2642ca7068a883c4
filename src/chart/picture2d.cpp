#include "chart/picture2d.h"

#include <algorithm>
#include <array>

#include "chart/line_labels.h"
#include "chart/picture_work.h"

namespace quor::chart {

namespace {

constexpr std::array kGroups{Group::Curves, Group::Points};
constexpr float kAxisWidth = 1, kConnectorWidth = 0.8F;
constexpr double kNumberReach = Sheet2D::kTickLength + Sheet2D::kNumberGap;

/// Translucent form of a grid line's style, for the lines between the powers of ten.
LineStyle fine(LineStyle style) {
    style.colour.a = static_cast<std::uint8_t>(style.colour.a / 2);
    style.width *= 0.7F;
    return style;
}

/// Puts the parts of a sheet into its picture, from the lowest to the uppermost.
class PictureMaker {
  public:
    PictureMaker(const Chart2D& chart, Sheet2D sheet, const MeasureText& measure)
        : chart_(chart),
          measure_(measure),
          pixels_(chart, sheet.plot),
          picture_{std::move(sheet), chart.plot_area.sheet, {}} {}

    Picture2D make() {
        add_background();
        add_grid();
        add_lines();
        add_symbols();
        add_axes();
        add_texts();
        add_line_labels();
        add_labels();
        add_legend();
        add_remark();
        return std::move(picture_);
    }

  private:
    const Sheet2D& sheet() const { return picture_.sheet; }

    void box(const SheetRect& rect, Colour fill, const Frame& frame) {
        if (fill.a > 0 || frame.shown) picture_.items.push_back(PictureBox{rect, fill, frame});
    }

    void line(std::vector<SheetPoint> points, const LineStyle& style, bool square_ends = false) {
        if (style.pattern == LinePattern::None) return;
        picture_.items.push_back(PictureLine{std::move(points), style, square_ends});
    }

    void symbols(std::vector<SheetPoint> places, const Series& series, Group group) {
        const SymbolShape shape = shown_symbol(series, group);
        if (shape == SymbolShape::Hidden || places.empty()) return;
        picture_.items.push_back(
            PictureSymbols{std::move(places), shape, series.symbol_size, series.symbol_colour});
    }

    void text(SheetPoint centre, const std::string& text, const Font& font, Colour colour,
              int rotation = 0) {
        if (!text.empty())
            picture_.items.push_back(PictureText{centre, text, font, colour, rotation});
    }

    void add_background() {
        constexpr Colour kNothing{0, 0, 0, 0};
        box(sheet().plot, chart_.plot_area.background, {});
        const Frame& border = chart_.plot_area.sheet_border;
        const double inset = static_cast<double>(border.width) / 2;
        SheetRect rim = sheet().sheet;
        rim.left += inset;
        rim.top += inset;
        rim.width -= 2 * inset + 1;
        rim.height -= 2 * inset + 1;
        box(rim, kNothing, border);
    }

    void upright(const std::vector<double>& values, const LineStyle& style) {
        const SheetRect& p = sheet().plot;
        for (const double value : values) {
            const double x = pixels_.x(value);
            line({{x, p.top}, {x, p.bottom()}}, style);
        }
    }

    void level(const std::vector<double>& values, const LineStyle& style) {
        const SheetRect& p = sheet().plot;
        for (const double value : values) {
            const double y = pixels_.y(value);
            line({{p.left, y}, {p.right(), y}}, style);
        }
    }

    void add_grid() {
        upright(sheet().x.fine_grid, fine(chart_.x.grid));
        level(sheet().y.fine_grid, fine(chart_.y.grid));
        upright(sheet().x.grid, chart_.x.grid);
        level(sheet().y.grid, chart_.y.grid);
    }

    /// Of more points than can be looked at in time every how many-th is.
    std::size_t every() const {
        std::size_t points = 0;
        for (const Group group : kGroups)
            for (const Series& series : series_of(chart_, group))
                if (series.visible) points += std::min(series.x.size(), series.y.size());
        return points / work::kMostPoints + 1;
    }

    void add_lines() {
        const std::size_t step = every();
        std::vector<PictureLine> lines;
        for (const Group group : kGroups)
            for (const Series& series : series_of(chart_, group)) {
                if (!series.visible || series.line.pattern == LinePattern::None) continue;
                for (auto& piece : visible_lines(chart_, series, sheet().plot, pixels_, step)) {
                    work::straighten(piece);
                    lines.push_back({std::move(piece), series.line, false});
                }
            }
        coarse_ = work::lighten(lines) || (step > 1 && !lines.empty());
        for (PictureLine& one : lines) picture_.items.emplace_back(std::move(one));
    }

    /// The places of a series' points in the plot area.
    std::vector<SheetPoint> places_of(const Series& series, std::size_t step) const {
        constexpr double kSlack = 0.5;  // a point on the frame is drawn whole
        const SheetRect& p = sheet().plot;
        const SheetRect area{p.left - kSlack, p.top - kSlack, p.width + 2 * kSlack,
                             p.height + 2 * kSlack};
        std::vector<SheetPoint> places;
        for (std::size_t i = 0; i < std::min(series.x.size(), series.y.size()); i += step) {
            if (!is_shown(series.x[i]) || !is_shown(series.y[i])) continue;
            const SheetPoint at{pixels_.x(static_cast<double>(series.x[i])),
                                pixels_.y(static_cast<double>(series.y[i]))};
            if (area.contains(at.x, at.y)) places.push_back(at);
        }
        return places;
    }

    void add_symbols() {
        const std::size_t step = every();
        std::vector<PictureSymbols> all;
        for (const Group group : kGroups)
            for (const Series& series : series_of(chart_, group)) {
                const SymbolShape shape = shown_symbol(series, group);
                if (!series.visible || shape == SymbolShape::Hidden) continue;
                auto places = places_of(series, step);
                if (!places.empty())
                    all.push_back(
                        {std::move(places), shape, series.symbol_size, series.symbol_colour});
            }
        work::lighten(all);
        for (PictureSymbols& one : all) picture_.items.emplace_back(std::move(one));
    }

    static LineStyle axis_style(const Axis& axis) {
        return {LinePattern::Solid, axis.colour, kAxisWidth};
    }

    void add_level_axis() {
        const Axis& axis = chart_.x;
        const SheetAxis& on = sheet().x;
        const LineStyle style = axis_style(axis);
        const auto tick = [&](double x, double length) {
            line({{x, on.line}, {x, on.line + length}}, style, true);
        };
        line({{sheet().plot.left, on.line}, {sheet().plot.right(), on.line}}, style, true);
        for (const double value : on.ticks.minor) tick(pixels_.x(value), Sheet2D::kMinorTickLength);
        for (const Tick& major : on.ticks.major) {
            const double x = pixels_.x(major.value);
            tick(x, Sheet2D::kTickLength);
            const double height = measure_(major.text, axis.number_font).height;
            text({x, on.line + kNumberReach + height / 2}, major.text, axis.number_font,
                 axis.colour);
        }
    }

    /// `outward` is -1 for an axis with its numbers at the left, 1 at the right; `pixel` gives the
    /// height of a value.
    template <class Pixel>
    void add_upright_axis(const Axis& axis, const SheetAxis& on, double outward, Pixel pixel) {
        const LineStyle style = axis_style(axis);
        const auto tick = [&](double y, double length) {
            line({{on.line, y}, {on.line + outward * length, y}}, style, true);
        };
        line({{on.line, sheet().plot.top}, {on.line, sheet().plot.bottom()}}, style, true);
        for (const double value : on.ticks.minor) tick(pixel(value), Sheet2D::kMinorTickLength);
        for (const Tick& major : on.ticks.major) {
            const double y = pixel(major.value);
            tick(y, Sheet2D::kTickLength);
            const double width = measure_(major.text, axis.number_font).width;
            text({on.line + outward * (kNumberReach + width / 2), y}, major.text, axis.number_font,
                 axis.colour);
        }
    }

    void add_axes() {
        const SheetRect& p = sheet().plot;
        box(p, {0, 0, 0, 0}, chart_.plot_area.border);
        if (chart_.x.shown) add_level_axis();
        if (chart_.y.shown)
            add_upright_axis(chart_.y, sheet().y, -1, [&](double v) { return pixels_.y(v); });
        const Range range = second_range(chart_);
        if (chart_.y2.shown)
            add_upright_axis(chart_.y2, sheet().y2, 1, [&](double v) {
                return p.bottom() - unit_of(v, range, chart_.y2.logarithmic) * p.height;
            });
    }

    void add_title(const Axis& axis, const SheetText& place) {
        if (place.shown)
            text({place.x, place.y}, axis.title, axis.title_font, axis.title_colour,
                 place.rotation);
    }

    void add_caption(const Caption& caption, const SheetText& place) {
        if (place.shown) text({place.x, place.y}, caption.text, caption.font, caption.colour);
    }

    void add_texts() {
        add_title(chart_.x, sheet().x.title);
        add_title(chart_.y, sheet().y.title);
        add_title(chart_.y2, sheet().y2.title);
        add_caption(chart_.header, sheet().header);
        add_caption(chart_.footer, sheet().footer);
    }

    /// Each on a ground of the paper's colour: a line as wide as the text is high.
    void add_line_labels() {
        for (const LineLabel& label : sheet().line_labels) {
            const Series& series = chart_.curves[static_cast<std::size_t>(label.curve)];
            const auto middle = [&](std::size_t i, std::size_t k) {
                return SheetPoint{(label.box[i].x + label.box[k].x) / 2,
                                  (label.box[i].y + label.box[k].y) / 2};
            };
            line({middle(0, 3), middle(1, 2)}, {LinePattern::Solid, chart_.plot_area.background,
                                                static_cast<float>(label.size.height)});
            text(label.centre, series.label.text, line_label_font(), series.line.colour,
                 label.rotation);
        }
    }

    void add_labels() {
        double time = 0;
        for (const SheetLabel& place : sheet().labels) {
            const Label& label = chart_.labels[static_cast<std::size_t>(place.label)];
            constexpr double kBox = 20;
            time += kBox + work::time_of(label.text, label.font, label.rotation);
            if (time > work::kTextTime) {
                coarse_ = true;
                return;
            }
            const SheetPoint centre{place.text.x, place.text.y};
            if (label.connector)
                line({{place.place_x, place.place_y}, centre},
                     {LinePattern::Solid, label.text_colour, kConnectorWidth}, true);
            box(place.text.rect, label.background, label.frame);
            text(centre, label.text, label.font, label.text_colour, place.text.rotation);
        }
    }

    void add_legend() {
        if (sheet().legend_lines.empty()) return;
        const Legend& legend = chart_.legend;
        box(sheet().legend, legend.background, legend.frame);
        double time = 0;
        for (const LegendLine& entry : sheet().legend_lines) {
            const auto index = static_cast<std::size_t>(entry.series.index);
            const Series& series = series_of(chart_, entry.series.group)[index];
            const double reach = static_cast<double>(series.symbol_size);
            if (entry.y < -reach || entry.y > sheet().sheet.height + reach ||
                entry.sample_left > sheet().sheet.width)
                continue;
            constexpr double kSample = 20;
            time += kSample + reach + work::time_of(series.legend, legend.font, 0);
            if (time > work::kTextTime) {
                coarse_ = true;
                return;
            }
            const double right = entry.sample_left + Sheet2D::kSampleWidth;
            line({{entry.sample_left, entry.y}, {right, entry.y}}, series.line);
            symbols({{(entry.sample_left + right) / 2, entry.y}}, series, entry.series.group);
            const double width = measure_(series.legend, legend.font).width;
            text({entry.text_left + width / 2, entry.y}, series.legend, legend.font,
                 legend.text_colour);
        }
    }

    /// What is missing is said: a picture must not pretend to show all.
    void add_remark() {
        if (!coarse_) return;
        const Font font{{}, 8, false, true};
        const std::string remark = "not every point, or not every text, is drawn";
        const TextSize size = measure_(remark, font);
        text({size.width / 2 + 2, sheet().sheet.height - size.height / 2 - 1}, remark, font, kInk);
    }

    const Chart2D& chart_;
    const MeasureText& measure_;
    SheetScale pixels_;
    Picture2D picture_;
    bool coarse_ = false;  // the chart holds more than is drawn
};

}  // namespace

Picture2D picture_of(const Chart2D& chart, double width, double height,
                     const MeasureText& measure) {
    const MeasureText once = measured_once(measure);
    return PictureMaker(chart, lay_out(chart, width, height, once), once).make();
}

}  // namespace quor::chart
