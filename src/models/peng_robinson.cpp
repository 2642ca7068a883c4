#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_forms.h"
#include "models/equations.h"

#include <cmath>

namespace quor::models {

using constants::R;

namespace {

/// D.-Y. Peng, D. B. Robinson, Ind. Eng. Chem. Fundam. 15 (1976) 59.
EosConstants constants_of(const SubstanceRecord& s, const ModelSelection& models) {
    EosConstants k{.power = {}, .ji_torvik = models.ji_torvik};
    const double X = std::cbrt(std::pow(2.0, 4.5) + 13);
    const double omega_b = -1.0 / 32.0 - 21.0 / (32.0 * X) + 3.0 * X / 32.0;
    const double omega_a = 10.0 / 3.0 * omega_b * omega_b + 4.0 / 3.0 * omega_b + 1.0 / 3.0;
    k.power.a0 = faults::divide(omega_a * R * R * s.Tcrit * s.Tcrit, s.pcrit);
    k.power.b0 = omega_b * R * s.Tcrit / s.pcrit;
    k.power.c0 = (1 - std::sqrt(2.0)) * k.power.b0;
    k.power.d0 = (1 + std::sqrt(2.0)) * k.power.b0;
    k.power.alpha_form = 2;
    k.power.na = 0.37464 + 1.54226 * s.omega - 0.26992 * s.omega * s.omega;
    return k;
}

constexpr EquationOfState row = power_cubic(
    Eos::pengRobinson, "CEOS Peng / Robinson               ", 0.3074, constants_of, true);

}  // namespace

const EquationOfState kPengRobinson = row;
const EquationOfState kVirialPengRobinson =
    virial_of(row, Eos::virialPengRobinson, "VIRIAL Equ. Peng / Robinson        ", true);

}  // namespace quor::models
