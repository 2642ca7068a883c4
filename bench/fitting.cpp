// How long a fit takes: 200 points with seven parameters, and typical models of the view.

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "common/constants.h"
#include "estimation/fit_run.h"
#include "estimation/fit_start_values.h"
#include "estimation/marquardt_nash.h"

using namespace quor;

namespace {

using namespace estimation;

/// A rational function of seven parameters.
bool Rational(double x, const Parameters& b, const ModelContext&, double& y) {
    y = (b[0] + x * (b[1] + x * (b[2] + x * b[3]))) / (1 + x * (b[4] + x * (b[5] + x * b[6])));
    return true;
}

/// `count` points of a model, with an alternating error of 0.1 per cent.
template <class Function>
std::vector<datafiles::FitPoint> Points(int count, double from, double to, Function f) {
    std::vector<datafiles::FitPoint> points;
    for (int i = 0; i < count; ++i) {
        const double x = from + (to - from) * i / (count - 1);
        const double error = i % 2 == 0 ? 1.001 : 0.999;
        points.push_back({static_cast<float>(x), static_cast<float>(f(x) * error), 0.0F});
    }
    return points;
}

void SevenParameters(benchmark::State& state) {
    const Parameters truth{1.288, 1.491, 0.583, 0.0754, 0.966, 0.398, 0.0497};
    FitProblem problem;
    problem.model = Rational;
    problem.parameter_count = 7;
    const auto points = Points(200, -3, 2.2, [&](double x) {
        double y = 0;
        Rational(x, truth, {}, y);
        return y;
    });
    problem.points = points;
    for (auto _ : state) {
        Parameters par{1, 1, 0.4, 0.04, 0.7, 0.3, 0.03};
        Parameters std_dev{};
        const MarquardtResult r = marquardt_nash_fitting(problem, 200, par, std_dev);
        if (r.failed) state.SkipWithError("the fit ended at its limit");
        benchmark::DoNotOptimize(par);
    }
}
BENCHMARK(SevenParameters)->Unit(benchmark::kMillisecond);

/// A fit of a model of the view as `cmdStart` runs it, with the statistics behind it.
void Model(benchmark::State& state, std::int16_t number, const Parameters& truth, double from,
           double to) {
    FitState fit_state;
    fit_state.lg = true;
    fit_state.substance.Tcrit = 647.096;
    fit_state.substance.pcrit = 22064;
    choose_model(fit_state, number);
    fit_state.parameters = truth;
    fit_state.points = Points(200, from, to, [&](double x) {
        double y = 0;
        evaluate_fit(fit_state, x, y);
        return y;
    });
    fit_state.point_count = 200;
    fit_state.logarithmic = true;
    for (auto _ : state) {
        const Result<FitState> run = run_fit(fit_state);
        if (!run) state.SkipWithError("the fit was refused");
        benchmark::DoNotOptimize(run);
    }
}
BENCHMARK_CAPTURE(Model, Antoine, 4, Parameters{7.1962, 1730.63, 233.426}, 280, 450)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Model, FrostKalkwarf, 5, Parameters{23.55, -2980, 273.15, -5.62, 3.5}, 300, 620)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Model, Wagner, 8, Parameters{-7.77, 1.48, -2.77, -1.3}, 280, 640)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Model, CombiExpression, 1, Parameters{3, -2, 0.5, 0.125, 7, 1, 1}, 0.5, 4)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Model, DipprHeatCapacity, 18, Parameters{33363, 26790, 2610.5, 8896, 1169}, 200,
                  1500)
    ->Unit(benchmark::kMillisecond);

void ProposedStarts(benchmark::State& state) {
    FitState fit_state;
    choose_model(fit_state, 18);
    fit_state.parameters = {33363, 26790, 2610.5, 8896, 1169};
    fit_state.points = Points(200, 200, 1500, [&](double x) {
        double y = 0;
        evaluate_fit(fit_state, x, y);
        return y;
    });
    for (auto _ : state) benchmark::DoNotOptimize(proposed_start_values(fit_state));
}
BENCHMARK(ProposedStarts)->Unit(benchmark::kMillisecond);

}  // namespace
