#include <limits>
#include <random>

#include "chart/chart_samples.h"
#include "chart/palette.h"
#include "chart/sheet2d.h"

using namespace quor;

namespace {

using chart::Chart2D;
using chart::Group;
using chart::LegendAnchor;
using chart::Series;
using chart::Sheet2D;
using chart::SheetRect;

Chart2D fullChart() {
    Chart2D c;
    for (int k = 0; k < 24; ++k) {
        Series& s = chart::series_at(c, Group::Curves, k);
        s = samples::curveOf([&](double x) { return (k + 1) * 0.04 * x; }, 0, 4, 40);
        s.legend = "curve " + std::to_string(k + 1);
    }
    c.x.title = "v / (m^3/kmol)";
    c.y.title = "p / kPa";
    c.header.text = "Isotherms";
    c.footer.text = "water";
    c.x.max = 4;
    c.y.max = 4;
    c.legend.shown = true;
    return c;
}

bool overlap(const SheetRect& a, const SheetRect& b) {
    return a.left < b.right() - 0.01 && b.left < a.right() - 0.01 && a.top < b.bottom() - 0.01 &&
           b.top < a.bottom() - 0.01;
}

void expectInside(const SheetRect& inner, const SheetRect& outer, const char* what) {
    EXPECT_GE(inner.left, outer.left - 0.01) << what;
    EXPECT_GE(inner.top, outer.top - 0.01) << what;
    EXPECT_LE(inner.right(), outer.right() + 0.01) << what;
    EXPECT_LE(inner.bottom(), outer.bottom() + 0.01) << what;
}

/// All texts of a sheet but the numbers, and the plot area: none may cover another.
std::vector<SheetRect> parts(const Sheet2D& s) {
    std::vector<SheetRect> all{s.plot};
    for (const chart::SheetText* text : {&s.header, &s.footer, &s.x.title, &s.y.title, &s.y2.title})
        if (text->shown) all.push_back(text->rect);
    return all;
}

TEST(ChartSheet, NothingCoversAnythingElseInAnySize) {
    for (const auto& [w, h] : {std::pair{900.0, 650.0}, {500.0, 400.0}, {1600.0, 700.0}}) {
        for (const int rotation : {90, 0, 270}) {
            for (const auto anchor : {LegendAnchor::OutsideEast, LegendAnchor::OutsideSouth}) {
                Chart2D c = fullChart();
                c.y.title_rotation = rotation;
                c.y2.title = "second";
                c.legend.anchor = anchor;
                c.legend.vertical = anchor == LegendAnchor::OutsideEast;
                const Sheet2D s = lay_out(c, w, h, samples::plainMeasure());
                auto all = parts(s);
                all.push_back(s.legend);
                for (std::size_t a = 0; a < all.size(); ++a) {
                    expectInside(all[a], s.sheet, "sheet");
                    for (std::size_t b = 0; b < a; ++b)
                        EXPECT_FALSE(overlap(all[a], all[b]))
                            << a << " covers " << b << " at " << w << " x " << h;
                }
                EXPECT_EQ(s.legend_lines.size(), 24U);
            }
        }
    }
}

TEST(ChartSheet, TitlesStayClearOfTheNumbers) {
    Chart2D c = fullChart();
    c.y.max = 123456;
    const Sheet2D s = lay_out(c, 900, 650, samples::plainMeasure());
    EXPECT_FALSE(overlap(s.y.title.rect, s.y.numbers));
    EXPECT_FALSE(overlap(s.x.title.rect, s.x.numbers));
    expectInside(s.y.numbers, s.sheet, "numbers of y");
}

TEST(ChartSheet, TheWidthOfTheNumbersDecidesTheMargin) {
    Chart2D c = fullChart();
    const double narrow = lay_out(c, 900, 650, samples::plainMeasure()).plot.left;
    c.y.max = 500000;
    EXPECT_GT(lay_out(c, 900, 650, samples::plainMeasure()).plot.left, narrow + 20);
}

TEST(ChartSheet, AFixedPlotAreaStandsWhereItIsSet) {
    Chart2D c = fullChart();
    c.plot_area.automatic = false;
    c.plot_area.left = 0.2;
    c.plot_area.top = 0.1;
    c.plot_area.width = 0.5;
    c.plot_area.height = 0.6;
    const SheetRect plot = lay_out(c, 1000, 500, samples::plainMeasure()).plot;
    EXPECT_DOUBLE_EQ(plot.left, 200);
    EXPECT_DOUBLE_EQ(plot.top, 50);
    EXPECT_DOUBLE_EQ(plot.width, 500);
    EXPECT_DOUBLE_EQ(plot.height, 300);
}

TEST(ChartSheet, ATinySheetStillHasAPlotArea) {
    for (const double side : {1.0, 20.0, 80.0}) {
        const Sheet2D s = lay_out(fullChart(), side, side, samples::plainMeasure());
        EXPECT_GE(s.plot.width, 10);
        EXPECT_GE(s.plot.height, 10);
    }
}

TEST(ChartSheet, TheAxesCrossAtTheOrigin) {
    Chart2D c = fullChart();
    c.x.min = -4;
    c.y.min = -4;
    c.x.automatic_origin = c.y.automatic_origin = false;
    const Sheet2D s = lay_out(c, 900, 650, samples::plainMeasure());
    EXPECT_NEAR(s.y.line, s.plot.left + s.plot.width / 2, 1e-9);
    EXPECT_NEAR(s.x.line, s.plot.top + s.plot.height / 2, 1e-9);
    for (const chart::Tick& tick : s.x.ticks.major)
        EXPECT_EQ(tick.text.empty(), tick.value == 0) << tick.value;
    c.x.origin = 77;  // outside: the axis keeps to the edge
    EXPECT_DOUBLE_EQ(lay_out(c, 900, 650, samples::plainMeasure()).y.line,
                     lay_out(c, 900, 650, samples::plainMeasure()).plot.right());
}

TEST(ChartSheet, GridAndTicksHaveSpacingsOfTheirOwn) {
    Chart2D c = fullChart();
    c.x.tick_spacing = 1;
    c.x.grid_spacing = 0.5;
    c.y.grid_shown = false;
    const Sheet2D s = lay_out(c, 900, 650, samples::plainMeasure());
    EXPECT_EQ(s.x.ticks.major.size(), 5U);
    EXPECT_EQ(s.x.grid.size(), 9U);
    EXPECT_TRUE(s.y.grid.empty());
}

TEST(ChartSheet, LabelsFollowTheirPlacesAndVanishWithThem) {
    Chart2D c = fullChart();
    chart::Label on_point;
    on_point.text = "K";
    on_point.on_point = true;
    on_point.series = 2;
    on_point.point = 20;
    on_point.dx = 10;
    on_point.dy = -15;
    c.labels.push_back(on_point);
    chart::Label onPlace;
    onPlace.text = "T(cr)";
    onPlace.x = 2;
    onPlace.y = 3;
    c.labels.push_back(onPlace);
    const Sheet2D s = lay_out(c, 900, 650, samples::plainMeasure());
    ASSERT_EQ(s.labels.size(), 2U);
    const auto& curve = c.curves[2];
    EXPECT_NEAR(s.labels[0].place_x,
                s.plot.left + static_cast<double>(curve.x[20]) / 4 * s.plot.width, 1e-6);
    EXPECT_NEAR(s.labels[0].text.x - s.labels[0].place_x, 10, 1e-9);
    EXPECT_NEAR(s.labels[1].place_y, s.plot.top + 0.25 * s.plot.height, 1e-6);
    c.x.max = 1;  // both places leave the window
    EXPECT_TRUE(lay_out(c, 900, 650, samples::plainMeasure()).labels.empty());
    c.x.max = 4;
    c.labels[0].point = 4000;
    c.labels[1].shown = false;
    EXPECT_TRUE(lay_out(c, 900, 650, samples::plainMeasure()).labels.empty());
    c.labels[1].shown = true;
    c.labels_shown = false;
    EXPECT_TRUE(lay_out(c, 900, 650, samples::plainMeasure()).labels.empty());
}

TEST(ChartSheet, ACurveLabelIsPlacedBesideItsCurve) {
    Chart2D c = fullChart();
    chart::Label label;
    label.text = "300 K";
    ASSERT_TRUE(place_curve_label(c, 5, -1, 900, 650, samples::plainMeasure(), label));
    EXPECT_TRUE(label.on_point);
    EXPECT_EQ(label.series, 5);
    EXPECT_GT(std::hypot(label.dx, label.dy), 5);
    chart::Label untouched;
    EXPECT_FALSE(place_curve_label(c, 77, 0.5, 900, 650, samples::plainMeasure(), untouched));
    EXPECT_EQ(untouched, chart::Label());
}

TEST(ChartSheet, VisibleLinesAreThePartInsideThePlotArea) {
    std::mt19937 random(5);
    std::uniform_real_distribution<float> unit(-1, 2);
    const SheetRect plot{100, 50, 400, 300};
    for (int trial = 0; trial < 50; ++trial) {
        Chart2D c;
        Series s = chart::default_curve(0);
        for (int i = 0; i < 30; ++i) {
            s.x.push_back(i % 11 == 10 ? chart::kHole : unit(random));
            s.y.push_back(unit(random));
        }
        const auto lines = visible_lines(c, s, plot);
        const auto onLine = [&](double x, double y) {
            for (const auto& line : lines)
                for (std::size_t k = 1; k < line.size(); ++k) {
                    const double dx = line[k].x - line[k - 1].x, dy = line[k].y - line[k - 1].y;
                    const double l2 = dx * dx + dy * dy;
                    const double t =
                        l2 > 0 ? ((x - line[k - 1].x) * dx + (y - line[k - 1].y) * dy) / l2 : 0;
                    if (t < -1e-6 || t > 1 + 1e-6) continue;
                    if (std::hypot(line[k - 1].x + t * dx - x, line[k - 1].y + t * dy - y) < 1e-3)
                        return true;
                }
            return false;
        };
        for (const auto& line : lines)
            for (const auto& p : line) {
                EXPECT_TRUE((SheetRect{99.99, 49.99, 400.02, 300.02}.contains(p.x, p.y)));
            }
        for (std::size_t i = 1; i < s.x.size(); ++i) {
            if (s.x[i] == chart::kHole || s.x[i - 1] == chart::kHole) continue;
            for (const double t : {0.07, 0.31, 0.5, 0.77, 0.93}) {
                const double u =
                    static_cast<double>(s.x[i - 1]) +
                    t * (static_cast<double>(s.x[i]) - static_cast<double>(s.x[i - 1]));
                const double v =
                    static_cast<double>(s.y[i - 1]) +
                    t * (static_cast<double>(s.y[i]) - static_cast<double>(s.y[i - 1]));
                const double margin = 1e-5;
                const bool inside = u > margin && u < 1 - margin && v > margin && v < 1 - margin;
                EXPECT_TRUE(!inside || onLine(100 + 400 * u, 350 - 300 * v));
            }
        }
    }
}

TEST(ChartSheet, ALineThatStaysInsideIsOnePiece) {
    Chart2D c;
    const Series s =
        samples::curveOf([](double x) { return 0.5 + 0.4 * std::sin(9 * x); }, 0, 1, 99);
    const auto lines = visible_lines(c, s, {0, 0, 500, 500});
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].size(), 99U);
}

TEST(ChartSheet, AReferenceLineCrossesTheWholeWindow) {
    for (const bool logarithmic : {false, true}) {
        Chart2D c;
        c.x.min = 200;
        c.x.max = 600;
        c.y.min = 0.001;
        c.y.max = 1000;
        c.y.logarithmic = logarithmic;
        Series s = chart::default_curve(0);
        s.is_reference = true;
        s.x = {300, 300};
        s.y = {-1e10F, 1000};
        const auto lines = visible_lines(c, s, {0, 0, 400, 300});
        ASSERT_EQ(lines.size(), 1U);
        EXPECT_NEAR(lines[0].front().y, 300, 1e-3);
        EXPECT_NEAR(lines[0].back().y, 0, 1e-3);
        EXPECT_NEAR(lines[0].front().x, 100, 1e-3);
    }
}

TEST(ChartSheet, ValuesThatALogarithmicAxisLacksInterruptTheLine) {
    Chart2D c;
    c.y.min = 0.1;
    c.y.max = 10;
    c.y.logarithmic = true;
    Series s = chart::default_curve(0);
    s.x = {0, 0.25F, 0.5F, 0.75F, 1};
    s.y = {1, 2, -1, 2, 1};
    EXPECT_EQ(visible_lines(c, s, {0, 0, 100, 100}).size(), 2U);
}

TEST(ChartSheet, NumbersInPowerFormAreTakenApart) {
    EXPECT_EQ(chart::as_power("2.5e6"), (chart::PowerText{"2.5", "6"}));
    EXPECT_EQ(chart::as_power("1e-3"), (chart::PowerText{"", "-3"}));
    EXPECT_EQ(chart::as_power("-1,5e10"), (chart::PowerText{"-1,5", "10"}));
    for (const char* text : {"", "e", "1e", "e5", "water", "he4", "3.5", "1e5x"})
        EXPECT_FALSE(chart::as_power(text)) << text;
}

}  // namespace
