#pragma once

#include <string>
#include <vector>

#include "common/result.h"
#include "estimation/fit_models.h"

namespace quor::estimation {

struct GraphPoint {
    double x = 0, y = 0;
};

/// A graph of a fit: one scatter series and, where there is one, a line series.
struct FitGraph {
    std::string title, x_title, y_title;
    std::vector<GraphPoint> points;
    std::vector<GraphPoint> curve;
    double x_min = 0, x_max = 0, y_min = 0, y_max = 0;  ///< axis ranges
};

enum class Residuals { Absolute, Relative };
/// Residuals of the active points over x (`cmdGraphResid`); relative ones are in per cent of the
/// measured value, and there is none where that is 0.
FitGraph residual_graph(const FitState& state, Residuals kind = Residuals::Absolute);
/// Active points and the fitted function over x (`cmdGraphFunction`).
FitGraph function_graph(const FitState& state);
/// ln p of the active points and of the fitted function over 1/T (`cmdGraphLnp`); refused when a T
/// or a p is not positive.
Result<FitGraph> lnp_graph(const FitState& state);

/// y of the fitted function at x, or x at y, the one closest to the points (`cmdCalc`). Refused
/// when there is none.
Result<double> fitted_y(const FitState& state, double x);
Result<double> fitted_x(const FitState& state, double y);

}  // namespace quor::estimation
