#pragma once

#include <optional>

#include "estimation/fit_models.h"

namespace quor::estimation {

/// Start values that follow from the points by linear least squares on the linearised model. Fixed
/// parameters keep their start values; parameters that enter non-linearly are searched over a
/// range. Nothing when the points do not suffice.
std::optional<Parameters> proposed_start_values(const FitState& state);

/// Writes the proposal into the start fields; a message when there is none ("Propose start
/// values").
bool propose_start_values(FitState& state);

}  // namespace quor::estimation
