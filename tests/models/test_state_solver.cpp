#include "models/state_solver.h"

#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "models/saturation.h"
#include "models/virial.h"
#include "support/fluids.h"
#include "support/session_test.h"

namespace {

using constants::R;
using Declare::substance;

class StateSolver : public SessionTest {
  protected:
    static void activate(const std::string& name, std::int16_t code, bool onlyV = false) {
        substance = fluids::Row(name);
        Declare::models.EOSModel = code;
        Declare::models.EOSOnlyV = onlyV;
        Declare::models.VPModel = 4;
        Declare::models.VPCode = "WAG";
        ASSERT_EQ(Calc::CalcEOSParameters(code), kSuccess);
    }
};

TEST_F(StateSolver, EveryRootSatisfiesTheEquation) {
    double worst = 0;
    for (const std::string& name : fluids::AllNames()) {
        for (const std::int16_t code : std::initializer_list<std::int16_t>{2, 3, 4, 5, 6}) {
            activate(name, code);
            for (const double Tr : {0.3, 0.5, 0.7, 0.9, 1.0, 1.3, 3.0}) {
                for (const double pr : {1e-7, 1e-4, 0.01, 0.2, 0.9, 2.0, 20.0}) {
                    const double T = Tr * substance.Tcrit, p = pr * substance.pcrit;
                    Calc::EvalEOSAtT(T);
                    const Calc::CubicRoots roots = Calc::SolveCubic(T, p);
                    ASSERT_EQ(roots.status, kSuccess)
                        << name << " " << code << " " << Tr << " " << pr;
                    for (int i = 0; i < roots.count; ++i) {
                        const double v = roots.v[static_cast<std::size_t>(i)];
                        if (v <= Declare::eosState.eosB) continue;
                        // The error in p is that in v times the slope: compare it in v.
                        const Declare::EOSState& s = Declare::eosState;
                        const double x = v + s.eosC, y = v + s.eosD, w = v - s.eosB;
                        const double slope = -R * T / (w * w) + s.eosA * (x + y) / (x * x * y * y);
                        const double error =
                            std::fabs((Calc::cubic_pressure(s, T, v) - p) / slope / v);
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
    const double T = 0.25 * substance.Tcrit;
    Calc::EvalEOSAtT(T);
    const Calc::CubicRoots roots = Calc::SolveCubic(T, 1e-12);
    ASSERT_EQ(roots.count, 3);
    const Declare::EOSState& s = Declare::eosState;
    EXPECT_GT(roots.v[2] / s.eosB, 1e6);
    EXPECT_GT(roots.v[0], s.eosB);
    // On the liquid root the pressure is the difference of two large terms.
    const double repulsion = R * T / (roots.v[0] - s.eosB);
    EXPECT_NEAR(Calc::cubic_pressure(s, T, roots.v[0]), 0.0, 1e-9 * repulsion);
}

TEST_F(StateSolver, OfThreeRootsWithTwoBelowTheCovolumeTheLargestStays) {
    // (v - 1)(v - 2)(v - 10) with b = 5 stands for a cubic with roots without meaning.
    Declare::EOSState s;
    s.eosB = 5;
    s.eosC = s.eosD = 0;
    const double T = 1.0 / R, p = 1.0 / 8.0;  // q = 8 + 5 = 13 = 1 + 2 + 10
    s.eosA = 32.0 * p;  // c1 = a/p = 32 and c0 = -a b/p = -160 differ from -20
    const Calc::CubicRoots roots = Calc::solve_cubic(s, T, p);
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
    Calc::EvalEOSAtT(300);
    const double b = Declare::eosState.eosB;
    EXPECT_EQ(Calc::PressureFromTV(300, b).status, kFailure);
    EXPECT_EQ(Calc::PressureFromTV(300, b).p, 0);
    EXPECT_EQ(Calc::PressureFromTV(300, 1.01 * b).status, kSuccess);
}

TEST_F(StateSolver, AStateOnTheBoundaryHasBothPhases) {
    activate("Propane", 6);
    const Calc::Saturation sat = Calc::SaturationPressure(300);
    const Calc::StateTP s = Calc::SolveStateTP(300, sat.p);
    EXPECT_TRUE(s.hasL);
    EXPECT_TRUE(s.hasV);
    EXPECT_EQ(s.text, "3 V-solutions of the EOS");
    EXPECT_EQ(s.PhaseRegion, 0);
    EXPECT_TRUE(Calc::SolveStateTP(300, 0.9 * sat.p).hasV);
    EXPECT_FALSE(Calc::SolveStateTP(300, 0.9 * sat.p).hasL);
    EXPECT_TRUE(Calc::SolveStateTP(300, 1.1 * sat.p).hasL);
    EXPECT_FALSE(Calc::SolveStateTP(300, 1.1 * sat.p).hasV);
}

TEST_F(StateSolver, RegionsFollowTheCriticalPoint) {
    activate("Propane", 6);
    const double Tc = substance.Tcrit, pc = substance.pcrit;
    EXPECT_EQ(Calc::SolveStateTP(0.7 * Tc, 0.5 * pc).PhaseRegion, 0);
    EXPECT_EQ(Calc::SolveStateTP(0.7 * Tc, 2 * pc).PhaseRegion, 1);
    EXPECT_EQ(Calc::SolveStateTP(2 * Tc, 2 * pc).PhaseRegion, 2);
    EXPECT_EQ(Calc::SolveStateTP(2 * Tc, 0.2 * pc).PhaseRegion, 3);
    const Calc::StateTP critical = Calc::SolveStateTP(Tc, pc);
    EXPECT_TRUE(critical.hasL && critical.hasV);
    EXPECT_TRUE(critical.PhaseRegion == 0 || critical.PhaseRegion == 4);
    const Calc::StateTP dense = Calc::SolveStateTP(2 * Tc, 2 * pc);
    EXPECT_EQ(dense.text, "One solution of the EOS;supercritical");
    EXPECT_TRUE(dense.hasL && dense.hasV);
    EXPECT_EQ(dense.rhoL, dense.rhoV);
}

TEST_F(StateSolver, ThreeRootsAboveTheCriticalTemperatureCountAsVapour) {
    // A substance whose Tcrit is understated sees a subcritical loop above it.
    activate("Propane", 6);
    substance.Tcrit = 280;
    Declare::eosParameters.eosNA = 0;
    const Calc::StateTP s = Calc::SolveStateTP(290, 700);
    ASSERT_EQ(s.nRoots, 3);
    if (std::fabs(s.areaRatio) >= 0.001) {
        EXPECT_TRUE(s.hasV);
        EXPECT_FALSE(s.hasL);
    }
}

TEST_F(StateSolver, AVOnlyStateFollowsTheVirialEquation) {
    activate("Nitrogen", 16, true);
    Declare::PhaseRegion = 3;
    const Calc::StateTP s = Calc::SolveStateTP(300, 1000);
    const double B = Calc::SecondVirial(16, 300);
    EXPECT_DOUBLE_EQ(s.vV, R * 300 / 1000 + B);
    EXPECT_EQ(s.text, "EOS for the V-phase only!");
    EXPECT_TRUE(s.hasV);
    EXPECT_FALSE(s.hasL);
    EXPECT_EQ(s.PhaseRegion, 3) << "the region stays as it was";
}

TEST_F(StateSolver, AVOnlyVolumeBelowZeroIsAFailure) {
    activate("Propane", 16, true);
    const Calc::StateTP s = Calc::SolveStateTP(200, 5000);
    EXPECT_EQ(s.status, kFailure);
    EXPECT_FALSE(s.hasV);
    EXPECT_EQ(s.rhoV, 0);
    EXPECT_EQ(Calc::PressureFromTV(200, -0.01).status, kFailure);
}

TEST_F(StateSolver, ZeroPressureAndTemperatureAreFailures) {
    activate("Propane", 6);
    EXPECT_EQ(Calc::SolveStateTP(300, 0).status, kFailure);
    EXPECT_EQ(Calc::SolveStateTP(0, 100).status, kFailure);
    EXPECT_EQ(Calc::SolveStateTP(300, -5).status, kFailure);
}

TEST_F(StateSolver, TemperatureIsTheInverseOfPressureInOnePhase) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{2, 3, 4, 5, 6}) {
        activate("Ammonia", code);
        for (const double T : {450.0, 600.0, 900.0}) {
            for (const double v : {0.15, 0.5, 3.0}) {
                Calc::EvalEOSAtT(T);
                const double p = Calc::PressureFromTV(T, v).p;
                const Calc::TemperatureResult r =
                    Calc::TemperatureFromPRho(p, static_cast<double>(substance.M) / v, false);
                EXPECT_NEAR(r.T, T, 2e-5 * T) << code << " " << T << " " << v;
            }
        }
    }
}

TEST_F(StateSolver, InsideTheDomeTheTemperatureIsThatOfSaturation) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{2, 4, 6}) {
        activate("Propane", code);
        for (const double pr : {0.001, 0.1, 0.6, 0.7, 0.95}) {
            const double p = pr * substance.pcrit;
            const Calc::Saturation sat = Calc::SaturationTemperature(p);
            const double v = 0.5 * (sat.v[0] + sat.v[2]);
            const Calc::TemperatureResult r =
                Calc::TemperatureFromPRho(p, static_cast<double>(substance.M) / v, false);
            EXPECT_NEAR(r.T, sat.T, 1e-4 * sat.T) << code << " " << pr;
            const Calc::TemperatureResult single =
                Calc::TemperatureFromPRho(p, static_cast<double>(substance.M) / v, true);
            EXPECT_NE(single.T, r.T);
        }
    }
}

TEST_F(StateSolver, ADensityBeyondTheCovolumeHasNoTemperature) {
    activate("Propane", 3);
    EXPECT_EQ(Calc::TemperatureFromPRho(212.56, 551.2, false).T, 0);
    EXPECT_EQ(Calc::TemperatureFromPRho(0, 500, false).status, kFailure);
    EXPECT_EQ(Calc::TemperatureFromPRho(100, 0, false).status, kFailure);
}

TEST_F(StateSolver, TemperatureNeedsNoBoilingPoint) {
    activate("Propane", 6);
    substance.Tboil = 0;
    Calc::EvalEOSAtT(350);
    const double v = 2.5;
    const double p = Calc::PressureFromTV(350, v).p;
    EXPECT_NEAR(Calc::TemperatureFromPRho(p, static_cast<double>(substance.M) / v, false).T, 350,
                0.01);
}

TEST_F(StateSolver, AVOnlyTemperatureIsFoundByIteration) {
    activate("Nitrogen", 13, true);
    const double v = 1.2, T = 320;
    const double p = R * T / (v - Calc::SecondVirial(13, T));
    EXPECT_NEAR(Calc::TemperatureFromPRho(p, static_cast<double>(substance.M) / v, false).T, T,
                0.01);
}

TEST_F(StateSolver, EqualAreaRatioChangesSignAtTheMaxwellPressure) {
    activate("Propane", 2);
    const Calc::Saturation sat = Calc::SaturationPressure(300);
    Calc::EvalEOSAtT(300);
    Calc::SolveCubic(300, 0.95 * sat.p);
    EXPECT_GT(Calc::AreaRatio(300, 0.95 * sat.p).ratio, 0);
    Calc::SolveCubic(300, 1.05 * sat.p);
    EXPECT_LT(Calc::AreaRatio(300, 1.05 * sat.p).ratio, 0);
}

// ---- constants of the equations

TEST_F(StateSolver, VanDerWaalsConstantsAtTheCriticalPoint) {
    activate("Propane", 2);
    Calc::EvalEOSAtT(substance.Tcrit);
    const double Rp = R * substance.Tcrit / substance.pcrit;
    EXPECT_DOUBLE_EQ(Declare::eosState.eosA,
                     27.0 / 64.0 * R * R * substance.Tcrit * substance.Tcrit / substance.pcrit);
    EXPECT_DOUBLE_EQ(Declare::eosState.eosB, Rp / 8);
    activate("Propane", 3);
    Calc::EvalEOSAtT(substance.Tcrit);
    EXPECT_NEAR(Declare::eosState.eosA,
                27.0 / 64.0 * R * R * substance.Tcrit * substance.Tcrit / substance.pcrit, 1e-10);
}

TEST_F(StateSolver, CriticalPointIsAnInflexionOfTheCriticalIsotherm) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{2, 3, 4, 5}) {
        activate("Propane", code);
        Calc::EvalEOSAtT(substance.Tcrit);
        const double v = Declare::eosParameters.vcritCalc, h = 1e-4 * v;
        const auto p = [&](double x) {
            return Calc::cubic_pressure(Declare::eosState, substance.Tcrit, x);
        };
        EXPECT_NEAR(p(v), substance.pcrit, 1e-9 * substance.pcrit) << code;
        EXPECT_NEAR((p(v + h) - p(v - h)) / (2 * h) * v / substance.pcrit, 0, 1e-6) << code;
    }
}

TEST_F(StateSolver, SoaveFactorWithoutAcentricFactorIs048) {
    substance = fluids::Row("Propane");
    substance.omega = 0;
    Declare::models.EOSModel = 5;
    Calc::CalcEOSParameters(5);
    EXPECT_EQ(Declare::eosParameters.eosNA, 0.48);
}

TEST_F(StateSolver, EvaluationAtZeroKelvinKeepsTheLastValues) {
    activate("Propane", 6);
    Calc::EvalEOSAtT(300);
    const double a = Declare::eosState.eosA;
    Calc::EvalEOSAtT(0);
    EXPECT_EQ(Declare::eosState.eosA, a);
}

TEST_F(StateSolver, AVOnlyModelHasConstantsButNoCriticalVolume) {
    for (const std::int16_t code : std::initializer_list<std::int16_t>{11, 12, 13, 14, 15}) {
        activate("Propane", code, true);
        EXPECT_GT(Declare::eosParameters.eosA0, 0);
        EXPECT_EQ(Declare::eosParameters.vcritCalc, 0);
        EXPECT_EQ(Declare::eosParameters.rhocritCalc, 0);
    }
}

TEST_F(StateSolver, MissingCriticalDataGiveStatusOneAndNoConstants) {
    substance = fluids::Row("Propane");
    substance.pcrit = 0;
    Declare::models.EOSModel = 6;
    EXPECT_EQ(Calc::CalcEOSParameters(6), 1);
    EXPECT_EQ(Declare::eosParameters.eosA0, 0);
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(StateSolver, ManualVirialCoefficientsSurviveOnlyTheNeutralCode) {
    Declare::eosParameters.eosB0 = 0.1;
    Calc::CalcEOSParameters(1);
    EXPECT_EQ(Declare::eosParameters.eosB0, 0.1);
    Calc::CalcEOSParameters(10);
    EXPECT_EQ(Declare::eosParameters.eosB0, 0);
}

}  // namespace
