#include <cmath>

#include "models/cubic_forms.h"
#include "models/equations.h"
#include "models/fluid.h"

namespace quor::models {

namespace {

/// The coefficients stand in the places of b0 and of the exponents, from which the derivatives of
/// the power form are taken.
EosConstants constants_of(const SubstanceRecord&, const ModelSelection& models) {
    EosConstants k{.power = {}, .ji_torvik = models.ji_torvik};
    k.power.b0 = models.manual_virial.b0;
    k.power.nb = models.manual_virial.b1;
    k.power.nv = models.manual_virial.b2;
    return k;
}

/// B = b0 - b1/T^b2.
double second_virial_of(const Fluid& f, double T, EosState& state) {
    no_virial(f, T, state);
    return f.eos().b0 - f.eos().nb / std::pow(T, f.eos().nv);
}

}  // namespace

const EquationOfState kManualVirial =
    virial_form(Eos::manualVirial, "VIRIAL Equ., Manual Input          ", constants_of,
                second_virial_of, power_virial);

}  // namespace quor::models
