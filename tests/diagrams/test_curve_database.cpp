#include "diagrams/active_fluid.h"
#include "diagrams/diagram.h"
#include "support/codes.h"

using namespace quor;

namespace {

/// Curves of the database functions against the equations as they are published.
class DatabaseCurves : public ActiveFluid {
  protected:
    double c(const auto& set, std::size_t i) { return static_cast<double>(set[i]); }
    double M() { return static_cast<double>(substance.M); }
};

TEST_F(DatabaseCurves, DensityOfTheLiquidIsItsPolynomial) {
    activate("Propane");
    const Drawn curve = Draw(300, {});
    EXPECT_EQ(curve.result.status, 0);
    EXPECT_EQ(curve.mark(), 0);
    EXPECT_EQ(curve.request.section(), diagrams::Section::database);
    EXPECT_EQ(curve.request.diagram->axis_pair, "yT");
    EXPECT_EQ(curve.request.validity.low, 86);
    EXPECT_EQ(curve.request.validity.high, 369);
    const auto& a = substance.rhoL_coefficients;
    for (const auto& point : curve.points()) {
        const double T = point.x;
        double rho = c(a, 0) + c(a, 1) * T + c(a, 2) * T * T + c(a, 3) * T * T * T;
        const double Tc = static_cast<double>(substance.rhoL_Tc);
        if (T < Tc) rho += c(a, 6) * std::cbrt(1 - T / Tc);
        EXPECT_NEAR(point.y / rho, 1, 1e-4) << T;
    }
    const Drawn volume = Draw(301, {});
    for (std::size_t i = 1; i <= volume.count(); ++i)
        EXPECT_NEAR(volume.nth(i).y * curve.nth(i).y / M(), 1, 1e-5);
}

TEST_F(DatabaseCurves, RackettsFormIsSpencersAndDanners) {
    activate("Styrene", kVanDerWaals);
    const auto& a = substance.rhoL_coefficients;
    for (const auto& point : Draw(300, {}).points()) {
        const double Tr = point.x / static_cast<double>(substance.rhoL_Tc);
        if (Tr > 0.999) continue;
        const double rho = c(a, 1) / std::pow(c(a, 2), 1 + std::pow(1 - Tr, c(a, 3)));
        EXPECT_NEAR(point.y / rho, 1, 1e-4);
    }
}

TEST_F(DatabaseCurves, HeatCapacitiesAreTheirPolynomials) {
    activate("Carbon dioxide");
    const auto check = [&](int code, const models::CpSet& set, double factor) {
        for (const auto& point : Draw(code, {}).points()) {
            const double T = point.x;
            const double cp =
                c(set.c, 0) +
                T * (c(set.c, 1) + T * (c(set.c, 2) + T * (c(set.c, 3) + T * c(set.c, 4))));
            EXPECT_NEAR(point.y, cp * factor, 1e-5 * std::fabs(cp * factor) + 1e-4)
                << code << " " << T;
        }
    };
    check(302, substance.cp_polynomial, 1);
    set_units(3, 1);
    check(302, substance.cp_polynomial, 1 / M());
}

TEST_F(DatabaseCurves, SinhCoshHeatCapacityIsAlysAndLees) {
    activate("Carbon dioxide");
    selection.cp_form = codes::cp(2);
    const auto& set = substance.cp_sinh_cosh.c;
    const Drawn curve = Draw(302, {});
    EXPECT_GT(curve.count(), 290U);
    for (const auto& point : curve.points()) {
        const double x = c(set, 2) / point.x, y = c(set, 4) / point.x;
        const double cp = c(set, 0) + c(set, 1) * std::pow(x / std::sinh(x), 2) +
                          c(set, 3) * std::pow(y / std::cosh(y), 2);
        EXPECT_NEAR(point.y / cp, 1, 1e-5);
    }
}

TEST_F(DatabaseCurves, EnthalpyOfVaporisationIsItsEquation) {
    activate("Propane");
    const auto& a = substance.hLV_coefficients;
    for (const auto& point : Draw(305, {}).points()) {
        const double Tr = point.x / static_cast<double>(substance.hLV_Tc);
        if (Tr > 0.9999) continue;
        const double exponent = c(a, 2) + c(a, 3) * Tr + c(a, 4) * Tr * Tr + c(a, 5) * Tr * Tr * Tr;
        const double h = c(a, 0) * std::exp(-c(a, 1) * Tr) * std::pow(1 - Tr, exponent);
        EXPECT_NEAR(point.y / h, 1, 1e-3);
    }
}

TEST_F(DatabaseCurves, VapourPressuresAreTheirEquations) {
    activate("Propane");
    const double ln10 = std::log(10.0);
    const auto pressure = [&](int code, double T) {
        const models::SubstanceRecord& s = substance;
        if (code == 307) {
            const double t = 1 - T / c(s.wagner.a, 8);
            const double X = c(s.wagner.a, 0) * t + c(s.wagner.a, 1) * std::pow(t, 1.5) +
                             c(s.wagner.a, 2) * std::pow(t, c(s.wagner.a, 3)) +
                             c(s.wagner.a, 4) * std::pow(t, c(s.wagner.a, 5)) +
                             c(s.wagner.a, 6) * std::pow(t, c(s.wagner.a, 7));
            return c(s.wagner.a, 9) * std::exp(c(s.wagner.a, 8) / T * X);
        }
        const models::AntoineSet& a = code == 308 ? s.antoine_low : s.antoine_high;
        return std::exp(ln10 *
                        (static_cast<double>(a.A) -
                         static_cast<double>(a.B) / (T + static_cast<double>(a.C) - 273.15)));
    };
    for (const int code : {307, 308, 309}) {
        const Drawn curve = Draw(code, {});
        EXPECT_EQ(curve.request.diagram->axis_pair, "pT");
        EXPECT_GT(curve.count(), 250U);
        for (const auto& point : curve.points())
            EXPECT_NEAR(point.y / pressure(code, point.x), 1, 2e-4) << code << " " << point.x;
    }
    // Frost and Kalkwarf is implicit: the point satisfies it.
    const auto& f = substance.frost.a;
    for (const auto& point : Draw(306, {}).points()) {
        const double T = point.x, p = point.y;
        const double rest = c(f, 0) + c(f, 1) / (T + c(f, 2) - 273.15) + c(f, 3) * std::log10(T) +
                            c(f, 4) * p / std::pow(T, c(f, 5) + 2) + c(f, 6) * T - std::log10(p);
        EXPECT_NEAR(rest, 0, 2e-4) << T;
    }
}

TEST_F(DatabaseCurves, ReducedModeDividesTAndP) {
    activate("Propane");
    set_units(0, 2);
    const Drawn curve = Draw(307, {});
    EXPECT_LT(curve.last().x, 1.0);
    EXPECT_NEAR(curve.last().y, 1.0, 0.05);
    EXPECT_GT(curve.count(), 250U);
    EXPECT_NEAR(Draw(301, {}).first().y, M() / static_cast<double>(Draw(300, {}).first().y), 1e-6)
        << "the volume of the equation stays molar";
}

TEST_F(DatabaseCurves, TheSolidDensityTellsItsValidity) {
    activate("Carbon dioxide");
    const Drawn curve = Draw(310, {});
    EXPECT_EQ(curve.request.validity.low, 144);
    EXPECT_EQ(curve.request.validity.high, 216);
    const auto& a = substance.rhoS_coefficients;
    for (const auto& point : curve.points()) {
        const double T = point.x;
        EXPECT_NEAR(point.y / (c(a, 0) + T * (c(a, 1) + T * (c(a, 2) + T * c(a, 3)))), 1, 1e-5);
    }
}

}  // namespace
