#include "models/model_choice.h"

#include "models/model_codes.h"
#include "models/model_tables.h"
#include "support/codes.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using models::Eos;
using models::ModelChoice;

/// Codes of the entries of a list.
template <class Model>
std::vector<int> codes_of(const models::ModelEntries<Model>& entries) {
    std::vector<int> all;
    for (const models::ModelEntry<Model>& e : entries) all.push_back(models::code_of(e.model));
    return all;
}

class ModelChoiceOf : public testing::Test {
  protected:
    models::SubstanceRecord s = fluids::ReferencePropane();

    ModelChoiceOf() {
        s.name = "Propane";
        for (models::AntoineSet* set : {&s.antoine_low, &s.antoine_high}) set->A = 5.0F;
        s.frost.T_low = s.wagner.T_low = 100;
    }
    ModelChoice choice(const models::ModelSelection& inUse = {}) const {
        return ModelChoice(s, inUse);
    }
    static bool choose_eos(ModelChoice& choice, Eos eos) {
        return choice.choose_eos(models::index_of(choice.eos(), eos));
    }
    static void choose_hlv(ModelChoice& choice, models::VaporisationModel method) {
        choice.choose_hlv(models::index_of(choice.hlv(), method));
    }
};

using enum models::VaporisationModel;

TEST_F(ModelChoiceOf, EquationsOfStateDependOnTheAcentricFactor) {
    EXPECT_EQ(codes_of(models::eos_entries(s)),
              (std::vector<int>{0, 2, 3, 4, 5, 6, 7, 8, 10, 16, 11, 12, 13, 14, 15}));
    s.omega = 0;
    EXPECT_EQ(codes_of(models::eos_entries(s)), (std::vector<int>{0, 2, 3, 4, 10, 11, 12, 13}));
    // Helium and hydrogen have negative ones.
    s.omega = -0.39;
    EXPECT_EQ(models::eos_entries(s).size(), 15U);
}

TEST_F(ModelChoiceOf, NamesAreShownWithoutOuterBlanks) {
    EXPECT_EQ(models::eos_entries(s)[5].text, "CEOS Peng / Robinson");
    EXPECT_EQ(models::vp_entries(s)[0].text, "Wagner");
    EXPECT_EQ(models::vp_entries(s)[1].text, "FROST/KALKWARF");
    EXPECT_EQ(models::cp_entries({})[0].text, "(no equation available)");
}

TEST_F(ModelChoiceOf, FirstEquationIsPengRobinsonOrRedlichKwong) {
    const ModelChoice withOmega = choice();
    EXPECT_EQ(withOmega.models().eos, Eos::pengRobinson);
    EXPECT_EQ(withOmega.eos()[withOmega.eos_index()].text, "CEOS Peng / Robinson");
    s.omega = 0;
    const ModelChoice without = choice();
    EXPECT_EQ(without.models().eos, Eos::redlichKwong);
    EXPECT_EQ(without.eos()[without.eos_index()].text, "CEOS Redlich / Kwong");
}

TEST_F(ModelChoiceOf, AnEquationThatIsNotOfferedAnyMoreGivesWayToTheDefault) {
    s.omega = 0;
    const ModelChoice c = choice({.eos = Eos::pitzerCurl, .vapour_only = true});
    EXPECT_EQ(c.models().eos, Eos::redlichKwong);
    EXPECT_FALSE(c.models().vapour_only);
    EXPECT_TRUE(c.priority_enabled());
}

TEST_F(ModelChoiceOf, VapourPressureEquationsAreThoseWithData) {
    models::SubstanceRecord empty;
    EXPECT_EQ(codes_of(models::vp_entries(empty)), std::vector<int>{0});
    empty.Tboil = 231.0F;
    EXPECT_EQ(codes_of(models::vp_entries(empty)), (std::vector<int>{6, 7, 8, 0}));
    empty.august = {14.0F, -2200.0F};
    EXPECT_EQ(codes_of(models::vp_entries(empty)), (std::vector<int>{5, 6, 7, 8, 0}));
    empty.antoine_high.A = 4.0F;
    EXPECT_EQ(codes_of(models::vp_entries(empty)), (std::vector<int>{2, 5, 6, 7, 8}));
    empty.antoine_low.A = 4.0F;
    empty.frost.T_low = 100;
    empty.wagner.T_low = 100;
    EXPECT_EQ(codes_of(models::vp_entries(empty)), (std::vector<int>{4, 3, 1, 2, 5, 6, 7, 8}));
}

TEST_F(ModelChoiceOf, NoVapourPressureModelYetMeansTheFirstEntry) {
    s.wagner.T_low = 0;
    const ModelChoice c = choice();
    EXPECT_EQ(c.vp_index(), 0U);
    EXPECT_EQ(models::code_of(c.models().vapour_pressure), 3);
    EXPECT_EQ(models::vp_code(c.models().vapour_pressure), "FRO");
}

/// Ozone and its like started with "none".
TEST_F(ModelChoiceOf, ASubstanceWithoutAMeasuredSetStartsWithTheFirstEntry) {
    for (const char* name :
         {"Ozone", "Nitrogen trifluoride", "Phosphine", "Arsine", "Silane", "Diborane"}) {
        models::SubstanceRecord record = fluids::correlated_row(name);
        ASSERT_FALSE(models::has_measured_vapour_pressure(record)) << name;
        const auto equation = models::default_vapour_pressure(record);
        EXPECT_EQ(equation, models::vp_entries(record).front().model) << name;
        EXPECT_NE(equation, models::VapourPressureEquation::none) << name;
    }
    s.wagner.T_low = 100;
    EXPECT_EQ(models::default_vapour_pressure(s), models::VapourPressureEquation::wagner);
}

TEST_F(ModelChoiceOf, TheVapourPressureCodeFollowsTheEntry) {
    ModelChoice c = choice();
    const std::vector<std::pair<int, std::string>> all = {{1, "ALP"}, {2, "AHP"}, {3, "FRO"},
                                                          {4, "WAG"}, {5, "AUG"}, {6, "KFW"},
                                                          {7, "KFR"}, {8, "THO"}};
    for (const auto& [index, code] : all) {
        c.choose_vp(models::index_of(c.vp(), codes::vp(index)));
        EXPECT_EQ(models::code_of(c.models().vapour_pressure), index);
        EXPECT_EQ(models::vp_code(c.models().vapour_pressure), code);
    }
    s = {};
    const ModelChoice nothing = choice(c.models());
    EXPECT_EQ(models::code_of(nothing.models().vapour_pressure), 0);
    EXPECT_EQ(models::vp_code(nothing.models().vapour_pressure), "000");
}

TEST_F(ModelChoiceOf, MethodsOfVaporisationDependOnDataAndEquation) {
    models::SubstanceRecord empty;
    EXPECT_EQ(codes_of(models::hlv_entries(empty, true)), (std::vector<int>{2, 3, 6}));
    EXPECT_EQ(codes_of(models::hlv_entries(empty, false)), (std::vector<int>{2, 3, 6, 7}));
    empty.hLV_T_high = 300;
    empty.watson_hLV = 18000;
    empty.watson_T = 231;
    empty.rhoL_T_low = 90;
    EXPECT_EQ(codes_of(models::hlv_entries(empty, false)), (std::vector<int>{1, 2, 3, 4, 5, 6, 7}));
    empty.watson_T = 0;
    EXPECT_EQ(codes_of(models::hlv_entries(empty, false)), (std::vector<int>{1, 2, 3, 5, 6, 7}));
}

TEST_F(ModelChoiceOf, TheIdealGasFormAvailableIsTaken) {
    EXPECT_EQ(codes_of(models::cp_entries({})), std::vector<int>{0});
    models::SubstanceRecord empty;
    empty.has_cp_sinh_cosh = true;
    EXPECT_EQ(codes_of(models::cp_entries(empty)), std::vector<int>{2});
    empty.has_cp_polynomial = true;
    EXPECT_EQ(codes_of(models::cp_entries(empty)), (std::vector<int>{1, 2}));

    s.has_cp_polynomial = false;
    s.has_cp_sinh_cosh = true;
    EXPECT_EQ(choice().models().cp_form, models::CpForm::sinhCosh);
    EXPECT_EQ(choice({.cp_form = models::CpForm::polynomial}).models().cp_form,
              models::CpForm::sinhCosh)
        << "a form that this substance does not have";
}

TEST_F(ModelChoiceOf, WatsonExponentsComeFromTheReducedBoilingTemperature) {
    models::SubstanceRecord empty;
    EXPECT_EQ(models::watson_entries(empty), std::vector<std::string>{"0.38"});
    empty.Tcrit = 1000;
    empty.Tboil = 570.0F;
    EXPECT_EQ(models::watson_entries(empty), (std::vector<std::string>{"0.38", "0.30"}));
    empty.Tboil = 650.0F;
    // 0.74 * 0.65 - 0.116
    EXPECT_EQ(models::watson_entries(empty), (std::vector<std::string>{"0.38", "0.365"}));
    empty.Tboil = 710.0F;
    EXPECT_EQ(models::watson_entries(empty), (std::vector<std::string>{"0.38", "0.41"}));
}

TEST_F(ModelChoiceOf, TheWatsonExponentIsShownForItsMethodOnly) {
    ModelChoice c = choice();
    EXPECT_FLOAT_EQ(c.models().watson_n, 0.38F);
    EXPECT_EQ(c.watson_text(), "0.38");
    choose_hlv(c, watson);
    EXPECT_TRUE(c.watson_visible());
    choose_hlv(c, chen);
    EXPECT_FALSE(c.watson_visible());
    c.set_watson("0,4");
    EXPECT_FLOAT_EQ(c.models().watson_n, 0.4F);
    c.set_watson("1e300");
    EXPECT_EQ(c.models().watson_n, 0.0F) << "no float holds it";
    c.set_watson("0.41");
    EXPECT_EQ(choice(c.models()).watson_text(), "0.41");
}

TEST_F(ModelChoiceOf, AnEquationForTheVapourOnlyTakesPriorityAndTheGlobalMethodAway) {
    ModelChoice c = choice();
    choose_hlv(c, cubicEos);
    choose_eos(c, Eos::virialVanDerWaals);
    EXPECT_TRUE(c.models().vapour_only);
    EXPECT_FALSE(c.models().eos_has_priority);
    EXPECT_FALSE(c.priority_enabled());
    EXPECT_EQ(c.models().vaporisation, c.hlv()[0].model);
    for (const int code : codes_of(c.hlv())) EXPECT_NE(code, 7);

    choose_eos(c, Eos::virialRedlichKwong);
    EXPECT_FALSE(c.models().eos_has_priority);
    choose_eos(c, Eos::soave);
    EXPECT_FALSE(c.models().vapour_only);
    EXPECT_TRUE(c.models().eos_has_priority) << "back at a cubic equation it has priority again";
    EXPECT_TRUE(c.priority_enabled());
    EXPECT_EQ(codes_of(c.hlv()).back(), 7);
}

TEST_F(ModelChoiceOf, AnotherCubicEquationKeepsThePriority) {
    ModelChoice c = choice();
    c.set_priority_ceos(false);
    choose_eos(c, Eos::redlichKwong);
    EXPECT_FALSE(c.models().eos_has_priority);
}

TEST_F(ModelChoiceOf, TheIdealGasIsForTheVapourOnly) {
    ModelChoice c = choice();
    choose_eos(c, Eos::idealGas);
    EXPECT_TRUE(c.models().vapour_only);
}

TEST_F(ModelChoiceOf, TheManualFormAsksForItsCoefficientsAndKeepsThem) {
    ModelChoice c = choice();
    EXPECT_TRUE(choose_eos(c, Eos::manualVirial));
    EXPECT_EQ(c.models().manual_virial, models::ManualVirial{});
    const models::Fluid blank = fluids::fluid(s, c.models());
    EXPECT_EQ(blank.eos().b0, 0.0);
    EXPECT_EQ(blank.eos().vcrit_calculated, 0.0) << "nothing of the former equation is left";
    c.set_manual_virial({0.05, 1500, 1.6});
    EXPECT_FALSE(choose_eos(c, Eos::pengRobinson));
    EXPECT_TRUE(choose_eos(c, Eos::manualVirial));
    EXPECT_EQ(c.models().manual_virial, (models::ManualVirial{0.05, 1500, 1.6}))
        << "the coefficients typed before are proposed";
    const models::Fluid fluid = fluids::fluid(s, c.models());
    EXPECT_EQ(fluid.eos().b0, 0.05);
    EXPECT_EQ(fluid.eos().nb, 1500.0);
    EXPECT_EQ(fluid.eos().nv, 1.6);

    ModelChoice again = choice(c.models());
    choose_eos(again, Eos::pengRobinson);
    EXPECT_TRUE(choose_eos(again, Eos::manualVirial));
    EXPECT_EQ(again.models().manual_virial.b2, 1.6);
}

TEST_F(ModelChoiceOf, CorrelatedSetsThatAChoiceNeedsAreFilled) {
    s.frost_van_der_waals = {};
    ModelChoice c = choice();
    choose_eos(c, Eos::redlichKwong);
    c.choose_vp(models::index_of(c.vp(), models::VapourPressureEquation::frostVanDerWaals));
    models::correlate_for(c.models(), s);
    EXPECT_NE(s.frost_van_der_waals.a[0], 0.0F);
    EXPECT_NEAR(fluids::fluid(s, c.models()).eos().b0, 0.08664 * 8.31451 * s.Tcrit / s.pcrit, 1e-6);
    EXPECT_FALSE(c.warning());
}

TEST_F(ModelChoiceOf, AMissingAcentricFactorIsTold) {
    s.omega = 0;
    ModelChoice c = choice();
    EXPECT_FALSE(c.warning()) << "nothing chosen needs one";
    choose_hlv(c, carruthKobayashi);
    ASSERT_TRUE(c.warning());
    EXPECT_EQ(*c.warning(),
              "No acentric factor available.\nCalculated by using omega = 0\n"
              "(Input => data editor)");
}

TEST_F(ModelChoiceOf, NoWarningWithoutNeedOfAnAcentricFactor) {
    s.omega = 0;
    ModelChoice c = choice();
    choose_hlv(c, chen);
    EXPECT_FALSE(c.warning());
}

TEST_F(ModelChoiceOf, AChoiceChangesNothingButItself) {
    const models::ModelSelection inUse = choice().models();
    const models::SubstanceRecord substance = s;
    models::ModelSelection kept = inUse;
    ModelChoice c = choice(kept);
    c.choose_vp(2);
    choose_hlv(c, watson);
    c.set_watson("0.5");
    c.set_priority_ceos(false);
    choose_eos(c, Eos::manualVirial);
    c.set_manual_virial({1, 2, 3});
    EXPECT_EQ(kept, inUse);
    EXPECT_EQ(s, substance);
    EXPECT_NE(c.models(), inUse);
}

TEST_F(ModelChoiceOf, TheDensityNoteTellsTheRange) {
    s.rhoL_T_low = 86;
    s.rhoL_T_high = 369;
    EXPECT_EQ(models::liquid_density_note(s).state, "Parameters available from data base");
    EXPECT_EQ(models::liquid_density_note(s).range, "Valid for T/K=86 ...369 K");
    s.rhoL_T_low = 0;
    EXPECT_EQ(models::liquid_density_note(s).state, "Parameters not available");
    EXPECT_EQ(models::liquid_density_note(s).range, "");
}

// Every row of the table can be chosen with every equation that its data allow.
TEST_F(ModelChoiceOf, EverySubstanceGetsACompleteChoice) {
    for (const std::string& name : fluids::AllNames()) {
        s = fluids::Row(name);
        const ModelChoice c = choice();
        EXPECT_LT(c.eos_index(), c.eos().size()) << name;
        EXPECT_EQ(c.hlv()[c.hlv_index()].model, c.models().vaporisation) << name;
        EXPECT_EQ(c.vp()[c.vp_index()].model, c.models().vapour_pressure) << name;
        EXPECT_EQ(c.cp()[c.cp_index()].model, c.models().cp_form) << name;
        EXPECT_GT(fluids::fluid(s, c.models()).eos().vcrit_calculated, 0.0) << name;
    }
}

TEST_F(ModelChoiceOf, ListsFollowDataThatWereEditedMeanwhile) {
    ModelChoice c = choice({.eos = Eos::pengRobinson});
    EXPECT_EQ(c.models().eos, Eos::pengRobinson);
    s.omega = 0;
    c.renew(s);
    EXPECT_EQ(c.eos().size(), 8U);
    EXPECT_EQ(c.models().eos, Eos::redlichKwong) << "without acentric factor";
}

}  // namespace
