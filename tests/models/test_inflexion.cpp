#include <cmath>

#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/long_equation.h"
#include "models/model_grid.h"
#include "models/model_tables.h"
#include "support/fluids.h"

using namespace quor;

namespace {

using oracle::Real;

using models::Eos;

/// d2p/dv2 of a cubic equation in extended precision.
Real curvature(const oracle::Coefficients& k, Real T, Real v) {
    const auto [a, b, c, d] = k;
    const Real e = 1 / (v - b), C = 1 / (v + c), D = 1 / (v + d);
    return 2 * oracle::R * T * e * e * e - 2 * a * C * D * (C * C + C * D + D * D);
}

TEST(InflexionPoints, AreTheSignChangesOfTheSecondDerivative) {
    int two = 0, none = 0;
    grid::ForAll(grid::kCubic, [&](const models::Fluid& fluid, const std::string& name) {
        for (const double Tr :
             {0.15, 0.4, 0.7, 0.9, 0.999, 1.0, 1.001, 1.02, 1.05, 1.1, 1.5, 4.0}) {
            const double T = Tr * fluid.substance().Tcrit;
            const models::Inflexion points = models::inflexion_points(fluid, T);
            const std::string at = name + ", Tr " + std::to_string(Tr);
            const oracle::Coefficients k = oracle::coefficients(fluid, T);
            const auto b = static_cast<double>(k.b);

            // Count the sign changes on a fine grid of ln(v - b).
            int changes = 0;
            bool positive = true;
            for (double t = -16; t < 24; t += 0.1) {
                const bool now = curvature(k, T, b + b * std::exp(t)) > 0;
                if (now != positive) ++changes;
                positive = now;
            }
            ASSERT_EQ(points.count, changes) << at;
            (points.count == 2 ? two : none) += 1;
            for (std::size_t i = 0; i < static_cast<std::size_t>(points.count); ++i) {
                const Real v = points.v[i];
                // A root to 1E-8: the sign differs on both sides, and the right way round.
                const Real below = curvature(k, T, v * (1 - 1e-8L)),
                           above = curvature(k, T, v * (1 + 1e-8L));
                EXPECT_LT(below * above, 0) << at;
                EXPECT_EQ(below > 0, i == 0) << at;
                EXPECT_NEAR(points.p[i], static_cast<double>(oracle::pressure(fluid, T, v)),
                            1e-9 * 8.31451 * T / (points.v[i] - b))
                    << at;
                const double scale = 2 * 8.31451 * T / std::pow(points.v[i] - b, 3);
                EXPECT_LT(std::fabs(points.second_derivative[i]), 1e-12 * scale) << at;
            }
            if (points.count == 2) {
                EXPECT_LT(points.v[0], points.v[1]) << at;
            }
        }
    });
    EXPECT_GT(two, 5000);
    EXPECT_GT(none, 1000);
}

TEST(InflexionPoints, OfVanDerWaalsMeetTheirClosedForms) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::vanDerWaals);
    const double a = fluid.eos().a0, b = fluid.eos().b0;
    const double Tcrit = fluid.substance().Tcrit;
    // At the critical point the first one is the critical volume 3 b.
    const models::Inflexion critical = models::inflexion_points(fluid, Tcrit);
    ASSERT_EQ(critical.count, 2);
    EXPECT_NEAR(critical.v[0], 3 * b, 1e-12 * b);
    EXPECT_NEAR(critical.p[0], fluid.substance().pcrit, 1e-8);
    // Both meet in 4 b where R T = 81 a/(256 b); above that there is none.
    const double Tlast = 81 * a / (256 * b * 8.31451);
    EXPECT_NEAR(Tlast / Tcrit, 2187.0 / 2048, 1e-12);
    EXPECT_EQ(models::inflexion_points(fluid, Tlast * (1 + 1e-9)).count, 0);
    const models::Inflexion last = models::inflexion_points(fluid, Tlast * (1 - 1e-9));
    ASSERT_EQ(last.count, 2);
    EXPECT_NEAR(last.v[0], 4 * b, 1e-3 * b);
    EXPECT_NEAR(last.v[1], 4 * b, 1e-3 * b);
    EXPECT_LT(last.v[0], last.v[1]);
}

TEST(InflexionPoints, OfVOnlyModelsDoNotExist) {
    for (const Eos eos : grid::kVOnly) {
        const models::Fluid fluid = fluids::fluid("Propane", eos);
        EXPECT_EQ(models::inflexion_points(fluid, 300).count, 0) << models::eos_name(eos);
    }
}

TEST(InflexionPoints, WithoutAttractionOrTemperatureDoNotExist) {
    const models::Fluid fluid = fluids::fluid("Propane", Eos::pengRobinson);
    EXPECT_EQ(models::inflexion_points(fluid, 0).count, 0);
    EXPECT_EQ(models::inflexion_points(fluid, -5).count, 0);
    EXPECT_EQ(models::inflexion_points({0, 0.05, 0, 0}, 300).count, 0);
    EXPECT_EQ(models::inflexion_points({900, 0, 0, 0}, 300).count, 0);
    EXPECT_EQ(models::inflexion_points({900, 0.05, -0.06, 0}, 300).count, 0);
    EXPECT_EQ(models::inflexion_points({-900, 0.05, 0, 0}, 300).count, 0);
}

}  // namespace
