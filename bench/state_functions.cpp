#include <benchmark/benchmark.h>

#include "legacy/declare.h"
#include "legacy/wrappers.h"
#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/enthalpy_of_vaporisation.h"
#include "models/model_tables.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"
#include "support/codes.h"

using namespace quor;

namespace {

/// Propane with both forms of cp (fitted values of the database).
void activate(std::int16_t code, std::int16_t cpForm) {
    models::SubstanceRecord& s = legacy::the_substance;
    s = {};
    s.M = 44.0956F;
    s.Tcrit = 369.89;
    s.pcrit = 4251.2;
    s.rhocrit = 220.4781;
    s.omega = 0.1521;
    s.Tboil = 231.036F;
    s.cpPoly = {{-4.224F, 0.3063F, -1.586e-4F, 3.215e-8F, 0}, 200, 1000};
    s.cpSinh = {{51.92F, 192.45F, 1626.5F, 116.8F, 723.6F}, 200, 1500};
    models::CorrelateVapourPressure(7, s.Tcrit, s.pcrit, 231.036);
    legacy::the_models = {};
    legacy::the_models.EOSModel = codes::eos(code);
    legacy::the_models.EOSOnlyV = models::is_v_only_eos(code);
    legacy::the_models.VPModel = codes::vp(7);
    legacy::the_models.VPModel = codes::vp("KFR");
    legacy::the_models.CpModel = codes::cp(cpForm);
    models::calc_eos_parameters(code);
}

void BM_StateFunctions(benchmark::State& state) {
    activate(static_cast<std::int16_t>(state.range(0)), static_cast<std::int16_t>(state.range(1)));
    const double T = 300, p = 500, v = models::SolveStateTP(T, p).vV;
    for (auto _ : state) benchmark::DoNotOptimize(models::StateFunctions(T, p, v));
}
BENCHMARK(BM_StateFunctions)->ArgNames({"eos", "cp"})->ArgsProduct({{2, 4, 6, 14, 16}, {1, 2}});

/// The same while the surroundings change with every call.
void BM_StateFunctions_NewSurroundings(benchmark::State& state) {
    activate(6, 2);
    const double T = 300, p = 500, v = models::SolveStateTP(T, p).vV;
    for (auto _ : state) {
        legacy::the_reference.Tenv += 1e-9;
        benchmark::DoNotOptimize(models::StateFunctions(T, p, v));
    }
}
BENCHMARK(BM_StateFunctions_NewSurroundings);

void BM_ResidualFunctions(benchmark::State& state) {
    activate(6, 2);
    const double T = 300, p = 500, v = models::SolveStateTP(T, p).vV;
    for (auto _ : state) benchmark::DoNotOptimize(models::ResidualFunctions(T, p, v));
}
BENCHMARK(BM_ResidualFunctions);

void BM_SaturationFunctions(benchmark::State& state) {
    activate(6, 2);
    for (auto _ : state) benchmark::DoNotOptimize(models::SaturationFunctions(300));
}
BENCHMARK(BM_SaturationFunctions);

void BM_InflexionPoints(benchmark::State& state) {
    activate(6, 2);
    for (auto _ : state) benchmark::DoNotOptimize(models::InflexionPoints(300));
}
BENCHMARK(BM_InflexionPoints);

}  // namespace
