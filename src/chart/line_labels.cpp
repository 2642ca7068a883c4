#include "chart/line_labels.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quor::chart {

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;
constexpr double kMargin = 6;        // pixels round a text that belong to its ground
constexpr double kSag = 0.3;         // of the text's height that its line may bend away under it
constexpr int kPlaces = 40;          // along a line
constexpr double kPreferred = 0.72;  // of the length of a line, where nothing is in the way

using Line = std::vector<SheetPoint>;

/// A line with the length up to each of its points.
struct Measured {
    Line points;
    std::vector<double> length;
    SheetRect bounds;
};

Measured measured(Line line) {
    Measured m{std::move(line), {}, {}};
    double left = HUGE_VAL, top = HUGE_VAL, right = -HUGE_VAL, bottom = -HUGE_VAL, sum = 0;
    for (std::size_t i = 0; i < m.points.size(); ++i) {
        const SheetPoint& at = m.points[i];
        if (i > 0) sum += std::hypot(at.x - m.points[i - 1].x, at.y - m.points[i - 1].y);
        m.length.push_back(sum);
        left = std::min(left, at.x);
        right = std::max(right, at.x);
        top = std::min(top, at.y);
        bottom = std::max(bottom, at.y);
    }
    m.bounds = {left, top, right - left, bottom - top};
    return m;
}

SheetPoint at_length(const Measured& line, double length) {
    const auto after = std::upper_bound(line.length.begin(), line.length.end(), length);
    if (after == line.length.begin()) return line.points.front();
    if (after == line.length.end()) return line.points.back();
    const auto i = static_cast<std::size_t>(after - line.length.begin());
    const double part = (length - line.length[i - 1]) / (line.length[i] - line.length[i - 1]);
    const SheetPoint &a = line.points[i - 1], &b = line.points[i];
    return {a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)};
}

TurnedBox box_at(SheetPoint centre, double angle, double width, double height) {
    const double c = std::cos(angle), s = std::sin(angle);
    const auto corner = [&](double u, double v) {
        return SheetPoint{centre.x + u * c - v * s, centre.y + u * s + v * c};
    };
    const double w = width / 2, h = height / 2;
    return {corner(-w, -h), corner(w, -h), corner(w, h), corner(-w, h)};
}

SheetRect bounds_of(const TurnedBox& box) {
    const auto [x0, x1] = std::minmax({box[0].x, box[1].x, box[2].x, box[3].x});
    const auto [y0, y1] = std::minmax({box[0].y, box[1].y, box[2].y, box[3].y});
    return {x0, y0, x1 - x0, y1 - y0};
}

bool apart(const SheetRect& a, const SheetRect& b) {
    return a.right() < b.left || b.right() < a.left || a.bottom() < b.top || b.bottom() < a.top;
}

/// The extent of some points along a direction.
template <class Points>
std::array<double, 2> extent(const Points& points, double dx, double dy) {
    double low = HUGE_VAL, high = -HUGE_VAL;
    for (const SheetPoint& at : points) {
        const double u = at.x * dx + at.y * dy;
        low = std::min(low, u);
        high = std::max(high, u);
    }
    return {low, high};
}

/// True when no side of the box divides it from the other convex figure.
template <class Points>
bool meets_along_sides(const TurnedBox& box, const Points& other) {
    for (std::size_t i = 0; i < 2; ++i) {
        const double dx = box[i + 1].x - box[i].x, dy = box[i + 1].y - box[i].y;
        const auto a = extent(box, dx, dy), b = extent(other, dx, dy);
        if (a[1] < b[0] || b[1] < a[0]) return false;
    }
    return true;
}

bool lies_on(const TurnedBox& box, const Measured& line) {
    if (apart(bounds_of(box), line.bounds)) return false;
    for (std::size_t i = 1; i < line.points.size(); ++i)
        if (crosses(box, line.points[i - 1], line.points[i])) return true;
    return false;
}

/// The lines of a curve that are seen.
struct CurveLines {
    int curve = 0;
    bool labelled = false;
    std::vector<Measured> pieces;
};

struct Place {
    SheetPoint centre;
    double angle = 0;  ///< radians, clockwise as y runs down
    TurnedBox box{};
};

/// The place of a text around a length of a line; nothing where it is too short or too bent there.
std::optional<Place> place_at(const Measured& line, double middle, const TextSize& size) {
    const double half = size.width / 2 + kMargin;
    if (middle < half || middle + half > line.length.back()) return std::nullopt;
    const SheetPoint a = at_length(line, middle - half), b = at_length(line, middle + half);
    const SheetPoint m = at_length(line, middle);
    const double chord = std::hypot(b.x - a.x, b.y - a.y);
    constexpr double kStraight = 0.97;  // chord over line
    if (!(chord > 2 * half * kStraight)) return std::nullopt;
    Place place{.centre = {(a.x + b.x) / 2, (a.y + b.y) / 2},
                .angle = std::atan2(b.y - a.y, b.x - a.x)};
    if (std::hypot(m.x - place.centre.x, m.y - place.centre.y) > kSag * size.height)
        return std::nullopt;
    // Texts are read from left to right, upright ones from below.
    if (place.angle > 90 * kDegree) place.angle -= 180 * kDegree;
    if (place.angle <= -90 * kDegree) place.angle += 180 * kDegree;
    place.box = box_at(place.centre, place.angle, size.width + 2 * kMargin, size.height);
    return place;
}

bool inside(const TurnedBox& box, const SheetRect& plot) {
    return std::all_of(box.begin(), box.end(),
                       [&](const SheetPoint& at) { return plot.contains(at.x, at.y); });
}

class Labelling {
  public:
    Labelling(const Chart2D& chart, const SheetRect& plot, const MeasureText& measure)
        : chart_(chart), plot_(plot), measure_(measure) {
        for (std::size_t i = 0; i < chart.curves.size(); ++i) {
            const Series& series = chart.curves[i];
            if (!series.visible || series.line.pattern == LinePattern::None) continue;
            CurveLines lines{static_cast<int>(i), is_labelled(series), {}};
            for (Line& piece : visible_lines(chart, series, plot))
                if (piece.size() > 1) lines.pieces.push_back(measured(std::move(piece)));
            curves_.push_back(std::move(lines));
        }
    }

    std::vector<LineLabel> place() {
        for (const CurveLines& curve : curves_)
            if (curve.labelled) place(curve);
        return std::move(placed_);
    }

  private:
    static bool is_labelled(const Series& series) {
        return series.label.on_line && series.label.shown && !series.label.text.empty();
    }

    /// How many other lines a text hides; nothing where it must not stand.
    std::optional<int> hidden_by(const TurnedBox& box, const CurveLines& own) const {
        for (const LineLabel& other : placed_)
            if (overlap(box, other.box)) return std::nullopt;
        int hidden = 0;
        for (const CurveLines& curve : curves_) {
            if (&curve == &own) continue;
            for (const Measured& piece : curve.pieces) {
                if (!lies_on(box, piece)) continue;
                if (!curve.labelled) return std::nullopt;
                ++hidden;
            }
        }
        return hidden;
    }

    void place(const CurveLines& curve) {
        const Series& series = chart_.curves[static_cast<std::size_t>(curve.curve)];
        const TextSize size = measure_(series.label.text, line_label_font());
        std::optional<Place> best;
        double least = HUGE_VAL;
        for (const Measured& piece : curve.pieces)
            for (int i = 0; i <= kPlaces; ++i) {
                const double part = static_cast<double>(i) / kPlaces;
                const auto place = place_at(piece, part * piece.length.back(), size);
                if (!place || !inside(place->box, plot_)) continue;
                constexpr double kHidden = 2, kShort = 0.2;
                const double away = std::fabs(part - kPreferred);
                const double share = piece.length.back() / (plot_.width + plot_.height);
                // What can be no better than the best is not looked at in full.
                if (away - kShort * share >= least) continue;
                const auto hidden = hidden_by(place->box, curve);
                if (!hidden) continue;
                const double cost = *hidden * kHidden + away - kShort * share;
                if (cost < least) {
                    least = cost;
                    best = place;
                }
            }
        if (!best) return;
        placed_.push_back({curve.curve, best->centre,
                           static_cast<int>(std::lround(-best->angle / kDegree)), size, best->box});
    }

    const Chart2D& chart_;
    SheetRect plot_;
    const MeasureText& measure_;
    std::vector<CurveLines> curves_;
    std::vector<LineLabel> placed_;
};

}  // namespace

const Font& line_label_font() {
    static const Font font{{}, 8, false, false};
    return font;
}

bool overlap(const TurnedBox& a, const TurnedBox& b) {
    return !apart(bounds_of(a), bounds_of(b)) && meets_along_sides(a, b) && meets_along_sides(b, a);
}

bool crosses(const TurnedBox& box, SheetPoint a, SheetPoint b) {
    const SheetRect span{std::min(a.x, b.x), std::min(a.y, b.y), std::fabs(a.x - b.x),
                         std::fabs(a.y - b.y)};
    if (apart(bounds_of(box), span)) return false;
    const std::array<SheetPoint, 2> segment{a, b};
    if (!meets_along_sides(box, segment)) return false;
    const auto own = extent(segment, a.y - b.y, b.x - a.x);
    const auto other = extent(box, a.y - b.y, b.x - a.x);
    return own[0] <= other[1] && other[0] <= own[1];
}

std::vector<LineLabel> place_line_labels(const Chart2D& chart, const SheetRect& plot,
                                         const MeasureText& measure) {
    const bool any = std::any_of(chart.curves.begin(), chart.curves.end(),
                                 [](const Series& series) { return series.label.on_line; });
    if (!any || !chart.labels_shown) return {};
    return Labelling(chart, plot, measure).place();
}

}  // namespace quor::chart
