#include <algorithm>

#include "chart/chart_samples.h"
#include "chart/picture2d.h"

using namespace quor;

namespace {

using chart::Chart2D;
using chart::Colour;
using chart::Group;
using chart::LinePattern;
using chart::Picture2D;
using chart::PictureBox;
using chart::PictureLine;
using chart::PictureSymbols;
using chart::PictureText;
using chart::Series;
using chart::SymbolShape;

constexpr Colour kRed = chart::rgb(0xFF0000), kBlue = chart::rgb(0x0000FF);

/// A red line y = x in the unit square, and three blue boxes.
Chart2D sample() {
    Chart2D c;
    Series& line = chart::series_at(c, Group::Curves, 0);
    line = samples::curveOf([](double x) { return x; }, 0, 1, 11);
    line.line.colour = kRed;
    line.legend = "line";
    Series& set = chart::series_at(c, Group::Points, 0);
    set.x = {0.2F, 0.4F, 5};
    set.y = {0.8F, 0.6F, 5};
    set.symbol = SymbolShape::Box;
    set.symbol_colour = kBlue;
    c.header.text = "Header";
    c.x.title = "v";
    c.y.title = "p";
    c.y.title_rotation = 90;
    return c;
}

Picture2D pictureOf(const Chart2D& c) {
    return picture_of(c, 800, 600, samples::plainMeasure());
}

template <class Item>
std::vector<Item> all(const Picture2D& picture) {
    std::vector<Item> found;
    for (const chart::PictureItem& item : picture.items)
        if (const auto* one = std::get_if<Item>(&item)) found.push_back(*one);
    return found;
}

std::vector<PictureLine> linesOf(const Picture2D& picture, Colour colour) {
    std::vector<PictureLine> found;
    for (const PictureLine& line : all<PictureLine>(picture))
        if (line.style.colour == colour) found.push_back(line);
    return found;
}

/// Place of the first item for which `is` holds; the number of items when there is none.
template <class Item, class Is>
std::size_t indexOf(const Picture2D& picture, Is is) {
    for (std::size_t i = 0; i < picture.items.size(); ++i)
        if (const auto* one = std::get_if<Item>(&picture.items[i]); one && is(*one)) return i;
    return picture.items.size();
}

std::size_t indexOfText(const Picture2D& picture, const std::string& text) {
    return indexOf<PictureText>(picture, [&](const PictureText& t) { return t.text == text; });
}

TEST(ChartPicture, ALineStandsWhereItsDataLie) {
    for (const bool logarithmic : {false, true}) {
        Chart2D c = sample();
        c.x.logarithmic = logarithmic;
        c.x.min = logarithmic ? 0.1 : 0;
        const Picture2D picture = pictureOf(c);
        const auto lines = linesOf(picture, kRed);
        ASSERT_EQ(lines.size(), 1U);
        const chart::SheetScale scale(c, picture.sheet.plot);
        const chart::SheetPoint middle = lines[0].points[lines[0].points.size() - 6];  // x = 0.5
        EXPECT_NEAR(middle.x, scale.x(0.5), 1e-3);
        EXPECT_NEAR(middle.y, scale.y(0.5), 1e-3);
    }
}

TEST(ChartPicture, AHoleInACurveStaysAGap) {
    Chart2D c = sample();
    c.curves[0].y[5] = chart::kHole;
    const auto lines = linesOf(pictureOf(c), kRed);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].points.size(), 5U);
    EXPECT_EQ(lines[1].points.size(), 5U);
}

TEST(ChartPicture, NothingOfASeriesLeavesThePlotArea) {
    Chart2D c = sample();
    c.x.min = 0.33;
    c.x.max = 0.77;
    c.y.max = 0.61;
    const Picture2D picture = pictureOf(c);
    const chart::SheetRect& p = picture.sheet.plot;
    const chart::SheetRect wide{p.left - 1e-6, p.top - 1e-6, p.width + 2e-6, p.height + 2e-6};
    const auto lines = linesOf(picture, kRed);
    ASSERT_EQ(lines.size(), 1U);
    for (const chart::SheetPoint& at : lines[0].points) EXPECT_TRUE(wide.contains(at.x, at.y));
    const auto symbols = all<PictureSymbols>(picture);
    ASSERT_EQ(symbols.size(), 1U);
    ASSERT_EQ(symbols[0].places.size(), 1U) << "only the second point lies in the window";
    EXPECT_TRUE(wide.contains(symbols[0].places[0].x, symbols[0].places[0].y));
}

TEST(ChartPicture, SeriesThatAreHiddenLeaveNothing) {
    Chart2D c = sample();
    c.legend.shown = true;
    c.curves[0].visible = c.points[0].visible = false;
    const Picture2D picture = pictureOf(c);
    EXPECT_TRUE(linesOf(picture, kRed).empty());
    EXPECT_TRUE(all<PictureSymbols>(picture).empty());
    EXPECT_EQ(indexOfText(picture, "line"), picture.items.size());
}

TEST(ChartPicture, ACurveWithoutALineShowsDots) {
    Chart2D c = sample();
    c.points.clear();
    c.curves[0].line.pattern = LinePattern::None;
    const Picture2D picture = pictureOf(c);
    EXPECT_TRUE(linesOf(picture, kRed).empty());
    const auto symbols = all<PictureSymbols>(picture);
    ASSERT_EQ(symbols.size(), 1U);
    EXPECT_EQ(symbols[0].shape, SymbolShape::Dot);
    EXPECT_EQ(symbols[0].places.size(), 11U);
}

TEST(ChartPicture, PartsAreInTheOrderOfPainting) {
    Chart2D c = sample();
    c.legend.shown = true;
    chart::Label label;
    label.text = "T(cr)";
    label.x = label.y = 0.5;
    c.labels.push_back(label);
    const Picture2D picture = pictureOf(c);
    const auto lineOf = [&](Colour colour) {
        return indexOf<PictureLine>(picture,
                                    [&](const PictureLine& l) { return l.style.colour == colour; });
    };
    const std::vector<std::size_t> order{
        indexOf<PictureBox>(picture, [](const PictureBox& b) { return b.fill == chart::kWhite; }),
        lineOf(c.x.grid.colour),
        lineOf(kRed),
        indexOf<PictureSymbols>(picture, [](const PictureSymbols&) { return true; }),
        lineOf(c.x.colour),
        indexOfText(picture, "Header"),
        indexOfText(picture, "T(cr)"),
        indexOf<PictureBox>(picture,
                            [&](const PictureBox& b) { return b.fill == c.legend.background; }),
        indexOfText(picture, "line")};
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    EXPECT_EQ(std::adjacent_find(order.begin(), order.end()), order.end());
    EXPECT_LT(order.back(), picture.items.size());
}

TEST(ChartPicture, NumbersStandOutsideTheirAxes) {
    Chart2D c = sample();
    c.y2.shown = true;
    c.y2.automatic = false;
    c.y2.min = 300;
    c.y2.max = 400;
    const Picture2D picture = pictureOf(c);
    const chart::Sheet2D& s = picture.sheet;
    const chart::SheetScale scale(c, s.plot);
    ASSERT_GE(s.x.ticks.major.size(), 3U);
    int below = 0, left = 0, right = 0;
    for (const PictureText& t : all<PictureText>(picture)) {
        const auto isNumberOf = [&](const chart::SheetAxis& axis) {
            return std::any_of(axis.ticks.major.begin(), axis.ticks.major.end(),
                               [&](const chart::Tick& tick) { return tick.text == t.text; });
        };
        below += isNumberOf(s.x) && t.centre.y > s.plot.bottom();
        left += isNumberOf(s.y) && t.centre.x < s.plot.left;
        right += isNumberOf(s.y2) && t.centre.x > s.plot.right();
    }
    EXPECT_EQ(below, static_cast<int>(s.x.ticks.major.size()));
    EXPECT_EQ(left, static_cast<int>(s.y.ticks.major.size()));
    EXPECT_EQ(right, static_cast<int>(s.y2.ticks.major.size()));
}

TEST(ChartPicture, AnAxisThatIsNotShownHasNeitherLineNorNumbers) {
    Chart2D c = sample();
    c.x.colour = kBlue;
    c.x.shown = false;
    const Picture2D picture = pictureOf(c);
    EXPECT_TRUE(linesOf(picture, kBlue).empty());
    c.x.shown = true;
    EXPECT_GT(linesOf(pictureOf(c), kBlue).size(), 3U);
}

TEST(ChartPicture, LinesBetweenThePowersOfTenAreFainter) {
    Chart2D c = sample();
    c.y.logarithmic = true;
    c.y.min = 0.01;
    c.y.grid = {LinePattern::Solid, kBlue, 2};
    c.points.clear();
    const Picture2D picture = pictureOf(c);
    EXPECT_EQ(linesOf(picture, kBlue).size(), picture.sheet.y.grid.size());
    const Colour faint{0, 0, 255, 127};
    const auto fine = linesOf(picture, faint);
    ASSERT_EQ(fine.size(), picture.sheet.y.fine_grid.size());
    ASSERT_FALSE(fine.empty());
    EXPECT_FLOAT_EQ(fine[0].style.width, 1.4F);
}

TEST(ChartPicture, ALabelHasItsConnectorItsBoxAndItsTurnedText) {
    Chart2D c = sample();
    chart::Label label;
    label.text = "here";
    label.x = label.y = 0.5;
    label.dx = 40;
    label.rotation = 30;
    label.connector = label.frame.shown = true;
    label.text_colour = kBlue;
    label.background = kRed;
    c.labels.push_back(label);
    const Picture2D picture = pictureOf(c);
    const auto connector = linesOf(picture, kBlue);
    ASSERT_EQ(connector.size(), 1U);
    EXPECT_NEAR(connector[0].points[1].x - connector[0].points[0].x, 40, 1e-9);
    const auto isBox = [](const PictureBox& b) { return b.fill == kRed && b.frame.shown; };
    const std::size_t box = indexOf<PictureBox>(picture, isBox);
    const std::size_t text = indexOfText(picture, "here");
    ASSERT_EQ(text, box + 1);
    EXPECT_EQ(std::get<PictureText>(picture.items[text]).rotation, 30);
}

TEST(ChartPicture, ALineOfTheLegendHasSampleSymbolAndText) {
    Chart2D c = sample();
    c.legend.shown = true;
    c.points[0].legend = "points";
    c.points[0].line.pattern = LinePattern::Dashed;
    const Picture2D picture = pictureOf(c);
    ASSERT_EQ(picture.sheet.legend_lines.size(), 2U);
    const chart::LegendLine& entry = picture.sheet.legend_lines[1];
    const std::size_t text = indexOfText(picture, "points");
    ASSERT_LT(text, picture.items.size());
    const auto& sample = std::get<PictureLine>(picture.items[text - 2]);
    const auto& symbol = std::get<PictureSymbols>(picture.items[text - 1]);
    EXPECT_EQ(sample.style.pattern, LinePattern::Dashed);
    EXPECT_DOUBLE_EQ(sample.points[0].x, entry.sample_left);
    EXPECT_DOUBLE_EQ(symbol.places.at(0).x, entry.sample_left + chart::Sheet2D::kSampleWidth / 2);
    EXPECT_DOUBLE_EQ(std::get<PictureText>(picture.items[text]).centre.y, entry.y);
}

}  // namespace
