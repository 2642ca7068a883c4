#include "chart/chart2d.h"

#include <limits>
#include <random>

#include "chart/chart_samples.h"
#include "chart/placement.h"

using namespace quor;

namespace {

using chart::Chart2D;
using chart::Group;
using chart::Label;
using chart::LinePattern;
using chart::Series;
using chart::SymbolShape;

Chart2D twoCurves() {
    Chart2D c;
    chart::series_at(c, Group::Curves, 0) =
        samples::curveOf([](double x) { return x * x; }, 0, 3, 31);
    chart::series_at(c, Group::Curves, 1) =
        samples::curveOf([](double x) { return 9 - 3 * x; }, 0, 3, 4);
    chart::Series& set = chart::series_at(c, Group::Points, 0);
    set.x = {1, 2};
    set.y = {8, 7};
    c.x.max = 3;
    c.y.max = 9;
    return c;
}

TEST(Chart2D, ListsOfStylesAreThoseOfTheDesignTabs) {
    EXPECT_EQ(chart::kLinePatternNames[static_cast<std::size_t>(LinePattern::DashDotted)],
              "Curve dash-dotted");
    EXPECT_EQ(chart::kLinePatternNames[0], "Single points only");
    EXPECT_EQ(chart::kSymbolNames[static_cast<std::size_t>(SymbolShape::OpenDiamond)],
              "Open Diamond");
    EXPECT_EQ(chart::kSymbolNames.back(), "hidden");
}

TEST(Chart2D, NewSlotsHaveDefaultStyles) {
    Chart2D c;
    chart::series_at(c, Group::Curves, 9).legend = "tenth";
    ASSERT_EQ(c.curves.size(), 10U);
    EXPECT_EQ(c.curves[9].line.pattern, LinePattern::Dashed);
    EXPECT_NE(c.curves[0].line.colour, c.curves[1].line.colour);
    EXPECT_FLOAT_EQ(c.curves[0].line.width, 1.5F);
    EXPECT_EQ(chart::series_at(c, Group::Points, 0).line.pattern, LinePattern::None);
}

TEST(Chart2D, ACurveOfSinglePointsShowsDotsUntilItHasASymbol) {
    Series curve = chart::default_curve(0);
    EXPECT_EQ(chart::shown_symbol(curve, Group::Curves), SymbolShape::Hidden);
    curve.line.pattern = LinePattern::None;
    EXPECT_EQ(chart::shown_symbol(curve, Group::Curves), SymbolShape::Dot);
    curve.symbol = SymbolShape::Star;
    EXPECT_EQ(chart::shown_symbol(curve, Group::Curves), SymbolShape::Star);
    Series set = chart::default_point_set(0);
    set.symbol = SymbolShape::Hidden;
    EXPECT_EQ(chart::shown_symbol(set, Group::Points), SymbolShape::Hidden);
}

TEST(Chart2D, TheLegendListsSeriesWithAText) {
    Chart2D c = twoCurves();
    EXPECT_TRUE(legend_entries(c).empty());
    c.points[0].legend = "data";
    c.curves[1].legend = "second";
    const std::vector<chart::SeriesRef> both{{Group::Curves, 1}, {Group::Points, 0}};
    EXPECT_EQ(legend_entries(c), both);
    c.curves[1].in_legend = false;
    EXPECT_EQ(legend_entries(c).size(), 1U);
    c.points[0].x.clear();
    c.points[0].y.clear();
    EXPECT_TRUE(legend_entries(c).empty());
}

TEST(Chart2D, SwappingTwiceRestoresTheChart) {
    Chart2D c = twoCurves();
    c.x.title = "v";
    c.y.title = "p";
    c.y.logarithmic = true;
    c.labels.push_back(Label{});
    c.labels[0].x = 2;
    c.labels[0].y = 5;
    const Chart2D before = c;
    swap_axes(c);
    EXPECT_EQ(c.x.title, "p");
    EXPECT_TRUE(c.x.logarithmic);
    EXPECT_EQ(c.x.title_rotation, before.x.title_rotation);
    EXPECT_EQ(c.curves[0].x, before.curves[0].y);
    EXPECT_EQ(c.labels[0].x, 5);
    EXPECT_EQ(c.x.max, 9);
    swap_axes(c);
    EXPECT_EQ(c, before);
}

TEST(Chart2D, DataExtentPassesOverHolesAndReferenceLines) {
    Chart2D c = twoCurves();
    c.curves[0].x.push_back(chart::kHole);
    c.curves[0].y.push_back(4);
    c.curves[0].x.push_back(std::numeric_limits<float>::quiet_NaN());
    c.curves[0].y.push_back(1e6F);
    Series& mark = chart::series_at(c, Group::Curves, 2);
    mark.x = {1, 1};
    mark.y = {-1e10F, 1e10F};
    mark.is_reference = true;
    const auto extent = data_extent(c);
    ASSERT_TRUE(extent);
    EXPECT_EQ(extent->x, (chart::Range{0, 3}));
    EXPECT_EQ(extent->y, (chart::Range{0, 9}));
    c.y.logarithmic = true;
    EXPECT_GT(data_extent(c)->y.min, 0);
    EXPECT_FALSE(data_extent(Chart2D()));
}

TEST(Chart2D, AWindowThatCannotBeDrawnFollowsTheData) {
    Chart2D c = twoCurves();
    c.x.min = 5;
    c.x.max = 2;
    c.y.max = std::numeric_limits<double>::quiet_NaN();
    const chart::Window window = shown_window(c);
    EXPECT_LE(window.x.min, 0);
    EXPECT_GE(window.x.max, 3);
    EXPECT_GE(window.y.max, 9);
    c = twoCurves();
    c.y.logarithmic = true;  // its lower limit is 0
    const chart::Range y = shown_window(c).y;
    EXPECT_GT(y.min, 0);
    EXPECT_DOUBLE_EQ(y.max, 9);
}

TEST(Chart2D, FittingHoldsAllPoints) {
    Chart2D c = twoCurves();
    c.points[0].x = {-7.3F, 12.2F};
    const auto window = fitting_window(c);
    ASSERT_TRUE(window);
    EXPECT_LE(window->x.min, -7.3);
    EXPECT_GE(window->x.max, 12.2);
    EXPECT_FALSE(fitting_window(Chart2D()));
}

TEST(Chart2D, TheScaleMapsThereAndBack) {
    Chart2D c;
    c.x.min = 200;
    c.x.max = 600;
    c.y.min = 0.01;
    c.y.max = 1000;
    c.y.logarithmic = true;
    const chart::WindowScale scale(c);
    EXPECT_DOUBLE_EQ(scale.u(300), 0.25);
    EXPECT_NEAR(scale.v(1), 0.4, 1e-12);
    EXPECT_NEAR(scale.y(0.4), 1, 1e-12);
    EXPECT_NEAR(scale.x(scale.u(431.7)), 431.7, 1e-9);
    EXPECT_EQ(scale.v(-1), -std::numeric_limits<double>::infinity());
}

TEST(Chart2D, TheNearestPointIsTheNearestOfAll) {
    const Chart2D c = twoCurves();
    std::mt19937 random(3);
    std::uniform_real_distribution<double> unit(0, 1);
    const double w = 600, h = 400;
    for (int trial = 0; trial < 500; ++trial) {
        const double x = w * unit(random), y = h * unit(random);
        double best = 1e9;
        const auto look = [&](const Series& s) {
            for (std::size_t i = 0; i < s.x.size(); ++i)
                best = std::min(best, std::hypot(static_cast<double>(s.x[i]) / 3 * w - x,
                                                 static_cast<double>(s.y[i]) / 9 * h - y));
        };
        for (const Series& s : c.curves) look(s);
        look(c.points[0]);
        const auto near = nearest_point(c, {x, y, w, h}, 1e6);
        ASSERT_TRUE(near);
        EXPECT_NEAR(near->distance, best, 1e-6);
        const Series& s = series_of(c, near->group)[static_cast<std::size_t>(near->series)];
        const auto i = static_cast<std::size_t>(near->point);
        EXPECT_NEAR(std::hypot(static_cast<double>(s.x[i]) / 3 * w - x,
                               static_cast<double>(s.y[i]) / 9 * h - y),
                    best, 1e-6);
    }
}

TEST(Chart2D, OnlyWhatIsWithinTheLimitIsNear) {
    const Chart2D c = twoCurves();
    // The straight line from (0, 9) to (3, 0) runs through the middle of the plot area.
    const chart::PlotPixel onLine{225, 225, 450, 450};
    const auto line = nearest_series(c, onLine, 6);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->series, 1);
    EXPECT_NEAR(line->distance, 0, 1e-4);
    EXPECT_FALSE(nearest_point(c, onLine, 6));
    // 20 pixels square to that line, which falls 450 pixels over 450.
    const double off = 20 / std::sqrt(2.0);
    EXPECT_NEAR(nearest_series(c, {225 + off, 225 + off, 450, 450}, 30)->distance, 20, 1e-3);
    EXPECT_FALSE(nearest_series(c, {225 + off, 225 + off, 450, 450}, 19));
}

TEST(Chart2D, AHoleInterruptsTheLineForThePointer) {
    Chart2D c;
    Series& s = chart::series_at(c, Group::Curves, 0);
    s.x = {0, chart::kHole, 1};
    s.y = {0.5F, 0.5F, 0.5F};
    EXPECT_FALSE(nearest_series(c, {50, 50, 100, 100}, 10));
    s.x[1] = 0.9F;
    EXPECT_TRUE(nearest_series(c, {50, 50, 100, 100}, 10));
}

TEST(Chart2D, InvisibleSeriesAndReferenceLinesHaveNoNearestPoint) {
    Chart2D c = twoCurves();
    c.points.clear();
    c.curves[0].visible = false;
    c.curves[1].is_reference = true;
    EXPECT_FALSE(nearest_point(c, {0, 0, 100, 100}, 1e5));
    const auto line = nearest_series(c, {0, 100, 100, 100}, 1e5);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->series, 1);
}

TEST(Chart2D, DeletingAPointTakesItsLabelsAndMovesTheOthers) {
    Chart2D c = twoCurves();
    for (const int point : {0, 1, 2}) {
        Label label;
        label.on_point = true;
        label.series = 1;
        label.point = point;
        label.text = std::to_string(point);
        c.labels.push_back(label);
    }
    delete_point(c, Group::Curves, 1, 1);
    EXPECT_EQ(c.curves[1].x, (std::vector<float>{0, 2, 3}));
    ASSERT_EQ(c.labels.size(), 2U);
    EXPECT_EQ(c.labels[0].point, 0);
    EXPECT_EQ(c.labels[1].text, "2");
    EXPECT_EQ(c.labels[1].point, 1);
    const Chart2D before = c;
    delete_point(c, Group::Curves, 1, 99);
    delete_point(c, Group::Points, 7, 0);
    EXPECT_EQ(c, before);
}

TEST(Chart2D, AClearedSeriesKeepsItsStyle) {
    Chart2D c = twoCurves();
    c.curves[1].legend = "text";
    c.curves[1].line.width = 4;
    Label label;
    label.on_point = true;
    label.series = 1;
    c.labels.push_back(label);
    clear_series(c, Group::Curves, 1);
    EXPECT_TRUE(c.curves[1].x.empty());
    EXPECT_TRUE(c.curves[1].legend.empty());
    EXPECT_TRUE(c.labels.empty());
    EXPECT_FLOAT_EQ(c.curves[1].line.width, 4);
    clear_series(c, Group::Curves, 17);
    EXPECT_EQ(c.curves.size(), 2U);
}

TEST(ChartPlacement, ATextBesideACurveDoesNotCoverIt) {
    Chart2D c = twoCurves();
    const double w = 600, h = 400, tw = 60, th = 14;
    for (const double fraction : {0.1, 0.3, 0.5, 0.7, 0.9}) {
        const auto spot = spot_along_curve(c, 0, fraction, w, h, tw, th);
        ASSERT_TRUE(spot);
        const auto point = static_cast<std::size_t>(spot->point);
        const double cx = static_cast<double>(c.curves[0].x[point]) / 3 * w + spot->dx;
        const double cy = (1 - static_cast<double>(c.curves[0].y[point]) / 9) * h + spot->dy;
        EXPECT_GE(cx - tw / 2, -1e-9);
        EXPECT_LE(cx + tw / 2, w + 1e-9);
        EXPECT_GE(cy - th / 2, -1e-9);
        EXPECT_LE(cy + th / 2, h + 1e-9);
        for (std::size_t i = 0; i < c.curves[0].x.size(); ++i) {
            const double px = static_cast<double>(c.curves[0].x[i]) / 3 * w;
            const double py = (1 - static_cast<double>(c.curves[0].y[i]) / 9) * h;
            const bool covered = std::abs(px - cx) < tw / 2 - 1 && std::abs(py - cy) < th / 2 - 1;
            EXPECT_FALSE(covered) << "point " << i << " at " << fraction;
        }
    }
}

TEST(ChartPlacement, TheFractionRunsAlongTheVisiblePartOfTheCurve) {
    Chart2D c = twoCurves();
    c.x.max = 1.5;  // the second half of both curves is outside
    const auto first = spot_along_curve(c, 0, 0, 600, 400, 40, 12);
    const auto last = spot_along_curve(c, 0, 1, 600, 400, 40, 12);
    ASSERT_TRUE(first && last);
    EXPECT_EQ(first->point, 0);
    EXPECT_EQ(last->point, 15);
    c.x.min = 50;
    c.x.max = 60;
    EXPECT_FALSE(spot_along_curve(c, 0, 0.5, 600, 400, 40, 12));
    EXPECT_FALSE(spot_along_curve(c, 9, 0.5, 600, 400, 40, 12));
    EXPECT_FALSE(best_spot(c, 0, 600, 400, 40, 12));
}

TEST(ChartPlacement, LabelsOfCurvesThatCoincideStandBesideEachOther) {
    Chart2D c;
    for (int i = 0; i < 6; ++i)
        chart::series_at(c, Group::Curves, i) =
            samples::curveOf([](double x) { return x; }, 0, 1, 50);
    const double w = 600, h = 400, tw = 70, th = 14;
    std::vector<chart::SheetRect> taken{{w - 150, 0, 150, 100}};  // a legend
    for (int i = 0; i < 6; ++i) {
        const auto spot = best_spot(c, i, w, h, tw, th, taken);
        ASSERT_TRUE(spot);
        const Series& s = c.curves[static_cast<std::size_t>(i)];
        const auto point = static_cast<std::size_t>(spot->point);
        const chart::SheetRect box{static_cast<double>(s.x[point]) * w + spot->dx - tw / 2,
                                   (1 - static_cast<double>(s.y[point])) * h + spot->dy - th / 2,
                                   tw, th};
        for (const chart::SheetRect& other : taken)
            EXPECT_FALSE(box.left < other.right() && box.right() > other.left &&
                         box.top < other.bottom() && box.bottom() > other.top)
                << "label " << i;
        taken.push_back(box);
    }
}

TEST(ChartPlacement, TheLegendTakesAFreeCorner) {
    Chart2D c;
    // A line from the left top to the right bottom leaves the other two corners.
    Series& s = chart::series_at(c, Group::Curves, 0);
    s = samples::curveOf([](double x) { return 1 - x; }, 0, 1, 50);
    const auto anchor = best_legend_anchor(c, 600, 400, 150, 80);
    EXPECT_EQ(anchor, chart::LegendAnchor::NorthEast);
    Series& t = chart::series_at(c, Group::Curves, 1);
    t = samples::curveOf([](double) { return 0.9; }, 0, 1, 50);
    EXPECT_EQ(best_legend_anchor(c, 600, 400, 150, 80), chart::LegendAnchor::SouthWest);
}

}  // namespace
