#include <cmath>

#include "legacy/current_fluid.h"
#include "legacy/wrappers.h"
#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/model_grid.h"
#include "models/reference_state.h"
#include "models/state_solver.h"
#include "support/codes.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

constexpr double R = 8.31451;

using models::StateValues;

class StateFunctions : public SessionTest {
  protected:
    /// The same state with surroundings that are evaluated anew.
    static StateValues afresh(double T, double p, double v) {
        const models::Fluid fluid = models::current_fluid();
        models::settle_reference(legacy::the_reference);
        return models::state_functions(fluid, legacy::the_reference,
                                       models::surroundings_state(fluid, legacy::the_reference), T,
                                       p, v);
    }
    static void expect_same(const StateValues& a, const StateValues& b, const std::string& at) {
        EXPECT_EQ(a.status, b.status) << at;
        EXPECT_EQ(a.h, b.h) << at;
        EXPECT_EQ(a.s, b.s) << at;
        EXPECT_EQ(a.eH, b.eH) << at;
        EXPECT_EQ(a.eU, b.eU) << at;
    }
};

/// Argon has a constant cp, so that every value of its ideal gas has a closed form.
TEST_F(StateFunctions, OfAMonatomicIdealGasAreItsClosedForms) {
    grid::activate("Argon", 0);
    const double cp = 2.5 * R;
    ASSERT_NEAR(models::IdealGasCp(500).cp, cp, 1e-3);
    legacy::the_substance.cpSinh = {{static_cast<float>(cp), 0, 0.1F, 0, 0}, 100, 1500};
    const double c = static_cast<double>(legacy::the_substance.cpSinh.c[0]);
    legacy::the_reference.Tenv = 290;
    legacy::the_reference.penv = 98;

    const double T = 500, p = 700, v = R * T / p;
    const StateValues z = models::StateFunctions(T, p, v);
    const double T0 = static_cast<double>(legacy::the_reference.T0);
    const double p0 = static_cast<double>(legacy::the_reference.p0);
    const double h = c * (T - T0), s = c * std::log(T / T0) - R * std::log(p / p0);
    ASSERT_EQ(z.status, kSuccess);
    EXPECT_NEAR(z.h, h, 1e-8);
    EXPECT_NEAR(z.u, h - R * T, 1e-8);
    EXPECT_NEAR(z.s, s, 1e-10);
    EXPECT_NEAR(z.g, h - T * s, 1e-7);
    EXPECT_NEAR(z.a, h - R * T - T * s, 1e-7);
    EXPECT_NEAR(z.cp, c, 1e-10);
    EXPECT_NEAR(z.cv, c - R, 1e-10);
    const double M = static_cast<double>(legacy::the_substance.M);
    EXPECT_NEAR(z.w, std::sqrt(c / (c - R) * R * T * 1000 / M), 1e-9);
    const double lost = 290 * (c * std::log(T / 290) - R * std::log(p / 98));
    EXPECT_NEAR(z.eH, c * (T - 290) - lost, 1e-8);
    EXPECT_NEAR(z.eU, (c - R) * (T - 290) - lost + 98 * (v - R * 290 / 98), 1e-8);
}

TEST_F(StateFunctions, ExergiesOfTheSurroundingsAreZero) {
    for (const char* name : {"Water", "Propane", "Nitrogen"}) {
        grid::activate(name, 6);
        const double T = legacy::the_reference.Tenv, p = legacy::the_reference.penv;
        const models::StateTP state = models::SolveStateTP(T, p);
        const StateValues z = models::StateFunctions(T, p, state.hasV ? state.vV : state.vL);
        EXPECT_EQ(z.status, kSuccess) << name;
        EXPECT_NEAR(z.eH, 0, 1e-9) << name;
        EXPECT_NEAR(z.eU, 0, 1e-9) << name;
    }
}

TEST_F(StateFunctions, SurroundingsAreLiquidWhereOnlyLiquidExists) {
    grid::activate("Water", 6);
    const models::StateTP state = models::SolveStateTP(298.15, 101.325);
    ASSERT_TRUE(state.hasL && !state.hasV);
    const models::Surroundings water =
        models::surroundings_state(models::current_fluid(), legacy::the_reference);
    EXPECT_EQ(water.status, kSuccess);
    EXPECT_EQ(water.v, state.vL);
    grid::activate("Nitrogen", 6);
    const models::Surroundings nitrogen =
        models::surroundings_state(models::current_fluid(), legacy::the_reference);
    EXPECT_EQ(nitrogen.v, models::SolveStateTP(298.15, 101.325).vV);
}

/// Close to the surroundings a fluid that is a gas there has the same zero from the V-only forms.
TEST_F(StateFunctions, SurroundingsOfVOnlyModelsAreTheirOwnStates) {
    for (const std::int16_t code : {std::int16_t{0}, std::int16_t{14}, std::int16_t{16}}) {
        grid::activate("Methane", code);
        const models::StateTP state = models::SolveStateTP(298.15, 101.325);
        const StateValues z = models::StateFunctions(298.15, 101.325, state.vV);
        EXPECT_NEAR(z.eH, 0, 1e-8) << code;
        EXPECT_NEAR(z.eU, 0, 1e-8) << code;
    }
}

TEST_F(StateFunctions, OfAHeavyFluidByAVirialEquationDoNotFailForTheirSurroundings) {
    grid::activate("n-Hexadecane", 16);
    const models::StateTP state = models::SolveStateTP(700, 100);
    ASSERT_EQ(state.status, kSuccess);
    ASSERT_NE(models::SolveStateTP(298.15, 101.325).status, kSuccess);
    const StateValues z = models::StateFunctions(700, 100, state.vV);
    EXPECT_EQ(z.status, kSuccess);
    EXPECT_TRUE(std::isfinite(z.eH));
}

/// Exergy of a flow cannot be negative where the surroundings are the stable state.
TEST_F(StateFunctions, FlowExergyAtThePressureOfTheSurroundingsIsNeverNegative) {
    grid::activate("Nitrogen", 6);
    for (const double T : {150.0, 250.0, 297.0, 299.0, 400.0, 900.0}) {
        const double v = models::SolveStateTP(T, 101.325).vV;
        EXPECT_GE(models::StateFunctions(T, 101.325, v).eH, 0) << T;
    }
}

TEST_F(StateFunctions, FollowEveryChangeOfWhatTheSurroundingsDependOn) {
    grid::activate("Propane", 6);
    const double T = 400, p = 800, v = models::SolveStateTP(T, p).vV;
    const auto check = [&](const std::string& what) {
        const StateValues before = models::StateFunctions(T, p, v);
        expect_same(before, afresh(T, p, v), what);
        // A second call comes from what was kept.
        expect_same(models::StateFunctions(T, p, v), before, what + " again");
        return before.eH;
    };
    double last = check("at first");
    const auto changed = [&](const std::string& what) {
        const double now = check(what);
        EXPECT_NE(now, last) << what;
        last = now;
    };
    legacy::the_reference.Tenv = 310;
    changed("Tenv");
    legacy::the_reference.penv = 150;
    changed("penv");
    legacy::the_models.CpModel = codes::cp(1);
    changed("cp form");
    legacy::the_substance.cpPoly.c[1] *= 1.01F;
    changed("cp coefficient");
    grid::ActivateModel(5);
    changed("model");
    legacy::the_eosParameters.eosNA *= 1.02;
    changed("alpha function");
    grid::ActivateModel(8);
    changed("Ji/Torvik II");
    legacy::the_jiTorvik.jtK = 0.05;
    changed("Ji/Torvik parameter");
    grid::activate("n-Butane", 8);
    changed("substance");
    grid::ActivateModel(16);
    changed("Pitzer/Curl");
    legacy::the_substance.omega += 0.01;
    changed("acentric factor");
}

TEST_F(StateFunctions, FollowTheReferenceState) {
    grid::activate("Propane", 6);
    const double T = 400, p = 800, v = models::SolveStateTP(T, p).vV;
    const StateValues plain = models::StateFunctions(T, p, v);
    legacy::the_reference.href = 500;
    legacy::the_reference.sref = 2;
    const StateValues moved = models::StateFunctions(T, p, v);
    EXPECT_NEAR(moved.h, plain.h + 500, 1e-9);
    EXPECT_NEAR(moved.s, plain.s + 2, 1e-12);
    EXPECT_NEAR(moved.g, plain.g + 500 - 2 * T, 1e-9);
    EXPECT_NEAR(moved.eH, plain.eH, 1e-8);
    legacy::the_reference = {};
    legacy::the_reference.RefMode = 10;
    const StateValues formed = models::StateFunctions(T, p, v);
    EXPECT_NEAR(formed.h, plain.h + static_cast<double>(legacy::the_substance.dfh), 1e-8);
    EXPECT_NEAR(formed.eU, plain.eU, 1e-7);
}

TEST_F(StateFunctions, LeaveTheScratchOfTheCallerAlone) {
    grid::activate("Propane", 6);
    const double T = 300, p = 500;
    const models::StateTP state = models::SolveStateTP(T, p);
    const auto roots = legacy::the_vRoots;
    const auto region = legacy::the_PhaseRegion;
    const auto eos = legacy::the_eosState;
    legacy::the_reference.Tenv = 280;  // so that the surroundings are solved
    models::StateFunctions(T, p, state.vV);
    EXPECT_EQ(legacy::the_vRoots, roots);
    EXPECT_EQ(legacy::the_PhaseRegion, region);
    EXPECT_EQ(legacy::the_eosState.eosA, eos.eosA);
    EXPECT_EQ(legacy::the_eosState.eosB, eos.eosB);
    grid::ActivateModel(16);
    legacy::the_Bvirial = -0.123;
    models::StateFunctions(T, p, 4.5);
    EXPECT_EQ(legacy::the_Bvirial, -0.123);
}

TEST_F(StateFunctions, WithoutSurroundingsOnlyTheExergiesAreMissing) {
    grid::activate("Propane", 6);
    legacy::the_reference.penv = 0;
    const StateValues z = models::StateFunctions(400, 800, 4);
    EXPECT_EQ(z.status, kFailure);
    EXPECT_GT(z.cp, 0);
    EXPECT_NE(z.h, 0);
    EXPECT_EQ(z.eH, 0);
    EXPECT_EQ(z.eU, 0);
}

TEST_F(StateFunctions, FailWithZerosWithoutACpFormOrAState) {
    grid::activate("Propane", 6);
    const double b = legacy::the_eosParameters.eosB0;
    const auto expect_nothing = [](const StateValues& z) {
        EXPECT_EQ(z.status, kFailure);
        for (const double x : {z.h, z.u, z.s, z.g, z.a, z.cp, z.cv, z.w, z.eH, z.eU})
            EXPECT_EQ(x, 0);
        EXPECT_FALSE(z.table.filled);
    };
    expect_nothing(models::StateFunctions(400, 800, b));
    expect_nothing(models::StateFunctions(400, 0, 4));
    expect_nothing(models::StateFunctions(0, 800, 4));
    legacy::the_models.CpModel = codes::cp(0);
    expect_nothing(models::StateFunctions(400, 800, 4));
}

TEST_F(StateFunctions, OfASurroundingsTemperatureOfNearlyZeroFailWithoutNumbersThatAreNone) {
    grid::activate("Propane", 6);
    legacy::the_reference.Tenv = 1e-6;  // what the view stores for 0
    const StateValues z = models::StateFunctions(400, 800, 4);
    EXPECT_EQ(z.status, kFailure);
    EXPECT_TRUE(std::isfinite(z.h) && std::isfinite(z.eH) && std::isfinite(z.eU));
}

}  // namespace
