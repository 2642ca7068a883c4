#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "models/maxwell.h"
#include "models/model_tables.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "support/allocation_counter.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using constants::R;

/// ln of the fugacity coefficient of the general cubic form at T, p on a root v.
double ln_phi(const models::EosState& s, double T, double p, double v) {
    const double b = s.b, c = s.c, d = s.d;
    const double repulsion = std::log(R * T / p / (v - b)) + b / (v - b);
    if (c == d) return repulsion - s.a / (R * T) * (2 * v + c) / ((v + c) * (v + c));
    return repulsion +
           s.a / (R * T) / (c - d) * (std::log((v + d) / (v + c)) - c / (v + c) + d / (v + d));
}

using models::Eos;

constexpr Eos kTwoParameters[] = {Eos::vanDerWaals, Eos::berthelot, Eos::redlichKwong, Eos::soave,
                                  Eos::pengRobinson};

/// A fluid with the Wagner or Frost equation as start where it has one.
models::Fluid fluid_of(const models::SubstanceRecord& s, Eos eos) {
    using enum models::VapourPressureEquation;
    models::ModelSelection m;
    m.eos = eos;
    m.vapour_pressure = s.wagner.T_low > 0  ? wagner
                        : s.frost.T_low > 0 ? frostKalkwarf
                                            : models::VapourPressureEquation::none;
    return fluids::fluid(s, m);
}

/// Calls `test` for every substance of the table with every equation that its data allow.
void for_all(const std::function<void(const models::Fluid&, const std::string&)>& test) {
    for (const std::string& name : fluids::AllNames()) {
        const models::SubstanceRecord s = fluids::Row(name);
        for (const Eos eos : kTwoParameters)
            if (s.omega != 0 || !models::equation_of(eos).needs_omega)
                test(fluid_of(s, eos), name + ", " + std::string(models::eos_name(eos)));
    }
}

TEST(Saturation, FugacitiesAreEqualForEveryCubicModel) {
    double worst = 0;
    std::string where;
    int states = 0, fallbacks = 0;
    for_all([&](const models::Fluid& fluid, const std::string& name) {
        for (const double Tr : {0.45, 0.5, 0.6, 0.7, 0.8, 0.9, 0.95, 0.99, 0.999}) {
            const double T = Tr * fluid.substance().Tcrit;
            const auto sat = models::saturation_pressure(fluid, T);
            ASSERT_TRUE(sat) << name << " " << Tr;
            ASSERT_EQ(sat->root_count, 3);
            ++states;
            fallbacks += sat->fallback;
            const double difference = std::fabs(ln_phi(sat->state, T, sat->p, sat->v[2]) -
                                                ln_phi(sat->state, T, sat->p, sat->v[0]));
            if (difference > worst) {
                worst = difference;
                where = name + " Tr " + std::to_string(Tr);
            }
        }
    });
    RecordProperty("states", states);
    RecordProperty("fallbacks", fallbacks);
    std::printf(
        "%d states, %d by the bracketed search, largest |ln phi(V) - ln phi(L)| %.2g (%s)\n",
        states, fallbacks, worst, where.c_str());
    // The tolerance of the area ratio, 1E-5, times the areas of some R T.
    EXPECT_LT(worst, 2e-4) << where;
}

TEST(Saturation, PressureIsFoundFromTr02UpToTheCriticalPoint) {
    int states = 0, fallbacks = 0, failures = 0;
    for_all([&](const models::Fluid& fluid, const std::string& name) {
        double last = 0;
        for (const double Tr : {0.2,  0.22, 0.25,  0.3,   0.35,   0.4,    0.45,    0.5,    0.55,
                                0.6,  0.65, 0.7,   0.75,  0.8,    0.85,   0.9,     0.93,   0.96,
                                0.98, 0.99, 0.995, 0.999, 0.9995, 0.9999, 0.99995, 0.99999}) {
            const double T = Tr * fluid.substance().Tcrit;
            const auto sat = models::saturation_pressure(fluid, T);
            ++states;
            fallbacks += sat->fallback;
            const bool good = sat && sat->p > last && sat->p <= fluid.substance().pcrit * 1.0001 &&
                              std::isfinite(sat->v[0]) && std::isfinite(sat->v[2]);
            if (!good) {
                ++failures;
                ADD_FAILURE() << name << " Tr " << Tr << " p " << sat->p << " after " << last
                              << " status " << (sat ? 0 : -1) << " fallback " << sat->fallback;
            }
            last = sat->p;
        }
    });
    std::printf("%d states, %d by the bracketed search, %d failures\n", states, fallbacks,
                failures);
    EXPECT_EQ(failures, 0);
}

TEST(Saturation, TemperatureIsFoundFromTinyPressuresUpToTheCriticalPoint) {
    int states = 0, fallbacks = 0, failures = 0;
    for_all([&](const models::Fluid& fluid, const std::string& name) {
        double last = 0;
        for (const double pr : {1e-9,   1e-8, 1e-7, 1e-6, 1e-5, 1e-4,  1e-3,   5e-3,   0.0199,
                                0.0201, 0.03, 0.05, 0.1,  0.2,  0.3,   0.4,    0.5,    0.6,
                                0.7,    0.8,  0.9,  0.95, 0.99, 0.999, 0.9999, 0.99999}) {
            const double p = pr * fluid.substance().pcrit;
            const auto sat = models::saturation_temperature(fluid, p);
            ++states;
            fallbacks += sat->fallback;
            if (!(sat && sat->T > last && sat->T <= fluid.substance().Tcrit * 1.0001)) {
                ++failures;
                ADD_FAILURE() << name << " pr " << pr << " T " << sat->T << " after " << last
                              << " status " << (sat ? 0 : -1) << " fallback " << sat->fallback;
            }
            last = sat->T;
        }
    });
    std::printf("%d states, %d by the bracketed search, %d failures\n", states, fallbacks,
                failures);
    EXPECT_EQ(failures, 0);
}

TEST(Saturation, TemperatureOfThePressureIsTheTemperatureAgain) {
    double worst = 0;  // as a share of what the tolerances permit
    std::string where;
    for_all([&](const models::Fluid& fluid, const std::string& name) {
        for (const double Tr : {0.4, 0.5, 0.55, 0.6, 0.7, 0.8, 0.9, 0.95, 0.99}) {
            const double T = Tr * fluid.substance().Tcrit;
            const auto there = models::saturation_pressure(fluid, T);
            const auto back = models::saturation_temperature(fluid, there->p);
            ASSERT_TRUE(back);
            // An area ratio of 0.0002 is a shift in T by that share of the areas over the
            // entropy of vaporisation; the marching search stops at a step of 0.0005 K, a tenth
            // of the one before.
            const double dT = 1e-4 * T;
            const double dpdT = (models::maxwell_pressure(fluid, T)->p -
                                 models::maxwell_pressure(fluid, T - dT)->p) /
                                dT;
            const double permitted =
                0.0002 * (back->areas.V - back->areas.L) / ((back->v[2] - back->v[0]) * dpdT) +
                0.006;
            const double difference = std::fabs(back->T - T) / permitted;
            if (difference > worst) {
                worst = difference;
                where = name + " Tr " + std::to_string(Tr);
            }
        }
    });
    std::printf("largest difference: %.3g of the tolerance (%s)\n", worst, where.c_str());
    EXPECT_LT(worst, 1.0) << where;
}

TEST(Saturation, BracketedSearchAgreesWithTheSecantSearch) {
    for (const Eos eos : kTwoParameters) {
        const models::Fluid fluid = fluid_of(fluids::Row("Propane"), eos);
        for (const double Tr : {0.5, 0.7, 0.9, 0.99}) {
            const double T = Tr * fluid.substance().Tcrit;
            const auto secant = models::search_saturation_pressure(fluid, T);
            const auto exact = models::maxwell_pressure(fluid, T);
            ASSERT_TRUE(secant);
            EXPECT_NEAR(secant->p, exact->p, 5e-5 * exact->p) << models::eos_name(eos) << " " << Tr;
            EXPECT_NEAR(ln_phi(exact->state, T, exact->p, exact->v[0]),
                        ln_phi(exact->state, T, exact->p, exact->v[2]), 1e-11);
        }
    }
}

TEST(Saturation, BracketedSearchServesTheJiTorvikForms) {
    for (const Eos eos : {Eos::jiTorvik1, Eos::jiTorvik2}) {
        const models::Fluid fluid = fluids::fluid(fluids::ReferencePropane(), eos);
        for (const double Tr : {0.3, 0.5, 0.7, 0.9, 0.99, 0.9999}) {
            const double T = Tr * 369.89;
            const auto s = models::maxwell_pressure(fluid, T);
            ASSERT_TRUE(s);
            EXPECT_NEAR(ln_phi(s->state, T, s->p, s->v[0]), ln_phi(s->state, T, s->p, s->v[2]),
                        1e-9)
                << models::eos_name(eos) << " " << Tr;
        }
    }
}

TEST(Saturation, AtTheCriticalTemperatureThePressureIsCritical) {
    const models::Fluid fluid = fluid_of(fluids::Row("Propane"), Eos::pengRobinson);
    const auto s = models::saturation_pressure(fluid, fluid.substance().Tcrit);
    EXPECT_EQ(s->p, fluid.substance().pcrit);
    EXPECT_EQ(s->root_count, 3);
    EXPECT_DOUBLE_EQ(s->v[0], 1 / fluid.eos().rhocrit_calculated);
    EXPECT_EQ(models::saturation_temperature(fluid, fluid.substance().pcrit)->T,
              fluid.substance().Tcrit);
    EXPECT_FALSE(models::saturation_temperature(fluid, fluid.substance().pcrit * 1.01));
    EXPECT_FALSE(models::saturation_pressure(fluid, fluid.substance().Tcrit * 1.01));
}

TEST(Saturation, AVOnlyEquationHasNoEquilibrium) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::pitzerCurl);
    EXPECT_FALSE(models::saturation_pressure(fluid, 300));
    EXPECT_FALSE(models::saturation_temperature(fluid, 900));
}

TEST(Saturation, WithoutAnEquationTheSearchStartsFromTheSimpleEstimate) {
    const models::Fluid fluid = fluid_of(fluids::Row("Ozone"), Eos::redlichKwong);
    ASSERT_EQ(fluid.models().vapour_pressure, models::VapourPressureEquation::none);
    const auto s = models::saturation_pressure(fluid, 0.8 * fluid.substance().Tcrit);
    EXPECT_TRUE(s);
}

TEST(Saturation, SearchesDoNotAllocate) {
    const models::Fluid fluid = fluid_of(fluids::Row("Propane"), Eos::pengRobinson);
    const std::size_t before = AllocationCount();
    double sum = 0;
    for (int i = 0; i < 100; ++i) {
        sum += models::saturation_pressure(fluid, 200 + i)->p;
        sum += models::saturation_temperature(fluid, 100 + i)->T;
        sum += *models::solve_state_tp(fluid, 300, 900 + i)->vV;
        sum += *models::solve_state_tp(fluid, 400, 900 + i)->vV;
    }
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_GT(sum, 0);
}

}  // namespace
