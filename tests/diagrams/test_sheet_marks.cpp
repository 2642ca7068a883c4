#include "diagrams/sheet_marks.h"

#include "common/numbers.h"
#include "diagrams/curve.h"
#include "diagrams/process_line.h"
#include "diagrams/sheet_delete.h"
#include "diagrams/sheet_support.h"
#include "diagrams/sheet_window.h"
#include "models/vapour_pressure.h"

using namespace quor;

namespace {

using chart::Label;

class SheetMarks : public Sheet {
  protected:
    SheetMarks() {
        sheet.at.T = 300;
        sheet.at.p = 1000;
        sheet.at.v = 0.5;
    }

    std::vector<chart::Series> lines() const {
        std::vector<chart::Series> found;
        for (const chart::Series& s : sheet.chart.curves)
            if (s.is_reference) found.push_back(s);
        return found;
    }
    const Label* label(int index) const {
        for (const Label& l : sheet.chart.labels)
            if (l.index == index) return &l;
        return nullptr;
    }
    void expectRefusal(const char* text) {
        EXPECT_EQ(user.lastText(), text);
        EXPECT_EQ(user.lastTitle(), "Execution not possible");
        EXPECT_EQ(diagrams::curve_count(sheet), 0);
        EXPECT_TRUE(sheet.chart.labels.empty());
    }
};

TEST_F(SheetMarks, DrawsAnIsothermAndNamesIt) {
    open(1);
    ASSERT_TRUE(diagrams::draw(sheet, pen()));
    EXPECT_EQ(diagrams::curve_count(sheet), 1);
    EXPECT_EQ(curve(0).legend, "(300.0 K ) ");
    EXPECT_EQ(sheet_curve(0).parameter, diagrams::Parameter::T);
    EXPECT_EQ(parameter(0, 1), 300);
    // The vapour lies beyond this window; the tie-line leads to its edge.
    EXPECT_EQ(curve(0).x.back(), sheet.request.window.x_max);
    EXPECT_FLOAT_EQ(curve(0).y.back(), curve(0).y[curve(0).y.size() - 2]);
}

TEST_F(SheetMarks, NamesCurvesByTheirSection) {
    open(3);
    diagrams::draw(sheet, pen());
    EXPECT_EQ(curve(0).legend, "1000.0 kPa ");
    open(5);
    diagrams::draw(sheet, pen());
    EXPECT_EQ(curve(0).legend, "0.5 m^3/kmol ");
    open(307);
    diagrams::draw(sheet, pen());
    EXPECT_EQ(curve(0).legend, "(Wagner)");
    process.kind = diagrams::ProcessKind::isobar;
    process.p1 = 1000;
    const diagrams::CurveRequest line =
        diagrams::process_request(diagrams::diagram_of(1), process, sheet.at);
    EXPECT_EQ(diagrams::name_of(line, basis(), false).legend, "(Isobar 1000.0 kPa ) ");
}

TEST_F(SheetMarks, WritesAPointWhateverTheLocale) {
    numbers::set_decimal_mark(',');
    open(1);
    diagrams::draw(sheet, pen());
    EXPECT_EQ(curve(0).legend, "(300.0 K ) ");
    numbers::set_decimal_mark('.');
}

TEST_F(SheetMarks, NamesAnIsochoreByItsPhaseWhenTheCriticalPointIsMarked) {
    open(5);
    ASSERT_TRUE(diagrams::mark_critical_point(sheet, pen(), false));
    sheet.at.v = 0.5;
    diagrams::draw(sheet, pen());
    EXPECT_EQ(curve(0).legend, "0.5 m^3/kmol  (V) ");
    sheet.at.v = 0.1;
    diagrams::draw(sheet, pen());
    EXPECT_EQ(curve(1).legend, "0.1 m^3/kmol  (L) ");
    sheet.at.v = eosConstants.vcrit_calculated;
    diagrams::draw(sheet, pen());
    EXPECT_NE(curve(2).legend.find(" (cr) "), std::string::npos);
}

TEST_F(SheetMarks, TheSlopeOfTheVapourPressureTellsItsMaximumOnce) {
    open(11);
    ASSERT_TRUE(diagrams::draw(sheet, pen()));
    const std::string title = sheet.request.texts.title;
    const std::size_t remark = title.find("; maximum at T/K = ");
    ASSERT_NE(remark, std::string::npos) << title;
    EXPECT_NE(sheet.chart.header.text.find("maximum"), std::string::npos);
    diagrams::draw(sheet, pen());
    EXPECT_EQ(sheet.request.texts.title, title) << "the remark is made once";
    selection.vapour_pressure = models::VapourPressureEquation::august;
    diagrams::draw(sheet, pen());
    EXPECT_EQ(sheet.request.texts.title, title.substr(0, remark));
}

TEST_F(SheetMarks, DrawsBothBranchesOfAProjection) {
    open(6);
    ASSERT_TRUE(diagrams::draw(sheet, pen()));
    EXPECT_EQ(diagrams::curve_count(sheet), 2);
    EXPECT_EQ(curve(0).legend, "VLE  (L)");
    EXPECT_EQ(curve(1).legend, "VLE  (V)");
    open(9);
    ASSERT_TRUE(diagrams::draw(sheet, pen()));
    EXPECT_EQ(diagrams::curve_count(sheet), 1);
    EXPECT_EQ(curve(0).legend, "VLE ");
}

TEST_F(SheetMarks, AddsTheCoexistenceCurveAndRestoresTheDiagram) {
    open(1);
    ASSERT_TRUE(diagrams::mark_coexistence(sheet, pen()));
    EXPECT_EQ(diagrams::curve_count(sheet), 2);
    EXPECT_EQ(sheet.request.diagram->code, 1);
    EXPECT_EQ(sheet.request.section(), diagrams::Section::isothermal);
    // In p-T there is one line only.
    open(5);
    ASSERT_TRUE(diagrams::mark_coexistence(sheet, pen()));
    EXPECT_EQ(diagrams::curve_count(sheet), 1);
}

TEST_F(SheetMarks, OffersACoexistenceCurveExactlyWhereTheTableHasOne) {
    const std::map<int, int> expected = {
        {1, 6},     {2, 106},  {3, 7},     {4, 12},   {5, 9},     {15, 90},   {16, 91},
        {184, 91},  {17, 93},  {18, 94},   {19, 92},  {21, 96},   {22, 96},   {23, 121},
        {109, 121}, {24, 120}, {107, 120}, {26, 27},  {150, 70},  {151, 71},  {152, 73},
        {153, 74},  {154, 72}, {155, 75},  {156, 97}, {157, 100}, {158, 101}, {159, 89},
        {160, 102}, {181, 95}, {182, 98},  {183, 99}};
    for (int code = 0; code < 320; ++code) {
        const auto row = expected.find(code);
        EXPECT_EQ(
            (diagrams::find_diagram(code) == nullptr ? 0 : diagrams::find_diagram(code)->dome),
            row == expected.end() ? 0 : row->second)
            << code;
    }
}

TEST_F(SheetMarks, IsohygricsAtTheEndsAreTheBoilingAndTheDewLine) {
    open(3);
    ASSERT_TRUE(diagrams::mark_coexistence(sheet, pen()));
    ASSERT_TRUE(diagrams::mark_isohygric(sheet, pen(), 0));
    ASSERT_TRUE(diagrams::mark_isohygric(sheet, pen(), 1));
    EXPECT_EQ(curve(2).x, curve(0).x);
    EXPECT_EQ(curve(3).x, curve(1).x);
    EXPECT_EQ(label_of(2).text, "y(V) = 0");
    EXPECT_FALSE(diagrams::mark_isohygric(sheet, pen(), 1.5));
    EXPECT_FALSE(diagrams::mark_isohygric(sheet, pen(), -0.1));
}

TEST_F(SheetMarks, TieLineIsHorizontalInPV) {
    open(1);
    ASSERT_TRUE(diagrams::mark_tie_line(sheet, pen()));
    EXPECT_EQ(curve(0).legend, "Tie-Line V-L ");
    for (const float p : curve(0).y) EXPECT_FLOAT_EQ(p, curve(0).y.front());
}

TEST_F(SheetMarks, RefusesATieLineAtAndAboveTheCriticalPoint) {
    open(1);
    sheet.at.T = substance.Tcrit;
    EXPECT_FALSE(diagrams::mark_tie_line(sheet, pen()));
    expectRefusal("only possible in the 2-phase region V-L  (T<T(cr))");
    open(3);
    sheet.at.p = substance.pcrit;
    EXPECT_FALSE(diagrams::mark_tie_line(sheet, pen()));
    expectRefusal("only possible in the 2-phase region V-L  (p<p(cr))");
}

TEST_F(SheetMarks, RefusesTheUnstableRegionAboveTheCriticalPoint) {
    open(26);
    sheet.at.T = substance.Tcrit;
    EXPECT_FALSE(diagrams::mark_s_curve(sheet, pen()));
    expectRefusal("only possible in the 2-phase region V-L  (T<T(cr))");
    open(15);
    sheet.at.p = substance.pcrit + 1;
    EXPECT_FALSE(diagrams::mark_s_curve(sheet, pen()));
    expectRefusal("only possible in the 2-phase region V-L  (p<p(cr))");
}

TEST_F(SheetMarks, DrawsTheUnstableRegion) {
    open(1);
    ASSERT_TRUE(diagrams::mark_s_curve(sheet, pen()));
    EXPECT_EQ(sheet.request.diagram->code, 1);
    EXPECT_EQ(diagrams::curve_count(sheet), 1);
}

TEST_F(SheetMarks, RefusesWhatNeedsACubicEquation) {
    activate("Propane", kVirial);
    sheet.at.T = 300;
    open(1);
    EXPECT_FALSE(diagrams::mark_coexistence(sheet, pen()));
    expectRefusal("V-L coex. curve possible for cubic EOS only.");
    EXPECT_FALSE(diagrams::may_mark_isohygric(pen()));
    expectRefusal("Isohygrics - possible only using cubic EOS");
    EXPECT_FALSE(diagrams::mark_tie_line(sheet, pen()));
    expectRefusal("Tie-line V-L - possible only using cubic EOS");
    open(2);
    EXPECT_FALSE(diagrams::mark_inversion(sheet, pen()));
    expectRefusal("Inversion curve only possible by cubic EOS");
    EXPECT_EQ(sheet.request.diagram->code, 2);
}

TEST_F(SheetMarks, DrawsTheInversionCurveAndTheBisectionLine) {
    open(5);
    // Inversion curves reach to several critical temperatures.
    diagrams::set_coordinates(sheet, {{200, 1500}, {0, 80000}});
    ASSERT_TRUE(diagrams::mark_inversion(sheet, pen()));
    EXPECT_EQ(curve(0).legend, "Inversion curve");
    EXPECT_EQ(label_of(0).text, "delta = 0 ");
    EXPECT_EQ(sheet.request.diagram->code, 5);
    EXPECT_EQ(sheet.request.section(), diagrams::Section::isochoric);
    open(8);
    diagrams::mark_bisection(sheet, pen());
    EXPECT_EQ(sheet.request.diagram->code, 8);
}

TEST_F(SheetMarks, MarksTemperaturesAcrossTheWindow) {
    open(3);
    ASSERT_TRUE(diagrams::mark_temperatures(sheet, pen()));
    ASSERT_EQ(lines().size(), 2U);  // without the gas part there are no boiling lines
    const chart::Series critical = lines()[0];
    EXPECT_FLOAT_EQ(critical.y[0], static_cast<float>(substance.Tcrit));
    EXPECT_EQ(critical.x[0], -1e10F);
    EXPECT_FLOAT_EQ(critical.x[1], sheet.request.window.x_max);
    EXPECT_EQ(label(1)->text, "T(cr)");
    EXPECT_NEAR(label(1)->x,
                static_cast<double>(sheet.request.window.x_min) +
                    (static_cast<double>(sheet.request.window.x_max) -
                     static_cast<double>(sheet.request.window.x_min)) /
                        6,
                1e-6);
    EXPECT_EQ(label(2)->text, "T(triple)");
    // A second run takes the place of the first.
    ASSERT_TRUE(diagrams::mark_temperatures(sheet, pen()));
    EXPECT_EQ(lines().size(), 2U);
    EXPECT_EQ(diagrams::curve_count(sheet), 0);
}

TEST_F(SheetMarks, LeavesOutTheTripleLineWithoutATriplePoint) {
    substance.Ttriple = 0;
    open(15);
    ASSERT_TRUE(diagrams::mark_temperatures(sheet, pen()));
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_FLOAT_EQ(lines()[0].x[0], lines()[0].x[1]);
    EXPECT_EQ(label(2), nullptr);
}

TEST_F(SheetMarks, AddsBoilingTemperaturesToTheGasPart) {
    options.partial_gas = true;
    open(15);
    ASSERT_TRUE(diagrams::mark_temperatures(sheet, pen()));
    ASSERT_EQ(lines().size(), 4U);
    EXPECT_EQ(label(3)->text, "                      T(LV) at p");
    EXPECT_EQ(label(4)->text, "                      T(LV) at normal pressure");
    const double TLV = models::boiling_temperature(substance, 1000, selection.vapour_pressure)->T;
    EXPECT_NEAR(static_cast<double>(lines()[2].x[0]), TLV, 1e-3);
}

TEST_F(SheetMarks, MarksInverseTemperaturesAndLogarithmsOfPressures) {
    open(10);
    ASSERT_TRUE(diagrams::mark_temperatures(sheet, pen()));
    EXPECT_FLOAT_EQ(lines()[0].x[0], static_cast<float>(1 / substance.Tcrit));
    ASSERT_TRUE(diagrams::mark_pressures(sheet, pen()));
    ASSERT_EQ(lines().size(), 3U);
    EXPECT_FLOAT_EQ(lines()[0].y[0], static_cast<float>(std::log(substance.pcrit)));
    EXPECT_EQ(label(3)->text, "Normal-p");
    EXPECT_FLOAT_EQ(lines()[2].y[1], std::log(101.325F));
}

TEST_F(SheetMarks, MarksPressuresVerticallyOverP) {
    open(2);
    ASSERT_TRUE(diagrams::mark_pressures(sheet, pen()));
    ASSERT_EQ(lines().size(), 3U);
    EXPECT_FLOAT_EQ(lines()[0].x[0], static_cast<float>(substance.pcrit));
    EXPECT_EQ(lines()[0].y[0], -1e6F);
    EXPECT_EQ(label(2)->text, "p(LV) at T ");
    EXPECT_EQ(label(3)->text, "normal p");
}

TEST_F(SheetMarks, MarksVolumes) {
    open(1);
    ASSERT_TRUE(diagrams::mark_volume(sheet, pen()));
    ASSERT_TRUE(diagrams::mark_volume(sheet, pen()));
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_FLOAT_EQ(lines()[0].x[0], static_cast<float>(eosConstants.vcrit_calculated));
    EXPECT_EQ(lines()[0].y[0], -1e8F);
    ASSERT_TRUE(diagrams::mark_covolume(sheet, pen()));
    ASSERT_EQ(lines().size(), 2U);
    // b = 0.0778 R Tc / pc for this equation (D.-Y. Peng, D. B. Robinson, 1976).
    const double b = 0.0777960739 * 8.31451 * substance.Tcrit / substance.pcrit;
    EXPECT_NEAR(static_cast<double>(lines()[1].x[0]), b, 1e-5);
    open(4);
    ASSERT_TRUE(diagrams::mark_covolume(sheet, pen()));
    EXPECT_NEAR(static_cast<double>(lines()[0].x[0]), substance.M / b, 0.2);
}

TEST_F(SheetMarks, MarksTheCriticalPointsOfTheDataAndOfTheEquation) {
    open(1);
    ASSERT_TRUE(diagrams::mark_critical_point(sheet, pen(), true));
    ASSERT_TRUE(diagrams::mark_critical_point(sheet, pen(), false));
    const chart::Series& ex = sheet.chart.points[12];
    const chart::Series& calc = sheet.chart.points[13];
    EXPECT_FLOAT_EQ(ex.x.at(0), static_cast<float>(substance.vcrit_measured));
    EXPECT_FLOAT_EQ(calc.x.at(0), static_cast<float>(eosConstants.vcrit_calculated));
    EXPECT_FLOAT_EQ(calc.y.at(0), static_cast<float>(substance.pcrit));
    EXPECT_EQ(diagrams::point_set_count(sheet), 0);
    EXPECT_NE(label(7), nullptr);
    EXPECT_NE(label(8), nullptr);
    diagrams::delete_critical_point(sheet, true);
    EXPECT_EQ(label(7), nullptr);
    EXPECT_TRUE(diagrams::has_critical_point(sheet, false));
}

TEST_F(SheetMarks, MarksTheCriticalPointInEveryDiagramOfStates) {
    for (const int code : {1, 2, 26, 3, 4, 5, 6, 7, 8, 9, 10, 15, 16, 17, 18, 150, 107}) {
        open(code);
        EXPECT_TRUE(diagrams::mark_critical_point(sheet, pen(), false)) << code << user.lastText();
    }
}

TEST_F(SheetMarks, RefusesACriticalPointWithoutAVolume) {
    substance.vcrit_measured = 0;
    open(1);
    EXPECT_FALSE(diagrams::mark_critical_point(sheet, pen(), true));
    expectRefusal("No critical density available");
}

TEST_F(SheetMarks, StretchesReferenceLinesWithTheCoordinates) {
    open(1);
    diagrams::mark_volume(sheet, pen());
    diagrams::set_coordinates(sheet, {{0, 100}, {0, 1e6}});
    EXPECT_EQ(lines()[0].y[1], 1e6F);
}

TEST_F(SheetMarks, TellsACurveOutsideTheCoordinatesAndKeepsIt) {
    open(1);
    diagrams::set_coordinates(sheet, {{0.2, 5}, {50000, 60000}});
    EXPECT_TRUE(diagrams::draw(sheet, pen()));
    EXPECT_EQ(user.lastText(), "Curve outside the actual coordinates\nEnlarge the coordinates");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(diagrams::curve_count(sheet), 1);
}

// The limits +-50000 suit few fluids: h-s of water at 1000 kPa lay outside of them.
TEST_F(SheetMarks, TheFirstCurveOfASheetOfFunctionsShowsTheWindowOfItsFluid) {
    activate("Water");
    sheet.at.p = 1000;
    for (const diagrams::Diagram& row : diagrams::all_diagrams()) {
        const bool of_functions = row.opens() && row.section == diagrams::Section::isobaric &&
                                  row.y == diagrams::Axis::h && row.x == diagrams::Axis::T;
        if (!of_functions) continue;
        SCOPED_TRACE(row.code);
        open(row.code);
        sheet.at.p = 1000;
        const diagrams::CurveWindow proposed = sheet.request.proposed;
        user.messages.clear();
        ASSERT_TRUE(diagrams::draw(sheet, pen()));
        EXPECT_TRUE(user.messages.empty()) << user.lastText();
        EXPECT_FALSE(sheet.request.window == proposed);
        const chart::Window shown = chart::shown_window(sheet.chart);
        const chart::Series& drawn = curve(0);
        std::size_t inside = 0;
        for (std::size_t i = 0; i < drawn.y.size(); ++i)
            inside += static_cast<double>(drawn.y[i]) >= shown.y.min &&
                              static_cast<double>(drawn.y[i]) <= shown.y.max
                          ? 1
                          : 0;
        EXPECT_EQ(inside, drawn.y.size());
        diagrams::default_coordinates(sheet);
        EXPECT_TRUE(sheet.request.window == proposed) << "the proposed limits stay a choice";
        // A second curve keeps the window.
        EXPECT_TRUE(diagrams::draw(sheet, pen()));
        EXPECT_TRUE(sheet.request.window == proposed);
    }
}

// In the turned state nothing could be drawn, and texts stood across the lines that now lay.
TEST_F(SheetMarks, DrawsAndMarksInTheTurnedStateAsUpright) {
    const auto fill = [&] {
        EXPECT_TRUE(diagrams::draw(sheet, pen()));
        EXPECT_TRUE(diagrams::mark_coexistence(sheet, pen()));
        EXPECT_TRUE(diagrams::mark_pressures(sheet, pen()));
        EXPECT_TRUE(diagrams::mark_volume(sheet, pen()));
        EXPECT_TRUE(diagrams::mark_critical_point(sheet, pen(), true));
        EXPECT_TRUE(diagrams::mark_critical_point(sheet, pen(), false));
    };
    open(1);
    fill();
    const chart::Chart2D upright = sheet.chart;
    open(1);
    diagrams::change_xy(sheet);
    fill();
    EXPECT_TRUE(sheet.chart.swapped);
    const auto marker = [&](const char* text) {
        for (const chart::Label& label : sheet.chart.labels)
            if (label.text == text) return label;
        return chart::Label{};
    };
    EXPECT_EQ(marker("v(crit)").rotation, 0) << "the line of v lies now";
    EXPECT_EQ(marker("p(cr)").rotation, 90);
    EXPECT_GT(marker("p(cr)").dx, 0);
    EXPECT_LT(marker("v(crit)").dy, 0);
    diagrams::change_xy(sheet);
    EXPECT_TRUE(sheet.chart == upright);
}

// "CP (exp.)" stood beside the calculated point where that lay above the measured one.
TEST_F(SheetMarks, TheLabelOfTheUpperCriticalPointStandsAboveThatOfTheLower) {
    for (const int code : {1, 5}) {
        SCOPED_TRACE(code);
        open(code);
        ASSERT_TRUE(diagrams::mark_critical_point(sheet, pen(), false));
        ASSERT_TRUE(diagrams::mark_critical_point(sheet, pen(), true));
        const chart::Label *ex = nullptr, *calc = nullptr;
        for (const chart::Label& label : sheet.chart.labels)
            (label.text == "CP (exp.)" ? ex : calc) = &label;
        ASSERT_TRUE(ex && calc);
        const auto series = [&](const chart::Label* label) {
            return sheet.chart.points.at(static_cast<std::size_t>(label->series));
        };
        const chart::Series measured = series(ex), computed = series(calc);
        EXPECT_EQ(ex->dy < calc->dy, measured.y[0] >= computed.y[0]);
        EXPECT_EQ(ex->text_colour, measured.symbol_colour);
        EXPECT_EQ(calc->text_colour, computed.symbol_colour);
        EXPECT_NE(ex->text_colour, calc->text_colour);
        EXPECT_NE(measured.symbol, computed.symbol);
    }
}

}  // namespace
