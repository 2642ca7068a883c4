#include <benchmark/benchmark.h>

#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/model_codes.h"
#include "models/state_solver.h"
#include "models/vapour_pressure.h"

using namespace quor;

namespace {

/// Propane with both forms of cp (fitted values of the database), by codes.
models::Fluid propane(std::int64_t code, std::int64_t cp_form) {
    using models::VapourPressureEquation;
    models::SubstanceRecord s;
    s.M = 44.0956F;
    s.Tcrit = 369.89;
    s.pcrit = 4251.2;
    s.rhocrit = 220.4781;
    s.omega = 0.1521;
    s.Tboil = 231.036F;
    s.cp_polynomial = {{-4.224F, 0.3063F, -1.586e-4F, 3.215e-8F, 0}, 200, 1000};
    s.cp_sinh_cosh = {{51.92F, 192.45F, 1626.5F, 116.8F, 723.6F}, 200, 1500};
    const auto equation = VapourPressureEquation::frostRedlichKwong;
    models::correlate_vapour_pressure(s, equation, s.Tcrit, s.pcrit, 231.036);
    models::ModelSelection m;
    m.eos = models::eos_of_code(static_cast<int>(code)).value();
    m.vapour_pressure = equation;
    m.cp_form = models::cp_form_of_code(static_cast<int>(cp_form)).value();
    return models::Fluid::make(s, m).value();
}

void BM_StateFunctions(benchmark::State& state) {
    const models::Fluid fluid = propane(state.range(0), state.range(1));
    const models::ReferenceState reference;
    const auto surroundings = models::surroundings_state(fluid, reference);
    const double T = 300, p = 500, v = *models::solve_state_tp(fluid, T, p)->vV;
    for (auto _ : state)
        benchmark::DoNotOptimize(models::state_functions(fluid, reference, surroundings, T, p, v));
}
BENCHMARK(BM_StateFunctions)->ArgNames({"eos", "cp"})->ArgsProduct({{2, 4, 6, 14, 16}, {1, 2}});

/// The same while the surroundings change with every call.
void BM_StateFunctions_NewSurroundings(benchmark::State& state) {
    const models::Fluid fluid = propane(6, 2);
    const double T = 300, p = 500, v = *models::solve_state_tp(fluid, T, p)->vV;
    models::ReferenceState reference;
    for (auto _ : state) {
        reference.Tenv += 1e-9;
        const auto surroundings = models::surroundings_state(fluid, reference);
        benchmark::DoNotOptimize(models::state_functions(fluid, reference, surroundings, T, p, v));
    }
}
BENCHMARK(BM_StateFunctions_NewSurroundings);

void BM_ResidualFunctions(benchmark::State& state) {
    const models::Fluid fluid = propane(6, 2);
    const double T = 300, p = 500, v = *models::solve_state_tp(fluid, T, p)->vV;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            models::residual_functions(fluid, models::eos_at(fluid, T), T, p, v));
}
BENCHMARK(BM_ResidualFunctions);

void BM_SaturationFunctions(benchmark::State& state) {
    const models::Fluid fluid = propane(6, 2);
    const models::ReferenceState reference;
    const auto surroundings = models::surroundings_state(fluid, reference);
    for (auto _ : state)
        benchmark::DoNotOptimize(models::saturation_functions(fluid, reference, surroundings, 300));
}
BENCHMARK(BM_SaturationFunctions);

void BM_InflexionPoints(benchmark::State& state) {
    const models::Fluid fluid = propane(6, 2);
    for (auto _ : state) benchmark::DoNotOptimize(models::inflexion_points(fluid, 300));
}
BENCHMARK(BM_InflexionPoints);

}  // namespace
