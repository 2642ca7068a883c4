#include "models/cubic_forms.h"
#include "models/equations.h"

namespace quor::models {

namespace {

double second_virial_of(const Fluid&, double, EosState& state) {
    state = {};
    return 0;
}

Virial virial_of_T(const Fluid&, double) {
    return {};
}

}  // namespace

const EquationOfState kIdealGas = virial_form(Eos::idealGas, "Ideal-gas EOS                      ",
                                              no_constants, second_virial_of, virial_of_T);

}  // namespace quor::models
