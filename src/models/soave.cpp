#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_forms.h"
#include "models/equations.h"

#include <cmath>

namespace quor::models {

using constants::R;

namespace {

/// G. Soave, Chem. Eng. Sci. 27 (1972) 1197.
EosConstants constants_of(const SubstanceRecord& s, const ModelSelection& models) {
    EosConstants k{.power = {}, .ji_torvik = models.ji_torvik};
    const double root = std::cbrt(2.0) - 1;
    const double K = 1 / (9 * root);
    const double W = root / 3;
    k.power.a0 = faults::divide(K * R * R * s.Tcrit * s.Tcrit, s.pcrit);
    k.power.b0 = W * R * s.Tcrit / s.pcrit;
    k.power.d0 = k.power.b0;
    k.power.alpha_form = 2;
    k.power.na = 0.48 + 1.574 * s.omega - 0.176 * s.omega * s.omega;
    return k;
}

constexpr EquationOfState row =
    power_cubic(Eos::soave, "CEOS Soave / Redlich / Kwong       ", 1.0 / 3.0, constants_of, true);

}  // namespace

const EquationOfState kSoave = row;
const EquationOfState kVirialSoave =
    virial_of(row, Eos::virialSoave, "VIRIAL Equ. Soave / Redlich / Kwong", true);

}  // namespace quor::models
