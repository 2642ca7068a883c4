#include "diagrams/sheet_marks.h"

#include "common/numbers.h"
#include "diagrams/curve.h"
#include "diagrams/sheet_draw.h"
#include "diagrams/sheet_support.h"
#include "models/vapour_pressure.h"

using namespace quor;

namespace {

using chart::Label;
using legacy::the_session;
using legacy::the_substance;

class SheetMarks : public Sheet {
  protected:
    SheetMarks() {
        the_session.DiagramT = 300;
        the_session.DiagramP = 1000;
        the_session.DiagramV = 0.5;
    }

    std::vector<chart::Series> lines() const {
        std::vector<chart::Series> found;
        for (const chart::Series& s : sheet.chart.curves)
            if (s.isReference) found.push_back(s);
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
        EXPECT_EQ(sheet.CurveCount, 0);
        EXPECT_TRUE(sheet.chart.labels.empty());
    }
};

TEST_F(SheetMarks, DrawsAnIsothermAndNamesIt) {
    open(1);
    ASSERT_TRUE(Module9::Draw(sheet));
    EXPECT_EQ(sheet.CurveCount, 1);
    EXPECT_EQ(curve(0).legend, "(300.0 K ) ");
    EXPECT_EQ(sheet.CurveMarks[0], diagrams::kMarkT);
    EXPECT_EQ(sheet.CurveParameters[0][1], 300);
    // The vapour lies beyond this window; the tie-line leads to its edge.
    EXPECT_EQ(curve(0).x.back(), sheet.request.xMax);
    EXPECT_FLOAT_EQ(curve(0).y.back(), curve(0).y[curve(0).y.size() - 2]);
}

TEST_F(SheetMarks, NamesCurvesByTheirSection) {
    open(3);
    Module9::Draw(sheet);
    EXPECT_EQ(curve(0).legend, "1000.0 kPa ");
    open(5);
    Module9::Draw(sheet);
    EXPECT_EQ(curve(0).legend, "0.5 m^3/kmol ");
    open(307);
    Module9::Draw(sheet);
    EXPECT_EQ(curve(0).legend, "(Wagner)");
    legacy::the_processLine.Kind = 2;
    diagrams::DiagramRequest line = sheet.request;
    line.DiagramType = 204;
    EXPECT_EQ(Module9::name_of(line, false).legend, "(Isobar 1000.0 kPa ) ");
}

TEST_F(SheetMarks, WritesAPointWhateverTheLocale) {
    numbers::set_decimal_mark(',');
    open(1);
    Module9::Draw(sheet);
    EXPECT_EQ(curve(0).legend, "(300.0 K ) ");
    numbers::set_decimal_mark('.');
}

TEST_F(SheetMarks, NamesAnIsochoreByItsPhaseWhenTheCriticalPointIsMarked) {
    open(5);
    ASSERT_TRUE(Module9::mark_critical_point(sheet, false));
    the_session.DiagramV = 0.5;
    Module9::Draw(sheet);
    EXPECT_EQ(curve(0).legend, "0.5 m^3/kmol  (V) ");
    the_session.DiagramV = 0.1;
    Module9::Draw(sheet);
    EXPECT_EQ(curve(1).legend, "0.1 m^3/kmol  (L) ");
    the_session.DiagramV = legacy::the_eosParameters.vcritCalc;
    Module9::Draw(sheet);
    EXPECT_NE(curve(2).legend.find(" (cr) "), std::string::npos);
}

TEST_F(SheetMarks, DrawsBothBranchesOfAProjection) {
    open(6);
    ASSERT_TRUE(Module9::Draw(sheet));
    EXPECT_EQ(sheet.CurveCount, 2);
    EXPECT_EQ(curve(0).legend, "VLE  (L)");
    EXPECT_EQ(curve(1).legend, "VLE  (V)");
    EXPECT_EQ(the_session.VapourFraction, 1.0);
    EXPECT_FALSE(the_session.CoexistenceRequested);
    open(9);
    ASSERT_TRUE(Module9::Draw(sheet));
    EXPECT_EQ(sheet.CurveCount, 1);
    EXPECT_EQ(curve(0).legend, "VLE ");
}

TEST_F(SheetMarks, AddsTheCoexistenceCurveAndRestoresTheDiagram) {
    open(1);
    ASSERT_TRUE(Module9::mark_coexistence(sheet));
    EXPECT_EQ(sheet.CurveCount, 2);
    EXPECT_EQ(sheet.request.DiagramType, 1);
    EXPECT_EQ(sheet.request.sectionKind, Module9::kIsothermal);
    EXPECT_EQ(the_session.VapourFraction, 1.0);
    // In p-T there is one line only.
    open(5);
    ASSERT_TRUE(Module9::mark_coexistence(sheet));
    EXPECT_EQ(sheet.CurveCount, 1);
}

TEST_F(SheetMarks, OffersACoexistenceCurveExactlyWhereTheTableHasOne) {
    const std::map<int, int> expected = {
        {1, 6},     {2, 106},  {3, 7},     {4, 12},   {5, 9},     {15, 90},   {16, 91},
        {184, 91},  {17, 93},  {18, 94},   {19, 92},  {21, 96},   {22, 96},   {23, 121},
        {109, 121}, {24, 120}, {107, 120}, {26, 27},  {150, 70},  {151, 71},  {152, 73},
        {153, 74},  {154, 72}, {155, 75},  {156, 97}, {157, 100}, {158, 101}, {159, 89},
        {160, 102}, {181, 95}, {182, 98},  {183, 99}};
    for (std::int16_t code = 0; code < 320; ++code) {
        const auto row = expected.find(code);
        EXPECT_EQ(Module9::coexistence_code_of(code), row == expected.end() ? 0 : row->second)
            << code;
    }
}

TEST_F(SheetMarks, IsohygricsAtTheEndsAreTheBoilingAndTheDewLine) {
    open(3);
    ASSERT_TRUE(Module9::mark_coexistence(sheet));
    ASSERT_TRUE(Module9::mark_isohygric(sheet, 0));
    ASSERT_TRUE(Module9::mark_isohygric(sheet, 1));
    EXPECT_EQ(curve(2).x, curve(0).x);
    EXPECT_EQ(curve(3).x, curve(1).x);
    EXPECT_EQ(sheet.CurveLabels[2].text, "y(V) = 0");
    EXPECT_FALSE(Module9::mark_isohygric(sheet, 1.5));
    EXPECT_FALSE(Module9::mark_isohygric(sheet, -0.1));
    EXPECT_EQ(the_session.VapourFraction, 1.0);
}

TEST_F(SheetMarks, TieLineIsHorizontalInPV) {
    open(1);
    ASSERT_TRUE(Module9::mark_tie_line(sheet));
    EXPECT_FALSE(the_session.TieLineRequested);
    EXPECT_EQ(curve(0).legend, "Tie-Line V-L ");
    for (const float p : curve(0).y) EXPECT_FLOAT_EQ(p, curve(0).y.front());
}

TEST_F(SheetMarks, RefusesATieLineAtAndAboveTheCriticalPoint) {
    open(1);
    the_session.DiagramT = the_substance.Tcrit;
    EXPECT_FALSE(Module9::mark_tie_line(sheet));
    expectRefusal("only possible in the 2-phase region V-L  (T<T(cr))");
    open(3);
    the_session.DiagramP = the_substance.pcrit;
    EXPECT_FALSE(Module9::mark_tie_line(sheet));
    expectRefusal("only possible in the 2-phase region V-L  (p<p(cr))");
}

TEST_F(SheetMarks, RefusesTheUnstableRegionAboveTheCriticalPoint) {
    open(26);
    the_session.DiagramT = the_substance.Tcrit;
    EXPECT_FALSE(Module9::mark_s_curve(sheet));
    expectRefusal("only possible in the 2-phase region V-L  (T<T(cr))");
    open(15);
    the_session.DiagramP = the_substance.pcrit + 1;
    EXPECT_FALSE(Module9::mark_s_curve(sheet));
    expectRefusal("only possible in the 2-phase region V-L  (p<p(cr))");
}

TEST_F(SheetMarks, DrawsTheUnstableRegion) {
    open(1);
    ASSERT_TRUE(Module9::mark_s_curve(sheet));
    EXPECT_FALSE(the_session.SCurveRequested);
    EXPECT_EQ(sheet.request.DiagramType, 1);
    EXPECT_EQ(sheet.CurveCount, 1);
}

TEST_F(SheetMarks, RefusesWhatNeedsACubicEquation) {
    activate("Propane", kVirial);
    the_session.DiagramT = 300;
    open(1);
    EXPECT_FALSE(Module9::mark_coexistence(sheet));
    expectRefusal("V-L coex. curve possible for cubic EOS only.");
    EXPECT_FALSE(Module9::may_mark_isohygric());
    expectRefusal("Isohygrics - possible only using cubic EOS");
    EXPECT_FALSE(Module9::mark_tie_line(sheet));
    expectRefusal("Tie-line V-L - possible only using cubic EOS");
    open(2);
    EXPECT_FALSE(Module9::mark_inversion(sheet));
    expectRefusal("Inversion curve only possible by cubic EOS");
    EXPECT_EQ(sheet.request.DiagramType, 2);
}

TEST_F(SheetMarks, DrawsTheInversionCurveAndTheBisectionLine) {
    open(5);
    // Inversion curves reach to several critical temperatures.
    Module9::set_coordinates(sheet, {{200, 1500}, {0, 80000}});
    ASSERT_TRUE(Module9::mark_inversion(sheet));
    EXPECT_EQ(curve(0).legend, "Inversion curve");
    EXPECT_EQ(sheet.CurveLabels[0].text, "delta = 0 ");
    EXPECT_EQ(sheet.request.DiagramType, 5);
    EXPECT_EQ(sheet.request.sectionKind, Module9::kIsochoric);
    open(8);
    Module9::mark_bisection(sheet);
    EXPECT_EQ(sheet.request.DiagramType, 8);
}

TEST_F(SheetMarks, MarksTemperaturesAcrossTheWindow) {
    open(3);
    ASSERT_TRUE(Module9::mark_t_grenzen(sheet));
    ASSERT_EQ(lines().size(), 2U);  // without the gas part there are no boiling lines
    const chart::Series critical = lines()[0];
    EXPECT_FLOAT_EQ(critical.y[0], static_cast<float>(the_substance.Tcrit));
    EXPECT_EQ(critical.x[0], -1e10F);
    EXPECT_FLOAT_EQ(critical.x[1], sheet.request.xMax);
    EXPECT_EQ(label(1)->text, "T(cr)");
    EXPECT_NEAR(
        label(1)->x,
        static_cast<double>(sheet.request.xMin) +
            (static_cast<double>(sheet.request.xMax) - static_cast<double>(sheet.request.xMin)) / 6,
        1e-6);
    EXPECT_EQ(label(2)->text, "T(triple)");
    // A second run takes the place of the first.
    ASSERT_TRUE(Module9::mark_t_grenzen(sheet));
    EXPECT_EQ(lines().size(), 2U);
    EXPECT_EQ(sheet.CurveCount, 0);
}

TEST_F(SheetMarks, LeavesOutTheTripleLineWithoutATriplePoint) {
    the_substance.Ttriple = 0;
    open(15);
    ASSERT_TRUE(Module9::mark_t_grenzen(sheet));
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_FLOAT_EQ(lines()[0].x[0], lines()[0].x[1]);
    EXPECT_EQ(label(2), nullptr);
}

TEST_F(SheetMarks, AddsBoilingTemperaturesToTheGasPart) {
    the_session.PartialGasCurve = true;
    open(15);
    ASSERT_TRUE(Module9::mark_t_grenzen(sheet));
    ASSERT_EQ(lines().size(), 4U);
    EXPECT_EQ(label(3)->text, "                      T(LV) at p");
    EXPECT_EQ(label(4)->text, "                      T(LV) at normal pressure");
    const double TLV =
        models::boiling_temperature(the_substance, 1000, legacy::the_models.VPModel).T;
    EXPECT_NEAR(static_cast<double>(lines()[2].x[0]), TLV, 1e-3);
}

TEST_F(SheetMarks, MarksInverseTemperaturesAndLogarithmsOfPressures) {
    open(10);
    ASSERT_TRUE(Module9::mark_t_grenzen(sheet));
    EXPECT_FLOAT_EQ(lines()[0].x[0], static_cast<float>(1 / the_substance.Tcrit));
    ASSERT_TRUE(Module9::mark_pressures(sheet));
    ASSERT_EQ(lines().size(), 3U);
    EXPECT_FLOAT_EQ(lines()[0].y[0], static_cast<float>(std::log(the_substance.pcrit)));
    EXPECT_EQ(label(3)->text, "Normal-p");
    EXPECT_FLOAT_EQ(lines()[2].y[1], std::log(101.325F));
}

TEST_F(SheetMarks, MarksPressuresVerticallyOverP) {
    open(2);
    ASSERT_TRUE(Module9::mark_pressures(sheet));
    ASSERT_EQ(lines().size(), 3U);
    EXPECT_FLOAT_EQ(lines()[0].x[0], static_cast<float>(the_substance.pcrit));
    EXPECT_EQ(lines()[0].y[0], -1e6F);
    EXPECT_EQ(label(2)->text, "p(LV) at T ");
    EXPECT_EQ(label(3)->text, "normal p");
}

TEST_F(SheetMarks, MarksVolumes) {
    open(1);
    ASSERT_TRUE(Module9::mark_volume(sheet));
    ASSERT_TRUE(Module9::mark_volume(sheet));
    ASSERT_EQ(lines().size(), 1U);
    EXPECT_FLOAT_EQ(lines()[0].x[0], static_cast<float>(legacy::the_eosParameters.vcritCalc));
    EXPECT_EQ(lines()[0].y[0], -1e8F);
    ASSERT_TRUE(Module9::mark_covolume(sheet));
    ASSERT_EQ(lines().size(), 2U);
    // b = 0.0778 R Tc / pc for this equation (D.-Y. Peng, D. B. Robinson, 1976).
    const double b = 0.0777960739 * 8.31451 * the_substance.Tcrit / the_substance.pcrit;
    EXPECT_NEAR(static_cast<double>(lines()[1].x[0]), b, 1e-5);
    open(4);
    ASSERT_TRUE(Module9::mark_covolume(sheet));
    EXPECT_NEAR(static_cast<double>(lines()[0].x[0]), the_substance.M / b, 0.2);
}

TEST_F(SheetMarks, MarksTheCriticalPointsOfTheDataAndOfTheEquation) {
    open(1);
    ASSERT_TRUE(Module9::mark_critical_point(sheet, true));
    ASSERT_TRUE(Module9::mark_critical_point(sheet, false));
    const chart::Series& ex = sheet.chart.points[Module9::kCriticalExSeries];
    const chart::Series& calc = sheet.chart.points[Module9::kCriticalCalcSeries];
    EXPECT_FLOAT_EQ(ex.x.at(0), static_cast<float>(the_substance.vcritExp));
    EXPECT_FLOAT_EQ(calc.x.at(0), static_cast<float>(legacy::the_eosParameters.vcritCalc));
    EXPECT_FLOAT_EQ(calc.y.at(0), static_cast<float>(the_substance.pcrit));
    EXPECT_EQ(sheet.PointSetCount, 0);
    EXPECT_NE(label(7), nullptr);
    EXPECT_NE(label(8), nullptr);
    Module9::delete_critical_point(sheet, true);
    EXPECT_EQ(label(7), nullptr);
    EXPECT_TRUE(Module9::has_critical_point(sheet, false));
}

TEST_F(SheetMarks, MarksTheCriticalPointInEveryDiagramOfStates) {
    for (const int code : {1, 2, 26, 3, 4, 5, 6, 7, 8, 9, 10, 15, 16, 17, 18, 150, 107}) {
        open(static_cast<std::int16_t>(code));
        EXPECT_TRUE(Module9::mark_critical_point(sheet, false)) << code << user.lastText();
    }
}

TEST_F(SheetMarks, RefusesACriticalPointWithoutAVolume) {
    the_substance.vcritExp = 0;
    open(1);
    EXPECT_FALSE(Module9::mark_critical_point(sheet, true));
    expectRefusal("No critical density available");
}

TEST_F(SheetMarks, StretchesReferenceLinesWithTheCoordinates) {
    open(1);
    Module9::mark_volume(sheet);
    Module9::set_coordinates(sheet, {{0, 100}, {0, 1e6}});
    EXPECT_EQ(lines()[0].y[1], 1e6F);
}

TEST_F(SheetMarks, TellsACurveOutsideTheCoordinatesAndKeepsIt) {
    open(1);
    Module9::set_coordinates(sheet, {{0.2, 5}, {50000, 60000}});
    EXPECT_TRUE(Module9::Draw(sheet));
    EXPECT_EQ(user.lastText(), "Curve outside the actual coordinates\nEnlarge the coordinates");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_EQ(sheet.CurveCount, 1);
}

TEST_F(SheetMarks, OffersNoMarkInTheSwappedState) {
    open(1);
    Module9::change_xy(sheet);
    for (const Module9::Mark mark : {Module9::Mark::p, Module9::Mark::v, Module9::Mark::TieLine})
        EXPECT_FALSE(Module9::offers_mark(sheet, mark));
    EXPECT_FALSE(Module9::Draw(sheet));
    EXPECT_EQ(sheet.CurveCount, 0);
}

}  // namespace
