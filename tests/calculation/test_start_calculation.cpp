#include "models/density.h"
#include "session_calc_test.h"

using namespace quor;

namespace {

/// Which views open, in their order.
class StartCalculation : public SessionCalcTest {
  protected:
    StartCalculation() {
        views.open_partial_choice = [this] {
            opened.emplace_back("frmCalcIn");
            return choiceIsConfirmed;
        };
        views.open_result_view = [this] { opened.emplace_back("frmCalcOut"); };
        views.close_result_view = [this] { opened.emplace_back("-frmCalcOut"); };
        views.open_direct_input = [this] { opened.emplace_back("frmParinput"); };
        views.close_direct_input = [this] { opened.emplace_back("-frmParinput"); };
        views.close_tank_view = [this] { opened.emplace_back("-frmKessel"); };
        views.open_process_view = [this] { opened.emplace_back("frmInputProzessLinien"); };
        views.prepare_diagram = [this] { opened.emplace_back("diagram"); };
    }

    using Names = std::vector<std::string>;
    Names run(int mode) {
        opened.clear();
        session::run_calculation(session, calculation::task_of_code(mode), views);
        return opened;
    }

    void confirm(const report::PartialChoice& choice, bool forDiagram = false) {
        opened.clear();
        session::confirm_partial_choice(session, choice, forDiagram, views);
    }

    session::CalculationViews views;
    Names opened;
    bool choiceIsConfirmed = true;
};

TEST_F(StartCalculation, DirectModeOpensResultAndInput) {
    for (const int mode : Codes{1, 6, 7, 8, 11, 13, 14, 15, 16, 17, 18, 19, 22, 24}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(run(mode), (Names{"frmCalcOut", "frmParinput"}));
        EXPECT_EQ(state().input, report::InputKind::state);
        EXPECT_EQ(code_of(state().task), mode);
    }
    EXPECT_EQ(run(0), (Names{"frmCalcOut", "frmParinput"}));
    EXPECT_EQ(code_of(state().task), 1);
}

TEST_F(StartCalculation, BatchModeOpensOnlyTheResult) {
    session.change()->batch_mode = true;
    for (const int mode : Codes{1, 2, 3, 8, 11, 13}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(run(mode), (Names{"frmCalcOut"}));
        EXPECT_FALSE(state().method.assumed_vle);
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
    EXPECT_EQ(user.messages.back().default_answer, dialogs::Answer::No);
    EXPECT_FALSE(state().method.assumed_vle);
    user.answers = {dialogs::Answer::Yes};
    EXPECT_EQ(run(3), (Names{"frmCalcIn"}));
    EXPECT_TRUE(state().method.assumed_vle);
    EXPECT_EQ(state().input, report::InputKind::state);
    EXPECT_EQ(code_of(state().task), 3);
    run(8);
    EXPECT_FALSE(state().method.assumed_vle);
}

TEST_F(StartCalculation, EquilibriaArePrepared) {
    for (const bool batch : {false, true}) {
        session.change()->batch_mode = batch;
        EXPECT_EQ(run(4), (Names{"frmCalcIn"}));
        EXPECT_EQ(run(5), (Names{"frmCalcIn"}));
    }
    use_models({.hlv = 6});
    EXPECT_EQ(run(6), (Names{"frmCalcIn"}));
    EXPECT_EQ(run(7), (Names{"frmCalcIn"}));
}

TEST_F(StartCalculation, LiquidDensityNeedsACubicEos) {
    session.change()->batch_mode = true;
    use_models({.eos = 16});
    EXPECT_TRUE(run(2).empty());
    EXPECT_EQ(code_of(state().task), 0);
    EXPECT_EQ(user.lastText(), "possible only by using a  cubic EOS");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

TEST_F(StartCalculation, TankClosesTheResultBehindItself) {
    EXPECT_EQ(run(9), (Names{"frmCalcOut", "frmParinput", "-frmCalcOut"}));
    EXPECT_TRUE(state().method.global);
    EXPECT_EQ(state().input, report::InputKind::tank);
    EXPECT_EQ(run(10), (Names{"frmCalcIn", "-frmCalcOut"}));
    EXPECT_FALSE(session::open_partial_choice(session).method.global);
}

TEST_F(StartCalculation, PolytropicProcessHasItsOwnView) {
    EXPECT_EQ(run(12), (Names{"frmInputProzessLinien"}));
    EXPECT_EQ(session->process_line.kind, diagrams::ProcessKind::polytropic);
    EXPECT_TRUE(session->process_line.from_calculation);
}

TEST_F(StartCalculation, MenuTellsThatBatchModeHasNoData) {
    session::prepare_calculation_menu(session, views);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(opened, (Names{"-frmCalcOut", "-frmParinput", "-frmKessel"}));
    session.change()->batch_mode = true;
    session::prepare_calculation_menu(session, views);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(
        user.lastText(),
        "This mode of calculation is possible only when \nbatch data (= exper. T-p-rho,..-data) "
        "are available.\n\nEnter batch-data\n(via file or manual input) => menue "
        "\"Data/exper. data...\"");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

TEST_F(StartCalculation, CancelOfTheChoiceChangesNothing) {
    run(3);
    const report::CalculationState before = state();
    choiceIsConfirmed = false;
    for (const int mode : Codes{4, 5, 10}) {
        SCOPED_TRACE(mode);
        EXPECT_EQ(run(mode), (Names{"frmCalcIn"}));
        EXPECT_EQ(state().task, before.task);
        EXPECT_EQ(state().method, before.method);
        EXPECT_EQ(state().input, before.input);
    }
}

TEST_F(StartCalculation, CodesAndTasksBelongTogether) {
    for (int code = 1; code < calculation::kTaskCount; ++code)
        EXPECT_EQ(code_of(calculation::task_of_code(code)), code);
    for (const int none : Codes{-1, 0, 25, 32000})
        EXPECT_EQ(calculation::task_of_code(none), calculation::Task::none);
}

// ---- PartialChoiceDialog
// --------------------------------------------------------------------------------

using PartialChoice = StartCalculation;

TEST_F(PartialChoice, CubicEosOffersBothCalculations) {
    session.change()->calculation.task = calculation::task_of_code(4);
    session.change()->calculation.method.global = false;
    auto choice = session::open_partial_choice(session);
    EXPECT_EQ(choice.title, "Choose \"Global-/Partial Calculation\" for Phase Equilibrium V-L");
    EXPECT_TRUE(choice.method.global);
    EXPECT_EQ(choice.global_index, 0);
    EXPECT_TRUE(choice.global_enabled && choice.choices_visible && choice.cancel_enabled);
    EXPECT_FALSE(choice.density_frame_visible || choice.reference_frame_visible);
    EXPECT_EQ(choice.density_range,
              "Global Calculation: L and V density and p(LV) or T(LV) resp. are calculated using "
              "the cubic EOS. ");
    EXPECT_EQ(
        choice.situation_text.find("The selected EOS enables the calculation of both equilibrium "
                                   "phases L and V "),
        0U);

    choice.choose_global(false);
    EXPECT_FALSE(choice.method.global);
    EXPECT_TRUE(choice.density_frame_visible && choice.reference_frame_visible);
    EXPECT_FALSE(choice.database_enabled);
    EXPECT_EQ(choice.database_range, "(no database function available)");
    EXPECT_EQ(choice.density_range,
              "Partial calculation: L-density by means of BENSON's method (Mathias/Cailletet),  V "
              "density calc. using EOS. For the calculation of p(LV) or T(LV) resp. the cubic EOS "
              "is used.");
}

TEST_F(PartialChoice, DatabaseDensityIsOfferedWhereItExists) {
    session.change()->substance.rhoL_T_low = 150;
    session.change()->substance.rhoL_T_high = 360;
    session.change()->calculation.task = calculation::task_of_code(4);
    auto choice = session::open_partial_choice(session);
    choice.choose_global(false);
    EXPECT_TRUE(choice.database_enabled);
    EXPECT_EQ(choice.database_range, "valid in the range T/K =150...360");
    choice.choose_density(false);
    EXPECT_FALSE(choice.method.liquid_by_benson);
    EXPECT_FALSE(choice.reference_frame_visible);
    EXPECT_EQ(choice.density_range,
              "The L-density is calculated by means of the database equation rho_L = F(T).");
    choice.choose_density(true);
    EXPECT_TRUE(choice.method.liquid_by_benson && choice.reference_frame_visible);
    EXPECT_EQ(choice.density_range, "The L-density is calculated by means of BENSON's method.");
}

TEST_F(PartialChoice, VirialEosRefusesTheGlobalCalculation) {
    use_models({.eos = 16});
    session.change()->calculation.task = calculation::task_of_code(5);
    auto choice = session::open_partial_choice(session);
    EXPECT_FALSE(choice.method.global);
    EXPECT_EQ(choice.global_index, 1);
    EXPECT_EQ(choice.situation_text.find(
                  "The selected EOS can only be used for the calculation of the V-phase."),
              0U);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_FALSE(choice.choose_global(true));
    EXPECT_STREQ(report::kGlobalNeedsCubic,
                 "Global calculation only possible by using a cubic EOS (=> Window \"Models\").");
    EXPECT_EQ(choice.global_index, 1);
    EXPECT_FALSE(choice.method.global);
}

TEST_F(PartialChoice, VapourPressurePriorityLeavesNothingToChoose) {
    use_models({.priority = false});
    session.change()->calculation.task = calculation::task_of_code(4);
    session.change()->calculation.method.global = false;
    const auto choice = session::open_partial_choice(session);
    EXPECT_EQ(choice.title, "Situation of Calculation");
    EXPECT_FALSE(choice.choices_visible || choice.cancel_enabled);
    EXPECT_EQ(choice.situation_text,
              "Calculation of the equilibrium V - L by using the actual vapour press. equation\n"
              "(The EOS was deactivated in the window 'Models')");
    EXPECT_TRUE(choice.method.global);
}

TEST_F(PartialChoice, TankIsAlwaysPartial) {
    for (const bool priority : {true, false}) {
        use_models({.priority = priority});
        session.change()->calculation.task = calculation::task_of_code(10);
        session.change()->calculation.method.global = false;
        const auto choice = session::open_partial_choice(session);
        EXPECT_FALSE(choice.method.global);
        EXPECT_FALSE(choice.global_enabled);
    }
}

TEST_F(PartialChoice, AssumedEquilibriumAndVaporisationNeedASecondPoint) {
    session.change()->calculation.task = calculation::task_of_code(3);
    session.change()->calculation.method.assumed_vle = true;
    auto choice = session::open_partial_choice(session);
    EXPECT_FALSE(choice.method.global);
    EXPECT_EQ(choice.situation_text.find(
                  "Assumption: The specificated values exactly describe the phase equlibrium.\n"),
              0U);
    EXPECT_NE(choice.situation_text.find("A 2nd reference point is needed"), std::string::npos);
    session.change()->calculation.method.assumed_vle = false;
    session.change()->calculation.task = calculation::task_of_code(6);
    use_models({.hlv = 6});
    choice = session::open_partial_choice(session);
    EXPECT_FALSE(choice.mode_frame_visible);
    EXPECT_TRUE(choice.reference_frame_visible);
    EXPECT_EQ(choice.situation_text.find(
                  "The calculation of the L-density (or the molar L-volume, resp.) is done "),
              0U);
}

TEST_F(PartialChoice, ReferencePointIsProposedApproximatedOrTyped) {
    session.change()->calculation.task = calculation::task_of_code(4);
    auto choice = session::open_partial_choice(session);
    EXPECT_FALSE(models::is_known(state().method.reference));
    EXPECT_FALSE(choice.input_enabled);
    EXPECT_EQ(
        choice.proposal_text.find("Proposal for the reference point according to situation:\n"),
        0U);
    EXPECT_FLOAT_EQ(choice.method.reference.T, session->substance.Tboil);
    EXPECT_TRUE(models::is_known(choice.method.reference));

    choice.choose_reference(report::PartialChoice::Reference::approximation);
    EXPECT_EQ(choice.method.reference.p, 101.335F);
    // 220.4781 (1.981 + 0.18327 ln(4251.2/101.3)) by hand.
    EXPECT_NEAR(static_cast<double>(choice.method.reference.rhoL),
                220.4781 * (1.981 + 0.18327 * std::log(4251.2 / 101.3)), 1e-3);
    const std::vector<std::string> text = [&] {
        std::vector<std::string> all(1);
        for (const char c : choice.proposal_text) {
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

    choice.choose_reference(report::PartialChoice::Reference::typed);
    EXPECT_TRUE(choice.input_enabled);
    choice.choose_reference(report::PartialChoice::Reference::proposed);
    EXPECT_FALSE(choice.input_enabled);
}

TEST_F(PartialChoice, WithoutDataThereIsNoProposal) {
    session.change()->substance.Tboil = 0;
    session.change()->substance.rhoL_coefficients = {};
    session.change()->calculation.task = calculation::task_of_code(4);
    auto choice = session::open_partial_choice(session);
    EXPECT_FALSE(models::is_known(choice.method.reference));
    EXPECT_NE(choice.proposal_text.find("No data available"), std::string::npos);
    choice.choose_reference(report::PartialChoice::Reference::approximation);
    EXPECT_EQ(choice.proposal_text, "No normal boiling point available");
    confirm(choice);
    EXPECT_FALSE(models::is_known(state().method.reference));
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmCalcOut", "frmParinput"}));
}

TEST_F(PartialChoice, GoesOnToResultInputOrDiagram) {
    session.change()->calculation.task = calculation::task_of_code(5);
    auto choice = session::open_partial_choice(session);
    confirm(choice);
    EXPECT_TRUE(models::is_known(state().method.reference));
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmCalcOut", "frmParinput"}));
    EXPECT_EQ(state().input, report::InputKind::state);
    EXPECT_EQ(code_of(state().task), 5);

    session.change()->calculation.task = calculation::task_of_code(10);
    choice = session::open_partial_choice(session);
    confirm(choice);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmParinput"}));
    EXPECT_EQ(state().input, report::InputKind::tank);

    session.change()->batch_mode = true;
    session.change()->calculation.task = calculation::task_of_code(4);
    choice = session::open_partial_choice(session);
    confirm(choice);
    EXPECT_EQ(opened, (Names{"-frmParinput", "frmCalcOut"}));

    confirm(choice, true);
    EXPECT_EQ(opened, (Names{"-frmParinput", "diagram"}));
}

}  // namespace
