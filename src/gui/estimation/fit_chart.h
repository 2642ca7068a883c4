#pragma once

#include "chart/chart2d.h"
#include "estimation/fit_graphs.h"

namespace quor::estimation {

/// A graph of a fit as a chart: the points as a set of points, the function as a curve, the axes
/// over the told ranges. `zeroLine` adds the line y = 0 that residuals scatter about.
chart::Chart2D chartOf(const FitGraph& graph, bool zeroLine);

}  // namespace quor::estimation
