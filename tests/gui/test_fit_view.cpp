#include <QStyleOptionFrame>
#include <cmath>

#include "gui/fit_view_test.h"

namespace {

using drive::click;
using drive::read;
using drive::tab;
using drive::type;

constexpr auto kRefused = "Execution not possible";

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
