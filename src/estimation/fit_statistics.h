#pragma once

#include "estimation/fit_models.h"

namespace quor::estimation {

/// Confidence intervals, correlations and deviations of a fit from its active points, into
/// `state.report`, with whether the parameters are those of a minimum. The parameters that were
/// adjusted are the free ones that rest on no bound; those without any influence on the function
/// are marked and left out.
void fill_statistics(FitState& state, const FitModelRow& row, const FitProblem& problem);

}  // namespace quor::estimation
