#include "chart/chart_file.h"
#include "common/whole_file.h"

#include <filesystem>
#include <fstream>
#include <limits>
#include <random>

#include "chart/chart_samples.h"

using namespace quor;

namespace {

using chart::Chart2D;
using chart::Chart3D;
using chart::Group;

/// A chart in which no field has its default.
Chart2D filledChart() {
    Chart2D c;
    chart::Series s = samples::curveOf([](double x) { return 0.1 * x; }, 0.1, 7, 20);
    s.legend = "T = 300 K, \"Größe\" \\ end";
    s.in_legend = false;
    s.visible = false;
    s.is_reference = true;
    s.line = {chart::LinePattern::DashDotted, {1, 2, 3, 4}, 2.5F};
    s.symbol = chart::SymbolShape::Triangle4;
    s.symbol_size = 9;
    s.symbol_colour = {9, 8, 7, 6};
    s.label = {"beside it", false, 0.75};
    s.x[3] = chart::kHole;
    c.curves = {s, chart::default_curve(1)};
    c.points = {chart::default_point_set(3)};
    c.x = {-1,           5,         true,
           true,         0.5,       false,
           0.25,         0.125,     3,
           false,        "x title", {"Serif", 14, true, true},
           {1, 1, 1, 1}, 90,        {"Mono", 8, true, true},
           {2, 2, 2, 2}, false,     {chart::LinePattern::Dotted, {3, 3, 3, 3}, 3}};
    c.y.title = "y title";
    c.y2.shown = true;
    c.header = {"header", {"Serif", 20, false, true}, {5, 5, 5, 5}, false, {0.25, 0.75}};
    c.footer.text = "footer";
    c.legend = {true,         chart::LegendAnchor::Free, {0.1, 0.2},
                false,        {"Serif", 7, true, false}, {1, 2, 1, 2},
                {3, 4, 3, 4}, {false, {5, 6, 5, 6}, 2}};
    c.labels_shown = false;
    c.labels = {{7,
                 true,
                 Group::Points,
                 3,
                 4,
                 1.5,
                 2.5,
                 "critical",
                 {"Serif", 11, true, true},
                 {1, 2, 3, 4},
                 {4, 3, 2, 1},
                 {true, {7, 7, 7, 7}, 3},
                 12,
                 -13,
                 45,
                 true,
                 false}};
    c.plot_area = {false,
                   0.2,
                   0.3,
                   0.4,
                   0.5,
                   {1, 1, 2, 2},
                   {2, 2, 1, 1},
                   {false, {1, 3, 1, 3}, 4},
                   {true, {3, 1, 3, 1}, 5}};
    c.print = {1, 2, 3, 4};
    c.swapped = true;
    return c;
}

Chart3D filledSurface() {
    Chart3D c = samples::surfaceOf(samples::bumps, samples::twoHoles, 9, 7);
    c.surface.z_behind_holes.assign(c.surface.z.size(), 2.5F);
    c.x = {-3, 4, false, "x", 2, false, false, false};
    c.z.automatic = false;
    c.view = {-33, 111, false, 2.5};
    c.mesh = {false, true, true, true, {1, 2, 3, 4}, 3};
    c.style = {false, false, true, true, true,         true,
               true,  true,  true, true, {1, 2, 3, 4}, {4, 3, 2, 1}};
    c.sections = {17, {chart::LinePattern::Dashed, {1, 1, 1, 1}, 4}};
    c.markers = {{1, 2, 3, "CrP", {1, 1, 1, 1}, 12, false}};
    c.header.text = "header";
    c.footer.text = "footer";
    c.title_font = {"Serif", 15, true, true};
    c.number_font.size = 6;
    c.scale_shown = false;
    c.height_ratio = 1.5;
    c.sheet = {1, 2, 3, 4};
    c.planes = {5, 6, 7, 8};
    c.grid.pattern = chart::LinePattern::Dotted;
    c.print.left = 7;
    return c;
}

class ChartFile : public testing::Test {
  protected:
    ChartFile() {
        folder_ = std::filesystem::temp_directory_path() /
                  ("quor-chart-" + std::to_string(std::random_device()()));
        std::filesystem::create_directory(folder_);
    }
    ~ChartFile() override { std::filesystem::remove_all(folder_); }

    std::filesystem::path file(const char* name) const { return folder_ / name; }
    static void write(const std::filesystem::path& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }

    std::filesystem::path folder_;
};

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

template <class Chart>
void expectRefused(const std::string& text, const std::string& reason, const Chart& present) {
    Chart c = present;
    const Result<void> outcome = chart::from_text(text, c);
    EXPECT_FALSE(outcome) << reason;
    EXPECT_NE(outcome.reason().find(reason), std::string::npos) << outcome.reason();
    EXPECT_EQ(c, present) << "the chart has changed";
}

TEST_F(ChartFile, EveryFieldOfA2DChartSurvives) {
    const Chart2D before = filledChart();
    ASSERT_TRUE(files::write_whole(file("a.oc2"), to_text(before)));
    Chart2D after;
    const auto outcome = load_chart(file("a.oc2"), after);
    EXPECT_TRUE(outcome) << outcome.reason();
    EXPECT_EQ(after, before);
}

TEST_F(ChartFile, EveryFieldOfA3DChartSurvives) {
    const Chart3D before = filledSurface();
    ASSERT_TRUE(files::write_whole(file("a.oc3"), to_text(before)));
    Chart3D after;
    const auto outcome = load_chart(file("a.oc3"), after);
    EXPECT_TRUE(outcome) << outcome.reason();
    EXPECT_EQ(after, before);
}

TEST_F(ChartFile, FloatsSurviveToTheLastBit) {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> exponent(-37, 29), mantissa(-1, 1);
    Chart2D before;
    chart::Series& s = chart::series_at(before, Group::Curves, 0);
    for (int i = 0; i < 20000; ++i) {
        s.x.push_back(mantissa(random) * std::pow(10.0F, exponent(random)));
        s.y.push_back(static_cast<float>(i) / 7);
    }
    Chart2D after;
    ASSERT_TRUE(chart::from_text(chart::to_text(before), after));
    EXPECT_EQ(after.curves[0].x, s.x);
    EXPECT_EQ(after.curves[0].y, s.y);
}

TEST_F(ChartFile, ValuesThatAreNoNumbersBecomeHoles) {
    Chart2D before;
    chart::Series& s = chart::series_at(before, Group::Curves, 0);
    s.x = {1, std::numeric_limits<float>::infinity(), 3};
    s.y = {std::numeric_limits<float>::quiet_NaN(), 2, 3};
    Chart2D after;
    ASSERT_TRUE(chart::from_text(chart::to_text(before), after));
    EXPECT_EQ(after.curves[0].x, (std::vector<float>{1, chart::kHole, 3}));
    EXPECT_EQ(after.curves[0].y, (std::vector<float>{chart::kHole, 2, 3}));
}

TEST_F(ChartFile, ThirtySeriesAndDeletedCurvesAreKept) {
    Chart2D before;
    chart::series_at(before, Group::Curves, 29).x = {1, 2};
    before.curves[29].y = {3, 4};
    Chart2D after;
    ASSERT_TRUE(chart::from_text(chart::to_text(before), after));
    ASSERT_EQ(after.curves.size(), 30U);
    EXPECT_TRUE(after.curves[4].x.empty());
    EXPECT_EQ(after.curves[29].y[1], 4);
}

TEST_F(ChartFile, OtherFilesAreRefusedByName) {
    const Chart2D present = filledChart();
    expectRefused("", "damaged or incomplete", present);
    expectRefused("QUOR", "damaged or incomplete", present);
    expectRefused("[1, 2]", "no saved diagram", present);
    expectRefused("{\"a\": 1}", "no saved diagram", present);
    expectRefused(chart::to_text(filledSurface()), "another kind of diagram", present);
    expectRefused(chart::to_text(present), "another kind of diagram", filledSurface());
}

TEST_F(ChartFile, ANewerMainVersionIsRefusedWithItsNumber) {
    const Chart2D present = filledChart();
    const std::string text = chart::to_text(present);
    expectRefused(replaced(text, "\"major\": 1", "\"major\": 2"), "newer version", present);
    expectRefused(replaced(text, "\"major\": 1", "\"major\": 2"), "2.0", present);
    expectRefused(replaced(text, "\"major\": 1", "\"major\": -3"), "names no version", present);
    expectRefused(replaced(text, "\"version\"", "\"verzion\""), "names no version", present);
}

TEST_F(ChartFile, ANewerMinorVersionMayBringUnknownFields) {
    const Chart2D before = filledChart();
    std::string text = replaced(chart::to_text(before), "\"minor\": 0", "\"minor\": 9");
    text = replaced(text, "\"labelsShown\"", "\"glow\": {\"a\": [1]}, \"labelsShown\"");
    text = replaced(text, "\"Triangle 4\"", "\"Hexagon\"");
    Chart2D after;
    const auto outcome = chart::from_text(text, after);
    ASSERT_TRUE(outcome) << outcome.reason();
    Chart2D expected = before;
    expected.curves[0].symbol = chart::Series().symbol;
    EXPECT_EQ(after, expected);
}

TEST_F(ChartFile, MissingFieldsKeepTheirDefaults) {
    Chart2D c = filledChart();
    const auto outcome = chart::from_text(
        R"({"format": "QUOR-6 2D diagram", "version": {"major": 1, "minor": 0}, "chart": {}})", c);
    EXPECT_TRUE(outcome) << outcome.reason();
    EXPECT_EQ(c, Chart2D());
}

TEST_F(ChartFile, FieldsOfAWrongKindAreNamed) {
    const Chart2D present = filledChart();
    const std::string text = chart::to_text(present);
    expectRefused(replaced(text, "\"labelsShown\": false", "\"labelsShown\": 3"),
                  "\"labelsShown\" is not true or false", present);
    expectRefused(replaced(text, "\"symbolSize\": 9.0", "\"symbolSize\": \"big\""),
                  "\"curves 1, symbolSize\" is not a number", present);
    expectRefused(replaced(text, "\"title\": \"x title\"", "\"title\": null"),
                  "\"x, title\" is not a text", present);
    expectRefused(replaced(text, "\"decimals\": 3", "\"decimals\": 3.5"), "a whole number",
                  present);
    expectRefused(replaced(text, "\"min\": -1.0", "\"min\": 1e999"), "", present);
}

TEST_F(ChartFile, SeriesOfUnequalLengthAreRefused) {
    const Chart2D present;
    expectRefused(
        R"({"format": "QUOR-6 2D diagram", "version": {"major": 1, "minor": 0},
            "chart": {"curves": [{"x": [1, 2], "y": [1]}]}})",
        "not as many x as y", present);
}

TEST_F(ChartFile, GridsWithoutTheirValuesAreRefused) {
    const Chart3D present = filledSurface();
    const auto with = [](const std::string& surface) {
        return R"({"format": "QUOR-6 3D diagram", "version": {"major": 1, "minor": 0},
                   "chart": {"surface": )" +
               surface + "}}";
    };
    expectRefused(with(R"({"nx": 2, "ny": 2, "z": [1, 2, 3]})"), "as many values as nodes",
                  present);
    expectRefused(with(R"({"nx": -2, "ny": -2, "z": [1, 2, 3, 4]})"), "no size", present);
    expectRefused(with(R"({"nx": 100000, "ny": 100000, "z": []})"), "no size", present);
    expectRefused(with(R"({"nx": 2, "ny": 2, "dx": 0, "z": [1, 2, 3, 4]})"), "steps", present);
}

/// A file of a 2D chart with this content.
std::string fileOf(const std::string& content) {
    return R"({"format": "QUOR-6 2D diagram", "version": {"major": 1, "minor": 0}, "chart": {)" +
           content + "}}";
}

TEST_F(ChartFile, NumbersBeyondTheirRangeAreNamedWithIt) {
    const Chart2D present = filledChart();
    expectRefused(fileOf(R"("header": {"font": {"size": 1e9}})"),
                  "\"header, font, size\" is not a number from 1 to 200", present);
    expectRefused(fileOf(R"("print": {"width": -5})"),
                  "\"print, width\" is not a number from 1 to 200", present);
    expectRefused(fileOf(R"("curves": [{"symbolSize": 1e30}])"),
                  "\"curves 1, symbolSize\" is not a number from 0 to 200", present);
    expectRefused(fileOf(R"("x": {"decimals": 16})"),
                  "\"x, decimals\" is not a number from -1 to 15", present);
    expectRefused(fileOf(R"("y": {"tickSpacing": -1})"), "\"y, tickSpacing\" is not a number",
                  present);
    expectRefused(fileOf(R"("y": {"max": 1e300})"), "\"y, max\" is not a number of a size",
                  present);
}

TEST_F(ChartFile, ASpacingThatTheLimitsDoNotTellApartIsNamed) {
    const Chart2D present = filledChart();
    expectRefused(fileOf(R"("x": {"min": 1e16, "max": 1.1e16, "tickSpacing": 1})"),
                  "\"x, tickSpacing\" is too small for the limits of its axis", present);
    expectRefused(fileOf(R"("y": {"min": 0, "max": 10, "gridSpacing": 1e-300})"),
                  "\"y, gridSpacing\" is too small", present);
    Chart2D c;
    EXPECT_TRUE(chart::from_text(fileOf(R"("x": {"min": 0, "max": 10, "tickSpacing": 0.5})"), c));
}

TEST_F(ChartFile, MoreTextsFontsAndMarkersThanAPaintingHasTimeForAreRefused) {
    const Chart2D present;
    Chart2D c;
    c.labels.resize(100);
    for (chart::Label& label : c.labels) label.text = std::string(1000, 'x');
    expectRefused(chart::to_text(c), "characters together", present);
    for (std::size_t i = 0; i < c.labels.size(); ++i) {
        c.labels[i].text = "x";
        c.labels[i].font.family = "Font " + std::to_string(i);
    }
    expectRefused(chart::to_text(c), "different fonts", present);
    Chart3D surface = filledSurface();
    surface.markers.resize(21);
    expectRefused(chart::to_text(surface), "more than 20 markers", Chart3D());
}

TEST_F(ChartFile, WhatIsSetBeyondARangeIsSavedAtItsEnd) {
    Chart2D c;
    c.print.width = 1e9;
    c.header.font.size = std::numeric_limits<float>::quiet_NaN();
    c.x.max = 1e300;
    Chart2D read;
    ASSERT_TRUE(chart::from_text(chart::to_text(c), read));
    EXPECT_DOUBLE_EQ(read.print.width, 200);
    EXPECT_FLOAT_EQ(read.header.font.size, 1);
    EXPECT_DOUBLE_EQ(read.x.max, 3.4e38);
}

TEST_F(ChartFile, AChartThatCouldNotBeReadAgainIsNotSaved) {
    Chart2D c;
    c.header.text = std::string(5000, 'x');
    const auto saved = chart::file_text(c);
    EXPECT_TRUE(saved.reason().starts_with("The diagram cannot be saved as a file."))
        << saved.reason();
}

TEST_F(ChartFile, ASheetOfVeryManyPointsIsSavedAndRead) {
    // A line of the file for each number would make it larger than a file may be.
    Chart2D c;
    c.curves.resize(1);
    for (int i = 0; i < 750000; ++i) {
        c.curves[0].x.push_back(-1.234567e-20F * static_cast<float>(i + 1));
        c.curves[0].y.push_back(-1.234567e-10F - static_cast<float>(i) * 1e-15F);
    }
    ASSERT_TRUE(files::write_whole(file("many.oc2"), chart::file_text(c).value()));
    Chart2D read;
    const auto outcome = load_chart(file("many.oc2"), read);
    EXPECT_TRUE(outcome) << outcome.reason();
    EXPECT_TRUE(read == c);
}

TEST_F(ChartFile, EveryTruncatedFileIsRefused) {
    const Chart2D present;
    const std::string text = chart::to_text(filledChart());
    for (std::size_t length = 0; length + 2 < text.size(); length += 37) {
        Chart2D c = present;
        EXPECT_FALSE(chart::from_text(text.substr(0, length), c)) << length;
        EXPECT_EQ(c, present);
    }
}

TEST_F(ChartFile, MutatedFilesNeverChangeTheChartHalfWay) {
    std::mt19937 random(99);
    const Chart2D present = filledChart();
    const std::string text = chart::to_text(present);
    const std::string surface = chart::to_text(filledSurface());
    for (int trial = 0; trial < 3000; ++trial) {
        std::string mutated = trial % 2 == 0 ? text : surface;
        for (unsigned k = 0; k <= random() % 4; ++k)
            mutated[random() % mutated.size()] = static_cast<char>(random() % 256);
        Chart2D c = present;
        if (const auto outcome = chart::from_text(mutated, c); !outcome) {
            EXPECT_EQ(c, present);
            EXPECT_FALSE(outcome.reason().empty());
        }
        Chart3D d;
        const bool read = static_cast<bool>(chart::from_text(mutated, d));
        EXPECT_TRUE(read || d == Chart3D());
    }
}

TEST_F(ChartFile, DeepAndHugeFilesAreRefused) {
    const Chart2D present;
    expectRefused(std::string(1000000, '['), "no saved diagram", present);
    // Its lists would take a gigabyte.
    std::string lists = "{\"unknown\":[[]";
    for (int i = 0; i < 5000000; ++i) lists += ",[]";
    expectRefused(lists + "]}", "no saved diagram", present);
    expectRefused(std::string(40U << 20U, ' '), "too large", present);
    Chart2D many;
    many.labels.resize(4001);
    expectRefused(chart::to_text(many), "a length that a chart holds", present);
}

TEST_F(ChartFile, FilesThatCannotBeUsedAreNamed) {
    Chart2D c = filledChart();
    const Chart2D before = c;
    const auto missing = load_chart(file("none.oc2"), c);
    EXPECT_EQ(missing.reason(), "none.oc2: The file cannot be opened.");
    EXPECT_EQ(c, before);
    write(file("bad.oc2"), "{");
    EXPECT_EQ(load_chart(file("bad.oc2"), c).reason(),
              "bad.oc2: The file is damaged or incomplete, or no saved diagram.");
}

}  // namespace
