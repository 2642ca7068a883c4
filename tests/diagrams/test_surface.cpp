#include "diagrams/surface.h"

#include <stdexcept>

#include "app/menu_graph_rows.h"
#include "diagrams/active_fluid.h"
#include "diagrams/equilibrium.h"
#include "diagrams/surface_grid.h"
#include "diagrams/surface_sheet.h"
#include "models/caloric.h"
#include "models/state_solver.h"
#include "support/codes.h"

using namespace quor;

namespace {

using chart::SurfaceGrid;

class Surface : public ActiveFluid {
  protected:
    static const diagrams::SurfaceKind& kind_of(int code) { return *diagrams::find_surface(code); }
    diagrams::SurfaceLimits default_limits(int code, bool s_curve) const {
        return diagrams::default_limits(kind_of(code), basis(), s_curve);
    }
    /// The grid between the default limits, which the test may change for the next one.
    SurfaceGrid grid(int code, int nx = 21, int ny = 17, bool s_curve = false) {
        code_ = code;
        SCurve_ = s_curve;
        limits3D = default_limits(code, s_curve);
        return again(nx, ny);
    }
    SurfaceGrid again(int nx, int ny) const {
        return diagrams::surface_grid(kind_of(code_), basis(), limits3D, SCurve_, nx, ny);
    }
    diagrams::SurfaceLimits limits3D;

  private:
    int code_ = 1;
    bool SCurve_ = false;

  protected:
    double value(const SurfaceGrid& g, int i, int j) { return g.z[g.at(i, j)]; }
    bool hole(const SurfaceGrid& g, int i, int j) { return g.is_hole(g.z[g.at(i, j)]); }
};

TEST_F(Surface, TextsStandAsWorded) {
    activate("Propane");
    const auto texts = [this](int kind) { return diagrams::texts_of(kind_of(kind), basis()); };
    EXPECT_EQ(texts(1).title, "Pressure p(v, T)");
    EXPECT_EQ(texts(3).title, "Volume  v(p, T)");
    EXPECT_EQ(texts(4).title, "Temperature T(v, p)");
    EXPECT_EQ(texts(5).title, "Heat Capacity cp(p, T)");
    EXPECT_EQ(texts(7).title, "Enthalpy  h(p, T)");
    EXPECT_EQ(texts(8).title, "Entropy s(p, T)");
    EXPECT_EQ(texts(9).title, "Gibbs Function g(p, T)");
    EXPECT_EQ(texts(10).title, "Exergy of H          e(p, T)");
    EXPECT_EQ(texts(1).sub_title, " for Propane,  CEOS Peng / Robinson");
    EXPECT_EQ(texts(4).x_label, "v / (m^3/kmol)");
    EXPECT_EQ(texts(4).y_label, "p / kPa");
    EXPECT_EQ(texts(4).z_label, "T / K");
    EXPECT_EQ(texts(7).z_label, "h / (kJ/kmol) ");
    EXPECT_EQ(texts(8).z_label, "s / (kJ/kmol/K) ");
    EXPECT_EQ(texts(1).note, "");
    EXPECT_EQ(texts(5).note, "");
    EXPECT_EQ(texts(7).note, "reference state: 298.15 K, 101.325 kPa");
    EXPECT_EQ(texts(8).note, texts(7).note);
    EXPECT_EQ(texts(9).note, texts(7).note);
    EXPECT_TRUE(texts(10).note.starts_with("surroundings: ")) << texts(10).note;
    set_units(3, 1);
    EXPECT_EQ(texts(3).z_label, "v / (m^3/kg)");
    EXPECT_EQ(texts(5).z_label, "cp / (kJ/kg/K)) ");
    set_units(0, 2);
    EXPECT_EQ(texts(1).x_label, "v(red)");
    EXPECT_EQ(texts(1).y_label, "T(red)");
    EXPECT_EQ(texts(1).z_label, "p(red)");
    for (const menu::Row& row : menu::graph_rows()) {
        if (row.action != "Diagram3D") continue;
        EXPECT_NE(diagrams::find_surface(row.code), nullptr) << row.caption;
    }
}

TEST_F(Surface, RangesAreSharesOfTheCriticalValues) {
    activate("Propane");
    const double pc = substance.pcrit, Tc = substance.Tcrit;
    const double vc = static_cast<double>(substance.M) / substance.rhocrit;
    struct Expected {
        int kind;
        bool s_curve;
        double p_min, p_max, T_min, T_max, v_max;
    };
    for (const Expected& e : {Expected{1, true, 0.001, 1.6 * pc, 0.93 * Tc, 1.3 * Tc, 7 * vc},
                              Expected{1, false, 500, 1.6 * pc, 0.75 * Tc, 1.3 * Tc, 11.5 * vc},
                              Expected{3, false, 0.05 * pc, 1.6 * pc, 0.7 * Tc, 1.3 * Tc, 13 * vc},
                              Expected{4, false, 0.05 * pc, 1.6 * pc, 0.4 * Tc, 2 * Tc, 13 * vc},
                              Expected{5, false, 0, 1.8 * pc, 0.75 * Tc, 1.4 * Tc, 0},
                              Expected{10, false, 0, 1.8 * pc, 0.75 * Tc, 1.4 * Tc, 0}}) {
        const auto g = default_limits(e.kind, e.s_curve);
        EXPECT_PRED2(Close, g.p_min, e.p_min) << e.kind;
        EXPECT_PRED2(Close, g.p_max, e.p_max) << e.kind;
        EXPECT_PRED2(Close, g.T_min, e.T_min) << e.kind;
        EXPECT_PRED2(Close, g.T_max, e.T_max) << e.kind;
        EXPECT_EQ(g.v_min, 0);
        EXPECT_PRED2(Close, g.v_max, e.v_max) << e.kind;
        EXPECT_EQ(g.z_min, -0.01111F);
        EXPECT_EQ(g.z_max, 0.01111F);
    }
    set_units(0, 2);
    EXPECT_PRED2(Close, default_limits(1, false).T_max, 1.3);
    EXPECT_PRED2(Close, default_limits(1, false).p_min, 500 / pc);
    EXPECT_PRED2(Close, default_limits(3, false).v_max, 13 * vc / eosConstants.vcrit_calculated);
    substance.rhocrit = 0;
    EXPECT_EQ(default_limits(1, false).v_max, 3.0F);
}

TEST_F(Surface, BelowTheCriticalTemperatureTheTwoPhaseRegionIsAPlane) {
    activate("Carbon dioxide");
    const SurfaceGrid g = grid(1, 41, 41);
    int plane = 0, points = 0;
    for (int j = 0; j < g.ny; ++j) {
        const double T = g.y(j);
        const auto e = diagrams::equilibrium_at_T(fluid(), T);
        for (int i = 0; i < g.nx; ++i) {
            const double v = g.x(i);
            if (hole(g, i, j)) continue;
            ++points;
            if (e && v > e->vL && v < e->vV) {
                EXPECT_FLOAT_EQ(static_cast<float>(value(g, i, j)), static_cast<float>(e->p));
                ++plane;
            } else {
                EXPECT_NEAR(value(g, i, j) / pressure(T, v), 1, 1e-6);
            }
            EXPECT_LE(value(g, i, j), limits3D.p_max);
        }
    }
    EXPECT_GT(plane, 100);
    EXPECT_GT(points, 1000);
    EXPECT_TRUE(hole(g, 0, 5)) << "a volume of 0 has no pressure";
}

TEST_F(Surface, TheSShapedSurfaceFollowsTheEquationEverywhere) {
    activate("Carbon dioxide");
    const SurfaceGrid g = grid(1, 31, 31, true);
    int below = 0;
    for (int j = 0; j < g.ny; ++j)
        for (int i = 0; i < g.nx; ++i) {
            if (hole(g, i, j)) continue;
            const double p = pressure(g.y(j), g.x(i));
            EXPECT_NEAR(value(g, i, j), p, 1e-6 * std::fabs(p) + 1e-3);
            const auto e = diagrams::equilibrium_at_T(fluid(), g.y(j));
            below += e && g.x(i) > e->vL && g.x(i) < e->vV && p < e->p ? 1 : 0;
        }
    EXPECT_GT(below, 5);
}

TEST_F(Surface, WhatLiesAboveTheLimitIsAHoleWithTheValueBehindIt) {
    activate("Propane");
    const SurfaceGrid g = grid(1, 31, 31);
    int behind = 0;
    for (std::size_t k = 0; k < g.z.size(); ++k) {
        EXPECT_TRUE(g.is_hole(g.z[k]) || g.is_hole(g.z_behind_holes[k]));
        if (g.is_hole(g.z_behind_holes[k])) continue;
        EXPECT_GT(g.z_behind_holes[k], limits3D.p_max);
        ++behind;
    }
    EXPECT_GT(behind, 10);
}

TEST_F(Surface, VolumesAreThoseOfTheStableState) {
    activate("Propane");
    const SurfaceGrid g = grid(3);
    int points = 0;
    for (int i = 0; i < g.nx; ++i)
        for (int j = 0; j < g.ny; ++j) {
            if (hole(g, i, j)) continue;
            const auto state = solve(g.y(j), g.x(i));
            const double v = state->has_V ? *state->vV : *state->vL;
            EXPECT_NEAR(value(g, i, j) / v, 1, 1e-5);
            EXPECT_LE(value(g, i, j), limits3D.v_max);
            ++points;
        }
    EXPECT_GT(points, 300);
}

TEST_F(Surface, TemperaturesSatisfyTheEquationOrTheEquilibrium) {
    activate("Propane");
    for (const bool s_curve : {false, true}) {
        const SurfaceGrid g = grid(4, 25, 25, s_curve);
        int points = 0;
        for (int i = 1; i < g.nx; ++i)
            for (int j = 0; j < g.ny; ++j) {
                if (hole(g, i, j)) continue;
                const double v = g.x(i), p = g.y(j), T = value(g, i, j);
                const auto e = diagrams::equilibrium_at_p(fluid(), p);
                if (!s_curve && e && v > e->vL && v < e->vV) {
                    EXPECT_FLOAT_EQ(static_cast<float>(T), static_cast<float>(e->T));
                } else {
                    EXPECT_NEAR(pressure(T, v), p, 2e-4 * p + 1);
                }
                EXPECT_LE(T, limits3D.T_max);
                ++points;
            }
        EXPECT_GT(points, 400);
        EXPECT_TRUE(hole(g, 0, 3)) << "a volume of 0 has no temperature";
    }
}

TEST_F(Surface, CaloricSurfacesAreDirectEvaluationsOfTheStates) {
    activate("Propane");
    using Member = diagrams::Function;
    const std::pair<std::int16_t, Member> kinds[] = {
        {5, diagrams::Function::cp}, {7, diagrams::Function::h},   {8, diagrams::Function::s},
        {9, diagrams::Function::g},  {10, diagrams::Function::eH}, {11, diagrams::Function::eU}};
    for (const auto& [unit, mode] : {std::pair{0, 0}, std::pair{3, 1}, std::pair{0, 2}}) {
        set_units(static_cast<std::int16_t>(unit), static_cast<std::int16_t>(mode));
        const double factor = unit == 3 ? 1 / static_cast<double>(substance.M) : 1;
        for (const auto& [kind, member] : kinds) {
            const SurfaceGrid g = grid(kind);
            for (int i = 0; i < g.nx; ++i)
                for (int j = 0; j < g.ny; ++j) {
                    double p = g.x(i) / static_cast<double>(basis().units.p);
                    const double T = g.y(j) / static_cast<double>(basis().units.T);
                    if (p == 0) p = 0.05;
                    const auto state = solve(T, p);
                    const double v = state->has_V ? *state->vV : *state->vL;
                    const double expected =
                        *diagrams::value_of(functions(T, p, v), member) * factor;
                    ASSERT_FALSE(hole(g, i, j)) << kind;
                    EXPECT_NEAR(value(g, i, j), expected, 1e-5 * std::fabs(expected) + 1e-3);
                }
        }
    }
}

TEST_F(Surface, ClippingLimitsMakeHolesUnlessTheyStandForNone) {
    activate("Propane");
    SurfaceGrid g = grid(7);
    const auto holes = [&] {
        return std::count_if(g.z.begin(), g.z.end(), [&](float z) { return g.is_hole(z); });
    };
    EXPECT_EQ(holes(), 0) << "-0.01111 and 0.01111 clip nothing";
    limits3D.z_max = 0;
    g = again(21, 17);
    const auto above = holes();
    EXPECT_GT(above, 0);
    for (const float z : g.z) EXPECT_TRUE(g.is_hole(z) || z <= 0);
    limits3D.z_min = -5000;
    g = again(21, 17);
    EXPECT_GT(holes(), above);
    for (const float z : g.z) EXPECT_TRUE(g.is_hole(z) || (z <= 0 && z >= -5000));
}

TEST_F(Surface, NodesLieBetweenTheLimitsAtEqualSteps) {
    activate("Propane");
    const SurfaceGrid g = grid(7, 11, 6);
    EXPECT_EQ(g.nx, 11);
    EXPECT_EQ(g.ny, 6);
    EXPECT_FLOAT_EQ(static_cast<float>(g.x(0)), limits3D.p_min);
    EXPECT_FLOAT_EQ(static_cast<float>(g.x(10)), limits3D.p_max);
    EXPECT_FLOAT_EQ(static_cast<float>(g.y(5)), limits3D.T_max);
    EXPECT_TRUE(g.is_complete());
    EXPECT_EQ(grid(7, 1, 5000).nx, 2);
    EXPECT_EQ(grid(7, 1, 5000).ny, 201);
}

TEST_F(Surface, WithoutACpFormThereIsNoCaloricSurface) {
    activate("Propane");
    selection.cp_form = codes::cp(0);
    const SurfaceGrid g = grid(7);
    EXPECT_FALSE(diagrams::has_surface(g));
    const diagrams::SurfaceSheet sheet = diagrams::open_surface(kind_of(7), basis(), false, 11, 11);
    EXPECT_TRUE(diagrams::tell_empty_surface(sheet.chart));
    EXPECT_EQ(user.lastTitle(), "Remark");
    EXPECT_EQ(user.lastText(),
              "If no function area is drawn within the x-y-z space\ntwo reasons possible:\n"
              "1st: Not enough memory; restart\n2nd: Insufficient values for axis-ranges");
}

TEST_F(Surface, AFaultOfTheUnitsLeavesHoles) {
    activate("Propane");
    diagrams::Basis withoutMass = basis();
    substance.M = 0;
    withoutMass.fluid = fluid();
    withoutMass.units.choice.caloric = models::CaloricUnit::specific;
    const diagrams::SurfaceKind& kind = kind_of(7);
    EXPECT_FALSE(diagrams::has_surface(
        diagrams::surface_grid(kind, withoutMass, default_limits(7, false), false, 5, 5)));
}

TEST_F(Surface, LimitsMustRise) {
    activate("Propane");
    const auto& kind = *diagrams::find_surface(1);
    diagrams::SurfaceLimits g = default_limits(1, false);
    EXPECT_EQ(diagrams::refusal_of(g, kind), "");
    g.T_max = g.T_min;
    EXPECT_EQ(diagrams::refusal_of(g, kind), "Lower limits have to be smaller then upper limits!");
    g = default_limits(7, false);
    EXPECT_EQ(diagrams::refusal_of(g, *diagrams::find_surface(7)), "");
    g.z_min = 10;
    g.z_max = -10;
    EXPECT_NE(diagrams::refusal_of(g, *diagrams::find_surface(7)), "");
}

TEST_F(Surface, TheCriticalPointIsMarkedOnEverySurfaceButThatOfCp) {
    activate("Propane");
    for (const int kind : {1, 3, 4, 7, 8, 9, 10}) {
        diagrams::SurfaceSheet sheet = diagrams::open_surface(kind_of(kind), basis(), false, 5, 5);
        EXPECT_TRUE(diagrams::add_critical_point(sheet)) << kind;
        EXPECT_TRUE(diagrams::add_critical_point(sheet))
            << "a second time it is moved, not doubled";
        ASSERT_EQ(sheet.chart.markers.size(), 1U);
        EXPECT_EQ(sheet.chart.markers[0].text, "CrP");
    }
    diagrams::SurfaceSheet sheet = diagrams::open_surface(kind_of(1), basis(), false, 5, 5);
    diagrams::add_critical_point(sheet);
    EXPECT_EQ(sheet.chart.markers.back().x, eosConstants.vcrit_calculated);
    EXPECT_EQ(sheet.chart.markers.back().y, substance.Tcrit);
    EXPECT_EQ(sheet.chart.markers.back().z, substance.pcrit);
    sheet = diagrams::open_surface(kind_of(5), basis(), false, 5, 5);
    EXPECT_FALSE(diagrams::add_critical_point(sheet));
    EXPECT_EQ(user.lastText(), "at the critical point cp => infinite");
}

TEST_F(Surface, OpensWithTheDefaultLimitsOfItsFluid) {
    activate("Propane");
    const diagrams::SurfaceSheet sheet = diagrams::open_surface(kind_of(7), basis(), false);
    EXPECT_PRED2(Close, sheet.limits.T_max, 1.4 * substance.Tcrit);
}

TEST_F(Surface, TheChartTakesLimitsTitlesAndSurface) {
    activate("Propane");
    diagrams::SurfaceSheet sheet = diagrams::open_surface(kind_of(1), basis(), false, 15, 13);
    const chart::Chart3D& chart = sheet.chart;
    EXPECT_EQ(chart.surface.nx, 15);
    EXPECT_EQ(chart.x.title, "v / (m^3/kmol)");
    EXPECT_EQ(chart.z.max, static_cast<double>(sheet.limits.p_max));
    EXPECT_FALSE(chart.z.automatic);
    EXPECT_EQ(chart.header.text, "Pressure p(v, T)");
    EXPECT_EQ(chart.subtitle.text, " for Propane,  CEOS Peng / Robinson");
    EXPECT_FALSE(diagrams::tell_empty_surface(chart));
    sheet = diagrams::open_surface(kind_of(7), basis(), false, 15, 13);
    EXPECT_TRUE(chart.z.automatic) << "without clipping the axis follows the data";
}

TEST_F(Surface, TheCriticalPointOfAnotherFluidIsNotMarkedOnIt) {
    activate("Carbon dioxide");
    diagrams::SurfaceSheet sheet = diagrams::open_surface(kind_of(1), basis(), false, 5, 5);
    const double T = substance.Tcrit;
    activate("Ethane");
    ASSERT_TRUE(diagrams::add_critical_point(sheet));
    EXPECT_EQ(sheet.chart.markers.back().y, T);
    // New limits and mesh lines keep the fluid; only drawing anew takes the present one.
    diagrams::set_meshlines(sheet, 6, 6);
    EXPECT_EQ(sheet.chart.subtitle.text, " for Carbon dioxide,  CEOS Peng / Robinson");
    EXPECT_EQ(sheet.chart.markers.back().y, T);
    diagrams::new_draw(sheet, basis());
    EXPECT_EQ(sheet.chart.subtitle.text, " for Ethane,  CEOS Peng / Robinson");
    EXPECT_EQ(sheet.chart.markers.back().y, substance.Tcrit);
}

}  // namespace
