#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_forms.h"
#include "models/equations.h"

namespace quor::models {

using constants::R;

namespace {

/// van der Waals' equation with a ~ 1/T; D. Berthelot, J. Phys. Theor. Appl. 8 (1899) 263.
EosConstants constants_of(const SubstanceRecord& s, const ModelSelection& models) {
    EosConstants k{.power = {}, .ji_torvik = models.ji_torvik};
    k.power.a0 = faults::divide(27.0 / 64.0 * R * R * s.Tcrit * s.Tcrit * s.Tcrit, s.pcrit);
    k.power.b0 = R * s.Tcrit / s.pcrit / 8;
    k.power.na = -1;
    return k;
}

constexpr EquationOfState row =
    power_cubic(Eos::berthelot, "CEOS Berthelot                     ", 3.0 / 8.0, constants_of);

}  // namespace

const EquationOfState kBerthelot = row;
const EquationOfState kVirialBerthelot =
    virial_of(row, Eos::virialBerthelot, "VIRIAL-equ. Berthelot              ", false);

}  // namespace quor::models
