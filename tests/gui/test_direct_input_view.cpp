#include "gui/calc_view_test.h"
#include "gui/widgets/number_edit.h"
#include "models/unit_text.h"
#include "session/options.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isVisible;
using drive::read;
using drive::type;

constexpr double kM = 44.009;  // carbon dioxide, kg/kmol

class DirectInputViewTest : public CalcViewTest {
  protected:
    static bool isMarked(const QString& name) { return drive::get<NumberEdit>(name)->isMarked(); }
    const report::DirectValues& input() const { return session->calculation.direct; }
};

struct FieldCase {
    const char* row;
    bool T, p, rho;
};

TEST_F(DirectInputViewTest, AsksForWhatEachRowNeeds) {
    startProject("Water");
    const FieldCase cases[] = {{"mnuCalc_0", true, false, true},
                               {"mnuCalc_2", true, true, false},
                               {"mnuCalc_3", false, true, true},
                               {"mnuCalc_8", true, false, false},
                               {"mnuCalc_9", false, true, false},
                               {"mnuCalc_11", true, true, false},
                               {"mnuCalc_18", true, false, false},
                               {"mnuCalc_sub_database_1", true, false, false},
                               {"mnuCalc_sub_database_2", true, false, false},
                               {"mnuCalc_sub_database_3", true, false, false},
                               {"mnuCalc_sub_database_4", true, false, false},
                               {"mnuCalc_sub_database_5", true, false, false},
                               {"mnuCalc_sub_database_6", true, false, false},
                               {"mnuCalc_sub_sub_database_0", true, false, false},
                               {"mnuCalc_sub_sub_database_3", true, false, false}};
    for (const FieldCase& c : cases) {
        choose(c.row);
        EXPECT_EQ(read("frmParinput"), "Input \"Direct calculation\" ") << c.row;
        EXPECT_EQ(isVisible("par_0"), c.T) << c.row;
        EXPECT_EQ(isVisible("par_1"), c.p) << c.row;
        EXPECT_EQ(isVisible("par_2"), c.rho) << c.row;
        EXPECT_EQ(isVisible("fraRhoVInput"), c.rho) << c.row;
        EXPECT_FALSE(isVisible("par_3"));
        EXPECT_FALSE(isVisible("fram_n"));
        EXPECT_EQ(read("cmdParameter_OK"), "&Calculate");
        // A label that is not asked for is empty as well as hidden.
        EXPECT_EQ(read("Bz_0"), c.T ? "      T/K     " : "") << c.row;
        EXPECT_EQ(read("Bz_1"), c.p ? "      p/kPa = " : "") << c.row;
        EXPECT_EQ(read("Bz_2"), c.rho ? " rho/kg/m^3 = " : "") << c.row;
        EXPECT_EQ(isVisible("Bz_1"), c.p) << c.row;
    }
}

TEST_F(DirectInputViewTest, RefusesAnInputWithoutNumbersAndMarksTheFields) {
    startProject("Carbon dioxide");
    chooseTp();
    user.messages.clear();
    click("cmdParameter_OK");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "no valid input");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_TRUE(isMarked("par_0"));
    EXPECT_TRUE(isMarked("par_1"));
    EXPECT_EQ(frame.focusWidget()->objectName(), "par_0");
    // Typing takes the mark away.
    type("par_0", "3");
    EXPECT_FALSE(isMarked("par_0"));
}

TEST_F(DirectInputViewTest, MarksATextThatIsNoNumberWhereItStands) {
    startProject("Carbon dioxide");
    chooseTp();
    user.messages.clear();
    type("par_0", "300");
    type("par_1", "5e");
    click("cmdParameter_OK");
    EXPECT_TRUE(isMarked("par_1"));
    EXPECT_FALSE(isMarked("par_0"));
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(input().p, 0.0);
}

TEST_F(DirectInputViewTest, TakesOnlyDigitsMarksAndExponents) {
    startProject("Carbon dioxide");
    chooseTp();
    type("par_0", "3x0y0");
    EXPECT_EQ(read("par_0"), "300");
    type("par_1", "5,0E+3");
    drive::press("par_1", Qt::Key_Enter);
    EXPECT_EQ(input().T, 300.0);
    EXPECT_EQ(input().p, 5000.0);
    EXPECT_EQ(read("par_1"), "5,0E+3");
}

TEST_F(DirectInputViewTest, ReadsAVolumeInTheUnitOfTheSession) {
    startProject("Carbon dioxide");
    choose("mnuCalc_0");
    EXPECT_EQ(read("fraRhoVInput"), " Input density kg/m^3 ");
    click("optRhoV_1");
    EXPECT_TRUE(session->calculation.volume_input);
    EXPECT_EQ(read("fraRhoVInput"), " Input molar volume, cf. \"Options\" ");
    EXPECT_EQ(read("Bz_2"), " V/m^3/kmol = ");
    type("par_0", "350");
    type("par_2", "0.5");
    click("cmdParameter_OK");
    EXPECT_NEAR(static_cast<double>(input().rho), kM / 0.5, 1e-4);

    session.change()->units.system = models::UnitSystem::specific;
    session.change()->units.caloric = models::CaloricUnit::specific;
    session::settle_units(session);
    choose("mnuCalc_0");
    EXPECT_EQ(read("fraRhoVInput"), " Input specif. volume, cf. Options ");
    EXPECT_EQ(read("Bz_2"), "  V/m^3/kg  = ");
    EXPECT_TRUE(drive::isChecked("optRhoV_1"));
    type("par_0", "350");
    type("par_2", "0.0125");
    click("cmdParameter_OK");
    EXPECT_NEAR(static_cast<double>(input().rho), 80.0, 1e-4);

    session.change()->units.system = models::UnitSystem::reduced;
    session::settle_units(session);
    choose("mnuCalc_0");
    EXPECT_EQ(read("fraRhoVInput"), " Input red. volume, cf. Options ");
    EXPECT_EQ(read("Bz_2"), "  V/(m^3/m^3)= ");
    type("par_0", "350");
    type("par_2", "2");
    click("cmdParameter_OK");
    EXPECT_NEAR(static_cast<double>(input().rho),
                kM / (2 * session->eos_parameters.vcrit_calculated), 1e-3);

    click("optRhoV_0");
    EXPECT_FALSE(session->calculation.volume_input);
    EXPECT_EQ(read("Bz_2"), " rho/kg/m^3 = ");
    type("par_2", "80");
    click("cmdParameter_OK");
    EXPECT_EQ(input().rho, 80.0F);
}

TEST_F(DirectInputViewTest, TakesAValueWithItsUnit) {
    startProject("Carbon dioxide");
    chooseTp();
    type("par_0", "27 degC");
    type("par_1", "3 MPa(g)");
    drive::press("par_1", Qt::Key_Enter);
    EXPECT_NEAR(input().T, 300.15, 1e-9);
    EXPECT_NEAR(input().p, 3101.325, 1e-9);
    EXPECT_EQ(read("par_0"), "300.15");
    EXPECT_EQ(read("par_1"), "3101.325");
    type("par_1", "12 ba");
    click("cmdParameter_OK");
    EXPECT_TRUE(isMarked("par_1"));
    EXPECT_NEAR(input().p, 3101.325, 1e-9) << "no unit: nothing is calculated";
}

TEST_F(DirectInputViewTest, TurnsWhatWasTypedIntoOtherUnitsAndBack) {
    startProject("Carbon dioxide");
    choose("mnuCalc_0");
    type("par_0", "300.5");
    type("par_2", "80");
    ASSERT_TRUE(session::apply_units(session, *models::read_choice("us")));
    drive::settle();
    EXPECT_EQ(read("Bz_0"), "T/°F = ");
    EXPECT_EQ(read("Bz_2"), "rho/(lb/ft³) = ");
    EXPECT_EQ(read("fraRhoVInput"), " Input density ");
    EXPECT_NEAR(read("par_0").toDouble(), 300.5 * 1.8 - 459.67, 1e-9);
    EXPECT_NEAR(read("par_2").toDouble(), 80 / 16.01846337396014, 1e-9);
    click("cmdParameter_OK");
    EXPECT_NEAR(input().T, 300.5, 1e-9);
    EXPECT_NEAR(static_cast<double>(input().rho), 80.0, 1e-5);
    ASSERT_TRUE(session::apply_units(session, {}));
    drive::settle();
    EXPECT_EQ(read("par_0"), "300.5");
    EXPECT_EQ(read("par_2"), "80");
    EXPECT_EQ(read("Bz_0"), "      T/K     ");
}

TEST_F(DirectInputViewTest, TakesATankInGallonsAndPounds) {
    startProject("Carbon dioxide");
    ASSERT_TRUE(session::apply_units(session, *models::read_choice("V=gal,m=lb,T=degC,n=lbmol")));
    choose("mnuCalc_15");
    EXPECT_EQ(read("Bz_0"), "V/gal = ");
    EXPECT_EQ(read("Bz_1"), "m/lb = ");
    type("par_0", "264.1720523581484");
    type("par_1", "220.46226218487757");
    type("par_2", "0");
    click("cmdParameter_OK");
    EXPECT_NEAR(static_cast<double>(session->tank.V), 1, 1e-6);
    EXPECT_NEAR(static_cast<double>(session->tank.m), 100, 1e-5);
    EXPECT_EQ(session->tank.T, 273.15F) << "0 degC is a temperature";
}

TEST_F(DirectInputViewTest, GivesTheFocusToTheResultAndStaysOpen) {
    startProject("Carbon dioxide");
    chooseTp();
    calculate("300", "5000");
    EXPECT_EQ(frame.focusWidget()->objectName(), "Liste");
    EXPECT_TRUE(isVisible("frmParinput"));
    calculate("310", "5000");
    EXPECT_EQ(read("par1"), "T = 310.000 K");
}

TEST_F(DirectInputViewTest, ShowsTheValuesOfTheLastCalculationWhenItOpens) {
    startProject("Carbon dioxide");
    chooseTp();
    EXPECT_EQ(read("par_0"), "");
    calculate("300.25", "5000");
    choose("mnuCalc_11");
    EXPECT_EQ(read("par_0"), "300.25");
    EXPECT_EQ(read("par_1"), "5000");
    EXPECT_EQ(read("par1"), "T = 300.250 K");
}

TEST_F(DirectInputViewTest, ClosesWithTheResultOnCancelAndEscape) {
    startProject("Carbon dioxide");
    chooseTp();
    click("cancel");
    EXPECT_FALSE(isVisible("frmParinput"));
    EXPECT_FALSE(isVisible("frmCalcOut"));
    chooseTp();
    drive::press("par_0", Qt::Key_Escape);
    EXPECT_FALSE(isVisible("frmParinput"));
    EXPECT_FALSE(isVisible("frmCalcOut"));
}

TEST_F(DirectInputViewTest, FitsItsWindowToTheFields) {
    startProject("Carbon dioxide");
    chooseTp();
    const int two = drive::get("frmParinput")->height();
    choose("mnuCalc_15");
    const int tank = drive::get("frmParinput")->height();
    EXPECT_GT(tank, two + 50);
    chooseTp();
    EXPECT_EQ(drive::get("frmParinput")->height(), two);
}

// ---------------------------------------------------------------------------------------- tank

TEST_F(DirectInputViewTest, AsksForTheDataOfATank) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    EXPECT_FALSE(isVisible("frmCalcOut"));
    EXPECT_EQ(read("frmParinput"), "Tank Calculation");
    EXPECT_EQ(read("Bz_0"), "      V/m^3   ");
    EXPECT_EQ(read("Bz_1"), "      m/kg    ");
    EXPECT_EQ(read("Bz_2"), "      T/K     ");
    EXPECT_FALSE(isVisible("par_3"));
    EXPECT_FALSE(isVisible("fraRhoVInput"));
    click("optm_n_1");
    EXPECT_EQ(read("Bz_1"), "      n/kmol  ");
    EXPECT_EQ(session->calculation.input, report::InputKind::tank);
}

TEST_F(DirectInputViewTest, RefusesATankWithAMissingNumber) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    user.messages.clear();
    type("par_0", "1");
    type("par_2", "280");
    click("cmdParameter_OK");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "no valid input");
    EXPECT_TRUE(isMarked("par_1"));
    EXPECT_FALSE(isMarked("par_0"));
    EXPECT_FALSE(isVisible("frmKessel"));
}

TEST_F(DirectInputViewTest, TakesTheContentOfATankAsMassOrAsAmount) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    type("par_0", "2,5");
    type("par_1", "1000");
    type("par_2", "280");
    click("cmdParameter_OK");
    EXPECT_EQ(session->tank.V, 2.5F);
    EXPECT_EQ(session->tank.m, 1000.0F);
    EXPECT_EQ(session->tank.T, 280.0F);
    EXPECT_TRUE(isVisible("frmCalcOut"));
    EXPECT_TRUE(isVisible("frmKessel"));
    EXPECT_EQ(read("frmCalcOut"), "Phases and Pressure in a Tank (global calculation)");
    EXPECT_FALSE(isVisible("fraProtokoll"));
    // The focus stays, so that the next values can be typed.
    EXPECT_EQ(frame.focusWidget()->objectName(), "par_0");
    click("optm_n_1");
    type("par_1", "10");
    click("cmdParameter_OK");
    EXPECT_NEAR(static_cast<double>(session->tank.m), 10 * kM, 1e-3);
}

TEST_F(DirectInputViewTest, ClosesResultAndTankWhenThePartialTankIsRefused) {
    startProject("Carbon dioxide");
    drive::when("frmCalcIn", [] { click("OK"); });
    choose("mnuCalc_16");
    EXPECT_FALSE(isVisible("frmCalcOut"));
    type("par_0", "1");
    type("par_1", "500");
    type("par_2", "280");
    click("cmdParameter_OK");
    EXPECT_TRUE(isVisible("frmKessel"));
    EXPECT_EQ(read("frmCalcOut"),
              "Phases and Pressure in a Tank (partial calculation, rho_L  by BENSON's method)");
    user.messages.clear();
    type("par_2", "310");
    click("cmdParameter_OK");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "\"Partial Calculation\" - usable only for phase equilibria (T < T(cr))\n"
              "(T(cr)/K =304.1282)");
    EXPECT_FALSE(isVisible("frmCalcOut"));
    EXPECT_FALSE(isVisible("frmKessel"));
    EXPECT_TRUE(isVisible("frmParinput"));
}

TEST_F(DirectInputViewTest, WarnsOfATankBelowTheTriplePointOnce) {
    startProject("Carbon dioxide");
    choose("mnuCalc_15");
    type("par_0", "1");
    type("par_1", "2");
    type("par_2", "210");
    user.messages.clear();
    click("cmdParameter_OK");
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "T < T(TP) (Triple Point)");
    EXPECT_EQ(user.lastTitle(), "WARNING");
}

TEST_F(DirectInputViewTest, IsReachedByTheToolButtonOfTheTank) {
    startProject("Carbon dioxide");
    click("Toolbar1_15");
    EXPECT_EQ(code_of(session->calculation.task), 9);
    EXPECT_EQ(read("frmParinput"), "Tank Calculation");
    EXPECT_TRUE(session->calculation.method.global);
}

TEST_F(DirectInputViewTest, ATypedVolumeFollowsTheUnits) {
    startProject("Carbon dioxide");
    drive::choose("mnuCalc_0");
    click("optRhoV_1");
    type("par_0", "300");
    type("par_2", "0.5");
    click("cmdParameter_OK");
    const float rho = input().rho;
    drive::when("frmOptions", [] {
        click("optMolarSpez_1");
        click("cmdOK");
    });
    drive::choose("mnuOptions");
    EXPECT_EQ(read("Bz_2"), "  V/m^3/kg  = ");
    EXPECT_NEAR(read("par_2").toDouble(), 0.5 / kM, 1e-7);
    click("cmdParameter_OK");
    EXPECT_NEAR(static_cast<double>(input().rho), static_cast<double>(rho), 1e-4);
}

}  // namespace
