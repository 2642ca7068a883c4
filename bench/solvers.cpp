#include <benchmark/benchmark.h>

#include "models/cubic_eos.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"

using namespace quor;

namespace {

/// Propane by Peng/Robinson with the correlated vapour pressure equation as the start of the
/// searches.
models::Fluid propane() {
    using models::VapourPressureEquation;
    models::SubstanceRecord s;
    s.M = 44.0956F;
    s.Tcrit = 369.89;
    s.pcrit = 4251.2;
    s.omega = 0.1521;
    s.Tboil = 231.036F;
    const auto equation = VapourPressureEquation::frostRedlichKwong;
    models::correlate_vapour_pressure(s, equation, s.Tcrit, s.pcrit, 231.036);
    return models::Fluid::make(s, {.eos = models::Eos::pengRobinson, .vapour_pressure = equation})
        .value();
}

void BM_SolveCubic(benchmark::State& state) {
    const models::EosState eos = models::eos_at(propane(), 300.0);
    for (auto _ : state) benchmark::DoNotOptimize(models::solve_cubic(eos, 300.0, 900.0));
}
BENCHMARK(BM_SolveCubic);

void BM_SolveStateTP_ThreeRoots(benchmark::State& state) {
    const models::Fluid fluid = propane();
    for (auto _ : state) benchmark::DoNotOptimize(models::solve_state_tp(fluid, 300.0, 900.0));
}
BENCHMARK(BM_SolveStateTP_ThreeRoots);

void BM_SolveStateTP_OneRoot(benchmark::State& state) {
    const models::Fluid fluid = propane();
    for (auto _ : state) benchmark::DoNotOptimize(models::solve_state_tp(fluid, 420.0, 6000.0));
}
BENCHMARK(BM_SolveStateTP_OneRoot);

void BM_SaturationPressure(benchmark::State& state) {
    const models::Fluid fluid = propane();
    for (auto _ : state) benchmark::DoNotOptimize(models::saturation_pressure(fluid, 300.0));
}
BENCHMARK(BM_SaturationPressure);

void BM_SaturationTemperature(benchmark::State& state) {
    const models::Fluid fluid = propane();
    const double p = state.range(0) == 0 ? 1000.0 : 50.0;
    for (auto _ : state) benchmark::DoNotOptimize(models::saturation_temperature(fluid, p));
}
BENCHMARK(BM_SaturationTemperature)->Arg(0)->Arg(1);

}  // namespace
