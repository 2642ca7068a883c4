#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_forms.h"
#include "models/equations.h"

#include <cmath>

namespace quor::models {

using constants::R;

namespace {

/// O. Redlich, J. N. S. Kwong, Chem. Rev. 44 (1949) 233.
EosConstants constants_of(const SubstanceRecord& s, const ModelSelection& models) {
    EosConstants k{.power = {}, .ji_torvik = models.ji_torvik};
    const double root = std::cbrt(2.0) - 1;
    const double K = 1 / (9 * root);
    const double W = root / 3;
    k.power.a0 = faults::divide(K * R * R * s.Tcrit * s.Tcrit * std::sqrt(s.Tcrit), s.pcrit);
    k.power.b0 = W * R * s.Tcrit / s.pcrit;
    k.power.d0 = k.power.b0;
    k.power.na = -0.5;
    return k;
}

constexpr EquationOfState row =
    power_cubic(Eos::redlichKwong, "CEOS Redlich / Kwong               ", 1.0 / 3.0, constants_of);

}  // namespace

const EquationOfState kRedlichKwong = row;
const EquationOfState kVirialRedlichKwong =
    virial_of(row, Eos::virialRedlichKwong, "VIRIAL Equ. Redlich / Kwong        ", false);

}  // namespace quor::models
