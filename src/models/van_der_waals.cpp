#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_forms.h"
#include "models/equations.h"

namespace quor::models {

using constants::R;

namespace {

/// a = (27/64) R^2 Tc^2/pc, b = R Tc/(8 pc); J. D. van der Waals, thesis, Leiden 1873.
EosConstants constants_of(const SubstanceRecord& s, const ModelSelection& models) {
    EosConstants k{.power = {}, .ji_torvik = models.ji_torvik};
    k.power.a0 = faults::divide(27.0 / 64.0 * R * R * s.Tcrit * s.Tcrit, s.pcrit);
    k.power.b0 = R * s.Tcrit / s.pcrit / 8;
    return k;
}

constexpr EquationOfState row =
    power_cubic(Eos::vanDerWaals, "CEOS van der Waals                 ", 3.0 / 8.0, constants_of);

}  // namespace

const EquationOfState kVanDerWaals = row;
const EquationOfState kVirialVanDerWaals =
    virial_of(row, Eos::virialVanDerWaals, "VIRIAL Equ. Van der Waals          ", false);

}  // namespace quor::models
