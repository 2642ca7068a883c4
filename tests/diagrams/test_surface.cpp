#include "diagrams/surface.h"
#include "legacy/current_fluid.h"
#include "legacy/wrappers.h"
#include "support/codes.h"

#include <stdexcept>

#include "app/menu_graph_rows.h"
#include "diagrams/active_fluid.h"
#include "diagrams/equilibrium.h"
#include "diagrams/prepare_3d.h"
#include "diagrams/surface_grid.h"
#include "models/caloric.h"
#include "models/state_solver.h"

using namespace quor;

namespace {

using chart::SurfaceGrid;
using legacy::the_eosParameters;
using legacy::the_grid3D;
using legacy::the_session;
using legacy::the_substance;

class Surface : public ActiveFluid {
  protected:
    static SurfaceGrid grid(std::int16_t kind, int nx = 21, int ny = 17, bool SCurve = false) {
        the_session.Diagram3DKind = kind;
        the_session.SCurve3D = SCurve;
        Module9::prepare_diagram3_d();
        return diagrams::calc_3_d_array(nx, ny);
    }
    static double value(const SurfaceGrid& g, int i, int j) { return g.z[g.at(i, j)]; }
    static bool hole(const SurfaceGrid& g, int i, int j) { return g.is_hole(g.z[g.at(i, j)]); }
};

TEST_F(Surface, TextsStandAsWorded) {
    activate("Propane");
    const auto texts = [](std::int16_t kind) {
        return Module9::TextsOf(*Module9::find_surface(kind));
    };
    EXPECT_EQ(texts(1).title, "Pressure p(v, T)");
    EXPECT_EQ(texts(3).title, "Volume  v(p, T)");
    EXPECT_EQ(texts(4).title, "Temperature T(v, p)");
    EXPECT_EQ(texts(5).title, "Heat Capacity cp(p, T)");
    EXPECT_EQ(texts(7).title, "Enthalpy  h(p, T)");
    EXPECT_EQ(texts(8).title, "Entropy s(p, T)");
    EXPECT_EQ(texts(9).title, "Gibbs Function g(p, T)");
    EXPECT_EQ(texts(10).title, "Exergy of H          e(p, T)");
    EXPECT_EQ(texts(1).subTitle, " for Propane,  CEOS Peng / Robinson");
    EXPECT_EQ(texts(4).xLabel, "v / (m^3/kmol)");
    EXPECT_EQ(texts(4).yLabel, "p / kPa");
    EXPECT_EQ(texts(4).zLabel, "T / K");
    EXPECT_EQ(texts(7).zLabel, "h / (kJ/kmol) ");
    EXPECT_EQ(texts(8).zLabel, "s / (kJ/kmol/K) ");
    EXPECT_EQ(texts(1).note, "");
    EXPECT_EQ(texts(5).note, "");
    EXPECT_EQ(texts(7).note, "reference state: 298.15 K, 101.325 kPa");
    EXPECT_EQ(texts(8).note, texts(7).note);
    EXPECT_EQ(texts(9).note, texts(7).note);
    EXPECT_TRUE(texts(10).note.starts_with("surroundings: ")) << texts(10).note;
    set_units(3, 1);
    EXPECT_EQ(texts(3).zLabel, "v / (m^3/kg)");
    EXPECT_EQ(texts(5).zLabel, "cp / (kJ/kg/K)) ");
    set_units(0, 2);
    EXPECT_EQ(texts(1).xLabel, "V(red)");
    EXPECT_EQ(texts(1).yLabel, "T(red)");
    EXPECT_EQ(texts(1).zLabel, "p(red)");
    for (const menu::Row& row : menu::graph_rows()) {
        if (row.action != "Diagram3D") continue;
        EXPECT_NE(Module9::find_surface(row.code), nullptr) << row.caption;
    }
}

TEST_F(Surface, RangesAreSharesOfTheCriticalValues) {
    activate("Propane");
    const double pc = the_substance.pcrit, Tc = the_substance.Tcrit;
    const double vc = static_cast<double>(the_substance.M) / the_substance.rhocrit;
    struct Expected {
        int kind;
        bool SCurve;
        double pMin, pMax, TMin, TMax, vMax;
    };
    for (const Expected& e : {Expected{1, true, 0.001, 1.6 * pc, 0.93 * Tc, 1.3 * Tc, 7 * vc},
                              Expected{1, false, 500, 1.6 * pc, 0.75 * Tc, 1.3 * Tc, 11.5 * vc},
                              Expected{3, false, 0.05 * pc, 1.6 * pc, 0.7 * Tc, 1.3 * Tc, 13 * vc},
                              Expected{4, false, 0.05 * pc, 1.6 * pc, 0.4 * Tc, 2 * Tc, 13 * vc},
                              Expected{5, false, 0, 1.8 * pc, 0.75 * Tc, 1.4 * Tc, 0},
                              Expected{10, false, 0, 1.8 * pc, 0.75 * Tc, 1.4 * Tc, 0}}) {
        const auto g = Module9::default_grid(static_cast<std::int16_t>(e.kind), e.SCurve);
        EXPECT_PRED2(Close, g.pMin, e.pMin) << e.kind;
        EXPECT_PRED2(Close, g.pMax, e.pMax) << e.kind;
        EXPECT_PRED2(Close, g.TMin, e.TMin) << e.kind;
        EXPECT_PRED2(Close, g.TMax, e.TMax) << e.kind;
        EXPECT_EQ(g.vMin, 0);
        EXPECT_PRED2(Close, g.vMax, e.vMax) << e.kind;
        EXPECT_EQ(g.zMin, -0.01111F);
        EXPECT_EQ(g.zMax, 0.01111F);
    }
    set_units(0, 2);
    EXPECT_PRED2(Close, Module9::default_grid(1, false).TMax, 1.3);
    EXPECT_PRED2(Close, Module9::default_grid(1, false).pMin, 500 / pc);
    EXPECT_PRED2(Close, Module9::default_grid(3, false).vMax,
                 13 * vc / the_eosParameters.vcritCalc);
    the_substance.rhocrit = 0;
    EXPECT_EQ(Module9::default_grid(1, false).vMax, 3.0F);
}

TEST_F(Surface, BelowTheCriticalTemperatureTheTwoPhaseRegionIsAPlane) {
    activate("Carbon dioxide");
    const SurfaceGrid g = grid(1, 41, 41);
    int plane = 0, points = 0;
    for (int j = 0; j < g.ny; ++j) {
        const double T = g.y(j);
        const auto e = diagrams::equilibrium_at_T(models::current_fluid(), T);
        for (int i = 0; i < g.nx; ++i) {
            const double v = g.x(i);
            if (hole(g, i, j)) continue;
            ++points;
            if (e.found && v > e.vL && v < e.vV) {
                EXPECT_FLOAT_EQ(static_cast<float>(value(g, i, j)), static_cast<float>(e.p));
                ++plane;
            } else {
                EXPECT_NEAR(value(g, i, j) / models::pressure_from_tv(T, v).p, 1, 1e-6);
            }
            EXPECT_LE(value(g, i, j), the_grid3D.pMax);
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
            const double p = models::pressure_from_tv(g.y(j), g.x(i)).p;
            EXPECT_NEAR(value(g, i, j), p, 1e-6 * std::fabs(p) + 1e-3);
            const auto e = diagrams::equilibrium_at_T(models::current_fluid(), g.y(j));
            below += e.found && g.x(i) > e.vL && g.x(i) < e.vV && p < e.p ? 1 : 0;
        }
    EXPECT_GT(below, 5);
}

TEST_F(Surface, WhatLiesAboveTheLimitIsAHoleWithTheValueBehindIt) {
    activate("Propane");
    const SurfaceGrid g = grid(1, 31, 31);
    int behind = 0;
    for (std::size_t k = 0; k < g.z.size(); ++k) {
        EXPECT_TRUE(g.is_hole(g.z[k]) || g.is_hole(g.zBehindHoles[k]));
        if (g.is_hole(g.zBehindHoles[k])) continue;
        EXPECT_GT(g.zBehindHoles[k], the_grid3D.pMax);
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
            const models::StateTP state = models::SolveStateTP(g.y(j), g.x(i));
            const double v = state.hasV ? state.vV : state.vL;
            EXPECT_NEAR(value(g, i, j) / v, 1, 1e-5);
            EXPECT_LE(value(g, i, j), the_grid3D.vMax);
            ++points;
        }
    EXPECT_GT(points, 300);
}

TEST_F(Surface, TemperaturesSatisfyTheEquationOrTheEquilibrium) {
    activate("Propane");
    for (const bool SCurve : {false, true}) {
        const SurfaceGrid g = grid(4, 25, 25, SCurve);
        int points = 0;
        for (int i = 1; i < g.nx; ++i)
            for (int j = 0; j < g.ny; ++j) {
                if (hole(g, i, j)) continue;
                const double v = g.x(i), p = g.y(j), T = value(g, i, j);
                const auto e = diagrams::equilibrium_at_p(models::current_fluid(), p);
                if (!SCurve && e.found && v > e.vL && v < e.vV) {
                    EXPECT_FLOAT_EQ(static_cast<float>(T), static_cast<float>(e.T));
                } else {
                    EXPECT_NEAR(models::pressure_from_tv(T, v).p, p, 2e-4 * p + 1);
                }
                EXPECT_LE(T, the_grid3D.TMax);
                ++points;
            }
        EXPECT_GT(points, 400);
        EXPECT_TRUE(hole(g, 0, 3)) << "a volume of 0 has no temperature";
    }
}

TEST_F(Surface, CaloricSurfacesAreDirectEvaluationsOfTheStates) {
    activate("Propane");
    using Member = double models::StateValues::*;
    const std::pair<std::int16_t, Member> kinds[] = {
        {5, &models::StateValues::cp},  {7, &models::StateValues::h},
        {8, &models::StateValues::s},   {9, &models::StateValues::g},
        {10, &models::StateValues::eH}, {11, &models::StateValues::eU}};
    for (const auto& [unit, mode] : {std::pair{0, 0}, std::pair{3, 1}, std::pair{0, 2}}) {
        set_units(static_cast<std::int16_t>(unit), static_cast<std::int16_t>(mode));
        const double factor = unit == 3 ? 1 / static_cast<double>(the_substance.M) : 1;
        for (const auto& [kind, member] : kinds) {
            const SurfaceGrid g = grid(kind);
            for (int i = 0; i < g.nx; ++i)
                for (int j = 0; j < g.ny; ++j) {
                    double p = g.x(i) / static_cast<double>(the_session.PressureFactor);
                    const double T = g.y(j) / static_cast<double>(the_session.TemperatureFactor);
                    if (p == 0) p = 0.05;
                    const models::StateTP state = models::SolveStateTP(T, p);
                    const double v = state.hasV ? state.vV : state.vL;
                    const double expected = models::StateFunctions(T, p, v).*member * factor;
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
    the_grid3D.zMax = 0;
    g = diagrams::calc_3_d_array(21, 17);
    const auto above = holes();
    EXPECT_GT(above, 0);
    for (const float z : g.z) EXPECT_TRUE(g.is_hole(z) || z <= 0);
    the_grid3D.zMin = -5000;
    g = diagrams::calc_3_d_array(21, 17);
    EXPECT_GT(holes(), above);
    for (const float z : g.z) EXPECT_TRUE(g.is_hole(z) || (z <= 0 && z >= -5000));
}

TEST_F(Surface, NodesLieBetweenTheLimitsAtEqualSteps) {
    activate("Propane");
    const SurfaceGrid g = grid(7, 11, 6);
    EXPECT_EQ(g.nx, 11);
    EXPECT_EQ(g.ny, 6);
    EXPECT_FLOAT_EQ(static_cast<float>(g.x(0)), the_grid3D.pMin);
    EXPECT_FLOAT_EQ(static_cast<float>(g.x(10)), the_grid3D.pMax);
    EXPECT_FLOAT_EQ(static_cast<float>(g.y(5)), the_grid3D.TMax);
    EXPECT_TRUE(g.is_complete());
    EXPECT_EQ(grid(7, 1, 5000).nx, 2);
    EXPECT_EQ(grid(7, 1, 5000).ny, 201);
}

TEST_F(Surface, WithoutACpFormThereIsNoCaloricSurface) {
    activate("Propane");
    legacy::the_models.CpModel = codes::cp(0);
    const SurfaceGrid g = grid(7);
    EXPECT_FALSE(diagrams::has_surface(g));
    chart::Chart3D chart;
    Module9::init_graph3_d(chart, 11, 11);
    EXPECT_TRUE(Module9::tell_empty_surface(chart));
    EXPECT_EQ(user.lastTitle(), "Remark");
    EXPECT_EQ(user.lastText(),
              "If no function area is drawn within the x-y-z space\ntwo reasons possible:\n"
              "1st: Not enough memory; restart\n2nd: Insufficient values for axis-ranges");
}

TEST_F(Surface, AFaultOfTheUnitsLeavesHoles) {
    activate("Propane");
    the_session.Diagram3DKind = 7;
    Module9::prepare_diagram3_d();
    the_substance.M = 0;
    the_session.CaloricUnit = 3;
    EXPECT_FALSE(diagrams::has_surface(diagrams::calc_3_d_array(5, 5)));
}

TEST_F(Surface, LimitsMustRise) {
    activate("Propane");
    const auto& kind = *Module9::find_surface(1);
    diagrams::Grid3D g = Module9::default_grid(1, false);
    EXPECT_EQ(Module9::refusal_of(g, kind), "");
    g.TMax = g.TMin;
    EXPECT_EQ(Module9::refusal_of(g, kind), "Lower limits have to be smaller then upper limits!");
    g = Module9::default_grid(7, false);
    EXPECT_EQ(Module9::refusal_of(g, *Module9::find_surface(7)), "");
    g.zMin = 10;
    g.zMax = -10;
    EXPECT_NE(Module9::refusal_of(g, *Module9::find_surface(7)), "");
}

TEST_F(Surface, TheCriticalPointIsMarkedOnEverySurfaceButThatOfCp) {
    activate("Propane");
    chart::Chart3D chart;
    for (const std::int16_t kind : std::initializer_list<std::int16_t>{1, 3, 4, 7, 8, 9, 10}) {
        the_session.Diagram3DKind = kind;
        chart.markers.clear();
        EXPECT_TRUE(Module9::add_critical_point(chart)) << kind;
        EXPECT_TRUE(Module9::add_critical_point(chart)) << "a second time it is moved, not doubled";
        ASSERT_EQ(chart.markers.size(), 1U);
        EXPECT_EQ(chart.markers[0].text, "CrP");
    }
    the_session.Diagram3DKind = 1;
    Module9::add_critical_point(chart);
    EXPECT_EQ(chart.markers.back().x, the_eosParameters.vcritCalc);
    EXPECT_EQ(chart.markers.back().y, the_substance.Tcrit);
    EXPECT_EQ(chart.markers.back().z, the_substance.pcrit);
    the_session.Diagram3DKind = 5;
    chart.markers.clear();
    EXPECT_FALSE(Module9::add_critical_point(chart));
    EXPECT_EQ(user.lastText(), "at the critical point cp => infinite");
}

TEST_F(Surface, PreparationOpensTheViewOrTellsItsFault) {
    activate("Propane");
    int opened = 0;
    Module9::views3_d().openDiagram = [&] { ++opened; };
    the_session.Diagram3DKind = 7;
    the_grid3D.TMax = 1;
    Module9::prepare_diagram3_d();
    EXPECT_EQ(opened, 1);
    EXPECT_PRED2(Close, the_grid3D.TMax, 1.4 * the_substance.Tcrit) << "the limits are filled anew";
    Module9::views3_d().openDiagram = [] { throw std::runtime_error("no component"); };
    Module9::prepare_diagram3_d();
    Module9::views3_d() = {};
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_EQ(user.lastText(),
              "The registration of the 3D graph module \\...\\olch8x3.ocx during the installation "
              "process failed.\nPlease carry out the registration manually (c.f. our website)");
}

TEST_F(Surface, TheChartTakesLimitsTitlesAndSurface) {
    activate("Propane");
    the_session.Diagram3DKind = 1;
    the_session.SCurve3D = false;
    Module9::prepare_diagram3_d();
    chart::Chart3D chart;
    Module9::init_graph3_d(chart, 15, 13);
    EXPECT_EQ(chart.surface.nx, 15);
    EXPECT_EQ(chart.x.title, "v / (m^3/kmol)");
    EXPECT_EQ(chart.z.max, static_cast<double>(the_grid3D.pMax));
    EXPECT_FALSE(chart.z.automatic);
    EXPECT_EQ(chart.header.text, "Pressure p(v, T)");
    EXPECT_EQ(chart.subtitle.text, " for Propane,  CEOS Peng / Robinson");
    EXPECT_FALSE(Module9::tell_empty_surface(chart));
    the_session.Diagram3DKind = 7;
    Module9::prepare_diagram3_d();
    Module9::init_graph3_d(chart, 15, 13);
    EXPECT_TRUE(chart.z.automatic) << "without clipping the axis follows the data";
}

}  // namespace
