#pragma once

#include <array>

#include "report/report.h"

namespace quor::report {

/// The 42 numbers of a calculation in the units of its result, as quorcalc and the CSV protocol
/// count them.
using ResultNumbers = std::array<double, 42>;

/// First element of a phase's functions in `ResultNumbers`.
inline constexpr std::size_t kVapourNumbers = 9, kLiquidNumbers = 19;

/// The numbers of an answer by their place. Throws `faults::Fault` when one is not finite.
ResultNumbers function_values(const Made& made, const calculation::Request& request,
                              const calculation::Answer& answer);

/// What a function is measured in.
models::Dimension dimension_of(calculation::Function function);

/// Names of the numbers in the protocol, divided by ';'.
inline constexpr auto kNumberNames =
    "T;p;rho(global);v(global);rho(L);cp(S);x;cp(idG);x;v(V);h(V);s(V);g(V);u(V);a(V);eH(V); eU(V);"
    "cp(V);cV(V);v(L);h(L);s(L);g(L);u(L);a(L);eH(L);eU(L);cp(L);cV(L);delta(LV)h;delta(LV)s;"
    "alpha(V);chi(V);beta(V);delta(V);alpha(L);chi(L);beta(L);delta(L);sound speed(L);"
    "sound speed(V);B";

/// True for h, s, g, u, a and the exergies, which depend on the reference state.
bool depends_on_reference(std::size_t element);

}  // namespace quor::report
