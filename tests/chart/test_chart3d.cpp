#include "chart/chart3d.h"

#include <algorithm>
#include <limits>
#include <random>

#include "chart/chart_samples.h"
#include "chart/scene3d.h"
#include "chart/surface_view.h"

using namespace quor;

namespace {

using chart::Camera;
using chart::Chart3D;
using chart::EdgeKind;
using chart::Piece;
using chart::PieceCorner;
using chart::Point2;
using chart::Point3;
using chart::SurfaceView;

Chart3D bumpy(int nx = 13, int ny = 11) {
    return samples::surfaceOf(samples::bumps, samples::twoHoles, nx, ny);
}

double area(Point2 a, Point2 b, Point2 c) {
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// Nearness of the piece at a pixel; nothing where the piece does not cover it. The triangles of a
/// fan are tested one by one, with depths divided for perspective.
std::optional<double> nearnessAt(const std::vector<PieceCorner>& piece, Point2 pixel,
                                 const Camera& camera) {
    std::optional<double> nearest;
    for (std::size_t k = 2; k < piece.size(); ++k) {
        const std::array<const PieceCorner*, 3> t{&piece[0], &piece[k - 1], &piece[k]};
        const double whole = area(t[0]->pixel, t[1]->pixel, t[2]->pixel);
        if (std::abs(whole) < 1e-9) continue;
        double sum = 0, depth = 0;
        bool inside = true;
        for (std::size_t i = 0; i < 3; ++i) {
            const double share = area(pixel, t[(i + 1) % 3]->pixel, t[(i + 2) % 3]->pixel) / whole;
            inside = inside && share >= 0;
            const double weight = share / camera.depth_factor(t[i]->at);
            sum += weight;
            depth += weight * camera.nearness(t[i]->at);
        }
        if (inside) nearest = std::max(nearest.value_or(-1e9), depth / sum);
    }
    return nearest;
}

TEST(Chart3D, TheGridKnowsItsNodes) {
    chart::SurfaceGrid grid;
    EXPECT_FALSE(grid.is_complete());
    grid.resize(3, 4);
    EXPECT_TRUE(grid.is_complete());
    EXPECT_EQ(grid.z.size(), 12U);
    EXPECT_TRUE(grid.is_hole(grid.z[5]));
    EXPECT_EQ(grid.at(2, 1), 9U);
    grid.dx = 0;
    EXPECT_FALSE(grid.is_complete());
    grid.resize(5000, -3);
    EXPECT_EQ(grid.nx, chart::SurfaceGrid::kMaxNodes);
    EXPECT_EQ(grid.ny, 0);
}

TEST(Chart3D, ValuesBetweenNodesAreBilinear) {
    const auto f = [](double x, double y) { return 2 + 3 * x - y + 0.5 * x * y; };
    const Chart3D c = samples::surfaceOf(f, samples::noHole, 9, 9);
    for (const double x : {-1.0, -0.3, 0.77, 1.0})
        for (const double y : {-1.0, 0.11, 0.9})
            EXPECT_NEAR(chart::value_at(c.surface, x, y).value(), f(x, y), 1e-5);
    EXPECT_FALSE(chart::value_at(c.surface, 1.2, 0));
    EXPECT_FALSE(chart::value_at(bumpy().surface, 0.4, -0.3));
    EXPECT_FALSE(chart::value_at(chart::SurfaceGrid(), 0, 0));
}

TEST(Chart3D, TheBoxFollowsTheData) {
    Chart3D c = bumpy();
    const chart::Box3D box = shown_box(c);
    EXPECT_EQ(box.x, (chart::Range{-1, 1}));
    for (const float z : c.surface.z)
        if (!c.surface.is_hole(z)) {
            EXPECT_GE(z, box.z.min);
            EXPECT_LE(z, box.z.max);
        }
    c.z.automatic = false;
    c.z.min = -2;
    c.z.max = 5;
    EXPECT_EQ(shown_box(c).z, (chart::Range{-2, 5}));
    c.z.max = -7;
    EXPECT_LT(shown_box(c).z.min, shown_box(c).z.max);
    EXPECT_EQ(shown_box(Chart3D()).z, (chart::Range{0, 1}));
}

TEST(Chart3D, SectionsDivideTheHeightEqually) {
    Chart3D c = bumpy();
    c.z.automatic = false;
    c.z.min = 10;
    c.z.max = 20;
    c.sections.number = 4;
    EXPECT_EQ(section_levels(c), (std::vector<double>{12, 14, 16, 18}));
    c.sections.number = -5;
    EXPECT_EQ(section_levels(c).size(), 1U);
}

TEST(Chart3D, TurningStaysWithinItsBounds) {
    chart::View3D view;
    turn(view, 500, 500);
    EXPECT_DOUBLE_EQ(view.elevation, 90);
    EXPECT_GE(view.rotation, -180);
    EXPECT_LE(view.rotation, 180);
    turn(view, std::numeric_limits<double>::quiet_NaN(), -1000);
    EXPECT_DOUBLE_EQ(view.elevation, -90);
    view.zoom = std::numeric_limits<double>::infinity();
    EXPECT_DOUBLE_EQ(sanitised(view).zoom, 1);
}

TEST(ChartCamera, PresetsLookAlongTheAxes) {
    chart::View3D view;
    view.perspective = false;
    const auto seen = [&](chart::PresetView preset, Point3 p) {
        set_preset(view, preset);
        return Camera(view, 100, {0, 0}).project(p);
    };
    const auto near = [](Point2 p, double x, double y) {
        EXPECT_NEAR(p.x, x, 1e-9);
        EXPECT_NEAR(p.y, y, 1e-9);
    };
    near(seen(chart::PresetView::AlongX, {1, 0, 0}), 0, 0);
    near(seen(chart::PresetView::AlongX, {0, 1, 0}), 100, 0);
    near(seen(chart::PresetView::AlongX, {0, 0, 1}), 0, -100);
    near(seen(chart::PresetView::AlongY, {0, 1, 0}), 0, 0);
    near(seen(chart::PresetView::AlongY, {1, 0, 0}), 100, 0);
    near(seen(chart::PresetView::AlongZ, {0, 0, 1}), 0, 0);
    near(seen(chart::PresetView::AlongZ, {1, 0, 0}), 100, 0);
    near(seen(chart::PresetView::AlongZ, {0, 1, 0}), 0, -100);
}

TEST(ChartCamera, PerspectiveEnlargesWhatIsNear) {
    chart::View3D view;
    set_preset(view, chart::PresetView::AlongY);
    const Camera camera(view, 100, {0, 0});
    const double nearSide = camera.project({1, -1, 0}).x, farSide = camera.project({1, 1, 0}).x;
    EXPECT_GT(nearSide, 100);
    EXPECT_LT(farSide, 100);
    EXPECT_GT(camera.nearness({0, -1, 0}), camera.nearness({0, 1, 0}));
    EXPECT_TRUE(camera.sees({0, -1, 0}, {0, -1, 0}));
    EXPECT_FALSE(camera.sees({0, 1, 0}, {0, 1, 0}));
}

TEST(ChartSurface, WhatIsPaintedLastIsNearestFromEverySide) {
    std::mt19937 random(2024);
    std::uniform_real_distribution<double> place(-260, 260);
    const Chart3D c = bumpy();
    int tested = 0, stacked = 0;
    for (const bool perspective : {false, true}) {
        for (const double elevation : {-90.0, -50.0, -8.0, 0.0, 12.0, 35.0, 70.0, 88.0, 90.0}) {
            for (double rotation = -180; rotation < 180; rotation += 24) {
                chart::View3D view{elevation, rotation, perspective, 1};
                const Camera camera(view, 180, {0, 0});
                const SurfaceView surface(c, shown_box(c), camera, {});
                std::vector<std::vector<PieceCorner>> pieces;
                surface.for_each_piece([&](const Piece& piece) {
                    pieces.emplace_back(piece.corners.begin(), piece.corners.end());
                });
                for (int k = 0; k < 500; ++k) {
                    const Point2 pixel{place(random), place(random)};
                    std::optional<double> last;
                    double nearest = -1e9;
                    int count = 0;
                    for (const auto& piece : pieces) {
                        const auto here = nearnessAt(piece, pixel, camera);
                        if (!here) continue;
                        last = here;
                        nearest = std::max(nearest, *here);
                        ++count;
                    }
                    if (!last) continue;
                    ++tested;
                    if (count > 1) ++stacked;
                    EXPECT_NEAR(*last, nearest, 0.02)
                        << "elevation " << elevation << ", rotation " << rotation;
                }
            }
        }
    }
    EXPECT_GT(tested, 10000);
    EXPECT_GT(stacked, 2000) << "views in which the surface hides parts of itself";
}

TEST(ChartSurface, EveryEdgeOfTheGridIsDrawnOnce) {
    const int nx = 9, ny = 6;
    const Chart3D c = samples::surfaceOf(samples::bumps, samples::noHole, nx, ny);
    for (const double rotation : {-135.0, -60.0, 20.0, 100.0}) {
        chart::View3D view{30, rotation, true, 1};
        const Camera camera(view, 100, {0, 0});
        const SurfaceView surface(c, shown_box(c), camera, {});
        int constX = 0, constY = 0;
        surface.for_each_piece([&](const Piece& piece) {
            for (const PieceCorner& corner : piece.corners) {
                if (!corner.edge_drawn) continue;
                if (corner.edge == EdgeKind::ConstX) ++constX;
                if (corner.edge == EdgeKind::ConstY) ++constY;
            }
        });
        EXPECT_EQ(constX, nx * (ny - 1));
        EXPECT_EQ(constY, ny * (nx - 1));
    }
}

/// Area of a piece seen from above, in box units.
double planArea(std::span<const PieceCorner> corners) {
    double twice = 0;
    for (std::size_t k = 0; k < corners.size(); ++k) {
        const Point3 &a = corners[k].at, &b = corners[(k + 1) % corners.size()].at;
        twice += a.x * b.y - b.x * a.y;
    }
    return std::abs(twice) / 2;
}

double planArea(const SurfaceView& surface) {
    double sum = 0;
    surface.for_each_piece([&](const Piece& piece) { sum += planArea(piece.corners); });
    return sum;
}

TEST(ChartSurface, CellsBesideAHoleKeepATriangle) {
    const auto middle = [](double x, double y) { return std::hypot(x, y) < 0.1; };
    const Chart3D c = samples::surfaceOf(samples::bumps, middle, 5, 5);
    const Camera camera(chart::View3D(), 100, {0, 0});
    // One node of 25 is missing: each of the four cells around it keeps half of its 0.25.
    EXPECT_NEAR(planArea(SurfaceView(c, shown_box(c), camera, {})), 4 - 4 * 0.125, 1e-9);
}

TEST(ChartSurface, ASurfaceBehindHolesIsCutExactlyAtTheLimit) {
    const auto plane = [](double x, double) { return x; };
    const auto above = [](double x, double) { return x > 0.3; };
    Chart3D c = samples::surfaceOf(plane, above, 6, 6);  // nodes every 0.4, the last below 0.2
    c.z.automatic = false;
    c.z.min = -1;
    c.z.max = 0.3;
    const Camera camera(chart::View3D(), 100, {0, 0});
    EXPECT_NEAR(planArea(SurfaceView(c, shown_box(c), camera, {})), 1.2 * 2, 1e-5);
    c.surface.z_behind_holes.assign(c.surface.z.size(), c.surface.hole);
    for (int i = 0; i < 6; ++i)
        for (int j = 0; j < 6; ++j)
            c.surface.z_behind_holes[c.surface.at(i, j)] = static_cast<float>(c.surface.x(i));
    const SurfaceView cut(c, shown_box(c), camera, {});
    EXPECT_NEAR(planArea(cut), 1.3 * 2, 1e-5);
    cut.for_each_piece([&](const Piece& piece) {
        for (const PieceCorner& corner : piece.corners) EXPECT_LE(corner.z, 0.3 + 1e-6);
    });
}

TEST(ChartSurface, ASteepEdgeFarBeyondTheLimitDoesNoHarm) {
    Chart3D c = samples::surfaceOf([](double x, double) { return x < 0 ? 1e30 : x; },
                                   samples::noHole, 9, 9);
    for (float& z : c.surface.z)
        if (z > 1) z = 1e25F;
    c.z.automatic = false;
    c.z.max = 1;
    const Camera camera(chart::View3D(), 100, {450, 350});
    const SurfaceView surface(c, shown_box(c), camera, {});
    surface.for_each_piece([&](const Piece& piece) {
        for (const PieceCorner& corner : piece.corners) {
            EXPECT_TRUE(std::isfinite(corner.pixel.x) && std::isfinite(corner.pixel.y));
            EXPECT_LE(std::abs(corner.at.z), surface.height() + 1e-6);
        }
    });
}

TEST(ChartSurface, LimitsOfXAndYCutTheSurface) {
    Chart3D c = samples::surfaceOf(samples::bumps, samples::noHole, 21, 21);
    c.x.automatic = c.y.automatic = false;
    c.x.min = -0.45;
    c.x.max = 0.77;
    c.y.min = -2;
    c.y.max = 2;
    const Camera camera(chart::View3D(), 100, {0, 0});
    // The whole width of the box is covered, and half of its depth.
    EXPECT_NEAR(planArea(SurfaceView(c, shown_box(c), camera, {})), 2.0 * 1.0, 1e-6);
}

TEST(ChartSurface, BandsOfZTogetherAreTheWholeSurface) {
    const Chart3D c = bumpy(21, 21);
    const Camera camera(chart::View3D(), 100, {0, 0});
    const std::vector<double> levels{-1, -0.5, 0, 0.5, 1};
    const SurfaceView surface(c, shown_box(c), camera, levels);
    double bands = 0, whole = 0;
    surface.for_each_piece([&](const Piece& piece) {
        whole += planArea(piece.corners);
        double low = -1e9;
        for (std::size_t k = 0; k <= levels.size(); ++k) {
            const double high = k < levels.size() ? levels[k] : 1e9;
            const auto part = between_levels(piece.corners, low, high, camera);
            for (const PieceCorner& corner : part) {
                EXPECT_GE(corner.z, low - 1e-9);
                EXPECT_LE(corner.z, high + 1e-9);
            }
            if (part.size() >= 3) bands += planArea(part);
            low = high;
        }
    });
    EXPECT_NEAR(bands, whole, 1e-6);
}

TEST(ChartSurface, ContourLinesOfAPlaneAreStraightAndWhole) {
    const Chart3D c = samples::surfaceOf([](double x, double) { return x; }, samples::noHole, 8, 8);
    const Camera camera(chart::View3D(), 100, {0, 0});
    const double level = 0.31;
    const SurfaceView surface(c, shown_box(c), camera, {level});
    double length = 0;
    surface.for_each_piece([&](const Piece& piece) {
        const auto line = level_segment(piece.corners, level);
        if (!line) return;
        for (const Point3& p : *line) EXPECT_NEAR(p.x, level, 1e-6);
        length += std::abs((*line)[1].y - (*line)[0].y);
    });
    EXPECT_NEAR(length, 2, 1e-6);
}

TEST(ChartSurface, AContourThroughNodesIsFoundOnce) {
    const Chart3D c = samples::surfaceOf([](double x, double) { return x; }, samples::noHole, 9, 9);
    const Camera camera(chart::View3D(), 100, {0, 0});
    const SurfaceView surface(c, shown_box(c), camera, {0});  // 0 is a line of nodes
    double length = 0;
    surface.for_each_piece([&](const Piece& piece) {
        if (const auto line = level_segment(piece.corners, 0))
            length += std::abs((*line)[1].y - (*line)[0].y);
    });
    EXPECT_NEAR(length, 2, 1e-6);
}

TEST(ChartSurface, ThePickedPlaceLiesUnderThePixel) {
    std::mt19937 random(17);
    std::uniform_real_distribution<double> x(100, 800), y(80, 620);
    for (const bool perspective : {false, true}) {
        Chart3D c = bumpy(41, 41);
        c.view.perspective = perspective;
        const auto measure = samples::plainMeasure();
        const chart::Layout3D layout = make_layout(c, 900, 700, measure);
        const SurfaceView surface(c, layout.box, layout.camera, {});
        int found = 0;
        for (int k = 0; k < 400; ++k) {
            const Point2 pixel{x(random), y(random)};
            const auto place = pick_surface(c, 900, 700, measure, pixel);
            if (!place) continue;
            ++found;
            const Point2 back = layout.camera.project(surface.to_box(place->x, place->y, place->z));
            EXPECT_NEAR(back.x, pixel.x, 1e-6);
            EXPECT_NEAR(back.y, pixel.y, 1e-6);
            // Triangles and the bilinear cell differ by their curvature only.
            const auto z = chart::value_at(c.surface, place->x, place->y);
            if (z) {
                EXPECT_NEAR(place->z, *z, 0.02);
            }
        }
        EXPECT_GT(found, 100);
    }
}

TEST(ChartSurface, NothingIsPickedInAHoleOrBesideTheBody) {
    Chart3D c = bumpy(41, 41);
    set_preset(c.view, chart::PresetView::AlongZ);
    const auto measure = samples::plainMeasure();
    const chart::Layout3D layout = make_layout(c, 900, 700, measure);
    const SurfaceView surface(c, layout.box, layout.camera, {});
    const Point2 hole = layout.camera.project(surface.to_box(0.4, -0.3, 0));
    EXPECT_FALSE(pick_surface(c, 900, 700, measure, hole));
    EXPECT_FALSE(pick_surface(c, 900, 700, measure, {2, 2}));
    const Point2 solid = layout.camera.project(surface.to_box(-0.5, -0.5, 0));
    EXPECT_TRUE(pick_surface(c, 900, 700, measure, solid));
}

TEST(ChartSurface, TheFlatMapReadsTheSameValues) {
    Chart3D c = bumpy(41, 41);
    c.style.projection_2d = true;
    const auto measure = samples::plainMeasure();
    const chart::Layout3D layout = make_layout(c, 900, 700, measure);
    const Point2 pixel = layout.camera.project({-0.5, -0.25, 0});
    const auto place = pick_surface(c, 900, 700, measure, pixel);
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->x, -0.5, 1e-9);
    EXPECT_NEAR(place->y, -0.25, 1e-9);
    EXPECT_NEAR(place->z, chart::value_at(c.surface, -0.5, -0.25).value(), 1e-9);
}

}  // namespace
