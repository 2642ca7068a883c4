#include "models/equilibrium.h"

#include "models/maxwell.h"

namespace quor::models {

PhaseVolumes equilibrium_volumes(const Fluid& fluid, const StateTP& state, double T) {
    if (state.status == kSuccess && state.vV > 0 && state.vL > 0) return {state.vV, state.vL};
    const Saturation found = maxwell_pressure(fluid, T);
    if (found.status != kSuccess) return {};
    return {found.v[2], found.v[0]};
}

}  // namespace quor::models
