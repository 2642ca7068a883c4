#pragma once

#include "models/equation_of_state.h"

/// The forms that most equations share: a, b, c, d as powers of T or a with Soave's square root,
/// and the virial coefficient b - a/(R T) that belongs to a cubic equation.
namespace quor::models {

/// Derivatives of a, b, c, d with respect to T at T/K > 0 by the power and Soave forms.
EosSlopes power_slopes(const EosParameters& eos, double Tcrit, const EosState& state, double T);

/// a, b, c, d at T/K > 0 by these forms, and the derivatives, as entries of a row.
EosState power_at(const Fluid& fluid, double T);
EosSlopes power_slopes_of(const Fluid& fluid, const EosState& state, double T);

/// B = b - a/(R T) with a and b of the row's own form.
double cubic_second_virial(const Fluid& fluid, double T, EosState& state);
/// No B, with a and b in the power and Soave forms: the cubic equations describe both phases.
double no_virial(const Fluid& fluid, double T, EosState& state);
/// B with the derivatives of b - a/(R T), a and b in the power and Soave forms.
Virial power_virial(const Fluid& fluid, double T);

/// The row of a cubic equation whose a, b, c, d have the power or Soave form: all but its constants
/// is common.
constexpr EquationOfState power_cubic(Eos eos, std::string_view name, double zcrit,
                                      decltype(EquationOfState::constants) constants,
                                      bool needs_omega = false) {
    return {.eos = eos,
            .name = name,
            .family = EosFamily::cubic,
            .needs_omega = needs_omega,
            .zcrit = zcrit,
            .constants = constants,
            .at = power_at,
            .slopes = power_slopes_of,
            .second_virial = no_virial,
            .virial = power_virial};
}

/// The row of an equation for the V phase alone, with a second virial coefficient of its own.
constexpr EquationOfState virial_form(Eos eos, std::string_view name,
                                      decltype(EquationOfState::constants) constants,
                                      decltype(EquationOfState::second_virial) second_virial,
                                      decltype(EquationOfState::virial) virial,
                                      bool needs_omega = false) {
    return {.eos = eos,
            .name = name,
            .family = EosFamily::virial,
            .needs_omega = needs_omega,
            .constants = constants,
            .at = power_at,
            .slopes = power_slopes_of,
            .second_virial = second_virial,
            .virial = virial};
}

/// No constants of its own: those of Ji/Torvik as they were chosen.
EosConstants no_constants(const SubstanceRecord& substance, const ModelSelection& models);

/// The virial row of a cubic one: the same constants, the V phase alone.
constexpr EquationOfState virial_of(const EquationOfState& cubic, Eos eos, std::string_view name,
                                    bool needs_omega) {
    EquationOfState row = cubic;
    row.eos = eos;
    row.name = name;
    row.family = EosFamily::virial;
    row.needs_omega = needs_omega;
    row.zcrit = 0;
    row.second_virial = cubic_second_virial;
    return row;
}

}  // namespace quor::models
