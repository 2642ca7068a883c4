#include "models/cubic_forms.h"
#include "models/equations.h"

namespace quor::models {

namespace {

EosConstants constants_of(const SubstanceRecord&, const ModelSelection& models) {
    return {.power = {}, .ji_torvik = models.ji_torvik};
}

double second_virial_of(const Fluid&, double, EosState& state) {
    state = {};
    return 0;
}

Virial virial_of_T(const Fluid&, double) {
    return {};
}

}  // namespace

const EquationOfState kIdealGas{.eos = Eos::idealGas,
                                .name = "Ideal-gas EOS                      ",
                                .family = EosFamily::virial,
                                .needs_omega = false,
                                .zcrit = 0,
                                .constants = constants_of,
                                .at = power_at,
                                .slopes = power_slopes_of,
                                .second_virial = second_virial_of,
                                .virial = virial_of_T};

}  // namespace quor::models
