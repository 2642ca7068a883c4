#include <benchmark/benchmark.h>

#include "models/flash.h"
#include "models/reference_state.h"

using namespace quor;

namespace {

using models::Property;

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

void BM_FlashMade(benchmark::State& state) {
    const models::Fluid fluid = propane();
    for (auto _ : state) benchmark::DoNotOptimize(models::Flash(fluid, reference()));
}
BENCHMARK(BM_FlashMade)->Unit(benchmark::kMicrosecond);

/// A state at 300 K, asked for again by two of its properties.
void BM_Flash(benchmark::State& state, Property a, Property b, models::GivenValue with) {
    const models::Flash flash(propane(), reference());
    const models::FlashState z = flash({Property::T, 300}, with).value();
    const double all[] = {z.T, z.p, z.v, z.values->h, z.values->s, z.values->u, z.x.value_or(0)};
    const models::GivenValue first{a, all[static_cast<int>(a)]},
        second{b, all[static_cast<int>(b)]};
    if (!flash(first, second)) state.SkipWithError("no state");
    for (auto _ : state) benchmark::DoNotOptimize(flash(first, second));
}

constexpr models::GivenValue kVapour{Property::p, 500}, kLiquid{Property::p, 5000},
    kTwoPhases{Property::x, 0.4};

#define QUOR_FLASH(NAME, A, B)                                                           \
    BENCHMARK_CAPTURE(BM_Flash, NAME##_vapour, Property::A, Property::B, kVapour)        \
        ->Unit(benchmark::kMicrosecond);                                                 \
    BENCHMARK_CAPTURE(BM_Flash, NAME##_liquid, Property::A, Property::B, kLiquid)        \
        ->Unit(benchmark::kMicrosecond);                                                 \
    BENCHMARK_CAPTURE(BM_Flash, NAME##_two_phases, Property::A, Property::B, kTwoPhases) \
        ->Unit(benchmark::kMicrosecond)
QUOR_FLASH(T_v, T, v);
QUOR_FLASH(T_h, T, h);
QUOR_FLASH(p_v, p, v);
QUOR_FLASH(p_h, p, h);
QUOR_FLASH(p_s, p, s);
QUOR_FLASH(v_u, v, u);
QUOR_FLASH(h_s, h, s);
QUOR_FLASH(h_u, h, u);

}  // namespace
