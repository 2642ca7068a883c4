#include <cmath>

#include "models/cubic_forms.h"
#include "models/equations.h"
#include "models/fluid.h"

namespace quor::models {

namespace {

/// The coefficients stand in the places of b0 and of the exponents, from which the derivatives of
/// the power form are taken.
EosConstants constants_of(const SubstanceRecord&, const ModelSelection& models) {
    EosConstants k{.power = {}, .jiTorvik = models.jiTorvik};
    k.power.eosB0 = models.manualVirial.b0;
    k.power.eosNB = models.manualVirial.b1;
    k.power.eosNV = models.manualVirial.b2;
    return k;
}

/// B = b0 - b1/T^b2.
double second_virial_of(const Fluid& f, double T, EOSState& state) {
    no_virial(f, T, state);
    return f.eos().eosB0 - f.eos().eosNB / std::pow(T, f.eos().eosNV);
}

}  // namespace

const EquationOfState kManualVirial =
    virial_form(Eos::manualVirial, "VIRIAL Equ., Manual Input          ", constants_of,
                second_virial_of, power_virial);

}  // namespace quor::models
