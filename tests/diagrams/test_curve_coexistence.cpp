#include <algorithm>
#include <array>

#include "diagrams/active_fluid.h"
#include "diagrams/equilibrium.h"
#include "diagrams/textbook.h"
#include "models/caloric.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/vapour_pressure.h"
#include "support/codes.h"

using namespace quor;

namespace {

using diagrams::CurvePoint;
using diagrams::Equilibrium;
using models::StateValues;

/// Coexistence curves and all that is drawn over them.
class Coexistence : public ActiveFluid {
  protected:
    double M() { return static_cast<double>(substance.M); }
    Equilibrium sat_T(double T) { return diagrams::equilibrium_at_T(fluid(), T).value(); }
    Equilibrium sat_p(double p) { return diagrams::equilibrium_at_p(fluid(), p).value(); }
    Drawn dome(int code, double fraction) {
        vapour_fraction = fraction;
        return Draw(code, {.T = 300, .p = 500});
    }
    double mixed(double L, double V) { return (V - L) * vapour_fraction + L; }
};

constexpr std::int16_t kCubics[] = {2, 3, 4, 5, 6};
constexpr const char* kFluids[] = {"Water", "Carbon dioxide", "1,1,1,2-Tetrafluoroethane"};
/// Boiling line, isohygric, dew line.
constexpr std::array<double, 3> kFractions = {0.0, 0.4, 1.0};

// ---- the dome in p-v: its shape is what users look at

TEST_F(Coexistence, TheDomeInPAndVStartsAtTheCriticalPointAndFallsMonotonously) {
    for (const char* name : kFluids) {
        for (const int code : kCubics) {
            activate(name, code);
            for (const double fraction : kFractions) {
                const Drawn curve = dome(6, fraction);
                EXPECT_EQ(curve.result.status, 0);
                EXPECT_EQ(curve.mark(), -1);
                EXPECT_EQ(curve.first().x, static_cast<float>(eosConstants.vcrit_calculated));
                EXPECT_EQ(curve.first().y, static_cast<float>(substance.pcrit));
                EXPECT_EQ(curve.first().z, static_cast<float>(substance.Tcrit));
                for (std::size_t i = 2; i <= curve.count(); ++i) {
                    EXPECT_LT(curve.nth(i).y, curve.nth(i - 1).y);
                    EXPECT_LT(curve.nth(i).z, curve.nth(i - 1).z);
                    const float step = curve.nth(i).x - curve.nth(i - 1).x;
                    if (fraction == 0) {
                        EXPECT_LE(step, 0) << name << code;
                    }
                    if (fraction == 1) {
                        EXPECT_GE(step, 0) << name << code;
                    }
                }
            }
        }
    }
}

TEST_F(Coexistence, NeighbouringPointsOfTheDomeAreWithinanOfTheWindow) {
    for (const char* name : kFluids) {
        activate(name, kPengRobinson);
        for (const double fraction : {0.0, 1.0}) {
            const Drawn curve = dome(6, fraction);
            const double widest = curve.request.window.x_max / 800.0,
                         highest = curve.request.window.y_max / 800.0;
            for (std::size_t i = 2; i <= curve.count(); ++i) {
                EXPECT_LE(std::fabs(curve.nth(i).x - curve.nth(i - 1).x), 1.001 * widest);
                EXPECT_LE(std::fabs(curve.nth(i).y - curve.nth(i - 1).y), 1.001 * highest);
            }
        }
    }
}

TEST_F(Coexistence, TheDomeHasNoKinks) {
    for (const char* name : kFluids) {
        for (const int code : kCubics) {
            activate(name, code);
            for (const double fraction : {0.0, 1.0}) {
                const Drawn curve = dome(6, fraction);
                const double width = curve.request.window.x_max,
                             height = curve.request.window.y_max;
                // How far a point lies from the straight line between its neighbours, in the
                // proportions of the window: the bend of one pixel is a thousandth or two.
                for (std::size_t i = 2; i + 1 <= curve.count(); ++i) {
                    const auto x = [&](std::size_t k) { return curve.nth(k).x / width; };
                    const auto y = [&](std::size_t k) { return curve.nth(k).y / height; };
                    const double dx = x(i + 1) - x(i - 1), dy = y(i + 1) - y(i - 1);
                    const double area = dx * (y(i) - y(i - 1)) - dy * (x(i) - x(i - 1));
                    EXPECT_LT(std::fabs(area) / std::hypot(dx, dy), 3e-4)
                        << name << code << " x " << fraction << " at " << curve.nth(i).x;
                }
            }
        }
    }
}

TEST_F(Coexistence, TheDomeReachesTheTriplePointOrTheEdgeOfTheWindow) {
    for (const char* name : kFluids) {
        activate(name, kPengRobinson);
        EXPECT_EQ(dome(6, 0).last().z, substance.Ttriple) << "the boiling line";
        const Drawn dew = dome(6, 1);
        EXPECT_GT(dew.last().x, dew.request.window.x_max);
        EXPECT_LT(dew.last().x, 1.01F * dew.request.window.x_max);
    }
}

TEST_F(Coexistence, EveryPointOfTheDomeIsAnEquilibrium) {
    for (const int code : kCubics) {
        activate("Carbon dioxide", code);
        const Textbook eos(code, substance.Tcrit, substance.pcrit, substance.omega);
        for (const double fraction : kFractions) {
            const Drawn curve = dome(6, fraction);
            for (const CurvePoint& point : curve.points()) {
                const Equilibrium e = sat_T(std::min<double>(point.z, substance.Tcrit));
                // z is a 32-bit T: near the critical point the volumes answer to it with a root.
                const double near = std::sqrt(2e-7 + (1 - point.z / substance.Tcrit) * 0);
                EXPECT_NEAR(point.y / e.p, 1, 2e-5);
                EXPECT_NEAR(point.x / mixed(e.vL, e.vV), 1, 1e-3 + 4 * near);
            }
        }
        // The ends of the tie-line at T satisfy the equation itself.
        const Equilibrium e = sat_T(0.8 * substance.Tcrit);
        EXPECT_NEAR(eos.pressure(e.T, e.vV) / e.p, 1, 1e-7);
    }
}

TEST_F(Coexistence, AZoomIntoTheCriticalPointShowsARoundTop) {
    activate("Carbon dioxide");
    diagrams::DiagramRequest request = RequestFor(6);
    const double vc = eosConstants.vcrit_calculated, pc = substance.pcrit;
    request.window.x_min = static_cast<float>(0.98 * vc);
    request.window.x_max = static_cast<float>(1.02 * vc);
    request.window.y_min = static_cast<float>(0.999 * pc);
    request.window.y_max = static_cast<float>(1.0001 * pc);
    for (const double fraction : {0.0, 1.0}) {
        vapour_fraction = fraction;
        const Drawn curve = Draw(request, {});
        EXPECT_EQ(curve.first().y, static_cast<float>(pc));
        // pc - p goes with the square of the distance from vc.
        const CurvePoint& far = curve.nth(curve.count() / 8);
        const double shape = (pc - far.y) / std::pow(far.x - vc, 2);
        for (std::size_t i = 3; i < curve.count() / 8; ++i) {
            const double expected = shape * std::pow(curve.nth(i).x - vc, 2);
            EXPECT_NEAR(pc - curve.nth(i).y, expected, 0.15 * expected + 1e-3);
        }
    }
}

TEST_F(Coexistence, AWindowBelowTheCriticalPressureStartsAtItsUpperEdge) {
    activate("Propane");
    diagrams::DiagramRequest request = RequestFor(6);
    request.window.y_max = 2000;
    vapour_fraction = 1;
    const Drawn curve = Draw(request, {});
    EXPECT_FLOAT_EQ(curve.first().y, 2000.0F);
    EXPECT_FLOAT_EQ(curve.first().z, static_cast<float>(sat_p(2000).T));
}

TEST_F(Coexistence, AWindowAboveTheCriticalPressureIsEmpty) {
    activate("Propane");
    diagrams::DiagramRequest request = RequestFor(6);
    request.window.y_min = static_cast<float>(1.1 * substance.pcrit);
    request.window.y_max = static_cast<float>(1.3 * substance.pcrit);
    const Drawn curve = Draw(request, {});
    EXPECT_EQ(curve.count(), 0U);
    EXPECT_EQ(curve.result.status, 10);
}

TEST_F(Coexistence, AWindowRightOfTheCriticalVolumeShowsTheDewLineAcrossIt) {
    activate("Propane");
    diagrams::DiagramRequest request = RequestFor(6);
    request.window.x_min = static_cast<float>(3 * eosConstants.vcrit_calculated);
    vapour_fraction = 1;
    const Drawn curve = Draw(request, {});
    EXPECT_EQ(curve.result.status, 0);
    EXPECT_LE(curve.first().x, request.window.x_min) << "the line enters through the left edge";
    EXPECT_GT(curve.nth(2).x, request.window.x_min);
    EXPECT_GT(curve.last().x, request.window.x_max) << "and leaves through the right one";
}

TEST_F(Coexistence, WithoutTheRealRangeTheBoilingLineGoesOnWithStatusTwo) {
    activate("Propane");
    options.real_range_only = false;
    substance.Ttriple = 200;
    const Drawn curve = dome(6, 0);
    EXPECT_EQ(curve.result.status, 2);
    EXPECT_LT(curve.last().z, 150);
}

// ---- the other coordinates

TEST_F(Coexistence, DomesOverPressureEndAtTheCriticalPointAndLieOnTheEquilibrium) {
    for (const char* name : kFluids) {
        activate(name, kSoave);
        for (const int code : {27, 106}) {
            for (const double fraction : kFractions) {
                const Drawn curve = dome(code, fraction);
                EXPECT_EQ(curve.mark(), -1);
                const double vc = eosConstants.vcrit_calculated;
                EXPECT_EQ(curve.last().x, static_cast<float>(substance.pcrit));
                EXPECT_FLOAT_EQ(curve.last().y,
                                static_cast<float>(code == 27 ? M() / vc : substance.pcrit * vc));
                for (const CurvePoint& point : curve.points()) {
                    const Equilibrium e = sat_p(std::min<double>(point.x, substance.pcrit));
                    const double v = mixed(e.vL, e.vV);
                    EXPECT_NEAR(point.y / (code == 27 ? M() / v : e.p * v), 1, 1e-4);
                    EXPECT_NEAR(point.z / e.T, 1, 1e-6);
                }
                // Down to the triple point, whatever the step of the window.
                EXPECT_NEAR(curve.first().x / static_cast<double>(substance.ptriple), 1, 1e-5);
            }
        }
    }
}

TEST_F(Coexistence, DomesOverTemperatureStartAtTheCriticalPointAndLieOnTheEquilibrium) {
    for (const std::int16_t eos : kCubics) {
        activate("1,1,1,2-Tetrafluoroethane", eos);
        for (const int code : {7, 12}) {
            for (const double fraction : kFractions) {
                const Drawn curve = dome(code, fraction);
                EXPECT_EQ(curve.mark(), -2);
                const double vc = eosConstants.vcrit_calculated;
                EXPECT_FLOAT_EQ(curve.first().x, static_cast<float>(code == 7 ? vc : M() / vc));
                EXPECT_EQ(curve.first().y, static_cast<float>(substance.Tcrit));
                const double step = (curve.request.window.y_max - curve.request.window.y_min) /
                                    300.0 * (fraction < 0.5 ? 0.5 : 2.0);
                EXPECT_NEAR(curve.first().y - curve.nth(2).y, step, 1e-3);
                EXPECT_LT(curve.last().y - substance.Ttriple, step);
                for (std::size_t i = 2; i <= curve.count(); ++i) {
                    const Equilibrium e = sat_T(curve.nth(i).y);
                    const double v = mixed(e.vL, e.vV);
                    EXPECT_NEAR(curve.nth(i).x / (code == 7 ? v : M() / v), 1, 1e-4);
                    EXPECT_NEAR(curve.nth(i).z / e.p, 1, 1e-5);
                }
            }
        }
    }
}

TEST_F(Coexistence, TheDomeOverTemperatureHasBothDensitiesInOneCurve) {
    activate("Propane");
    const Drawn curve = dome(8, 1);
    EXPECT_EQ(curve.mark(), -2);
    EXPECT_EQ(curve.count() % 2, 1U) << "the critical point and pairs";
    EXPECT_TRUE(std::is_sorted(curve.points().begin(), curve.points().end(),
                               [](const CurvePoint& a, const CurvePoint& b) { return a.y < b.y; }));
    const CurvePoint& top = curve.nth(curve.count() / 2 + 1);
    EXPECT_EQ(top.x, static_cast<float>(substance.Tcrit));
    EXPECT_FLOAT_EQ(top.y, static_cast<float>(M() / eosConstants.vcrit_calculated));
    for (std::size_t i = 1; i <= curve.count() / 2; ++i) {
        const CurvePoint& gas = curve.nth(i);
        const CurvePoint& liquid = curve.nth(curve.count() + 1 - i);
        EXPECT_EQ(gas.x, liquid.x);
        const Equilibrium e = sat_T(gas.x);
        EXPECT_NEAR(gas.y / (M() / e.vV), 1, 1e-4);
        EXPECT_NEAR(liquid.y / (M() / e.vL), 1, 1e-4);
    }
}

/// It drew nothing for carbon dioxide, nitrogen and methane, and a chord for water and propane.
TEST_F(Coexistence, TheRectilinearDiameterIsTheMeanOfTheDensitiesAllAlongTheDome) {
    for (const char* name : {"Propane", "Water", "Carbon dioxide", "Nitrogen", "Methane"}) {
        activate(name);
        const Drawn curve = Draw(80, {});
        EXPECT_EQ(curve.mark(), -2);
        EXPECT_GT(curve.count(), 50U) << name;
        EXPECT_EQ(curve.first().x, static_cast<float>(substance.Tcrit)) << name;
        const double step = (curve.request.window.x_max - curve.request.window.x_min) / 300.0;
        for (std::size_t i = 2; i <= curve.count(); ++i) {
            const Equilibrium e = sat_T(curve.nth(i).x);
            EXPECT_NEAR(curve.nth(i).y / (0.5 * (M() / e.vL + M() / e.vV)), 1, 1e-5) << name;
            EXPECT_GT(curve.nth(i - 1).x, curve.nth(i).x) << name;
            EXPECT_LT(curve.nth(i - 1).x - curve.nth(i).x, step + 1e-3) << name;
        }
        float lowest = curve.first().x;
        const Drawn dome_of_densities = Draw(8, {});
        for (const CurvePoint& point : dome_of_densities.points())
            lowest = std::min(lowest, point.x);
        EXPECT_EQ(curve.last().x, lowest) << name;
    }
}

TEST_F(Coexistence, TheDensityDomeNeedsACriticalVolume) {
    activate("Propane");
    eosConstants.vcrit_calculated = 0;
    for (const int code : {8, 80}) {
        const Drawn curve = Draw(code, {});
        EXPECT_EQ(curve.result.status, 3);
        EXPECT_EQ(TextOf(curve.result).title, "Execution not possible");
        EXPECT_EQ(TextOf(curve.result).text, "No critical density available");
    }
}

TEST_F(Coexistence, VapourPressureComesFromTheEOSOrFromTheEquation) {
    activate("Propane");
    const Drawn eos = Draw(9, {});
    EXPECT_EQ(eos.mark(), 0);
    EXPECT_EQ(eos.last().x, static_cast<float>(substance.Tcrit));
    EXPECT_EQ(eos.last().y, static_cast<float>(substance.pcrit)) << "it ends at the critical point";
    for (std::size_t i = 1; i < eos.count(); ++i) {
        EXPECT_LT(eos.nth(i).x, eos.nth(i + 1).x);
        EXPECT_NEAR(eos.nth(i).y / sat_T(eos.nth(i).x).p, 1, 1e-5);
    }
    selection.eos_has_priority = false;
    const Drawn equation = Draw(9, {});
    for (const CurvePoint& point : equation.points())
        EXPECT_NEAR(point.y / models::vapour_pressure(substance, point.x, codes::vp("WAG"))->p, 1,
                    1e-5);
}

TEST_F(Coexistence, LnPOverInverseTIsNearlyStraight) {
    activate("Propane");
    for (const bool byEOS : {true, false}) {
        selection.eos_has_priority = byEOS;
        const Drawn curve = Draw(10, {});
        EXPECT_EQ(curve.mark(), 0);
        for (const CurvePoint& point : curve.points()) {
            const double T = std::min(1 / static_cast<double>(point.x), substance.Tcrit);
            const double p =
                byEOS ? sat_T(T).p : models::vapour_pressure(substance, T, codes::vp("WAG"))->p;
            if (p > 0) {
                EXPECT_NEAR(point.y, std::log(p), 1e-5) << T;
            }
            EXPECT_GT(std::exp(static_cast<double>(point.y)), 0.0099);
        }
    }
    selection.eos_has_priority = true;
    set_units(0, 2);
    EXPECT_NEAR(Draw(10, {}).first().y, 0, 1e-6) << "ln p(red) is 0 at the critical point";
    EXPECT_NEAR(Draw(10, {}).first().x, 1, 1e-6);
}

TEST_F(Coexistence, TheSlopeOfTheVapourPressureIsItsDerivative) {
    activate("Propane");
    const Drawn curve = Draw(11, {});
    EXPECT_EQ(curve.mark(), 0);
    float largest = -1e9F, at = 0;
    for (const CurvePoint& point : curve.points()) {
        const double x = point.x, d = 1e-4 * x;
        const auto lnp = [this](double inverse) {
            return std::log(models::vapour_pressure(substance, 1 / inverse, codes::vp("WAG"))->p);
        };
        if (1 / (x - d) < substance.Tcrit) {
            EXPECT_NEAR(point.y, (lnp(x + d) - lnp(x - d)) / (2 * d), 2e-4 * std::fabs(point.y));
        }
        if (point.y > largest) at = point.x;
        largest = std::max(largest, point.y);
    }
    ASSERT_TRUE(curve.T_of_maximum.has_value());
    EXPECT_NEAR(*curve.T_of_maximum, 1 / static_cast<double>(at), 0.05);
    selection.vapour_pressure = codes::vp("AUG");
    EXPECT_FALSE(Draw(11, {}).T_of_maximum.has_value()) << "told of four equations only";
}

TEST_F(Coexistence, HeatOfVaporisationIsThatOfTheModel) {
    activate("Propane");
    substance.rhoL_T_low = 86;
    for (int model = 1; model <= 7; ++model) {
        selection.vaporisation = codes::hlv(model);
        selection.watson_n = 0.38F;
        const Drawn curve = Draw(13, {});
        if (model == 6) continue;  // needs a reference point of Benson's method
        EXPECT_EQ(curve.result.status, 0) << model;
        const bool givesPressure = model == 2 || model == 5 || model == 7;
        EXPECT_EQ(curve.mark(), givesPressure ? -2 : 0) << model;
        for (const CurvePoint& point : curve.points()) {
            EXPECT_LE(point.x, static_cast<float>(substance.Tcrit));
            const auto r = models::enthalpy_of_vaporisation(
                fluid(),
                {.model = codes::hlv(model), .equation = codes::vp("WAG"), .reference = {}},
                point.x, 0);
            EXPECT_NEAR(point.y, *r.h, 2e-5 * *r.h + 20) << model << " " << point.x;
            EXPECT_EQ(point.z > 0, givesPressure);
        }
    }
}

// ---- functions in the equilibrium

struct SaturationCode {
    int code;
    diagrams::Function function;
};

TEST_F(Coexistence, FunctionsOverPressureAndTemperatureMatchTheirDiagrams) {
    // Each of them bounds the sections of its own diagram.
    constexpr SaturationCode kCodes[] = {
        {70, diagrams::Function::h}, {71, diagrams::Function::s},  {72, diagrams::Function::cp},
        {73, diagrams::Function::g}, {74, diagrams::Function::eH}, {75, diagrams::Function::eU},
        {90, diagrams::Function::h}, {91, diagrams::Function::s},  {92, diagrams::Function::cp},
        {93, diagrams::Function::g}, {94, diagrams::Function::eH}, {95, diagrams::Function::eU},
        {98, diagrams::Function::a}, {99, diagrams::Function::u}};
    activate("Propane");
    for (const auto& [code, function] : kCodes) {
        for (const double fraction : kFractions) {
            const Drawn curve = dome(static_cast<std::int16_t>(code), fraction);
            EXPECT_EQ(curve.mark(), code < 90 ? -1 : -2);
            const bool overP = code < 90;
            const double critical = overP ? substance.pcrit : substance.Tcrit;
            if (function != diagrams::Function::cp) {
                EXPECT_EQ(curve.first().x, static_cast<float>(critical)) << code;
            }
            for (std::size_t i = 2; i <= curve.count(); ++i) {
                const CurvePoint& point = curve.nth(i);
                EXPECT_LT(point.x, curve.nth(i - 1).x);
                const Equilibrium e = overP ? sat_p(point.x) : sat_T(point.x);
                const double L = *diagrams::value_of(functions(e.T, e.p, e.vL), function);
                const double V = *diagrams::value_of(functions(e.T, e.p, e.vV), function);
                EXPECT_NEAR(point.y, mixed(L, V), 1e-4 * std::fabs(mixed(L, V)) + 0.05)
                    << code << " " << point.x;
                EXPECT_NEAR(point.z / (overP ? e.T : e.p), 1, 1e-5);
            }
        }
    }
}

TEST_F(Coexistence, FunctionsOverVolumeRunThroughTheCriticalPoint) {
    constexpr SaturationCode kCodes[] = {{89, diagrams::Function::cv},
                                         {97, diagrams::Function::a},
                                         {100, diagrams::Function::u},
                                         {101, diagrams::Function::s},
                                         {102, diagrams::Function::eU}};
    activate("Carbon dioxide");
    for (const auto& [code, function] : kCodes) {
        for (const double fraction : kFractions) {
            const Drawn curve = dome(static_cast<std::int16_t>(code), fraction);
            EXPECT_EQ(curve.mark(), -1);
            const auto critical = [&](const CurvePoint& point) {
                return point.x == static_cast<float>(eosConstants.vcrit_calculated) &&
                       point.z == static_cast<float>(substance.Tcrit);
            };
            EXPECT_TRUE(critical(curve.first()) || critical(curve.last())) << code;
            for (const CurvePoint& point : curve.points()) {
                if (critical(point)) continue;
                const Equilibrium e = sat_T(point.z);
                const double L = *diagrams::value_of(functions(e.T, e.p, e.vL), function);
                const double V = *diagrams::value_of(functions(e.T, e.p, e.vV), function);
                EXPECT_NEAR(point.y, mixed(L, V), 1e-4 * std::fabs(mixed(L, V)) + 0.05) << code;
                EXPECT_NEAR(point.x / mixed(e.vL, e.vV), 1, 1e-3);
                EXPECT_LE(e.vV, 50.01 * curve.request.window.x_max);
                EXPECT_GT(e.vL, 1.08 * e.state.b);
            }
        }
    }
}

TEST_F(Coexistence, PairsOfFunctionsCloseAtTheCriticalPointAndReachTheTriplePoint) {
    activate("Water");
    struct Pair {
        int code;
        diagrams::Function x, y;
    };
    for (const Pair& pair : {Pair{96, diagrams::Function::h, diagrams::Function::eH},
                             Pair{120, diagrams::Function::s, diagrams::Function::h},
                             Pair{121, diagrams::Function::s, diagrams::Function::eH}}) {
        const double scale = pair.code == 121 ? reference.Tenv : 1;
        for (const double fraction : {0.0, 1.0}) {
            const Drawn curve = dome(static_cast<std::int16_t>(pair.code), fraction);
            EXPECT_EQ(curve.mark(), -2);
            EXPECT_EQ(curve.last().z, static_cast<float>(substance.pcrit));
            // Correlation and EOS differ a little in p at one T, hence not exactly the triple
            // point.
            EXPECT_NEAR(sat_p(curve.first().z).T, substance.Ttriple, 1.0);
            for (const CurvePoint& point : curve.points()) {
                if (point.z == static_cast<float>(substance.pcrit)) continue;
                const Equilibrium e = sat_p(point.z);
                const auto L = functions(e.T, e.p, e.vL);
                const auto V = functions(e.T, e.p, e.vV);
                const double x =
                    mixed(*diagrams::value_of(L, pair.x), *diagrams::value_of(V, pair.x)) * scale;
                const double y =
                    mixed(*diagrams::value_of(L, pair.y), *diagrams::value_of(V, pair.y));
                EXPECT_NEAR(point.x, x, 1e-4 * std::fabs(x) + 0.05) << pair.code;
                EXPECT_NEAR(point.y, y, 1e-4 * std::fabs(y) + 0.5) << pair.code;
            }
        }
    }
}

TEST_F(Coexistence, AtFractionZeroAndOneTheIsohygricIsTheBoilingAndTheDewLine) {
    activate("Propane");
    const Drawn boiling = dome(7, 0), dew = dome(7, 1);
    for (const CurvePoint& point : boiling.points())
        EXPECT_LE(point.x, static_cast<float>(eosConstants.vcrit_calculated));
    for (const CurvePoint& point : dew.points())
        EXPECT_GE(point.x, static_cast<float>(eosConstants.vcrit_calculated));
}

TEST_F(Coexistence, AVapourEquationHasNone) {
    activate_vapour_only("Propane");
    for (const int code : {6, 7, 12, 27, 106, 70, 90, 97, 120}) {
        const Drawn curve = Draw(code, {.T = 300, .p = 500});
        EXPECT_EQ(curve.count(), 0U) << code;
        EXPECT_EQ(curve.result.status, 10) << code;
    }
}

// ---- tie-lines

TEST_F(Coexistence, TieLinesAreStraightAndHaveFiftyOnePoints) {
    activate("Propane");
    branch = diagrams::Branch::tieLine;
    const double T = 300;
    const Equilibrium e = sat_T(T);
    const Drawn curve = Draw(1, {.T = T, .p = 500});
    EXPECT_EQ(curve.result.status, 0);
    EXPECT_EQ(curve.count(), 51U);
    EXPECT_EQ(curve.mark(), -1);
    EXPECT_FLOAT_EQ(curve.first().x, static_cast<float>(e.vL));
    EXPECT_FLOAT_EQ(curve.last().x, static_cast<float>(e.vV));
    for (std::size_t i = 1; i <= 51; ++i) {
        EXPECT_EQ(curve.nth(i).y, static_cast<float>(e.p)) << "horizontal";
        EXPECT_EQ(curve.nth(i).z, static_cast<float>(T));
        EXPECT_NEAR(curve.nth(i).x, e.vL + (static_cast<double>(i) - 1) * (e.vV - e.vL) / 50,
                    1e-6 * e.vV);
    }
    EXPECT_TRUE(curve.tie_line.has_value()) << "both ends are kept";
    EXPECT_EQ(curve.tie_line->V.x, curve.last().x);
}

TEST_F(Coexistence, TieLinesOfEveryDiagramJoinBothPhases) {
    activate("Propane");
    branch = diagrams::Branch::tieLine;
    const diagrams::StateParameters at{.T = 310, .p = 800};
    for (const int code :
         {1,  2,   26,  6,  150, 151, 152, 153, 154, 155, 156, 157, 158, 159, 160, 40, 41, 42,
          43, 107, 109, 21, 3,   4,   15,  16,  17,  18,  19,  30,  31,  32,  33,  22, 23, 24}) {
        const Drawn curve = Draw(code, at);
        EXPECT_EQ(curve.count(), 51U) << code;
        const bool isobaric = curve.request.section() == diagrams::Section::isobaric;
        EXPECT_EQ(curve.mark(), isobaric ? -2 : -1) << code;
        EXPECT_FLOAT_EQ(curve.first().z, static_cast<float>(isobaric ? at.p : at.T)) << code;
    }
    const Equilibrium e = sat_p(at.p);
    EXPECT_FLOAT_EQ(Draw(3, at).first().y, static_cast<float>(e.T)) << "isobars: T(LV)";
    EXPECT_FLOAT_EQ(Draw(4, at).last().x, static_cast<float>(M() / e.vV));
    // g has the same value at both ends.
    const Drawn g = Draw(152, at);
    EXPECT_NEAR(g.first().y, g.last().y, 1e-5 * std::fabs(g.first().y));
}

TEST_F(Coexistence, AtTheCriticalPointThereIsNoTieLine) {
    activate("Propane");
    branch = diagrams::Branch::tieLine;
    const diagrams::StateParameters critical{.T = substance.Tcrit, .p = substance.pcrit};
    for (const int code : {1, 3, 15, 150}) {
        const Drawn curve = Draw(code, critical);
        EXPECT_EQ(curve.result.status, 4) << code;
        EXPECT_EQ(curve.count(), 0U);
        EXPECT_EQ(TextOf(curve.result).text,
                  "Tie-lines possible only for (T < T(cr)) and (p < p(cr))");
    }
}

}  // namespace
