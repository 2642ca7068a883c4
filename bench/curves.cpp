#include <benchmark/benchmark.h>

#include "diagrams/coordinates.h"
#include "diagrams/curve.h"
#include "diagrams/surface.h"
#include "diagrams/surface_grid.h"
#include "models/vapour_pressure.h"

using namespace quor;

namespace {

/// Propane with Peng/Robinson, a vapour pressure equation and a polynomial cp.
diagrams::Basis propane() {
    models::SubstanceRecord s;
    s.M = 44.0956F;
    s.Tcrit = 369.89;
    s.pcrit = 4251.2;
    s.rhocrit = 220.48;
    s.vcrit_measured = 0.2;
    s.omega = 0.1521;
    s.Tboil = 231.036F;
    s.Ttriple = 85.525F;
    s.ptriple = 1.7e-7F;
    s.cp_polynomial = {{28.277F, 0.116F, 1.9597e-4F, -2.3271e-7F, 6.8669e-11F}, 50, 1500};
    s.has_cp_polynomial = true;
    models::correlate_vapour_pressure(s, models::VapourPressureEquation::frostRedlichKwong, s.Tcrit,
                                      s.pcrit, 231.036);
    models::ModelSelection m;
    m.eos = models::Eos::pengRobinson;
    m.vapour_pressure = models::VapourPressureEquation::frostRedlichKwong;
    m.cp_form = models::CpForm::polynomial;
    const models::Fluid fluid = models::Fluid::make(s, m).value();
    return {fluid, {}, models::make_units({}, fluid), {}};
}

void run(benchmark::State& state, int code, double fraction) {
    const diagrams::Basis basis = propane();
    const diagrams::CoordinateDefaults limits = diagrams::coordinate_defaults(basis);
    const diagrams::Diagram& diagram = diagrams::diagram_of(code);
    const diagrams::CurveRequest request{
        .curve = &diagram,
        .window = diagrams::proposed_window(diagram, basis, limits).window,
        .at = {333, 1500, 0.3},
        .vapour_fraction = fraction,
        .p_min = limits.p_min,
        .p_max = limits.p_max};
    diagrams::Curve drawn;
    for (auto _ : state) {
        drawn = diagrams::curve(basis, request, std::move(drawn.points));
        benchmark::DoNotOptimize(drawn);
    }
    state.counters["points"] = static_cast<double>(drawn.points.size());
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
    const diagrams::Basis basis = propane();
    const diagrams::SurfaceKind& kind = *diagrams::find_surface(static_cast<int>(state.range(0)));
    const diagrams::SurfaceLimits limits = diagrams::default_limits(kind, basis, false);
    for (auto _ : state)
        benchmark::DoNotOptimize(diagrams::surface_grid(kind, basis, limits, false, 101, 101));
}
BENCHMARK(BM_Surface)->Arg(1)->Arg(3)->Arg(4)->Arg(7)->Unit(benchmark::kMillisecond);

}  // namespace
