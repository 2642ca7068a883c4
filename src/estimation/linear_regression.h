#pragma once

#include "estimation/fit_models.h"

namespace quor::estimation {

struct LinearResult {
    double sumSquares = 0;  ///< sum of (y(calc) - y)^2 over the active points
    bool failed = false;    ///< refused with a message, or beyond every number; `par` is untouched
};

/// Direct least squares of the models that are linear in their parameters. A fixed parameter is
/// left out of the model: its result is 0. With a parameter of 1/x, 1/x^2 or ln x free every active
/// x must be positive; else a message says so.
LinearResult linear_regression_fit(const FitProblem& problem, BasisFunction basis, Parameters& par);

}  // namespace quor::estimation
