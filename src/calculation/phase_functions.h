#pragma once

#include <array>
#include <optional>

#include "calculation/job.h"
#include "models/caloric.h"

/// Caloric functions of the phases of a state, and the table that shows them.
namespace quor::calculation {

/// Order of the functions of a phase, in `Fu` and in `calculation::PhaseFunctions::caloric`.
enum Function : std::size_t { kVolume, kH, kS, kG, kU, kA, kExergyH, kExergyU, kCp, kCv, kSound };
inline constexpr std::size_t kFunctionCount = 11;

/// First element of a phase's functions in `Fu`, and that of its speed of sound.
inline constexpr std::size_t kFuV = 9, kFuL = 19, kFuSoundL = 39, kFuSoundV = 40;

/// Functions of one phase in m^3/kmol, kJ/kmol, kJ/(kmol K) and m/s.
struct FunctionValues {
    std::array<double, kFunctionCount> z{};
    models::PhaseTable table;
    Status status = kFailure;
};

/// All functions at T/K, p/kPa and v in m^3/kmol. Status -1 when the substance has no ideal-gas cp.
FunctionValues FunctionsAt(double T, double p, double v);

/// The same in the units of the session.
std::array<double, kFunctionCount> Scaled(const FunctionValues& molar);

/// Functions of the phases that exist; a missing phase has no value.
struct PhasePair {
    std::optional<FunctionValues> L, V;
    bool failed() const { return (L && L->status != kSuccess) || (V && V->status != kSuccess); }
};
/// Functions of the job's phases; a phase without a volume counts as missing.
PhasePair functions_of_phases(const Job& job);

/// Functions of a phase into `Fu` and the result record.
void store_functions(Job& job, const PhasePair& pair);

/// How the table of functions is made.
enum class TableKind {
    Mode8,  ///< the list of mode 8
    Page    ///< the page of u, h, s, g: a is u - p v there
};
/// The table of eleven functions with a column for each phase.
void function_table(Job& job, const PhasePair& pair, TableKind kind);

/// Label of a caloric quantity in the unit form of the session: "h/ (kJ/kmol) " and the like.
const char* caloric_label(Function function);

}  // namespace quor::calculation
