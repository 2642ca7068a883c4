#include <cmath>

#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_forms.h"
#include "models/saturation.h"
#include "support/fluids.h"
#include "support/medium.h"

using namespace quor;

namespace {

using constants::R;
using models::Eos;

// ---- all that a new equation of state needs: its constants and a row

/// What the new equation adds to the enumeration.
constexpr auto kClausius = static_cast<Eos>(100);
constexpr double kZcrit = 0.3;

/// p = R T/(v - b) - a/(v + c)^2 (R. Clausius, Ann. Phys. 245 (1880) 337, with a constant a): van
/// der Waals' equation with its volumes shifted by c, so that the critical compressibility is one's
/// own choice.
models::EosConstants clausius_constants(const models::SubstanceRecord& s,
                                        const models::ModelSelection&) {
    models::EosConstants k;
    const double ideal = faults::divide(R * s.Tcrit, s.pcrit);
    k.power.a0 = 27.0 / 64.0 * R * s.Tcrit * ideal;
    k.power.c0 = k.power.d0 = (3.0 / 8.0 - kZcrit) * ideal;
    k.power.b0 = ideal / 8 - k.power.c0;
    return k;
}

constexpr models::EquationOfState row = models::power_cubic(
    kClausius, "CEOS Clausius                      ", kZcrit, clausius_constants);

// ---- what every equation of state can do

class NewEquation : public testing::Test {
  protected:
    models::SubstanceRecord s = fluids::correlated_row("Propane");
    models::Fluid fluid = models::Fluid::make(s, fluids::selection(s, kClausius), row).value();
    models::Fluid vanDerWaals = fluids::fluid(s, Eos::vanDerWaals);
    const double shift = fluid.eos().c0;
};

TEST_F(NewEquation, MeetsTheCriticalPointWithItsOwnVolume) {
    EXPECT_NEAR(fluid.eos().vcrit_calculated, 0.3 * R * s.Tcrit / s.pcrit, 1e-15);
    EXPECT_NEAR(models::pressure_from_Tv(fluid, s.Tcrit, fluid.eos().vcrit_calculated).value(),
                s.pcrit, 1e-9 * s.pcrit);
    const models::Inflexion critical = models::inflexion_points(fluid, s.Tcrit);
    ASSERT_EQ(critical.count, 2);
    EXPECT_NEAR(critical.v[0], fluid.eos().vcrit_calculated, 1e-9);
}

TEST_F(NewEquation, HasTheStatesOfVanDerWaalsWithShiftedVolumes) {
    for (const double Tr : {0.6, 0.8, 0.95, 1.1, 2.0}) {
        for (const double pr : {0.01, 0.1, 0.7, 3.0}) {
            const double T = Tr * s.Tcrit, p = pr * s.pcrit;
            const auto z = models::solve_state_tp(fluid, T, p);
            const auto vdw = models::solve_state_tp(vanDerWaals, T, p);
            ASSERT_TRUE(z) << Tr << " " << pr;
            EXPECT_EQ(z->has_V, vdw->has_V) << Tr << " " << pr;
            EXPECT_EQ(z->has_L, vdw->has_L) << Tr << " " << pr;
            EXPECT_EQ(z->root_count, vdw->root_count) << Tr << " " << pr;
            if (z->has_V) {
                EXPECT_NEAR(*z->vV + shift, *vdw->vV, 1e-6 * *vdw->vV) << Tr << " " << pr;
            }
            if (z->has_L) {
                EXPECT_NEAR(*z->vL + shift, *vdw->vL, 1e-6 * *vdw->vL) << Tr << " " << pr;
            }
            const double v = z->has_V ? *z->vV : *z->vL;
            EXPECT_NEAR(models::pressure_from_Tv(fluid, T, v).value(), p, 1e-4 * p)
                << Tr << " " << pr;
        }
    }
}

TEST_F(NewEquation, HasTheVapourPressureOfVanDerWaals) {
    for (const double Tr : {0.5, 0.7, 0.9, 0.99}) {
        const double T = Tr * s.Tcrit;
        const auto z = models::saturation_pressure(fluid, T);
        const auto vdw = models::saturation_pressure(vanDerWaals, T);
        ASSERT_TRUE(z) << Tr;
        EXPECT_NEAR(z->p, vdw->p, 1e-6 * vdw->p) << Tr;
        EXPECT_NEAR(z->v[0] + shift, vdw->v[0], 1e-6 * vdw->v[0]) << Tr;
        EXPECT_NEAR(z->v[2] + shift, vdw->v[2], 1e-6 * vdw->v[2]) << Tr;
        const auto back = models::saturation_temperature(fluid, z->p);
        ASSERT_TRUE(back) << Tr;
        EXPECT_NEAR(back->T, T, 1e-3 * T) << Tr;
    }
}

TEST_F(NewEquation, HasCaloricFunctionsThatBelongTogether) {
    const Medium medium(fluid);
    for (const double Tr : {0.8, 1.3}) {
        const double T = Tr * s.Tcrit, p = 0.2 * s.pcrit;
        const double v = *models::solve_state_tp(fluid, T, p)->vV;
        const auto z = medium.state(T, p, v);
        ASSERT_TRUE(z) << Tr;
        EXPECT_NEAR(z->g, z->h - T * z->s, 1e-8 * std::fabs(z->h)) << Tr;
        const double h = 1e-3 * T;
        const auto at = [&](double x) {
            return *medium.state(x, p, *models::solve_state_tp(fluid, x, p)->vV);
        };
        EXPECT_NEAR((at(T + h).h - at(T - h).h) / (2 * h), z->cp, 1e-4 * z->cp) << Tr;
        EXPECT_NEAR((at(T + h).g - at(T - h).g) / (2 * h), -z->s, 1e-4 * (std::fabs(z->s) + 10))
            << Tr;
        // A shift of the volume shifts ln(phi*) by c p/(R T).
        const double vdw = Medium(vanDerWaals).residual(T, p, v + shift)->residual[models::LnPhi];
        EXPECT_NEAR(z->table.residual[models::LnPhi], vdw - shift * p / (R * T), 1e-6) << Tr;
    }
}

TEST_F(NewEquation, FailsWithAReasonWhereTheSubstanceLacksItsData) {
    s.pcrit = 0;
    const Result<models::Fluid> none = models::Fluid::make(s, fluids::selection(s, kClausius), row);
    ASSERT_FALSE(none);
    EXPECT_EQ(none.reason(), "Division by zero");
}

TEST_F(NewEquation, IsNotTheFluidOfAnotherEquation) {
    EXPECT_EQ(fluid.equation().name, row.name);
    EXPECT_NE(fluid, vanDerWaals);
    EXPECT_EQ(fluid, models::Fluid::make(s, fluids::selection(s, kClausius), row).value());
}

}  // namespace
