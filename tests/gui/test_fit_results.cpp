#include <cmath>
#include <sstream>

#include "common/text.h"
#include "gui/chart/chart2d_plot.h"
#include "gui/fit_view_test.h"
#include "models/caloric.h"
#include "models/vapour_pressure.h"
#include "support/codes.h"

namespace {

using drive::click;
using drive::read;
using drive::type;

constexpr auto kRefused = "Execution not possible";

TEST_F(Fitting, APolynomialIsFittedAndUsed) {
    usePoints(11, 0.5, 5.5, [](double x) { return 3 - 2 * x + 0.5 * x * x; });
    open();
    EXPECT_EQ(read("lblTitle"),
              " Fitting y = f(T) (11 (active) sets of data loaded from XY editor");
    click("cmdStart");
    EXPECT_TRUE(user.messages.empty());
    EXPECT_NEAR(number("txtResult_0"), 3, 1e-5);
    EXPECT_NEAR(number("txtResult_1"), -2, 1e-5);
    EXPECT_NEAR(number("txtResult_2"), 0.5, 1e-5);
    EXPECT_EQ(number("txtResult_3"), 0);
    EXPECT_EQ(read("fraFQS"), "Quality of the fitting (N = 11, NPar = 6)");
    EXPECT_TRUE(read("lblSQ").startsWith("SQ = "));
    EXPECT_TRUE(read("lblsR").startsWith("s(R) = "));
    EXPECT_EQ(read("lblExplanation"),
              "sum of squares SQ = sum[(y(i),calc - y(i),exp)^2]\n"
              "resid. standard deviation s(R) = SQRT(FQS / (N -NPar))\n"
              " SQRT = square root, N = number of measuring points, NPar = number of adjustable "
              "parameters ");
    EXPECT_TRUE(drive::isVisible("tblCorrelation"));
    EXPECT_EQ(drive::lines("tblCorrelation"), 3);
    EXPECT_EQ(drive::cell("tblCorrelation", 2, 2), "1.0000");
    EXPECT_EQ(drive::cell("tblCorrelation", 1, 3), drive::cell("tblCorrelation", 3, 1));

    type("txtXY", "2");
    click("cmdCalc");
    EXPECT_TRUE(read("lblCalc").startsWith("y = "));
    EXPECT_NEAR(read("lblCalc").mid(4).toDouble(), 1, 1e-5);
    // 3 - 2 x + x^2/2 = 9 has its root nearest to the points at x = 6.
    click("optCalc_1");
    type("txtXY", "9");
    drive::press("txtXY", Qt::Key_Return);
    EXPECT_TRUE(read("lblCalc").startsWith("T = "));
    EXPECT_NEAR(read("lblCalc").mid(4).toDouble(), 6, 1e-4);
    type("txtXY", "-1000");
    click("cmdCalc");
    EXPECT_EQ(user.lastTitle(), "Error");
    EXPECT_EQ(read("lblCalc"), "");
    type("txtXY", "");
    click("cmdCalc");
    EXPECT_EQ(drive::find("txtXY")->toolTip(), "A number is needed here.");
}

/// A sample of vapour pressures fitted to its end and applied: the program's own equation then
/// gives the measured pressures.
TEST_F(Fitting, AMeasuredVapourPressureCurveReachesTheSubstance) {
    sample("benzene_vapour_pressure.XY");
    const std::vector<datafiles::FitPoint> measured = points();
    for (const bool lg : {false, true}) {
        SCOPED_TRACE(lg);
        change([](auto& s) { s.substance.antoine_low = {}; });
        open();
        choose("Vapour pressure", 4);
        if (drive::isChecked("chkLg") != lg) click("chkLg");
        click("cmdPropose");
        click("cmdStart");
        ASSERT_TRUE(drive::isVisible("fraFQS"));
        EXPECT_FALSE(drive::isVisible("lblNotes")) << read("lblNotes").toStdString();
        EXPECT_TRUE(read("lblDeviations").startsWith("mean deviation "));
        user.messages.clear();
        click("cmdApply");
        ASSERT_EQ(user.messages.size(), 2U);
        EXPECT_EQ(user.messages[0].text,
                  std::string("These parameters are") +
                      (lg ? "" : " (after re-calculation to lg)") +
                      "\nincluded in the\nANTOINE (Lo-p) parameter set of QUOR.");
        EXPECT_EQ(user.messages[1].title, "Parameters succuessfully applied");
        EXPECT_EQ(user.messages[1].text,
                  "These parameters are activ now in the resp. database function of QUOR\n"
                  "and can be viewed/edited under \"Data/Data editor\".\n\n"
                  "Single value calculations y=f(T) can be carried out\n"
                  "under \"Calculation / Database functions\".\n\n"
                  "They live in this session only. To keep them, save a private database\n"
                  "under \"Data/Data editor\".");
        EXPECT_EQ(substance().antoine_low.T_low, 313);
        for (const datafiles::FitPoint& p : measured) {
            const auto result =
                models::vapour_pressure(substance(), static_cast<double>(p.x), codes::vp("ALP"));
            EXPECT_NEAR(result->p, static_cast<double>(p.y), 0.03 * static_cast<double>(p.y));
        }
    }
}

TEST_F(Fitting, TheResultIsPrinted) {
    sample("benzene_vapour_pressure.XY");
    open();
    choose("Vapour pressure", 4);
    click("cmdPropose");
    click("cmdStart");
    click("cmdPrint");
    ASSERT_EQ(user.prints.size(), 1U);
    const std::string& text = user.prints[0].text;
    for (const char* name : {"txtResult_0", "txtResult_2", "lblDeviations", "lblEquation"})
        EXPECT_NE(text.find(read(name).toStdString()), std::string::npos) << name << "\n" << text;
    EXPECT_NE(text.find("ANTOINE"), std::string::npos) << "the chosen model";
    EXPECT_NE(text.find("1.0000"), std::string::npos) << "the correlation matrix";
    EXPECT_EQ(text.find("WAGNER"), std::string::npos) << "what is not chosen is left out";
}

TEST_F(Fitting, AugustIsFittedButNotApplied) {
    sample("benzene_vapour_pressure.XY");
    open();
    choose("Vapour pressure", 3);
    click("cmdPropose");
    click("cmdStart");
    EXPECT_TRUE(drive::isVisible("fraFQS"));
    const models::AntoineSet before = substance().antoine_low;
    click("cmdApply");
    EXPECT_EQ(user.lastText(),
              "AUGUST/DUPRÉ-RANKINE are equations not used by QUOR.\nIf you want to use AUGUST, "
              "chooce ANTOINE C-fixed = 273.15");
    EXPECT_EQ(substance().antoine_low.A, before.A);
}

TEST_F(Fitting, HeatCapacitiesGoToTheirPhase) {
    sample("ethanol_liquid_cp.XY");
    open();
    choose("Heat capac.", 17);
    click("cmdPropose");
    click("cmdStart");
    const models::CpSet gas = substance().cp_polynomial, solid = substance().cpS;
    user.answers.push_back(dialogs::Answer::Yes);  // one of its parameters rests on a bound
    click("cmdApply");
    EXPECT_EQ(substance().cp_polynomial, gas)
        << "nothing of this model is stored for the ideal gas";
    click("optcpPhase_1");
    user.answers.push_back(dialogs::Answer::Yes);
    click("cmdApply");
    EXPECT_EQ(user.lastTitle(), "Parameters succuessfully applied");
    EXPECT_TRUE(substance().has_cpL);
    for (const datafiles::FitPoint& p : points())
        EXPECT_NEAR(models::polynomial_cp(substance().cpL, static_cast<double>(p.x)).value(),
                    static_cast<double>(p.y), 0.02 * static_cast<double>(p.y));
    EXPECT_EQ(substance().cpS, solid);
    choose("Heat capac.", 18);
    click("cmdApply");
    EXPECT_EQ(user.lastText(), "The DIPPR function for cp is only available for cp(IdGas)");
}

TEST_F(Fitting, GraphsShowFunctionResidualsAndLogarithms) {
    sample("benzene_vapour_pressure.XY");
    open();
    choose("Vapour pressure", 4);
    click("cmdPropose");
    click("cmdStart");
    const auto& chart = drive::get<FitGraphFrame>("fraGraph")->shown();
    EXPECT_EQ(chart.header.text, "fitted function y(T)");
    EXPECT_EQ(chart.x.title, "T / K");
    EXPECT_EQ(chart.y.title, "p/ kPa");
    ASSERT_EQ(chart.points.size(), 1U);
    EXPECT_EQ(chart.points[0].x.size(), points().size());
    EXPECT_GT(chart.curves[0].x.size(), 100U);
    const double width = static_cast<double>(points().back().x - points().front().x);
    EXPECT_NEAR(chart.x.max - chart.x.min, 1.1 * width, 1e-6 * width);
    click("cmdGraphResid");
    EXPECT_EQ(chart.header.text, "residuals of the fitting, absolute");
    EXPECT_EQ(chart.y.title, "(p(calc) - p(exp)) / kPa");
    EXPECT_LT(chart.y.min, 0);
    EXPECT_GT(chart.y.max, 0);
    click("cmdGraphLnp");
    EXPECT_EQ(chart.header.text, "fitted function ln{p} = f(1/T))");
    EXPECT_EQ(chart.x.title, "1/ (T/K)");
    EXPECT_EQ(chart.y.title, "ln (p/kPa)");
    EXPECT_NEAR(chart.points[0].y[0], std::log(static_cast<double>(points()[0].y)), 1e-5);
    click("cmdGraphFunction");
    EXPECT_EQ(chart.header.text, "fitted function y(T)");
}

TEST_F(Fitting, LogarithmsOfZerosAreRefused) {
    usePoints(11, 0, 5, [](double x) { return x; });
    open();
    type("txtStart_0", "0");
    click("cmdStart");
    click("cmdGraphLnp");
    EXPECT_EQ(user.lastText(), "T- and p-column may not contain zero values!");
    EXPECT_EQ(user.lastTitle(), kRefused);
    EXPECT_EQ(drive::get<FitGraphFrame>("fraGraph")->shown().header.text, "fitted function y(T)");
}

TEST_F(Fitting, AFitThatWentWrongSaysSo) {
    usePoints(12, 300, 400, [](double x) { return 100 - 0.1 * x; });
    open();
    choose("Heat capac.", 16);
    click("cmdStart");
    ASSERT_TRUE(drive::isVisible("lblNotes"));
    EXPECT_TRUE(read("lblNotes").contains("Without influence on the function: E."))
        << read("lblNotes").toStdString();
}

TEST_F(Fitting, WithoutASubstanceThereIsNothingToApplyTo) {
    setSubstance({});
    open();
    EXPECT_FALSE(drive::isEnabled("cmdApply"));
    EXPECT_EQ(read("lblTarget"), "");
}

/// Benzene's fit stays benzene's when propane is chosen beside it.
TEST_F(Fitting, AFitIsNotWrittenIntoAnotherSubstance) {
    sample("benzene_vapour_pressure.XY");
    open();
    choose("Vapour pressure", 4);
    click("cmdPropose");
    click("cmdStart");
    const models::SubstanceRecord propane = fluids::Row("Propane");
    setSubstance(propane);
    EXPECT_EQ(read("lblTarget"),
              "... of Benzene, but Propane is loaded now: choose the model again for it");
    click("cmdApply");
    EXPECT_EQ(user.lastText(),
              "This fit belongs to Benzene,\nbut Propane is loaded now. Nothing was applied.");
    EXPECT_EQ(user.lastTitle(), kRefused);
    EXPECT_EQ(substance().antoine_low.A, propane.antoine_low.A);

    setSubstance(fluids::Row("Benzene"));
    click("cmdApply");
    EXPECT_EQ(user.lastTitle(), "Parameters succuessfully applied");
    EXPECT_NEAR(substance().antoine_low.A * std::log(10.0), number("txtResult_0"), 1e-4);
}

TEST_F(Fitting, AWorthlessFitIsAppliedOnlyAfterAQuestion) {
    // All points are one temperature: they cannot tell three parameters apart.
    usePoints(11, 300, 310, [](double) { return 7; });
    open();
    choose("L-Density", 10);
    type("txtStart_0", "1e9");
    click("cmdStart");
    ASSERT_TRUE(read("lblNotes").startsWith("This fit is worthless:"))
        << read("lblNotes").toStdString();
    const models::SubstanceRecord before = substance();
    user.messages.clear();
    click("cmdApply");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_TRUE(user.lastText().starts_with("This fit is worthless:\n")) << user.lastText();
    EXPECT_EQ(user.messages[0].buttons, dialogs::Buttons::YesNo);
    EXPECT_EQ(user.messages[0].default_answer, dialogs::Answer::No);
    EXPECT_EQ(substance(), before);
    user.answers.push_back(dialogs::Answer::Yes);
    click("cmdApply");
    EXPECT_EQ(user.lastTitle(), "Parameters succuessfully applied");
    EXPECT_NE(substance().rhoL_coefficients, before.rhoL_coefficients);
}

TEST_F(Fitting, StandardDeviationsThatCannotBeHadAreToldByDashes) {
    usePoints(11, 300, 310, [](double) { return 7; });
    open();
    choose("L-Density", 10);
    type("txtStart_0", "1e9");
    click("cmdStart");
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(read(indexed("txtStdDev", i)), " ---") << i;
        EXPECT_EQ(read(indexed("txtInterval", i)), " ---") << i;
    }
}

TEST_F(Fitting, AModelWithoutAPlaceInTheDataSaysSoWhenItIsApplied) {
    usePoints(11, 1, 6, [](double x) { return 3 - 2 * x; });
    open();
    click("cmdStart");
    user.messages.clear();
    click("cmdApply");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "The data of a substance have no place for these parameters.");
    EXPECT_EQ(user.lastTitle(), kRefused);
}

TEST_F(Fitting, ThePrintedFitHoldsSubstancePointsResidualsAndGraph) {
    sample("benzene_vapour_pressure.XY");
    open();
    choose("Vapour pressure", 4);
    click("cmdStart");
    drive::press("cmdStart", Qt::Key_P, Qt::ControlModifier);
    ASSERT_EQ(user.prints.size(), 1U);
    const std::string& text = user.prints[0].text;
    EXPECT_TRUE(text.starts_with("Benzene\n")) << text;
    const std::vector<std::string> lines = text::lines(text);
    const auto head = std::find_if(lines.begin(), lines.end(),
                                   [](const std::string& line) { return line.starts_with("T/K"); });
    ASSERT_NE(head, lines.end()) << text;
    ASSERT_EQ(lines.end() - head - 1, 16) << "a line for every point";
    for (std::size_t i = 0; i < 16; ++i) {
        std::istringstream cells(*(head + 1 + static_cast<std::ptrdiff_t>(i)));
        double T = 0, measured = 0, calculated = 0, residual = 0, percent = 0;
        ASSERT_TRUE(cells >> T >> measured >> calculated >> residual >> percent) << text;
        EXPECT_NEAR(T, static_cast<double>(points()[i].x), 1e-4);
        EXPECT_NEAR(measured, static_cast<double>(points()[i].y), 1e-4);
        double y = 0;
        ASSERT_TRUE(evaluate_fit(state(), static_cast<double>(points()[i].x), y));
        EXPECT_NEAR(calculated, y, 1e-3);
        EXPECT_NEAR(residual, y - static_cast<double>(points()[i].y), 1e-3);
        EXPECT_NEAR(percent, 100 * residual / measured, 2e-3);
    }
    // Every column of the parameters ends at one place in all its lines.
    const auto first = std::find_if(lines.begin(), lines.end(), [](const std::string& line) {
        return line.find("start value") != std::string::npos;
    });
    ASSERT_NE(first, lines.end());
    for (int i = 1; i <= 3; ++i) EXPECT_EQ((first + i)->size(), (first + 1)->size()) << text;
    EXPECT_NE(user.prints[0].drawing.find("<svg"), std::string::npos);
    EXPECT_GT(user.prints[0].drawing.size(), 2000U);
}

TEST_F(Fitting, ResidualsHaveReadableTicksAndMayBeRelative) {
    sample("benzene_vapour_pressure.XY");
    open();
    choose("Vapour pressure", 8);
    click("cmdStart");
    click("cmdGraphResid");
    const auto* frame = drive::get<FitGraphFrame>("fraGraph");
    const auto numbersOf = [](const std::vector<chart::Tick>& ticks) {
        return std::count_if(ticks.begin(), ticks.end(),
                             [](const chart::Tick& tick) { return !tick.text.empty(); });
    };
    const auto& sheet = drive::get<chart::Chart2DPlot>("chart")->sheet();
    EXPECT_GE(numbersOf(sheet.x.ticks.major), 3);
    EXPECT_GE(numbersOf(sheet.y.ticks.major), 3);
    const std::vector<float> absolute = frame->shown().points[0].y;
    click("chkRelative");
    EXPECT_EQ(frame->shown().header.text, "residuals of the fitting, relative");
    EXPECT_EQ(frame->shown().y.title, "(p(calc) / p(exp) - 1) / %");
    for (std::size_t i = 0; i < absolute.size(); ++i)
        EXPECT_NEAR(frame->shown().points[0].y[i], 100 * absolute[i] / points()[i].y, 1e-4);
    EXPECT_GE(numbersOf(sheet.y.ticks.major), 3);
    click("chkRelative");
    EXPECT_EQ(frame->shown().header.text, "residuals of the fitting, absolute");
}

}  // namespace
