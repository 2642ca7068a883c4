#include "common/numbers.h"
#include "gui/calc_view_test.h"
#include "session/calculations.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isChecked;
using drive::isVisible;
using drive::read;
using drive::type;

class IsoCalculatorViewTest : public CalcViewTest {
  protected:
    /// A calculated state of carbon dioxide with the iso-calculator open on it.
    void start(const char* T, const char* p) {
        startProject("Carbon dioxide");
        choose("mnuCalc_11");
        calculate(T, p);
        click("cmdIsoCalc");
    }

    /// A function (1 to 8) of a phase at T and p, calculated anew, with all else left as it is.
    double functionAt(double T, double p, int function, bool liquid) const {
        const report::TaskResult state = report::make_result(session.fluid(), session->reference,
                                                             session::unit_choice(session.state()),
                                                             report::functions_request(T, p));
        return state.numbers[static_cast<std::size_t>(function + (liquid ? 18 : 8))];
    }

    static double shown(const char* name) { return read(name).toDouble(); }
};

struct Label {
    int function;
    const char *caption, *label;
};

TEST_F(IsoCalculatorViewTest, OffersEightFunctionsWithTheirLabels) {
    start("350", "4000");
    EXPECT_EQ(read("frmIsoCalc"), "\"Iso-Calculator\"");
    EXPECT_TRUE(isChecked("OptIsoFu_1"));
    EXPECT_TRUE(isChecked("optIsoTp_2"));
    for (const Label& l :
         {Label{1, "Volume V", "V  = "}, Label{2, "Enthalpy H", "H  = "},
          Label{3, "Entropy S", "S  = "}, Label{4, "Gibbs Function G", "G  = "},
          Label{5, "Internal Energy U", "U  = "}, Label{6, "Helmholtz Fu. A", "A  = "},
          Label{7, "Exergy E(H)", "E(H)="}, Label{8, "Exergy E(U)", "E(U)="}}) {
        const QString name = QString("OptIsoFu_%1").arg(l.function);
        EXPECT_EQ(read(name), l.caption);
        click(name);
        EXPECT_EQ(read("lblFuConst"), l.label);
        EXPECT_EQ(static_cast<int>(session->calculation.iso_function), l.function);
        const double value = functionAt(350, 4000, l.function, false);
        EXPECT_NEAR(shown("txtFuConst"), value, 1e-6 * std::fabs(value)) << l.label;
    }
    EXPECT_EQ(read("lblTpVorgabe"), "p/kPa =");
    EXPECT_EQ(read("lblTpCalc"), "T/K =");
    EXPECT_EQ(read("txtTpVorgabe"), "4000");
    click("optIsoTp_1");
    EXPECT_EQ(session->calculation.iso_given, calculation::IsoGiven::T);
    EXPECT_EQ(read("lblTpVorgabe"), "  T/K =");
    EXPECT_EQ(read("lblTpCalc"), "p/kPa = ");
    EXPECT_EQ(read("txtTpVorgabe"), "350");
    EXPECT_EQ(drive::get("txtFuConst")->toolTip(),
              " manual input possible; for unit see \"Options\" ");
    EXPECT_EQ(drive::get("cmdReset")->toolTip(), " Reset to last successful calculation ");
    EXPECT_EQ(read("optIsoPhase_0"), "L-Phase");
    EXPECT_EQ(read("optIsoPhase_1"), "V-Phase");
}

struct Change {
    const char *T, *p;     // first state
    const char* newTp[2];  // the T and the p specified for the second state
    bool liquid;
};

// The changes are so small that each has a solution: the Helmholtz function of a liquid, say,
// hardly depends on p. Every function, with T and with p specified: the function of the second
// state is that of the first one.
class IsoChanges : public IsoCalculatorViewTest, public testing::WithParamInterface<Change> {};

TEST_P(IsoChanges, KeepEveryFunctionConstant) {
    const Change& c = GetParam();
    start(c.T, c.p);
    click(c.liquid ? "optIsoPhase_0" : "optIsoPhase_1");
    for (int function = 1; function <= 8; ++function)
        for (const int given : {1, 2}) {
            calculate(c.T, c.p);
            click("cmdIsoCalc");
            click(QString("OptIsoFu_%1").arg(function));
            click(c.liquid ? "optIsoPhase_0" : "optIsoPhase_1");
            click(QString("optIsoTp_%1").arg(given));
            const double target = shown("txtFuConst");
            type("txtTpVorgabe", c.newTp[given - 1]);
            click("cmdCalc");
            ASSERT_NE(read("txtTpCalc"), "No solution found")
                << "function " << function << ", given " << given;
            const double specified = QString(c.newTp[given - 1]).toDouble();
            const double found = shown("txtTpCalc");
            const double T2 = given == 1 ? specified : found;
            const double p2 = given == 1 ? found : specified;
            EXPECT_GT(found, 0);
            const double value = functionAt(T2, p2, function, c.liquid);
            EXPECT_NEAR(value, target, 2e-5 * std::max(std::fabs(target), 50.0))
                << "function " << function << ", given " << given;
            // The result view shows the second state.
            EXPECT_NEAR(read("par1").section(' ', 2, 2).toDouble(), T2, 1e-3);
        }
}

INSTANTIATE_TEST_SUITE_P(Phases, IsoChanges,
                         testing::Values(Change{"350", "2000", {"349", "1950"}, false},
                                         Change{"280", "6000", {"280.05", "6050"}, true}),
                         [](const auto& phase) { return phase.param.liquid ? "L" : "V"; });

TEST_F(IsoCalculatorViewTest, FindsTheEndOfAnIsentropicExpansionOfANearlyIdealGas) {
    startProject("Argon");
    choose("mnuCalc_11");
    calculate("300", "20");
    click("cmdIsoCalc");
    click("OptIsoFu_3");
    type("txtTpVorgabe", "10");
    drive::press("txtTpVorgabe", Qt::Key_Return);
    // cp = 5/2 R: T2 = T1 (p2/p1)^(R/cp).
    EXPECT_NEAR(shown("txtTpCalc"), 300 * std::pow(0.5, 0.4), 0.1);
}

TEST_F(IsoCalculatorViewTest, FindsNoSolutionForAPhaseThatDoesNotExist) {
    start("350", "2000");
    // Above the critical temperature both columns hold the one phase; a vapour below it does not.
    click("cmdEsc");
    calculate("250", "500");
    click("cmdIsoCalc");
    EXPECT_TRUE(isChecked("optIsoPhase_1"));
    click("optIsoPhase_0");
    type("txtTpVorgabe", "600");
    click("cmdCalc");
    EXPECT_EQ(read("txtTpCalc"), "No solution found");
    EXPECT_EQ(session->calculation.direct.T, 250.0);
    EXPECT_EQ(session->calculation.direct.p, 500.0);
    EXPECT_EQ(read("par1"), "T = 250.000 K");
}

TEST_F(IsoCalculatorViewTest, ResetsToTheLastSuccessfulCalculation) {
    start("350", "4000");
    click("OptIsoFu_2");
    type("txtTpVorgabe", "2000");
    click("cmdCalc");
    const QString T = read("txtTpCalc");
    const double v = functionAt(T.toDouble(), 2000, 1, false);
    click("OptIsoFu_1");
    type("txtFuConst", "-1");
    type("txtTpVorgabe", "1234");
    click("cmdCalc");
    EXPECT_EQ(read("txtTpCalc"), "No solution found");
    click("cmdReset");
    EXPECT_EQ(read("txtTpVorgabe"), "2000");
    EXPECT_EQ(read("txtTpCalc"), T);
    EXPECT_NEAR(shown("txtFuConst"), v, 1e-6);
    EXPECT_EQ(read("par2"), "p = 2000.000 kPa");
}

TEST_F(IsoCalculatorViewTest, TakesAConstantThatIsTypedWithADecimalComma) {
    numbers::set_decimal_mark(',');
    start("350", "4000");
    click("OptIsoFu_1");
    click("optIsoTp_1");
    // R T/v of an ideal gas is 2910 kPa at 1 m^3/kmol; the real one lies a little below.
    type("txtFuConst", "1,0");
    type("txtTpVorgabe", "350,0");
    click("cmdCalc");
    const double p = numbers::val_input(read("txtTpCalc").toStdString());
    EXPECT_GT(p, 2500);
    EXPECT_LT(p, 2910);
    EXPECT_NEAR(functionAt(350, p, 1, false), 1.0, 1e-5);
}

TEST_F(IsoCalculatorViewTest, MarksAFieldWithoutANumber) {
    start("350", "4000");
    type("txtTpVorgabe", "");
    click("cmdCalc");
    EXPECT_EQ(frame.findChild<QWidget*>("txtTpVorgabe")->toolTip(), "A number is needed");
    EXPECT_EQ(read("txtTpCalc"), "");
}

TEST_F(IsoCalculatorViewTest, StartsFromThePresentDataSetInBatchOperation) {
    startProject("Carbon dioxide");
    useData({{0, 330, 1000, 0, 0, 0, 0}, {0, 340, 1500, 0, 0, 0, 0}});
    session.change()->batch_mode = true;
    choose("mnuCalc_11");
    click("cmdVor");
    click("cmdIsoCalc");
    EXPECT_EQ(read("txtTpVorgabe"), "1500");
    EXPECT_TRUE(read("lblIsoState").contains("T = 340 K"));
    EXPECT_EQ(session->measured.points[1].T, 340.0);
}

TEST_F(IsoCalculatorViewTest, ShowsTheBusyPointerWhileItSearches) {
    start("350", "4000");
    user.pointer.clear();
    type("txtTpVorgabe", "2000");
    click("cmdCalc");
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false}));
}

TEST_F(IsoCalculatorViewTest, ClosesByEscapeAndWithTheResult) {
    start("350", "4000");
    drive::press("txtFuConst", Qt::Key_Escape);
    EXPECT_FALSE(isVisible("frmIsoCalc"));
    EXPECT_TRUE(isVisible("frmCalcOut"));
    click("cmdIsoCalc");
    click("cmdCalc_OK");
    EXPECT_FALSE(isVisible("frmIsoCalc"));
}

TEST_F(IsoCalculatorViewTest, ShowsItsFunctionInNewUnitsAtOnce) {
    start("350", "4000");
    click("OptIsoFu_1");
    const double molar = shown("txtFuConst");
    drive::when("frmOptions", [] {
        click("optMolarSpez_1");
        click("cmdOK");
    });
    choose("mnuOptions");
    EXPECT_NEAR(shown("txtFuConst"), molar / 44.009, 1e-4 * molar / 44.009);
    EXPECT_EQ(read("txtTpVorgabe"), "4000");
}

}  // namespace
