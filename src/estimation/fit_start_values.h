#pragma once

#include "common/result.h"
#include "estimation/fit_models.h"

namespace quor::estimation {

/// Start values that follow from the points by linear least squares on the linearised model. Fixed
/// parameters keep their start values; parameters that enter non-linearly are searched over a
/// range. Refused when the points do not suffice.
Result<Parameters> proposed_start_values(const FitState& state);

}  // namespace quor::estimation
