#include <gtest/gtest.h>

#include <cmath>

#include "models/caloric.h"
#include "models/equation_of_state.h"
#include "models/named_reference.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using models::Eos;
using models::NamedState;

const char* const kFluids[] = {"Propane",         "Isobutane",
                               "Ammonia",         "1,1,1,2-Tetrafluoroethane",
                               "Difluoromethane", "Propylene",
                               "Carbon dioxide",  "Ethane",
                               "n-Butane",        "Chlorodifluoromethane"};

models::ReferenceState resolved(const models::Fluid& fluid, NamedState named) {
    return models::resolved_reference(fluid, {.named = named}).value();
}

/// h, u, s of the saturated liquid at T, with the surroundings that the functions ask for.
models::StateValues saturated_liquid(const models::Fluid& fluid,
                                     const models::ReferenceState& reference, double T) {
    return models::saturation_functions(fluid, reference,
                                        models::surroundings_state(fluid, reference), T)
        .value()
        .L;
}

/// Absolute: values of 0 are differences of some 10000 kJ/kmol.
constexpr double kEnergy = 1e-6, kEntropy = 1e-9;

TEST(NamedReference, TheSaturatedLiquidAtZeroDegreesHasTheValuesOfTheIIR) {
    for (const char* name : kFluids)
        for (const Eos eos : {Eos::pengRobinson, Eos::soave}) {
            const models::Fluid fluid = fluids::fluid(name, eos);
            const auto M = static_cast<double>(fluid.substance().M);
            const auto L = saturated_liquid(fluid, resolved(fluid, NamedState::iir), 273.15);
            EXPECT_NEAR(L.h / M, 200.0, kEnergy) << name;
            EXPECT_NEAR(L.s / M, 1.0, kEntropy) << name;
        }
}

TEST(NamedReference, TheSaturatedLiquidAtMinusFortyDegreesIsTheZeroOfASHRAE) {
    for (const char* name : kFluids) {
        const models::Fluid fluid = fluids::fluid(name, Eos::pengRobinson);
        const auto L = saturated_liquid(fluid, resolved(fluid, NamedState::ashrae), 233.15);
        EXPECT_NEAR(L.h, 0, kEnergy) << name;
        EXPECT_NEAR(L.s, 0, kEntropy) << name;
    }
}

TEST(NamedReference, TheBoilingLiquidIsTheZeroOfTheNormalBoilingPoint) {
    for (const char* name : kFluids) {
        const models::Fluid fluid = fluids::fluid(name, Eos::soave);
        const double T = models::saturation_temperature(fluid, 101.325).value().T;
        const auto L = saturated_liquid(fluid, resolved(fluid, NamedState::boilingPoint), T);
        EXPECT_NEAR(L.h, 0, 1e-4) << name << ": T(LV) is found to some 1E-10";
        EXPECT_NEAR(L.s, 0, 1e-6) << name;
    }
}

TEST(NamedReference, TheLiquidAtTheTriplePointIsTheZeroOfWaterTables) {
    const models::Fluid water = fluids::fluid("Water", Eos::pengRobinson);
    const auto Tt = static_cast<double>(water.substance().Ttriple);
    ASSERT_NEAR(Tt, 273.16, 0.01);
    const auto L = saturated_liquid(water, resolved(water, NamedState::water), Tt);
    EXPECT_NEAR(L.u, 0, kEnergy);
    EXPECT_NEAR(L.s, 0, kEntropy);
    EXPECT_GT(L.h, 0) << "h is p v there";
}

TEST(NamedReference, AnOwnStateHasItsOwnValues) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::pengRobinson);
    for (const bool vapour : {true, false}) {
        const double p = vapour ? 500 : 5000;
        const models::ReferenceState reference =
            models::resolved_reference(
                fluid, {.named = NamedState::own, .own = {300, p, vapour, -1234.5, 67.8}})
                .value();
        const auto L = models::state_functions(fluid, reference, std::nullopt, 300, p, [&] {
            const auto state = models::solve_state_tp(fluid, 300, p);
            return vapour ? state->vV.value() : state->vL.value();
        }());
        EXPECT_NEAR(L.value().h, -1234.5, kEnergy);
        EXPECT_NEAR(L.value().s, 67.8, kEntropy);
    }
}

TEST(NamedReference, DifferencesOfTwoStatesAreTheSameInEveryReferenceState) {
    const models::Fluid fluid = fluids::fluid("1,1,1,2-Tetrafluoroethane", Eos::pengRobinson);
    const auto rise = [&](const models::ReferenceState& reference) {
        const auto vapour = [&](double T, double p) {
            const double v = models::solve_state_tp(fluid, T, p)->vV.value();
            return models::state_functions(fluid, reference, std::nullopt, T, p, v).value();
        };
        const auto low = vapour(280, 200), high = vapour(340, 900);
        return std::pair(high.h - low.h, high.s - low.s);
    };
    models::ReferenceState plain;
    const auto [h, s] = rise(plain);
    ASSERT_GT(h, 1000);
    for (const NamedState named :
         {NamedState::iir, NamedState::ashrae, NamedState::boilingPoint, NamedState::water}) {
        const auto [h_named, s_named] = rise(resolved(fluid, named));
        EXPECT_NEAR(h_named, h, 1e-9 * h);
        EXPECT_NEAR(s_named, s, 1e-9 * std::fabs(s) + 1e-12);
    }
}

TEST(NamedReference, AFluidWithoutTheStateSaysSoAndHasAnotherOne) {
    const models::Fluid methane = fluids::fluid("Methane", Eos::pengRobinson);
    const auto iir = models::resolved_reference(methane, {.named = NamedState::iir});
    ASSERT_FALSE(iir);
    EXPECT_EQ(iir.reason(), "Methane has no saturated liquid at 273.15 K by CEOS Peng / Robinson.");
    EXPECT_EQ(models::proposed_reference(methane), NamedState::boilingPoint);

    const models::Fluid gas = fluids::fluid("Methane", Eos::idealGas);
    const auto boiling = models::resolved_reference(gas, {.named = NamedState::boilingPoint});
    ASSERT_FALSE(boiling);
    EXPECT_TRUE(boiling.reason().starts_with("Methane has no saturated liquid at 101.325 kPa by "))
        << boiling.reason();
    EXPECT_EQ(models::proposed_reference(gas), NamedState::none);

    const auto own = models::resolved_reference(
        methane, {.named = NamedState::own, .own = {185, 100, false, 0, 0}});
    ASSERT_FALSE(own);
    EXPECT_EQ(own.reason(), "Methane has no liquid at 185 K and 100 kPa by CEOS Peng / Robinson.");
}

TEST(NamedReference, WithoutAMolarMassOrATriplePointOnlyWhatNeedsThemIsRefused) {
    const models::Fluid bare =
        fluids::changed(fluids::fluid("Propane", Eos::pengRobinson), [](auto& s, auto&) {
            s.M = 0;
            s.Ttriple = 0;
        });
    EXPECT_EQ(models::resolved_reference(bare, {.named = NamedState::iir}).reason(),
              "Propane has no molar mass.");
    EXPECT_EQ(models::resolved_reference(bare, {.named = NamedState::water}).reason(),
              "The triple point of Propane is not known.");
    EXPECT_TRUE(models::resolved_reference(bare, {.named = NamedState::ashrae}));
}

TEST(NamedReference, OneThatIsNotNamedStaysAsItIs) {
    const models::ReferenceState plain{.mode = 2, .href = 5, .sref = 6};
    EXPECT_EQ(models::resolved_reference(fluids::fluid("Propane", Eos::soave), plain).value(),
              plain);
}

TEST(NamedReference, CodesAreReadInAnyCase) {
    for (const models::NamedReference& row : models::named_references())
        EXPECT_EQ(models::named_state_of(row.code), row.state);
    EXPECT_EQ(models::named_state_of("IIR"), NamedState::iir);
    EXPECT_EQ(models::named_state_of("none"), std::nullopt);
    EXPECT_EQ(models::named_state_of(""), std::nullopt);
}

}  // namespace
