#include "models/reference_state.h"

#include <cmath>

#include "common/numbers.h"
#include "models/caloric.h"
#include "models/density.h"
#include "models/model_codes.h"
#include "models/reference_choice.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "models/virial.h"
#include "support/fluids.h"
#include "support/medium.h"

using namespace quor;

namespace {

constexpr double R = 8.31451;
constexpr double kT0 = 298.15F;
constexpr double kP0 = 101.325F;

using models::Eos;

class ReferenceState : public testing::Test {
  protected:
    models::ReferenceState reference;
    models::SubstanceRecord s;

    models::ReferenceBase base_at(double p) {
        models::settle_reference(reference);
        return models::reference_base(s, reference, p);
    }
};

TEST_F(ReferenceState, OfTheViewIsZeroAndCorrectsTheEntropyToThePressure) {
    for (const std::int16_t mode : {std::int16_t{1}, std::int16_t{0}, std::int16_t{7}}) {
        reference = {};
        reference.mode = mode;
        reference.T0 = 280;
        reference.p0 = 50;
        s.dfh = 1000;
        s.sconv = 10;
        const models::ReferenceBase base = base_at(100);
        EXPECT_EQ(base.h, 0);
        EXPECT_NEAR(base.s, -R * std::log(2.0), 1e-12);
        EXPECT_EQ(reference.T0, 280.0F);
        EXPECT_EQ(reference.p0, 50.0F);
    }
}

TEST_F(ReferenceState, ConventionalAndFormationFixTemperatureAndPressure) {
    s.dfh = -104680;
    s.dfg = -24390;
    s.sconv = 270.2F;
    for (const std::int16_t mode : {std::int16_t{2}, std::int16_t{10}}) {
        reference = {};
        reference.mode = mode;
        reference.T0 = 280;
        reference.p0 = 50;
        const models::ReferenceBase base = base_at(kP0);
        EXPECT_EQ(base.h, -104680);
        const double entropy =
            mode == 2 ? static_cast<double>(s.sconv) : (-104680 + 24390) / 298.15;
        EXPECT_NEAR(base.s, entropy, 1e-12);
        EXPECT_EQ(reference.T0, 298.15F);
        EXPECT_EQ(reference.p0, 101.325F);
    }
}

TEST_F(ReferenceState, PressureOfZeroBecomesNormalPressure) {
    reference.p0 = 0;
    EXPECT_NEAR(base_at(kP0).s, 0, 1e-12);
    EXPECT_EQ(reference.p0, 101.325F);
}

TEST_F(ReferenceState, WithoutPressureTheEntropyIsNotCorrected) {
    reference.mode = 2;
    s.sconv = 200;
    EXPECT_EQ(base_at(0).s, 200);
    EXPECT_EQ(base_at(-1).s, 200);
}

TEST_F(ReferenceState, ConventionalIdealGasAtItsReferencePoint) {
    const Medium propane(fluids::fluid("Propane", Eos::idealGas), {.mode = 2});
    const auto z = propane.ideal(kT0, kP0);
    EXPECT_EQ(z->h, static_cast<double>(propane.fluid.substance().dfh));
    EXPECT_NEAR(z->s, static_cast<double>(propane.fluid.substance().sconv), 1e-12);
}

TEST_F(ReferenceState, MissingFormationDataCountAsZero) {
    const models::Fluid propane =
        fluids::changed(fluids::fluid("Propane", Eos::idealGas),
                        [](models::SubstanceRecord& r, auto&) { r.dfh = r.dfg = r.sconv = 0; });
    for (const std::int16_t mode : {std::int16_t{2}, std::int16_t{10}}) {
        const auto z = Medium(propane, {.mode = mode}).ideal(kT0, kP0);
        EXPECT_TRUE(z);
        EXPECT_EQ(z->h, 0);
        EXPECT_NEAR(z->s, 0, 1e-12);
    }
}

// ---- the second reference point of Benson's method

class BensonReference : public testing::Test {
  protected:
    /// Propane with a measured density at 298.15 K, its slope, and no other density.
    models::SubstanceRecord s = fluids::ReferencePropane();
    models::ModelSelection models_ = fluids::selection(s, Eos::pengRobinson);

    BensonReference() { models_.vapour_pressure = models::VapourPressureEquation::wagner; }
    models::Fluid fluid() const { return fluids::fluid(s, models_); }
    models::BensonProposal proposal() const { return models::propose_benson_reference(fluid()); }
    /// A manual coefficient below -R T/p, which leaves no volume.
    void take_impossible_virial() {
        models_ = fluids::selection(s, Eos::manualVirial);
        models_.manual_virial.b0 = -1000;
        models_.vapour_pressure = models::VapourPressureEquation::wagner;
    }
    double eos_density(double T, double p) const {
        return *models::solve_state_tp(fluid(), T, p)->rhoV;
    }
    static std::string thousandths(double value) { return numbers::format_point(value, "##.###"); }
};

TEST_F(BensonReference, TakesTheDensityAtTheBoilingPointFromTheRecordFirst) {
    s.rhoL_boil = 581.25F;
    const models::BensonProposal r = proposal();
    EXPECT_EQ(r.point.T, s.Tboil);
    EXPECT_EQ(r.point.p, 101.3F);
    EXPECT_EQ(r.point.rhoL, 581.25F);
    const double rhoV = eos_density(static_cast<double>(s.Tboil), static_cast<double>(101.3F));
    EXPECT_FLOAT_EQ(r.point.rhoV, static_cast<float>(rhoV));
    EXPECT_EQ(r.text,
              " T(ref)/K           =231. (normal boiling T)\n"
              " p(LV)(ref)/kPa     = 101.325 (normal pressure)\n"
              " rho(L)(ref)/kg/m^3 =581.3 (from database)\n"
              " rho(V)(ref)/kg/m^3 =" +
                  thousandths(rhoV) + "  (from  CEOS Peng / Robinson)");
}

TEST_F(BensonReference, TakesTheDensityEquationNext) {
    s.rhoL_coefficients = {900, -1.5F, 0, 0, 0, 0, 0};
    s.rhoL_T_low = 300;  // 69 K outside: no warning here
    s.rhoL_T_high = 350;
    const models::BensonProposal r = proposal();
    EXPECT_NEAR(r.point.rhoL, 900 - 1.5 * static_cast<double>(s.Tboil), 1e-4);
    EXPECT_NE(r.text.find(" rho(L)(ref)/kg/m^3 =553.4 (from database-equ. rho(T))\n"),
              std::string::npos)
        << r.text;
}

TEST_F(BensonReference, TakesTheSlopeOfTheMeasuredDensityLast) {
    const models::BensonProposal r = proposal();
    // 500 - 1.3 (231.036 - 298.15): here the slope refers to the temperature of the measurement.
    EXPECT_NEAR(r.point.rhoL, 500 + 1.3 * (298.15 - 231.036), 1e-3);
    EXPECT_NE(r.text.find(" rho(L)(ref)/kg/m^3 =587.2 (calculated from drho/dT)\n"),
              std::string::npos)
        << r.text;
}

TEST_F(BensonReference, AFailingDensityEquationGivesWayToTheNextSource) {
    s.rhoL_coefficients = {100, -1, 300, -10, 0, 0, 0};
    s.rhoL_T_low = 200;
    s.rhoL_T_high = 350;
    const models::BensonProposal r = proposal();
    EXPECT_NEAR(r.point.rhoL, 100 - 231.036 + 300, 1e-3);
    EXPECT_NE(r.text.find("(calculated from drho/dT)"), std::string::npos);
}

TEST_F(BensonReference, WithoutABoilingPointTheMeasuredPointIsTaken) {
    s.Tboil = 0;
    s.rhoL_coefficients[1] = 0;
    s.rhoL_coefficients[2] = 290.5F;
    const models::BensonProposal r = proposal();
    EXPECT_EQ(r.point.T, 290.5F);
    EXPECT_EQ(r.point.rhoL, 500.0F);
    const double T = static_cast<double>(290.5F);
    const double p = models::vapour_pressure(s, T, models::VapourPressureEquation::wagner)->p;
    EXPECT_FLOAT_EQ(r.point.p, static_cast<float>(p));
    const double rhoV = eos_density(T, static_cast<double>(r.point.p));
    EXPECT_EQ(r.text,
              "T(ref)/K         =290.5 (data base: single point for density)\n"
              " rho(L)(ref)/kg/m^3 =500. (data base: single point at T(ref))\n"
              " pLV(ref)/kPa     =" +
                  thousandths(p) + "  (at T(ref) with  WAG-equation)\n rho(V)(ref)/kg/m^3 =" +
                  thousandths(rhoV) + "  (from  CEOS Peng / Robinson)");
}

TEST_F(BensonReference, ABoilingPointWithoutDensityIsDroppedForTheMeasuredPoint) {
    s.rhoL_coefficients[1] = 0;
    const models::BensonProposal r = proposal();
    EXPECT_EQ(r.point.T, 298.15F);
    EXPECT_EQ(r.text.find("normal boiling"), std::string::npos);
}

TEST_F(BensonReference, WithoutAnyDensityThereIsNoProposal) {
    s.rhoL_coefficients = {};
    const models::BensonProposal r = proposal();
    EXPECT_EQ(r.point.T, 0);
    EXPECT_EQ(r.point.p, 0);
    EXPECT_EQ(r.point.rhoL, 0);
    EXPECT_EQ(r.point.rhoV, 0);
    EXPECT_EQ(r.text, "");
    s.Tboil = 0;
    EXPECT_EQ(proposal().text, "");
}

TEST_F(BensonReference, AMeasuredPointWithoutVapourPressureIsNoProposal) {
    s.Tboil = 0;
    models_.vapour_pressure = models::VapourPressureEquation::none;
    EXPECT_EQ(proposal().point.T, 0);
}

TEST_F(BensonReference, WhereTheEquationHasNoStatePitzerCurlGivesTheVapour) {
    take_impossible_virial();
    const models::BensonProposal r = proposal();
    const double T = static_cast<double>(s.Tboil), p = static_cast<double>(101.3F);
    const double B = models::second_virial(fluids::fluid(s, Eos::pitzerCurl), T);
    const double rhoV = static_cast<double>(s.M) / (R * T / p + B);
    EXPECT_FLOAT_EQ(r.point.rhoV, static_cast<float>(rhoV));
    EXPECT_TRUE(r.text.ends_with("\n rho(V)(ref)/kg/m^3 =" + thousandths(rhoV) +
                                 " (using Virial-EOS, PITZER/CURL)"))
        << r.text;
}

TEST_F(BensonReference, WithoutAcentricFactorTheIdealGasGivesTheVapour) {
    take_impossible_virial();
    s.omega = 0;
    const models::BensonProposal r = proposal();
    const double rhoV =
        static_cast<double>(s.M) * static_cast<double>(101.3F) / R / static_cast<double>(s.Tboil);
    EXPECT_FLOAT_EQ(r.point.rhoV, static_cast<float>(rhoV));
    EXPECT_TRUE(
        r.text.ends_with("\n rho(V)(ref)/kg/m^3 =" + thousandths(rhoV) + " (using ideal-gas EOS)"));
}

TEST_F(BensonReference, NumbersHaveAPointInEveryLocale) {
    numbers::set_decimal_mark(',');
    const models::BensonProposal r = proposal();
    numbers::set_decimal_mark('.');
    EXPECT_EQ(r.text.find(','), std::string::npos) << r.text;
}

TEST_F(BensonReference, OfEverySubstanceLiesBetweenGasAndLiquid) {
    int proposals = 0;
    for (const std::string& name : fluids::AllNames()) {
        s = fluids::correlated_row(name);
        models_ = fluids::selection(s, Eos::pengRobinson);
        const models::BensonProposal r = proposal();
        if (r.text.empty()) continue;
        ++proposals;
        EXPECT_TRUE(models::is_known(r.point)) << name;
        EXPECT_GT(static_cast<double>(r.point.rhoL), 1.2 * s.rhocrit) << name;
        EXPECT_LT(static_cast<double>(r.point.rhoV), 0.3 * s.rhocrit) << name;
    }
    EXPECT_GT(proposals, 150);
}

// ---- what the view shows and stores

using models::ReferenceField;
using models::ReferenceFields;
using models::ReferenceOption;

TEST_F(ReferenceState, OptionsAndModesBelongTogether) {
    for (const auto& [option, mode] :
         {std::pair{ReferenceOption::Values, 1}, std::pair{ReferenceOption::Formation, 10},
          std::pair{ReferenceOption::Conventional, 2}}) {
        EXPECT_EQ(models::reference_mode_of(option), mode);
        EXPECT_EQ(models::reference_option_of(static_cast<std::int16_t>(mode)), option);
    }
    EXPECT_EQ(models::reference_option_of(0), ReferenceOption::Values);
}

TEST_F(ReferenceState, CaptionsFollowTheCaloricUnit) {
    const std::pair<const char*, const char*> captions[] = {{"h /(kJ/kmol)", "s /(kJ/kmol/K)"},
                                                            {"h /K", "s /R"},
                                                            {"h /(R T)", "s /(1/K) "},
                                                            {"h /(kJ/kg)", "s /(kJ/(kg K))"}};
    for (int i = 0; i < 4; ++i) {
        const auto unit = static_cast<models::CaloricUnit>(i);
        EXPECT_EQ(models::captions_of(unit).h, captions[i].first);
        EXPECT_EQ(models::captions_of(unit).s, captions[i].second);
    }
}

TEST_F(ReferenceState, FieldsShowTheRecordInTheUnitOfTheSession) {
    reference = {
        .mode = 1, .href = 4400, .sref = -22, .T0 = 273.15F, .p0 = 0, .Tenv = 290.5, .penv = 99};
    const ReferenceFields f = models::fields_of(reference, 1.0 / 44);
    EXPECT_NEAR(f[models::FieldH], 100, 1e-12);
    EXPECT_NEAR(f[models::FieldS], -0.5, 1e-12);
    EXPECT_EQ(f[models::FieldT0], 273.15);  // not 273.149993896484
    EXPECT_EQ(f[models::FieldP0], 101.325);
    EXPECT_EQ(f[models::FieldTenv], 290.5);
    EXPECT_EQ(f[models::FieldPenv], 99);
}

TEST_F(ReferenceState, StoringDividesByTheCaloricFactorAndKeepsTheOption) {
    const ReferenceFields f = {100, -0.5, 273.15, 100, 0, 99};
    ASSERT_TRUE(models::store_reference(ReferenceOption::Conventional, f, 1.0 / 44, reference));
    EXPECT_EQ(reference.mode, 2);
    EXPECT_NEAR(reference.href, 4400, 1e-9);
    EXPECT_NEAR(reference.sref, -22, 1e-12);
    EXPECT_EQ(reference.T0, 273.15F);
    EXPECT_EQ(reference.p0, 100.0F);
    EXPECT_EQ(reference.Tenv, 1e-6);
    EXPECT_EQ(reference.penv, 99);
}

TEST_F(ReferenceState, StoringWhatWasShownChangesNothing) {
    reference.href = 1234.5;
    reference.T0 = 300.1F;
    const models::ReferenceState before = reference;
    ASSERT_TRUE(models::store_reference(ReferenceOption::Values, models::fields_of(reference, 1), 1,
                                        reference));
    EXPECT_EQ(reference, before);
}

TEST_F(ReferenceState, StoringFailsAsAWholeWithoutACaloricFactor) {
    const models::ReferenceState before = reference;
    const ReferenceFields f = {100, 1, 300, 100, 290, 99};
    EXPECT_FALSE(models::store_reference(ReferenceOption::Formation, f, 0, reference));
    EXPECT_EQ(reference, before);
    ReferenceFields huge = f;
    huge[models::FieldT0] = 1e300;
    EXPECT_FALSE(models::store_reference(ReferenceOption::Values, huge, 1, reference));
    EXPECT_EQ(reference, before);
}

TEST_F(ReferenceState, ChoosingFormationSetsItsValues) {
    const ReferenceFields typed = {100, 1, 300, 50, 290, 99};
    EXPECT_EQ(models::after_choice(ReferenceOption::Formation, typed),
              (ReferenceFields{0, 0, 298.15, 101.325, 290, 99}));
    EXPECT_EQ(models::after_choice(ReferenceOption::Conventional, typed), typed);
    EXPECT_EQ(models::after_choice(ReferenceOption::Values, typed), typed);
}

TEST_F(ReferenceState, OnlyTheValuesOfTheViewCanBeEdited) {
    for (const auto option : {ReferenceOption::Formation, ReferenceOption::Conventional}) {
        for (const auto field : {models::FieldH, models::FieldS, models::FieldT0, models::FieldP0})
            EXPECT_FALSE(models::is_editable(option, field));
        EXPECT_TRUE(models::is_editable(option, models::FieldTenv));
        EXPECT_TRUE(models::is_editable(option, models::FieldPenv));
    }
    for (int field = 0; field < models::kReferenceFields; ++field)
        EXPECT_TRUE(
            models::is_editable(ReferenceOption::Values, static_cast<ReferenceField>(field)));
}

}  // namespace
