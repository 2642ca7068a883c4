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
    EosConstants k{.power = {}, .jiTorvik = models.jiTorvik};
    const double X = std::cbrt(std::pow(2.0, 4.5) + 13);
    const double OB = -1.0 / 32.0 - 21.0 / (32.0 * X) + 3.0 * X / 32.0;
    const double OA = 10.0 / 3.0 * OB * OB + 4.0 / 3.0 * OB + 1.0 / 3.0;
    k.power.eosA0 = faults::divide(OA * R * R * s.Tcrit * s.Tcrit, s.pcrit);
    k.power.eosB0 = OB * R * s.Tcrit / s.pcrit;
    k.power.eosC0 = (1 - std::sqrt(2.0)) * k.power.eosB0;
    k.power.eosD0 = (1 + std::sqrt(2.0)) * k.power.eosB0;
    k.power.eosAlphaForm = 2;
    k.power.eosNA = 0.37464 + 1.54226 * s.omega - 0.26992 * s.omega * s.omega;
    return k;
}

constexpr EquationOfState row = power_cubic(
    Eos::pengRobinson, "CEOS Peng / Robinson               ", 0.3074, constants_of, true);

}  // namespace

const EquationOfState kPengRobinson = row;
const EquationOfState kVirialPengRobinson =
    virial_of(row, Eos::virialPengRobinson, "VIRIAL Equ. Peng / Robinson        ", true);

}  // namespace quor::models
