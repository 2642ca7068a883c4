#include <benchmark/benchmark.h>

#include "legacy/declare.h"
#include "legacy/wrappers.h"
#include "models/cubic_eos.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "support/codes.h"

using namespace quor;

namespace {

/// Propane with the correlated vapour pressure equation as the start of the searches.
void activate(std::int16_t code) {
    models::SubstanceRecord& s = legacy::the_substance;
    s = {};
    s.M = 44.0956F;
    s.Tcrit = 369.89;
    s.pcrit = 4251.2;
    s.omega = 0.1521;
    s.Tboil = 231.036F;
    models::CorrelateVapourPressure(7, s.Tcrit, s.pcrit, 231.036);
    legacy::the_models = {};
    legacy::the_models.EOSModel = codes::eos(code);
    legacy::the_models.VPModel = codes::vp(7);
    legacy::the_models.VPModel = codes::vp("KFR");
    models::calc_eos_parameters(code);
}

void BM_SolveCubic(benchmark::State& state) {
    activate(6);
    models::eval_eos_at_t(300.0);
    for (auto _ : state) benchmark::DoNotOptimize(models::SolveCubic(300.0, 900.0));
}
BENCHMARK(BM_SolveCubic);

void BM_SolveStateTP_ThreeRoots(benchmark::State& state) {
    activate(6);
    for (auto _ : state) benchmark::DoNotOptimize(models::SolveStateTP(300.0, 900.0));
}
BENCHMARK(BM_SolveStateTP_ThreeRoots);

void BM_SolveStateTP_OneRoot(benchmark::State& state) {
    activate(6);
    for (auto _ : state) benchmark::DoNotOptimize(models::SolveStateTP(420.0, 6000.0));
}
BENCHMARK(BM_SolveStateTP_OneRoot);

void BM_SaturationPressure(benchmark::State& state) {
    activate(6);
    for (auto _ : state) benchmark::DoNotOptimize(models::SaturationPressure(300.0));
}
BENCHMARK(BM_SaturationPressure);

void BM_SaturationTemperature(benchmark::State& state) {
    activate(6);
    const double p = state.range(0) == 0 ? 1000.0 : 50.0;
    for (auto _ : state) benchmark::DoNotOptimize(models::SaturationTemperature(p));
}
BENCHMARK(BM_SaturationTemperature)->Arg(0)->Arg(1);

}  // namespace
