#include <cmath>

#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/model_grid.h"
#include "models/reference_state.h"
#include "models/state_solver.h"
#include "support/fluids.h"
#include "support/session_test.h"

namespace {

constexpr double R = 8.31451;

using thermo::StateValues;

class StateFunctions : public SessionTest {
  protected:
    /// The same state with surroundings that are evaluated anew.
    static StateValues afresh(double T, double p, double v) {
        const Calc::Fluid fluid = Calc::CurrentFluid();
        thermo::settle_reference(Declare::reference);
        return thermo::state_functions(fluid, Declare::reference,
                                       thermo::surroundings_state(fluid, Declare::reference), T, p,
                                       v);
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
    grid::Activate("Argon", 0);
    const double cp = 2.5 * R;
    ASSERT_NEAR(thermo::IdealGasCp(500).cp, cp, 1e-3);
    Declare::substance.cpSinh = {{static_cast<float>(cp), 0, 0.1F, 0, 0}, 100, 1500};
    const double c = static_cast<double>(Declare::substance.cpSinh.c[0]);
    Declare::reference.Tenv = 290;
    Declare::reference.penv = 98;

    const double T = 500, p = 700, v = R * T / p;
    const StateValues z = thermo::StateFunctions(T, p, v);
    const double T0 = static_cast<double>(Declare::reference.T0);
    const double p0 = static_cast<double>(Declare::reference.p0);
    const double h = c * (T - T0), s = c * std::log(T / T0) - R * std::log(p / p0);
    ASSERT_EQ(z.status, kSuccess);
    EXPECT_NEAR(z.h, h, 1e-8);
    EXPECT_NEAR(z.u, h - R * T, 1e-8);
    EXPECT_NEAR(z.s, s, 1e-10);
    EXPECT_NEAR(z.g, h - T * s, 1e-7);
    EXPECT_NEAR(z.a, h - R * T - T * s, 1e-7);
    EXPECT_NEAR(z.cp, c, 1e-10);
    EXPECT_NEAR(z.cv, c - R, 1e-10);
    const double M = static_cast<double>(Declare::substance.M);
    EXPECT_NEAR(z.w, std::sqrt(c / (c - R) * R * T * 1000 / M), 1e-9);
    const double lost = 290 * (c * std::log(T / 290) - R * std::log(p / 98));
    EXPECT_NEAR(z.eH, c * (T - 290) - lost, 1e-8);
    EXPECT_NEAR(z.eU, (c - R) * (T - 290) - lost + 98 * (v - R * 290 / 98), 1e-8);
}

TEST_F(StateFunctions, ExergiesOfTheSurroundingsAreZero) {
    for (const char* name : {"Water", "Propane", "Nitrogen"}) {
        grid::Activate(name, 6);
        const double T = Declare::reference.Tenv, p = Declare::reference.penv;
        const Calc::StateTP state = Calc::SolveStateTP(T, p);
        const StateValues z = thermo::StateFunctions(T, p, state.hasV ? state.vV : state.vL);
        EXPECT_EQ(z.status, kSuccess) << name;
        EXPECT_NEAR(z.eH, 0, 1e-9) << name;
        EXPECT_NEAR(z.eU, 0, 1e-9) << name;
    }
}

TEST_F(StateFunctions, SurroundingsAreLiquidWhereOnlyLiquidExists) {
    grid::Activate("Water", 6);
    const Calc::StateTP state = Calc::SolveStateTP(298.15, 101.325);
    ASSERT_TRUE(state.hasL && !state.hasV);
    const thermo::Surroundings water =
        thermo::surroundings_state(Calc::CurrentFluid(), Declare::reference);
    EXPECT_EQ(water.status, kSuccess);
    EXPECT_EQ(water.v, state.vL);
    grid::Activate("Nitrogen", 6);
    const thermo::Surroundings nitrogen =
        thermo::surroundings_state(Calc::CurrentFluid(), Declare::reference);
    EXPECT_EQ(nitrogen.v, Calc::SolveStateTP(298.15, 101.325).vV);
}

/// Close to the surroundings a fluid that is a gas there has the same zero from the V-only forms.
TEST_F(StateFunctions, SurroundingsOfVOnlyModelsAreTheirOwnStates) {
    for (const std::int16_t code : {std::int16_t{0}, std::int16_t{14}, std::int16_t{16}}) {
        grid::Activate("Methane", code);
        const Calc::StateTP state = Calc::SolveStateTP(298.15, 101.325);
        const StateValues z = thermo::StateFunctions(298.15, 101.325, state.vV);
        EXPECT_NEAR(z.eH, 0, 1e-8) << code;
        EXPECT_NEAR(z.eU, 0, 1e-8) << code;
    }
}

TEST_F(StateFunctions, OfAHeavyFluidByAVirialEquationDoNotFailForTheirSurroundings) {
    grid::Activate("n-Hexadecane", 16);
    const Calc::StateTP state = Calc::SolveStateTP(700, 100);
    ASSERT_EQ(state.status, kSuccess);
    ASSERT_NE(Calc::SolveStateTP(298.15, 101.325).status, kSuccess);
    const StateValues z = thermo::StateFunctions(700, 100, state.vV);
    EXPECT_EQ(z.status, kSuccess);
    EXPECT_TRUE(std::isfinite(z.eH));
}

/// Exergy of a flow cannot be negative where the surroundings are the stable state.
TEST_F(StateFunctions, FlowExergyAtThePressureOfTheSurroundingsIsNeverNegative) {
    grid::Activate("Nitrogen", 6);
    for (const double T : {150.0, 250.0, 297.0, 299.0, 400.0, 900.0}) {
        const double v = Calc::SolveStateTP(T, 101.325).vV;
        EXPECT_GE(thermo::StateFunctions(T, 101.325, v).eH, 0) << T;
    }
}

TEST_F(StateFunctions, FollowEveryChangeOfWhatTheSurroundingsDependOn) {
    grid::Activate("Propane", 6);
    const double T = 400, p = 800, v = Calc::SolveStateTP(T, p).vV;
    const auto check = [&](const std::string& what) {
        const StateValues before = thermo::StateFunctions(T, p, v);
        expect_same(before, afresh(T, p, v), what);
        // A second call comes from what was kept.
        expect_same(thermo::StateFunctions(T, p, v), before, what + " again");
        return before.eH;
    };
    double last = check("at first");
    const auto changed = [&](const std::string& what) {
        const double now = check(what);
        EXPECT_NE(now, last) << what;
        last = now;
    };
    Declare::reference.Tenv = 310;
    changed("Tenv");
    Declare::reference.penv = 150;
    changed("penv");
    Declare::models.CpModel = 1;
    changed("cp form");
    Declare::substance.cpPoly.c[1] *= 1.01F;
    changed("cp coefficient");
    grid::ActivateModel(5);
    changed("model");
    Declare::eosParameters.eosNA *= 1.02;
    changed("alpha function");
    grid::ActivateModel(8);
    changed("Ji/Torvik II");
    Declare::jiTorvik.jtK = 0.05;
    changed("Ji/Torvik parameter");
    grid::Activate("n-Butane", 8);
    changed("substance");
    grid::ActivateModel(16);
    changed("Pitzer/Curl");
    Declare::substance.omega += 0.01;
    changed("acentric factor");
}

TEST_F(StateFunctions, FollowTheReferenceState) {
    grid::Activate("Propane", 6);
    const double T = 400, p = 800, v = Calc::SolveStateTP(T, p).vV;
    const StateValues plain = thermo::StateFunctions(T, p, v);
    Declare::reference.href = 500;
    Declare::reference.sref = 2;
    const StateValues moved = thermo::StateFunctions(T, p, v);
    EXPECT_NEAR(moved.h, plain.h + 500, 1e-9);
    EXPECT_NEAR(moved.s, plain.s + 2, 1e-12);
    EXPECT_NEAR(moved.g, plain.g + 500 - 2 * T, 1e-9);
    EXPECT_NEAR(moved.eH, plain.eH, 1e-8);
    Declare::reference = {};
    Declare::reference.RefMode = 10;
    const StateValues formed = thermo::StateFunctions(T, p, v);
    EXPECT_NEAR(formed.h, plain.h + static_cast<double>(Declare::substance.dfh), 1e-8);
    EXPECT_NEAR(formed.eU, plain.eU, 1e-7);
}

TEST_F(StateFunctions, LeaveTheScratchOfTheCallerAlone) {
    grid::Activate("Propane", 6);
    const double T = 300, p = 500;
    const Calc::StateTP state = Calc::SolveStateTP(T, p);
    const auto roots = Declare::vRoots;
    const auto region = Declare::PhaseRegion;
    const auto eos = Declare::eosState;
    Declare::reference.Tenv = 280;  // so that the surroundings are solved
    thermo::StateFunctions(T, p, state.vV);
    EXPECT_EQ(Declare::vRoots, roots);
    EXPECT_EQ(Declare::PhaseRegion, region);
    EXPECT_EQ(Declare::eosState.eosA, eos.eosA);
    EXPECT_EQ(Declare::eosState.eosB, eos.eosB);
    grid::ActivateModel(16);
    Declare::Bvirial = -0.123;
    thermo::StateFunctions(T, p, 4.5);
    EXPECT_EQ(Declare::Bvirial, -0.123);
}

TEST_F(StateFunctions, WithoutSurroundingsOnlyTheExergiesAreMissing) {
    grid::Activate("Propane", 6);
    Declare::reference.penv = 0;
    const StateValues z = thermo::StateFunctions(400, 800, 4);
    EXPECT_EQ(z.status, kFailure);
    EXPECT_GT(z.cp, 0);
    EXPECT_NE(z.h, 0);
    EXPECT_EQ(z.eH, 0);
    EXPECT_EQ(z.eU, 0);
}

TEST_F(StateFunctions, FailWithZerosWithoutACpFormOrAState) {
    grid::Activate("Propane", 6);
    const double b = Declare::eosParameters.eosB0;
    const auto expect_nothing = [](const StateValues& z) {
        EXPECT_EQ(z.status, kFailure);
        for (const double x : {z.h, z.u, z.s, z.g, z.a, z.cp, z.cv, z.w, z.eH, z.eU})
            EXPECT_EQ(x, 0);
        EXPECT_FALSE(z.table.filled);
    };
    expect_nothing(thermo::StateFunctions(400, 800, b));
    expect_nothing(thermo::StateFunctions(400, 0, 4));
    expect_nothing(thermo::StateFunctions(0, 800, 4));
    Declare::models.CpModel = 0;
    expect_nothing(thermo::StateFunctions(400, 800, 4));
}

TEST_F(StateFunctions, OfASurroundingsTemperatureOfNearlyZeroFailWithoutNumbersThatAreNone) {
    grid::Activate("Propane", 6);
    Declare::reference.Tenv = 1e-6;  // what the view stores for 0
    const StateValues z = thermo::StateFunctions(400, 800, 4);
    EXPECT_EQ(z.status, kFailure);
    EXPECT_TRUE(std::isfinite(z.h) && std::isfinite(z.eH) && std::isfinite(z.eU));
}

}  // namespace
