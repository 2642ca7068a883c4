#include "diagrams/diagram_sheet.h"

#include "diagrams/curve.h"
#include "diagrams/sheet_readout.h"
#include "diagrams/sheet_support.h"

using namespace quor;

namespace {

using Module9::store_curve;

class DiagramSheet : public Sheet {
  protected:
    DiagramSheet() {
        open(1);
        sheet.request.xMax = 1e9F;
    }
};

TEST_F(DiagramSheet, OpensWithTheWindowAndTheTextsOfTheRequest) {
    open(1);
    EXPECT_EQ(sheet.CurveCount, 0);
    EXPECT_EQ(sheet.chart.header.text, "Isothermal section p - v");
    EXPECT_EQ(sheet.chart.x.title, "v / (m^3/kmol)");
    EXPECT_EQ(sheet.chart.y.title, "p / kPa");
    EXPECT_DOUBLE_EQ(sheet.chart.x.max, static_cast<double>(legacy::the_coordinates.vMax));
    EXPECT_DOUBLE_EQ(sheet.chart.y.max, static_cast<double>(legacy::the_coordinates.pMax));
    EXPECT_FALSE(sheet.chart.x.automatic);
}

TEST_F(DiagramSheet, BreaksALongTitleAtBlanks) {
    EXPECT_EQ(Module9::wrap_title("short", 50), "short");
    EXPECT_EQ(Module9::wrap_title("two words", 5), "two\nwords");
    EXPECT_EQ(Module9::wrap_title("alongword", 5), "alongword");
    std::string longTitle;
    for (int i = 0; i < 30; ++i) longTitle += "word ";
    longTitle += "end";
    const std::string wrapped = Module9::wrap_title(longTitle, 50);
    EXPECT_NE(wrapped.find('\n'), std::string::npos);
    std::string joined = wrapped;
    for (char& c : joined)
        if (c == '\n') c = ' ';
    EXPECT_EQ(joined, longTitle);
}

TEST_F(DiagramSheet, SaysOnWhichReferenceStateCaloricValuesRest) {
    EXPECT_EQ(Module9::reference_note(1), "");
    EXPECT_EQ(Module9::reference_note(19), "");
    legacy::the_reference.T0 = 273.15F;
    legacy::the_reference.p0 = 0;  // not yet set
    EXPECT_EQ(Module9::reference_note(15), "reference state: 273.15 K, 101.325 kPa");
    legacy::the_reference.RefMode = 2;
    EXPECT_EQ(Module9::reference_note(16), "conventional reference state");
    legacy::the_reference.RefMode = 10;
    legacy::the_reference.Tenv = 290;
    EXPECT_EQ(Module9::reference_note(21),
              "reference state: quantities of formation; surroundings: 290 K, 101.325 kPa");
    EXPECT_EQ(Module9::reference_note(18), "surroundings: 290 K, 101.325 kPa");
    open(15);
    EXPECT_NE(sheet.chart.footer.text.find("\nreference state: "), std::string::npos);
}

TEST_F(DiagramSheet, RefusesTheTwentyFifthCurve) {
    for (int i = 0; i < 24; ++i) EXPECT_EQ(store_curve(sheet, line(3)), i);
    const chart::Chart2D before = sheet.chart;
    EXPECT_EQ(store_curve(sheet, line(5)), -1);
    EXPECT_EQ(user.lastText(), "Maximum 24 curves possible\nDelete existing curves");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(sheet.CurveCount, 24);
    EXPECT_TRUE(sheet.chart == before);
}

TEST_F(DiagramSheet, GivesADeletedSlotToTheNextCurve) {
    for (int i = 0; i < 5; ++i) store_curve(sheet, line(3));
    Module9::delete_curve(sheet, 3);
    EXPECT_EQ(sheet.CurveCount, 4);
    EXPECT_TRUE(sheet.CurveFree[2]);
    EXPECT_EQ(store_curve(sheet, line(7)), 2);
    EXPECT_EQ(curve(2).x.size(), 7U);
    EXPECT_EQ(store_curve(sheet, line(3)), 5);
}

TEST_F(DiagramSheet, KeepsTheStyleOfASlot) {
    store_curve(sheet, line(3));
    sheet.chart.curves[0].line.width = 4;
    Module9::delete_curve(sheet, 1);
    store_curve(sheet, line(3));
    EXPECT_EQ(curve(0).line.width, 4);
}

TEST_F(DiagramSheet, CountsOffThePointsBeyondTheWindow) {
    sheet.request.xMax = 6.5F;
    store_curve(sheet, line(10, 300, diagrams::kMarkT));
    // The line still reaches the edge of the window.
    EXPECT_EQ(curve(0).x, (std::vector<float>{1, 2, 3, 4, 5, 6, 6.5F}));
    EXPECT_EQ(curve(0).y.back(), 13);
    EXPECT_EQ(sheet.CurveParameters[0][7], 300);
    EXPECT_EQ(sheet.CurveParameters[0][8], 0);
    // A curve that lies outside altogether stays whole, so that a larger window shows it.
    sheet.request.xMax = 0.5F;
    store_curve(sheet, line(10));
    EXPECT_EQ(curve(1).x.size(), 10U);
}

TEST_F(DiagramSheet, KeepsTheParameterOfTwelveHundredPoints) {
    store_curve(sheet, line(1500, 300, diagrams::kMarkT));
    EXPECT_EQ(curve(0).x.size(), 1500U);
    EXPECT_EQ(sheet.CurveParameters[0][1], 300);
    EXPECT_EQ(sheet.CurveParameters[0][1200], 300);
    EXPECT_EQ(Module9::readout(sheet, {chart::Group::Curves, 0, 1199, 0}),
              " X= 1200 Y= 2400  T/K = 300");
    EXPECT_EQ(Module9::readout(sheet, {chart::Group::Curves, 0, 1200, 0}), " X= 1201 Y= 2402");
}

TEST_F(DiagramSheet, ReadsOutTheParameterByItsMark) {
    store_curve(sheet, line(2, 101.5F, diagrams::kMarkP));
    store_curve(sheet, line(2, 0.25F, diagrams::kMarkV));
    store_curve(sheet, line(2, 5, diagrams::kMarkNone));
    EXPECT_EQ(Module9::readout(sheet, {chart::Group::Curves, 0, 0, 0}), " X= 1 Y= 2 p/kPa= 101.5");
    EXPECT_EQ(Module9::readout(sheet, {chart::Group::Curves, 1, 1, 0}), " X= 2 Y= 4  v = 0.25");
    EXPECT_EQ(Module9::readout(sheet, {chart::Group::Curves, 2, 1, 0}), " X= 2 Y= 4");
    Module9::store_point_set(sheet, {3}, {4}, "set");
    EXPECT_EQ(Module9::readout(sheet, {chart::Group::Points, 0, 0, 0}), "X = 3  Y = 4");
    EXPECT_EQ(Module9::readout(sheet, {chart::Group::Points, 3, 0, 0}), "");
}

TEST_F(DiagramSheet, RefusesTheThirteenthSetOfPoints) {
    for (int i = 0; i < 12; ++i) EXPECT_EQ(Module9::store_point_set(sheet, {1}, {1}, "s"), i);
    EXPECT_EQ(Module9::store_point_set(sheet, {1}, {1}, "s"), -1);
    EXPECT_EQ(user.lastText(),
              "Maximum 12 sets of experimental points possible\n"
              "Delete the experimental points if exist");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(sheet.PointSetCount, 12);
}

TEST_F(DiagramSheet, TakesBackTheLastAddedCurve) {
    store_curve(sheet, line(3));
    store_curve(sheet, line(4, 300, diagrams::kMarkT));
    ASSERT_TRUE(Module9::Undo(sheet));
    EXPECT_EQ(sheet.CurveCount, 1);
    EXPECT_TRUE(sheet.CurveFree[1]);
    EXPECT_TRUE(curve(1).x.empty());
    ASSERT_TRUE(Module9::Undo(sheet));
    EXPECT_EQ(sheet.CurveCount, 0);
    EXPECT_FALSE(Module9::Undo(sheet));
}

TEST_F(DiagramSheet, BringsBackDeletedCurvesWithAllTheirProperties) {
    for (int i = 0; i < 3; ++i) store_curve(sheet, line(3 + i, 300, diagrams::kMarkT));
    Module9::name_curve(sheet, 1, "middle", "m");
    sheet.chart.curves[1].line.width = 3;
    const chart::Series kept = curve(1);
    Module9::delete_curve(sheet, 0);
    EXPECT_EQ(sheet.CurveCount, 0);
    ASSERT_TRUE(Module9::Undo(sheet));
    EXPECT_EQ(sheet.CurveCount, 3);
    EXPECT_TRUE(curve(1) == kept);
    EXPECT_EQ(sheet.CurveLabels[1].text, "m");
    EXPECT_EQ(sheet.CurveParameters[1][4], 300);
    EXPECT_EQ(sheet.CurveMarks[1], diagrams::kMarkT);
}

TEST_F(DiagramSheet, BringsBackADeletedSetOfPoints) {
    Module9::store_point_set(sheet, {1, 2}, {3, 4}, "data");
    Module9::delete_point_set(sheet, 1);
    EXPECT_EQ(sheet.PointSetCount, 0);
    ASSERT_TRUE(Module9::Undo(sheet));
    EXPECT_EQ(sheet.PointSetCount, 1);
    EXPECT_EQ(sheet.chart.points[0].legend, "data");
    EXPECT_EQ(sheet.chart.points[0].y, (std::vector<float>{3, 4}));
}

TEST_F(DiagramSheet, UndoesAfterASwapIntoTheSwappedAxes) {
    store_curve(sheet, line(3));
    Module9::delete_curve(sheet, 1);
    Module9::change_xy(sheet);
    Module9::Undo(sheet);
    EXPECT_EQ(curve(0).x, (std::vector<float>{2, 4, 6}));
    EXPECT_EQ(curve(0).y, (std::vector<float>{1, 2, 3}));
}

TEST_F(DiagramSheet, DeletesEverything) {
    store_curve(sheet, line(3));
    Module9::store_point_set(sheet, {1}, {1}, "s");
    Module9::add_text(sheet, "note");
    sheet.chart.legend.shown = true;
    EXPECT_TRUE(Module9::has_anything(sheet));
    Module9::delete_total(sheet);
    EXPECT_FALSE(Module9::has_anything(sheet));
    EXPECT_FALSE(sheet.chart.legend.shown);
    EXPECT_EQ(sheet.CurveCount, 0);
    EXPECT_EQ(sheet.PointSetCount, 0);
}

TEST_F(DiagramSheet, DeletesASinglePointOnlyWhereSinglePointsAreShown) {
    store_curve(sheet, line(3, 300, diagrams::kMarkT));
    EXPECT_FALSE(Module9::delete_single_point(sheet, 0, 1));
    EXPECT_TRUE(user.messages.empty());
    sheet.chart.curves[0].line.pattern = chart::LinePattern::None;
    user.answers = {dialogs::Answer::No};
    EXPECT_FALSE(Module9::delete_single_point(sheet, 0, 1));
    EXPECT_EQ(user.lastText(), "point x =2,  y =4 Really delete?");
    EXPECT_EQ(user.lastTitle(), "Delete a Curve Point");
    EXPECT_EQ(curve(0).x.size(), 3U);
    user.answers = {dialogs::Answer::Yes};
    EXPECT_TRUE(Module9::delete_single_point(sheet, 0, 1));
    EXPECT_EQ(curve(0).x, (std::vector<float>{1, 3}));
    EXPECT_EQ(sheet.CurveParameters[0][2], 300);
    EXPECT_EQ(sheet.CurveParameters[0][3], 0);
    ASSERT_TRUE(Module9::Undo(sheet));
    EXPECT_EQ(curve(0).x.size(), 3U);
}

TEST_F(DiagramSheet, RefusesCrossedCoordinates) {
    const diagrams::DiagramRequest before = sheet.request;
    for (const chart::Window& bad :
         {chart::Window{{2, 1}, {0, 1}}, chart::Window{{0, 1}, {5, 5}},
          chart::Window{{0, std::nan("")}, {0, 1}}, chart::Window{{0, 1}, {0, 1e300}}}) {
        EXPECT_FALSE(Module9::set_coordinates(sheet, bad));
        EXPECT_EQ(user.lastText(), "Lower limit has to smaller than upper limit.");
        EXPECT_EQ(user.lastTitle(), "INPUT ERROR");
        EXPECT_EQ(sheet.request.xMin, before.xMin);
        EXPECT_EQ(sheet.request.yMax, before.yMax);
    }
    EXPECT_TRUE(Module9::set_coordinates(sheet, {{1, 2}, {3, 4}}));
    EXPECT_EQ(sheet.request.xMax, 2);
    EXPECT_EQ(sheet.chart.y.min, 3);
}

TEST_F(DiagramSheet, FitsItsCoordinatesToTheData) {
    EXPECT_FALSE(Module9::Fit(sheet));
    store_curve(sheet, line(10));
    ASSERT_TRUE(Module9::Fit(sheet));
    EXPECT_LE(sheet.request.xMin, 1);
    EXPECT_GE(sheet.request.xMax, 10);
    EXPECT_LT(sheet.request.xMax, 20);
    EXPECT_GE(sheet.request.yMax, 20);
    Module9::default_coordinates(sheet);
    EXPECT_EQ(sheet.request.yMax, sheet.request.yMaxDefault);
}

TEST_F(DiagramSheet, SwapsDataWindowAndTextsAndBack) {
    store_curve(sheet, line(3));
    const chart::Chart2D chartBefore = sheet.chart;
    const diagrams::DiagramRequest before = sheet.request;
    Module9::change_xy(sheet);
    EXPECT_TRUE(sheet.SwappedAxes);
    EXPECT_EQ(curve(0).x, (std::vector<float>{2, 4, 6}));
    EXPECT_EQ(sheet.request.xMin, before.yMin);
    EXPECT_EQ(sheet.request.xMaxDefault, before.yMaxDefault);
    EXPECT_EQ(sheet.chart.x.title, "p / kPa");
    EXPECT_EQ(sheet.request.yLabel, before.xLabel);
    Module9::change_xy(sheet);
    EXPECT_FALSE(sheet.SwappedAxes);
    EXPECT_TRUE(sheet.chart == chartBefore);
}

TEST_F(DiagramSheet, TakesSpacingsAndDigitsOnlyByTheValues) {
    Module9::set_scaling(sheet, 1, {5, 6, 7, 8, 2, 3});
    EXPECT_TRUE(sheet.manualScaling);
    EXPECT_EQ(sheet.chart.x.tickSpacing, 5);
    EXPECT_EQ(sheet.chart.y.gridSpacing, 8);
    EXPECT_EQ(sheet.chart.y.decimals, 3);
    Module9::set_scaling(sheet, 0, {5, 6, 7, 8, 2, 3});
    EXPECT_EQ(sheet.chart.x.tickSpacing, 0);
    EXPECT_EQ(sheet.chart.x.decimals, -1);
    Module9::set_scaling(sheet, 1, {-5, std::nan(""), 7, 8, -3, 99});
    EXPECT_EQ(sheet.chart.x.tickSpacing, 0);
    EXPECT_EQ(sheet.chart.y.tickSpacing, 0);
    EXPECT_EQ(sheet.chart.x.decimals, -1);
    EXPECT_EQ(sheet.chart.y.decimals, 15);
}

TEST_F(DiagramSheet, PlacesLabelsBesideTheirCurves) {
    const chart::MeasureText measure = [](const std::string& text, const chart::Font& font) {
        return chart::TextSize{static_cast<double>(text.size() * 6),
                               static_cast<double>(font.size)};
    };
    Module9::set_coordinates(sheet, {{0, 12}, {0, 24}});
    store_curve(sheet, line(10));
    Module9::name_curve(sheet, 0, "legend", "300 K");
    Module9::place_labels(sheet, 800, 600, measure);
    ASSERT_EQ(sheet.chart.labels.size(), 1U);
    EXPECT_EQ(sheet.chart.labels[0].text, "300 K");
    EXPECT_TRUE(sheet.chart.labels[0].onPoint);
    EXPECT_TRUE(Module9::has_curve_labels(sheet));
    // The shift leads along the curve.
    sheet.CurveLabels[0].shift = 0.05;
    Module9::place_labels(sheet, 800, 600, measure);
    const int low = sheet.chart.labels[0].point;
    sheet.CurveLabels[0].shift = 0.95;
    Module9::place_labels(sheet, 800, 600, measure);
    EXPECT_LT(low, sheet.chart.labels[0].point);
    Module9::delete_curve_labels(sheet);
    Module9::place_labels(sheet, 800, 600, measure);
    EXPECT_TRUE(sheet.chart.labels.empty());
}

TEST_F(DiagramSheet, SaysWhereLegendTextsAreGiven) {
    EXPECT_EQ(Module9::add_legend(sheet), Module9::LegendAnswer::DesignCurve);
    EXPECT_EQ(user.lastText(), "No legend texts given\n=> Designing curve");
    Module9::store_point_set(sheet, {1}, {1}, "");
    EXPECT_EQ(Module9::add_legend(sheet), Module9::LegendAnswer::DesignPoints);
    EXPECT_EQ(user.lastText(), "No legend texts given\n=> Designing exper. points");
    EXPECT_FALSE(sheet.chart.legend.shown);
    sheet.chart.points[0].legend = "p";
    EXPECT_EQ(Module9::add_legend(sheet), Module9::LegendAnswer::Shown);
    EXPECT_TRUE(sheet.chart.legend.shown);
}

}  // namespace
