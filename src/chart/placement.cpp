#include "chart/placement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace quor::chart {

namespace {

struct Pixel {
    double x = 0, y = 0;  // y downwards
};

struct Box {
    double left, top, right, bottom;
    bool contains(Pixel p) const {
        return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom;
    }
    bool overlaps(const SheetRect& r) const {
        return left < r.right() && right > r.left && top < r.bottom() && bottom > r.top;
    }
};

/// Part of the segment a-b inside the box in pixels of length (Liang and Barsky's clipping).
double length_inside(const Box& box, Pixel a, Pixel b) {
    // Most pieces of a drawing lie far from the box.
    if (std::max(a.x, b.x) < box.left || std::min(a.x, b.x) > box.right ||
        std::max(a.y, b.y) < box.top || std::min(a.y, b.y) > box.bottom)
        return 0;
    double t0 = 0, t1 = 1;
    const double dx = b.x - a.x, dy = b.y - a.y;
    const std::array<std::array<double, 2>, 4> edges{{{-dx, a.x - box.left},
                                                      {dx, box.right - a.x},
                                                      {-dy, a.y - box.top},
                                                      {dy, box.bottom - a.y}}};
    for (const auto& [p, q] : edges) {
        if (p == 0) {
            if (q < 0) return 0;
            continue;
        }
        const double t = q / p;
        if (p < 0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
    }
    return t1 > t0 ? (t1 - t0) * std::hypot(dx, dy) : 0;
}

/// All that is drawn, in pixels of the plot area: lines as pieces, points as small weights.
class Drawing {
  public:
    Drawing(const Chart2D& chart, double width, double height)
        : scale_(chart), width_(width), height_(height) {
        constexpr std::size_t kMost = 100000;  // points that a free place is found among
        std::size_t points = 0;
        for (const Group group : {Group::Curves, Group::Points})
            for (const Series& series : series_of(chart, group)) points += series.x.size();
        every_ = points / kMost + 1;
        for (const Group group : {Group::Curves, Group::Points})
            for (const Series& series : series_of(chart, group)) add(series, group);
        for (const Label& label : chart.labels) add(chart, label);
    }

    std::optional<Pixel> place(double x, double y) const {
        const Pixel p{scale_.u(x) * width_, (1 - scale_.v(y)) * height_};
        if (!std::isfinite(p.x) || !std::isfinite(p.y)) return std::nullopt;
        return p;
    }

    /// How much a box hides: pixels of line, and some for every point and label in it. Counts no
    /// further than what is needed to know that it is more than `limit`.
    double hidden(const Box& box, double limit = std::numeric_limits<double>::infinity()) const {
        double sum = 0;
        for (const auto& [a, b] : pieces_) {
            sum += length_inside(box, a, b);
            if (sum > limit) return sum;
        }
        for (const Pixel p : marks_) sum += box.contains(p) ? kMarkWeight : 0;
        return sum;
    }

  private:
    static constexpr double kMarkWeight = 15;

    void add(const Series& series, Group group) {
        if (!series.visible) return;
        const bool line = series.line.pattern != LinePattern::None;
        const bool symbols = shown_symbol(series, group) != SymbolShape::Hidden;
        std::optional<Pixel> last;
        for (std::size_t i = 0; i < std::min(series.x.size(), series.y.size()); i += every_) {
            std::optional<Pixel> p;
            if (is_shown(series.x[i]) && is_shown(series.y[i])) p = place(series.x[i], series.y[i]);
            if (p && symbols) marks_.push_back(*p);
            if (p && last && line) pieces_.push_back({*last, *p});
            last = p;
        }
    }

    void add(const Chart2D& chart, const Label& label) {
        if (!label.shown || label.on_point || !chart.labels_shown) return;
        if (const auto p = place(label.x, label.y))
            marks_.push_back({p->x + label.dx, p->y + label.dy});
    }

    WindowScale scale_;
    double width_, height_;
    std::size_t every_ = 1;  // of very many points
    std::vector<std::array<Pixel, 2>> pieces_;
    std::vector<Pixel> marks_;
};

struct PathPoint {
    Pixel at;
    int index;      // in the series
    double length;  // along the line from its first point in the window
};

/// The points of a curve inside the plot area with the length of line up to each.
std::vector<PathPoint> path_in_window(const Drawing& drawing, const Series& series, double width,
                                      double height) {
    const Box area{-0.5, -0.5, width + 0.5, height + 0.5};
    std::vector<PathPoint> path;
    double length = 0;
    for (std::size_t i = 0; i < std::min(series.x.size(), series.y.size()); ++i) {
        if (!is_shown(series.x[i]) || !is_shown(series.y[i])) continue;
        const auto p = drawing.place(series.x[i], series.y[i]);
        if (!p || !area.contains(*p)) continue;
        if (!path.empty()) length += std::hypot(p->x - path.back().at.x, p->y - path.back().at.y);
        path.push_back({*p, static_cast<int>(i), length});
    }
    return path;
}

const PathPoint& point_at(const std::vector<PathPoint>& path, double fraction) {
    const double wanted = std::clamp(fraction, 0.0, 1.0) * path.back().length;
    const auto it = std::lower_bound(path.begin(), path.end(), wanted,
                                     [](const PathPoint& p, double l) { return p.length < l; });
    return it == path.end() ? path.back() : *it;
}

/// Unit vector along the curve at a point of the path.
Pixel direction(const std::vector<PathPoint>& path, const PathPoint& point) {
    const auto i = static_cast<std::size_t>(&point - path.data());
    const Pixel a = path[i == 0 ? 0 : i - 1].at, b = path[std::min(i + 1, path.size() - 1)].at;
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (!(length > 0)) return {1, 0};
    return {(b.x - a.x) / length, (b.y - a.y) / length};
}

/// A text beside a curve: which side of it, and how far away beyond what it needs to stand free.
struct Standing {
    double side = 1;      // 1 above the line, -1 below
    double distance = 0;  // in pixels
};

/// Offset of the centre of a text so that it stands free beside a line of this direction.
Pixel beside_line(Pixel along, double text_width, double text_height, const Standing& standing) {
    constexpr double kGap = 3;
    Pixel normal{along.y, -along.x};
    if (normal.y > 0 || (normal.y == 0 && normal.x < 0)) normal = {-normal.x, -normal.y};
    // Half the extent of the text's box along the normal.
    const double reach = std::abs(normal.x) * text_width / 2 +
                         std::abs(normal.y) * text_height / 2 + kGap + standing.distance;
    return {standing.side * normal.x * reach, standing.side * normal.y * reach};
}

Box box_around(Pixel centre, double width, double height) {
    return {centre.x - width / 2, centre.y - height / 2, centre.x + width / 2,
            centre.y + height / 2};
}

/// The offset, on the other side of the line where this keeps the text in the plot area better,
/// and pushed inside.
Pixel kept_inside(Pixel at, Pixel offset, double width, double height, double text_width,
                  double text_height) {
    const auto overhang = [&](Pixel o) {
        const Box box = box_around({at.x + o.x, at.y + o.y}, text_width, text_height);
        return std::max(0.0, -box.left) + std::max(0.0, -box.top) +
               std::max(0.0, box.right - width) + std::max(0.0, box.bottom - height);
    };
    const Pixel other{-offset.x, -offset.y};
    const Pixel chosen = overhang(other) < overhang(offset) ? other : offset;
    const double x = std::clamp(at.x + chosen.x, std::min(text_width / 2, width / 2),
                                std::max(width - text_width / 2, width / 2));
    const double y = std::clamp(at.y + chosen.y, std::min(text_height / 2, height / 2),
                                std::max(height - text_height / 2, height / 2));
    return {x - at.x, y - at.y};
}

const Series* curve_at(const Chart2D& chart, int curve) {
    if (curve < 0 || curve >= static_cast<int>(chart.curves.size())) return nullptr;
    return &chart.curves[static_cast<std::size_t>(curve)];
}

struct Placed {
    LabelSpot spot;
    Box box;
};

Placed place_at(const std::vector<PathPoint>& path, double fraction, double width, double height,
                double text_width, double text_height, const Standing& standing = {}) {
    const PathPoint& point = point_at(path, fraction);
    const Pixel beside = beside_line(direction(path, point), text_width, text_height, standing);
    const Pixel offset = kept_inside(point.at, beside, width, height, text_width, text_height);
    const Box box =
        box_around({point.at.x + offset.x, point.at.y + offset.y}, text_width, text_height);
    return {{point.index, offset.x, offset.y}, box};
}

}  // namespace

std::optional<LabelSpot> spot_along_curve(const Chart2D& chart, int curve, double fraction,
                                          double width, double height, double text_width,
                                          double text_height) {
    const Series* series = curve_at(chart, curve);
    if (!series) return std::nullopt;
    const Drawing drawing(chart, width, height);
    const auto path = path_in_window(drawing, *series, width, height);
    if (path.empty()) return std::nullopt;
    return place_at(path, fraction, width, height, text_width, text_height).spot;
}

std::optional<LabelSpot> best_spot(const Chart2D& chart, int curve, double width, double height,
                                   double text_width, double text_height,
                                   std::span<const SheetRect> taken) {
    constexpr int kTrials = 37, kDistances = 3;
    constexpr double kOnText = 1000, kAway = 4, kOtherSide = 1;  // beside pixels of hidden line
    const Series* series = curve_at(chart, curve);
    if (!series) return std::nullopt;
    const Drawing drawing(chart, width, height);
    const auto path = path_in_window(drawing, *series, width, height);
    if (path.empty()) return std::nullopt;
    std::optional<LabelSpot> best;
    double least = std::numeric_limits<double>::infinity();
    for (int distance = 0; distance < kDistances; ++distance)
        for (const double side : {1.0, -1.0})
            for (int i = 0; i < kTrials; ++i) {
                const double fraction = 0.05 + 0.9 * i / (kTrials - 1);
                const Placed placed = place_at(path, fraction, width, height, text_width,
                                               text_height, {side, distance * text_height});
                // The middle is the better place among equals.
                double cost = std::abs(fraction - 0.5) + kAway * distance * text_height +
                              (side < 0 ? kOtherSide : 0);
                for (const SheetRect& other : taken)
                    if (placed.box.overlaps(other)) cost += kOnText;
                if (cost < least) cost += drawing.hidden(placed.box, least - cost);
                if (cost < least) {
                    least = cost;
                    best = placed.spot;
                }
            }
    return best;
}

LegendSpot spot_of_legend(LegendAnchor anchor, double width, double height, double legend_width,
                          double legend_height) {
    constexpr double kGap = 8;
    const double right = width - legend_width - kGap, bottom = height - legend_height - kGap;
    const double middle_x = (width - legend_width) / 2, middle_y = (height - legend_height) / 2;
    switch (anchor) {
        case LegendAnchor::NorthWest:
            return {kGap, kGap};
        case LegendAnchor::North:
            return {middle_x, kGap};
        case LegendAnchor::East:
            return {right, middle_y};
        case LegendAnchor::SouthEast:
            return {right, bottom};
        case LegendAnchor::South:
            return {middle_x, bottom};
        case LegendAnchor::SouthWest:
            return {kGap, bottom};
        case LegendAnchor::West:
            return {kGap, middle_y};
        default:
            return {right, kGap};
    }
}

LegendAnchor best_legend_anchor(const Chart2D& chart, double width, double height,
                                double legend_width, double legend_height) {
    constexpr std::array kCandidates{LegendAnchor::NorthEast, LegendAnchor::NorthWest,
                                     LegendAnchor::SouthEast, LegendAnchor::SouthWest,
                                     LegendAnchor::North,     LegendAnchor::South,
                                     LegendAnchor::East,      LegendAnchor::West};
    const Drawing drawing(chart, width, height);
    LegendAnchor best = kCandidates.front();
    double least = std::numeric_limits<double>::infinity();
    for (const LegendAnchor anchor : kCandidates) {
        const auto spot = spot_of_legend(anchor, width, height, legend_width, legend_height);
        const double hidden = drawing.hidden(
            {spot.left, spot.top, spot.left + legend_width, spot.top + legend_height});
        if (hidden < least - 1e-9) {
            least = hidden;
            best = anchor;
        }
    }
    return best;
}

}  // namespace quor::chart
