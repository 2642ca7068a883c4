#include "models/state_solver.h"

#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/saturation.h"
#include "models/virial.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using constants::R;
using models::Eos;

constexpr Eos kTwoParameters[] = {Eos::vanDerWaals, Eos::berthelot, Eos::redlichKwong, Eos::soave,
                                  Eos::pengRobinson};

/// A row of the table with the Wagner equation.
models::Fluid fluid_of(const models::SubstanceRecord& s, Eos eos) {
    models::ModelSelection m;
    m.eos = eos;
    m.vapour_pressure = models::VapourPressureEquation::wagner;
    return fluids::fluid(s, m);
}
models::Fluid fluid_of(const std::string& name, Eos eos) {
    return fluid_of(fluids::Row(name), eos);
}

double mass_of(const models::Fluid& fluid) {
    return static_cast<double>(fluid.substance().M);
}

TEST(StateSolver, EveryRootSatisfiesTheEquation) {
    double worst = 0;
    for (const std::string& name : fluids::AllNames()) {
        for (const Eos eos : kTwoParameters) {
            const models::Fluid fluid = fluid_of(name, eos);
            for (const double Tr : {0.3, 0.5, 0.7, 0.9, 1.0, 1.3, 3.0}) {
                for (const double pr : {1e-7, 1e-4, 0.01, 0.2, 0.9, 2.0, 20.0}) {
                    const double T = Tr * fluid.substance().Tcrit, p = pr * fluid.substance().pcrit;
                    const models::EosState s = models::eos_at(fluid, T);
                    const auto roots = models::solve_cubic(s, T, p);
                    ASSERT_TRUE(roots)
                        << name << " " << models::eos_name(eos) << " " << Tr << " " << pr;
                    for (int i = 0; i < roots->count; ++i) {
                        const double v = roots->v[static_cast<std::size_t>(i)];
                        if (v <= s.b) continue;
                        // The error in p is that in v times the slope: compare it in v.
                        const double x = v + s.c, y = v + s.d, w = v - s.b;
                        const double slope = -R * T / (w * w) + s.a * (x + y) / (x * x * y * y);
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

TEST(StateSolver, NoRootIsLostWhereVapourIsABillionTimesThinnerThanLiquid) {
    const models::Fluid fluid = fluid_of("n-Dodecane", Eos::pengRobinson);
    const double T = 0.25 * fluid.substance().Tcrit;
    const models::EosState s = models::eos_at(fluid, T);
    const auto roots = models::solve_cubic(s, T, 1e-12);
    ASSERT_EQ(roots->count, 3);
    EXPECT_GT(roots->v[2] / s.b, 1e6);
    EXPECT_GT(roots->v[0], s.b);
    // On the liquid root the pressure is the difference of two large terms.
    const double repulsion = R * T / (roots->v[0] - s.b);
    EXPECT_NEAR(models::cubic_pressure(s, T, roots->v[0]), 0.0, 1e-9 * repulsion);
}

TEST(StateSolver, OfThreeRootsWithTwoBelowTheCovolumeTheLargestStays) {
    // (v - 1)(v - 2)(v - 10) with b = 5 stands for a cubic with roots without meaning.
    models::EosState s;
    s.b = 5;
    s.c = s.d = 0;
    const double T = 1.0 / R, p = 1.0 / 8.0;  // q = 8 + 5 = 13 = 1 + 2 + 10
    s.a = 32.0 * p;  // c1 = a/p = 32 and c0 = -a b/p = -160 differ from -20
    const auto roots = models::solve_cubic(s, T, p);
    ASSERT_TRUE(roots);
    // Whatever the roots are: those below b do not count as a single one.
    if (roots->count == 1) {
        EXPECT_GT(roots->v[0], s.b);
    } else {
        EXPECT_GE(roots->v[1], s.b);
    }
}

TEST(StateSolver, PressureOfAVolumeAtTheCovolumeFails) {
    const models::Fluid fluid = fluid_of("Carbon dioxide", Eos::pengRobinson);
    const double b = models::eos_at(fluid, 300).b;
    EXPECT_FALSE(models::pressure_from_Tv(fluid, 300, b));
    EXPECT_TRUE(models::pressure_from_Tv(fluid, 300, 1.01 * b));
}

TEST(StateSolver, PressureDoesNotDependOnTheTemperatureComputedBefore) {
    // The covolume of the second form of Ji and Torvik shrinks away from Tcrit.
    const models::Fluid fluid = fluids::fluid("Propane", Eos::jiTorvik2);
    const double Tc = fluid.substance().Tcrit;
    models::EosState cold = models::eos_at(fluid, 0.4 * Tc);
    models::EosState critical = models::eos_at(fluid, Tc);
    const double between = 0.5 * (cold.b + critical.b);
    ASSERT_LT(cold.b, between);
    EXPECT_TRUE(models::pressure_from_Tv(fluid, 0.4 * Tc, between, critical));
    EXPECT_FALSE(models::pressure_from_Tv(fluid, Tc, between, cold));
    EXPECT_FALSE(models::pressure_from_Tv(fluid, Tc, between));
}

TEST(StateSolver, AStateOnTheBoundaryHasBothPhases) {
    const models::Fluid fluid = fluid_of("Propane", Eos::pengRobinson);
    const auto sat = models::saturation_pressure(fluid, 300);
    const auto s = models::solve_state_tp(fluid, 300, sat->p);
    EXPECT_TRUE(s->has_L);
    EXPECT_TRUE(s->has_V);
    EXPECT_EQ(s->text, "3 V-solutions of the EOS");
    EXPECT_EQ(s->region, 0);
    EXPECT_TRUE(models::solve_state_tp(fluid, 300, 0.9 * sat->p)->has_V);
    EXPECT_FALSE(models::solve_state_tp(fluid, 300, 0.9 * sat->p)->has_L);
    EXPECT_TRUE(models::solve_state_tp(fluid, 300, 1.1 * sat->p)->has_L);
    EXPECT_FALSE(models::solve_state_tp(fluid, 300, 1.1 * sat->p)->has_V);
}

TEST(StateSolver, RegionsFollowTheCriticalPoint) {
    const models::Fluid fluid = fluid_of("Propane", Eos::pengRobinson);
    const double Tc = fluid.substance().Tcrit, pc = fluid.substance().pcrit;
    EXPECT_EQ(models::solve_state_tp(fluid, 0.7 * Tc, 0.5 * pc)->region, 0);
    EXPECT_EQ(models::solve_state_tp(fluid, 0.7 * Tc, 2 * pc)->region, 1);
    EXPECT_EQ(models::solve_state_tp(fluid, 2 * Tc, 2 * pc)->region, 2);
    EXPECT_EQ(models::solve_state_tp(fluid, 2 * Tc, 0.2 * pc)->region, 3);
    const auto critical = models::solve_state_tp(fluid, Tc, pc);
    EXPECT_TRUE(critical->has_L && critical->has_V);
    EXPECT_TRUE(critical->region == 0 || critical->region == 4);
    const auto dense = models::solve_state_tp(fluid, 2 * Tc, 2 * pc);
    EXPECT_EQ(dense->text, "One solution of the EOS;supercritical");
    EXPECT_TRUE(dense->has_L && dense->has_V);
    EXPECT_EQ(*dense->rhoL, *dense->rhoV);
}

TEST(StateSolver, ThreeRootsAboveTheCriticalTemperatureCountAsVapour) {
    // A substance whose Tcrit is understated sees a subcritical loop above it.
    const models::Fluid propane = fluid_of("Propane", Eos::pengRobinson);
    models::SubstanceRecord understated = propane.substance();
    understated.Tcrit = 280;
    models::EosParameters constants = propane.eos();
    constants.na = 0;
    const models::Fluid fluid(understated, propane.models(), constants, {});
    const auto s = models::solve_state_tp(fluid, 290, 700);
    ASSERT_EQ(s->root_count, 3);
    if (std::fabs(s->areas.ratio) >= 0.001) {
        EXPECT_TRUE(s->has_V);
        EXPECT_FALSE(s->has_L);
    }
}

TEST(StateSolver, AVOnlyStateFollowsTheVirialEquation) {
    const models::Fluid fluid = fluid_of("Nitrogen", Eos::pitzerCurl);
    const auto s = models::solve_state_tp(fluid, 300, 1000, 3);
    EXPECT_DOUBLE_EQ(*s->vV, R * 300 / 1000 + models::second_virial(fluid, 300));
    EXPECT_EQ(s->text, "EOS for the V-phase only!");
    EXPECT_TRUE(s->has_V);
    EXPECT_FALSE(s->has_L);
    EXPECT_EQ(s->region, 3) << "the region stays as it was";
}

TEST(StateSolver, AVOnlyVolumeBelowZeroIsAFailure) {
    const models::Fluid fluid = fluid_of("Propane", Eos::pitzerCurl);
    const auto s = models::solve_state_tp(fluid, 200, 5000);
    ASSERT_FALSE(s);
    EXPECT_EQ(s.failure().text, "EOS for the V-phase only!");
    EXPECT_FALSE(models::pressure_from_Tv(fluid, 200, -0.01));
}

TEST(StateSolver, ZeroPressureAndTemperatureAreFailures) {
    const models::Fluid fluid = fluid_of("Propane", Eos::pengRobinson);
    EXPECT_FALSE(models::solve_state_tp(fluid, 300, 0));
    EXPECT_FALSE(models::solve_state_tp(fluid, 0, 100));
    EXPECT_FALSE(models::solve_state_tp(fluid, 300, -5));
}

TEST(StateSolver, TemperatureIsTheInverseOfPressureInOnePhase) {
    for (const Eos eos : kTwoParameters) {
        const models::Fluid fluid = fluid_of("Ammonia", eos);
        for (const double T : {450.0, 600.0, 900.0}) {
            for (const double v : {0.15, 0.5, 3.0}) {
                const double p = models::pressure_from_Tv(fluid, T, v).value();
                const auto r = models::temperature_from_p_rho(fluid, p, mass_of(fluid) / v, false);
                EXPECT_NEAR(*r, T, 2e-5 * T) << models::eos_name(eos) << " " << T << " " << v;
            }
        }
    }
}

TEST(StateSolver, InsideTheDomeTheTemperatureIsThatOfSaturation) {
    for (const Eos eos : {Eos::vanDerWaals, Eos::redlichKwong, Eos::pengRobinson}) {
        const models::Fluid fluid = fluid_of("Propane", eos);
        for (const double pr : {0.001, 0.1, 0.6, 0.7, 0.95}) {
            const double p = pr * fluid.substance().pcrit;
            const auto sat = models::saturation_temperature(fluid, p);
            const double rho = mass_of(fluid) / (0.5 * (sat->v[0] + sat->v[2]));
            const auto r = models::temperature_from_p_rho(fluid, p, rho, false);
            EXPECT_NEAR(*r, sat->T, 1e-4 * sat->T) << models::eos_name(eos) << " " << pr;
            const auto single = models::temperature_from_p_rho(fluid, p, rho, true);
            EXPECT_NE(*single, *r);
        }
    }
}

TEST(StateSolver, ADensityBeyondTheCovolumeHasNoTemperature) {
    const models::Fluid fluid = fluid_of("Propane", Eos::berthelot);
    EXPECT_FALSE(models::temperature_from_p_rho(fluid, 212.56, 551.2, false));
    EXPECT_FALSE(models::temperature_from_p_rho(fluid, 0, 500, false));
    EXPECT_FALSE(models::temperature_from_p_rho(fluid, 100, 0, false));
}

TEST(StateSolver, TemperatureNeedsNoBoilingPoint) {
    models::SubstanceRecord propane = fluids::Row("Propane");
    propane.Tboil = 0;
    const models::Fluid fluid = fluid_of(propane, Eos::pengRobinson);
    const double v = 2.5;
    const double p = models::pressure_from_Tv(fluid, 350, v).value();
    EXPECT_NEAR(models::temperature_from_p_rho(fluid, p, mass_of(fluid) / v, false).value(), 350,
                0.01);
}

TEST(StateSolver, AVOnlyTemperatureIsFoundByIteration) {
    const models::Fluid fluid = fluid_of("Nitrogen", Eos::virialRedlichKwong);
    const double v = 1.2, T = 320;
    const double p = R * T / (v - models::second_virial(fluid, T));
    EXPECT_NEAR(models::temperature_from_p_rho(fluid, p, mass_of(fluid) / v, false).value(), T,
                0.01);
}

TEST(StateSolver, EqualAreaRatioChangesSignAtTheMaxwellPressure) {
    const models::Fluid fluid = fluid_of("Propane", Eos::vanDerWaals);
    const double sat = models::saturation_pressure(fluid, 300)->p;
    const models::EosState s = models::eos_at(fluid, 300);
    const auto ratio = [&](double p) {
        return models::area_ratio(s, models::solve_cubic(s, 300, p)->v, 300, p)->ratio;
    };
    EXPECT_GT(ratio(0.95 * sat), 0);
    EXPECT_LT(ratio(1.05 * sat), 0);
}

// ---- constants of the equations

TEST(StateSolver, VanDerWaalsConstantsAtTheCriticalPoint) {
    const models::SubstanceRecord propane = fluids::Row("Propane");
    const double Tc = propane.Tcrit, pc = propane.pcrit;
    const models::EosState vdw = models::eos_at(fluid_of(propane, Eos::vanDerWaals), Tc);
    EXPECT_DOUBLE_EQ(vdw.a, 27.0 / 64.0 * R * R * Tc * Tc / pc);
    EXPECT_DOUBLE_EQ(vdw.b, R * Tc / pc / 8);
    const models::EosState berthelot = models::eos_at(fluid_of(propane, Eos::berthelot), Tc);
    EXPECT_NEAR(berthelot.a, 27.0 / 64.0 * R * R * Tc * Tc / pc, 1e-10);
}

TEST(StateSolver, CriticalPointIsAnInflexionOfTheCriticalIsotherm) {
    for (const Eos eos : {Eos::vanDerWaals, Eos::berthelot, Eos::redlichKwong, Eos::soave}) {
        const models::Fluid fluid = fluid_of("Propane", eos);
        const double Tc = fluid.substance().Tcrit, pc = fluid.substance().pcrit;
        const models::EosState s = models::eos_at(fluid, Tc);
        const double v = fluid.eos().vcrit_calculated, h = 1e-4 * v;
        const auto p = [&](double x) { return models::cubic_pressure(s, Tc, x); };
        EXPECT_NEAR(p(v), pc, 1e-9 * pc) << models::eos_name(eos);
        EXPECT_NEAR((p(v + h) - p(v - h)) / (2 * h) * v / pc, 0, 1e-6) << models::eos_name(eos);
    }
}

TEST(StateSolver, SoaveFactorWithoutAcentricFactorIs048) {
    models::SubstanceRecord propane = fluids::Row("Propane");
    propane.omega = 0;
    EXPECT_EQ(fluid_of(propane, Eos::soave).eos().na, 0.48);
}

TEST(StateSolver, EvaluationAtZeroKelvinGivesTheStateBefore) {
    const models::Fluid fluid = fluid_of("Propane", Eos::pengRobinson);
    const models::EosState at300 = models::eos_at(fluid, 300);
    EXPECT_EQ(models::eos_at(fluid, 0, at300).a, at300.a);
    EXPECT_EQ(models::eos_at(fluid, 0).a, 0);
}

TEST(StateSolver, AVOnlyModelHasConstantsButNoCriticalVolume) {
    for (const Eos eos : {Eos::virialVanDerWaals, Eos::virialBerthelot, Eos::virialRedlichKwong,
                          Eos::virialSoave, Eos::virialPengRobinson}) {
        const models::Fluid fluid = fluid_of("Propane", eos);
        EXPECT_GT(fluid.eos().a0, 0);
        EXPECT_EQ(fluid.eos().vcrit_calculated, 0);
        EXPECT_EQ(fluid.eos().rhocrit_calculated, 0);
    }
}

TEST(StateSolver, MissingCriticalDataGiveAReasonAndNoFluid) {
    models::SubstanceRecord propane = fluids::Row("Propane");
    propane.pcrit = 0;
    const Result<models::Fluid> made =
        models::Fluid::make(propane, fluids::selection(propane, Eos::pengRobinson));
    ASSERT_FALSE(made);
    EXPECT_EQ(made.reason(), "Division by zero");
}

TEST(StateSolver, ManualVirialCoefficientsSurviveAnotherEquation) {
    const models::Fluid manual = fluids::fluid("Propane", Eos::manualVirial);
    ASSERT_EQ(manual.eos().b0, 0.2);
    const models::Fluid cubic = manual.with(Eos::pengRobinson).value();
    EXPECT_NE(cubic.eos().b0, 0.2);
    EXPECT_EQ(cubic.with(Eos::manualVirial).value().eos(), manual.eos());
}

}  // namespace
