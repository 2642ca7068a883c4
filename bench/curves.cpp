#include <benchmark/benchmark.h>

#include "diagrams/coordinates.h"
#include "diagrams/curve.h"
#include "diagrams/surface.h"
#include "diagrams/surface_grid.h"
#include "legacy/wrappers.h"
#include "models/cubic_eos.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"
#include "support/codes.h"

using namespace quor;

namespace {

/// Propane with Peng/Robinson, a vapour pressure equation and a polynomial cp.
void activate() {
    session::reset_everything();
    models::SubstanceRecord& s = legacy::the_substance;
    s.M = 44.0956F;
    s.Tcrit = 369.89;
    s.pcrit = 4251.2;
    s.rhocrit = 220.48;
    s.vcritExp = 0.2;
    s.omega = 0.1521;
    s.Tboil = 231.036F;
    s.Ttriple = 85.525F;
    s.ptriple = 1.7e-7F;
    s.cpPoly = {{28.277F, 0.116F, 1.9597e-4F, -2.3271e-7F, 6.8669e-11F}, 50, 1500};
    s.hasCpPoly = true;
    models::CorrelateVapourPressure(7, s.Tcrit, s.pcrit, 231.036);
    legacy::the_models.EOSModel = codes::eos(6);
    legacy::the_models.VPModel = codes::vp(7);
    legacy::the_models.VPModel = codes::vp("KFR");
    legacy::the_models.CpModel = codes::cp(1);
    models::calc_eos_parameters(6);
    Module9::calc_coordinate_defaults(legacy::the_coordinates);
}

void run(benchmark::State& state, std::int16_t code, double fraction) {
    activate();
    legacy::the_session.VapourFraction = fraction;
    diagrams::DiagramRequest request;
    request.DiagramType = code;
    Module9::fill_diagram_window(legacy::the_coordinates, request);
    diagrams::CurvePointArray points;
    for (auto _ : state)
        benchmark::DoNotOptimize(diagrams::calc_curve(request, points, 333, 1500, 0.3));
    state.counters["points"] = static_cast<double>(diagrams::point_count(points));
}

// Aim: below 0.2 ms.
void BM_Isotherm_p_v(benchmark::State& state) {
    run(state, 1, 1);
}
BENCHMARK(BM_Isotherm_p_v)->Unit(benchmark::kMicrosecond);

// Aim: below 5 ms.
void BM_Coexistence_p_v(benchmark::State& state) {
    run(state, 6, static_cast<double>(state.range(0)));
}
BENCHMARK(BM_Coexistence_p_v)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_Coexistence_h_s(benchmark::State& state) {
    run(state, 120, 1);
}
BENCHMARK(BM_Coexistence_h_s)->Unit(benchmark::kMicrosecond);

void BM_Isobar_h(benchmark::State& state) {
    run(state, 15, 1);
}
BENCHMARK(BM_Isobar_h)->Unit(benchmark::kMicrosecond);

void BM_Isotherm_h_p(benchmark::State& state) {
    run(state, 150, 1);
}
BENCHMARK(BM_Isotherm_h_p)->Unit(benchmark::kMicrosecond);

void BM_Inversion(benchmark::State& state) {
    run(state, 190, 1);
}
BENCHMARK(BM_Inversion)->Unit(benchmark::kMillisecond);

// Aim: a grid of 101 x 101 of h(p, T) below 50 ms.
void BM_Surface(benchmark::State& state) {
    activate();
    legacy::the_session.Diagram3DKind = static_cast<std::int16_t>(state.range(0));
    legacy::the_grid3D = Module9::default_grid(legacy::the_session.Diagram3DKind, false);
    for (auto _ : state) benchmark::DoNotOptimize(diagrams::calc_3_d_array(101, 101));
}
BENCHMARK(BM_Surface)->Arg(1)->Arg(3)->Arg(4)->Arg(7)->Unit(benchmark::kMillisecond);

}  // namespace
