#include <algorithm>

#include "chart/chart_samples.h"
#include "chart/palette.h"
#include "chart/scene3d.h"

using namespace quor;

namespace {

using chart::Chart3D;
using chart::Point2;
using chart::Scene3D;
using chart::SceneShape;
using chart::SceneText;

constexpr double kWidth = 900, kHeight = 700;

Chart3D bumpy(int n = 21) {
    Chart3D c = samples::surfaceOf(samples::bumps, samples::twoHoles, n, n);
    c.header.text.clear();
    return c;
}

Scene3D sceneOf(const Chart3D& c) {
    return build_scene(c, kWidth, kHeight, samples::plainMeasure());
}

/// The outline of the projected box, counter-clockwise.
std::vector<Point2> hullOf(const Chart3D& c) {
    const chart::Layout3D layout = make_layout(c, kWidth, kHeight, samples::plainMeasure());
    std::vector<Point2> corners;
    for (const double x : {-1.0, 1.0})
        for (const double y : {-1.0, 1.0})
            for (const double z : {-c.height_ratio, c.height_ratio})
                corners.push_back(layout.camera.project({x, y, z}));
    std::sort(corners.begin(), corners.end(),
              [](Point2 a, Point2 b) { return a.x < b.x || (a.x == b.x && a.y < b.y); });
    const auto turns = [](Point2 o, Point2 a, Point2 b) {
        return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
    };
    std::vector<Point2> hull;
    for (int pass = 0; pass < 2; ++pass) {
        const std::size_t start = hull.size();
        for (const Point2& p : corners) {
            while (hull.size() >= start + 2 && turns(hull[hull.size() - 2], hull.back(), p) <= 0)
                hull.pop_back();
            hull.push_back(p);
        }
        hull.pop_back();
        std::reverse(corners.begin(), corners.end());
    }
    return hull;
}

bool inHull(const std::vector<Point2>& hull, Point2 p) {
    for (std::size_t k = 0; k < hull.size(); ++k) {
        const Point2 a = hull[k], b = hull[(k + 1) % hull.size()];
        if ((b.x - a.x) * (p.y - a.y) - (b.y - a.y) * (p.x - a.x) < 0) return false;
    }
    return true;
}

struct Box {
    double left, top, right, bottom;
};

Box boxOf(const SceneText& text) {
    chart::TextSize size = samples::plainMeasure()(text.text, text.font);
    if (text.rotation != 0) std::swap(size.width, size.height);
    return {text.centre.x - size.width / 2, text.centre.y - size.height / 2,
            text.centre.x + size.width / 2, text.centre.y + size.height / 2};
}

TEST(ChartScene, AxisTextsStayOutsideTheBodyAsItTurns) {
    for (const bool perspective : {false, true}) {
        for (const double elevation : {-60.0, -25.0, 0.0, 10.0, 25.0, 50.0, 80.0, 90.0}) {
            for (double rotation = -180; rotation < 180; rotation += 9) {
                Chart3D c = bumpy(5);
                c.view = {elevation, rotation, perspective, 1};
                const auto hull = hullOf(c);
                const Scene3D scene = sceneOf(c);
                EXPECT_GE(scene.texts.size(), 8U);
                for (const SceneText& text : scene.texts)
                    EXPECT_FALSE(inHull(hull, text.centre))
                        << text.text << " at elevation " << elevation << ", rotation " << rotation;
            }
        }
    }
}

TEST(ChartScene, NumbersOfTheAxesDoNotOverlapAsItTurns) {
    for (const double elevation : {-25.0, 5.0, 25.0, 60.0, 90.0}) {
        for (double rotation = -180; rotation < 180; rotation += 9) {
            Chart3D c = bumpy(5);
            c.view = {elevation, rotation, true, 1};
            const Scene3D scene = sceneOf(c);
            std::vector<SceneText> numbers;
            for (const SceneText& text : scene.texts)
                if (text.text.find('/') == std::string::npos) numbers.push_back(text);
            for (std::size_t a = 0; a < numbers.size(); ++a)
                for (std::size_t b = 0; b < a; ++b) {
                    const Box p = boxOf(numbers[a]), q = boxOf(numbers[b]);
                    const bool clear = p.left >= q.right || q.left >= p.right ||
                                       p.top >= q.bottom || q.top >= p.bottom;
                    EXPECT_TRUE(clear) << numbers[a].text << " and " << numbers[b].text << " at "
                                       << elevation << ", " << rotation;
                }
        }
    }
}

TEST(ChartScene, TextsStayOnTheSheet) {
    for (double rotation = -180; rotation < 180; rotation += 15) {
        Chart3D c = bumpy(5);
        c.view.rotation = rotation;
        for (const SceneText& text : sceneOf(c).texts) {
            const Box box = boxOf(text);
            EXPECT_GE(box.left, 0) << text.text << " at " << rotation;
            EXPECT_GE(box.top, 0) << text.text;
            EXPECT_LE(box.right, kWidth) << text.text;
            EXPECT_LE(box.bottom, kHeight) << text.text;
        }
    }
}

TEST(ChartScene, TheSizeStaysWhileTheBodyTurnsAboutTheVertical) {
    Chart3D c = bumpy(5);
    c.view.perspective = false;
    const auto upright = [&](double rotation) {
        c.view.rotation = rotation;
        const auto layout = make_layout(c, kWidth, kHeight, samples::plainMeasure());
        return layout.camera.project({0, 0, -1}).y - layout.camera.project({0, 0, 1}).y;
    };
    for (const double rotation : {-90.0, 0.0, 33.0, 120.0})
        EXPECT_NEAR(upright(rotation), upright(-60), 1e-9);
}

int countOf(const Scene3D& scene, SceneShape::Kind kind) {
    return static_cast<int>(
        std::count_if(scene.shapes.begin(), scene.shapes.end(),
                      [&](const SceneShape& s) { return s.surface && s.kind == kind; }));
}

TEST(ChartScene, StylesDecideWhatIsDrawn) {
    Chart3D c = bumpy();
    const int filled = countOf(sceneOf(c), SceneShape::Kind::Fill);
    EXPECT_GT(filled, 300);
    c.style.solid = false;
    EXPECT_EQ(countOf(sceneOf(c), SceneShape::Kind::Fill), 0);
    EXPECT_GT(countOf(sceneOf(c), SceneShape::Kind::Line), 300);
    c.mesh.x = c.mesh.y = false;
    EXPECT_EQ(countOf(sceneOf(c), SceneShape::Kind::Line), 0);
    c.style.contoured = true;
    EXPECT_GT(countOf(sceneOf(c), SceneShape::Kind::Line), 100);
    c.style = {};
    c.style.floor_zones = true;
    c.style.ceiling_zones = true;
    EXPECT_GT(countOf(sceneOf(c), SceneShape::Kind::Fill), 2 * filled);
}

TEST(ChartScene, HalvedMeshDrawsEverySecondLine) {
    Chart3D c = samples::surfaceOf(samples::bumps, samples::noHole, 21, 21);
    c.style.solid = false;
    c.mesh.y = false;
    const auto segments = [&] {
        std::size_t sum = 0;
        for (const SceneShape& s : sceneOf(c).shapes)
            if (s.surface) sum += s.count - 1;
        return sum;
    };
    EXPECT_EQ(segments(), 21U * 20U);
    c.mesh.halved_x = true;
    EXPECT_EQ(segments(), 11U * 20U);
}

TEST(ChartScene, ZonesTakeTheColoursOfTheirBands) {
    Chart3D c = samples::surfaceOf([](double x, double) { return x; }, samples::noHole, 11, 11);
    c.z.automatic = false;
    c.z.min = -1;
    c.z.max = 1;
    c.sections.number = 3;
    c.style.zoned = true;
    c.style.shaded = false;
    c.scale_shown = false;
    std::vector<chart::Colour> seen;
    for (const SceneShape& s : sceneOf(c).shapes)
        if (s.surface && s.kind == SceneShape::Kind::Fill &&
            std::find(seen.begin(), seen.end(), s.colour) == seen.end())
            seen.push_back(s.colour);
    ASSERT_EQ(seen.size(), 4U);
    for (int band = 0; band < 4; ++band)
        EXPECT_NE(std::find(seen.begin(), seen.end(), chart::scale_colour(band / 3.0)), seen.end());
}

TEST(ChartScene, ATransparentSurfaceIsTranslucent) {
    Chart3D c = bumpy();
    c.style.transparent = true;
    for (const SceneShape& s : sceneOf(c).shapes)
        EXPECT_TRUE(!s.surface || s.kind == SceneShape::Kind::Line || s.colour.a < 255);
}

TEST(ChartScene, TheScaleShowsOnlyWhereColoursMeanZ) {
    Chart3D c = bumpy();
    c.z.title = "SCALE";
    const auto titles = [&] {
        const Scene3D scene = sceneOf(c);
        return std::count_if(scene.texts.begin(), scene.texts.end(),
                             [](const SceneText& t) { return t.text == "SCALE"; });
    };
    EXPECT_EQ(titles(), 1);
    c.style.zoned = true;
    EXPECT_EQ(titles(), 2);
    c.scale_shown = false;
    EXPECT_EQ(titles(), 1);
}

TEST(ChartScene, AMarkerBehindTheSurfaceIsHollow) {
    Chart3D c = samples::surfaceOf([](double x, double y) { return 1 - x * x - y * y; },
                                   samples::noHole, 41, 41);
    c.view = {20, 0, false, 1};  // seen from +x
    c.z.automatic = false;
    c.z.min = -1;
    c.z.max = 1;
    c.markers.push_back({0, 0, 1, "CrP"});
    c.markers.push_back({-0.8, 0, 0.36, "behind"});
    c.markers.push_back({0, 0, 9, "outside the box"});
    const Scene3D scene = sceneOf(c);
    ASSERT_EQ(scene.markers.size(), 2U);
    EXPECT_FALSE(scene.markers[0].hidden);
    EXPECT_TRUE(scene.markers[1].hidden);
}

TEST(ChartScene, AxesThatPointAtTheViewerBearNoNumbers) {
    Chart3D c = bumpy(5);
    c.view.perspective = false;
    const auto shows = [&](chart::PresetView preset, const std::string& title) {
        set_preset(c.view, preset);
        const Scene3D scene = sceneOf(c);
        return std::any_of(scene.texts.begin(), scene.texts.end(),
                           [&](const SceneText& t) { return t.text == title; });
    };
    EXPECT_FALSE(shows(chart::PresetView::AlongX, c.x.title));
    EXPECT_TRUE(shows(chart::PresetView::AlongX, c.y.title));
    EXPECT_FALSE(shows(chart::PresetView::AlongY, c.y.title));
    EXPECT_FALSE(shows(chart::PresetView::AlongZ, c.z.title));
    EXPECT_TRUE(shows(chart::PresetView::Default, c.z.title));
}

TEST(ChartScene, GridsStandOnThePlanesThatAreChosen) {
    Chart3D c = bumpy(3);
    c.style.solid = false;
    c.mesh.x = c.mesh.y = false;
    const auto lines = [&] {
        const Scene3D scene = sceneOf(c);
        return std::count_if(scene.shapes.begin(), scene.shapes.end(), [&](const SceneShape& s) {
            return s.kind == SceneShape::Kind::Line && s.count == 2 && s.colour == c.grid.colour;
        });
    };
    const auto all = lines();
    c.x.grid_xy = false;
    const auto without = lines();
    EXPECT_LT(without, all);
    c.x.grid_yz = false;  // a plane that does not hold the x axis
    EXPECT_EQ(lines(), without);
    for (chart::Axis3D* axis : {&c.x, &c.y, &c.z})
        axis->grid_xy = axis->grid_xz = axis->grid_yz = false;
    EXPECT_EQ(lines(), 0);
}

TEST(ChartScene, AnEmptyOrBrokenSurfaceDrawsTheBoxAlone) {
    Chart3D c;
    EXPECT_GT(sceneOf(c).shapes.size(), 3U);
    c.surface.nx = c.surface.ny = 10;  // without values
    EXPECT_EQ(countOf(sceneOf(c), SceneShape::Kind::Fill), 0);
    EXPECT_FALSE(pick_surface(c, kWidth, kHeight, samples::plainMeasure(), {450, 350}));
    EXPECT_GT(build_scene(c, 3, 3, samples::plainMeasure()).shapes.size(), 0U);
}

}  // namespace
