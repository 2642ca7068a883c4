#include "diagrams/diagram_sheet.h"

#include "diagrams/sheet_delete.h"
#include "diagrams/sheet_labels.h"
#include "diagrams/sheet_marks.h"
#include "diagrams/sheet_names.h"
#include "diagrams/sheet_readout.h"
#include "diagrams/sheet_support.h"
#include "diagrams/sheet_undo.h"
#include "diagrams/sheet_window.h"
#include "models/named_reference.h"

using namespace quor;

namespace {

class DiagramSheet : public Sheet {
  protected:
    std::string note(int code) const {
        return diagrams::reference_note(diagrams::diagram_of(code), reference);
    }
    DiagramSheet() {
        open(1);
        sheet.request.window.x_max = 1e9F;
    }
};

TEST_F(DiagramSheet, OpensWithTheWindowAndTheTextsOfTheRequest) {
    open(1);
    EXPECT_EQ(diagrams::curve_count(sheet), 0);
    EXPECT_EQ(sheet.chart.header.text, "Isothermal section p - v");
    EXPECT_EQ(sheet.chart.x.title, "v / (m^3/kmol)");
    EXPECT_EQ(sheet.chart.y.title, "p / kPa");
    EXPECT_DOUBLE_EQ(sheet.chart.x.max, static_cast<double>(limits.v_max));
    EXPECT_DOUBLE_EQ(sheet.chart.y.max, static_cast<double>(limits.p_max));
    EXPECT_FALSE(sheet.chart.x.automatic);
}

TEST_F(DiagramSheet, BreaksALongTitleAtBlanks) {
    EXPECT_EQ(diagrams::wrap_title("short", 50), "short");
    EXPECT_EQ(diagrams::wrap_title("two words", 5), "two\nwords");
    EXPECT_EQ(diagrams::wrap_title("alongword", 5), "alongword");
    std::string longTitle;
    for (int i = 0; i < 30; ++i) longTitle += "word ";
    longTitle += "end";
    const std::string wrapped = diagrams::wrap_title(longTitle, 50);
    EXPECT_NE(wrapped.find('\n'), std::string::npos);
    std::string joined = wrapped;
    for (char& c : joined)
        if (c == '\n') c = ' ';
    EXPECT_EQ(joined, longTitle);
}

TEST_F(DiagramSheet, SaysOnWhichReferenceStateCaloricValuesRest) {
    EXPECT_EQ(note(1), "");
    EXPECT_EQ(note(19), "");
    reference.T0 = 273.15F;
    reference.p0 = 0;  // not yet set
    EXPECT_EQ(note(15), "reference state: 273.15 K, 101.325 kPa");
    reference.mode = 2;
    EXPECT_EQ(note(16), "conventional reference state");
    reference.mode = 10;
    reference.Tenv = 290;
    EXPECT_EQ(note(21),
              "reference state: quantities of formation; surroundings: 290 K, 101.325 kPa");
    EXPECT_EQ(note(18), "surroundings: 290 K, 101.325 kPa");
    open(15);
    EXPECT_NE(sheet.chart.footer.text.find("\nreference state: "), std::string::npos);
}

TEST_F(DiagramSheet, TheTwentyFifthCurveHasItsPlaceBeforeTheMarkers) {
    ASSERT_TRUE(diagrams::mark_volume(sheet, pen()));
    for (int i = 0; i < 24; ++i) EXPECT_EQ(store(points_on_line(3)), i);
    const chart::Series marker = sheet.chart.curves.back();
    ASSERT_TRUE(marker.is_reference);
    EXPECT_EQ(store(points_on_line(5)), 24);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(diagrams::curve_count(sheet), 25);
    EXPECT_EQ(curve(24).x.size(), 5U);
    EXPECT_TRUE(sheet.chart.curves.back() == marker);
    diagrams::delete_reference_lines(sheet);
    EXPECT_EQ(sheet.chart.curves.size(), 25U);
    EXPECT_EQ(diagrams::curve_count(sheet), 25);
}

TEST_F(DiagramSheet, LabelsOfManyCurvesAreNoTexts) {
    for (int place : {0, 23, 89, 90, 91, 5000}) {
        chart::Label label;
        label.index = diagrams::label_index_of_curve(place);
        EXPECT_EQ(diagrams::kind_of(label), diagrams::LabelKind::curve) << place;
        EXPECT_EQ(diagrams::curve_place_of(label), place);
    }
    for (int i = 0; i < 95; ++i) store(points_on_line(3));
    diagrams::add_text(sheet, "note");
    EXPECT_EQ(diagrams::kind_of(sheet.chart.labels.back()), diagrams::LabelKind::text);
    diagrams::delete_texts(sheet);
    EXPECT_FALSE(diagrams::has_texts(sheet));
}

TEST_F(DiagramSheet, GivesADeletedSlotToTheNextCurve) {
    for (int i = 0; i < 5; ++i) store(points_on_line(3));
    diagrams::delete_curve(sheet, 3);
    EXPECT_EQ(diagrams::curve_count(sheet), 4);
    EXPECT_TRUE(is_free(2));
    EXPECT_EQ(store(points_on_line(7)), 2);
    EXPECT_EQ(curve(2).x.size(), 7U);
    EXPECT_EQ(store(points_on_line(3)), 5);
}

TEST_F(DiagramSheet, KeepsTheStyleOfASlot) {
    store(points_on_line(3));
    sheet.chart.curves[0].line.width = 4;
    diagrams::delete_curve(sheet, 1);
    store(points_on_line(3));
    EXPECT_EQ(curve(0).line.width, 4);
}

TEST_F(DiagramSheet, CountsOffThePointsBeyondTheWindow) {
    sheet.request.window.x_max = 6.5F;
    store(points_on_line(10, 300, diagrams::Parameter::T));
    // The line still reaches the edge of the window.
    EXPECT_EQ(curve(0).x, (std::vector<float>{1, 2, 3, 4, 5, 6, 6.5F}));
    EXPECT_EQ(curve(0).y.back(), 13);
    EXPECT_EQ(parameter(0, 7), 300);
    EXPECT_EQ(parameter(0, 8), 0);
    // A curve that lies outside altogether stays whole, so that a larger window shows it.
    sheet.request.window.x_max = 0.5F;
    store(points_on_line(10));
    EXPECT_EQ(curve(1).x.size(), 10U);
}

TEST_F(DiagramSheet, KeepsTheParameterOfTwelveHundredPoints) {
    store(points_on_line(1500, 300, diagrams::Parameter::T));
    EXPECT_EQ(curve(0).x.size(), 1500U);
    EXPECT_EQ(parameter(0, 1), 300);
    EXPECT_EQ(parameter(0, 1200), 300);
    EXPECT_EQ(diagrams::readout(sheet, {chart::Group::Curves, 0, 1199, 0}),
              " X= 1200 Y= 2400  T/K = 300");
    EXPECT_EQ(diagrams::readout(sheet, {chart::Group::Curves, 0, 1200, 0}), " X= 1201 Y= 2402");
}

TEST_F(DiagramSheet, ReadsOutTheParameterByItsMark) {
    store(points_on_line(2, 101.5F, diagrams::Parameter::p));
    store(points_on_line(2, 0.25F, diagrams::Parameter::v));
    store(points_on_line(2, 5, diagrams::Parameter::none));
    EXPECT_EQ(diagrams::readout(sheet, {chart::Group::Curves, 0, 0, 0}), " X= 1 Y= 2 p/kPa= 101.5");
    EXPECT_EQ(diagrams::readout(sheet, {chart::Group::Curves, 1, 1, 0}), " X= 2 Y= 4  v = 0.25");
    EXPECT_EQ(diagrams::readout(sheet, {chart::Group::Curves, 2, 1, 0}), " X= 2 Y= 4");
    diagrams::store_point_set(sheet, {3}, {4}, "set");
    EXPECT_EQ(diagrams::readout(sheet, {chart::Group::Points, 0, 0, 0}), "X = 3  Y = 4");
    EXPECT_EQ(diagrams::readout(sheet, {chart::Group::Points, 3, 0, 0}), "");
}

TEST_F(DiagramSheet, TheThirteenthSetOfPointsHasItsPlaceBeforeTheCriticalPoint) {
    ASSERT_TRUE(diagrams::mark_critical_point(sheet, pen(), true));
    const chart::Series point = sheet.chart.points.at(12);
    for (int i = 0; i < 13; ++i) EXPECT_EQ(diagrams::store_point_set(sheet, {1}, {1}, "s"), i);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(diagrams::point_set_count(sheet), 13);
    EXPECT_TRUE(sheet.chart.points.at(13) == point);
    EXPECT_EQ(sheet.chart.labels.at(0).series, 13) << "its label stays on it";
    diagrams::delete_critical_point(sheet, true);
    EXPECT_EQ(diagrams::point_set_count(sheet), 13);
    EXPECT_TRUE(sheet.chart.points.at(13).x.empty());
}

TEST_F(DiagramSheet, TakesBackTheLastAddedCurve) {
    store(points_on_line(3));
    store(points_on_line(4, 300, diagrams::Parameter::T));
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(diagrams::curve_count(sheet), 1);
    EXPECT_TRUE(is_free(1));
    EXPECT_EQ(sheet.chart.curves.size(), 1U);
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(diagrams::curve_count(sheet), 0);
    EXPECT_FALSE(diagrams::undo(sheet));
}

TEST_F(DiagramSheet, BringsBackDeletedCurvesWithAllTheirProperties) {
    for (int i = 0; i < 3; ++i) store(points_on_line(3 + i, 300, diagrams::Parameter::T));
    diagrams::name_curve(sheet, 1, {"middle", "m"});
    sheet.chart.curves[1].line.width = 3;
    const chart::Series kept = curve(1);
    diagrams::delete_curve(sheet, 0);
    EXPECT_EQ(diagrams::curve_count(sheet), 0);
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(diagrams::curve_count(sheet), 3);
    EXPECT_TRUE(curve(1) == kept);
    EXPECT_EQ(label_of(1).text, "m");
    EXPECT_EQ(parameter(1, 4), 300);
    EXPECT_EQ(sheet_curve(1).parameter, diagrams::Parameter::T);
}

TEST_F(DiagramSheet, BringsBackADeletedSetOfPoints) {
    diagrams::store_point_set(sheet, {1, 2}, {3, 4}, "data");
    diagrams::delete_point_set(sheet, 1);
    EXPECT_EQ(diagrams::point_set_count(sheet), 0);
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(diagrams::point_set_count(sheet), 1);
    EXPECT_EQ(sheet.chart.points[0].legend, "data");
    EXPECT_EQ(sheet.chart.points[0].y, (std::vector<float>{3, 4}));
}

TEST_F(DiagramSheet, UndoesAfterASwapIntoTheSwappedAxes) {
    store(points_on_line(3));
    diagrams::delete_curve(sheet, 1);
    diagrams::change_xy(sheet);
    diagrams::undo(sheet);
    EXPECT_EQ(curve(0).x, (std::vector<float>{2, 4, 6}));
    EXPECT_EQ(curve(0).y, (std::vector<float>{1, 2, 3}));
}

TEST_F(DiagramSheet, DeletesEverything) {
    store(points_on_line(3));
    diagrams::store_point_set(sheet, {1}, {1}, "s");
    diagrams::add_text(sheet, "note");
    sheet.chart.legend.shown = true;
    EXPECT_TRUE(diagrams::has_anything(sheet));
    diagrams::delete_total(sheet);
    EXPECT_FALSE(diagrams::has_anything(sheet));
    EXPECT_FALSE(sheet.chart.legend.shown);
    EXPECT_EQ(diagrams::curve_count(sheet), 0);
    EXPECT_EQ(diagrams::point_set_count(sheet), 0);
}

TEST_F(DiagramSheet, DeletesASinglePointOnlyWhereSinglePointsAreShown) {
    store(points_on_line(3, 300, diagrams::Parameter::T));
    EXPECT_FALSE(diagrams::delete_single_point(sheet, 0, 1));
    EXPECT_TRUE(user.messages.empty());
    sheet.chart.curves[0].line.pattern = chart::LinePattern::None;
    user.answers = {dialogs::Answer::No};
    EXPECT_FALSE(diagrams::delete_single_point(sheet, 0, 1));
    EXPECT_EQ(user.lastText(), "point x =2,  y =4 Really delete?");
    EXPECT_EQ(user.lastTitle(), "Delete a Curve Point");
    EXPECT_EQ(curve(0).x.size(), 3U);
    user.answers = {dialogs::Answer::Yes};
    EXPECT_TRUE(diagrams::delete_single_point(sheet, 0, 1));
    EXPECT_EQ(curve(0).x, (std::vector<float>{1, 3}));
    EXPECT_EQ(parameter(0, 2), 300);
    EXPECT_EQ(parameter(0, 3), 0);
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(curve(0).x.size(), 3U);
}

TEST_F(DiagramSheet, RefusesCrossedCoordinates) {
    const diagrams::DiagramRequest before = sheet.request;
    for (const chart::Window& bad :
         {chart::Window{{2, 1}, {0, 1}}, chart::Window{{0, 1}, {5, 5}},
          chart::Window{{0, std::nan("")}, {0, 1}}, chart::Window{{0, 1}, {0, 1e300}}}) {
        EXPECT_FALSE(diagrams::set_coordinates(sheet, bad));
        EXPECT_EQ(user.lastText(), "Lower limit has to smaller than upper limit.");
        EXPECT_EQ(user.lastTitle(), "INPUT ERROR");
        EXPECT_EQ(sheet.request.window.x_min, before.window.x_min);
        EXPECT_EQ(sheet.request.window.y_max, before.window.y_max);
    }
    EXPECT_TRUE(diagrams::set_coordinates(sheet, {{1, 2}, {3, 4}}));
    EXPECT_EQ(sheet.request.window.x_max, 2);
    EXPECT_EQ(sheet.chart.y.min, 3);
}

TEST_F(DiagramSheet, FitsItsCoordinatesToTheData) {
    EXPECT_FALSE(diagrams::fit_window(sheet));
    store(points_on_line(10));
    ASSERT_TRUE(diagrams::fit_window(sheet));
    EXPECT_LE(sheet.request.window.x_min, 1);
    EXPECT_GE(sheet.request.window.x_max, 10);
    EXPECT_LT(sheet.request.window.x_max, 20);
    EXPECT_GE(sheet.request.window.y_max, 20);
    diagrams::default_coordinates(sheet);
    EXPECT_EQ(sheet.request.window.y_max, sheet.request.proposed.y_max);
}

TEST_F(DiagramSheet, SwapsDataWindowAndTextsAndBack) {
    store(points_on_line(3));
    const chart::Chart2D chartBefore = sheet.chart;
    const diagrams::DiagramRequest before = sheet.request;
    diagrams::change_xy(sheet);
    EXPECT_TRUE(sheet.chart.swapped);
    EXPECT_EQ(curve(0).x, (std::vector<float>{2, 4, 6}));
    EXPECT_EQ(sheet.request.window.x_min, before.window.y_min);
    EXPECT_EQ(sheet.request.proposed.x_max, before.proposed.y_max);
    EXPECT_EQ(sheet.chart.x.title, "p / kPa");
    EXPECT_EQ(sheet.request.texts.y, before.texts.x);
    diagrams::change_xy(sheet);
    EXPECT_FALSE(sheet.chart.swapped);
    EXPECT_TRUE(sheet.chart == chartBefore);
}

TEST_F(DiagramSheet, TakesSpacingsAndDigitsOnlyByTheValues) {
    diagrams::set_scaling(sheet, 1, {5, 6, 7, 8, 2, 3});
    EXPECT_TRUE(sheet.manual_scaling);
    EXPECT_EQ(sheet.chart.x.tick_spacing, 5);
    EXPECT_EQ(sheet.chart.y.grid_spacing, 8);
    EXPECT_EQ(sheet.chart.y.decimals, 3);
    diagrams::set_scaling(sheet, 0, {5, 6, 7, 8, 2, 3});
    EXPECT_EQ(sheet.chart.x.tick_spacing, 0);
    EXPECT_EQ(sheet.chart.x.decimals, -1);
    diagrams::set_scaling(sheet, 1, {-5, std::nan(""), 7, 8, -3, 99});
    EXPECT_EQ(sheet.chart.x.tick_spacing, 0);
    EXPECT_EQ(sheet.chart.y.tick_spacing, 0);
    EXPECT_EQ(sheet.chart.x.decimals, -1);
    EXPECT_EQ(sheet.chart.y.decimals, 15);
}

TEST_F(DiagramSheet, PlacesLabelsBesideTheirCurves) {
    const chart::MeasureText measure = [](const std::string& text, const chart::Font& font) {
        return chart::TextSize{static_cast<double>(text.size() * 6),
                               static_cast<double>(font.size)};
    };
    diagrams::set_coordinates(sheet, {{0, 12}, {0, 24}});
    store(points_on_line(10));
    diagrams::name_curve(sheet, 0, {"legend", "300 K"});
    diagrams::place_labels(sheet, 800, 600, measure);
    ASSERT_EQ(sheet.chart.labels.size(), 1U);
    EXPECT_EQ(sheet.chart.labels[0].text, "300 K");
    EXPECT_TRUE(sheet.chart.labels[0].on_point);
    EXPECT_TRUE(diagrams::has_curve_labels(sheet));
    // The shift leads along the curve.
    label_of(0).shift = 0.05;
    diagrams::place_labels(sheet, 800, 600, measure);
    const int low = sheet.chart.labels[0].point;
    label_of(0).shift = 0.95;
    diagrams::place_labels(sheet, 800, 600, measure);
    EXPECT_LT(low, sheet.chart.labels[0].point);
    diagrams::delete_curve_labels(sheet);
    diagrams::place_labels(sheet, 800, 600, measure);
    ASSERT_EQ(sheet.chart.labels.size(), 1U) << "a hidden label keeps its style";
    EXPECT_FALSE(sheet.chart.labels[0].shown);
    EXPECT_FALSE(diagrams::has_curve_labels(sheet));
}

TEST_F(DiagramSheet, SaysWhereLegendTextsAreGiven) {
    EXPECT_EQ(diagrams::add_legend(sheet), diagrams::LegendAnswer::DesignCurve);
    EXPECT_EQ(user.lastText(), "No legend texts given\n=> Designing curve");
    diagrams::store_point_set(sheet, {1}, {1}, "");
    EXPECT_EQ(diagrams::add_legend(sheet), diagrams::LegendAnswer::DesignPoints);
    EXPECT_EQ(user.lastText(), "No legend texts given\n=> Designing exper. points");
    EXPECT_FALSE(sheet.chart.legend.shown);
    sheet.chart.points[0].legend = "p";
    EXPECT_EQ(diagrams::add_legend(sheet), diagrams::LegendAnswer::Shown);
    EXPECT_TRUE(sheet.chart.legend.shown);
}

// ---- which fluid a curve belongs to

TEST_F(DiagramSheet, CurvesOfOneFluidDoNotNameIt) {
    sheet.at.T = 300;
    open(1);
    diagrams::draw(sheet, pen());
    diagrams::draw(sheet, pen());
    EXPECT_EQ(label_of(0).text, "300.0 K ");
    EXPECT_EQ(curve(1).legend, "(300.0 K ) ");
    EXPECT_EQ(sheet.chart.footer.text, "Propane,  CEOS Peng / Robinson");
}

TEST_F(DiagramSheet, CurvesOfTwoFluidsNameTheirFluid) {
    sheet.at.T = 300;
    open(1);
    diagrams::draw(sheet, pen());
    activate("Water");
    diagrams::draw(sheet, pen());
    EXPECT_EQ(sheet_curve(0).basis.fluid.substance().name, "Propane");
    EXPECT_EQ(sheet_curve(1).basis.fluid.substance().name, "Water");
    EXPECT_EQ(label_of(0).text, "Propane 300.0 K ");
    EXPECT_EQ(label_of(1).text, "Water 300.0 K ");
    EXPECT_EQ(curve(0).legend, "Propane (300.0 K ) ");
    EXPECT_EQ(curve(1).legend, "Water (300.0 K ) ");
    EXPECT_EQ(sheet.chart.footer.text,
              "Propane,  CEOS Peng / Robinson; Water,  CEOS Peng / Robinson");
    // A deleted fluid is named no more.
    diagrams::delete_curve(sheet, 1);
    EXPECT_EQ(label_of(1).text, "300.0 K ");
    EXPECT_EQ(sheet.chart.footer.text, "Water,  CEOS Peng / Robinson");
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(label_of(1).text, "Water 300.0 K ");
    // What is drawn after a step back is named as well.
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(sheet.chart.footer.text, "Propane,  CEOS Peng / Robinson");
    diagrams::draw(sheet, pen());
    EXPECT_EQ(sheet.chart.footer.text,
              "Propane,  CEOS Peng / Robinson; Water,  CEOS Peng / Robinson");
}

TEST_F(DiagramSheet, CurvesOfTwoModelsNameTheirModel) {
    sheet.at.T = 300;
    open(1);
    diagrams::draw(sheet, pen());
    activate("Propane", kSoave);
    diagrams::draw(sheet, pen());
    EXPECT_EQ(label_of(0).text, "CEOS Peng / Robinson 300.0 K ");
    EXPECT_NE(label_of(1).text.find("Soave"), std::string::npos);
    EXPECT_EQ(label_of(1).text.find("Propane"), std::string::npos);
}

TEST_F(DiagramSheet, TextsThatTheUserHasChangedStay) {
    sheet.at.T = 300;
    open(1);
    diagrams::draw(sheet, pen());
    label_of(0).text = "mine";
    sheet.chart.curves[0].legend = "my legend";
    sheet.chart.footer.text = "my footer";
    activate("Water");
    diagrams::draw(sheet, pen());
    EXPECT_EQ(label_of(0).text, "mine");
    EXPECT_EQ(curve(0).legend, "my legend");
    EXPECT_EQ(sheet.chart.footer.text, "my footer");
    EXPECT_EQ(label_of(1).text, "Water 300.0 K ");
}

TEST_F(DiagramSheet, ANamedReferenceStateIsNamed) {
    reference.named = models::NamedState::iir;
    EXPECT_EQ(diagrams::reference_text(true, false, reference),
              "reference state: IIR, " +
                  std::string(models::named_reference(models::NamedState::iir)->text));
    reference.named = models::NamedState::own;
    reference.own = {300, 200, false, -77.5, 3};
    EXPECT_EQ(diagrams::reference_text(true, false, reference),
              "reference state: h = -77.5 kJ/kmol, s = 3 kJ/(kmol K) of the liquid at 300 K, "
              "200 kPa");
}

TEST_F(DiagramSheet, CurvesOfTwoReferenceStatesTellBoth) {
    open(15);
    sheet.at.p = 500;
    diagrams::draw(sheet, pen());
    reference.mode = 10;
    diagrams::draw(sheet, pen());
    const std::string& footer = sheet.chart.footer.text;
    EXPECT_NE(footer.find("reference state: 298.15 K, 101.325 kPa"), std::string::npos) << footer;
    EXPECT_NE(footer.find("reference state: quantities of formation"), std::string::npos) << footer;
}

TEST_F(DiagramSheet, ASecondFluidIsDrawnInTheUnitsOfTheSheet) {
    set_units(3, 1);
    sheet.at.T = 700;
    open(1);
    activate("Water");
    set_units(0, 0);
    diagrams::draw(sheet, pen());
    const models::Units& own = sheet_curve(0).basis.units;
    EXPECT_EQ(own.choice.system, models::UnitSystem::specific);
    EXPECT_DOUBLE_EQ(own.v, 1 / static_cast<double>(substance.M));
}

TEST_F(DiagramSheet, NothingIsDrawnWithoutAFluid) {
    open(1);
    EXPECT_FALSE(diagrams::draw(sheet, {}));
    EXPECT_EQ(user.lastText(), "First choose substance and models!");
    EXPECT_EQ(diagrams::curve_count(sheet), 0);
    EXPECT_EQ(diagrams::fluid_text(sheet.request.diagram, {}), "");
    EXPECT_EQ(diagrams::fluid_text(sheet.request.diagram, pen()), "Propane, CEOS Peng / Robinson");
}

TEST_F(DiagramSheet, MakesAgainWhatWasTakenBack) {
    store(points_on_line(3));
    store(points_on_line(4));
    ASSERT_TRUE(diagrams::undo(sheet));
    ASSERT_TRUE(diagrams::redo(sheet));
    EXPECT_EQ(diagrams::curve_count(sheet), 2);
    EXPECT_EQ(curve(1).x.size(), 4U);
    EXPECT_FALSE(diagrams::redo(sheet));
    diagrams::undo(sheet);
    store(points_on_line(5));
    EXPECT_FALSE(diagrams::redo(sheet)) << "a new step ends what could be made again";
}

TEST_F(DiagramSheet, TakesBackMarksAndTexts) {
    ASSERT_TRUE(diagrams::mark_volume(sheet, pen()));
    diagrams::add_text(sheet, "note");
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_FALSE(diagrams::has_texts(sheet));
    EXPECT_TRUE(diagrams::has_reference_lines(sheet));
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_FALSE(diagrams::has_reference_lines(sheet));
}

TEST_F(DiagramSheet, TakesBackAChangedStyleAsOneStep) {
    store(points_on_line(3));
    const diagrams::SheetContent before = diagrams::content_of(sheet);
    sheet.chart.curves[0].line.width = 4;
    diagrams::remember_design(sheet, before, "Design");
    diagrams::SheetContent later = diagrams::content_of(sheet);
    sheet.chart.curves[0].line.width = 5;
    diagrams::remember_design(sheet, later, "Design");
    EXPECT_EQ(sheet.undo.size(), 2U) << "the second change goes on with the first";
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_TRUE(curve(0) == before.chart.curves[0]);
    ASSERT_TRUE(diagrams::redo(sheet));
    EXPECT_EQ(curve(0).line.width, 5);
}

TEST_F(DiagramSheet, AMovedWindowIsNoStepOfTheDesign) {
    store(points_on_line(3));
    const diagrams::SheetContent before = diagrams::content_of(sheet);
    sheet.chart.x.max = 77;
    diagrams::remember_design(sheet, before, "Design");
    EXPECT_EQ(sheet.undo.size(), 1U);
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_EQ(sheet.chart.x.max, 77) << "the window stays as the user has moved it";
}

TEST_F(DiagramSheet, TakesBackTheLegend) {
    store(points_on_line(3));
    diagrams::name_curve(sheet, 0, {"a curve", "c"});
    diagrams::add_legend(sheet);
    ASSERT_TRUE(sheet.chart.legend.shown);
    diagrams::delete_legend(sheet);
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_TRUE(sheet.chart.legend.shown);
    ASSERT_TRUE(diagrams::undo(sheet));
    EXPECT_FALSE(sheet.chart.legend.shown);
}

}  // namespace
