#pragma once

#include "common/constants.h"
#include "common/status.h"
#include "models/fluid.h"

/// Equations of state, state solvers, equilibrium, vapour pressure, densities, virial
/// coefficients, enthalpy of vaporisation.
namespace quor::models {

/// Constants of an equation of state for a substance: `EOSParameters` of the cubic codes 2 to 6 and
/// their virial twins 11 to 15; all other codes leave them zero. Ji/Torvik (7, 8) takes jtZc of
/// `jt` and fills its computed coefficients. Throws `faults::Fault` on an arithmetic fault.
models::EOSParameters eos_constants(std::int16_t code, bool onlyV,
                                    const models::SubstanceRecord& substance,
                                    models::JiTorvikParameters& jt);

/// a, b, c, d at T/K > 0 by the power and Soave forms of the constants, whatever the model.
models::EOSState power_state(const models::EOSParameters& eos, double Tcrit, double T);

/// a, b, c, d at T/K; T below 1E-6 gives `previous` back.
models::EOSState eos_at(const Fluid& fluid, double T, const models::EOSState& previous = {});

/// First and second derivatives of a, b, c, d with respect to T.
struct EOSSlopes {
    double a1 = 0, a2 = 0, b1 = 0, b2 = 0, c1 = 0, c2 = 0, d1 = 0, d2 = 0;
};
/// Analytic derivatives at T/K > 0 by the active model.
EOSSlopes eos_slopes(const Fluid& fluid, const models::EOSState& state, double T);
/// The same for the power and Soave forms alone, which the V-only models use whatever their code.
EOSSlopes power_slopes(const models::EOSParameters& eos, double Tcrit,
                       const models::EOSState& state, double T);

/// p/kPa = R T/(v - b) - a/((v + c)(v + d)) of a state; v in m^3/kmol above b.
inline double cubic_pressure(const models::EOSState& s, double T, double v) {
    return constants::R * T / (v - s.eosB) - s.eosA / ((v + s.eosC) * (v + s.eosD));
}

/// Constants for a code into the process-level records. Status 0, or 1 after a message when the
/// Ji/Torvik parameters could not be had, or silently on an arithmetic fault. Code 1 keeps the
/// present constants.
Status calc_eos_parameters(std::int16_t code);

/// Fills `legacy::the_eosState`; T below 1E-6 leaves it as it was.
void eval_eos_at_t(double T);

}  // namespace quor::models
