#include "chart/surface_view.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quor::chart {

namespace {

constexpr double kSlack = 1e-9;  // of box coordinates, for places on the limits

Point3 between(const Point3& a, const Point3& b, double t) {
    return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), a.z + t * (b.z - a.z)};
}

Point3 difference(const Point3& a, const Point3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Point3 cross(const Point3& a, const Point3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Point3 upward_unit(Point3 n) {
    const double length = std::sqrt(Camera::dot(n, n));
    if (!(length > 0)) return {0, 0, 1};
    const double factor = n.z < 0 ? -1 / length : 1 / length;
    return {n.x * factor, n.y * factor, n.z * factor};
}

/// Twice the area of the projected triangle, positive where its upper side is seen (corners run
/// counter-clockwise from above, and pixels have y down).
double signed_area(Point2 a, Point2 b, Point2 c) {
    return -((b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x));
}

/// Cells 0..count-1 of one direction, far ones first, for a viewer at `viewer`; `edge(i)` is the
/// lower edge of cell i.
template <class Edge>
std::vector<int> far_first(int count, double viewer, Edge edge) {
    std::vector<int> order;
    order.reserve(static_cast<std::size_t>(count));
    int below = 0;
    while (below < count && edge(below + 1) <= viewer) ++below;
    for (int i = 0; i < below; ++i) order.push_back(i);
    for (int i = count - 1; i >= below; --i) order.push_back(i);
    return order;
}

std::vector<int> rank_of(const std::vector<int>& order) {
    std::vector<int> rank(order.size());
    for (std::size_t k = 0; k < order.size(); ++k)
        rank[static_cast<std::size_t>(order[k])] = static_cast<int>(k);
    return rank;
}

/// Cuts a convex polygon by `side` >= 0 (Sutherland and Hodgman); cut edges become `cut_kind`.
template <class Side>
void cut(std::vector<PieceCorner>& corners, Side side, EdgeKind cut_kind, const Camera& camera) {
    std::vector<PieceCorner> kept;
    kept.reserve(corners.size() + 2);
    for (std::size_t k = 0; k < corners.size(); ++k) {
        const PieceCorner& from = corners[k];
        const PieceCorner& to = corners[(k + 1) % corners.size()];
        const double a = side(from), b = side(to);
        if (a >= 0) kept.push_back(from);
        if ((a >= 0) == (b >= 0)) continue;
        PieceCorner crossing = from;
        const double t = a / (a - b);
        crossing.at = between(from.at, to.at, t);
        crossing.z = from.z + t * (to.z - from.z);
        crossing.pixel = camera.project(crossing.at);
        if (a >= 0) {
            crossing.edge = cut_kind;
            crossing.edge_drawn = true;
        }
        kept.push_back(crossing);
    }
    corners = std::move(kept);
}

}  // namespace

SurfaceView::SurfaceView(const Chart3D& chart, const Box3D& box, const Camera& camera,
                         std::vector<double> levels)
    : grid_(chart.surface),
      box_(box),
      camera_(camera),
      levels_(std::move(levels)),
      height_(chart.height_ratio) {
    if (!grid_.is_complete()) return;
    fill_nodes();
    const Point2 viewer = camera.viewer_in_plan();
    columns_ = far_first(grid_.nx - 1, viewer.x, [&](int i) { return node(i, 0).at.x; });
    rows_ = far_first(grid_.ny - 1, viewer.y, [&](int j) { return node(0, j).at.y; });
    column_rank_ = rank_of(columns_);
    row_rank_ = rank_of(rows_);
}

void SurfaceView::fill_nodes() {
    nodes_.resize(grid_.z.size());
    for (int i = 0; i < grid_.nx; ++i) {
        for (int j = 0; j < grid_.ny; ++j) {
            Node& n = nodes_[grid_.at(i, j)];
            float z = grid_.z[grid_.at(i, j)];
            if (grid_.is_hole(z) && !grid_.z_behind_holes.empty())
                z = grid_.z_behind_holes[grid_.at(i, j)];
            n.known = !grid_.is_hole(z);
            n.z = n.known ? z : box_.z.min;
            n.at = to_box(grid_.x(i), grid_.y(j), n.z);
            const auto within = [](double value, double limit) {
                return std::abs(value) <= limit + kSlack;
            };
            n.inside = within(n.at.x, 1) && within(n.at.y, 1) && within(n.at.z, height_);
            n.pixel = camera_.project(n.at);
        }
    }
}

Point3 SurfaceView::to_box(double x, double y, double z) const {
    const auto scaled = [](double value, const Range& range) {
        return 2 * (value - range.min) / (range.max - range.min) - 1;
    };
    return {scaled(x, box_.x), scaled(y, box_.y), height_ * scaled(z, box_.z)};
}

bool SurfaceView::is_whole(int i, int j) const {
    if (i < 0 || j < 0 || i >= grid_.nx - 1 || j >= grid_.ny - 1) return false;
    const auto good = [&](int a, int b) { return node(a, b).known && node(a, b).inside; };
    return good(i, j) && good(i + 1, j) && good(i, j + 1) && good(i + 1, j + 1);
}

bool SurfaceView::crosses_level(double low, double high) const {
    const auto it = std::upper_bound(levels_.begin(), levels_.end(), low);
    return it != levels_.end() && *it <= high;
}

bool SurfaceView::draws_edge_to(int i, int j, int neighbour_i, int neighbour_j) const {
    if (!is_whole(neighbour_i, neighbour_j)) return true;
    const auto rank = [](const std::vector<int>& ranks, int k) {
        return ranks[static_cast<std::size_t>(k)];
    };
    if (j != neighbour_j) return rank(row_rank_, j) > rank(row_rank_, neighbour_j);
    return rank(column_rank_, i) > rank(column_rank_, neighbour_i);
}

SurfaceView::Cell SurfaceView::cell(int i, int j) const {
    const auto corner = [&](int a, int b, EdgeKind edge, int line, bool drawn) {
        const Node& n = node(a, b);
        return PieceCorner{n.at, n.z, n.pixel, edge, drawn, line};
    };
    return {corner(i, j, EdgeKind::ConstY, j, draws_edge_to(i, j, i, j - 1)),
            corner(i + 1, j, EdgeKind::ConstX, i + 1, draws_edge_to(i, j, i + 1, j)),
            corner(i + 1, j + 1, EdgeKind::ConstY, j + 1, draws_edge_to(i, j, i, j + 1)),
            corner(i, j + 1, EdgeKind::ConstX, i, draws_edge_to(i, j, i - 1, j))};
}

int SurfaceView::triangles(int i, int j, std::array<std::array<PieceCorner, 3>, 2>& parts) const {
    const Cell corners = cell(i, j);
    const std::array known{node(i, j).known, node(i + 1, j).known, node(i + 1, j + 1).known,
                           node(i, j + 1).known};
    const auto missing = std::count(known.begin(), known.end(), false);
    if (missing > 1) return 0;
    // The triangle of the corners k, k + 1, k + 2; its third edge is inside the cell.
    const auto triangle = [&](std::size_t k, EdgeKind third) {
        std::array<PieceCorner, 3> t{corners[k % 4], corners[(k + 1) % 4], corners[(k + 2) % 4]};
        t[2].edge = third;
        t[2].edge_drawn = true;
        return t;
    };
    if (missing == 1) {
        const auto hole =
            static_cast<std::size_t>(std::find(known.begin(), known.end(), false) - known.begin());
        parts[0] = triangle(hole + 1, EdgeKind::Boundary);
        return 1;
    }
    // The diagonal with the smaller step of z follows the surface better.
    const bool first =
        std::abs(corners[0].z - corners[2].z) <= std::abs(corners[1].z - corners[3].z);
    const std::size_t start = first ? 0 : 1;
    parts[0] = triangle(start, EdgeKind::Inner);
    parts[1] = triangle(start + 2, EdgeKind::Inner);
    // The corner in the middle of each part tells on which side of the diagonal it lies.
    const Point2 viewer = camera_.viewer_in_plan();
    const Point3& a = corners[start].at;
    const Point3& b = corners[start + 2].at;
    const auto side = [&](double x, double y) {
        return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
    };
    const Point3& middle = parts[0][1].at;
    if (side(viewer.x, viewer.y) * side(middle.x, middle.y) > 0) std::swap(parts[0], parts[1]);
    return 2;
}

void SurfaceView::paint_clipped(std::span<const PieceCorner> corners,
                                const PaintPiece& paint) const {
    const Point3 normal = upward_unit(
        cross(difference(corners[1].at, corners[0].at), difference(corners[2].at, corners[0].at)));
    const bool from_top = camera_.sees(corners[0].at, normal);
    const auto inside = [&](const PieceCorner& c) {
        return std::abs(c.at.x) <= 1 + kSlack && std::abs(c.at.y) <= 1 + kSlack &&
               std::abs(c.at.z) <= height_ + kSlack;
    };
    if (std::all_of(corners.begin(), corners.end(), inside)) {
        paint({corners, normal, from_top});
        return;
    }
    std::vector<PieceCorner> rest(corners.begin(), corners.end());
    const double h = height_;
    constexpr EdgeKind kRim = EdgeKind::Boundary;
    cut(
        rest, [](const PieceCorner& c) { return 1 - c.at.x; }, kRim, camera_);
    cut(
        rest, [](const PieceCorner& c) { return 1 + c.at.x; }, kRim, camera_);
    cut(
        rest, [](const PieceCorner& c) { return 1 - c.at.y; }, kRim, camera_);
    cut(
        rest, [](const PieceCorner& c) { return 1 + c.at.y; }, kRim, camera_);
    cut(
        rest, [h](const PieceCorner& c) { return h - c.at.z; }, kRim, camera_);
    cut(
        rest, [h](const PieceCorner& c) { return h + c.at.z; }, kRim, camera_);
    if (rest.size() >= 3) paint({rest, normal, from_top});
}

void SurfaceView::paint_cell(int i, int j, const PaintPiece& paint) const {
    std::array<std::array<PieceCorner, 3>, 2> parts;
    if (is_whole(i, j)) {
        const Cell corners = cell(i, j);
        const auto [low, high] =
            std::minmax({corners[0].z, corners[1].z, corners[2].z, corners[3].z});
        const auto area = [&](std::size_t a, std::size_t b, std::size_t c) {
            return signed_area(corners[a].pixel, corners[b].pixel, corners[c].pixel);
        };
        // A cell that shows the same side everywhere is one polygon; a folded one is two.
        const bool top = area(0, 1, 2) >= 0;
        const bool one_side = (area(2, 3, 0) >= 0) == top && (area(1, 2, 3) >= 0) == top &&
                              (area(3, 0, 1) >= 0) == top;
        if (one_side && !crosses_level(low, high)) {
            const Point3 normal = upward_unit(cross(difference(corners[2].at, corners[0].at),
                                                    difference(corners[3].at, corners[1].at)));
            paint({corners, normal, top});
            return;
        }
    }
    const int count = triangles(i, j, parts);
    for (int k = 0; k < count; ++k) paint_clipped(parts[static_cast<std::size_t>(k)], paint);
}

void SurfaceView::for_each_piece(const PaintPiece& paint) const {
    for (const int j : rows_)
        for (const int i : columns_) paint_cell(i, j, paint);
}

std::optional<PickedPlace> SurfaceView::pick_triangle(
    const std::array<const PieceCorner*, 3>& corners, Point2 pixel) const {
    const double whole = signed_area(corners[0]->pixel, corners[1]->pixel, corners[2]->pixel);
    if (std::abs(whole) < 1e-12) return std::nullopt;
    std::array<double, 3> share{};
    double sum = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        share[k] =
            signed_area(pixel, corners[(k + 1) % 3]->pixel, corners[(k + 2) % 3]->pixel) / whole;
        if (share[k] < -1e-9) return std::nullopt;
        // Shares of the picture become shares of the triangle in space.
        share[k] /= camera_.depth_factor(corners[k]->at);
        sum += share[k];
    }
    Point3 at;
    double z = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        const double s = share[k] / sum;
        const PieceCorner& c = *corners[k];
        at = {at.x + s * c.at.x, at.y + s * c.at.y, at.z + s * c.at.z};
        z += s * c.z;
    }
    const auto value = [](double box, const Range& range) {
        return range.min + (box + 1) / 2 * (range.max - range.min);
    };
    return PickedPlace{value(at.x, box_.x), value(at.y, box_.y), z, camera_.nearness(at)};
}

bool SurfaceView::may_cover(int i, int j, Point2 pixel) const {
    // Corners outside the box may stand behind the viewer; only whole cells have a sure extent.
    if (!is_whole(i, j)) return true;
    const std::array corners{node(i, j).pixel, node(i + 1, j).pixel, node(i, j + 1).pixel,
                             node(i + 1, j + 1).pixel};
    const auto [left, right] =
        std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
    const auto [top, bottom] =
        std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
    return pixel.x >= left && pixel.x <= right && pixel.y >= top && pixel.y <= bottom;
}

std::optional<PickedPlace> SurfaceView::pick(Point2 pixel) const {
    std::optional<PickedPlace> found;
    const auto test = [&](const Piece& piece) {
        const auto& c = piece.corners;
        for (std::size_t k = 2; k < c.size(); ++k)
            if (auto place = pick_triangle({&c[0], &c[k - 1], &c[k]}, pixel)) found = place;
    };
    for (auto row = rows_.rbegin(); row != rows_.rend(); ++row) {
        for (auto column = columns_.rbegin(); column != columns_.rend(); ++column) {
            if (may_cover(*column, *row, pixel)) paint_cell(*column, *row, test);
            if (found) return found;
        }
    }
    return found;
}

std::vector<PieceCorner> between_levels(std::span<const PieceCorner> corners, double low,
                                        double high, const Camera& camera) {
    std::vector<PieceCorner> rest(corners.begin(), corners.end());
    cut(
        rest, [low](const PieceCorner& c) { return c.z - low; }, EdgeKind::Inner, camera);
    cut(
        rest, [high](const PieceCorner& c) { return high - c.z; }, EdgeKind::Inner, camera);
    return rest;
}

std::optional<std::array<Point3, 2>> level_segment(std::span<const PieceCorner> corners,
                                                   double level) {
    std::array<Point3, 2> ends;
    std::size_t found = 0;
    for (std::size_t k = 0; k < corners.size() && found < 2; ++k) {
        const PieceCorner& from = corners[k];
        const PieceCorner& to = corners[(k + 1) % corners.size()];
        // A corner on the level counts as above it, so that each crossing is found once.
        if ((from.z >= level) == (to.z >= level)) continue;
        ends[found++] = between(from.at, to.at, (level - from.z) / (to.z - from.z));
    }
    if (found < 2) return std::nullopt;
    return ends;
}

}  // namespace quor::chart
