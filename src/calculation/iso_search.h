#pragma once

#include <cstdint>
#include <optional>

#include "calculation/calculate.h"

namespace quor::calculation {

/// Functions that the iso-calculator holds constant; the codes are those of the session's files.
enum class IsoFunction : std::int16_t { V = 1, H, S, G, U, A, EH, EU };
/// What is specified; the other of T and p is found.
enum class IsoGiven : std::int16_t { T = 1, p = 2 };

/// The function by its place among the functions of a phase.
constexpr Function function_of(IsoFunction function) {
    return static_cast<Function>(static_cast<int>(function) - 1);
}

/// A search for a second state on a line of a constant function.
struct IsoSearch {
    IsoGiven given = IsoGiven::p;
    IsoFunction function = IsoFunction::V;
    bool liquid = false;  ///< of the L phase, else of the V phase
    double T = 0, p = 0;  ///< K, kPa: the given value, and the start of the other
    double target = 0;    ///< in m^3/kmol, kJ/kmol or kJ/(kmol K)
};

/// T/K (given p) or p/kPa (given T) where the function of the phase has the target value; nothing
/// when no state has it or the phase does not exist.
std::optional<double> solve_iso(const Calculator& calculator, const IsoSearch& search);

}  // namespace quor::calculation
