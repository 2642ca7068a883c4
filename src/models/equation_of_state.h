#pragma once

#include <span>
#include <string_view>

#include "models/eos_records.h"
#include "models/model_selection.h"
#include "models/substance_record.h"

/// What an equation of state is made of. A new one is one file that defines a row, and its line in
/// the table of equation_of_state.cpp; nothing else knows one equation from another.
namespace quor::models {

class Fluid;

/// First and second derivatives of a, b, c, d with respect to T.
struct EosSlopes {
    double a1 = 0, a2 = 0, b1 = 0, b2 = 0, c1 = 0, c2 = 0, d1 = 0, d2 = 0;
};

/// B/(m^3/kmol) and its derivatives with respect to T.
struct Virial {
    double B = 0, dB = 0, d2B = 0;
};

/// Constants of a, b, c, d in the power and Soave forms, and those of Ji/Torvik with their computed
/// part.
struct EosConstants {
    EosParameters power;
    JiTorvikParameters ji_torvik;
};

/// The families: pressure-explicit virial forms describe the V phase alone.
enum class EosFamily { virial, cubic };

/// One equation of state.
struct EquationOfState {
    Eos eos;
    std::string_view name;  ///< a 35-character text, as lists show it
    EosFamily family;
    bool needs_omega = false;  ///< offered only with an acentric factor
    double zcrit = 0;  ///< critical compressibility, 0: none or fitted (`JiTorvikParameters`)
    /// The constants that belong to a substance, without its critical volume. Throws
    /// `faults::Fault` where the substance lacks what they need.
    EosConstants (*constants)(const SubstanceRecord& substance, const ModelSelection& models);
    /// a, b, c, d at T/K > 0, and their derivatives.
    EosState (*at)(const Fluid& fluid, double T);
    EosSlopes (*slopes)(const Fluid& fluid, const EosState& state, double T);
    /// Second virial coefficient at T/K > 0 with its derivatives; `state` receives a and b at T.
    double (*second_virial)(const Fluid& fluid, double T, EosState& state);
    Virial (*virial)(const Fluid& fluid, double T);
};

/// The row of an equation. `none` has one too, that of the ideal gas without a name.
const EquationOfState& equation_of(Eos eos);

/// The constants of the chosen equation for a substance, with the critical volume of a cubic one.
/// Throws `faults::Fault` where the substance lacks what they need.
EosConstants eos_constants(const SubstanceRecord& substance, const ModelSelection& models);
/// The same for a row that need not stand in the table.
EosConstants eos_constants(const SubstanceRecord& substance, const ModelSelection& models,
                           const EquationOfState& row);

/// All rows, in the order in which the model view offers them.
std::span<const EquationOfState* const> equations();

inline bool is_cubic(Eos eos) {
    return equation_of(eos).family == EosFamily::cubic;
}
inline bool is_v_only(const EquationOfState& equation) {
    return equation.eos != Eos::none && equation.family != EosFamily::cubic;
}
inline bool is_v_only(Eos eos) {
    return is_v_only(equation_of(eos));
}

}  // namespace quor::models
