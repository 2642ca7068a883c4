#include <algorithm>
#include <array>
#include <cmath>

#include "chart/scene_parts.h"
#include "chart/ticks.h"

namespace quor::chart::scene {

namespace {

constexpr double kTickLength = 6;
constexpr double kGap = 4;            // between tick, number and title
constexpr double kTickDistance = 34;  // wanted; the axes of a box are short
constexpr double kShortestAxis = 30;  // pixels; a shorter one stands on end and bears no numbers

struct TextBox {
    double left, top, right, bottom;
    bool overlaps(const TextBox& other) const {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }
};

TextBox box_around(Point2 centre, TextSize size) {
    return {centre.x - size.width / 2, centre.y - size.height / 2, centre.x + size.width / 2,
            centre.y + size.height / 2};
}

/// One of the three directions of the box.
enum class Direction : std::uint8_t { X, Y, Z };

double& component(Point3& p, Direction d) {
    return d == Direction::X ? p.x : d == Direction::Y ? p.y : p.z;
}

struct Plane {
    Direction normal;
    double sign;
};

class BoxView {
  public:
    explicit BoxView(const Context& c)
        : camera_(c.layout.camera), box_(c.layout.box), height_(c.surface.height()) {}

    double limit(Direction d) const { return d == Direction::Z ? height_ : 1; }

    const Range& range(Direction d) const {
        return d == Direction::X ? box_.x : d == Direction::Y ? box_.y : box_.z;
    }

    /// Place of a data value on the axis, as a coordinate of the box.
    double coordinate(Direction d, double value) const {
        const Range& r = range(d);
        return limit(d) * (2 * (value - r.min) / (r.max - r.min) - 1);
    }

    /// True when this side of the box stands between the viewer and the body.
    bool is_front(const Plane& plane) const {
        Point3 at, normal;
        component(at, plane.normal) = plane.sign * limit(plane.normal);
        component(normal, plane.normal) = plane.sign;
        return camera_.sees(at, normal);
    }

    Point2 project(const Point3& p) const { return camera_.project(p); }
    const Camera& camera() const { return camera_; }

  private:
    const Camera& camera_;
    const Box3D& box_;
    double height_;
};

constexpr std::array kDirections{Direction::X, Direction::Y, Direction::Z};

std::array<Direction, 2> others(Direction d) {
    if (d == Direction::X) return {Direction::Y, Direction::Z};
    if (d == Direction::Y) return {Direction::X, Direction::Z};
    return {Direction::X, Direction::Y};
}

const Axis3D& axis_of(const Chart3D& chart, Direction d) {
    return d == Direction::X ? chart.x : d == Direction::Y ? chart.y : chart.z;
}

/// Whether an axis has grid lines on the planes with this normal.
bool grid_wanted(const Axis3D& axis, Direction normal) {
    if (normal == Direction::X) return axis.grid_yz;
    return normal == Direction::Y ? axis.grid_xz : axis.grid_xy;
}

/// An edge of the box along `d` with the axis on it.
struct Edge {
    Direction d{};
    Point3 from, to;  ///< box coordinates of the axis' lower and upper limit
    Point3 outward;   ///< in the back plane at the edge, away from the box
    Point2 a, b;      ///< pixels of the ends
};

double length_of(const Edge& edge) {
    return std::hypot(edge.b.x - edge.a.x, edge.b.y - edge.a.y);
}

/// The edge of the box's outline on which the axis stands: for x and y the lowest on the picture,
/// for z the leftmost. None when the axis points at the viewer.
std::optional<Edge> outline_edge(const BoxView& view, Direction d) {
    const auto [p, q] = others(d);
    std::optional<Edge> best;
    double best_score = 0;
    for (const double sp : {-1.0, 1.0}) {
        for (const double sq : {-1.0, 1.0}) {
            const bool p_front = view.is_front({p, sp}), q_front = view.is_front({q, sq});
            if (p_front == q_front) continue;
            Edge edge;
            edge.d = d;
            component(edge.from, p) = component(edge.to, p) = sp * view.limit(p);
            component(edge.from, q) = component(edge.to, q) = sq * view.limit(q);
            component(edge.from, d) = -view.limit(d);
            component(edge.to, d) = view.limit(d);
            // The back plane is the one whose normal is not in front; it is left along the other.
            component(edge.outward, p_front ? p : q) = p_front ? sp : sq;
            edge.a = view.project(edge.from);
            edge.b = view.project(edge.to);
            const double low = edge.a.y + edge.b.y, left = -(edge.a.x + edge.b.x);
            const double score = d == Direction::Z ? left + 1e-3 * low : low + 1e-3 * left;
            if (best && score <= best_score) continue;
            best = edge;
            best_score = score;
        }
    }
    if (!best || length_of(*best) < kShortestAxis) return std::nullopt;
    return best;
}

Point2 unit(double x, double y) {
    const double length = std::hypot(x, y);
    return length > 0 ? Point2{x / length, y / length} : Point2{0, 0};
}

/// The ticks of a direction, as its axis on the picture bears them.
Ticks ticks_of(const Context& c, const BoxView& view, Direction d) {
    TickRequest request;
    request.min = view.range(d).min;
    request.max = view.range(d).max;
    request.decimals = axis_of(c.chart, d).decimals;
    request.length = 250;  // of an axis that points at the viewer
    request.distance = kTickDistance;
    const auto edge = outline_edge(view, d);
    if (edge) {
        const double near = view.camera().depth_factor(edge->from);
        const double far = view.camera().depth_factor(edge->to);
        request.length = length_of(*edge) * std::min(near, far) / std::max(near, far);
        const Point2 along = unit(edge->b.x - edge->a.x, edge->b.y - edge->a.y);
        // Numbers clear each other sideways or above each other.
        request.room = [&c, along](const std::string& text) {
            const TextSize size = c.measure(text, c.chart.number_font);
            const double sideways = (size.width + 8) / std::max(std::abs(along.x), 1e-6);
            const double above = (size.height + 2) / std::max(std::abs(along.y), 1e-6);
            return std::min(sideways, above);
        };
    }
    return make_ticks(request);
}

/// Paints one axis on its edge.
class AxisPainter {
  public:
    AxisPainter(const Context& c, const BoxView& view, const Edge& edge, Pen& pen,
                std::vector<TextBox>& taken)
        : c_(c), view_(view), edge_(edge), pen_(pen), taken_(taken) {
        const Point2 centre = view.project({});
        along_ = unit(edge.b.x - edge.a.x, edge.b.y - edge.a.y);
        const Point2 middle{(edge.a.x + edge.b.x) / 2, (edge.a.y + edge.b.y) / 2};
        normal_ = {along_.y, -along_.x};
        if (normal_.x * (middle.x - centre.x) + normal_.y * (middle.y - centre.y) < 0)
            normal_ = {-normal_.x, -normal_.y};
    }

    void paint() {
        pen_.line(std::array{edge_.a, edge_.b}, {LinePattern::Solid, kInk, 1.2F});
        const Ticks ticks = ticks_of(c_, view_, edge_.d);
        for (const Tick& tick : ticks.major) paint_tick(tick);
        paint_title();
    }

  private:
    Point3 place_of(double value) const {
        Point3 p = edge_.from;
        component(p, edge_.d) = view_.coordinate(edge_.d, value);
        return p;
    }

    /// Direction of a tick on the picture: along the back plane, or square to the axis where that
    /// runs along the axis itself.
    Point2 tick_direction(const Point3& at) const {
        // Numbers beside the upright axis stay clear of those of the axis at its foot.
        if (edge_.d == Direction::Z) return normal_;
        const Point2 p = view_.project(at);
        const Point3& o = edge_.outward;
        const Point2 q = view_.project({at.x + 0.05 * o.x, at.y + 0.05 * o.y, at.z + 0.05 * o.z});
        const Point2 dir = unit(q.x - p.x, q.y - p.y);
        const double square = dir.x * normal_.x + dir.y * normal_.y;
        return square > 0.4 ? dir : normal_;
    }

    static double extent(Point2 dir, TextSize size) {
        return std::abs(dir.x) * size.width + std::abs(dir.y) * size.height;
    }

    void paint_tick(const Tick& tick) {
        const Point3 at = place_of(tick.value);
        const Point2 p = view_.project(at), dir = tick_direction(at);
        const Point2 end{p.x + kTickLength * dir.x, p.y + kTickLength * dir.y};
        pen_.line(std::array{p, end}, {LinePattern::Solid, kInk, 1});
        if (tick.text.empty()) return;
        const TextSize size = c_.measure(tick.text, c_.chart.number_font);
        const double reach = kTickLength + kGap + extent(dir, size) / 2;
        const Point2 centre{p.x + reach * dir.x, p.y + reach * dir.y};
        // Numbers of two axes that meet in a corner keep a distance.
        const TextBox box = box_around(centre, {size.width + kGap, size.height});
        const auto hit = [&](const TextBox& other) { return box.overlaps(other); };
        if (std::any_of(taken_.begin(), taken_.end(), hit)) return;
        taken_.push_back(box);
        pen_.text(centre, tick.text, c_.chart.number_font, kInk);
        // How far numbers reach from the axis, square to it.
        const double out = (centre.x - p.x) * normal_.x + (centre.y - p.y) * normal_.y;
        reach_ = std::max(reach_, out + extent(normal_, size) / 2);
    }

    void paint_title() {
        const std::string& title = axis_of(c_.chart, edge_.d).title;
        if (title.empty()) return;
        const bool upright = std::abs(along_.y) > 0.85;
        TextSize size = c_.measure(title, c_.chart.title_font);
        if (upright) std::swap(size.width, size.height);
        const double out = reach_ + 2 * kGap + extent(normal_, size) / 2;
        const Point2 middle{(edge_.a.x + edge_.b.x) / 2, (edge_.a.y + edge_.b.y) / 2};
        Point2 centre{middle.x + out * normal_.x, middle.y + out * normal_.y};
        centre.x = std::clamp(centre.x, std::min(size.width / 2 + 2, c_.width / 2),
                              std::max(c_.width - size.width / 2 - 2, c_.width / 2));
        centre.y = std::clamp(centre.y, std::min(size.height / 2 + 2, c_.height / 2),
                              std::max(c_.height - size.height / 2 - 2, c_.height / 2));
        taken_.push_back(box_around(centre, size));
        pen_.text(centre, title, c_.chart.title_font, kInk, upright ? 90 : 0);
    }

    const Context& c_;
    const BoxView& view_;
    const Edge& edge_;
    Pen& pen_;
    std::vector<TextBox>& taken_;
    Point2 along_, normal_;
    double reach_ = kTickLength;
};

void paint_plane(const Context& c, const BoxView& view, const Plane& plane, Pen& pen) {
    const auto around = others(plane.normal);
    const Direction p = around[0], q = around[1];
    const auto at = [&](double cp, double cq) {
        Point3 point;
        component(point, plane.normal) = plane.sign * view.limit(plane.normal);
        component(point, p) = cp;
        component(point, q) = cq;
        return view.project(point);
    };
    const double lp = view.limit(p), lq = view.limit(q);
    const std::array corners{at(-lp, -lq), at(lp, -lq), at(lp, lq), at(-lp, lq)};
    pen.fill(corners, c.chart.planes);
    const auto lines = [&](Direction d, auto ends) {
        if (!grid_wanted(axis_of(c.chart, d), plane.normal)) return;
        const Ticks ticks = ticks_of(c, view, d);
        for (const Tick& tick : ticks.major)
            pen.line(ends(view.coordinate(d, tick.value)), c.chart.grid);
    };
    lines(p, [&](double v) { return std::array{at(v, -lq), at(v, lq)}; });
    lines(q, [&](double v) { return std::array{at(-lp, v), at(lp, v)}; });
    const std::array rim{corners[0], corners[1], corners[2], corners[3], corners[0]};
    LineStyle style = c.chart.grid;
    style.pattern = LinePattern::Solid;
    pen.line(rim, style);
}

}  // namespace

void paint_planes(const Context& context, Pen& pen) {
    const BoxView view(context);
    for (const Direction d : kDirections)
        for (const double sign : {-1.0, 1.0})
            if (!view.is_front({d, sign})) paint_plane(context, view, {d, sign}, pen);
}

void paint_axes(const Context& context, Pen& pen) {
    const BoxView view(context);
    std::vector<TextBox> taken;
    for (const Direction d : {Direction::Z, Direction::X, Direction::Y})
        if (const auto edge = outline_edge(view, d))
            AxisPainter(context, view, *edge, pen, taken).paint();
}

}  // namespace quor::chart::scene
