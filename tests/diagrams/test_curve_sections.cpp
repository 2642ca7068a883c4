#include <algorithm>

#include "diagrams/active_fluid.h"
#include "diagrams/equilibrium.h"
#include "diagrams/textbook.h"
#include "models/vapour_pressure.h"
#include "models/virial.h"
#include "support/codes.h"

using namespace quor;

namespace {

using diagrams::CurvePoint;

/// Sections p-v-T: every point satisfies the textbook form of the equation.
class Sections : public ActiveFluid {
  protected:
    Textbook textbook() {
        return {models::code_of(selection.eos), substance.Tcrit, substance.pcrit, substance.omega};
    }
    double M() { return static_cast<double>(substance.M); }
    double Tc(double share) { return share * substance.Tcrit; }
    double pc(double share) { return share * substance.pcrit; }

    /// p(T, v) holds to what 32-bit coordinates let one see, where v is the coarser one.
    void expect_on_equation(double T, double p, double v) {
        const Textbook eos = textbook();
        const double seen = std::fabs(eos.slope(T, v)) * v * 2e-7 + p * 2e-7 + 1e-6;
        EXPECT_NEAR(eos.pressure(T, v), p, seen) << "T " << T << " v " << v;
    }
    bool ascending_x(const Drawn& curve) {
        return std::is_sorted(curve.points().begin(), curve.points().end(),
                              [](const CurvePoint& a, const CurvePoint& b) { return a.x < b.x; });
    }
    double bvirial(double T) { return models::virial(fluid(), T).B; }
};

constexpr std::int16_t kCubics[] = {2, 3, 4, 5, 6};

TEST_F(Sections, IsothermsOfPAndVLieOnTheEquation) {
    for (const char* name : {"Water", "Carbon dioxide", "1,1,1,2-Tetrafluoroethane"}) {
        for (const int code : kCubics) {
            activate(name, code);
            for (const double Tr : {0.7, 0.95, 0.9999, 1.0, 1.3}) {
                const Drawn curve = Draw(1, {.T = Tc(Tr)});
                EXPECT_EQ(curve.result.status, 0);
                EXPECT_EQ(curve.mark(), -1);
                EXPECT_TRUE(ascending_x(curve));
                EXPECT_GT(curve.count(), Tr > 0.9 ? 100U : 4U);
                for (const CurvePoint& point : curve.points()) {
                    expect_on_equation(Tc(Tr), point.y, point.x);
                    EXPECT_FLOAT_EQ(point.z, static_cast<float>(Tc(Tr)));
                }
            }
        }
    }
}

/// With 100 points a curve the liquid branch had two of them.
TEST_F(Sections, NoChordIsFurtherThanAPixelFromTheIsothermOrTheIsobar) {
    activate("Propane");
    options.points = 100;
    const Textbook eos = textbook();
    const Drawn isotherm = Draw(1, {.T = Tc(0.9)});
    const auto e = diagrams::equilibrium_at_T(fluid(), Tc(0.9)).value();
    const auto& w = isotherm.request.window;
    const double width = w.x_max - w.x_min, height = w.y_max - w.y_min;
    std::size_t liquid = 0;
    for (std::size_t i = 2; i <= isotherm.count(); ++i) {
        const CurvePoint &a = isotherm.nth(i - 1), &b = isotherm.nth(i);
        liquid += b.x < e.vL;
        if (a.x >= static_cast<float>(e.vL) && b.x <= static_cast<float>(e.vV)) continue;
        const double x = 0.5 * (a.x + b.x), dy = (eos.pressure(Tc(0.9), x) - 0.5 * (a.y + b.y));
        const double ux = (b.x - a.x) / width, uy = (b.y - a.y) / height;
        EXPECT_LT(std::fabs(ux * dy / height) / std::hypot(ux, uy), 1e-3) << x;
    }
    EXPECT_GT(liquid, 4U);
    // It comes into the window on its edge.
    EXPECT_NEAR(isotherm.first().y / w.y_max, 1, 1e-3);
    const Drawn isobar = Draw(3, {.p = pc(0.5)});
    EXPECT_TRUE(ascending_x(isobar));
    EXPECT_GT(isobar.count(), 20U);
}

TEST_F(Sections, ASubcriticalIsothermHasAHorizontalTieLine) {
    activate("Water");
    const double T = Tc(0.9);
    const Drawn curve = Draw(1, {.T = T});
    const auto e = diagrams::equilibrium_at_T(fluid(), T).value();
    const auto pts = curve.points();
    const auto L = std::find_if(pts.begin(), pts.end(), [&](const CurvePoint& point) {
        return point.x == static_cast<float>(e.vL);
    });
    ASSERT_NE(L, pts.end());
    ASSERT_NE(L + 1, pts.end());
    EXPECT_EQ((L + 1)->x, static_cast<float>(e.vV)) << "no point lies between the phases";
    EXPECT_EQ(L->y, (L + 1)->y);
    EXPECT_FLOAT_EQ(L->y, static_cast<float>(e.p));
}

TEST_F(Sections, AtTheCriticalTemperatureThereIsNoTieLine) {
    activate("Propane");
    const Drawn curve = Draw(1, {.T = substance.Tcrit});
    for (std::size_t i = 2; i < curve.count(); ++i)
        EXPECT_LT(curve.nth(i + 1).y, curve.nth(i).y) << "strictly falling";
    const double step = 7 * eosConstants.vcrit_calculated / 300;
    EXPECT_NEAR(curve.last().x, 7 * eosConstants.vcrit_calculated, 1e-6);
    EXPECT_NEAR(curve.last().x - curve.nth(curve.count() - 1).x, step, 1e-5);
}

TEST_F(Sections, TheSShapedIsothermRunsThroughTheDomeAndKeepsItsEnds) {
    activate("Propane");
    options.s_without_tie_line = true;
    const double T = Tc(0.9);
    const Drawn curve = Draw(1, {.T = T});
    const auto e = diagrams::equilibrium_at_T(fluid(), T).value();
    const auto inside = [&](const CurvePoint& point) {
        return point.x > static_cast<float>(e.vL) && point.x < static_cast<float>(e.vV);
    };
    EXPECT_GT(std::count_if(curve.points().begin(), curve.points().end(), inside), 20);
    const auto is_end = [&](const CurvePoint& point) {
        return point.x == static_cast<float>(e.vL) || point.x == static_cast<float>(e.vV);
    };
    EXPECT_EQ(std::count_if(curve.points().begin(), curve.points().end(), is_end), 2);
    EXPECT_TRUE(ascending_x(curve));
    for (const CurvePoint& point : curve.points()) expect_on_equation(T, point.y, point.x);
}

TEST_F(Sections, TheMetastableIsothermLiesInsideTheDomeOnly) {
    activate("Propane");
    branch = diagrams::Branch::metastable;
    const double T = Tc(0.92);
    const auto e = diagrams::equilibrium_at_T(fluid(), T).value();
    const Drawn curve = Draw(1, {.T = T});
    EXPECT_EQ(curve.first().x, static_cast<float>(e.vL));
    EXPECT_EQ(curve.last().x, static_cast<float>(e.vV));
    EXPECT_EQ(curve.first().y, curve.last().y);
    EXPECT_GT(curve.count(), 20U);
    for (const CurvePoint& point : curve.points()) expect_on_equation(T, point.y, point.x);
}

TEST_F(Sections, AVapourEquationDrawsOneBranchOnly) {
    activate_vapour_only("Propane");
    const double T = 300;
    const Drawn curve = Draw(1, {.T = T});
    EXPECT_EQ(curve.result.status, 0);
    for (const CurvePoint& point : curve.points())
        EXPECT_NEAR(point.y * (static_cast<double>(point.x) - bvirial(T)) / (Textbook::R * T), 1,
                    1e-6);
}

TEST_F(Sections, IsothermsOverPressureHoldPvAndDensity) {
    for (const std::int16_t eos : kCubics) {
        activate("Carbon dioxide", eos);
        for (const double Tr : {0.85, 1.0, 1.2}) {
            const double T = Tc(Tr);
            for (const int code : {std::int16_t{2}, std::int16_t{26}}) {
                const Drawn curve = Draw(code, {.T = T});
                EXPECT_EQ(curve.result.status, 0);
                EXPECT_EQ(curve.mark(), -1);
                EXPECT_EQ(curve.count(), Tr < 1 ? 303U : 301U);
                EXPECT_TRUE(ascending_x(curve));
                for (const CurvePoint& point : curve.points()) {
                    const double x = point.x, y = point.y;
                    expect_on_equation(T, x, code == 2 ? y / x : M() / y);
                }
            }
        }
    }
}

TEST_F(Sections, OverPressureTheVapourEndComesBeforeTheLiquidEnd) {
    activate("Propane");
    const double T = Tc(0.9);
    const auto e = diagrams::equilibrium_at_T(fluid(), T).value();
    const Drawn curve = Draw(26, {.T = T});
    const auto pts = curve.points();
    const auto V = std::find_if(pts.begin(), pts.end(), [&](const CurvePoint& point) {
        return point.x == static_cast<float>(e.p);
    });
    ASSERT_LT(V + 1, pts.end());
    EXPECT_FLOAT_EQ(V->y, static_cast<float>(M() / e.vV));
    EXPECT_EQ((V + 1)->x, V->x);
    EXPECT_FLOAT_EQ((V + 1)->y, static_cast<float>(M() / e.vL));
}

TEST_F(Sections, APressureOfZeroIsReplaced) {
    activate("Propane");
    diagrams::DiagramRequest request = RequestFor(2);
    request.window.x_min = 0;
    EXPECT_FLOAT_EQ(Draw(request, {.T = 300}).first().x, 0.01F);
    EXPECT_FLOAT_EQ(Draw(request, {.T = 400}).first().x, 1e-10F);
    activate_vapour_only("Propane");
    EXPECT_FLOAT_EQ(Draw(request, {.T = 300}).first().x, 1e-10F);
    EXPECT_FLOAT_EQ(Draw(request, {.T = 300}).first().y, static_cast<float>(Textbook::R * 300));
}

TEST_F(Sections, ThePartialGasCurveEndsAtTheVapourPressure) {
    activate_vapour_only("Propane");
    options.partial_gas = true;
    const double T = 300;
    const double pLV = models::vapour_pressure(substance, T, codes::vp("WAG"))->p;
    for (const int code : {std::int16_t{2}, std::int16_t{26}}) {
        const Drawn curve = Draw(code, {.T = T});
        EXPECT_EQ(curve.last().x, static_cast<float>(pLV));
        for (const CurvePoint& point : curve.points()) {
            const double v = Textbook::R * T / point.x + bvirial(T);
            EXPECT_NEAR(point.y / (code == 2 ? point.x * v : M() / v), 1, 1e-6);
        }
    }
    options.partial_gas = false;
    EXPECT_GT(Draw(2, {.T = T}).last().x, static_cast<float>(pLV));
}

TEST_F(Sections, TheMetastableIsothermOverPressureGoesFromVapourToLiquid) {
    activate("Propane");
    branch = diagrams::Branch::metastable;
    const double T = Tc(0.93);
    const auto e = diagrams::equilibrium_at_T(fluid(), T).value();
    for (const int code : {std::int16_t{2}, std::int16_t{26}}) {
        const Drawn curve = Draw(code, {.T = T});
        EXPECT_FLOAT_EQ(curve.first().x, static_cast<float>(e.p));
        EXPECT_FLOAT_EQ(curve.last().x, static_cast<float>(e.p));
        EXPECT_FLOAT_EQ(curve.last().y, static_cast<float>(code == 2 ? e.p * e.vL : M() / e.vL));
        const double step = (curve.request.window.x_max - curve.request.window.x_min) / 300.0;
        for (std::size_t i = 2; i < curve.count(); ++i)
            EXPECT_GE(std::fabs(curve.nth(i).x - curve.nth(i - 1).x), 0.49 * step);
        for (const CurvePoint& point : curve.points()) {
            const double x = point.x, y = point.y;
            expect_on_equation(T, x, code == 2 ? y / x : M() / y);
        }
    }
}

TEST_F(Sections, IsobarsLieOnTheEquation) {
    for (const std::int16_t eos : kCubics) {
        activate("1,1,1,2-Tetrafluoroethane", eos);
        for (const double pr : {0.01, 0.4, 0.95, 1.0, 1.5}) {
            for (const int code : {std::int16_t{3}, std::int16_t{4}}) {
                const Drawn curve = Draw(code, {.p = pc(pr)});
                EXPECT_EQ(curve.mark(), -2);
                EXPECT_TRUE(ascending_x(curve));
                EXPECT_GT(curve.count(), 200U);
                for (const CurvePoint& point : curve.points()) {
                    const double v = code == 3 ? point.x : M() / point.x;
                    // A 32-bit T is the coarsest of the three.
                    const double shift = textbook().pressure(point.y * (1 + 1.2e-7), v) -
                                         textbook().pressure(point.y, v);
                    const double seen =
                        std::fabs(shift) + std::fabs(textbook().slope(point.y, v)) * v * 2e-7;
                    EXPECT_NEAR(textbook().pressure(point.y, v), pc(pr), 1.1 * seen + 1e-6);
                    EXPECT_FLOAT_EQ(point.z, static_cast<float>(pc(pr)));
                }
            }
        }
    }
}

TEST_F(Sections, AnIsobarBoilsAtOneTemperature) {
    activate("Water");
    const double p = 1000;
    const auto e = diagrams::equilibrium_at_p(fluid(), p).value();
    const Drawn curve = Draw(3, {.p = p});
    const auto boiling = [&](const CurvePoint& point) {
        return point.y == static_cast<float>(e.T);
    };
    EXPECT_EQ(std::count_if(curve.points().begin(), curve.points().end(), boiling), 2);
    for (const CurvePoint& point : curve.points()) {
        const bool isLiquid = point.x <= static_cast<float>(e.vL);
        const float edge = static_cast<float>(e.T);
        EXPECT_TRUE(isLiquid ? point.y <= edge : point.y >= edge) << point.x;
    }
}

TEST_F(Sections, TheMetastableIsobarRisesAndFallsBetweenItsEnds) {
    activate("Propane");
    branch = diagrams::Branch::metastable;
    const double p = pc(0.6);
    const auto e = diagrams::equilibrium_at_p(fluid(), p).value();
    const Drawn curve = Draw(3, {.p = p});
    EXPECT_FLOAT_EQ(curve.first().x, static_cast<float>(e.vL));
    EXPECT_FLOAT_EQ(curve.last().x, static_cast<float>(e.vV));
    EXPECT_FLOAT_EQ(curve.first().y, static_cast<float>(e.T));
    EXPECT_FLOAT_EQ(curve.last().y, static_cast<float>(e.T));
    const auto by_y = [](const CurvePoint& a, const CurvePoint& b) { return a.y < b.y; };
    const auto [lowest, highest] =
        std::minmax_element(curve.points().begin(), curve.points().end(), by_y);
    EXPECT_LT(highest, lowest) << "the superheated liquid comes before the subcooled vapour";
    EXPECT_GT(highest->y, static_cast<float>(e.T));
    EXPECT_LT(lowest->y, static_cast<float>(e.T));
    for (const CurvePoint& point : curve.points())
        EXPECT_NEAR(textbook().pressure(point.y, point.x), p, 2.0);
}

TEST_F(Sections, AVapourIsobarSkipsVolumesThatAreNone) {
    activate_vapour_only("Propane");
    const double p = 3000;
    const Drawn curve = Draw(3, {.p = p});
    EXPECT_LT(curve.count(), 301U);
    for (const CurvePoint& point : curve.points()) {
        EXPECT_GT(point.x, 0);
        const double ideal = Textbook::R * point.y / p;
        EXPECT_NEAR(point.x, ideal + bvirial(point.y), 1e-6 * ideal);
    }
}

TEST_F(Sections, TheIsochoreAboveTheCriticalVolumeEndsOnTheDewLine) {
    activate("Carbon dioxide");
    const double v = 2 * eosConstants.vcrit_calculated;
    const Drawn curve = Draw(5, {.v = v});
    EXPECT_EQ(curve.result.status, 0);
    EXPECT_EQ(curve.mark(), -3);
    const auto e = diagrams::equilibrium_at_T(fluid(), curve.last().x).value();
    EXPECT_NEAR(curve.last().y / e.p, 1, 1e-5);
    // One step above the end the state is still gas, one step below it would be wet.
    EXPECT_GT(diagrams::equilibrium_at_T(fluid(), curve.nth(curve.count() - 1).x).value().p,
              curve.nth(curve.count() - 1).y);
    for (std::size_t i = 1; i < curve.count(); ++i) {
        EXPECT_NEAR(textbook().pressure(curve.nth(i).x, v) / curve.nth(i).y, 1, 1e-6);
        EXPECT_FLOAT_EQ(curve.nth(i).z, static_cast<float>(v));
    }
}

TEST_F(Sections, TheIsochoreBelowTheCriticalVolumeEndsOnTheBoilingLine) {
    activate("Carbon dioxide");
    const double v = 0.6 * eosConstants.vcrit_calculated;
    const Drawn curve = Draw(5, {.v = v});
    const auto e = diagrams::equilibrium_at_T(fluid(), curve.last().x).value();
    EXPECT_NEAR(curve.last().y / e.p, 1, 1e-5);
}

TEST_F(Sections, WithoutTheRealRangeTheIsochoreGoesOnToTheEndOfTheWindow) {
    activate("Carbon dioxide");
    options.real_range_only = false;
    const Drawn curve = Draw(5, {.v = 2 * eosConstants.vcrit_calculated});
    EXPECT_EQ(curve.count(), 301U);
    EXPECT_EQ(curve.last().x, curve.request.window.x_min);
}

TEST_F(Sections, AnIsochoreWithTheEquationOfTheVapourPressureEndsOnIt) {
    activate("Propane");
    selection.eos_has_priority = false;
    const Drawn curve = Draw(5, {.v = 2 * eosConstants.vcrit_calculated});
    EXPECT_NEAR(
        curve.last().y / models::vapour_pressure(substance, curve.last().x, codes::vp("WAG"))->p, 1,
        1e-5);
}

TEST_F(Sections, SpecificAndReducedUnitsShowTheSameStates) {
    activate("Propane");
    const diagrams::StateParameters at{
        .T = Tc(1.1), .p = pc(0.5), .v = 1.3 * eosConstants.vcrit_calculated};
    for (const int code : {1, 2, 26, 3, 4, 5}) {
        set_units(0, 0);
        const Drawn molar = Draw(code, at);
        const auto factor_x = [&] {
            if (code == 1 || code == 3) return basis().v_factor();
            if (code == 4) return 1.0;
            return static_cast<double>(code == 5 ? basis().units.T : basis().units.p);
        };
        const auto factor_y = [&] {
            if (code == 2) return static_cast<double>(basis().units.p) * basis().v_factor();
            if (code == 26) return 1.0;
            return static_cast<double>(code == 3 || code == 4 ? basis().units.T : basis().units.p);
        };
        for (const auto& [caloric, mode] : {std::pair{3, 1}, std::pair{0, 2}}) {
            set_units(static_cast<std::int16_t>(caloric), static_cast<std::int16_t>(mode));
            diagrams::DiagramRequest request = molar.request;
            request.window.x_min = static_cast<float>(request.window.x_min * factor_x());
            request.window.x_max = static_cast<float>(request.window.x_max * factor_x());
            request.window.y_min = static_cast<float>(request.window.y_min * factor_y());
            request.window.y_max = static_cast<float>(request.window.y_max * factor_y());
            const Drawn other = Draw(request, at);
            ASSERT_EQ(other.count(), molar.count()) << code << " mode " << mode;
            for (std::size_t i = 1; i <= molar.count(); ++i) {
                EXPECT_NEAR(other.nth(i).x, molar.nth(i).x * factor_x(),
                            2e-5 * std::fabs(other.nth(i).x));
                EXPECT_EQ(other.nth(i).z, molar.nth(i).z) << "the parameter stays in K, kPa";
            }
        }
    }
}

TEST_F(Sections, ThePointsPerCurveComeFromTheOptions) {
    activate("Propane");
    options.points = 50;
    EXPECT_EQ(Draw(2, {.T = 400}).count(), 51U);
    options.points = 120;
    EXPECT_EQ(Draw(2, {.T = 400}).count(), 121U);
}

}  // namespace
