#pragma once

#include <string>
#include <vector>

#include "estimation/fit_models.h"

namespace quor::estimation {

/// Confidence intervals, correlations and deviations of a fit from its active points, into
/// `state.report`. The parameters that were adjusted are the free ones that rest on no bound; those
/// without any influence on the function are marked and left out.
void fill_statistics(FitState& state, const FitModelRow& row, const FitProblem& problem);

/// What a user should know of a fit that did not go as it should, one sentence a line; empty for a
/// fit without anything to tell.
std::vector<std::string> fit_notes(const FitState& state);

}  // namespace quor::estimation
