#include "chart/line_labels.h"

#include <gtest/gtest.h>

#include <cmath>

#include "chart/chart_file.h"
#include "chart/picture2d.h"

using namespace quor;
using chart::Chart2D;
using chart::TurnedBox;

namespace {

/// A text measure of its own: 6 pixels a character, 12 high.
chart::TextSize measure(const std::string& text, const chart::Font&) {
    return {6.0 * static_cast<double>(text.size()), 12};
}

constexpr chart::SheetRect kPlot{0, 0, 800, 600};

/// A curve of many points over the window 0..10 x 0..10.
template <class Y>
chart::Series curve(const std::string& text, Y y, double from = 0, double to = 10) {
    chart::Series series = chart::default_curve(0);
    for (int i = 0; i <= 200; ++i) {
        const double x = from + (to - from) * i / 200;
        series.x.push_back(static_cast<float>(x));
        series.y.push_back(static_cast<float>(y(x)));
    }
    series.label.text = text;
    series.label.on_line = !text.empty();
    return series;
}

Chart2D window() {
    Chart2D c;
    c.x.min = c.y.min = 0;
    c.x.max = c.y.max = 10;
    return c;
}

TEST(LineLabels, FollowTheSlopeOfTheirLine) {
    Chart2D c = window();
    c.curves = {curve("300 K", [](double x) { return x; }),
                curve("400 K", [](double x) { return 10 - x; }),
                curve("500 K", [](double) { return 5.5; })};
    const auto labels = chart::place_line_labels(c, kPlot, measure);
    ASSERT_EQ(labels.size(), 3U);
    const int slope = static_cast<int>(std::lround(std::atan2(600, 800) * 180 / M_PI));
    EXPECT_EQ(labels[0].rotation, slope);
    EXPECT_EQ(labels[1].rotation, -slope) << "read from left to right, downwards";
    EXPECT_EQ(labels[2].rotation, 0);
    for (const chart::LineLabel& label : labels) {
        const double x = label.centre.x / 80, y = 10 - label.centre.y / 60;
        const double expected = label.curve == 0 ? x : label.curve == 1 ? 10 - x : 5.5;
        EXPECT_NEAR(y, expected, 0.02) << "on its line";
    }
}

TEST(LineLabels, StandInThePlotAndNeverOnEachOtherOrOnACurveWithoutOne) {
    Chart2D c = window();
    for (int i = 1; i <= 24; ++i)
        c.curves.push_back(curve(std::to_string(i * 100) + " kPa",
                                 [i](double x) { return 0.4 * i * std::exp(-x / (2 + i)); }));
    c.curves.push_back(curve("", [](double x) { return 9 - (x - 5) * (x - 5); }));  // a dome
    const auto labels = chart::place_line_labels(c, kPlot, measure);
    EXPECT_GE(labels.size(), 18U);
    const chart::Series& dome = c.curves.back();
    for (std::size_t i = 0; i < labels.size(); ++i) {
        for (const chart::SheetPoint& corner : labels[i].box)
            EXPECT_TRUE(kPlot.contains(corner.x, corner.y));
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_FALSE(chart::overlap(labels[i].box, labels[k].box)) << i << " " << k;
        for (std::size_t k = 1; k < dome.x.size(); ++k) {
            const auto at = [&](std::size_t n) {
                return chart::SheetPoint{80.0 * static_cast<double>(dome.x[n]),
                                         600 - 60.0 * static_cast<double>(dome.y[n])};
            };
            EXPECT_FALSE(chart::crosses(labels[i].box, at(k - 1), at(k)));
        }
    }
}

TEST(LineLabels, ALineWithoutRoomHasNone) {
    Chart2D c = window();
    c.curves = {curve(
                    "a long text on a short line", [](double x) { return x; }, 5, 5.5),
                curve("300 K", [](double x) { return 5 + 0.1 * std::sin(40 * x); })};
    EXPECT_TRUE(chart::place_line_labels(c, kPlot, measure).empty());
    c.curves[0].label.text = "K";
    EXPECT_EQ(chart::place_line_labels(c, kPlot, measure).size(), 1U);
    c.labels_shown = false;
    EXPECT_TRUE(chart::place_line_labels(c, kPlot, measure).empty());
}

TEST(LineLabels, TurnedRectanglesMeetOrNot) {
    const TurnedBox level{{{0, 0}, {10, 0}, {10, 4}, {0, 4}}};
    const TurnedBox turned{{{12, -2}, {16, 2}, {12, 6}, {8, 2}}};  // a square on its corner
    const TurnedBox beside{{{14, -6}, {18, -2}, {14, 2}, {10.5, -2}}};
    EXPECT_TRUE(chart::overlap(level, turned));
    EXPECT_FALSE(chart::overlap(level, beside)) << "their upright bounds meet, they do not";
    EXPECT_TRUE(chart::overlap(level, level));
    EXPECT_TRUE(chart::crosses(level, {-5, 2}, {15, 2}));
    EXPECT_TRUE(chart::crosses(level, {4, 1}, {5, 2})) << "wholly inside";
    EXPECT_FALSE(chart::crosses(level, {9, -4}, {14, 1.5}));
    EXPECT_FALSE(chart::crosses(level, {11, -5}, {11, 10}));
}

TEST(LineLabels, ArePaintedTurnedOnAGroundOfThePaperAndSaved) {
    Chart2D c = window();
    c.curves = {curve("300 K", [](double x) { return x; })};
    c.plot_area.background = {250, 250, 240, 255};
    const chart::Picture2D picture = chart::picture_of(c, 900, 700, measure);
    ASSERT_EQ(picture.sheet.line_labels.size(), 1U);
    bool ground = false, text = false;
    for (const chart::PictureItem& item : picture.items) {
        if (const auto* line = std::get_if<chart::PictureLine>(&item))
            ground = ground || (line->style.colour == c.plot_area.background &&
                                line->style.width == 12 && line->points.size() == 2);
        if (const auto* one = std::get_if<chart::PictureText>(&item)) {
            if (one->text != "300 K") continue;
            EXPECT_TRUE(ground) << "beneath the text";
            EXPECT_EQ(one->rotation, picture.sheet.line_labels[0].rotation);
            text = true;
        }
    }
    EXPECT_TRUE(text);

    Chart2D again;
    ASSERT_TRUE(chart::from_text(chart::to_text(c), again));
    EXPECT_TRUE(again.curves[0].label.on_line);
    c.curves[0].label.on_line = false;
    EXPECT_EQ(chart::to_text(c).find("onLine"), std::string::npos);
}

}  // namespace
