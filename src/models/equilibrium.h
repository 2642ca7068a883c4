#pragma once

#include "models/state_solver.h"

namespace quor::models {

/// Volumes of both phases of a cubic EOS, m^3/kmol.
struct PhaseVolumes {
    double vV = 0, vL = 0;
};

/// Both volumes at an equilibrium T/K whose state at p(LV) is known. Within a millionth of Tcrit
/// the rounding of p can leave that state a single root; the volumes then come from the bracketed
/// search on the isotherm. Nothing where that finds none.
std::optional<PhaseVolumes> equilibrium_volumes(const Fluid& fluid,
                                                const Result<StateTP, NoState>& state, double T);

}  // namespace quor::models
