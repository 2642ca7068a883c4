#include "calc_test.h"
#include "calculation/partial_choice.h"
#include "calculation/start_calculation.h"
#include "models/model_tables.h"

namespace {

using Declare::session;

/// Which views open, in their order.
class StartCalculation : public CalcTest {
  protected:
    StartCalculation() : before_(Zentrale::views()) {
        use_fluid();
        use_models({});
        Zentrale::Views& v = Zentrale::views();
        v.openCalcIn = [this] { opened.emplace_back("frmCalcIn"); };
        v.openResultView = [this] { opened.emplace_back("frmCalcOut"); };
        v.closeResultView = [this] { opened.emplace_back("-frmCalcOut"); };
        v.openParinput = [this] { opened.emplace_back("frmParinput"); };
        v.closeParinput = [this] { opened.emplace_back("-frmParinput"); };
        v.closeTankView = [this] { opened.emplace_back("-frmKessel"); };
        v.openProcessView = [this] { opened.emplace_back("frmInputProzessLinien"); };
        v.prepareDiagram = [this] { opened.emplace_back("diagram"); };
    }
    ~StartCalculation() override { Zentrale::views() = before_; }

    using Names = std::vector<std::string>;
    Names run(std::int16_t mode) {
        opened.clear();
        Zentrale::RunCalculation(mode);
        return opened;
    }

    Names opened;

  private:
    Zentrale::Views before_;
};

TEST_F(StartCalculation, DirectModeOpensResultAndInput) {
    for (const std::int16_t mode : Codes{1, 6, 7, 8, 11, 13, 14, 15, 16, 17, 18, 19, 22, 24}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(run(mode), (Names{"frmCalcOut", "frmParinput"}));
        EXPECT_EQ(session.InputSituation, mode + 100);
    }
    EXPECT_EQ(run(0), (Names{"frmCalcOut", "frmParinput"}));
    EXPECT_EQ(session.CalcMode, 1);
}

TEST_F(StartCalculation, BatchModeOpensOnlyTheResult) {
    session.BatchMode = true;
    for (const std::int16_t mode : Codes{1, 2, 3, 8, 11, 13}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(run(mode), (Names{"frmCalcOut"}));
        EXPECT_FALSE(session.AssumedVle);
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
    EXPECT_FALSE(session.AssumedVle);
    user.answers = {dialogs::Answer::Yes};
    EXPECT_EQ(run(3), (Names{"frmCalcIn"}));
    EXPECT_TRUE(session.AssumedVle);
    EXPECT_EQ(session.InputSituation, 103);
    run(8);
    EXPECT_FALSE(session.AssumedVle);
}

TEST_F(StartCalculation, EquilibriaArePrepared) {
    for (const bool batch : {false, true}) {
        session.BatchMode = batch;
        EXPECT_EQ(run(4), (Names{"frmCalcIn"}));
        EXPECT_EQ(run(5), (Names{"frmCalcIn"}));
    }
    use_models({.hlv = 6});
    EXPECT_EQ(run(6), (Names{"frmCalcIn"}));
    EXPECT_EQ(run(7), (Names{"frmCalcIn"}));
}

TEST_F(StartCalculation, LiquidDensityNeedsACubicEos) {
    session.BatchMode = true;
    use_models({.eos = 16});
    EXPECT_TRUE(run(2).empty());
    EXPECT_EQ(session.CalcMode, 0);
    EXPECT_EQ(user.lastText(), "possible only by using a  cubic EOS");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

TEST_F(StartCalculation, TankClosesTheResultBehindItself) {
    EXPECT_EQ(run(9), (Names{"frmCalcOut", "frmParinput", "-frmCalcOut"}));
    EXPECT_TRUE(session.GlobalCalculation);
    EXPECT_EQ(session.InputSituation, 33);
    EXPECT_EQ(run(10), (Names{"frmCalcIn", "-frmCalcOut"}));
    EXPECT_FALSE(session.GlobalCalculation);
}

TEST_F(StartCalculation, PolytropicProcessHasItsOwnView) {
    EXPECT_EQ(run(12), (Names{"frmInputProzessLinien"}));
    EXPECT_EQ(Declare::processLine.Kind, 6);
    EXPECT_TRUE(Declare::processLine.FromCalculation);
}

TEST_F(StartCalculation, MenuTellsThatBatchModeHasNoData) {
    Zentrale::PrepareCalculationMenu();
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(opened, (Names{"-frmCalcOut", "-frmParinput", "-frmKessel"}));
    session.BatchMode = true;
    Zentrale::PrepareCalculationMenu();
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(
        user.lastText(),
        "This mode of calculation is possible only when \nbatch data (= exper. T-p-rho,..-data) "
        "are available.\n\nEnter batch-data\n(via file or manual input) => menue "
        "\"Data/exper. data...\"");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

TEST_F(StartCalculation, MenuRowsAndModesBelongTogether) {
    using Zentrale::Menu;
    const std::pair<int, int> rows[] = {{0, 1},  {1, 2},   {2, 3},  {3, 13}, {5, 4},
                                        {6, 5},  {8, 6},   {9, 7},  {11, 8}, {13, 12},
                                        {15, 9}, {16, 10}, {18, 11}};
    for (const auto& [row, mode] : rows)
        EXPECT_EQ(Zentrale::ModeOfRow(Menu::Calculation, row), mode);
    for (const int separator : {4, 7, 10, 12, 14, 17, 19, -1})
        EXPECT_EQ(Zentrale::ModeOfRow(Menu::Calculation, separator), 0);
    const std::pair<int, int> database[] = {{1, 14}, {2, 24}, {3, 15}, {4, 16}, {5, 17}, {6, 18}};
    for (const auto& [row, mode] : database)
        EXPECT_EQ(Zentrale::ModeOfRow(Menu::Database, row), mode);
    for (int row = 0; row < 4; ++row) EXPECT_EQ(Zentrale::ModeOfRow(Menu::Pressure, row), 19 + row);
}

TEST_F(StartCalculation, DatabaseRowsFollowTheData) {
    using Zentrale::IsRowPossible;
    using Zentrale::Menu;
    // Propane has a density, delta(LV)h, cp of the ideal gas, WAG and ALP.
    const bool database[] = {false, true, false, true, true, false, false};
    const bool pressure[] = {false, true, true, false};
    for (int row = 0; row < 7; ++row)
        EXPECT_EQ(IsRowPossible(Menu::Database, row), database[row]) << row;
    for (int row = 0; row < 4; ++row)
        EXPECT_EQ(IsRowPossible(Menu::Pressure, row), pressure[row]) << row;
    EXPECT_EQ(Zentrale::VirialRowCaption(), "T => Virial Coefficient B, Parameters of the CEOS");
    use_models({.eos = 16});
    EXPECT_EQ(Zentrale::VirialRowCaption(), "T => Virial Coefficient B");
}

// ---- frmCalcIn --------------------------------------------------------------------------------

using PartialChoice = StartCalculation;

TEST_F(PartialChoice, CubicEosOffersBothCalculations) {
    session.CalcMode = 4;
    session.GlobalCalculation = false;
    auto choice = Zentrale::OpenPartialChoice();
    EXPECT_EQ(choice.title, "Choose \"Global-/Partial Calculation\" for Phase Equilibrium V-L");
    EXPECT_TRUE(session.GlobalCalculation);
    EXPECT_EQ(choice.globalIndex, 0);
    EXPECT_TRUE(choice.globalEnabled && choice.choicesVisible && choice.cancelEnabled);
    EXPECT_FALSE(choice.densityFrameVisible || choice.referenceFrameVisible);
    EXPECT_EQ(choice.lblRhoLimits,
              "Global Calculation: L and V density and p(LV) or T(LV) resp. are calculated using "
              "the cubic EOS. ");
    EXPECT_EQ(choice.GlobalSit.find("The selected EOS enables the calculation of both equilibrium "
                                    "phases L and V "),
              0U);

    Zentrale::ChooseGlobal(choice, 1);
    EXPECT_FALSE(session.GlobalCalculation);
    EXPECT_TRUE(choice.densityFrameVisible && choice.referenceFrameVisible);
    EXPECT_FALSE(choice.databaseEnabled);
    EXPECT_EQ(choice.databaseRange, "(no database function available)");
    EXPECT_EQ(choice.lblRhoLimits,
              "Partial calculation: L-density by means of BENSON's method (Mathias/Cailletet),  V "
              "density calc. using EOS. For the calculation of p(LV) or T(LV) resp. the cubic EOS "
              "is used.");
}

TEST_F(PartialChoice, DatabaseDensityIsOfferedWhereItExists) {
    Declare::substance.rhoLTLo = 150;
    Declare::substance.rhoLTHi = 360;
    session.CalcMode = 4;
    auto choice = Zentrale::OpenPartialChoice();
    Zentrale::ChooseGlobal(choice, 1);
    EXPECT_TRUE(choice.databaseEnabled);
    EXPECT_EQ(choice.databaseRange, "valid in the range T/K =150...360");
    Zentrale::ChooseDensity(choice, 1);
    EXPECT_FALSE(session.LiquidByBenson);
    EXPECT_FALSE(choice.referenceFrameVisible);
    EXPECT_EQ(choice.lblRhoLimits,
              "The L-density is calculated by means of the database equation rho_L = F(T).");
    Zentrale::ChooseDensity(choice, 0);
    EXPECT_TRUE(session.LiquidByBenson && choice.referenceFrameVisible);
    EXPECT_EQ(choice.lblRhoLimits, "The L-density is calculated by means of BENSON's method.");
}

TEST_F(PartialChoice, VirialEosRefusesTheGlobalCalculation) {
    use_models({.eos = 16});
    session.CalcMode = 5;
    auto choice = Zentrale::OpenPartialChoice();
    EXPECT_FALSE(session.GlobalCalculation);
    EXPECT_EQ(choice.globalIndex, 1);
    EXPECT_EQ(choice.GlobalSit.find(
                  "The selected EOS can only be used for the calculation of the V-phase."),
              0U);
    EXPECT_TRUE(user.messages.empty());
    Zentrale::ChooseGlobal(choice, 0);
    EXPECT_EQ(user.lastText(),
              "Global calculation only possible by using a cubic EOS (=> Window \"Models\").");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(choice.globalIndex, 1);
    EXPECT_FALSE(session.GlobalCalculation);
}

TEST_F(PartialChoice, VapourPressurePriorityLeavesNothingToChoose) {
    use_models({.priority = false});
    session.CalcMode = 4;
    session.GlobalCalculation = false;
    const auto choice = Zentrale::OpenPartialChoice();
    EXPECT_EQ(choice.title, "Situation of Calculation");
    EXPECT_FALSE(choice.choicesVisible || choice.cancelEnabled);
    EXPECT_EQ(choice.GlobalSit,
              "Calculation of the equilibrium V - L by using the actual vapour press. equation\n"
              "(The EOS was deactivated in the window 'Models')");
    EXPECT_TRUE(session.GlobalCalculation);
}

TEST_F(PartialChoice, TankIsAlwaysPartial) {
    for (const bool priority : {true, false}) {
        use_models({.priority = priority});
        session.CalcMode = 10;
        session.GlobalCalculation = false;
        const auto choice = Zentrale::OpenPartialChoice();
        EXPECT_FALSE(session.GlobalCalculation);
        EXPECT_FALSE(choice.globalEnabled);
    }
}

TEST_F(PartialChoice, AssumedEquilibriumAndVaporisationNeedASecondPoint) {
    session.CalcMode = 3;
    session.AssumedVle = true;
    auto choice = Zentrale::OpenPartialChoice();
    EXPECT_FALSE(session.GlobalCalculation);
    EXPECT_EQ(choice.GlobalSit.find(
                  "Assumption: The specificated values exactly describe the phase equlibrium.\n"),
              0U);
    EXPECT_NE(choice.GlobalSit.find("A 2nd reference point is needed"), std::string::npos);
    session.AssumedVle = false;
    session.CalcMode = 6;
    use_models({.hlv = 6});
    choice = Zentrale::OpenPartialChoice();
    EXPECT_FALSE(choice.modeFrameVisible);
    EXPECT_TRUE(choice.referenceFrameVisible);
    EXPECT_EQ(choice.GlobalSit.find(
                  "The calculation of the L-density (or the molar L-volume, resp.) is done "),
              0U);
}

TEST_F(PartialChoice, ReferencePointIsProposedApproximatedOrTyped) {
    session.CalcMode = 4;
    session.BensonReferenceValid = true;
    auto choice = Zentrale::OpenPartialChoice();
    EXPECT_FALSE(session.BensonReferenceValid);
    EXPECT_EQ(session.InputSituation, 4);
    EXPECT_FALSE(choice.inputEnabled);
    EXPECT_EQ(
        choice.RefVorschlag.find("Proposal for the reference point according to situation:\n"), 0U);
    EXPECT_FLOAT_EQ(session.BensonReference.T, Declare::substance.Tboil);
    EXPECT_TRUE(Zentrale::IsBensonReferenceGiven());

    Zentrale::ChooseReference(choice, 1);
    EXPECT_EQ(session.BensonReference.p, 101.335F);
    // 220.4781 (1.981 + 0.18327 ln(4251.2/101.3)) by hand.
    EXPECT_NEAR(static_cast<double>(session.BensonReference.rhoL),
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

    Zentrale::ChooseReference(choice, 2);
    EXPECT_TRUE(choice.inputEnabled);
    Zentrale::ChooseReference(choice, 0);
    EXPECT_FALSE(choice.inputEnabled);
}

TEST_F(PartialChoice, WithoutDataThereIsNoProposal) {
    Declare::substance.Tboil = 0;
    Declare::substance.rhoLPar = {};
    session.CalcMode = 4;
    auto choice = Zentrale::OpenPartialChoice();
    EXPECT_FALSE(Zentrale::IsBensonReferenceGiven());
    EXPECT_NE(choice.RefVorschlag.find("No data available"), std::string::npos);
    Zentrale::ChooseReference(choice, 1);
    EXPECT_EQ(choice.RefVorschlag, "No normal boiling point available");
    opened.clear();
    Zentrale::ConfirmPartialChoice(choice);
    EXPECT_FALSE(session.BensonReferenceValid);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmCalcOut", "frmParinput"}));
}

TEST_F(PartialChoice, GoesOnToResultInputOrDiagram) {
    session.CalcMode = 5;
    auto choice = Zentrale::OpenPartialChoice();
    opened.clear();
    Zentrale::ConfirmPartialChoice(choice);
    EXPECT_TRUE(session.BensonReferenceValid);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmCalcOut", "frmParinput"}));
    EXPECT_EQ(session.InputSituation, 105);

    session.CalcMode = 10;
    choice = Zentrale::OpenPartialChoice();
    opened.clear();
    Zentrale::ConfirmPartialChoice(choice);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmParinput"}));
    EXPECT_EQ(session.InputSituation, 33);

    session.BatchMode = true;
    session.CalcMode = 4;
    choice = Zentrale::OpenPartialChoice();
    opened.clear();
    Zentrale::ConfirmPartialChoice(choice);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmCalcOut"}));

    choice = Zentrale::OpenPartialChoice(true);
    opened.clear();
    Zentrale::ConfirmPartialChoice(choice);
    EXPECT_EQ(opened, (Names{"-frmParinput", "diagram"}));
}

}  // namespace
