#include <benchmark/benchmark.h>

#include "diagrams/state_chart.h"
#include "models/reference_state.h"

using namespace quor;

namespace {

/// Propane by Peng/Robinson with a linear cp.
models::Fluid propane() {
    models::SubstanceRecord s;
    s.M = 44.0956F;
    s.Tcrit = 369.89;
    s.pcrit = 4251.2;
    s.omega = 0.1521;
    s.Tboil = 231.036F;
    s.Ttriple = 85.5F;
    s.cp_polynomial.c = {20, 0.18F, 0, 0, 0};
    s.has_cp_polynomial = true;
    return models::Fluid::make(
               s, {.eos = models::Eos::pengRobinson, .cp_form = models::CpForm::polynomial})
        .value();
}

models::ReferenceState reference() {
    models::ReferenceState reference;
    models::settle_reference(reference);
    return reference;
}

/// One chart with the families that it has at first.
void BM_StateChart(benchmark::State& state) {
    const models::Fluid fluid = propane();
    const diagrams::StateChartKind& row =
        diagrams::state_chart_kinds()[static_cast<std::size_t>(state.range(0))];
    state.SetLabel(std::string(row.key));
    for (auto _ : state)
        if (!diagrams::state_chart(fluid, reference(), {}, {.kind = row.kind}))
            state.SkipWithError("no chart");
}
BENCHMARK(BM_StateChart)->DenseRange(0, 9)->Unit(benchmark::kMillisecond);

/// Four families of eight lines, of which isentropes and isenthalps are the dearest.
void BM_FourFamilies(benchmark::State& state) {
    using enum diagrams::ChartQuantity;
    const models::Fluid fluid = propane();
    const diagrams::StateChartRequest request{
        .kind = diagrams::ChartKind::tv,
        .families = {{p, {5, 20, 100, 500, 1000, 2000, 5000, 10000}},
                     {h, {-24000, -20000, -16000, -12000, -8000, -4000, 0, 4000}},
                     {s, {-100, -85, -70, -55, -40, -25, -10, 5}},
                     {h, {-22000, -18000, -14000, -10000, -6000, -2000, 2000, 6000}}}};
    for (auto _ : state)
        if (!diagrams::state_chart(fluid, reference(), {}, request))
            state.SkipWithError("no chart");
}
BENCHMARK(BM_FourFamilies)->Unit(benchmark::kMillisecond);

/// The charts of a fluid, one after the other.
void BM_AllCharts(benchmark::State& state) {
    const models::Fluid fluid = propane();
    for (auto _ : state)
        for (const diagrams::StateChartKind& row : diagrams::state_chart_kinds())
            if (!diagrams::state_chart(fluid, reference(), {}, {.kind = row.kind}))
                state.SkipWithError("no chart");
}
BENCHMARK(BM_AllCharts)->Unit(benchmark::kMillisecond);

}  // namespace
