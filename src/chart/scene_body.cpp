#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "chart/palette.h"
#include "chart/scene_parts.h"

namespace quor::chart::scene {

namespace {

constexpr std::uint8_t kTranslucent = 150;    // alpha of a transparent surface
constexpr std::uint8_t kBeforeTheBody = 105;  // alpha of zones through which the body is seen
constexpr double kAmbient = 0.55;             // brightness in full shade
constexpr double kDirect = 0.52;              // added in full light

std::vector<Point2> pixels_of(std::span<const PieceCorner> corners) {
    std::vector<Point2> pixels;
    pixels.reserve(corners.size());
    for (const PieceCorner& c : corners) pixels.push_back(c.pixel);
    return pixels;
}

std::size_t band_of(const std::vector<double>& levels, double z) {
    return static_cast<std::size_t>(std::upper_bound(levels.begin(), levels.end(), z) -
                                    levels.begin());
}

struct ZRange {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();
};

ZRange range_of(std::span<const PieceCorner> corners) {
    ZRange range;
    for (const PieceCorner& c : corners) {
        range.low = std::min(range.low, c.z);
        range.high = std::max(range.high, c.z);
    }
    return range;
}

/// Calls `visit(corners, band)` for the part of a piece in each band of z.
template <class Visit>
void for_each_band(std::span<const PieceCorner> corners, const Layout3D& layout, Visit visit) {
    const auto& levels = layout.levels;
    const ZRange range = range_of(corners);
    const std::size_t first = band_of(levels, range.low), last = band_of(levels, range.high);
    if (first == last) {
        visit(corners, first);
        return;
    }
    constexpr double kFar = std::numeric_limits<double>::max();
    for (std::size_t band = first; band <= last; ++band) {
        const double low = band == 0 ? -kFar : levels[band - 1];
        const double high = band == levels.size() ? kFar : levels[band];
        const auto part = between_levels(corners, low, high, layout.camera);
        if (part.size() >= 3) visit(std::span<const PieceCorner>(part), band);
    }
}

/// Calls `visit(ends)` for every contour line of a piece.
template <class Visit>
void for_each_contour(std::span<const PieceCorner> corners, const Layout3D& layout, Visit visit) {
    const ZRange range = range_of(corners);
    const auto& levels = layout.levels;
    const auto first = std::upper_bound(levels.begin(), levels.end(), range.low);
    for (auto level = first; level != levels.end() && *level <= range.high; ++level)
        if (const auto ends = level_segment(corners, *level)) visit(*ends);
}

class Body {
  public:
    Body(const Context& context, Pen& pen)
        : chart_(context.chart), layout_(context.layout), pen_(pen) {
        mesh_line_ = {LinePattern::Solid, chart_.mesh.colour, chart_.mesh.width};
    }

    void paint(const Piece& piece) {
        if (chart_.style.solid) paint_fill(piece);
        paint_mesh(piece);
        if (chart_.style.contoured) paint_contours(piece);
    }

  private:
    Colour tinted(Colour colour, const Piece& piece) const {
        if (chart_.style.shaded) {
            Point3 n = piece.normal;
            if (!piece.seen_from_top) n = {-n.x, -n.y, -n.z};
            colour = scaled(colour, kAmbient + kDirect * layout_.camera.light(n));
        }
        if (chart_.style.transparent) colour.a = kTranslucent;
        return colour;
    }

    void paint_fill(const Piece& piece) {
        if (!chart_.style.zoned) {
            const Colour side = piece.seen_from_top ? chart_.style.top : chart_.style.bottom;
            pen_.fill(pixels_of(piece.corners), tinted(side, piece), true);
            return;
        }
        for_each_band(piece.corners, layout_, [&](auto corners, std::size_t band) {
            pen_.fill(pixels_of(corners), tinted(band_colour(layout_, band), piece), true);
        });
    }

    bool is_mesh_line(const PieceCorner& corner) const {
        const Mesh3D& mesh = chart_.mesh;
        const SurfaceGrid& grid = chart_.surface;
        const auto drawn = [&](bool wanted, bool halved, int nodes) {
            const bool rim = corner.line == 0 || corner.line == nodes - 1;
            return wanted && (!halved || corner.line % 2 == 0 || rim);
        };
        switch (corner.edge) {
            case EdgeKind::ConstX:
                return drawn(mesh.x, mesh.halved_x, grid.nx);
            case EdgeKind::ConstY:
                return drawn(mesh.y, mesh.halved_y, grid.ny);
            case EdgeKind::Boundary:
                return mesh.x || mesh.y;
            case EdgeKind::Inner:
                return false;
        }
        return false;
    }

    /// The drawn edges of a piece, those that follow each other as one line.
    void paint_mesh(const Piece& piece) {
        const auto corners = piece.corners;
        const std::size_t n = corners.size();
        const auto drawn = [&](std::size_t k) {
            return corners[k % n].edge_drawn && is_mesh_line(corners[k % n]);
        };
        std::size_t start = 0;
        while (start < n && drawn(start)) ++start;  // an edge that is not drawn, if any
        std::vector<Point2> line;
        for (std::size_t step = 0; step < n; ++step) {
            const std::size_t k = start + step;
            if (!drawn(k)) continue;
            if (line.empty()) line.push_back(corners[k % n].pixel);
            line.push_back(corners[(k + 1) % n].pixel);
            if (step + 1 < n && drawn(k + 1)) continue;
            pen_.line(line, mesh_line_, true);
            line.clear();
        }
    }

    void paint_contours(const Piece& piece) {
        for_each_contour(piece.corners, layout_, [&](const std::array<Point3, 2>& ends) {
            const std::array pixels{layout_.camera.project(ends[0]),
                                    layout_.camera.project(ends[1])};
            pen_.line(pixels, chart_.sections.line, true);
        });
    }

    const Chart3D& chart_;
    const Layout3D& layout_;
    Pen& pen_;
    LineStyle mesh_line_;
};

}  // namespace

Colour band_colour(const Layout3D& layout, std::size_t band) {
    const auto count = static_cast<double>(layout.levels.size());
    return scale_colour(count > 0 ? static_cast<double>(band) / count : 0.5);
}

void paint_body(const Context& context, Pen& pen) {
    Body body(context, pen);
    context.surface.for_each_piece([&](const Piece& piece) { body.paint(piece); });
}

void paint_flat(const Context& context, double box_z, const FlatParts& parts, Pen& pen) {
    const auto on_plane = [&](Point3 p) {
        return context.layout.camera.project({p.x, p.y, box_z});
    };
    if (parts.zones) {
        context.surface.for_each_piece([&](const Piece& piece) {
            for_each_band(piece.corners, context.layout, [&](auto corners, std::size_t band) {
                std::vector<Point2> pixels;
                for (const PieceCorner& c : corners) pixels.push_back(on_plane(c.at));
                Colour colour = band_colour(context.layout, band);
                if (parts.translucent) colour.a = kBeforeTheBody;
                pen.fill(pixels, colour, true);
            });
        });
    }
    if (!parts.contours) return;
    context.surface.for_each_piece([&](const Piece& piece) {
        for_each_contour(piece.corners, context.layout, [&](const std::array<Point3, 2>& ends) {
            const std::array pixels{on_plane(ends[0]), on_plane(ends[1])};
            pen.line(pixels, context.chart.sections.line, true);
        });
    });
}

}  // namespace quor::chart::scene
