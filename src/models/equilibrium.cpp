#include "models/equilibrium.h"

#include "models/maxwell.h"

namespace quor::models {

std::optional<PhaseVolumes> equilibrium_volumes(const Fluid& fluid,
                                                const Result<StateTP, NoState>& state, double T) {
    if (state && state->vV && state->vL) return PhaseVolumes{*state->vV, *state->vL};
    const std::optional<Saturation> found = maxwell_pressure(fluid, T);
    if (!found) return std::nullopt;
    return PhaseVolumes{found->v[2], found->v[0]};
}

}  // namespace quor::models
