#include <algorithm>

#include "chart/chart2d.h"
#include "diagrams/active_fluid.h"
#include "diagrams/equilibrium.h"
#include "diagrams/textbook.h"
#include "models/caloric.h"
#include "models/state_solver.h"

using namespace quor;

namespace {

/// The inversion curve of the Joule-Thomson effect.
class Inversion : public ActiveFluid {
  protected:
    Drawn over_pressure() {
        diagrams::DiagramRequest request = RequestFor(190);
        request.window.x_max = static_cast<float>(16 * substance.pcrit);
        request.window.y_max *= 5;
        return Draw(request, {});
    }
    Drawn over_temperature(double T_max) {
        diagrams::DiagramRequest request = RequestFor(105);
        request.window.x_max = static_cast<float>(T_max);
        request.window.y_max = static_cast<float>(20 * substance.pcrit);
        return Draw(request, {});
    }
    /// The coefficient itself at T and the volume of the state.
    double coefficient(double T, double p, double v) {
        return models::residual_functions(fluid(), models::eos_at(fluid(), T), T, p, v)
            ->residual[models::JouleThomson];
    }
};

TEST_F(Inversion, VanDerWaalsInvertsWhereItsClosedFormSays) {
    // T(inv) of the van der Waals gas at p -> 0 is 27/4 Tc; at T the reduced inversion pressure is
    // 24 sqrt(3 Tr) - 12 Tr - 27.
    activate("Nitrogen", kVanDerWaals);
    const Drawn curve = over_temperature(6 * substance.Tcrit);
    EXPECT_GT(curve.count(), 500U);
    for (const auto& point : curve.points()) {
        const double Tr = point.x / substance.Tcrit;
        const double pr = 24 * std::sqrt(3 * Tr) - 12 * Tr - 27;
        EXPECT_NEAR(point.y / substance.pcrit, pr, 2e-4 * (1 + std::fabs(pr))) << Tr;
    }
    const Drawn pv = over_pressure();
    EXPECT_NEAR(pv.first().z / substance.Tcrit, 6.75, 1e-4);
}

TEST_F(Inversion, RedlichKwongInvertsAtItsKnownTemperature) {
    activate("Nitrogen", kRedlichKwong);
    // B - T dB/dT = 0 for B = b - a/(R T^1.5): T^1.5 = 2.5 a/(R b).
    const double Tr = std::pow(2.5 * 0.42748 / 0.086640, 2.0 / 3.0);
    EXPECT_NEAR(over_pressure().first().z / substance.Tcrit, Tr, 1e-3);
}

TEST_F(Inversion, TheCoefficientVanishesOnTheCurve) {
    for (const char* name : {"Nitrogen", "Water", "Propane", "Helium", "Hydrogen"}) {
        for (const int eos : {2, 4, 5, 6}) {
            activate(name, eos);
            const Drawn pv = over_pressure();
            EXPECT_GT(pv.count(), 100U) << name << eos;
            EXPECT_EQ(pv.mark(), -1);
            for (const auto& point : pv.points()) {
                if (!chart::is_shown(point.y)) continue;
                const double T = point.z, p = point.x;
                const double v = point.y / p;
                // Compared with the slope of the coefficient over the digits of a 32-bit T.
                const double near = coefficient(T * 1.0001, p, v * 1.0001) - coefficient(T, p, v);
                EXPECT_LT(std::fabs(coefficient(T, p, v)), 0.1 * std::fabs(near) + 1e-6)
                    << name << eos << " T " << T;
            }
        }
    }
}

TEST_F(Inversion, ThePvCurveClosesAtItsTop) {
    activate("Nitrogen");
    const Drawn curve = over_pressure();
    const auto top = std::max_element(curve.points().begin(), curve.points().end(),
                                      [](const auto& a, const auto& b) { return a.x < b.x; });
    // Up along the gas, down along the liquid: one rise and one fall of p.
    EXPECT_TRUE(std::is_sorted(curve.points().begin(), top,
                               [](const auto& a, const auto& b) { return a.x < b.x; }));
    EXPECT_TRUE(std::is_sorted(top, curve.points().end(),
                               [](const auto& a, const auto& b) { return a.x > b.x; }));
    EXPECT_GT(top->x, 10 * substance.pcrit);
}

/// Both branches were joined by a line along the edge of the window.
TEST_F(Inversion, ThePvCurveHasAGapWhereTheWindowEndsBelowItsTop) {
    activate("Nitrogen");
    diagrams::DiagramRequest request = RequestFor(190);
    request.window.x_max = static_cast<float>(5 * substance.pcrit);
    request.window.y_max *= 5;
    const Drawn curve = Draw(request, {});
    int gaps = 0;
    for (std::size_t i = 2; i <= curve.count(); ++i) {
        const auto &a = curve.nth(i - 1), &b = curve.nth(i);
        gaps += !chart::is_shown(b.y);
        if (!chart::is_shown(a.y) || !chart::is_shown(b.y)) continue;
        EXPECT_LT(std::fabs(b.y - a.y), 0.2 * request.window.y_max) << b.x;
    }
    EXPECT_EQ(gaps, 1);
}

TEST_F(Inversion, OverTemperatureTheCurveEndsOnTheCoexistenceCurve) {
    for (const char* name : {"Nitrogen", "Water"}) {
        activate(name);
        const Drawn curve = over_temperature(1.1 * substance.Tcrit);
        EXPECT_EQ(curve.mark(), -3);
        const auto e =
            diagrams::equilibrium_at_T(fluid(), curve.last().x).value_or(diagrams::Equilibrium{});
        EXPECT_NEAR(curve.last().y / e.p, 1, 1e-4);
        EXPECT_NEAR(curve.last().z / e.vL, 1, 1e-4);
        for (std::size_t i = 1; i < curve.count(); ++i) {
            const auto here = diagrams::equilibrium_at_T(fluid(), curve.nth(i).x)
                                  .value_or(diagrams::Equilibrium{});
            EXPECT_GT(curve.nth(i).y, here.p);
            EXPECT_NEAR(coefficient(curve.nth(i).x, curve.nth(i).y, curve.nth(i).z), 0, 2e-7);
        }
    }
}

TEST_F(Inversion, AVapourEquationHasNone) {
    activate_vapour_only("Nitrogen");
    EXPECT_EQ(over_pressure().count(), 0U);
    EXPECT_EQ(over_temperature(600).count(), 0U);
}

}  // namespace
