// How many lines a second `quorcalc run` gets through.

#include <benchmark/benchmark.h>

#include <sstream>
#include <string>

#include "tools/quorcalc/program.h"

using namespace quor;

namespace {

constexpr int kLines = 2000;

/// Lines of one command; `#` in the pattern is a temperature between 250 and 350 K.
std::string lines_of(const std::string& pattern) {
    const std::size_t at = pattern.find('#');
    std::string lines;
    for (int i = 0; i < kLines; ++i) {
        const std::string T = std::to_string(250 + i % 100) + "." + std::to_string(i % 89);
        lines += pattern.substr(0, at) + T + pattern.substr(at + 1) + "\n";
    }
    return lines;
}

void run_lines(benchmark::State& state, const std::string& lines) {
    quorcalc::Program program{Places(QUOR_BINARY_FOLDER)};
    for (auto _ : state) {
        std::istringstream in(lines);
        std::ostringstream out, err;
        if (program.main({"run", "-"}, in, out, err) != 0) state.SkipWithError("a line failed");
        benchmark::DoNotOptimize(out);
    }
    state.counters["lines"] =
        benchmark::Counter(kLines, benchmark::Counter::kIsIterationInvariantRate);
}

void run(benchmark::State& state, const std::string& pattern) {
    run_lines(state, lines_of(pattern));
}

// Aim: more than 20,000 lines a second.
BENCHMARK_CAPTURE(run, psat, "psat --substance Propane --T #")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(run, state, "state --substance Propane --T # --p 500")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(run, functions, "functions --substance Propane --T # --p 500")
    ->Unit(benchmark::kMillisecond);

/// Every line of another substance.
void run_of_many_substances(benchmark::State& state) {
    std::string lines;
    for (int i = 0; i < kLines; ++i)
        lines += "data --substance #" + std::to_string(1 + i % 20) + "\n";
    run_lines(state, lines);
}
BENCHMARK(run_of_many_substances)->Unit(benchmark::kMillisecond);

}  // namespace
