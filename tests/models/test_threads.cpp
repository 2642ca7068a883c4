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
    const double Tcrit = medium.Tcrit(), p = 0.1 * fluid.substance().pcrit;
    std::vector<double> all;
    for (int i = 1; i <= 60; ++i) {
        const double T = Tcrit * i / 50;
        const models::StateTP state = models::solve_state_tp(fluid, T, p);
        const models::StateValues values = medium.state(T, p, state.has_V ? state.vV : state.vL);
        const models::Saturation saturation = models::saturation_pressure(fluid, T);
        const models::EnthalpyOfVaporisationResult hLV = models::enthalpy_of_vaporisation(
            fluid, {models::VaporisationModel::cubicEos, fluid.models().vapour_pressure, {}}, T, 0);
        all.insert(
            all.end(),
            {state.vV, state.vL, values.h, values.s, values.cp, values.w, values.eH, saturation.p,
             saturation.v[0], saturation.v[2], hLV.raw,
             models::saturation_temperature(fluid, p * i / 60).T,
             models::temperature_from_p_rho(fluid, p, fluid.substance().rhocrit / i, false).T,
             models::vapour_pressure(fluid.substance(), T, fluid.models().vapour_pressure).p});
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
