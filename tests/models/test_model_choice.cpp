#include "models/cubic_eos.h"
#include "models/model_choice.h"
#include "session/actions.h"
#include "session/commands.h"
#include "support/fluids.h"
#include "support/session_test.h"

namespace {

using Calc::ModelChoice;
using Calc::ModelEntries;
using Declare::models;
using Declare::substance;

std::vector<int> codes(const ModelEntries& entries) {
    std::vector<int> all;
    for (const Calc::ModelEntry& e : entries) all.push_back(e.code);
    return all;
}

class ModelChoiceOf : public SessionTest {
  protected:
    ModelChoiceOf() {
        actions::Clear();
        substance = fluids::ReferencePropane();
        substance.Name = "Propane";
        for (Declare::VPSetAntoine* set : {&substance.ALP, &substance.AHP}) set->A = 5.0F;
        substance.FRO.TLo = substance.WAG.TLo = 100;
    }
    static void chooseEOS(ModelChoice& choice, std::int16_t code) {
        choice.ChooseEOS(Calc::IndexOf(choice.eos(), code));
    }
    static void chooseHLV(ModelChoice& choice, std::int16_t method) {
        choice.ChooseHLV(Calc::IndexOf(choice.hlv(), method));
    }
};

TEST_F(ModelChoiceOf, EquationsOfStateDependOnTheAcentricFactor) {
    EXPECT_EQ(codes(Calc::EOSEntries(substance)),
              (std::vector<int>{0, 2, 3, 4, 5, 6, 7, 8, 10, 16, 11, 12, 13, 14, 15}));
    substance.omega = 0;
    EXPECT_EQ(codes(Calc::EOSEntries(substance)), (std::vector<int>{0, 2, 3, 4, 10, 11, 12, 13}));
    // Helium and hydrogen have negative ones.
    substance.omega = -0.39;
    EXPECT_EQ(Calc::EOSEntries(substance).size(), 15U);
}

TEST_F(ModelChoiceOf, NamesAreShownWithoutOuterBlanks) {
    EXPECT_EQ(Calc::EOSEntries(substance)[5].text, "CEOS Peng / Robinson");
    EXPECT_EQ(Calc::VPEntries(substance)[0].text, "Wagner");
    EXPECT_EQ(Calc::VPEntries(substance)[1].text, "FROST/KALKWARF");
    EXPECT_EQ(Calc::CpEntries({})[0].text, "(no equation available)");
}

TEST_F(ModelChoiceOf, FirstEquationIsPengRobinsonOrRedlichKwong) {
    const ModelChoice withOmega;
    EXPECT_EQ(models.EOSModel, 6);
    EXPECT_EQ(withOmega.eos()[withOmega.eosIndex()].text, "CEOS Peng / Robinson");
    models.EOSModel = -1;
    substance.omega = 0;
    const ModelChoice without;
    EXPECT_EQ(models.EOSModel, 4);
    EXPECT_EQ(without.eos()[without.eosIndex()].text, "CEOS Redlich / Kwong");
}

TEST_F(ModelChoiceOf, AnEquationThatIsNotOfferedAnyMoreGivesWayToTheDefault) {
    models.EOSModel = 16;
    models.EOSOnlyV = true;
    substance.omega = 0;
    const ModelChoice choice;
    EXPECT_EQ(models.EOSModel, 4);
    EXPECT_FALSE(models.EOSOnlyV);
    EXPECT_TRUE(choice.priorityEnabled());
}

TEST_F(ModelChoiceOf, VapourPressureEquationsAreThoseWithData) {
    Declare::SubstanceRecord s;
    EXPECT_EQ(codes(Calc::VPEntries(s)), std::vector<int>{0});
    s.Tboil = 231.0F;
    EXPECT_EQ(codes(Calc::VPEntries(s)), (std::vector<int>{6, 7, 8, 0}));
    s.AUG = {14.0F, -2200.0F};
    EXPECT_EQ(codes(Calc::VPEntries(s)), (std::vector<int>{5, 6, 7, 8, 0}));
    s.AHP.A = 4.0F;
    EXPECT_EQ(codes(Calc::VPEntries(s)), (std::vector<int>{2, 5, 6, 7, 8}));
    s.ALP.A = 4.0F;
    s.FRO.TLo = 100;
    s.WAG.TLo = 100;
    EXPECT_EQ(codes(Calc::VPEntries(s)), (std::vector<int>{4, 3, 1, 2, 5, 6, 7, 8}));
}

TEST_F(ModelChoiceOf, NoVapourPressureModelYetMeansTheFirstEntry) {
    models.VPModel = 0;
    substance.WAG.TLo = 0;
    const ModelChoice choice;
    EXPECT_EQ(choice.vpIndex(), 0U);
    EXPECT_EQ(models.VPModel, 3);
    EXPECT_EQ(models.VPCode, "FRO");
}

TEST_F(ModelChoiceOf, TheVapourPressureCodeFollowsTheEntry) {
    ModelChoice choice;
    const std::vector<std::pair<int, std::string>> all = {{1, "ALP"}, {2, "AHP"}, {3, "FRO"},
                                                          {4, "WAG"}, {5, "AUG"}, {6, "KFW"},
                                                          {7, "KFR"}, {8, "THO"}};
    for (const auto& [index, code] : all) {
        choice.ChooseVP(Calc::IndexOf(choice.vp(), static_cast<std::int16_t>(index)));
        EXPECT_EQ(models.VPModel, index);
        EXPECT_EQ(models.VPCode, code);
    }
    substance = {};
    const ModelChoice nothing;
    EXPECT_EQ(models.VPModel, 0);
    EXPECT_EQ(models.VPCode, "000");
}

TEST_F(ModelChoiceOf, MethodsOfVaporisationDependOnDataAndEquation) {
    Declare::SubstanceRecord s;
    EXPECT_EQ(codes(Calc::HLVEntries(s, true)), (std::vector<int>{2, 3, 6}));
    EXPECT_EQ(codes(Calc::HLVEntries(s, false)), (std::vector<int>{2, 3, 6, 7}));
    s.hLVTHi = 300;
    s.WatsonH = 18000;
    s.WatsonT = 231;
    s.rhoLTLo = 90;
    EXPECT_EQ(codes(Calc::HLVEntries(s, false)), (std::vector<int>{1, 2, 3, 4, 5, 6, 7}));
    s.WatsonT = 0;
    EXPECT_EQ(codes(Calc::HLVEntries(s, false)), (std::vector<int>{1, 2, 3, 5, 6, 7}));
}

TEST_F(ModelChoiceOf, TheIdealGasFormAvailableIsTaken) {
    EXPECT_EQ(codes(Calc::CpEntries({})), std::vector<int>{0});
    Declare::SubstanceRecord s;
    s.hasCpSinh = true;
    EXPECT_EQ(codes(Calc::CpEntries(s)), std::vector<int>{2});
    s.hasCpPoly = true;
    EXPECT_EQ(codes(Calc::CpEntries(s)), (std::vector<int>{1, 2}));

    substance.hasCpPoly = false;
    substance.hasCpSinh = true;
    models.CpModel = 0;
    ModelChoice choice;
    EXPECT_EQ(models.CpModel, 2);
    models.CpModel = 1;
    const ModelChoice again;
    EXPECT_EQ(models.CpModel, 2) << "a form that this substance does not have";
}

TEST_F(ModelChoiceOf, WatsonExponentsComeFromTheReducedBoilingTemperature) {
    Declare::SubstanceRecord s;
    EXPECT_EQ(Calc::WatsonEntries(s), std::vector<std::string>{"0.38"});
    s.Tcrit = 1000;
    s.Tboil = 570.0F;
    EXPECT_EQ(Calc::WatsonEntries(s), (std::vector<std::string>{"0.38", "0.30"}));
    s.Tboil = 650.0F;
    // 0.74 * 0.65 - 0.116
    EXPECT_EQ(Calc::WatsonEntries(s), (std::vector<std::string>{"0.38", "0.365"}));
    s.Tboil = 710.0F;
    EXPECT_EQ(Calc::WatsonEntries(s), (std::vector<std::string>{"0.38", "0.41"}));
}

TEST_F(ModelChoiceOf, TheWatsonExponentIsShownForItsMethodOnly) {
    ModelChoice choice;
    EXPECT_FLOAT_EQ(models.WatsonN, 0.38F);
    EXPECT_EQ(choice.watsonText(), "0.38");
    chooseHLV(choice, 4);
    EXPECT_TRUE(choice.watsonVisible());
    chooseHLV(choice, 2);
    EXPECT_FALSE(choice.watsonVisible());
    choice.SetWatson("0,4");
    EXPECT_FLOAT_EQ(models.WatsonN, 0.4F);
    choice.SetWatson("1e300");
    EXPECT_EQ(models.WatsonN, 0.0F) << "no float holds it";
    choice.SetWatson("0.41");
    const ModelChoice again;
    EXPECT_EQ(again.watsonText(), "0.41");
}

TEST_F(ModelChoiceOf, AnEquationForTheVapourOnlyTakesPriorityAndTheGlobalMethodAway) {
    ModelChoice choice;
    chooseHLV(choice, 7);
    chooseEOS(choice, 11);
    EXPECT_TRUE(models.EOSOnlyV);
    EXPECT_FALSE(models.PriorityCEOS);
    EXPECT_FALSE(choice.priorityEnabled());
    EXPECT_EQ(models.HLVModel, choice.hlv()[0].code);
    for (const int code : codes(choice.hlv())) EXPECT_NE(code, 7);

    chooseEOS(choice, 13);
    EXPECT_FALSE(models.PriorityCEOS);
    chooseEOS(choice, 5);
    EXPECT_FALSE(models.EOSOnlyV);
    EXPECT_TRUE(models.PriorityCEOS) << "back at a cubic equation it has priority again";
    EXPECT_TRUE(choice.priorityEnabled());
    EXPECT_EQ(codes(choice.hlv()).back(), 7);
}

TEST_F(ModelChoiceOf, AnotherCubicEquationKeepsThePriority) {
    ModelChoice choice;
    choice.SetPriorityCEOS(false);
    chooseEOS(choice, 4);
    EXPECT_FALSE(models.PriorityCEOS);
}

TEST_F(ModelChoiceOf, TheIdealGasIsForTheVapourOnly) {
    ModelChoice choice;
    chooseEOS(choice, 0);
    EXPECT_TRUE(models.EOSOnlyV);
}

TEST_F(ModelChoiceOf, TheManualFormAsksForItsCoefficientsAndKeepsThem) {
    ModelChoice choice;
    Calc::CalcEOSParameters(6);
    EXPECT_TRUE(choice.ChooseEOS(Calc::IndexOf(choice.eos(), 10)));
    EXPECT_EQ(Declare::eosParameters.eosB0, 0.0);
    EXPECT_EQ(Declare::eosParameters.vcritCalc, 0.0) << "nothing of the former equation is left";
    choice.SetManualVirial(0.05, 1500, 1.6);
    chooseEOS(choice, 6);
    EXPECT_TRUE(choice.ChooseEOS(Calc::IndexOf(choice.eos(), 10)));
    EXPECT_EQ(Declare::eosParameters.eosB0, 0.05) << "the coefficients typed before are proposed";
    EXPECT_EQ(Declare::eosParameters.eosNB, 1500.0);
    EXPECT_EQ(Declare::eosParameters.eosNV, 1.6);
    EXPECT_TRUE(choice.Confirm());
    EXPECT_EQ(Declare::eosParameters.eosNB, 1500.0) << "OK does not clear them";

    ModelChoice again;
    chooseEOS(again, 6);
    EXPECT_TRUE(again.ChooseEOS(Calc::IndexOf(again.eos(), 10)));
    EXPECT_EQ(Declare::eosParameters.eosNV, 1.6);
}

TEST_F(ModelChoiceOf, ConfirmingComputesWhatTheSelectionNeeds) {
    substance.KFW = {};
    ModelChoice choice;
    chooseEOS(choice, 4);
    choice.ChooseVP(Calc::IndexOf(choice.vp(), 6));
    EXPECT_TRUE(choice.Confirm());
    EXPECT_NEAR(Declare::eosParameters.eosB0, 0.08664 * 8.31451 * substance.Tcrit / substance.pcrit,
                1e-6);
    EXPECT_NE(substance.KFW.a[0], 0.0F);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(ModelChoiceOf, ConfirmingEnablesTheCommandsOfACompleteChoice) {
    using Declare::Command;
    int prepared = 0;
    actions::RegisterAction("CalcCoordinateDefaults", [&] { ++prepared; });
    ModelChoice choice;
    const auto all = {Command::mnuCalcMain, Command::mnuOptions,    Command::mnuFitting,
                      Command::mnu2D,       Command::mnu3D,         Command::mnuData_SaveProject,
                      Command::toolSave,    Command::toolReference, Command::toolTank};
    for (const Command c : all) EXPECT_FALSE(Module2::IsEnabled(c));
    EXPECT_TRUE(choice.Confirm());
    for (const Command c : all) EXPECT_TRUE(Module2::IsEnabled(c));
    EXPECT_TRUE(Module2::IsEnabled(Command::needsLPhase));
    EXPECT_EQ(prepared, 1);

    ModelChoice virial;
    chooseEOS(virial, 11);
    EXPECT_TRUE(virial.Confirm());
    EXPECT_TRUE(Module2::IsEnabled(Command::mnuCalcMain));
    EXPECT_FALSE(Module2::IsEnabled(Command::needsLPhase));
}

TEST_F(ModelChoiceOf, AMissingAcentricFactorIsToldAndTheCalculationGoesOn) {
    substance.omega = 0;
    ModelChoice choice;
    chooseHLV(choice, 3);
    EXPECT_TRUE(choice.Confirm());
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(),
              "No acentric factor available.\nCalculated by using omega = 0\n"
              "(Input => data editor)");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_TRUE(Module2::IsEnabled(Declare::Command::mnuCalcMain));
}

TEST_F(ModelChoiceOf, NoWarningWithoutNeedOfAnAcentricFactor) {
    substance.omega = 0;
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
    EXPECT_FALSE(Module2::IsEnabled(Declare::Command::mnuCalcMain));
}

TEST_F(ModelChoiceOf, CancellingRestoresEverything) {
    ModelChoice first;
    ASSERT_TRUE(first.Confirm());
    const Declare::ModelSelection keptModels = models;
    const Declare::EOSParameters keptParameters = Declare::eosParameters;

    ModelChoice choice;
    choice.ChooseVP(2);
    chooseHLV(choice, 4);
    choice.SetWatson("0.5");
    choice.SetPriorityCEOS(false);
    chooseEOS(choice, 10);
    choice.SetManualVirial(1, 2, 3);
    choice.Cancel();
    EXPECT_EQ(models.EOSModel, keptModels.EOSModel);
    EXPECT_EQ(models.EOSOnlyV, keptModels.EOSOnlyV);
    EXPECT_EQ(models.VPModel, keptModels.VPModel);
    EXPECT_EQ(models.VPCode, keptModels.VPCode);
    EXPECT_EQ(models.HLVModel, keptModels.HLVModel);
    EXPECT_EQ(models.CpModel, keptModels.CpModel);
    EXPECT_EQ(models.PriorityCEOS, keptModels.PriorityCEOS);
    EXPECT_EQ(models.WatsonN, keptModels.WatsonN);
    EXPECT_EQ(Declare::eosParameters.eosB0, keptParameters.eosB0);
    EXPECT_EQ(Declare::eosParameters.vcritCalc, keptParameters.vcritCalc);
}

TEST_F(ModelChoiceOf, CancellingTheFirstChoiceLeavesNone) {
    ModelChoice choice;
    choice.Cancel();
    EXPECT_EQ(models.EOSModel, -1);
    EXPECT_EQ(models.HLVModel, 0);
}

TEST_F(ModelChoiceOf, TheDensityNoteTellsTheRange) {
    substance.rhoLTLo = 86;
    substance.rhoLTHi = 369;
    EXPECT_EQ(Calc::LiquidDensityNote(substance).state, "Parameters available from data base");
    EXPECT_EQ(Calc::LiquidDensityNote(substance).range, "Valid for T/K=86 ...369 K");
    substance.rhoLTLo = 0;
    EXPECT_EQ(Calc::LiquidDensityNote(substance).state, "Parameters not available");
    EXPECT_EQ(Calc::LiquidDensityNote(substance).range, "");
}

// Every row of the table can be chosen with every equation that its data allow.
TEST_F(ModelChoiceOf, EverySubstanceGetsACompleteChoice) {
    for (const std::string& name : fluids::AllNames()) {
        Module2::SetCommands({Declare::Command::mnuCalcMain}, false);
        substance = fluids::Row(name);
        models = {};
        ModelChoice choice;
        EXPECT_LT(choice.eosIndex(), choice.eos().size()) << name;
        EXPECT_EQ(choice.hlv()[choice.hlvIndex()].code, models.HLVModel) << name;
        EXPECT_EQ(choice.vp()[choice.vpIndex()].code, models.VPModel) << name;
        EXPECT_EQ(choice.cp()[choice.cpIndex()].code, models.CpModel) << name;
        EXPECT_TRUE(choice.Confirm()) << name;
        EXPECT_GT(Declare::eosParameters.vcritCalc, 0.0) << name;
        EXPECT_TRUE(Module2::IsEnabled(Declare::Command::mnuCalcMain)) << name;
    }
}

TEST_F(ModelChoiceOf, ListsFollowDataThatWereEditedMeanwhile) {
    models.EOSModel = 6;
    ModelChoice choice;
    EXPECT_EQ(models.EOSModel, 6);
    substance.omega = 0;
    choice.Renew();
    EXPECT_EQ(choice.eos().size(), 8U);
    EXPECT_EQ(models.EOSModel, 4) << "Redlich/Kwong, without acentric factor";
    choice.Cancel();
    EXPECT_EQ(models.EOSModel, 6) << "as the view found it";
}

}  // namespace
