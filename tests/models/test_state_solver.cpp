#include "legacy/wrappers.h"
#include "models/state_solver.h"
#include "support/codes.h"

#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "models/saturation.h"
#include "models/virial.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using constants::R;
using legacy::the_substance;

class StateSolver : public SessionTest {
  protected:
    static void activate(const std::string& name, std::int16_t code, bool onlyV = false) {
        the_substance = fluids::Row(name);
        legacy::the_models.EOSModel = codes::eos(code);
        legacy::the_models.EOSOnlyV = onlyV;
        legacy::the_models.VPModel = codes::vp(4);
        legacy::the_models.VPModel = codes::vp("WAG");
        ASSERT_EQ(models::calc_eos_parameters(code), kSuccess);
    }
};

TEST_F(StateSolver, EveryRootSatisfiesTheEquation) {
    double worst = 0;
    for (const std::string& name : fluids::AllNames()) {
        for (const std::int16_t code : std::initializer_list<std::int16_t>{2, 3, 4, 5, 6}) {
            activate(name, code);
            for (const double Tr : {0.3, 0.5, 0.7, 0.9, 1.0, 1.3, 3.0}) {
                for (const double pr : {1e-7, 1e-4, 0.01, 0.2, 0.9, 2.0, 20.0}) {
                    const double T = Tr * the_substance.Tcrit, p = pr * the_substance.pcrit;
                    models::eval_eos_at_t(T);
                    const models::CubicRoots roots = models::SolveCubic(T, p);
                    ASSERT_EQ(roots.status, kSuccess)
                        << name << " " << code << " " << Tr << " " << pr;
                    for (int i = 0; i < roots.count; ++i) {
                        const double v = roots.v[static_cast<std::size_t>(i)];
                        if (v <= legacy::the_eosState.eosB) continue;
                        // The error in p is that in v times the slope: compare it in v.
                        const models::EOSState& s = legacy::the_eosState;
                        const double x = v + s.eosC, y = v + s.eosD, w = v - s.eosB;
                        const double slope = -R * T / (w * w) + s.eosA * (x + y) / (x * x * y * y);
                        const double error =
                            std::fabs((models::cubic_pressure(s, T, v) - p) / slope / v);
                        // Near a double root the equation itself fixes v only to the root of the
                        // rounding error.
                        const double conditioned =
                            std::fabs(slope) * v > 1e-3 * (p + R * T / w * 1e-3) ? error : 0.0;
                        worst = std::max(worst, conditioned);
                    }
                }
            }
        }
    }
    std::printf("largest relative error of a root %.2g\n", worst);
    EXPECT_LT(worst, 1e-7);
}

TEST_F(StateSolver, NoRootIsLostWhereVapourIsABillionTimesThinnerThanLiquid) {
    activate("n-Dodecane", 6);
    const double T = 0.25 * the_substance.Tcrit;
    models::eval_eos_at_t(T);
    const models::CubicRoots roots = models::SolveCubic(T, 1e-12);
    ASSERT_EQ(roots.count, 3);
    const models::EOSState& s = legacy::the_eosState;
    EXPECT_GT(roots.v[2] / s.eosB, 1e6);
    EXPECT_GT(roots.v[0], s.eosB);
    // On the liquid root the pressure is the difference of two large terms.
    const double repulsion = R * T / (roots.v[0] - s.eosB);
    EXPECT_NEAR(models::cubic_pressure(s, T, roots.v[0]), 0.0, 1e-9 * repulsion);
}

TEST_F(StateSolver, OfThreeRootsWithTwoBelowTheCovolumeTheLargestStays) {
    // (v - 1)(v - 2)(v - 10) with b = 5 stands for a cubic with roots without meaning.
    models::EOSState s;
    s.eosB = 5;
    s.eosC = s.eosD = 0;
    const double T = 1.0 / R, p = 1.0 / 8.0;  // q = 8 + 5 = 13 = 1 + 2 + 10
    s.eosA = 32.0 * p;  // c1 = a/p = 32 and c0 = -a b/p = -160 differ from -20
    const models::CubicRoots roots = models::solve_cubic(s, T, p);
    ASSERT_EQ(roots.status, kSuccess);
    // Whatever the roots are: those below b do not count as a single one.
    if (roots.count == 1) {
        EXPECT_GT(roots.v[0], s.eosB);
    } else {
        EXPECT_GE(roots.v[1], s.eosB);
    }
}

TEST_F(StateSolver, PressureOfAVolumeAtTheCovolumeFails) {
    activate("Carbon dioxide", 6);
    models::eval_eos_at_t(300);
    const double b = legacy::the_eosState.eosB;
    EXPECT_EQ(models::pressure_from_tv(300, b).status, kFailure);
    EXPECT_EQ(models::pressure_from_tv(300, b).p, 0);
    EXPECT_EQ(models::pressure_from_tv(300, 1.01 * b).status, kSuccess);
}

TEST_F(StateSolver, AStateOnTheBoundaryHasBothPhases) {
    activate("Propane", 6);
    const models::Saturation sat = models::SaturationPressure(300);
    const models::StateTP s = models::SolveStateTP(300, sat.p);
    EXPECT_TRUE(s.hasL);
    EXPECT_TRUE(s.hasV);
    EXPECT_EQ(s.text, "3 V-solutions of the EOS");
    EXPECT_EQ(s.PhaseRegion, 0);
    EXPECT_TRUE(models::SolveStateTP(300, 0.9 * sat.p).hasV);
    EXPECT_FALSE(models::SolveStateTP(300, 0.9 * sat.p).hasL);
    EXPECT_TRUE(models::SolveStateTP(300, 1.1 * sat.p).hasL);
    EXPECT_FALSE(models::SolveStateTP(300, 1.1 * sat.p).hasV);
}

TEST_F(StateSolver, RegionsFollowTheCriticalPoint) {
    activate("Propane", 6);
    const double Tc = the_substance.Tcrit, pc = the_substance.pcrit;
    EXPECT_EQ(models::SolveStateTP(0.7 * Tc, 0.5 * pc).PhaseRegion, 0);
    EXPECT_EQ(models::SolveStateTP(0.7 * Tc, 2 * pc).PhaseRegion, 1);
    EXPECT_EQ(models::SolveStateTP(2 * Tc, 2 * pc).PhaseRegion, 2);
    EXPECT_EQ(models::SolveStateTP(2 * Tc, 0.2 * pc).PhaseRegion, 3);
    const models::StateTP critical = models::SolveStateTP(Tc, pc);
    EXPECT_TRUE(critical.hasL && critical.hasV);
    EXPECT_TRUE(critical.PhaseRegion == 0 || critical.PhaseRegion == 4);
    const models::StateTP dense = models::SolveStateTP(2 * Tc, 2 * pc);
    EXPECT_EQ(dense.text, "One solution of the EOS;supercritical");
    EXPECT_TRUE(dense.hasL && dense.hasV);
    EXPECT_EQ(dense.rhoL, dense.rhoV);
}

TEST_F(StateSolver, ThreeRootsAboveTheCriticalTemperatureCountAsVapour) {
    // A substance whose Tcrit is understated sees a subcritical loop above it.
    activate("Propane", 6);
    the_substance.Tcrit = 280;
    legacy::the_eosParameters.eosNA = 0;
    const models::StateTP s = models::SolveStateTP(290, 700);
    ASSERT_EQ(s.nRoots, 3);
    if (std::fabs(s.areaRatio) >= 0.001) {
        EXPECT_TRUE(s.hasV);
        EXPECT_FALSE(s.hasL);
    }
}

TEST_F(StateSolver, AVOnlyStateFollowsTheVirialEquation) {
    activate("Nitrogen", 16, true);
    legacy::the_PhaseRegion = 3;
    const models::StateTP s = models::SolveStateTP(300, 1000);
    const double B = models::SecondVirial(16, 300);
    EXPECT_DOUBLE_EQ(s.vV, R * 300 / 1000 + B);
    EXPECT_EQ(s.text, "EOS for the V-phase only!");
    EXPECT_TRUE(s.hasV);
    EXPECT_FALSE(s.hasL);
    EXPECT_EQ(s.PhaseRegion, 3) << "the region stays as it was";
}

TEST_F(StateSolver, AVOnlyVolumeBelowZeroIsAFailure) {
    activate("Propane", 16, true);
    const models::StateTP s = models::SolveStateTP(200, 5000);
    EXPECT_EQ(s.status, kFailure);
    EXPECT_FALSE(s.hasV);
    EXPECT_EQ(s.rhoV, 0);
    EXPECT_EQ(models::pressure_from_tv(200, -0.01).status, kFailure);
}

TEST_F(StateSolver, ZeroPressureAndTemperatureAreFailures) {
    activate("Propane", 6);
    EXPECT_EQ(models::SolveStateTP(300, 0).status, kFailure);
    EXPECT_EQ(models::SolveStateTP(0, 100).status, kFailure);
    EXPECT_EQ(models::SolveStateTP(300, -5).status, kFailure);
}

TEST_F(StateSolver, TemperatureIsTheInverseOfPressureInOnePhase) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{2, 3, 4, 5, 6}) {
        activate("Ammonia", code);
        for (const double T : {450.0, 600.0, 900.0}) {
            for (const double v : {0.15, 0.5, 3.0}) {
                models::eval_eos_at_t(T);
                const double p = models::pressure_from_tv(T, v).p;
                const models::TemperatureResult r =
                    models::TemperatureFromPRho(p, static_cast<double>(the_substance.M) / v, false);
                EXPECT_NEAR(r.T, T, 2e-5 * T) << code << " " << T << " " << v;
            }
        }
    }
}

TEST_F(StateSolver, InsideTheDomeTheTemperatureIsThatOfSaturation) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{2, 4, 6}) {
        activate("Propane", code);
        for (const double pr : {0.001, 0.1, 0.6, 0.7, 0.95}) {
            const double p = pr * the_substance.pcrit;
            const models::Saturation sat = models::SaturationTemperature(p);
            const double v = 0.5 * (sat.v[0] + sat.v[2]);
            const models::TemperatureResult r =
                models::TemperatureFromPRho(p, static_cast<double>(the_substance.M) / v, false);
            EXPECT_NEAR(r.T, sat.T, 1e-4 * sat.T) << code << " " << pr;
            const models::TemperatureResult single =
                models::TemperatureFromPRho(p, static_cast<double>(the_substance.M) / v, true);
            EXPECT_NE(single.T, r.T);
        }
    }
}

TEST_F(StateSolver, ADensityBeyondTheCovolumeHasNoTemperature) {
    activate("Propane", 3);
    EXPECT_EQ(models::TemperatureFromPRho(212.56, 551.2, false).T, 0);
    EXPECT_EQ(models::TemperatureFromPRho(0, 500, false).status, kFailure);
    EXPECT_EQ(models::TemperatureFromPRho(100, 0, false).status, kFailure);
}

TEST_F(StateSolver, TemperatureNeedsNoBoilingPoint) {
    activate("Propane", 6);
    the_substance.Tboil = 0;
    models::eval_eos_at_t(350);
    const double v = 2.5;
    const double p = models::pressure_from_tv(350, v).p;
    EXPECT_NEAR(models::TemperatureFromPRho(p, static_cast<double>(the_substance.M) / v, false).T,
                350, 0.01);
}

TEST_F(StateSolver, AVOnlyTemperatureIsFoundByIteration) {
    activate("Nitrogen", 13, true);
    const double v = 1.2, T = 320;
    const double p = R * T / (v - models::SecondVirial(13, T));
    EXPECT_NEAR(models::TemperatureFromPRho(p, static_cast<double>(the_substance.M) / v, false).T,
                T, 0.01);
}

TEST_F(StateSolver, EqualAreaRatioChangesSignAtTheMaxwellPressure) {
    activate("Propane", 2);
    const models::Saturation sat = models::SaturationPressure(300);
    models::eval_eos_at_t(300);
    models::SolveCubic(300, 0.95 * sat.p);
    EXPECT_GT(models::AreaRatio(300, 0.95 * sat.p).ratio, 0);
    models::SolveCubic(300, 1.05 * sat.p);
    EXPECT_LT(models::AreaRatio(300, 1.05 * sat.p).ratio, 0);
}

// ---- constants of the equations

TEST_F(StateSolver, VanDerWaalsConstantsAtTheCriticalPoint) {
    activate("Propane", 2);
    models::eval_eos_at_t(the_substance.Tcrit);
    const double Rp = R * the_substance.Tcrit / the_substance.pcrit;
    EXPECT_DOUBLE_EQ(legacy::the_eosState.eosA, 27.0 / 64.0 * R * R * the_substance.Tcrit *
                                                    the_substance.Tcrit / the_substance.pcrit);
    EXPECT_DOUBLE_EQ(legacy::the_eosState.eosB, Rp / 8);
    activate("Propane", 3);
    models::eval_eos_at_t(the_substance.Tcrit);
    EXPECT_NEAR(
        legacy::the_eosState.eosA,
        27.0 / 64.0 * R * R * the_substance.Tcrit * the_substance.Tcrit / the_substance.pcrit,
        1e-10);
}

TEST_F(StateSolver, CriticalPointIsAnInflexionOfTheCriticalIsotherm) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{2, 3, 4, 5}) {
        activate("Propane", code);
        models::eval_eos_at_t(the_substance.Tcrit);
        const double v = legacy::the_eosParameters.vcritCalc, h = 1e-4 * v;
        const auto p = [&](double x) {
            return models::cubic_pressure(legacy::the_eosState, the_substance.Tcrit, x);
        };
        EXPECT_NEAR(p(v), the_substance.pcrit, 1e-9 * the_substance.pcrit) << code;
        EXPECT_NEAR((p(v + h) - p(v - h)) / (2 * h) * v / the_substance.pcrit, 0, 1e-6) << code;
    }
}

TEST_F(StateSolver, SoaveFactorWithoutAcentricFactorIs048) {
    the_substance = fluids::Row("Propane");
    the_substance.omega = 0;
    legacy::the_models.EOSModel = codes::eos(5);
    models::calc_eos_parameters(5);
    EXPECT_EQ(legacy::the_eosParameters.eosNA, 0.48);
}

TEST_F(StateSolver, EvaluationAtZeroKelvinKeepsTheLastValues) {
    activate("Propane", 6);
    models::eval_eos_at_t(300);
    const double a = legacy::the_eosState.eosA;
    models::eval_eos_at_t(0);
    EXPECT_EQ(legacy::the_eosState.eosA, a);
}

TEST_F(StateSolver, AVOnlyModelHasConstantsButNoCriticalVolume) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{11, 12, 13, 14, 15}) {
        activate("Propane", code, true);
        EXPECT_GT(legacy::the_eosParameters.eosA0, 0);
        EXPECT_EQ(legacy::the_eosParameters.vcritCalc, 0);
        EXPECT_EQ(legacy::the_eosParameters.rhocritCalc, 0);
    }
}

TEST_F(StateSolver, MissingCriticalDataGiveStatusOneAndNoConstants) {
    the_substance = fluids::Row("Propane");
    the_substance.pcrit = 0;
    legacy::the_models.EOSModel = codes::eos(6);
    EXPECT_EQ(models::calc_eos_parameters(6), 1);
    EXPECT_EQ(legacy::the_eosParameters.eosA0, 0);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(StateSolver, ManualVirialCoefficientsSurviveOnlyTheNeutralCode) {
    legacy::the_eosParameters.eosB0 = 0.1;
    models::calc_eos_parameters(1);
    EXPECT_EQ(legacy::the_eosParameters.eosB0, 0.1);
    models::calc_eos_parameters(10);
    EXPECT_EQ(legacy::the_eosParameters.eosB0, 0);
}

}  // namespace
