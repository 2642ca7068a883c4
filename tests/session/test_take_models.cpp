#include "models/named_reference.h"
#include "session/take_models.h"

#include <filesystem>
#include <fstream>

#include "models/model_tables.h"
#include "session/commands.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using models::Eos;
using models::ModelChoice;

/// What "Models OK" does with a choice.
class TakeModels : public SessionTest {
  protected:
    TakeModels() {
        const auto now = session.change();
        models::SubstanceRecord& s = now->substance;
        s = fluids::ReferencePropane();
        s.name = "Propane";
        for (models::AntoineSet* set : {&s.antoine_low, &s.antoine_high}) set->A = 5.0F;
        s.frost.T_low = s.wagner.T_low = 100;
    }
    ModelChoice choice() { return ModelChoice(session->substance, session->models); }
    ModelChoice with(Eos eos) {
        ModelChoice c = choice();
        c.choose_eos(models::index_of(c.eos(), eos));
        return c;
    }
};

TEST_F(TakeModels, ComputesWhatTheSelectionNeeds) {
    session.change()->substance.frost_van_der_waals = {};
    ModelChoice c = with(Eos::redlichKwong);
    c.choose_vp(models::index_of(c.vp(), models::VapourPressureEquation::frostVanDerWaals));
    EXPECT_TRUE(session::take_models(session, c));
    EXPECT_EQ(session->models, c.models());
    EXPECT_NEAR(session->eos_parameters.b0,
                0.08664 * 8.31451 * session->substance.Tcrit / session->substance.pcrit, 1e-6);
    EXPECT_NE(session->substance.frost_van_der_waals.a[0], 0.0F);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(TakeModels, EnablesTheCommandsOfACompleteChoice) {
    using session::Command;
    const auto all = {Command::calculations, Command::options,       Command::fitting,
                      Command::diagrams,     Command::surfaces,      Command::saveProject,
                      Command::toolSave,     Command::toolReference, Command::toolTank};
    for (const Command c : all) EXPECT_FALSE(session::is_enabled(session, c));
    EXPECT_TRUE(session::take_models(session, choice()));
    for (const Command c : all) EXPECT_TRUE(session::is_enabled(session, c));
    EXPECT_TRUE(session::is_enabled(session, Command::needsLPhase));
    EXPECT_GT(session->coordinates.p_max, 0) << "the limits of diagrams are proposed";

    EXPECT_TRUE(session::take_models(session, with(Eos::virialVanDerWaals)));
    EXPECT_TRUE(session::is_enabled(session, Command::calculations));
    EXPECT_FALSE(session::is_enabled(session, Command::needsLPhase));
}

TEST_F(TakeModels, AMissingAcentricFactorIsToldAndTheCalculationGoesOn) {
    session.change()->substance.omega = 0;
    ModelChoice c = choice();
    c.choose_hlv(models::index_of(c.hlv(), models::VaporisationModel::carruthKobayashi));
    EXPECT_TRUE(session::take_models(session, c));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "No acentric factor available.\nCalculated by using omega = 0\n"
              "(Input => data editor)");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_TRUE(session::is_enabled(session, session::Command::calculations));
}

TEST_F(TakeModels, NoWarningWithoutNeedOfAnAcentricFactor) {
    session.change()->substance.omega = 0;
    ModelChoice c = choice();
    c.choose_hlv(models::index_of(c.hlv(), models::VaporisationModel::chen));
    EXPECT_TRUE(session::take_models(session, c));
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(TakeModels, WithoutParametersOfJiTorvikNothingIsTaken) {
    const models::ModelSelection before = session->models;
    EXPECT_FALSE(session::take_models(session, with(Eos::jiTorvik1)));
    ASSERT_FALSE(user.messages.empty());
    EXPECT_EQ(user.messages.front().text, "No parameter-file generated.");
    EXPECT_FALSE(session::is_enabled(session, session::Command::calculations));
    EXPECT_EQ(session->models, before);
}

TEST_F(TakeModels, OkDoesNotClearTheManualCoefficients) {
    ModelChoice c = with(Eos::manualVirial);
    c.set_manual_virial({0.05, 1500, 1.6});
    EXPECT_TRUE(session::take_models(session, c));
    EXPECT_EQ(session->eos_parameters.b0, 0.05);
    EXPECT_EQ(session->eos_parameters.nb, 1500.0);
    EXPECT_EQ(session->eos_parameters.nv, 1.6);
    EXPECT_TRUE(session::take_models(session, with(Eos::pengRobinson)));
    EXPECT_EQ(session->models.manual_virial.b1, 1500.0) << "they are proposed the next time";
}

TEST_F(TakeModels, AChoiceThatIsNotTakenChangesNothing) {
    ASSERT_TRUE(session::take_models(session, choice()));
    const models::ModelSelection keptModels = session->models;
    const models::EosParameters keptParameters = session->eos_parameters;
    ModelChoice c = with(Eos::manualVirial);
    c.choose_vp(2);
    c.choose_hlv(models::index_of(c.hlv(), models::VaporisationModel::watson));
    c.set_watson("0.5");
    c.set_priority_ceos(false);
    c.set_manual_virial({1, 2, 3});
    EXPECT_EQ(session->models, keptModels);
    EXPECT_EQ(session->eos_parameters, keptParameters);
}

TEST_F(TakeModels, BeforeTheFirstChoiceThereIsNone) {
    const ModelChoice c = choice();
    EXPECT_EQ(session->models.eos, Eos::none);
    EXPECT_EQ(session->models.vaporisation, models::VaporisationModel::none);
}

TEST_F(TakeModels, EverySubstanceGetsACompleteChoice) {
    for (const std::string& name : fluids::AllNames()) {
        session::set_commands(session, {session::Command::calculations}, false);
        session.change()->substance = fluids::Row(name);
        session.change()->models = {};
        EXPECT_TRUE(session::take_models(session, choice())) << name;
        EXPECT_GT(session->eos_parameters.vcrit_calculated, 0.0) << name;
        EXPECT_TRUE(session::is_enabled(session, session::Command::calculations)) << name;
    }
}

// ---- the program that fits the parameters of Ji/Torvik

TEST_F(TakeModels, AMissingParameterProgramIsTold) {
    EXPECT_FALSE(session::compute_constants(session, Eos::jiTorvik1));
    ASSERT_EQ(user.messages.size(), 2U);
    EXPECT_EQ(user.messages[0].text, "No parameter-file generated.");
    EXPECT_EQ(user.messages[0].title, "Execution not possible");
    EXPECT_EQ(user.messages[1].text, "Error during EOS-parameter calculation");
    EXPECT_EQ(user.messages[1].title, "Execution not possible");
    EXPECT_EQ(session->eos_parameters.vcrit_calculated, 0);
}

TEST_F(TakeModels, AGarbledAnswerOfTheParameterProgramIsTold) {
    const std::filesystem::path program = folder() / "djipar.exe";
    std::ofstream(program) << "#!/bin/sh\nprintf 'Propane 1 x y z u' > PARAM_JI.DAT\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    EXPECT_FALSE(session::compute_constants(session, Eos::jiTorvik1));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Error during EOS-parameter calculation");
    EXPECT_EQ(session->eos_parameters.vcrit_calculated, 0);
    EXPECT_EQ(session->ji_torvik.zc, 0);
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false}))
        << "the busy pointer shows while it waits";
}

TEST_F(TakeModels, TheParameterProgramIsGivenUpWithoutAChange) {
    const std::filesystem::path program = folder() / "djipar.exe";
    std::ofstream(program) << "#!/bin/sh\nsleep 60\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    user.patience = 3;
    EXPECT_FALSE(session::compute_constants(session, Eos::jiTorvik1));
    EXPECT_EQ(user.waits, (std::vector<std::string>{"djipar.exe"}));
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "Error during EOS-parameter calculation");
    EXPECT_EQ(session->eos_parameters.vcrit_calculated, 0);
}

TEST_F(TakeModels, GivenParametersAreNotAskedFor) {
    {
        const auto now = session.change();
        now->ji_torvik = {.zc = 0.28, .m = 0.6, .p = 0.1, .q = 0.2};
        now->ji_torvik_given = true;
    }
    EXPECT_TRUE(session::compute_constants(session, Eos::jiTorvik1));
    EXPECT_TRUE(user.messages.empty());
    EXPECT_GT(session->eos_parameters.vcrit_calculated, 0);
}

// ---- reference states of the real fluid

TEST_F(TakeModels, AModelWithoutTheNamedReferenceStateIsToldAndGetsAnother) {
    ASSERT_TRUE(session::take_models(session, with(Eos::pengRobinson)));
    session.change()->reference.named = models::NamedState::iir;
    ASSERT_TRUE(session::take_models(session, with(Eos::soave)));
    EXPECT_TRUE(user.messages.empty()) << user.lastText();
    EXPECT_NEAR(session::present_reference(session).href,
                models::resolved_reference(session.fluid(), session->reference)->href, 0);

    ASSERT_TRUE(session::take_models(session, with(Eos::idealGas)));
    EXPECT_NE(user.lastText().find("has no saturated liquid at 273.15 K by"), std::string::npos)
        << user.lastText();
    EXPECT_NE(user.lastText().find("\nThe zero of h and s is now: h = 0, s = 0 of the ideal gas."),
              std::string::npos);
    EXPECT_EQ(session->reference.named, models::NamedState::none);
    EXPECT_EQ(session->reference.href, 0);
}

}  // namespace
