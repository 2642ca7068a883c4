#include <cmath>

#include "common/numbers.h"
#include "datafiles/xy_file.h"
#include "datafiles/xy_points.h"

using namespace quor;

namespace {

using datafiles::FitPoint;
using datafiles::read_xy_text;
using datafiles::XyManipulation;

void expect_point(const FitPoint& p, float x, float y) {
    EXPECT_EQ(p.x, x);
    EXPECT_EQ(p.y, y);
    EXPECT_EQ(p.mark, 0.0F);
}

void expect_inactive(const FitPoint& p, float x, float y) {
    EXPECT_EQ(p.x, x);
    EXPECT_EQ(p.y, y);
    EXPECT_FALSE(datafiles::is_active(p));
}

TEST(XYText, ADecimalCommaReadsBesideASemicolon) {
    const auto file = read_xy_text("K\xE4lte\r\n1,5;2,25\r\n.3000000E+03;.1000000E-02\r\n", ';');
    EXPECT_EQ(file.data.comment, "Kälte");
    ASSERT_EQ(file.data.points.size(), 2U);
    expect_point(file.data.points[0], 1.5F, 2.25F);
    expect_point(file.data.points[1], 300.0F, 0.001F);
}

TEST(XYText, WithACommaTheLineSplitsAtTheFirstOne) {
    const auto file = read_xy_text("c\n1.5,2.25,7\n1,5,2\n", ',');
    expect_point(file.data.points[0], 1.5F, 2.25F);
    expect_point(file.data.points[1], 1.0F, 5.0F);
}

TEST(XYText, FurtherFieldsAreIgnored) {
    const auto file = read_xy_text("c\n1;2;3;4\n5;6;\n", ';');
    expect_point(file.data.points[0], 1.0F, 2.0F);
    expect_point(file.data.points[1], 5.0F, 6.0F);
}

TEST(XYText, ALineWithoutTheDelimiterIsSplitAtAnother) {
    const auto file = read_xy_text("c\n1,5;2\n1,5\t3\n  1.5   4  \n7\n\t8\n", '|');
    ASSERT_EQ(file.data.points.size(), 5U);
    expect_point(file.data.points[0], 1.5F, 2.0F);
    expect_point(file.data.points[1], 1.5F, 3.0F);
    expect_point(file.data.points[2], 1.5F, 4.0F);
    expect_inactive(file.data.points[3], 7.0F, 0.0F);
    expect_inactive(file.data.points[4], 0.0F, 8.0F);
}

TEST(XYText, ALineWithoutTwoNumbersIsNoActivePointAtZero) {
    const auto file = read_xy_text(
        "c\n1;2\nabc;1\n3;\n;4\n5;inf\n1e99;6\n7;1e-60\n1.000,5;8\n3 000;9\n300,10\n10;11\n", ';');
    ASSERT_EQ(file.data.points.size(), 11U);
    EXPECT_EQ(file.wrong, (std::vector<std::size_t>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    for (const std::size_t i : file.wrong) EXPECT_FALSE(datafiles::is_active(file.data.points[i]));
    expect_point(file.data.points[0], 1.0F, 2.0F);
    expect_point(file.data.points[10], 10.0F, 11.0F);
    expect_inactive(file.data.points[4], 5.0F, 0.0F);
}

TEST(XYText, EmptyLinesGiveNoPoints) {
    const auto file = read_xy_text("c\n\n1;2\n   \n3;4\n\n", ';');
    ASSERT_EQ(file.data.points.size(), 2U);
    expect_point(file.data.points[1], 3.0F, 4.0F);
    EXPECT_TRUE(file.wrong.empty());
    EXPECT_TRUE(read_xy_text("", ';').data.points.empty());
    EXPECT_EQ(read_xy_text("only a comment", ';').data.comment, "only a comment");
}

TEST(XYText, ValuesAreWrittenWithSevenDecimalsAndAPoint) {
    const std::vector<FitPoint> points{
        {1.0F, -2.5F, 0}, {0.0F, 1234567.0F, 0}, {9.99999999F, 1e-37F, 0}, {5, 5, -1}};
    for (const char mark : {'.', ','}) {
        numbers::set_decimal_mark(mark);
        EXPECT_EQ(datafiles::xy_text("comment", points, ';'),
                  "comment\r\n"
                  ".1000000E+01;-.2500000E+01\r\n"
                  ".0000000E+00;.1234567E+07\r\n"
                  ".1000000E+02;.1000000E-36\r\n");
    }
    numbers::set_decimal_mark('.');
    EXPECT_EQ(datafiles::xy_text("", std::vector<FitPoint>{{1, 2, 0}}, '\t'),
              "\r\n.1000000E+01\t.2000000E+01\r\n");
}

TEST(XYText, PointsSurviveARoundTripWithEveryDelimiter) {
    std::vector<FitPoint> points;
    for (int i = -40; i < 40; ++i)
        points.push_back({static_cast<float>(std::exp2(i)), static_cast<float>(-i), 0});
    for (const char delimiter : {';', ',', '\t'}) {
        const auto file = read_xy_text(datafiles::xy_text("c", points, delimiter), delimiter);
        ASSERT_EQ(file.data.points.size(), points.size());
        for (std::size_t i = 0; i < points.size(); ++i) {
            EXPECT_NEAR(file.data.points[i].x / points[i].x, 1.0, 1e-6);
            EXPECT_EQ(file.data.points[i].y, points[i].y);
        }
    }
}

TEST(XYPoints, ManipulationsChangeActiveAndInactivePoints) {
    const auto after = [](XyManipulation what, double W = 0) {
        std::vector<FitPoint> points{{0.25F, 2.0F, 0}, {0.5F, 4.0F, -1}};
        points = datafiles::manipulated_xy(points, what, W).value();
        EXPECT_EQ(points[1].mark, -1.0F);
        return points;
    };
    EXPECT_EQ(after(XyManipulation::OneMinusX)[0].x, 0.75F);
    EXPECT_EQ(after(XyManipulation::OneMinusX)[1].x, 0.5F);
    EXPECT_EQ(after(XyManipulation::InverseY)[1].y, 0.25F);
    EXPECT_EQ(after(XyManipulation::AddToY, -1.5)[0].y, 0.5F);
    EXPECT_EQ(after(XyManipulation::MultiplyY, 10)[1].y, 40.0F);
    EXPECT_FLOAT_EQ(after(XyManipulation::LogarithmY)[0].y, static_cast<float>(std::log(2.0)));
    EXPECT_FLOAT_EQ(after(XyManipulation::ExponentialY)[1].y, static_cast<float>(std::exp(4.0)));
    EXPECT_EQ(after(XyManipulation::ExponentialY)[1].x, 0.5F);
}

TEST(XYPoints, AValueThatDoesNotExistLeavesTheWholeList) {
    for (const auto& [what, y] :
         {std::pair{XyManipulation::LogarithmY, 0.0F}, std::pair{XyManipulation::LogarithmY, -1.0F},
          std::pair{XyManipulation::InverseY, 0.0F},
          std::pair{XyManipulation::ExponentialY, 1000.0F}}) {
        const std::vector<FitPoint> points{{1, 2, 0}, {3, y, 0}};
        const auto refused = datafiles::manipulated_xy(points, what, 0);
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.reason().find("Line 2 (x = 3, y = "), 0U);
        EXPECT_EQ(points[0].y, 2.0F);
        EXPECT_EQ(points[1].y, y);
    }
    std::vector<FitPoint> points{{1, 1e38F, 0}};
    EXPECT_EQ(datafiles::manipulated_xy(points, XyManipulation::MultiplyY, 10).reason(),
              "Line 1 (x = 1, y = 1E+38) has no such value; nothing was changed.");
}

TEST(XYPoints, ColumnsAreSwappedAndLinesSorted) {
    std::vector<FitPoint> points{{3, 1, -1}, {1, 2, 0}, {1, 0, 0}};
    datafiles::sort_by_x(points);
    EXPECT_EQ(points[0].y, 2.0F);
    EXPECT_EQ(points[1].y, 0.0F);
    EXPECT_EQ(points[2].mark, -1.0F);
    datafiles::sort_by_y(points);
    EXPECT_EQ(points[0].y, 0.0F);
    EXPECT_EQ(points[1].mark, -1.0F);
    datafiles::swap_xy(points);
    EXPECT_EQ(points[1].x, 1.0F);
    EXPECT_EQ(points[1].y, 3.0F);
}

TEST(XYPoints, LinesAreInsertedRemovedAndToggled) {
    std::vector<FitPoint> points{{1, 0, 0}, {2, 0, 0}, {3, 0, 0}};
    datafiles::insert_xy(points, 2, std::vector<FitPoint>{{10, 0, 0}});
    EXPECT_EQ(points[1].x, 10.0F);
    datafiles::insert_xy(points, 99, std::vector<FitPoint>{{11, 0, 0}});
    EXPECT_EQ(points[4].x, 11.0F);
    datafiles::toggle_xy(points, 5, 9);
    EXPECT_FALSE(datafiles::is_active(points[4]));
    datafiles::toggle_xy(points, 5, 5);
    EXPECT_TRUE(datafiles::is_active(points[4]));
    datafiles::remove_xy(points, 1, 3);
    ASSERT_EQ(points.size(), 2U);
    EXPECT_EQ(points[0].x, 3.0F);
    datafiles::remove_xy(points, 7, 9);
    datafiles::remove_xy(points, -7, 0);
    EXPECT_EQ(points.size(), 2U);
}

TEST(XYPoints, ClipboardTablesGoInAndOut) {
    const auto [points, wrong] =
        datafiles::xy_from_clipboard("x\ty\r\n1,5\t2\r\n\r\n3.5\r\n4\t5\t6\r\n");
    EXPECT_EQ(wrong, std::vector<std::size_t>{1});
    ASSERT_EQ(points.size(), 3U);
    expect_point(points[0], 1.5F, 2.0F);
    expect_inactive(points[1], 3.5F, 0.0F);
    expect_point(points[2], 4.0F, 5.0F);
    EXPECT_EQ(datafiles::xy_for_clipboard(points, 1, 2), "1.5\t2\r\n3.5\t0\r\n");
    numbers::set_decimal_mark(',');
    EXPECT_EQ(datafiles::xy_for_clipboard(points, 1, 1), "1,5\t2\r\n");
    EXPECT_EQ(datafiles::xy_list_text(points),
              "  #    x  y\n  1  1,5  2\n(2)  3,5  0\n  3    4  5\n");
    numbers::set_decimal_mark('.');
}

TEST(XYPoints, APastedThousandsSeparatorIsNotReadInHalf) {
    const auto [points, wrong] =
        datafiles::xy_from_clipboard("300\t1,234.5\n310\t1.000,5\n320\t3 000\n330\t1,5\n");
    ASSERT_EQ(points.size(), 4U);
    EXPECT_EQ(wrong, (std::vector<std::size_t>{0, 1, 2}));
    for (std::size_t i = 0; i < 3; ++i)
        expect_inactive(points[i], 300.0F + 10.0F * static_cast<float>(i), 0.0F);
    expect_point(points[3], 330.0F, 1.5F);
}

TEST(XYPoints, TheRangeIsThatOfTheActivePoints) {
    const datafiles::XyRange range =
        datafiles::range_of_active(std::vector<FitPoint>{{1, 5, 0}, {-3, 7, 0}, {99, 99, -1}});
    EXPECT_EQ(range.x_min, -3.0F);
    EXPECT_EQ(range.x_max, 1.0F);
    EXPECT_EQ(range.y_min, 5.0F);
    EXPECT_EQ(range.y_max, 7.0F);
    const datafiles::XyRange none = datafiles::range_of_active({});
    EXPECT_EQ(none.x_max, -1e37F);
    EXPECT_EQ(none.y_min, 1e37F);
}

TEST(XYPoints, AGraphHasTheActivePointsAndItsTexts) {
    const datafiles::XyGraph graph =
        datafiles::make_xy_graph(std::vector<FitPoint>{{1, 5, 0}, {9, 9, -1}, {2, 7, 0}}, false);
    EXPECT_EQ(graph.points.size(), 2U);
    EXPECT_EQ(graph.title, "Experimental points y(T)");
    EXPECT_EQ(graph.x_title, "T / K");
    EXPECT_EQ(graph.y_title, "y");
    EXPECT_EQ(graph.range.x_max, 2.0F);
    EXPECT_FALSE(graph.as_points);
}

TEST(XYPoints, ADrawingNeedsEnoughActivePoints) {
    const std::vector<FitPoint> none{{1, 1, -1}}, one{{1, 1, 0}, {2, 2, -1}},
        two{{1, 1, 0}, {2, 2, 0}};
    EXPECT_TRUE(datafiles::check_active_points(one, true));
    EXPECT_TRUE(datafiles::check_active_points(two, false));
    EXPECT_EQ(datafiles::check_active_points(none, true).reason(), "at least one active point!");
    EXPECT_EQ(datafiles::check_active_points(one, false).reason(), "at least two active points!");
    EXPECT_EQ(datafiles::active_points(one).size(), 1U);
}

}  // namespace
