#include "gui/calc_view_test.h"
#include "gui/calculation/partial_choice_dialog.h"
#include "gui/widgets/number_edit.h"
#include "models/density.h"
#include "support/codes.h"

using namespace quor;
using namespace quor::app;
using namespace quor::gui;

namespace {

using drive::choose;
using drive::click;
using drive::isChecked;
using drive::isEnabled;
using drive::isVisible;
using drive::read;
using drive::select;
using drive::type;
using drive::when;

class PartialChoiceDialogTest : public CalcViewTest {
  protected:
    /// What the open dialog has chosen; the session has it only behind "continue...".
    static const calculation::Method& chosen() {
        return drive::get<PartialChoiceDialog>("frmCalcIn")->choice().method;
    }
};

constexpr auto kChoiceTitle = "Choose \"Global-/Partial Calculation\" for Phase Equilibrium V-L";

TEST_F(PartialChoiceDialogTest, OffersBothMethodsForACubicEquation) {
    startProject("Carbon dioxide");
    when("frmCalcIn", [] {
        EXPECT_EQ(read("frmCalcIn"), kChoiceTitle);
        EXPECT_TRUE(read("GlobalSit")
                        .startsWith("The selected EOS enables the calculation of both equilibrium "
                                    "phases L and V "));
        EXPECT_EQ(read("fraMode"), "Mode of Calculation");
        EXPECT_EQ(read("opt_glob_0"), "Global calculation");
        EXPECT_EQ(read("opt_glob_1"), "Partial calculation");
        EXPECT_TRUE(isChecked("opt_glob_0"));
        EXPECT_FALSE(isVisible("fraDensity"));
        EXPECT_FALSE(isVisible("fraReference"));
        EXPECT_EQ(read("lblRhoLimits"),
                  "Global Calculation: L and V density and p(LV) or T(LV) resp. are calculated "
                  "using the cubic EOS. ");
        click("opt_glob_1");
        EXPECT_FALSE(chosen().global);
        EXPECT_TRUE(isVisible("fraDensity"));
        EXPECT_TRUE(isVisible("fraReference"));
        EXPECT_EQ(read("fraReference"), "Reference  point for BENSON's method");
        EXPECT_EQ(read("Bz1"), "Choose one of these options:");
        EXPECT_EQ(read("optPartialBenson_0"), "rho_L by  BENSON's method");
        EXPECT_EQ(read("optPartialBenson_1"), "rho_L by database equ. rho(T)");
        EXPECT_TRUE(isChecked("optPartialBenson_0"));
        EXPECT_EQ(read("lblRhoRange"), "valid in the range T/K =217...303");
        EXPECT_TRUE(isChecked("Ref_opt_0"));
        EXPECT_FALSE(isEnabled("RefInput"));
        click("opt_glob_0");
        EXPECT_TRUE(chosen().global);
        EXPECT_FALSE(isVisible("fraDensity"));
        EXPECT_EQ(read("OK"), "continue...");
        EXPECT_EQ(read("ESC"), "&Cancel");
        click("OK");
    });
    choose("mnuCalc_6");
    EXPECT_TRUE(isVisible("frmCalcOut"));
    EXPECT_EQ(session->calculation.input, report::InputKind::state);
    EXPECT_EQ(code_of(session->calculation.task), 5);
    EXPECT_EQ(read("frmParinput"), "Input \"Direct calculation\" ");
    EXPECT_TRUE(isVisible("par_1"));
    EXPECT_FALSE(isVisible("par_0"));
}

TEST_F(PartialChoiceDialogTest, EndsTheCommandOnCancel) {
    startProject("Carbon dioxide");
    for (const Qt::Key key : {Qt::Key_unknown, Qt::Key_Escape}) {
        when("frmCalcIn", [=] {
            if (key == Qt::Key_Escape)
                drive::press("frmCalcIn", key);
            else
                click("ESC");
        });
        choose("mnuCalc_5");
        EXPECT_FALSE(isVisible("frmCalcOut"));
        EXPECT_FALSE(isVisible("frmParinput"));
    }
}

TEST_F(PartialChoiceDialogTest, DescribesAPhaseEquilibriumAtGivenTAndP) {
    startProject("Carbon dioxide");
    when("frmCalcIn", [] {
        EXPECT_TRUE(
            read("GlobalSit")
                .startsWith(
                    "Assumption: The specificated values exactly describe the phase equlibrium.\n"
                    "In this case choose the mode 'partial calculation': By means of EOS the\n"
                    "V-density is calculated, by means of BENSON's method the L-density."));
        EXPECT_TRUE(read("GlobalSit").endsWith("A 2nd reference point is needed"));
        EXPECT_TRUE(isVisible("fraReference"));
        click("OK");
    });
    chooseTp(true);
    EXPECT_TRUE(session->calculation.method.assumed_vle);
    EXPECT_TRUE(models::is_known(session->calculation.method.reference));
    calculate("270", "3200");
    EXPECT_TRUE(lists("by BENSON's method:"));
    EXPECT_EQ(session->results.current.record.phases, "V+L");
}

TEST_F(PartialChoiceDialogTest, TakesTheLDensityFromTheDatabaseOnDemand) {
    startProject("Carbon dioxide");
    when("frmCalcIn", [] {
        click("optPartialBenson_1");
        EXPECT_FALSE(chosen().liquid_by_benson);
        EXPECT_FALSE(isVisible("fraReference"));
        EXPECT_EQ(read("lblRhoLimits"),
                  "The L-density is calculated by means of the database equation rho_L = F(T).");
        click("optPartialBenson_0");
        EXPECT_TRUE(isVisible("fraReference"));
        EXPECT_EQ(read("lblRhoLimits"), "The L-density is calculated by means of BENSON's method.");
        click("optPartialBenson_1");
        click("OK");
    });
    chooseTp(true);
    calculate("270", "3200");
    EXPECT_TRUE(lists("with database equation rho(T):"));
}

TEST_F(PartialChoiceDialogTest, OffersNoDatabaseDensityWhereThereIsNone) {
    startProject("Phosphine");
    when("frmCalcIn", [] {
        click("opt_glob_1");
        EXPECT_FALSE(isEnabled("optPartialBenson_1"));
        EXPECT_EQ(read("lblRhoRange"), "(no database function available)");
        click("ESC");
    });
    choose("mnuCalc_5");
}

TEST_F(PartialChoiceDialogTest, RefusesTheGlobalCalculationOfAVapourEquation) {
    startProject("Carbon dioxide", [] { select("EOSKombi", "VIRIAL Equ. Pitzer / Curl"); });
    when("frmCalcIn", [this] {
        EXPECT_TRUE(isChecked("opt_glob_1"));
        EXPECT_FALSE(chosen().global);
        EXPECT_TRUE(
            read("GlobalSit")
                .startsWith(
                    "The selected EOS can only be used for the calculation of the V-phase."));
        user.messages.clear();
        click("opt_glob_0");
        ASSERT_EQ(user.messages.size(), 1U);
        EXPECT_EQ(user.lastText(),
                  "Global calculation only possible by using a cubic EOS (=> Window "
                  "\"Models\").");
        EXPECT_EQ(user.lastTitle(), "Execution not possible");
        EXPECT_TRUE(isChecked("opt_glob_1"));
        EXPECT_TRUE(isVisible("fraDensity"));
        click("OK");
    });
    choose("mnuCalc_5");
    type("par_0", "270");
    click("cmdParameter_OK");
    EXPECT_TRUE(read("co1").startsWith("p(LV) from actual vapour pressure equation:"));
    EXPECT_TRUE(lists("Virial coeffizient:"));
}

TEST_F(PartialChoiceDialogTest, TellsOnlyTheSituationWhenTheVapourPressureEquationHasPriority) {
    startProject("Carbon dioxide", [] { click("PriorOpt_1"); });
    when("frmCalcIn", [] {
        EXPECT_EQ(read("frmCalcIn"), "Situation of Calculation");
        EXPECT_EQ(read("GlobalSit"),
                  "Calculation of the equilibrium V - L by using the actual vapour press. "
                  "equation\n(The EOS was deactivated in the window 'Models')");
        for (const char* hidden : {"fraMode", "fraDensity", "fraReference"})
            EXPECT_FALSE(isVisible(hidden)) << hidden;
        EXPECT_FALSE(isEnabled("ESC"));
        drive::press("frmCalcIn", Qt::Key_Escape);
        EXPECT_TRUE(isVisible("frmCalcIn"));
        EXPECT_LT(drive::get("frmCalcIn")->height(), 160);
        drive::press("frmCalcIn", Qt::Key_Return);
    });
    choose("mnuCalc_5");
    EXPECT_TRUE(isVisible("frmCalcOut"));
}

TEST_F(PartialChoiceDialogTest, AllowsOnlyThePartialTank) {
    startProject("Carbon dioxide");
    when("frmCalcIn", [] {
        EXPECT_FALSE(isEnabled("opt_glob_0"));
        EXPECT_TRUE(isChecked("opt_glob_1"));
        click("OK");
    });
    choose("mnuCalc_16");
    EXPECT_FALSE(isVisible("frmCalcOut"));
    EXPECT_EQ(session->calculation.input, report::InputKind::tank);
    EXPECT_EQ(read("frmParinput"), "Tank Calculation");
}

TEST_F(PartialChoiceDialogTest, AsksOnlyForTheReferencePointOfTheEnthalpyOfVaporisation) {
    startProject("Carbon dioxide");
    session.change()->models.vaporisation = codes::hlv(6);
    when("frmCalcIn", [] {
        EXPECT_FALSE(isVisible("fraMode"));
        EXPECT_FALSE(isVisible("fraDensity"));
        EXPECT_TRUE(isVisible("fraReference"));
        EXPECT_TRUE(read("GlobalSit").endsWith("A 2nd reference point is needed"));
        click("OK");
    });
    choose("mnuCalc_8");
    EXPECT_TRUE(isVisible("frmCalcOut"));
    type("par_0", "270");
    click("cmdParameter_OK");
    EXPECT_TRUE(lists("rho_L for z_L-calculation (MATHIAS/CAILLETET/BENSON)"));
}

TEST_F(PartialChoiceDialogTest, ShowsTheProposalAndBensonsApproximation) {
    startProject("Carbon dioxide");
    when("frmCalcIn", [] {
        click("opt_glob_1");
        EXPECT_TRUE(read("RefVorschlag")
                        .startsWith("Proposal for the reference point according to situation:"));
        click("Ref_opt_1");
        EXPECT_EQ(chosen().reference.p, 101.335F);
        EXPECT_EQ(chosen().reference.T, 194.686F);
        const QStringList lines = read("RefVorschlag").split('\n');
        ASSERT_EQ(lines.size(), 5);
        EXPECT_EQ(lines[0], "Reference point calculated by using BENSON's formula for rho_L:");
        EXPECT_EQ(lines[1], " T(ref)/K           = 194.7 (normal boiling point)");
        EXPECT_EQ(lines[2], " p(LV)(ref)/kPa     = 101.325  (normal pressure)");
        EXPECT_TRUE(lines[3].endsWith(" (BENSON's approximation)"));
        EXPECT_TRUE(lines[4].endsWith(" (CEOS Peng / Robinson)"));
        click("Ref_opt_0");
        EXPECT_TRUE(read("RefVorschlag").startsWith("Proposal"));
        click("ESC");
    });
    choose("mnuCalc_5");
}

TEST_F(PartialChoiceDialogTest, TakesAReferencePointThatIsTyped) {
    startProject("Carbon dioxide");
    when("frmCalcIn", [] {
        click("opt_glob_1");
        click("Ref_opt_2");
        ASSERT_TRUE(isEnabled("RefInput"));
        EXPECT_EQ(read("RefInput"), "Input");
        when("frmParinput", [] {
            EXPECT_EQ(read("frmParinput"), "Input: Reference Point");
            EXPECT_EQ(read("Bz_0"), "        T/K = ");
            EXPECT_EQ(read("Bz_1"), "  p(LV)/kPa = ");
            EXPECT_EQ(read("Bz_2"), "rho_L/kg/m^3= ");
            EXPECT_EQ(read("Bz_3"), "rho_V/kg/m^3= ");
            EXPECT_EQ(read("cmdParameter_OK"), "OK");
            const char* values[] = {"250", "1785,2", "1046", "46.6"};
            for (int i = 0; i < 4; ++i) type(QString("par_%1").arg(i), values[i]);
            drive::press("par_3", Qt::Key_Return);
        });
        click("RefInput");
        EXPECT_TRUE(read("RefVorschlag").contains("T(ref)/K           = 250"));
        EXPECT_TRUE(read("RefVorschlag").contains("p(LV)(ref)/kPa     = 1785.2"));
        click("OK");
    });
    choose("mnuCalc_5");
    EXPECT_TRUE(models::is_known(session->calculation.method.reference));
    EXPECT_EQ(session->calculation.method.reference.T, 250.0F);
    EXPECT_EQ(session->calculation.method.reference.p, 1785.2F);
    EXPECT_EQ(session->calculation.method.reference.rhoL, 1046.0F);
    EXPECT_EQ(session->calculation.method.reference.rhoV, 46.6F);
    type("par_0", "270");
    click("cmdParameter_OK");
    EXPECT_GT(numberBehind("Liste", "rho/ (kg/m^3)  ="), 900.0);
}

TEST_F(PartialChoiceDialogTest, RefusesAReferencePointWithAZeroAndKeepsTheOldOneOnCancel) {
    startProject("Carbon dioxide");
    when("frmCalcIn", [this] {
        click("opt_glob_1");
        const models::BensonPoint proposed = chosen().reference;
        click("Ref_opt_2");
        when("frmParinput", [this] {
            type("par_3", "0");
            user.messages.clear();
            click("cmdParameter_OK");
            ASSERT_EQ(user.messages.size(), 1U);
            EXPECT_EQ(user.lastText(), "no valid input");
            EXPECT_EQ(user.lastTitle(), "Execution not possible");
            EXPECT_TRUE(drive::get<NumberEdit>("par_3")->isMarked());
            drive::press("par_3", Qt::Key_Escape);
        });
        click("RefInput");
        EXPECT_TRUE(isVisible("frmCalcIn"));
        EXPECT_EQ(chosen().reference.T, proposed.T);
        EXPECT_EQ(chosen().reference.rhoV, proposed.rhoV);
        click("ESC");
    });
    choose("mnuCalc_5");
}

TEST_F(PartialChoiceDialogTest, AZeroInTheReferencePointLeavesTheLDensityEmpty) {
    startProject("Carbon dioxide");
    when("frmCalcIn", [] {
        click("opt_glob_1");
        click("OK");
    });
    choose("mnuCalc_5");
    session.change()->calculation.method.reference.rhoL = 0;
    EXPECT_FALSE(models::is_known(session->calculation.method.reference));
    type("par_0", "270");
    click("cmdParameter_OK");
    const QString density =
        read("Liste").split('\n').filter("rho/ (kg/m^3)  =").value(0).section('=', 1);
    EXPECT_LE(density.split(' ', Qt::SkipEmptyParts).size(), 1) << density.toStdString();
}

TEST_F(PartialChoiceDialogTest, GoesOnWithoutAnInputViewInBatchOperation) {
    startProject("Carbon dioxide");
    useData({{0, 270, 0, 0, 0, 0, 0}});
    session.change()->batch_mode = true;
    when("frmCalcIn", [] { click("OK"); });
    choose("mnuCalc_5");
    EXPECT_TRUE(isVisible("frmCalcOut"));
    EXPECT_FALSE(isVisible("frmParinput"));
    EXPECT_EQ(read("par1"), "T = 270.000 K");
}

}  // namespace
