#include <QImage>
#include <QPainter>
#include <array>
#include <limits>
#include <numbers>

#include "chart/chart_samples.h"
#include "chart/scene3d.h"
#include "gui/chart/chart3d_paint.h"
#include "gui/chart/chart_qt.h"

using namespace quor;

// Pictures of surfaces against a depth buffer, which finds what is seen without any order of
// painting.

namespace {

using chart::Chart3D;
using chart::Point2;
using chart::Point3;

constexpr int kWidth = 700, kHeight = 560;
constexpr chart::Colour kUpper = chart::rgb(0x0000FF), kLower = chart::rgb(0xFF0000);

enum class Seen : char { Nothing, Upper, Lower };

/// What is seen at every pixel.
class DepthBuffer {
  public:
    explicit DepthBuffer(const Chart3D& c)
        : chart_(c),
          layout_(make_layout(c, kWidth, kHeight, chart::qtTextMeasure())),
          seen_(kWidth * kHeight, Seen::Nothing),
          depth_(kWidth * kHeight, -std::numeric_limits<double>::infinity()) {
        const chart::SurfaceGrid& g = c.surface;
        for (int i = 0; i + 1 < g.nx; ++i)
            for (int j = 0; j + 1 < g.ny; ++j) cell(i, j);
    }

    /// What is seen round a pixel, if it is the same everywhere.
    std::optional<Seen> around(int x, int y) const {
        constexpr int kReach = 3;
        const Seen here = at(x, y);
        for (int dy = -kReach; dy <= kReach; ++dy)
            for (int dx = -kReach; dx <= kReach; ++dx)
                if (at(x + dx, y + dy) != here) return std::nullopt;
        return here;
    }

  private:
    struct Corner {
        Point3 place;
        Point2 pixel;
        double share;  ///< linear on the picture, and larger for what is nearer
    };
    using Triangle = std::array<Corner, 3>;

    static std::size_t index(int x, int y) { return static_cast<std::size_t>(y * kWidth + x); }
    Seen at(int x, int y) const {
        const bool on = x >= 0 && y >= 0 && x < kWidth && y < kHeight;
        return on ? seen_[index(x, y)] : Seen::Nothing;
    }

    std::optional<Corner> corner(int i, int j) const {
        const chart::SurfaceGrid& g = chart_.surface;
        float z = g.z[g.at(i, j)];
        if (g.is_hole(z) && !g.z_behind_holes.empty()) z = g.z_behind_holes[g.at(i, j)];
        if (g.is_hole(z)) return std::nullopt;
        const auto scaled = [](double v, const chart::Range& r) {
            return 2 * (v - r.min) / (r.max - r.min) - 1;
        };
        const Point3 p{scaled(g.x(i), layout_.box.x), scaled(g.y(j), layout_.box.y),
                       chart_.height_ratio * scaled(static_cast<double>(z), layout_.box.z)};
        return Corner{p, layout_.camera.project(p), 1 / layout_.camera.depth_factor(p)};
    }

    void cell(int i, int j) {
        const std::array<std::optional<Corner>, 4> c{corner(i, j), corner(i + 1, j),
                                                     corner(i + 1, j + 1), corner(i, j + 1)};
        std::vector<Corner> known;
        for (const auto& one : c)
            if (one) known.push_back(*one);
        if (known.size() == 3) triangle({known[0], known[1], known[2]});
        if (known.size() < 4) return;
        const bool first =
            std::abs(c[0]->place.z - c[2]->place.z) <= std::abs(c[1]->place.z - c[3]->place.z);
        const std::size_t k = first ? 0 : 1;
        triangle({known[k], known[k + 1], known[(k + 2) % 4]});
        triangle({known[(k + 2) % 4], known[(k + 3) % 4], known[k]});
    }

    static double area(Point2 a, Point2 b, Point2 c) {
        return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
    }

    void triangle(const Triangle& t) {
        const double whole = area(t[0].pixel, t[1].pixel, t[2].pixel);
        if (std::abs(whole) < 1e-9) return;
        const auto [left, right] = std::minmax({t[0].pixel.x, t[1].pixel.x, t[2].pixel.x});
        const auto [top, bottom] = std::minmax({t[0].pixel.y, t[1].pixel.y, t[2].pixel.y});
        const auto clamped = [](double v, int most) {
            return static_cast<int>(std::clamp(v, 0.0, static_cast<double>(most - 1)));
        };
        for (int y = clamped(top - 1, kHeight); y <= clamped(bottom + 1, kHeight); ++y)
            for (int x = clamped(left - 1, kWidth); x <= clamped(right + 1, kWidth); ++x)
                sample(t, whole, x, y);
    }

    void sample(const Triangle& t, double whole, int x, int y) {
        const Point2 p{x + 0.5, y + 0.5};
        const std::array<double, 3> part{area(p, t[1].pixel, t[2].pixel) / whole,
                                         area(p, t[2].pixel, t[0].pixel) / whole,
                                         area(p, t[0].pixel, t[1].pixel) / whole};
        if (*std::min_element(part.begin(), part.end()) < 0) return;
        double share = 0, z = 0, depth = 0;
        for (std::size_t k = 0; k < 3; ++k) {
            share += part[k] * t[k].share;
            z += part[k] * t[k].share * t[k].place.z;
            depth += part[k] * t[k].share * layout_.camera.nearness(t[k].place);
        }
        if (std::abs(z / share) > chart_.height_ratio) return;
        if (depth / share <= depth_[index(x, y)]) return;
        depth_[index(x, y)] = depth / share;
        // Corners run counter-clockwise seen from above, and pixels have y down.
        seen_[index(x, y)] = whole < 0 ? Seen::Upper : Seen::Lower;
    }

    const Chart3D& chart_;
    chart::Layout3D layout_;
    std::vector<Seen> seen_;
    std::vector<double> depth_;
};

/// Two colours for the two sides, nothing else on the body.
Chart3D plain(Chart3D c) {
    c.style.shaded = false;
    c.style.top = kUpper;
    c.style.bottom = kLower;
    c.mesh.x = c.mesh.y = false;
    c.view.zoom = 1;
    return c;
}

/// Smoothed edges of cells may let a trace of what is behind through.
Seen seenIn(QRgb pixel) {
    constexpr int kTrace = 24;
    const auto near = [&](int r, int g, int b) {
        return std::abs(qRed(pixel) - r) + std::abs(qGreen(pixel) - g) +
                   std::abs(qBlue(pixel) - b) <=
               2 * kTrace;
    };
    if (near(0, 0, 255)) return Seen::Upper;
    return near(255, 0, 0) ? Seen::Lower : Seen::Nothing;
}

/// Compares pictures from all sides. A pixel counts whose surroundings show the same everywhere.
void compare(const Chart3D& chart, const char* what) {
    int upper = 0, lower = 0, nothing = 0;
    for (const bool perspective : {true, false})
        for (const double elevation : {-70.0, -20.0, 8.0, 35.0, 80.0})
            for (double rotation = -165; rotation < 180; rotation += 55) {
                Chart3D c = plain(chart);
                c.view = {elevation, rotation, perspective, 1};
                QImage picture(kWidth, kHeight, QImage::Format_RGB32);
                QPainter painter(&picture);
                paintChart3D(painter, picture.rect(), c);
                painter.end();
                const DepthBuffer truth(c);
                int wrong = 0, compared = 0;
                for (int y = 0; y < kHeight; y += 2)
                    for (int x = 0; x < kWidth; x += 2) {
                        const auto expected = truth.around(x, y);
                        if (!expected) continue;
                        ++compared;
                        upper += *expected == Seen::Upper;
                        lower += *expected == Seen::Lower;
                        nothing += *expected == Seen::Nothing;
                        wrong += seenIn(picture.pixel(x, y)) != *expected;
                    }
                EXPECT_LE(wrong, compared / 2000)
                    << what << " at elevation " << elevation << ", rotation " << rotation;
            }
    EXPECT_GT(upper, 10000) << what;
    EXPECT_GT(lower, 10000) << what;
    EXPECT_GT(nothing, 10000) << what;
}

TEST(SurfacePicture, WhatIsSeenIsWhatADepthBufferFinds) {
    compare(samples::surfaceOf(samples::bumps, samples::noHole, 61, 61), "bumps");
}

TEST(SurfacePicture, WhatIsSeenThroughHolesIsWhatADepthBufferFinds) {
    compare(samples::surfaceOf(samples::bumps, samples::twoHoles, 61, 61), "bumps with holes");
}

/// A surface that rises beyond the box: what is above the limit stands behind holes.
Chart3D cutAtTheTop() {
    Chart3D c =
        samples::surfaceOf([](double x, double y) { return 1 / (0.15 + x * x + 0.4 * y * y); },
                           samples::noHole, 61, 61);
    constexpr float kLimit = 3;
    c.z = {.min = 0, .max = static_cast<double>(kLimit), .title = "p / kPa"};
    chart::SurfaceGrid& g = c.surface;
    g.z_behind_holes.assign(g.z.size(), g.hole);
    for (std::size_t k = 0; k < g.z.size(); ++k)
        if (g.z[k] > kLimit) std::swap(g.z[k], g.z_behind_holes[k]);
    return c;
}

TEST(SurfacePicture, ASurfaceCutAtALimitIsSeenAsADepthBufferFindsIt) {
    compare(cutAtTheTop(), "cut at the limit");
}

TEST(SurfacePicture, TheEdgeAtALimitIsCleanInTheMap) {
    Chart3D c = plain(cutAtTheTop());
    c.style.projection_2d = true;
    c.scale_shown = false;
    QImage picture(kWidth, kHeight, QImage::Format_RGB32);
    QPainter painter(&picture);
    paintChart3D(painter, picture.rect(), c);
    painter.end();
    const chart::Layout3D layout = make_layout(c, kWidth, kHeight, chart::qtTextMeasure());
    // The contour z = 3 is the ellipse x^2 + 0.4 y^2 = 1/3 - 0.15: inside it is the ground,
    // outside the surface. Chords of the cells stay within a hundredth of it.
    const double radius = std::sqrt(1.0 / 3 - 0.15);
    int inside = 0, outside = 0;
    for (double angle = 0; angle < 360; angle += 3) {
        const double a = angle * std::numbers::pi / 180;
        const auto colourAt = [&](double factor) {
            const Point2 p = layout.camera.project(
                {factor * radius * std::cos(a), factor * radius / std::sqrt(0.4) * std::sin(a), 0});
            return picture.pixelColor(static_cast<int>(p.x), static_cast<int>(p.y));
        };
        if (std::abs(std::sin(a) * radius / std::sqrt(0.4)) > 0.9) continue;
        const auto isGround = [&](const QColor& colour) {
            return colour.lightness() >= chart::toQt(c.grid.colour).lightness() &&
                   colour.saturation() < 30;
        };
        inside += isGround(colourAt(0.96)) ? 1 : -1000;
        outside += isGround(colourAt(1.03)) ? -1000 : 1;
    }
    EXPECT_GT(inside, 80);
    EXPECT_GT(outside, 80);
}

}  // namespace
