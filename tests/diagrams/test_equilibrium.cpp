#include "diagrams/equilibrium.h"

#include <algorithm>

#include "diagrams/active_fluid.h"
#include "diagrams/textbook.h"

using namespace quor;

namespace {

using diagrams::Equilibrium;

class DomeEquilibrium : public ActiveFluid {
  protected:
    std::optional<Equilibrium> at_T(double T) { return diagrams::equilibrium_at_T(fluid(), T); }
    std::optional<Equilibrium> at_p(double p) { return diagrams::equilibrium_at_p(fluid(), p); }
    Textbook textbook(int code) {
        return {code, substance.Tcrit, substance.pcrit, substance.omega};
    }
};

constexpr std::int16_t kCubics[] = {2, 3, 4, 5, 6};

TEST_F(DomeEquilibrium, BothPhasesHaveTheirPressureAndEqualFugacity) {
    double worst = 0;
    for (const char* name : {"Water", "Carbon dioxide", "Propane", "1,1,1,2-Tetrafluoroethane"}) {
        for (const int code : kCubics) {
            activate(name, code);
            const Textbook eos = textbook(code);
            for (const double Tr : {0.45, 0.6, 0.75, 0.9, 0.99, 0.999}) {
                const double T = Tr * substance.Tcrit;
                const auto e = at_T(T);
                ASSERT_TRUE(e) << name << code << Tr;
                const double RT = Textbook::R * T;
                // On the liquid root p is the small difference of two large terms.
                EXPECT_NEAR(eos.pressure(T, e->vL), e->p, 1e-9 * RT / (e->vL - eos.b()));
                EXPECT_NEAR(eos.pressure(T, e->vV), e->p, 1e-8 * e->p);
                // f = p phi; the liquid's ln phi takes its p from the root.
                const double lnL = eos.ln_phi(T, e->vL) + std::log(eos.pressure(T, e->vL));
                const double lnV = eos.ln_phi(T, e->vV) + std::log(eos.pressure(T, e->vV));
                worst = std::max(worst, std::fabs(lnL - lnV));
            }
        }
    }
    EXPECT_LT(worst, 1e-7);
}

TEST_F(DomeEquilibrium, TemperatureAndPressureAreInverse) {
    for (const std::string& name : fluids::AllNames()) {
        activate(name, kRedlichKwong);
        for (const double pr : {1e-6, 0.01, 0.3, 0.9, 0.999, 0.999999}) {
            const double p = pr * substance.pcrit;
            const auto e = at_p(p);
            ASSERT_TRUE(e) << name << pr;
            EXPECT_NEAR(at_T(e->T)->p / p, 1.0, 1e-9) << name << pr;
        }
    }
}

TEST_F(DomeEquilibrium, TheDomeIsSmoothUpToTheCriticalPoint) {
    for (const int code : kCubics) {
        activate("Carbon dioxide", code);
        const double vc = eosConstants.vcrit_calculated;
        double lastL = vc, lastV = vc, lastP = substance.pcrit;
        // The half widths over the root of 1 - Tr run into one constant, without a jump.
        double lastShape = 0;
        for (double share = 1e-12; share < 0.02; share *= 1.1) {
            const auto e = at_T(substance.Tcrit * (1 - share));
            ASSERT_TRUE(e);
            EXPECT_LT(e->vL, lastL) << code << share;
            EXPECT_GT(e->vV, lastV) << code << share;
            EXPECT_LE(e->p, lastP) << code << share;
            const double real = 1 - e->T / substance.Tcrit;
            const double shape = (e->vV - e->vL) / std::sqrt(real);
            if (lastShape > 0) {
                EXPECT_NEAR(shape / lastShape, 1, 0.01) << code << " " << share;
            }
            lastL = e->vL;
            lastV = e->vV;
            lastP = e->p;
            lastShape = shape;
        }
    }
}

TEST_F(DomeEquilibrium, AtTheCriticalPointBothVolumesAreTheCriticalOne) {
    activate("Propane");
    const auto e = at_T(substance.Tcrit);
    ASSERT_TRUE(e);
    EXPECT_EQ(e->p, substance.pcrit);
    EXPECT_EQ(e->vL, eosConstants.vcrit_calculated);
    EXPECT_EQ(e->vV, eosConstants.vcrit_calculated);
    EXPECT_EQ(at_p(substance.pcrit)->T, substance.Tcrit);
}

TEST_F(DomeEquilibrium, ThereIsNoneAboveTheCriticalPointNorForAVapourEquation) {
    activate("Propane");
    EXPECT_FALSE(at_T(1.0001 * substance.Tcrit));
    EXPECT_FALSE(at_p(1.0001 * substance.pcrit));
    EXPECT_FALSE(at_T(0));
    EXPECT_FALSE(at_p(-1));
    activate_vapour_only("Propane");
    EXPECT_FALSE(at_T(300));
    EXPECT_FALSE(at_p(500));
}

TEST_F(DomeEquilibrium, ANearStartGivesTheSameState) {
    activate("Water");
    const double T = 500;
    const auto alone = at_T(T);
    for (const double factor : {0.5, 0.97, 1.03, 1.6, 5.0}) {
        const auto e = diagrams::equilibrium_at_T(fluid(), T, factor * alone->p);
        ASSERT_TRUE(e);
        EXPECT_NEAR(e->p / alone->p, 1.0, 1e-11);
        EXPECT_NEAR(e->vL / alone->vL, 1.0, 1e-10);
    }
}

}  // namespace
