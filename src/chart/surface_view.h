#pragma once

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "chart/camera.h"
#include "chart/chart3d.h"

namespace quor::chart {

/// Where an edge of a piece comes from.
enum class EdgeKind : std::uint8_t {
    ConstX,   ///< a line of the grid with constant x
    ConstY,   ///< a line of the grid with constant y
    Inner,    ///< the diagonal inside a cell
    Boundary  ///< the rim of a hole, or where a limit of an axis cuts the surface
};

/// A corner of a piece of the surface: its place in the box, its z in data units, its pixel. The
/// edge from this corner to the next is of kind `edge`; `edge_drawn` is false where the neighbour
/// draws it.
struct PieceCorner {
    Point3 at;
    double z = 0;
    Point2 pixel;
    EdgeKind edge = EdgeKind::Boundary;
    bool edge_drawn = true;
    int line = 0;  ///< number of the grid line for `ConstX` and `ConstY`
};

/// A piece of the surface: a whole cell, or a flat convex part of one.
struct Piece {
    std::span<const PieceCorner> corners;
    Point3 normal;       ///< of length 1, upwards
    bool seen_from_top;  ///< which side the viewer sees
};

using PaintPiece = std::function<void(const Piece&)>;

/// A place of the surface under a pixel, in data units.
struct PickedPlace {
    double x, y, z;
    double nearness;  ///< of `Camera::nearness`
};

/// The surface of a chart, projected. Walks over its cells from the farthest to the nearest: for a
/// regular grid the order of the cells on the x-y plane is exact, as a cell hides only cells that
/// lie behind it on that plane.
class SurfaceView {
  public:
    /// A cell that one of the `levels` of z (ascending, data units) crosses comes as flat pieces.
    /// Chart and camera outlive this object.
    SurfaceView(const Chart3D& chart, const Box3D& box, const Camera& camera,
                std::vector<double> levels);

    /// Calls `paint` for every piece, far ones first. Nothing for an incomplete grid.
    void for_each_piece(const PaintPiece& paint) const;

    /// The nearest place of the surface at a pixel.
    std::optional<PickedPlace> pick(Point2 pixel) const;

    /// A place in data units as a place in the box.
    Point3 to_box(double x, double y, double z) const;
    /// Half the height of the box.
    double height() const { return height_; }

  private:
    struct Node {
        Point3 at;
        double z = 0;
        Point2 pixel;
        bool known = false;   ///< the surface has a value here
        bool inside = false;  ///< within the limits of the axes
    };
    using Cell = std::array<PieceCorner, 4>;

    void fill_nodes();
    const Node& node(int i, int j) const { return nodes_[grid_.at(i, j)]; }
    bool is_whole(int i, int j) const;
    bool crosses_level(double low, double high) const;
    bool draws_edge_to(int i, int j, int neighbour_i, int neighbour_j) const;
    Cell cell(int i, int j) const;
    /// The triangles of a cell, that on the viewer's side last; one or none beside a hole.
    int triangles(int i, int j, std::array<std::array<PieceCorner, 3>, 2>& parts) const;
    void paint_cell(int i, int j, const PaintPiece& paint) const;
    void paint_clipped(std::span<const PieceCorner> corners, const PaintPiece& paint) const;
    std::optional<PickedPlace> pick_triangle(const std::array<const PieceCorner*, 3>& corners,
                                             Point2 pixel) const;
    bool may_cover(int i, int j, Point2 pixel) const;

    const SurfaceGrid& grid_;
    Box3D box_;
    const Camera& camera_;
    std::vector<double> levels_;
    double height_;
    std::vector<Node> nodes_;
    std::vector<int> columns_, rows_;          ///< cells of each direction, far ones first
    std::vector<int> column_rank_, row_rank_;  ///< place of each in that order
};

/// A flat convex polygon cut down to the part between two levels of z; empty where it lies outside.
/// New edges along a cut are `Inner`.
std::vector<PieceCorner> between_levels(std::span<const PieceCorner> corners, double low,
                                        double high, const Camera& camera);

/// The segment in which a flat convex polygon has this z, if any.
std::optional<std::array<Point3, 2>> level_segment(std::span<const PieceCorner> corners,
                                                   double level);

}  // namespace quor::chart
