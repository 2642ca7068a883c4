#include <algorithm>
#include <map>

#include "chart/chart2d.h"
#include "diagrams/active_fluid.h"
#include "diagrams/diagram.h"
#include "diagrams/equilibrium.h"
#include "diagrams/textbook.h"
#include "models/caloric.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "support/codes.h"

using namespace quor;

namespace {

using diagrams::CurvePoint;
using models::StateValues;

/// Curves of caloric functions: every point against a state evaluated on its own.
class FunctionCurves : public ActiveFluid {
  protected:
    double Tc(double share) { return share * substance.Tcrit; }
    double pc(double share) { return share * substance.pcrit; }
    diagrams::Equilibrium sat_T(double T) {
        return diagrams::equilibrium_at_T(fluid(), T).value_or(diagrams::Equilibrium{});
    }
    diagrams::Equilibrium sat_p(double p) {
        return diagrams::equilibrium_at_p(fluid(), p).value_or(diagrams::Equilibrium{});
    }

    /// The stable state at T and p by the solver of the system.
    std::optional<models::StateValues> stable(double T, double p) {
        const auto state = solve(T, p);
        const bool liquid = state->has_L && !state->has_V;
        return functions(T, p, liquid ? *state->vL : *state->vV);
    }
    /// Do values agree to what a 32-bit coordinate (here T or p) and value let one see?
    void expect_seen(double drawn, double direct, double slope, double at) {
        EXPECT_NEAR(drawn, direct, 2e-7 * (std::fabs(direct) + std::fabs(slope * at)) + 1e-5)
            << "at " << at;
    }
};

using Member = diagrams::Function;

const std::map<int, Member> kOverT = {{15, diagrams::Function::h},
                                      {16, diagrams::Function::s},
                                      {17, diagrams::Function::g},
                                      {18, diagrams::Function::eH}};
const std::map<int, Member> kIsochoric = {{181, diagrams::Function::eU},
                                          {182, diagrams::Function::a},
                                          {183, diagrams::Function::u},
                                          {184, diagrams::Function::s},
                                          {185, diagrams::Function::cv}};
const std::map<int, Member> kOverP = {{150, diagrams::Function::h},  {151, diagrams::Function::s},
                                      {152, diagrams::Function::g},  {153, diagrams::Function::eH},
                                      {154, diagrams::Function::cp}, {155, diagrams::Function::eU}};
const std::map<int, Member> kOverV = {{156, diagrams::Function::a},
                                      {157, diagrams::Function::u},
                                      {158, diagrams::Function::s},
                                      {159, diagrams::Function::cv},
                                      {160, diagrams::Function::eU}};

int code_of(const std::pair<const int, Member>& row) {
    return static_cast<std::int16_t>(row.first);
}

TEST_F(FunctionCurves, IsobarsHoldTheFunctionOfTheirTitle) {
    activate("Propane");
    for (const double pr : {0.1, 0.7, 1.3}) {
        const double p = pc(pr);
        const auto e = sat_p(p);
        for (const auto& row : kOverT) {
            const Drawn curve = Draw(code_of(row), {.p = p});
            EXPECT_EQ(curve.result.status, 0) << row.first;
            EXPECT_EQ(curve.mark(), -2);
            EXPECT_EQ(curve.count(), pr < 1 ? 303U : 301U);
            EXPECT_EQ(curve.first().x, curve.request.window.x_min)
                << "clamped on the end of the window";
            for (const CurvePoint& point : curve.points()) {
                EXPECT_FLOAT_EQ(point.z, static_cast<float>(p));
                if (std::fabs(point.x - e.T) < 0.01) continue;
                const auto z = stable(point.x, p);
                const double slope = row.first == 15   ? z->cp
                                     : row.first == 16 ? z->cp / point.x
                                                       : z->s;
                expect_seen(point.y, *diagrams::value_of(z, row.second), slope, point.x);
            }
        }
    }
}

TEST_F(FunctionCurves, AnIsobarCrossesTheCoexistenceCurveAtBothEndsOfTheTieLine) {
    activate("Propane");
    const double p = pc(0.4);
    const auto e = sat_p(p);
    for (const auto& row : kOverT) {
        const Drawn curve = Draw(code_of(row), {.p = p});
        const auto pts = curve.points();
        const auto L = std::find_if(pts.begin(), pts.end(), [&](const CurvePoint& point) {
            return point.x == static_cast<float>(e.T);
        });
        ASSERT_LT(L + 1, pts.end());
        EXPECT_EQ((L + 1)->x, L->x);
        EXPECT_FLOAT_EQ(
            L->y, static_cast<float>(*diagrams::value_of(functions(e.T, p, e.vL), row.second)));
        EXPECT_FLOAT_EQ((L + 1)->y, static_cast<float>(
                                        *diagrams::value_of(functions(e.T, p, e.vV), row.second)));
        EXPECT_NEAR((L - 1)->x, e.T - 0.0001, 5e-5) << "the first step of the liquid";
        // Only the Gibbs function is the same at both ends.
        const bool equal = std::fabs(L->y - (L + 1)->y) < 1e-5 * std::fabs(L->y);
        EXPECT_EQ(equal, row.first == 17) << row.first;
    }
}

TEST_F(FunctionCurves, AlongAnIsobarDhIsTds) {
    activate("Carbon dioxide");
    const diagrams::StateParameters at{.p = pc(1.4)};
    const Drawn h = Draw(15, at), s = Draw(16, at);
    ASSERT_EQ(h.count(), s.count());
    for (std::size_t i = 2; i <= h.count(); ++i) {
        const double dh = h.nth(i).y - h.nth(i - 1).y;
        const double ds = s.nth(i).y - s.nth(i - 1).y;
        const double T = 0.5 * (static_cast<double>(h.nth(i).x) + h.nth(i - 1).x);
        EXPECT_NEAR(dh / (T * ds), 1, 2e-3) << T;
    }
}

TEST_F(FunctionCurves, AlongAnIsothermDgIsVdp) {
    activate("Carbon dioxide");
    const double T = Tc(1.2);
    const Drawn g = Draw(152, {.T = T}), rho = Draw(26, {.T = T});
    const double M = static_cast<double>(substance.M);
    // g falls with x on this curve, rho rises: pair the passes from both ends.
    for (std::size_t i = 2; i < g.count() - 1; ++i) {
        const CurvePoint& high = g.nth(i);
        const CurvePoint& low = g.nth(i + 1);
        const std::size_t j = rho.count() + 1 - i;
        const double v = 0.5 * (M / rho.nth(j).y + M / rho.nth(j - 1).y);
        const double dg = static_cast<double>(high.y) - low.y;
        const double dp = static_cast<double>(high.x) - low.x;
        EXPECT_NEAR(dg / (v * dp), 1, low.x > 500 ? 5e-3 : 0.3) << low.x;
    }
}

TEST_F(FunctionCurves, IsochoresHoldTheFunctionOfTheirTitle) {
    activate("Propane");
    const double v = 3 * eosConstants.vcrit_calculated;
    for (const auto& row : kIsochoric) {
        const Drawn curve = Draw(code_of(row), {.v = v});
        EXPECT_EQ(curve.mark(), -3);
        EXPECT_GT(curve.count(), 100U);
        for (const CurvePoint& point : curve.points()) {
            EXPECT_FLOAT_EQ(point.z, static_cast<float>(v));
            const double p = pressure(point.x, v);
            EXPECT_GT(p, 0);
            const auto z = functions(point.x, p, v);
            EXPECT_NEAR(point.y, *diagrams::value_of(z, row.second),
                        1e-6 * std::fabs(*diagrams::value_of(z, row.second)) + 0.03);
        }
    }
}

TEST_F(FunctionCurves, IsothermsOverPressureHoldTheFunctionOfTheirTitle) {
    activate("Propane");
    for (const double Tr : {0.8, 0.97, 1.2}) {
        const double T = Tc(Tr);
        const auto e = sat_T(T);
        for (const auto& row : kOverP) {
            const Drawn curve = Draw(code_of(row), {.T = T});
            EXPECT_EQ(curve.mark(), -1);
            EXPECT_EQ(curve.count(), Tr < 1 ? 303U : 301U);
            EXPECT_EQ(curve.last().x, curve.request.window.x_min);
            for (const CurvePoint& point : curve.points()) {
                EXPECT_FLOAT_EQ(point.z, static_cast<float>(T));
                if (std::fabs(point.x - e.p) < 0.01) continue;
                const auto z = stable(T, point.x);
                EXPECT_NEAR(point.y, *diagrams::value_of(z, row.second),
                            3e-6 * std::fabs(*diagrams::value_of(z, row.second)) + 0.01);
            }
        }
    }
}

TEST_F(FunctionCurves, AnIsothermOverPressurePlacesTheTieLineBetweenItsPhases) {
    activate("Propane");
    const double T = Tc(0.85);
    const auto e = sat_T(T);
    const Drawn curve = Draw(150, {.T = T});
    const auto pts = curve.points();
    const auto L = std::find_if(pts.begin(), pts.end(), [&](const CurvePoint& point) {
        return point.x == static_cast<float>(e.p);
    });
    ASSERT_LT(L + 2, pts.end());
    EXPECT_FLOAT_EQ(L->y, static_cast<float>(functions(T, e.p, e.vL)->h));
    EXPECT_FLOAT_EQ((L + 1)->y, static_cast<float>(functions(T, e.p, e.vV)->h));
    EXPECT_GT((L + 2)->y, (L - 1)->y) << "the walk goes from liquid to vapour";
}

TEST_F(FunctionCurves, IsothermsOverVolumeHoldTheFunctionOfTheirTitle) {
    activate("Propane");
    for (const double Tr : {0.9, 1.2}) {
        const double T = Tc(Tr);
        const auto e = diagrams::equilibrium_at_T(fluid(), T);
        for (const auto& row : kOverV) {
            const Drawn curve = Draw(code_of(row), {.T = T});
            EXPECT_EQ(curve.mark(), -2);
            int inside = 0;
            for (const CurvePoint& point : curve.points()) {
                const double v = point.x;
                inside += e && v > 1.00001 * e->vL && v < 0.99999 * e->vV ? 1 : 0;
                const double p = pressure(T, v);
                const auto z = functions(T, p, v);
                const double tolerance =
                    row.first == 157 || row.first == 160 || row.first == 156
                        ? 3e-6 * std::fabs(*diagrams::value_of(z, row.second)) + 0.2
                        : 1e-5 * std::fabs(*diagrams::value_of(z, row.second)) + 1e-5;
                EXPECT_NEAR(point.y, *diagrams::value_of(z, row.second), tolerance)
                    << row.first << " v " << v;
            }
            EXPECT_EQ(inside, 0) << "the loop jumps from v(L) to v(V)";
        }
    }
}

TEST_F(FunctionCurves, HeatCapacityIsIdealGasPlusResidual) {
    activate("Water");
    const double p = 500;
    const Drawn curve = Draw(19, {.p = p});
    EXPECT_EQ(curve.mark(), -2);
    EXPECT_EQ(curve.count(), 301U);
    for (const CurvePoint& point : curve.points()) {
        const auto z = stable(point.x, p);
        const double expected =
            models::ideal_gas_cp(substance, selection.cp_form, point.x).value() +
            Textbook::R * z->table.residual[models::ResCp];
        EXPECT_NEAR(point.y / expected, 1, 1e-5);
        EXPECT_NEAR(point.y / z->cp, 1, 1e-5);
    }
}

TEST_F(FunctionCurves, JouleThomsonIsTheSlopeOfAnIsenthalpic) {
    activate("Carbon dioxide");
    const double p = 3000;
    const Drawn curve = Draw(34, {.p = p});
    EXPECT_EQ(curve.mark(), -2);
    const auto e = sat_p(p);
    for (const CurvePoint& point : curve.points()) {
        const double T = point.x;
        if (std::fabs(T - e.T) < 3) continue;
        // (dT/dp)h = -(dh/dp)T/(dh/dT)p
        const double hp = (stable(T, p + 1)->h - stable(T, p - 1)->h) / 2;
        const double hT = (stable(T + 0.01, p)->h - stable(T - 0.01, p)->h) / 0.02;
        EXPECT_NEAR(point.y, -hp / hT, 1e-4 * std::fabs(hp / hT) + 1e-7) << T;
    }
}

TEST_F(FunctionCurves, ResidualFunctionsVanishWithThePressure) {
    activate("Propane");
    for (const int code : {30, 31, 32, 33}) {
        const Drawn curve = Draw(code, {.p = 1e-3});
        EXPECT_EQ(curve.mark(), -2);
        EXPECT_NEAR(curve.last().y, 0, 1e-2) << code;
    }
    for (const int code : {40, 41, 42, 43}) {
        diagrams::DiagramRequest request = RequestFor(code);
        request.window.x_min = 1e-3F;
        const Drawn curve = Draw(request, {.T = Tc(1.1)});
        EXPECT_EQ(curve.mark(), -1);
        EXPECT_NEAR(curve.last().y, 0, 1e-2) << code;
    }
}

TEST_F(FunctionCurves, ResidualFunctionsAreWhatTheFluidHasMoreThanItsIdealGas) {
    activate("Propane");
    const std::map<int, int> columns = {{30, 0}, {31, 1}, {32, 2}, {33, 3},
                                        {40, 0}, {41, 1}, {42, 2}, {43, 3}};
    const double p = pc(0.5), T = Tc(0.95);
    for (const auto& [code, column] : columns) {
        const bool isobaric = code < 40;
        const Drawn curve = Draw(static_cast<std::int16_t>(code), {.T = T, .p = p});
        const auto e = isobaric ? sat_p(p) : sat_T(T);
        for (const CurvePoint& point : curve.points()) {
            if (std::fabs(point.x - (isobaric ? e.T : e.p)) < 0.01) continue;
            const double t = isobaric ? point.x : T;
            const double q = isobaric ? p : point.x;
            const auto z = stable(t, q);
            const auto ideal =
                models::ideal_gas_functions(substance, selection.cp_form, reference, t, q);
            const double expected[] = {z->s - ideal->s, z->h - ideal->h,
                                       z->g - (ideal->h - t * ideal->s), z->cp - ideal->cp};
            EXPECT_NEAR(point.y, expected[column], 3e-6 * std::fabs(expected[column]) + 0.02)
                << code << " " << point.x;
        }
    }
}

TEST_F(FunctionCurves, CaloricUnitsApplyAtTheTemperatureOfThePoint) {
    activate("Propane");
    const diagrams::StateParameters at{.T = Tc(1.2), .p = pc(0.3)};
    const double M = static_cast<double>(substance.M);
    for (const int code : {15, 16, 30, 150, 154}) {
        set_units(0, 0);
        const diagrams::DiagramRequest request = RequestFor(code);
        const Drawn molar = Draw(request, at);
        for (const int unit : {1, 2, 3}) {
            units.caloric = static_cast<models::CaloricUnit>(unit);
            const Drawn other = Draw(request, at);
            ASSERT_EQ(other.count(), molar.count());
            for (std::size_t i = 1; i <= molar.count(); ++i) {
                const double T = code < 100 ? molar.nth(i).x : at.T;
                const double factor = unit == 1   ? 1 / Textbook::R
                                      : unit == 2 ? 1 / (Textbook::R * T)
                                                  : 1 / M;
                EXPECT_NEAR(other.nth(i).y, molar.nth(i).y * factor,
                            2e-6 * std::fabs(other.nth(i).y) + 1e-9)
                    << code << " unit " << unit;
            }
        }
        units.caloric = models::CaloricUnit::molar;
    }
}

TEST_F(FunctionCurves, TheMetastableBranchesJoinBothEndsOfTheTieLine) {
    activate("Propane");
    branch = diagrams::Branch::metastable;
    const diagrams::StateParameters at{.T = Tc(0.93), .p = pc(0.6)};
    const auto eT = sat_T(at.T);
    const auto ep = sat_p(at.p);
    for (const int code : {15, 16,  17,  18,  19,  30,  31,  32,  33,  40,  41,  42,
                           43, 150, 151, 152, 153, 154, 155, 156, 157, 158, 159, 160}) {
        const bool overT = code < 40, overV = code >= 156;
        const Drawn curve = Draw(code, at);
        EXPECT_GT(curve.count(), 10U) << code;
        const double first = overT ? ep.T : overV ? eT.vL : eT.p;
        const double last = overT ? ep.T : overV ? eT.vV : eT.p;
        EXPECT_FLOAT_EQ(curve.first().x, static_cast<float>(first)) << code;
        EXPECT_FLOAT_EQ(curve.last().x, static_cast<float>(last)) << code;
        if (overV) continue;
        // It leaves the tie-line to both sides.
        const auto [low, high] =
            std::minmax_element(curve.points().begin(), curve.points().end(),
                                [](const CurvePoint& a, const CurvePoint& b) { return a.x < b.x; });
        EXPECT_LT(low->x, first) << code;
        EXPECT_GT(high->x, first) << code;
    }
}

/// Lines of the height of the window joined +infinity and -infinity.
TEST_F(FunctionCurves, AMetastableHeatCapacityHasAGapAtEachOfItsPoles) {
    activate("Propane");
    branch = diagrams::Branch::metastable;
    for (const int code : {19, 33, 43, 154}) {
        const Drawn curve = Draw(code, {.T = Tc(0.93), .p = pc(0.6)});
        int gaps = 0;
        for (std::size_t i = 2; i <= curve.count(); ++i) {
            const CurvePoint &a = curve.nth(i - 1), &b = curve.nth(i);
            gaps += !chart::is_shown(b.y);
            if (!chart::is_shown(a.y) || !chart::is_shown(b.y)) continue;
            EXPECT_FALSE(a.y > 300 && b.y < -300) << code << " at " << b.x;
            EXPECT_FALSE(a.y < -300 && b.y > 300) << code << " at " << b.x;
        }
        EXPECT_EQ(gaps, 2) << code;
    }
}

TEST_F(FunctionCurves, MetastableStatesSatisfyTheEquation) {
    activate("Propane");
    branch = diagrams::Branch::metastable;
    const double p = pc(0.6);
    const Drawn h = Draw(15, {.p = p}), s = Draw(16, {.p = p});
    ASSERT_EQ(h.count(), s.count());
    for (std::size_t i = 2; i < h.count(); ++i) {
        // Some root of the cubic at T and p has this h and s.
        const auto roots = models::solve_cubic(models::eos_at(fluid(), h.nth(i).x), h.nth(i).x, p);
        double best = 1e9;
        for (int k = 0; k < roots->count; ++k) {
            const auto z = functions(h.nth(i).x, p, roots->v[static_cast<std::size_t>(k)]);
            best =
                std::min(best, std::fabs(z->h - h.nth(i).y) + 300 * std::fabs(z->s - s.nth(i).y));
        }
        EXPECT_LT(best, 30) << i;
    }
}

TEST_F(FunctionCurves, PartialGasCurvesEndAtTheCoexistenceCurve) {
    activate_vapour_only("Propane");
    options.partial_gas = true;
    const double p = 500, T = 300;
    const double TLV = models::boiling_temperature(substance, p, codes::vp("WAG"))->T;
    const double pLV = models::vapour_pressure(substance, T, codes::vp("WAG"))->p;
    for (const int code : {15, 30})
        EXPECT_EQ(Draw(code, {.p = p}).first().x, static_cast<float>(TLV)) << code;
    for (const int code : {150, 40})
        EXPECT_EQ(Draw(code, {.T = T}).first().x, static_cast<float>(pLV)) << code;
}

TEST_F(FunctionCurves, PairsOfFunctionsHoldTheStatesOfTheirRange) {
    activate("Propane");
    struct Pair {
        int code;
        Member x, y;
    };
    const double T = Tc(0.85), p = pc(0.4);
    for (const Pair& pair : {Pair{21, diagrams::Function::h, diagrams::Function::eH},
                             Pair{107, diagrams::Function::s, diagrams::Function::h},
                             Pair{109, diagrams::Function::s, diagrams::Function::eH},
                             Pair{22, diagrams::Function::h, diagrams::Function::eH},
                             Pair{24, diagrams::Function::s, diagrams::Function::h},
                             Pair{23, diagrams::Function::s, diagrams::Function::eH}}) {
        const bool isothermal = pair.code == 21 || pair.code > 100;
        process.range_start = isothermal ? 4000 : 420;  // exchanged by the curve
        process.range_end = isothermal ? 10 : 120;
        const Drawn curve = Draw(static_cast<std::int16_t>(pair.code), {.T = T, .p = p});
        EXPECT_EQ(curve.mark(), isothermal ? -2 : -1);
        EXPECT_EQ(curve.count(), 303U) << "301 passes and both ends of the tie-line";
        EXPECT_FLOAT_EQ(curve.first().z, isothermal ? 10.0F : 120.0F);
        EXPECT_FLOAT_EQ(curve.last().z, isothermal ? 4000.0F : 420.0F);
        const double scale = pair.code == 23 || pair.code == 109 ? reference.Tenv : 1;
        const auto e = isothermal ? sat_T(T) : sat_p(p);
        for (const CurvePoint& point : curve.points()) {
            if (std::fabs(point.z - (isothermal ? e.p : e.T)) < 0.01) continue;
            const auto z = isothermal ? stable(T, point.z) : stable(point.z, p);
            EXPECT_NEAR(point.x, *diagrams::value_of(z, pair.x) * scale,
                        3e-6 * std::fabs(*diagrams::value_of(z, pair.x) * scale) + 0.01);
            EXPECT_NEAR(point.y, *diagrams::value_of(z, pair.y),
                        3e-6 * std::fabs(*diagrams::value_of(z, pair.y)) + 0.01);
        }
    }
}

TEST_F(FunctionCurves, InTheTwoPhaseRegionAnIsothermOfHAndSHasTheSlopeT) {
    activate("Water");
    process.range_start = 1;
    process.range_end = 22000;
    const double T = 400;
    const Drawn curve = Draw(107, {.T = T});
    const auto e = sat_T(T);
    const auto pts = curve.points();
    const auto V = std::find_if(pts.begin(), pts.end(), [&](const CurvePoint& point) {
        return point.z == static_cast<float>(e.p);
    });
    ASSERT_LT(V + 1, pts.end());
    EXPECT_NEAR((V->y - (V + 1)->y) / (V->x - (V + 1)->x), T, 0.01);
}

}  // namespace
