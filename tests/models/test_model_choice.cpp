#include "legacy/wrappers.h"
#include "models/cubic_eos.h"
#include "models/model_choice.h"
#include "session/actions.h"
#include "session/commands.h"
#include "support/codes.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using legacy::the_models;
using legacy::the_substance;
using models::ModelChoice;
using models::ModelEntries;

std::vector<int> codes(const ModelEntries& entries) {
    std::vector<int> all;
    for (const models::ModelEntry& e : entries) all.push_back(e.code);
    return all;
}

class ModelChoiceOf : public SessionTest {
  protected:
    ModelChoiceOf() {
        actions::clear();
        the_substance = fluids::ReferencePropane();
        the_substance.Name = "Propane";
        for (models::VPSetAntoine* set : {&the_substance.ALP, &the_substance.AHP}) set->A = 5.0F;
        the_substance.FRO.TLo = the_substance.WAG.TLo = 100;
    }
    static void chooseEOS(ModelChoice& choice, std::int16_t code) {
        choice.choose_eos(models::index_of(choice.eos(), code));
    }
    static void chooseHLV(ModelChoice& choice, std::int16_t method) {
        choice.choose_hlv(models::index_of(choice.hlv(), method));
    }
};

TEST_F(ModelChoiceOf, EquationsOfStateDependOnTheAcentricFactor) {
    EXPECT_EQ(codes(models::eos_entries(the_substance)),
              (std::vector<int>{0, 2, 3, 4, 5, 6, 7, 8, 10, 16, 11, 12, 13, 14, 15}));
    the_substance.omega = 0;
    EXPECT_EQ(codes(models::eos_entries(the_substance)),
              (std::vector<int>{0, 2, 3, 4, 10, 11, 12, 13}));
    // Helium and hydrogen have negative ones.
    the_substance.omega = -0.39;
    EXPECT_EQ(models::eos_entries(the_substance).size(), 15U);
}

TEST_F(ModelChoiceOf, NamesAreShownWithoutOuterBlanks) {
    EXPECT_EQ(models::eos_entries(the_substance)[5].text, "CEOS Peng / Robinson");
    EXPECT_EQ(models::vp_entries(the_substance)[0].text, "Wagner");
    EXPECT_EQ(models::vp_entries(the_substance)[1].text, "FROST/KALKWARF");
    EXPECT_EQ(models::cp_entries({})[0].text, "(no equation available)");
}

TEST_F(ModelChoiceOf, FirstEquationIsPengRobinsonOrRedlichKwong) {
    const ModelChoice withOmega;
    EXPECT_EQ(models::code_of(the_models.EOSModel), 6);
    EXPECT_EQ(withOmega.eos()[withOmega.eos_index()].text, "CEOS Peng / Robinson");
    the_models.EOSModel = codes::eos(-1);
    the_substance.omega = 0;
    const ModelChoice without;
    EXPECT_EQ(models::code_of(the_models.EOSModel), 4);
    EXPECT_EQ(without.eos()[without.eos_index()].text, "CEOS Redlich / Kwong");
}

TEST_F(ModelChoiceOf, AnEquationThatIsNotOfferedAnyMoreGivesWayToTheDefault) {
    the_models.EOSModel = codes::eos(16);
    the_models.EOSOnlyV = true;
    the_substance.omega = 0;
    const ModelChoice choice;
    EXPECT_EQ(models::code_of(the_models.EOSModel), 4);
    EXPECT_FALSE(the_models.EOSOnlyV);
    EXPECT_TRUE(choice.priority_enabled());
}

TEST_F(ModelChoiceOf, VapourPressureEquationsAreThoseWithData) {
    models::SubstanceRecord s;
    EXPECT_EQ(codes(models::vp_entries(s)), std::vector<int>{0});
    s.Tboil = 231.0F;
    EXPECT_EQ(codes(models::vp_entries(s)), (std::vector<int>{6, 7, 8, 0}));
    s.AUG = {14.0F, -2200.0F};
    EXPECT_EQ(codes(models::vp_entries(s)), (std::vector<int>{5, 6, 7, 8, 0}));
    s.AHP.A = 4.0F;
    EXPECT_EQ(codes(models::vp_entries(s)), (std::vector<int>{2, 5, 6, 7, 8}));
    s.ALP.A = 4.0F;
    s.FRO.TLo = 100;
    s.WAG.TLo = 100;
    EXPECT_EQ(codes(models::vp_entries(s)), (std::vector<int>{4, 3, 1, 2, 5, 6, 7, 8}));
}

TEST_F(ModelChoiceOf, NoVapourPressureModelYetMeansTheFirstEntry) {
    the_models.VPModel = codes::vp(0);
    the_substance.WAG.TLo = 0;
    const ModelChoice choice;
    EXPECT_EQ(choice.vpIndex(), 0U);
    EXPECT_EQ(models::code_of(the_models.VPModel), 3);
    EXPECT_EQ(models::vp_code(the_models.VPModel), "FRO");
}

TEST_F(ModelChoiceOf, TheVapourPressureCodeFollowsTheEntry) {
    ModelChoice choice;
    const std::vector<std::pair<int, std::string>> all = {{1, "ALP"}, {2, "AHP"}, {3, "FRO"},
                                                          {4, "WAG"}, {5, "AUG"}, {6, "KFW"},
                                                          {7, "KFR"}, {8, "THO"}};
    for (const auto& [index, code] : all) {
        choice.choose_vp(models::index_of(choice.vp(), static_cast<std::int16_t>(index)));
        EXPECT_EQ(models::code_of(the_models.VPModel), index);
        EXPECT_EQ(models::code_of(the_models.VPModel), code);
    }
    the_substance = {};
    const ModelChoice nothing;
    EXPECT_EQ(models::code_of(the_models.VPModel), 0);
    EXPECT_EQ(models::vp_code(the_models.VPModel), "000");
}

TEST_F(ModelChoiceOf, MethodsOfVaporisationDependOnDataAndEquation) {
    models::SubstanceRecord s;
    EXPECT_EQ(codes(models::hlv_entries(s, true)), (std::vector<int>{2, 3, 6}));
    EXPECT_EQ(codes(models::hlv_entries(s, false)), (std::vector<int>{2, 3, 6, 7}));
    s.hLVTHi = 300;
    s.WatsonH = 18000;
    s.WatsonT = 231;
    s.rhoLTLo = 90;
    EXPECT_EQ(codes(models::hlv_entries(s, false)), (std::vector<int>{1, 2, 3, 4, 5, 6, 7}));
    s.WatsonT = 0;
    EXPECT_EQ(codes(models::hlv_entries(s, false)), (std::vector<int>{1, 2, 3, 5, 6, 7}));
}

TEST_F(ModelChoiceOf, TheIdealGasFormAvailableIsTaken) {
    EXPECT_EQ(codes(models::cp_entries({})), std::vector<int>{0});
    models::SubstanceRecord s;
    s.hasCpSinh = true;
    EXPECT_EQ(codes(models::cp_entries(s)), std::vector<int>{2});
    s.hasCpPoly = true;
    EXPECT_EQ(codes(models::cp_entries(s)), (std::vector<int>{1, 2}));

    the_substance.hasCpPoly = false;
    the_substance.hasCpSinh = true;
    the_models.CpModel = codes::cp(0);
    ModelChoice choice;
    EXPECT_EQ(models::code_of(the_models.CpModel), 2);
    the_models.CpModel = codes::cp(1);
    const ModelChoice again;
    EXPECT_EQ(models::code_of(the_models.CpModel), 2) << "a form that this substance does not have";
}

TEST_F(ModelChoiceOf, WatsonExponentsComeFromTheReducedBoilingTemperature) {
    models::SubstanceRecord s;
    EXPECT_EQ(models::watson_entries(s), std::vector<std::string>{"0.38"});
    s.Tcrit = 1000;
    s.Tboil = 570.0F;
    EXPECT_EQ(models::watson_entries(s), (std::vector<std::string>{"0.38", "0.30"}));
    s.Tboil = 650.0F;
    // 0.74 * 0.65 - 0.116
    EXPECT_EQ(models::watson_entries(s), (std::vector<std::string>{"0.38", "0.365"}));
    s.Tboil = 710.0F;
    EXPECT_EQ(models::watson_entries(s), (std::vector<std::string>{"0.38", "0.41"}));
}

TEST_F(ModelChoiceOf, TheWatsonExponentIsShownForItsMethodOnly) {
    ModelChoice choice;
    EXPECT_FLOAT_EQ(the_models.WatsonN, 0.38F);
    EXPECT_EQ(choice.watson_text(), "0.38");
    chooseHLV(choice, 4);
    EXPECT_TRUE(choice.watson_visible());
    chooseHLV(choice, 2);
    EXPECT_FALSE(choice.watson_visible());
    choice.set_watson("0,4");
    EXPECT_FLOAT_EQ(the_models.WatsonN, 0.4F);
    choice.set_watson("1e300");
    EXPECT_EQ(the_models.WatsonN, 0.0F) << "no float holds it";
    choice.set_watson("0.41");
    const ModelChoice again;
    EXPECT_EQ(again.watson_text(), "0.41");
}

TEST_F(ModelChoiceOf, AnEquationForTheVapourOnlyTakesPriorityAndTheGlobalMethodAway) {
    ModelChoice choice;
    chooseHLV(choice, 7);
    chooseEOS(choice, 11);
    EXPECT_TRUE(the_models.EOSOnlyV);
    EXPECT_FALSE(the_models.PriorityCEOS);
    EXPECT_FALSE(choice.priority_enabled());
    EXPECT_EQ(the_models.HLVModel, choice.hlv()[0].code);
    for (const int code : codes(choice.hlv())) EXPECT_NE(code, 7);

    chooseEOS(choice, 13);
    EXPECT_FALSE(the_models.PriorityCEOS);
    chooseEOS(choice, 5);
    EXPECT_FALSE(the_models.EOSOnlyV);
    EXPECT_TRUE(the_models.PriorityCEOS) << "back at a cubic equation it has priority again";
    EXPECT_TRUE(choice.priority_enabled());
    EXPECT_EQ(codes(choice.hlv()).back(), 7);
}

TEST_F(ModelChoiceOf, AnotherCubicEquationKeepsThePriority) {
    ModelChoice choice;
    choice.set_priority_ceos(false);
    chooseEOS(choice, 4);
    EXPECT_FALSE(the_models.PriorityCEOS);
}

TEST_F(ModelChoiceOf, TheIdealGasIsForTheVapourOnly) {
    ModelChoice choice;
    chooseEOS(choice, 0);
    EXPECT_TRUE(the_models.EOSOnlyV);
}

TEST_F(ModelChoiceOf, TheManualFormAsksForItsCoefficientsAndKeepsThem) {
    ModelChoice choice;
    models::calc_eos_parameters(6);
    EXPECT_TRUE(choice.choose_eos(models::index_of(choice.eos(), 10)));
    EXPECT_EQ(legacy::the_eosParameters.eosB0, 0.0);
    EXPECT_EQ(legacy::the_eosParameters.vcritCalc, 0.0) << "nothing of the former equation is left";
    choice.set_manual_virial(0.05, 1500, 1.6);
    chooseEOS(choice, 6);
    EXPECT_TRUE(choice.choose_eos(models::index_of(choice.eos(), 10)));
    EXPECT_EQ(legacy::the_eosParameters.eosB0, 0.05)
        << "the coefficients typed before are proposed";
    EXPECT_EQ(legacy::the_eosParameters.eosNB, 1500.0);
    EXPECT_EQ(legacy::the_eosParameters.eosNV, 1.6);
    EXPECT_TRUE(choice.Confirm());
    EXPECT_EQ(legacy::the_eosParameters.eosNB, 1500.0) << "OK does not clear them";

    ModelChoice again;
    chooseEOS(again, 6);
    EXPECT_TRUE(again.choose_eos(models::index_of(again.eos(), 10)));
    EXPECT_EQ(legacy::the_eosParameters.eosNV, 1.6);
}

TEST_F(ModelChoiceOf, ConfirmingComputesWhatTheSelectionNeeds) {
    the_substance.KFW = {};
    ModelChoice choice;
    chooseEOS(choice, 4);
    choice.choose_vp(models::index_of(choice.vp(), 6));
    EXPECT_TRUE(choice.Confirm());
    EXPECT_NEAR(legacy::the_eosParameters.eosB0,
                0.08664 * 8.31451 * the_substance.Tcrit / the_substance.pcrit, 1e-6);
    EXPECT_NE(the_substance.KFW.a[0], 0.0F);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ModelChoiceOf, ConfirmingEnablesTheCommandsOfACompleteChoice) {
    using session::Command;
    int prepared = 0;
    actions::register_action("CalcCoordinateDefaults", [&] { ++prepared; });
    ModelChoice choice;
    const auto all = {Command::mnuCalcMain, Command::mnuOptions,    Command::mnuFitting,
                      Command::mnu2D,       Command::mnu3D,         Command::mnuData_SaveProject,
                      Command::toolSave,    Command::toolReference, Command::toolTank};
    for (const Command c : all) EXPECT_FALSE(session::is_enabled(c));
    EXPECT_TRUE(choice.Confirm());
    for (const Command c : all) EXPECT_TRUE(session::is_enabled(c));
    EXPECT_TRUE(session::is_enabled(Command::needsLPhase));
    EXPECT_EQ(prepared, 1);

    ModelChoice virial;
    chooseEOS(virial, 11);
    EXPECT_TRUE(virial.Confirm());
    EXPECT_TRUE(session::is_enabled(Command::mnuCalcMain));
    EXPECT_FALSE(session::is_enabled(Command::needsLPhase));
}

TEST_F(ModelChoiceOf, AMissingAcentricFactorIsToldAndTheCalculationGoesOn) {
    the_substance.omega = 0;
    ModelChoice choice;
    chooseHLV(choice, 3);
    EXPECT_TRUE(choice.Confirm());
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "No acentric factor available.\nCalculated by using omega = 0\n"
              "(Input => data editor)");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_TRUE(session::is_enabled(session::Command::mnuCalcMain));
}

TEST_F(ModelChoiceOf, NoWarningWithoutNeedOfAnAcentricFactor) {
    the_substance.omega = 0;
    ModelChoice choice;
    chooseHLV(choice, 2);
    EXPECT_TRUE(choice.Confirm());
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ModelChoiceOf, WithoutParametersOfJiTorvikTheViewStaysOpen) {
    ModelChoice choice;
    chooseEOS(choice, 7);
    EXPECT_FALSE(choice.Confirm());
    ASSERT_FALSE(user.messages.empty());
    EXPECT_EQ(user.messages.front().text, "No parameter-file generated.");
    EXPECT_FALSE(session::is_enabled(session::Command::mnuCalcMain));
}

TEST_F(ModelChoiceOf, CancellingRestoresEverything) {
    ModelChoice first;
    ASSERT_TRUE(first.Confirm());
    const models::ModelSelection keptModels = the_models;
    const models::EOSParameters keptParameters = legacy::the_eosParameters;

    ModelChoice choice;
    choice.choose_vp(2);
    chooseHLV(choice, 4);
    choice.set_watson("0.5");
    choice.set_priority_ceos(false);
    chooseEOS(choice, 10);
    choice.set_manual_virial(1, 2, 3);
    choice.Cancel();
    EXPECT_EQ(the_models.EOSModel, keptModels.EOSModel);
    EXPECT_EQ(the_models.EOSOnlyV, keptModels.EOSOnlyV);
    EXPECT_EQ(the_models.VPModel, keptModels.VPModel);
    EXPECT_EQ(the_models.VPModel, keptModels.VPCode);
    EXPECT_EQ(the_models.HLVModel, keptModels.HLVModel);
    EXPECT_EQ(the_models.CpModel, keptModels.CpModel);
    EXPECT_EQ(the_models.PriorityCEOS, keptModels.PriorityCEOS);
    EXPECT_EQ(the_models.WatsonN, keptModels.WatsonN);
    EXPECT_EQ(legacy::the_eosParameters.eosB0, keptParameters.eosB0);
    EXPECT_EQ(legacy::the_eosParameters.vcritCalc, keptParameters.vcritCalc);
}

TEST_F(ModelChoiceOf, CancellingTheFirstChoiceLeavesNone) {
    ModelChoice choice;
    choice.Cancel();
    EXPECT_EQ(models::code_of(the_models.EOSModel), -1);
    EXPECT_EQ(models::code_of(the_models.HLVModel), 0);
}

TEST_F(ModelChoiceOf, TheDensityNoteTellsTheRange) {
    the_substance.rhoLTLo = 86;
    the_substance.rhoLTHi = 369;
    EXPECT_EQ(models::liquid_density_note(the_substance).state,
              "Parameters available from data base");
    EXPECT_EQ(models::liquid_density_note(the_substance).range, "Valid for T/K=86 ...369 K");
    the_substance.rhoLTLo = 0;
    EXPECT_EQ(models::liquid_density_note(the_substance).state, "Parameters not available");
    EXPECT_EQ(models::liquid_density_note(the_substance).range, "");
}

// Every row of the table can be chosen with every equation that its data allow.
TEST_F(ModelChoiceOf, EverySubstanceGetsACompleteChoice) {
    for (const std::string& name : fluids::AllNames()) {
        session::set_commands({session::Command::mnuCalcMain}, false);
        the_substance = fluids::Row(name);
        the_models = {};
        ModelChoice choice;
        EXPECT_LT(choice.eos_index(), choice.eos().size()) << name;
        EXPECT_EQ(choice.hlv()[choice.hlv_index()].code, the_models.HLVModel) << name;
        EXPECT_EQ(choice.vp()[choice.vpIndex()].code, the_models.VPModel) << name;
        EXPECT_EQ(choice.cp()[choice.cp_index()].code, the_models.CpModel) << name;
        EXPECT_TRUE(choice.Confirm()) << name;
        EXPECT_GT(legacy::the_eosParameters.vcritCalc, 0.0) << name;
        EXPECT_TRUE(session::is_enabled(session::Command::mnuCalcMain)) << name;
    }
}

TEST_F(ModelChoiceOf, ListsFollowDataThatWereEditedMeanwhile) {
    the_models.EOSModel = codes::eos(6);
    ModelChoice choice;
    EXPECT_EQ(models::code_of(the_models.EOSModel), 6);
    the_substance.omega = 0;
    choice.renew();
    EXPECT_EQ(choice.eos().size(), 8U);
    EXPECT_EQ(models::code_of(the_models.EOSModel), 4) << "Redlich/Kwong, without acentric factor";
    choice.Cancel();
    EXPECT_EQ(models::code_of(the_models.EOSModel), 6) << "as the view found it";
}

}  // namespace
