#include <cmath>

#include "models/model_tables.h"
#include "models/state_solver.h"
#include "support/fluids.h"
#include "support/medium.h"

using namespace quor;

namespace {

constexpr double R = 8.31451;

using models::Eos;
using models::StateValues;

Result<models::StateTP, models::NoState> solved(const Medium& medium, double T, double p) {
    return models::solve_state_tp(medium.fluid, T, p);
}

/// Argon has a constant cp, so that every value of its ideal gas has a closed form.
TEST(StateFunctions, OfAMonatomicIdealGasAreItsClosedForms) {
    const models::Fluid database = fluids::fluid("Argon", Eos::idealGas);
    const double cp = 2.5 * R;
    ASSERT_NEAR(Medium(database).cp(500), cp, 1e-3);
    const models::Fluid fluid = fluids::changed(database, [&](models::SubstanceRecord& s, auto&) {
        s.cp_sinh_cosh = {{static_cast<float>(cp), 0, 0.1F, 0, 0}, 100, 1500};
    });
    const double c = static_cast<double>(fluid.substance().cp_sinh_cosh.c[0]);
    const Medium argon(fluid, {.Tenv = 290, .penv = 98});

    const double T = 500, p = 700, v = R * T / p;
    const auto z = argon.state(T, p, v);
    const double T0 = static_cast<double>(argon.reference.T0);
    const double p0 = static_cast<double>(argon.reference.p0);
    const double h = c * (T - T0), s = c * std::log(T / T0) - R * std::log(p / p0);
    ASSERT_TRUE(z);
    EXPECT_NEAR(z->h, h, 1e-8);
    EXPECT_NEAR(z->u, h - R * T, 1e-8);
    EXPECT_NEAR(z->s, s, 1e-10);
    EXPECT_NEAR(z->g, h - T * s, 1e-7);
    EXPECT_NEAR(z->a, h - R * T - T * s, 1e-7);
    EXPECT_NEAR(z->cp, c, 1e-10);
    EXPECT_NEAR(z->cv, c - R, 1e-10);
    const double M = static_cast<double>(fluid.substance().M);
    EXPECT_NEAR(z->w, std::sqrt(c / (c - R) * R * T * 1000 / M), 1e-9);
    const double lost = 290 * (c * std::log(T / 290) - R * std::log(p / 98));
    EXPECT_NEAR(z->exergies->H, c * (T - 290) - lost, 1e-8);
    EXPECT_NEAR(z->exergies->U, (c - R) * (T - 290) - lost + 98 * (v - R * 290 / 98), 1e-8);
}

TEST(StateFunctions, ExergiesOfTheSurroundingsAreZero) {
    for (const char* name : {"Water", "Propane", "Nitrogen"}) {
        const Medium medium(fluids::fluid(name, Eos::pengRobinson));
        const double T = medium.reference.Tenv, p = medium.reference.penv;
        const auto state = solved(medium, T, p);
        const auto z = medium.state(T, p, state->has_V ? *state->vV : *state->vL);
        EXPECT_TRUE(z) << name;
        EXPECT_NEAR(z->exergies->H, 0, 1e-9) << name;
        EXPECT_NEAR(z->exergies->U, 0, 1e-9) << name;
    }
}

TEST(StateFunctions, SurroundingsAreLiquidWhereOnlyLiquidExists) {
    const Medium water(fluids::fluid("Water", Eos::pengRobinson));
    const auto state = solved(water, 298.15, 101.325);
    ASSERT_TRUE(state->has_L && !state->has_V);
    ASSERT_TRUE(water.surroundings);
    EXPECT_EQ(water.surroundings->v, *state->vL);
    const Medium nitrogen(fluids::fluid("Nitrogen", Eos::pengRobinson));
    EXPECT_EQ(nitrogen.surroundings->v, *solved(nitrogen, 298.15, 101.325)->vV);
}

/// Close to the surroundings a fluid that is a gas there has the same zero from the V-only forms.
TEST(StateFunctions, SurroundingsOfVOnlyModelsAreTheirOwnStates) {
    for (const Eos eos : {Eos::idealGas, Eos::virialSoave, Eos::pitzerCurl}) {
        const Medium methane(fluids::fluid("Methane", eos));
        const auto state = solved(methane, 298.15, 101.325);
        const auto z = methane.state(298.15, 101.325, *state->vV);
        EXPECT_NEAR(z->exergies->H, 0, 1e-8) << models::eos_name(eos);
        EXPECT_NEAR(z->exergies->U, 0, 1e-8) << models::eos_name(eos);
    }
}

TEST(StateFunctions, OfAHeavyFluidByAVirialEquationDoNotFailForTheirSurroundings) {
    const Medium heavy(fluids::fluid("n-Hexadecane", Eos::pitzerCurl));
    const auto state = solved(heavy, 700, 100);
    ASSERT_TRUE(state);
    ASSERT_FALSE(solved(heavy, 298.15, 101.325));
    const auto z = heavy.state(700, 100, *state->vV);
    EXPECT_TRUE(z);
    EXPECT_TRUE(std::isfinite(z->exergies->H));
}

/// Exergy of a flow cannot be negative where the surroundings are the stable state.
TEST(StateFunctions, FlowExergyAtThePressureOfTheSurroundingsIsNeverNegative) {
    const Medium nitrogen(fluids::fluid("Nitrogen", Eos::pengRobinson));
    for (const double T : {150.0, 250.0, 297.0, 299.0, 400.0, 900.0}) {
        const double v = *solved(nitrogen, T, 101.325)->vV;
        EXPECT_GE(nitrogen.state(T, 101.325, v)->exergies->H, 0) << T;
    }
}

/// The zero of the exergies belongs to the fluid and to the reference state: each change of them
/// moves it.
TEST(StateFunctions, FollowEveryChangeOfWhatTheSurroundingsDependOn) {
    models::Fluid fluid = fluids::fluid("Propane", Eos::pengRobinson);
    models::ReferenceState reference;
    const double T = 400, p = 800, v = *models::solve_state_tp(fluid, T, p)->vV;
    double last = Medium(fluid, reference).state(T, p, v)->exergies->H;
    const auto changed = [&](const std::string& what) {
        const double now = Medium(fluid, reference).state(T, p, v)->exergies->H;
        EXPECT_NE(now, last) << what;
        last = now;
    };
    const auto choose = [&](Eos eos) { fluid = fluids::fluid(fluid.substance(), eos); };
    const auto edit = [&](auto change) { fluid = fluids::changed(fluid, change); };
    using Substance = models::SubstanceRecord;
    using Models = models::ModelSelection;

    reference.Tenv = 310;
    changed("Tenv");
    reference.penv = 150;
    changed("penv");
    edit([](Substance&, Models& m) { m.cp_form = models::CpForm::polynomial; });
    changed("cp form");
    edit([](Substance& s, Models&) { s.cp_polynomial.c[1] *= 1.01F; });
    changed("cp coefficient");
    choose(Eos::soave);
    changed("model");
    edit([](Substance& s, Models&) { s.Tcrit *= 1.001; });
    changed("critical temperature");
    choose(Eos::jiTorvik2);
    changed("Ji/Torvik II");
    edit([](Substance&, Models& m) { m.ji_torvik.k = 0.05; });
    changed("Ji/Torvik parameter");
    fluid = fluids::fluid("n-Butane", Eos::jiTorvik2);
    changed("substance");
    choose(Eos::pitzerCurl);
    changed("Pitzer/Curl");
    edit([](Substance& s, Models&) { s.omega += 0.01; });
    changed("acentric factor");
}

TEST(StateFunctions, FollowTheReferenceState) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::pengRobinson);
    const double T = 400, p = 800, v = *models::solve_state_tp(fluid, T, p)->vV;
    const auto plain = Medium(fluid).state(T, p, v);
    const auto moved = Medium(fluid, {.href = 500, .sref = 2}).state(T, p, v);
    EXPECT_NEAR(moved->h, plain->h + 500, 1e-9);
    EXPECT_NEAR(moved->s, plain->s + 2, 1e-12);
    EXPECT_NEAR(moved->g, plain->g + 500 - 2 * T, 1e-9);
    EXPECT_NEAR(moved->exergies->H, plain->exergies->H, 1e-8);
    const auto formed = Medium(fluid, {.mode = 10}).state(T, p, v);
    EXPECT_NEAR(formed->h, plain->h + static_cast<double>(fluid.substance().dfh), 1e-8);
    EXPECT_NEAR(formed->exergies->U, plain->exergies->U, 1e-7);
}

TEST(StateFunctions, WithoutSurroundingsOnlyTheExergiesAreMissing) {
    const Medium propane(fluids::fluid("Propane", Eos::pengRobinson), {.penv = 0});
    const auto z = propane.state(400, 800, 4);
    ASSERT_TRUE(z);
    EXPECT_GT(z->cp, 0);
    EXPECT_NE(z->h, 0);
    EXPECT_FALSE(z->exergies);
}

TEST(StateFunctions, AreMissingWithoutACpFormOrAState) {
    const Medium propane(fluids::fluid("Propane", Eos::pengRobinson));
    const double b = propane.fluid.eos().b0;
    EXPECT_FALSE(propane.state(400, 800, b));
    EXPECT_FALSE(propane.state(400, 0, 4));
    EXPECT_FALSE(propane.state(0, 800, 4));
    const Medium withoutCp(fluids::changed(
        propane.fluid, [](auto&, models::ModelSelection& m) { m.cp_form = models::CpForm::none; }));
    EXPECT_FALSE(withoutCp.state(400, 800, 4));
}

TEST(StateFunctions, OfASurroundingsTemperatureOfNearlyZeroFailWithoutNumbersThatAreNone) {
    // What the view stores for 0.
    const Medium propane(fluids::fluid("Propane", Eos::pengRobinson), {.Tenv = 1e-6});
    const auto z = propane.state(400, 800, 4);
    ASSERT_TRUE(z);
    EXPECT_TRUE(std::isfinite(z->h));
    EXPECT_FALSE(z->exergies);
}

}  // namespace
