#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "legacy/current_fluid.h"
#include "legacy/wrappers.h"
#include "models/cubic_eos.h"
#include "models/maxwell.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "support/allocation_counter.h"
#include "support/codes.h"
#include "support/fluids.h"
#include "support/reference_cases.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using constants::R;

/// ln of the fugacity coefficient of the general cubic form at T, p on a root v.
double ln_phi(const models::EOSState& s, double T, double p, double v) {
    const double b = s.eosB, c = s.eosC, d = s.eosD;
    const double repulsion = std::log(R * T / p / (v - b)) + b / (v - b);
    if (c == d) return repulsion - s.eosA / (R * T) * (2 * v + c) / ((v + c) * (v + c));
    return repulsion +
           s.eosA / (R * T) / (c - d) * (std::log((v + d) / (v + c)) - c / (v + c) + d / (v + d));
}

class Saturation : public SessionTest {
  protected:
    /// Makes a fluid and a model active, with the Wagner or Frost equation as start where it has
    /// one.
    static bool activate(const std::string& name, std::int16_t code) {
        models::SubstanceRecord& s = legacy::the_substance;
        s = fluids::Row(name);
        if (code >= 5 && s.omega == 0) return false;
        models::ModelSelection& m = legacy::the_models;
        m = {};
        m.EOSModel = codes::eos(code);
        m.VPModel = codes::vp(s.WAG.TLo > 0 ? 4 : s.FRO.TLo > 0 ? 3 : 0);
        m.VPModel = m.VPModel == 4 ? "WAG" : m.VPModel == 3 ? "FRO" : "000";
        return models::calc_eos_parameters(code) == kSuccess;
    }

    static constexpr std::int16_t kCubic[] = {2, 3, 4, 5, 6};
};

TEST_F(Saturation, FugacitiesAreEqualForEveryCubicModel) {
    double worst = 0;
    std::string where;
    int states = 0, fallbacks = 0;
    for (const std::string& name : fluids::AllNames()) {
        for (const std::int16_t code : kCubic) {
            if (!activate(name, code)) continue;
            for (const double Tr : {0.45, 0.5, 0.6, 0.7, 0.8, 0.9, 0.95, 0.99, 0.999}) {
                const double T = Tr * legacy::the_substance.Tcrit;
                const models::Saturation sat = models::SaturationPressure(T);
                ASSERT_EQ(sat.status, kSuccess) << name << " " << code << " " << Tr;
                ASSERT_EQ(sat.nRoots, 3);
                ++states;
                fallbacks += sat.fallback;
                const double difference = std::fabs(ln_phi(sat.state, T, sat.p, sat.v[2]) -
                                                    ln_phi(sat.state, T, sat.p, sat.v[0]));
                if (difference > worst) {
                    worst = difference;
                    where = name + " " + std::to_string(code) + " Tr " + std::to_string(Tr);
                }
            }
        }
    }
    RecordProperty("states", states);
    RecordProperty("fallbacks", fallbacks);
    std::printf(
        "%d states, %d by the bracketed search, largest |ln phi(V) - ln phi(L)| %.2g (%s)\n",
        states, fallbacks, worst, where.c_str());
    // The tolerance of the area ratio, 1E-5, times the areas of some R T.
    EXPECT_LT(worst, 2e-4) << where;
}

TEST_F(Saturation, PressureIsFoundFromTr02UpToTheCriticalPoint) {
    int states = 0, fallbacks = 0, failures = 0;
    for (const std::string& name : fluids::AllNames()) {
        for (const std::int16_t code : kCubic) {
            if (!activate(name, code)) continue;
            double last = 0;
            for (const double Tr : {0.2,  0.22, 0.25,  0.3,   0.35,   0.4,    0.45,    0.5,    0.55,
                                    0.6,  0.65, 0.7,   0.75,  0.8,    0.85,   0.9,     0.93,   0.96,
                                    0.98, 0.99, 0.995, 0.999, 0.9995, 0.9999, 0.99995, 0.99999}) {
                const double T = Tr * legacy::the_substance.Tcrit;
                const models::Saturation sat = models::SaturationPressure(T);
                ++states;
                fallbacks += sat.fallback;
                const bool good = sat.status == kSuccess && sat.p > last &&
                                  sat.p <= legacy::the_substance.pcrit * 1.0001 &&
                                  std::isfinite(sat.v[0]) && std::isfinite(sat.v[2]);
                if (!good) {
                    ++failures;
                    ADD_FAILURE() << name << " " << code << " Tr " << Tr << " p " << sat.p
                                  << " after " << last << " status " << sat.status << " fallback "
                                  << sat.fallback;
                }
                last = sat.p;
            }
        }
    }
    std::printf("%d states, %d by the bracketed search, %d failures\n", states, fallbacks,
                failures);
    EXPECT_EQ(failures, 0);
}

TEST_F(Saturation, TemperatureIsFoundFromTinyPressuresUpToTheCriticalPoint) {
    int states = 0, fallbacks = 0, failures = 0;
    for (const std::string& name : fluids::AllNames()) {
        for (const std::int16_t code : kCubic) {
            if (!activate(name, code)) continue;
            double last = 0;
            for (const double pr : {1e-9,   1e-8, 1e-7, 1e-6, 1e-5, 1e-4,  1e-3,   5e-3,   0.0199,
                                    0.0201, 0.03, 0.05, 0.1,  0.2,  0.3,   0.4,    0.5,    0.6,
                                    0.7,    0.8,  0.9,  0.95, 0.99, 0.999, 0.9999, 0.99999}) {
                const double p = pr * legacy::the_substance.pcrit;
                const models::Saturation sat = models::SaturationTemperature(p);
                ++states;
                fallbacks += sat.fallback;
                if (!(sat.status == kSuccess && sat.T > last &&
                      sat.T <= legacy::the_substance.Tcrit * 1.0001)) {
                    ++failures;
                    ADD_FAILURE() << name << " " << code << " pr " << pr << " T " << sat.T
                                  << " after " << last << " status " << sat.status << " fallback "
                                  << sat.fallback;
                }
                last = sat.T;
            }
        }
    }
    std::printf("%d states, %d by the bracketed search, %d failures\n", states, fallbacks,
                failures);
    EXPECT_EQ(failures, 0);
}

TEST_F(Saturation, TemperatureOfThePressureIsTheTemperatureAgain) {
    double worst = 0;  // as a share of what the tolerances permit
    std::string where;
    for (const std::string& name : fluids::AllNames()) {
        for (const std::int16_t code : kCubic) {
            if (!activate(name, code)) continue;
            for (const double Tr : {0.4, 0.5, 0.55, 0.6, 0.7, 0.8, 0.9, 0.95, 0.99}) {
                const double T = Tr * legacy::the_substance.Tcrit;
                const models::Saturation there = models::SaturationPressure(T);
                const models::Saturation back = models::SaturationTemperature(there.p);
                ASSERT_EQ(back.status, kSuccess);
                // An area ratio of 0.0002 is a shift in T by that share of the areas over the
                // entropy of vaporisation; the marching search stops at a step of 0.0005 K, a tenth
                // of the one before.
                const double dT = 1e-4 * T;
                const models::Fluid fluid = models::current_fluid();
                const double dpdT = (models::maxwell_pressure(fluid, T).p -
                                     models::maxwell_pressure(fluid, T - dT).p) /
                                    dT;
                const double permitted =
                    0.0002 * (back.areaV - back.areaL) / ((back.v[2] - back.v[0]) * dpdT) + 0.006;
                const double difference = std::fabs(back.T - T) / permitted;
                if (difference > worst) {
                    worst = difference;
                    where = name + " " + std::to_string(code) + " Tr " + std::to_string(Tr);
                }
            }
        }
    }
    std::printf("largest difference: %.3g of the tolerance (%s)\n", worst, where.c_str());
    EXPECT_LT(worst, 1.0) << where;
}

TEST_F(Saturation, BracketedSearchAgreesWithTheSecantSearch) {
    for (const std::int16_t code : kCubic) {
        ASSERT_TRUE(activate("Propane", code));
        for (const double Tr : {0.5, 0.7, 0.9, 0.99}) {
            const double T = Tr * legacy::the_substance.Tcrit;
            const models::Saturation secant =
                models::search_saturation_pressure(models::current_fluid(), T);
            const models::Saturation exact = models::maxwell_pressure(models::current_fluid(), T);
            ASSERT_EQ(secant.status, kSuccess);
            EXPECT_NEAR(secant.p, exact.p, 5e-5 * exact.p) << code << " " << Tr;
            EXPECT_NEAR(ln_phi(exact.state, T, exact.p, exact.v[0]),
                        ln_phi(exact.state, T, exact.p, exact.v[2]), 1e-11);
        }
    }
}

TEST_F(Saturation, BracketedSearchServesTheJiTorvikForms) {
    for (const std::int16_t code : {std::int16_t{7}, std::int16_t{8}}) {
        reference::activate(
            {{"EOSModel", code},
             {"jt", {{"M", 0.9}, {"P", 0.55}, {"Q", 0.35}, {"Zc", 0.281}, {"K", 0.06}}}});
        for (const double Tr : {0.3, 0.5, 0.7, 0.9, 0.99, 0.9999}) {
            const double T = Tr * 369.89;
            const models::Saturation s = models::maxwell_pressure(models::current_fluid(), T);
            ASSERT_EQ(s.status, kSuccess);
            EXPECT_NEAR(ln_phi(s.state, T, s.p, s.v[0]), ln_phi(s.state, T, s.p, s.v[2]), 1e-9)
                << code << " " << Tr;
        }
    }
}

TEST_F(Saturation, AtTheCriticalTemperatureThePressureIsCritical) {
    ASSERT_TRUE(activate("Propane", 6));
    const models::Saturation s = models::SaturationPressure(legacy::the_substance.Tcrit);
    EXPECT_EQ(s.p, legacy::the_substance.pcrit);
    EXPECT_EQ(s.nRoots, 3);
    EXPECT_DOUBLE_EQ(s.v[0], 1 / legacy::the_eosParameters.rhocritCalc);
    EXPECT_EQ(models::SaturationTemperature(legacy::the_substance.pcrit).T,
              legacy::the_substance.Tcrit);
    EXPECT_EQ(models::SaturationTemperature(legacy::the_substance.pcrit * 1.01).status, kFailure);
    EXPECT_EQ(models::SaturationTemperature(legacy::the_substance.pcrit * 1.01).T, 0);
    EXPECT_EQ(models::SaturationPressure(legacy::the_substance.Tcrit * 1.01).status, kFailure);
}

TEST_F(Saturation, AVOnlyEquationHasNoEquilibrium) {
    ASSERT_TRUE(activate("Propane", 6));
    legacy::the_models.EOSModel = codes::eos(16);
    legacy::the_models.EOSOnlyV = true;
    EXPECT_EQ(models::SaturationPressure(300).status, kFailure);
    EXPECT_EQ(models::SaturationTemperature(900).status, kFailure);
    EXPECT_EQ(models::SaturationPressure(300).p, 0);
}

TEST_F(Saturation, WithoutAnEquationTheSearchStartsFromTheSimpleEstimate) {
    ASSERT_TRUE(activate("Ozone", 4));
    ASSERT_EQ(models::code_of(legacy::the_models.VPModel), 0);
    const models::Saturation s = models::SaturationPressure(0.8 * legacy::the_substance.Tcrit);
    EXPECT_EQ(s.status, kSuccess);
}

TEST_F(Saturation, SearchesDoNotAllocate) {
    ASSERT_TRUE(activate("Propane", 6));
    const std::size_t before = AllocationCount();
    double sum = 0;
    for (int i = 0; i < 100; ++i) {
        sum += models::SaturationPressure(200 + i).p;
        sum += models::SaturationTemperature(100 + i).T;
        sum += models::SolveStateTP(300, 900 + i).vV;
        sum += models::SolveStateTP(400, 900 + i).vV;
    }
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_GT(sum, 0);
}

}  // namespace
