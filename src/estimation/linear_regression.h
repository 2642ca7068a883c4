#pragma once

#include "common/result.h"
#include "estimation/fit_models.h"

namespace quor::estimation {

struct LinearResult {
    double sum_squares = 0;  ///< sum of (y(calc) - y)^2 over the active points
    Parameters par{};
};

/// Direct least squares of the models that are linear in their parameters, by Householder
/// reflections with iterative refinement. A fixed parameter is left out of the model: its result
/// is 0, and so is that of a term that depends on those before it. Refused when a parameter of 1/x,
/// 1/x^2 or ln x is free and an active x is not positive, and for sums beyond every number.
Result<LinearResult> linear_regression_fit(const FitProblem& problem, BasisFunction basis);

}  // namespace quor::estimation
