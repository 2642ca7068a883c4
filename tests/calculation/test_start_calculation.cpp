#include "calc_test.h"
#include "calculation/partial_choice.h"
#include "calculation/start_calculation.h"
#include "models/model_tables.h"

using namespace quor;

namespace {

using legacy::the_session;

/// Which views open, in their order.
class StartCalculation : public CalcTest {
  protected:
    StartCalculation() : before_(calculation::views()) {
        use_fluid();
        use_models({});
        calculation::Views& v = calculation::views();
        v.openCalcIn = [this] { opened.emplace_back("frmCalcIn"); };
        v.openResultView = [this] { opened.emplace_back("frmCalcOut"); };
        v.closeResultView = [this] { opened.emplace_back("-frmCalcOut"); };
        v.openParinput = [this] { opened.emplace_back("frmParinput"); };
        v.closeParinput = [this] { opened.emplace_back("-frmParinput"); };
        v.closeTankView = [this] { opened.emplace_back("-frmKessel"); };
        v.openProcessView = [this] { opened.emplace_back("frmInputProzessLinien"); };
        v.prepareDiagram = [this] { opened.emplace_back("diagram"); };
    }
    ~StartCalculation() override { calculation::views() = before_; }

    using Names = std::vector<std::string>;
    Names run(std::int16_t mode) {
        opened.clear();
        calculation::run_calculation(mode);
        return opened;
    }

    Names opened;

  private:
    calculation::Views before_;
};

TEST_F(StartCalculation, DirectModeOpensResultAndInput) {
    for (const std::int16_t mode : Codes{1, 6, 7, 8, 11, 13, 14, 15, 16, 17, 18, 19, 22, 24}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(run(mode), (Names{"frmCalcOut", "frmParinput"}));
        EXPECT_EQ(the_session.InputSituation, mode + 100);
    }
    EXPECT_EQ(run(0), (Names{"frmCalcOut", "frmParinput"}));
    EXPECT_EQ(the_session.CalcMode, 1);
}

TEST_F(StartCalculation, BatchModeOpensOnlyTheResult) {
    the_session.BatchMode = true;
    for (const std::int16_t mode : Codes{1, 2, 3, 8, 11, 13}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(run(mode), (Names{"frmCalcOut"}));
        EXPECT_FALSE(the_session.AssumedVle);
    }
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(StartCalculation, AsksWhetherAnEquilibriumIsMeant) {
    EXPECT_EQ(run(3), (Names{"frmCalcOut", "frmParinput"}));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "Do you intend to describe a VLE?\n\nSelecting \"Yes\" => the existence of a L-phase "
              "is assumed\n\nand a \"partial calulation\" is carried out");
    EXPECT_EQ(user.lastTitle(), "T-p-Vorgabe");
    EXPECT_EQ(user.messages.back().buttons, dialogs::Buttons::YesNo);
    EXPECT_EQ(user.messages.back().defaultAnswer, dialogs::Answer::No);
    EXPECT_FALSE(the_session.AssumedVle);
    user.answers = {dialogs::Answer::Yes};
    EXPECT_EQ(run(3), (Names{"frmCalcIn"}));
    EXPECT_TRUE(the_session.AssumedVle);
    EXPECT_EQ(the_session.InputSituation, 103);
    run(8);
    EXPECT_FALSE(the_session.AssumedVle);
}

TEST_F(StartCalculation, EquilibriaArePrepared) {
    for (const bool batch : {false, true}) {
        the_session.BatchMode = batch;
        EXPECT_EQ(run(4), (Names{"frmCalcIn"}));
        EXPECT_EQ(run(5), (Names{"frmCalcIn"}));
    }
    use_models({.hlv = 6});
    EXPECT_EQ(run(6), (Names{"frmCalcIn"}));
    EXPECT_EQ(run(7), (Names{"frmCalcIn"}));
}

TEST_F(StartCalculation, LiquidDensityNeedsACubicEos) {
    the_session.BatchMode = true;
    use_models({.eos = 16});
    EXPECT_TRUE(run(2).empty());
    EXPECT_EQ(the_session.CalcMode, 0);
    EXPECT_EQ(user.lastText(), "possible only by using a  cubic EOS");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

TEST_F(StartCalculation, TankClosesTheResultBehindItself) {
    EXPECT_EQ(run(9), (Names{"frmCalcOut", "frmParinput", "-frmCalcOut"}));
    EXPECT_TRUE(the_session.GlobalCalculation);
    EXPECT_EQ(the_session.InputSituation, 33);
    EXPECT_EQ(run(10), (Names{"frmCalcIn", "-frmCalcOut"}));
    EXPECT_FALSE(the_session.GlobalCalculation);
}

TEST_F(StartCalculation, PolytropicProcessHasItsOwnView) {
    EXPECT_EQ(run(12), (Names{"frmInputProzessLinien"}));
    EXPECT_EQ(legacy::the_processLine.kind, diagrams::ProcessKind::polytropic);
    EXPECT_TRUE(legacy::the_processLine.fromCalculation);
}

TEST_F(StartCalculation, MenuTellsThatBatchModeHasNoData) {
    calculation::prepare_calculation_menu();
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(opened, (Names{"-frmCalcOut", "-frmParinput", "-frmKessel"}));
    the_session.BatchMode = true;
    calculation::prepare_calculation_menu();
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(
        user.lastText(),
        "This mode of calculation is possible only when \nbatch data (= exper. T-p-rho,..-data) "
        "are available.\n\nEnter batch-data\n(via file or manual input) => menue "
        "\"Data/exper. data...\"");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

TEST_F(StartCalculation, MenuRowsAndModesBelongTogether) {
    using calculation::Menu;
    const std::pair<int, int> rows[] = {{0, 1},  {1, 2},   {2, 3},  {3, 13}, {5, 4},
                                        {6, 5},  {8, 6},   {9, 7},  {11, 8}, {13, 12},
                                        {15, 9}, {16, 10}, {18, 11}};
    for (const auto& [row, mode] : rows)
        EXPECT_EQ(calculation::mode_of_row(Menu::Calculation, row), mode);
    for (const int separator : {4, 7, 10, 12, 14, 17, 19, -1})
        EXPECT_EQ(calculation::mode_of_row(Menu::Calculation, separator), 0);
    const std::pair<int, int> database[] = {{1, 14}, {2, 24}, {3, 15}, {4, 16}, {5, 17}, {6, 18}};
    for (const auto& [row, mode] : database)
        EXPECT_EQ(calculation::mode_of_row(Menu::Database, row), mode);
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(calculation::mode_of_row(Menu::Pressure, row), 19 + row);
}

TEST_F(StartCalculation, DatabaseRowsFollowTheData) {
    using calculation::is_row_possible;
    using calculation::Menu;
    // Propane has a density, delta(LV)h, cp of the ideal gas, WAG and ALP.
    const bool database[] = {false, true, false, true, true, false, false};
    const bool pressure[] = {false, true, true, false};
    for (int row = 0; row < 7; ++row)
        EXPECT_EQ(is_row_possible(Menu::Database, row), database[row]) << row;
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(is_row_possible(Menu::Pressure, row), pressure[row]) << row;
    EXPECT_EQ(calculation::virial_row_caption(),
              "T => Virial Coefficient B, Parameters of the CEOS");
    use_models({.eos = 16});
    EXPECT_EQ(calculation::virial_row_caption(), "T => Virial Coefficient B");
}

// ---- PartialChoiceDialog
// --------------------------------------------------------------------------------

using PartialChoice = StartCalculation;

TEST_F(PartialChoice, CubicEosOffersBothCalculations) {
    the_session.CalcMode = 4;
    the_session.GlobalCalculation = false;
    auto choice = calculation::open_partial_choice();
    EXPECT_EQ(choice.title, "Choose \"Global-/Partial Calculation\" for Phase Equilibrium V-L");
    EXPECT_TRUE(the_session.GlobalCalculation);
    EXPECT_EQ(choice.globalIndex, 0);
    EXPECT_TRUE(choice.globalEnabled && choice.choicesVisible && choice.cancelEnabled);
    EXPECT_FALSE(choice.densityFrameVisible || choice.referenceFrameVisible);
    EXPECT_EQ(choice.lblRhoLimits,
              "Global Calculation: L and V density and p(LV) or T(LV) resp. are calculated using "
              "the cubic EOS. ");
    EXPECT_EQ(choice.GlobalSit.find("The selected EOS enables the calculation of both equilibrium "
                                    "phases L and V "),
              0U);

    calculation::choose_global(choice, 1);
    EXPECT_FALSE(the_session.GlobalCalculation);
    EXPECT_TRUE(choice.densityFrameVisible && choice.referenceFrameVisible);
    EXPECT_FALSE(choice.databaseEnabled);
    EXPECT_EQ(choice.databaseRange, "(no database function available)");
    EXPECT_EQ(choice.lblRhoLimits,
              "Partial calculation: L-density by means of BENSON's method (Mathias/Cailletet),  V "
              "density calc. using EOS. For the calculation of p(LV) or T(LV) resp. the cubic EOS "
              "is used.");
}

TEST_F(PartialChoice, DatabaseDensityIsOfferedWhereItExists) {
    legacy::the_substance.rhoLTLo = 150;
    legacy::the_substance.rhoLTHi = 360;
    the_session.CalcMode = 4;
    auto choice = calculation::open_partial_choice();
    calculation::choose_global(choice, 1);
    EXPECT_TRUE(choice.databaseEnabled);
    EXPECT_EQ(choice.databaseRange, "valid in the range T/K =150...360");
    calculation::choose_density(choice, 1);
    EXPECT_FALSE(the_session.LiquidByBenson);
    EXPECT_FALSE(choice.referenceFrameVisible);
    EXPECT_EQ(choice.lblRhoLimits,
              "The L-density is calculated by means of the database equation rho_L = F(T).");
    calculation::choose_density(choice, 0);
    EXPECT_TRUE(the_session.LiquidByBenson && choice.referenceFrameVisible);
    EXPECT_EQ(choice.lblRhoLimits, "The L-density is calculated by means of BENSON's method.");
}

TEST_F(PartialChoice, VirialEosRefusesTheGlobalCalculation) {
    use_models({.eos = 16});
    the_session.CalcMode = 5;
    auto choice = calculation::open_partial_choice();
    EXPECT_FALSE(the_session.GlobalCalculation);
    EXPECT_EQ(choice.globalIndex, 1);
    EXPECT_EQ(choice.GlobalSit.find(
                  "The selected EOS can only be used for the calculation of the V-phase."),
              0U);
    EXPECT_TRUE(user.messages.empty());
    calculation::choose_global(choice, 0);
    EXPECT_EQ(user.lastText(),
              "Global calculation only possible by using a cubic EOS (=> Window \"Models\").");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(choice.globalIndex, 1);
    EXPECT_FALSE(the_session.GlobalCalculation);
}

TEST_F(PartialChoice, VapourPressurePriorityLeavesNothingToChoose) {
    use_models({.priority = false});
    the_session.CalcMode = 4;
    the_session.GlobalCalculation = false;
    const auto choice = calculation::open_partial_choice();
    EXPECT_EQ(choice.title, "Situation of Calculation");
    EXPECT_FALSE(choice.choicesVisible || choice.cancelEnabled);
    EXPECT_EQ(choice.GlobalSit,
              "Calculation of the equilibrium V - L by using the actual vapour press. equation\n"
              "(The EOS was deactivated in the window 'Models')");
    EXPECT_TRUE(the_session.GlobalCalculation);
}

TEST_F(PartialChoice, TankIsAlwaysPartial) {
    for (const bool priority : {true, false}) {
        use_models({.priority = priority});
        the_session.CalcMode = 10;
        the_session.GlobalCalculation = false;
        const auto choice = calculation::open_partial_choice();
        EXPECT_FALSE(the_session.GlobalCalculation);
        EXPECT_FALSE(choice.globalEnabled);
    }
}

TEST_F(PartialChoice, AssumedEquilibriumAndVaporisationNeedASecondPoint) {
    the_session.CalcMode = 3;
    the_session.AssumedVle = true;
    auto choice = calculation::open_partial_choice();
    EXPECT_FALSE(the_session.GlobalCalculation);
    EXPECT_EQ(choice.GlobalSit.find(
                  "Assumption: The specificated values exactly describe the phase equlibrium.\n"),
              0U);
    EXPECT_NE(choice.GlobalSit.find("A 2nd reference point is needed"), std::string::npos);
    the_session.AssumedVle = false;
    the_session.CalcMode = 6;
    use_models({.hlv = 6});
    choice = calculation::open_partial_choice();
    EXPECT_FALSE(choice.modeFrameVisible);
    EXPECT_TRUE(choice.referenceFrameVisible);
    EXPECT_EQ(choice.GlobalSit.find(
                  "The calculation of the L-density (or the molar L-volume, resp.) is done "),
              0U);
}

TEST_F(PartialChoice, ReferencePointIsProposedApproximatedOrTyped) {
    the_session.CalcMode = 4;
    the_session.BensonReferenceValid = true;
    auto choice = calculation::open_partial_choice();
    EXPECT_FALSE(the_session.BensonReferenceValid);
    EXPECT_EQ(the_session.InputSituation, 4);
    EXPECT_FALSE(choice.inputEnabled);
    EXPECT_EQ(
        choice.RefVorschlag.find("Proposal for the reference point according to situation:\n"), 0U);
    EXPECT_FLOAT_EQ(the_session.BensonReference.T, legacy::the_substance.Tboil);
    EXPECT_TRUE(calculation::is_benson_reference_given());

    calculation::ChooseReference(choice, 1);
    EXPECT_EQ(the_session.BensonReference.p, 101.335F);
    // 220.4781 (1.981 + 0.18327 ln(4251.2/101.3)) by hand.
    EXPECT_NEAR(static_cast<double>(the_session.BensonReference.rhoL),
                220.4781 * (1.981 + 0.18327 * std::log(4251.2 / 101.3)), 1e-3);
    const std::vector<std::string> text = [&] {
        std::vector<std::string> all(1);
        for (const char c : choice.RefVorschlag) {
            if (c == '\n')
                all.emplace_back();
            else
                all.back() += c;
        }
        return all;
    }();
    ASSERT_EQ(text.size(), 5U);
    EXPECT_EQ(text[0], "Reference point calculated by using BENSON's formula for rho_L:");
    EXPECT_EQ(text[1], " T(ref)/K           = 231. (normal boiling point)");
    EXPECT_EQ(text[2], " p(LV)(ref)/kPa     = 101.325  (normal pressure)");
    EXPECT_EQ(text[3], " rho(L)(ref)/kg/m^3 = 587.8 (BENSON's approximation)");
    EXPECT_EQ(text[4].find(" rho(V)(ref)/kg/m^3 = 2.4"), 0U);
    EXPECT_NE(text[4].find(" (CEOS Peng / Robinson)"), std::string::npos);

    calculation::ChooseReference(choice, 2);
    EXPECT_TRUE(choice.inputEnabled);
    calculation::ChooseReference(choice, 0);
    EXPECT_FALSE(choice.inputEnabled);
}

TEST_F(PartialChoice, WithoutDataThereIsNoProposal) {
    legacy::the_substance.Tboil = 0;
    legacy::the_substance.rhoLPar = {};
    the_session.CalcMode = 4;
    auto choice = calculation::open_partial_choice();
    EXPECT_FALSE(calculation::is_benson_reference_given());
    EXPECT_NE(choice.RefVorschlag.find("No data available"), std::string::npos);
    calculation::ChooseReference(choice, 1);
    EXPECT_EQ(choice.RefVorschlag, "No normal boiling point available");
    opened.clear();
    calculation::confirm_partial_choice(choice);
    EXPECT_FALSE(the_session.BensonReferenceValid);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmCalcOut", "frmParinput"}));
}

TEST_F(PartialChoice, GoesOnToResultInputOrDiagram) {
    the_session.CalcMode = 5;
    auto choice = calculation::open_partial_choice();
    opened.clear();
    calculation::confirm_partial_choice(choice);
    EXPECT_TRUE(the_session.BensonReferenceValid);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmCalcOut", "frmParinput"}));
    EXPECT_EQ(the_session.InputSituation, 105);

    the_session.CalcMode = 10;
    choice = calculation::open_partial_choice();
    opened.clear();
    calculation::confirm_partial_choice(choice);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmParinput"}));
    EXPECT_EQ(the_session.InputSituation, 33);

    the_session.BatchMode = true;
    the_session.CalcMode = 4;
    choice = calculation::open_partial_choice();
    opened.clear();
    calculation::confirm_partial_choice(choice);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmCalcOut"}));

    choice = calculation::open_partial_choice(true);
    opened.clear();
    calculation::confirm_partial_choice(choice);
    EXPECT_EQ(opened, (Names{"-frmParinput", "diagram"}));
}

}  // namespace
