#include <QStyleOptionFrame>
#include <cmath>
#include <sstream>

#include "common/text.h"
#include "estimation/fit_models.h"
#include "gui/chart/chart2d_plot.h"
#include "gui/data/editor_views.h"
#include "gui/editor_drive.h"
#include "gui/estimation/estimation_views.h"
#include "gui/estimation/fit_view.h"
#include "gui/frame_test.h"
#include "models/caloric.h"
#include "models/vapour_pressure.h"
#include "session/xy_session.h"
#include "support/codes.h"
#include "support/fluids.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::click;
using drive::read;
using drive::tab;
using drive::type;

constexpr auto kRefused = "Execution not possible";

QString indexed(const char* name, int i) {
    return QString("%1_%2").arg(name).arg(i);
}

double number(const QString& name) {
    return read(name).toDouble();
}

class Fitting : public ViewTest {
  protected:
    Fitting() {
        setSubstance(fluids::Row("Benzene"));
        editor_views::install(desk);
        estimation_views::install(desk);
        desk.doors.editMeasuredData = {};
    }

    /// The fit of the open view.
    static const estimation::FitState& state() {
        return drive::get<FitView>("frmQFitting")->state();
    }
    void setSubstance(const models::SubstanceRecord& substance) {
        session.change()->substance = substance;
    }
    const models::SubstanceRecord& substance() const { return session->substance; }
    /// The points of the XY editor.
    const std::vector<datafiles::FitPoint>& points() const { return session->xy.points; }
    void sample(const std::string& name) {
        ASSERT_TRUE(session::load_xy(session, std::string(QUOR_SOURCE_DATA) + "/samples/" + name));
    }
    void open() {
        change([](auto& s) { s.fit_source = session::FitSource::xyList; });
        desk.doors.fit();
        drive::settle();
    }
    static void choose(const QString& page, int model) {
        tab("SSTab1", page);
        click(indexed("optFit", model));
    }
    /// Points of a function at equal distances.
    template <class Function>
    void usePoints(int n, double from, double to, Function f) {
        std::vector<datafiles::FitPoint> all;
        for (int i = 0; i < n; ++i) {
            const double x = from + (to - from) * i / (n - 1);
            all.push_back({static_cast<float>(x), static_cast<float>(f(x)), 0});
        }
        session.change()->xy.points = std::move(all);
    }
};

TEST_F(Fitting, OpensOnTheGeneralTabWithTheFirstModel) {
    open();
    EXPECT_EQ(drive::find("frmQFitting")->windowTitle(), "   Fitting");
    EXPECT_EQ(drive::tabInFront("SSTab1"), "General");
    EXPECT_TRUE(drive::isChecked("optFit_0"));
    EXPECT_EQ(read("lblTitle"), " Fitting y = f(T) (data not yet loaded)");
    EXPECT_EQ(read("lblEquation"), "y = A + B x + C  x^2 + D  x^3 + E x^4 + F x^5");
    EXPECT_EQ(read("lblTarget"),
              "... in the actually loaded data of Benzene (cf. editor \"Data / View/Edit Data of "
              "the Substance\")");
    for (const char* hidden : {"fraFQS", "fraGraph", "txtResult_0", "cmdLeftAll", "chkLg"})
        EXPECT_FALSE(drive::isVisible(hidden)) << hidden;
}

// What every model shows: its tab, its option, its start values, its fixed marks.
struct Shown {
    const char* page;
    int model;
    const char* option;
    std::vector<double> start;
    std::vector<int> fixed;
    std::vector<const char*> labels;
    bool Tcr = false, pcr = false, lg = false;
};

TEST_F(Fitting, EveryModelShowsItsParameters) {
    change([](auto& s) {
        s.substance.Tcrit = 562.05;
        s.substance.pcrit = 4894;
    });
    const double D0 = 1.8 * -5000 / 562.05 + 2.67;
    const std::vector<Shown> all{
        {"General",
         0,
         "Polynomial",
         {1, 1, 1, 0, 0, 0},
         {3, 4, 5},
         {"A = ", "B = ", "C = ", "D = ", "E = ", "F = "}},
        {"General",
         1,
         "Combi-expression",
         {1, 1, 1, 0, 0, 0, 0},
         {5, 6},
         {"A = ", "B = ", "C = ", "D = ", "E = ", "F = ", "G = "}},
        {"Vapour pressure",
         3,
         "AUGUST, DUPRÉ-RANKINE",
         {20, 1500, -1},
         {},
         {"A = ", "B = ", "D = "},
         false,
         false,
         true},
        {"Vapour pressure",
         4,
         "ANTOINE",
         {10, 3000, 200},
         {},
         {"A = ", "B = ", "C = "},
         false,
         false,
         true},
        {"Vapour pressure",
         5,
         "FROST-KALKWARF",
         {50, -5000, 273.15, D0, 5},
         {2},
         {"A = ", "B = ", "C = ", "D = ", "E = "},
         false,
         false,
         true},
        {"Vapour pressure",
         6,
         "FROST-KALKWARF/THODOS",
         {20, -12 * 562.05 / 1.8, 273.15, 5, 5},
         {2, 3},
         {"A = ", "B = ", "C = ", "D = ", "E = "},
         true,
         false,
         true},
        {"Vapour pressure",
         7,
         " RIEDEL/PLANK/MILLER equation",
         {20, -1500, -1, 1e-5, 2},
         {4},
         {"A = ", "B = ", "D = ", "H = ", "I = "},
         false,
         false,
         true},
        {"Vapour pressure",
         8,
         "WAGNER",
         {1, 1, 1, 1},
         {},
         {"A = ", "B = ", "C = ", "D = "},
         true,
         true,
         false},
        {"L-Density", 9, "RACKETT  (DIPPR)", {75, 0.3, 0.24}, {}, {"A = ", "B = ", "C = "}, true},
        {"L-Density",
         10,
         "LEUNA equation",
         {500, -1, 0.002, -2e-6, 500},
         {},
         {"A = ", "B = ", "C = ", "D = ", "E = "},
         true},
        {"L-Density",
         11,
         "Polynomial",
         {600, 1, -0.001, -1e-6},
         {},
         {"A = ", "B = ", "C = ", "D = "}},
        {"delta(LV)h",
         14,
         "MAJER equation",
         {30000, 0.3, 0.3},
         {},
         {"A = ", "alpha = ", "beta = "},
         true},
        {"delta(LV)h",
         15,
         "DIPPR equation",
         {30000, 0.3, 0.3, 0, 0},
         {},
         {"A = ", "B = ", "C = ", "D = ", "E = "},
         true},
        {"Heat capac.",
         16,
         "Polynomial",
         {20, 0.02, -1e-5, -1e-8, 0},
         {},
         {"A = ", "B = ", "C = ", "D = ", "E = "}},
        {"Heat capac.",
         17,
         "SHOMATE equation",
         {30, 0.2, -2e-5, -1e-8, -1e6},
         {},
         {"A = ", "B = ", "C = ", "D = ", "E = "}},
        {"Heat capac.",
         18,
         "DIPPR equation cp(IdGas)",
         {60, 300, 1500, 200, 500},
         {},
         {"A = ", "B = ", "C = ", "D = ", "E = "}}};
    open();
    for (const Shown& one : all) {
        choose(one.page, one.model);
        SCOPED_TRACE(one.model);
        EXPECT_EQ(read(indexed("optFit", one.model)), one.option);
        for (int i = 0; i < 7; ++i) {
            const bool used = i < static_cast<int>(one.start.size());
            const auto k = static_cast<std::size_t>(i);
            ASSERT_EQ(drive::isVisible(indexed("txtStart", i)), used) << i;
            EXPECT_EQ(drive::isVisible(indexed("chkFix", i)), used) << i;
            if (!used) {
                EXPECT_EQ(read(indexed("txtStart", i)), " 0") << i;
                continue;
            }
            EXPECT_EQ(read(indexed("lblPar", i)), one.labels[k]) << i;
            EXPECT_NEAR(number(indexed("txtStart", i)), one.start[k],
                        1e-11 * std::fabs(one.start[k]))
                << i;
            const bool fixed = std::find(one.fixed.begin(), one.fixed.end(), i) != one.fixed.end();
            EXPECT_EQ(drive::isChecked(indexed("chkFix", i)), fixed) << i;
        }
        EXPECT_EQ(drive::isVisible("txtTcr"), one.Tcr);
        EXPECT_EQ(drive::isVisible("txtpcr"), one.pcr);
        EXPECT_EQ(drive::isVisible("chkLg"), one.lg);
        EXPECT_DOUBLE_EQ(number("txtTcr"), one.Tcr ? 562.05 : 0);
        EXPECT_DOUBLE_EQ(number("txtpcr"), one.pcr ? 4894 : 0);
    }
}

TEST_F(Fitting, TabsNameTheirDataAndUnits) {
    open();
    EXPECT_EQ(read("lblData"), "y = f(T)");
    tab("SSTab1", "Vapour pressure");
    EXPECT_EQ(read("lblData"), "p = f(T)");
    tab("SSTab1", "Heat capac.");
    EXPECT_EQ(read("lblData"), "y = f(T)");
    EXPECT_TRUE(drive::isVisible("optcpPhase_0"));
}

TEST_F(Fitting, TheDecadicFormHasItsCaptionAndStartValues) {
    open();
    choose("Vapour pressure", 4);
    EXPECT_EQ(read("lblEquation"), "ln(p/kPa) = A - B / (C + t/°C)");
    click("chkLg");
    EXPECT_EQ(read("lblEquation"), "lg(p/kPa) = A - B / (C + t/°C)");
    EXPECT_EQ(number("txtStart_0"), 5);
    EXPECT_EQ(number("txtStart_1"), 1500);
    type("txtStart_0", "6");
    click("chkLg");
    EXPECT_EQ(number("txtStart_0"), 6) << "what was typed stays";
    choose("Vapour pressure", 8);
    EXPECT_FALSE(drive::isVisible("chkLg"));
}

TEST_F(Fitting, WithoutDataItRefuses) {
    open();
    click("cmdStart");
    EXPECT_EQ(user.lastText(),
              "data not yet available\nmanual data input or loading data via file necessary");
    EXPECT_EQ(user.lastTitle(), kRefused);
    EXPECT_FALSE(drive::isVisible("fraFQS"));
}

TEST_F(Fitting, CriticalDataAreNeededWhereTheModelHasThem) {
    sample("benzene_vapour_pressure.XY");
    change([](auto& s) { s.substance.Tcrit = 0; });
    open();
    choose("Vapour pressure", 6);
    click("cmdStart");
    EXPECT_EQ(user.lastText(), "Tcr is needed for the correlation of parameter D.");
    choose("Vapour pressure", 8);
    click("cmdStart");
    EXPECT_EQ(user.lastText(), "Tcr needed");
    type("txtTcr", "562");
    type("txtpcr", "0");
    click("cmdStart");
    EXPECT_EQ(user.lastText(), "pcr needed");
    for (const auto& [page, model] :
         {std::pair{"L-Density", 9}, {"L-Density", 10}, {"delta(LV)h", 14}, {"delta(LV)h", 15}}) {
        choose(page, model);
        click("cmdStart");
        EXPECT_EQ(user.lastText(), "Tcr needed") << model;
    }
}

TEST_F(Fitting, AsManyPointsAsParametersAreTooFew) {
    usePoints(6, 1, 6, [](double x) { return x; });
    open();
    click("cmdStart");
    EXPECT_EQ(
        user.lastText(),
        "The number of the (active) measuring points has to be greater than the number of the "
        "parameters!\nDo complete the data in the data editor.");
    change([](auto& s) { s.xy.points.push_back({7, 7, -1}); });
    open();
    click("cmdStart");
    EXPECT_EQ(user.messages.size(), 2U) << "an inactive point does not count";
}

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

TEST_F(Fitting, ResultsBecomeStartValues) {
    usePoints(11, 1, 6, [](double x) { return 3 - 2 * x; });
    open();
    click("cmdStart");
    click("cmdleft_1");
    EXPECT_EQ(read("txtStart_1"), read("txtResult_1"));
    EXPECT_EQ(number("txtStart_0"), 1);
    click("cmdLeftAll");
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(read(indexed("txtStart", i)), read(indexed("txtResult", i))) << i;
    EXPECT_TRUE(state().start == state().parameters);
}

TEST_F(Fitting, ANewModelHidesTheResultsOfTheLast) {
    usePoints(11, 1, 6, [](double x) { return 3 - 2 * x; });
    open();
    click("cmdStart");
    EXPECT_TRUE(drive::isVisible("fraGraph"));
    click("optFit_1");
    for (const char* hidden : {"fraFQS", "fraGraph", "txtResult_0", "cmdleft_0"})
        EXPECT_FALSE(drive::isVisible(hidden)) << hidden;
}

TEST_F(Fitting, AFixedRowIsGreyAndReadsZeroWhenItWasEmpty) {
    open();
    click("chkFix_3");
    EXPECT_FALSE(state().fixed[3]);
    const QColor normal = drive::find("txtStart_3")->palette().color(QPalette::Text);
    type("txtStart_3", "");
    click("chkFix_3");
    EXPECT_TRUE(state().fixed[3]);
    EXPECT_EQ(read("txtStart_3"), " 0.");
    EXPECT_NE(drive::find("txtStart_3")->palette().color(QPalette::Text), normal);
}

TEST_F(Fitting, AFixedParameterKeepsItsStartValue) {
    sample("benzene_vapour_pressure.XY");
    open();
    choose("Vapour pressure", 4);
    type("txtStart_2", "220,79");
    click("chkFix_2");
    click("cmdPropose");
    EXPECT_DOUBLE_EQ(number("txtStart_2"), 220.79);
    click("cmdStart");
    EXPECT_DOUBLE_EQ(number("txtResult_2"), 220.79);
    EXPECT_EQ(read("txtInterval_2"), "");
    EXPECT_NE(read("txtInterval_1"), "");
}

TEST_F(Fitting, TheSumOfSquaresMayBeOneOfLogarithms) {
    sample("benzene_vapour_pressure.XY");
    open();
    EXPECT_FALSE(drive::isEnabled("optLogFit_1")) << "a linear model has no such choice";
    choose("Vapour pressure", 4);
    EXPECT_EQ(read("optLogFit_0"), "SQ using y difference");
    EXPECT_EQ(read("optLogFit_1"), "SQ using ln(y) difference ");
    click("cmdPropose");
    click("cmdStart");
    EXPECT_TRUE(
        read("lblExplanation").startsWith("sum of squares SQ = sum[(p(i),calc - p(i),exp)^2]"));
    const QString plain = read("lblSQ");
    click("optLogFit_1");
    click("cmdStart");
    EXPECT_TRUE(read("lblExplanation").contains("ln("));
    EXPECT_NE(read("lblSQ"), plain);
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

TEST_F(Fitting, TheThodosFormShowsItsComputedParameter) {
    sample("benzene_vapour_pressure.XY");
    open();
    choose("Vapour pressure", 6);
    EXPECT_FALSE(drive::isEnabled("chkFix_3"));
    EXPECT_EQ(read("lblRemark"), " parameter D, THODOS correlated: D = 1.80 /Tcr * B + 2.67 ");
    click("cmdPropose");
    click("cmdStart");
    const double B = number("txtResult_1");
    EXPECT_NEAR(number("txtResult_3"), 1.8 * B / (std::log(10.0) * substance().Tcrit) + 2.67, 1e-6);
    EXPECT_EQ(read("txtStdDev_3"), "");
    EXPECT_NE(read("txtStdDev_1"), "");
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

TEST_F(Fitting, TheTpvEditorIsASourceToo) {
    change([](auto& s) {
        for (const double i : {1.0, 2.0, 3.0, 4.0})
            s.measured.points.push_back({.T = 300 + 10 * i, .p = 5 * i});
        s.measured.points[2].skip = 1;
        s.fit_source = session::FitSource::measuredData;
        s.fit_column = 1;
    });
    desk.doors.fit();
    drive::settle();
    EXPECT_EQ(read("lblTitle"),
              " Fitting y = f(T) (3 (active) sets of data loaded from T-p-V editor");
}

TEST_F(Fitting, TheXyEditorSendsItsPoints) {
    open();
    click("cmdGotoXYEditor");
    ASSERT_TRUE(drive::isVisible("frmManuInput"));
    for (const char* x : {"1", "2", "3"}) {
        type("txtX", x);
        type("txtY", x);
        click("OKinput");
    }
    change([](auto& s) { s.fit_source = session::FitSource::measuredData; });
    click("cmdFitting");
    EXPECT_EQ(read("lblTitle"), " Fitting y = f(T) (3 (active) sets of data loaded from XY editor");
    EXPECT_FALSE(drive::isEnabled("cmdGotoTpvEditor")) << "nobody opens that editor here";
    user.answers.push_back(dialogs::Answer::No);
    drive::find("frmManuInput")->close();
}

TEST_F(Fitting, WithoutASubstanceThereIsNothingToApplyTo) {
    setSubstance({});
    open();
    EXPECT_FALSE(drive::isEnabled("cmdApply"));
    EXPECT_EQ(read("lblTarget"), "");
}

TEST_F(Fitting, AFitOfTwoHundredPointsIsDoneAtOnce) {
    usePoints(200, 250, 500, [](double T) { return std::exp(14 - 2800 / (T - 50)); });
    open();
    choose("Vapour pressure", 4);
    click("cmdPropose");
    click("cmdStart");
    EXPECT_NEAR(number("txtResult_0"), 14, 1e-3);
    EXPECT_NEAR(number("txtResult_1"), 2800, 1);
    EXPECT_NEAR(number("txtResult_2"), 223.15, 0.05);
}

TEST_F(Fitting, TheBusyPointerShowsDuringAFit) {
    usePoints(11, 1, 6, [](double x) { return 3 - 2 * x; });
    open();
    user.pointer.clear();
    click("cmdStart");
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false}));
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

TEST_F(Fitting, ANewFitTakesTheCriticalDataOfTheActiveSubstance) {
    sample("benzene_vapour_pressure.XY");
    open();
    choose("Vapour pressure", 8);
    EXPECT_NEAR(number("txtTcr"), fluids::Row("Benzene").Tcrit, 1e-9);
    setSubstance(fluids::Row("Propane"));
    click("optFit_8");
    EXPECT_NEAR(number("txtTcr"), fluids::Row("Propane").Tcrit, 1e-9);
    EXPECT_NEAR(number("txtpcr"), fluids::Row("Propane").pcrit, 1e-9);
    EXPECT_EQ(state().substance.name, "Propane");
    EXPECT_TRUE(read("lblTarget").startsWith("... in the actually loaded data of Propane"));
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

TEST_F(Fitting, AFitOfFailedStartValuesSaysThatItBeganAtTheProposedOnes) {
    sample("propane_vapour_pressure.XY");
    setSubstance(fluids::Row("Propane"));
    open();
    choose("Vapour pressure", 5);
    const QString start = read("txtStart_0");
    click("cmdStart");
    EXPECT_EQ(read("lblNotes"),
              "The start values led to no good fit: this one began at the proposed ones.");
    EXPECT_EQ(read("txtStart_0"), start);
    EXPECT_TRUE(read("lblSQ").startsWith("SQ = 1.07")) << read("lblSQ").toStdString();
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

/// True when all of a field's text is in sight.
bool isWhole(const QString& name) {
    const auto* field = drive::get<QLineEdit>(name);
    QStyleOptionFrame option;
    option.initFrom(field);
    option.lineWidth = field->style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    const QRect inside =
        field->style()->subElementRect(QStyle::SE_LineEditContents, &option, field);
    constexpr int kQtMargin = 2;  // on both sides of the text
    return field->fontMetrics().horizontalAdvance(field->text()) + 2 * kQtMargin <= inside.width();
}

TEST_F(Fitting, AnExponentIsNotCutOffInItsField) {
    usePoints(40, 300, 900, [](double T) {
        return 1e-4 * (33.1 - 4.09773149233725e-3 * T + 1.1e-5 * T * T + std::sin(T));
    });
    open();
    for (const auto& [page, model] : {std::pair{"Heat capac.", 16}, {"General", 0}}) {
        choose(page, model);
        if (model == 0)
            for (const int i : {3, 4, 5}) click(indexed("chkFix", i));
        click("cmdStart");
        click("cmdLeftAll");
        bool any = false;
        for (int i = 0; i < state().parameter_count; ++i) {
            for (const char* field : {"txtStart", "txtResult", "txtStdDev", "txtInterval"}) {
                const QString text = read(indexed(field, i));
                EXPECT_TRUE(isWhole(indexed(field, i))) << field << " " << text.toStdString();
                any = any || text.contains("E-");
            }
            const QString digits = read(indexed("txtResult", i)).section('E', 0, 0).remove('-');
            EXPECT_LE(digits.size(), 18) << digits.toStdString();
        }
        EXPECT_TRUE(any) << "no exponent was shown";
    }
}

TEST_F(Fitting, CopyingAParameterCopiesAllItsDigits) {
    usePoints(11, 1, 6, [](double x) { return 3 - 2 * x + 0.1 * std::sin(x); });
    open();
    click("cmdStart");
    ASSERT_NE(read("txtResult_1").toDouble(), state().parameters[1]) << "twelve digits are shown";
    const auto copyAll = [](const QString& name) {
        auto* field = drive::get<QLineEdit>(name);
        field->selectAll();
        QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
    };
    copyAll("txtResult_1");
    EXPECT_EQ(QString::fromStdString(user.clipboard).toDouble(), state().parameters[1]);
    click("cmdLeftAll");
    copyAll("txtStart_2");
    EXPECT_EQ(QString::fromStdString(user.clipboard).toDouble(), state().parameters[2]);
    type("txtStart_2", "0.25");
    user.clipboard.clear();
    copyAll("txtStart_2");
    EXPECT_EQ(user.clipboard, "") << "what was typed is copied as it stands";
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

TEST_F(Fitting, AnotherCriticalTemperatureMovesTheStartValueThatFollowsIt) {
    change([](auto& s) { s.substance.Tcrit = 0; });
    open();
    choose("Vapour pressure", 6);
    EXPECT_EQ(number("txtStart_1"), 0);
    type("txtTcr", "500");
    drive::press("txtTcr", Qt::Key_Tab);
    EXPECT_NEAR(number("txtStart_1"), -12 * 500 / 1.8, 1e-8);
    type("txtStart_1", "-4000");
    type("txtTcr", "600");
    drive::press("txtTcr", Qt::Key_Tab);
    EXPECT_EQ(number("txtStart_1"), -4000) << "what was typed stays";
}

}  // namespace
