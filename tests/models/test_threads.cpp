#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "models/enthalpy_of_vaporisation.h"
#include "models/saturation.h"
#include "models/vapour_pressure.h"
#include "support/fluids.h"
#include "support/medium.h"

using namespace quor;

namespace {

using models::Eos;

/// Results of every kind over a range of temperatures.
std::vector<double> results_of(const models::Fluid& fluid) {
    const Medium medium(fluid);
    const models::SubstanceRecord& substance = fluid.substance();
    const double Tcrit = medium.Tcrit(), p = 0.1 * substance.pcrit;
    std::vector<double> all;
    const auto keep = [&](auto... values) {
        (all.push_back(std::optional<double>(values).value_or(0)), ...);
    };
    for (int i = 1; i <= 60; ++i) {
        const double T = Tcrit * i / 50;
        if (const auto state = models::solve_state_tp(fluid, T, p)) {
            keep(state->vV, state->vL);
            const auto v = state->has_V ? state->vV : state->vL;
            if (const auto z = medium.state(T, p, v.value()))
                keep(z->h, z->s, z->cp, z->w, z->exergies.value_or(models::Exergies{}).H);
        }
        if (const auto saturation = models::saturation_pressure(fluid, T))
            keep(saturation->p, saturation->v[0], saturation->v[2]);
        if (const auto saturation = models::saturation_temperature(fluid, p * i / 60))
            keep(saturation->T);
        keep(models::enthalpy_of_vaporisation(
                 fluid, {models::VaporisationModel::cubicEos, fluid.models().vapour_pressure, {}},
                 T, {})
                 .raw,
             models::temperature_from_p_rho(fluid, p, substance.rhocrit / i, false));
        if (const auto vp = models::vapour_pressure(substance, T, fluid.models().vapour_pressure))
            keep(vp->p);
    }
    return all;
}

/// The results of each fluid, each computed in a thread of its own at the same time.
std::vector<std::vector<double>> at_once(const std::vector<models::Fluid>& fluids) {
    std::vector<std::vector<double>> all(fluids.size());
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < fluids.size(); ++i)
            threads.emplace_back([&, i] { all[i] = results_of(fluids[i]); });
    }
    return all;
}

TEST(Threads, TwoFluidsGiveTheResultsThatTheyGiveAlone) {
    const std::vector<models::Fluid> two = {fluids::fluid("Propane", Eos::pengRobinson),
                                            fluids::fluid("Water", Eos::redlichKwong)};
    const std::vector<double> propane = results_of(two[0]), water = results_of(two[1]);
    ASSERT_NE(propane, water);
    for (int repeat = 0; repeat < 5; ++repeat) {
        const auto together = at_once(two);
        EXPECT_EQ(together[0], propane);
        EXPECT_EQ(together[1], water);
    }
}

TEST(Threads, CopiesOfOneFluidAreUsedAtOnce) {
    const models::Fluid propane = fluids::fluid("Propane", Eos::soave);
    const std::vector<double> alone = results_of(propane);
    for (const std::vector<double>& each : at_once({propane, propane, propane, propane}))
        EXPECT_EQ(each, alone);
}

TEST(Threads, EveryEquationOfStateWorksBesideTheOthers) {
    std::vector<models::Fluid> all;
    const models::SubstanceRecord methane = fluids::correlated_row("Methane");
    for (const models::EquationOfState* row : models::equations())
        all.push_back(fluids::fluid(methane, row->eos));
    const auto together = at_once(all);
    for (std::size_t i = 0; i < all.size(); ++i)
        EXPECT_EQ(together[i], results_of(all[i])) << all[i].equation().name;
}

TEST(Threads, AFluidIsMadeInAThreadOfItsOwn) {
    const models::SubstanceRecord s = fluids::correlated_row("Nitrogen");
    std::vector<models::Fluid> made(4);
    {
        std::vector<std::jthread> threads;
        for (models::Fluid& fluid : made)
            threads.emplace_back([&] { fluid = fluids::fluid(s, Eos::pengRobinson); });
    }
    for (const models::Fluid& fluid : made) EXPECT_EQ(fluid, fluids::fluid(s, Eos::pengRobinson));
}

}  // namespace
