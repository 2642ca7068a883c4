#pragma once

#include <array>

#include "diagrams/curve_frame.h"

namespace quor::diagrams {

/// Pressures in kPa, ascending, that divide the lowest step of a dome over p. Densities and
/// entropies of the vapour change with ln p, so that a step of the window would cut off the foot of
/// the dome; these lead it down to the lowest pressure that is drawn, or to the triple point.
inline constexpr std::size_t kFootPoints = 24;
using DomeFoot = std::array<double, kFootPoints>;

/// The foot between the lowest pass of a loop over p and the next one.
DomeFoot foot_of_dome(const CurveFrame& c, double lowest, double next);

/// Pressure in kPa below which nothing is drawn: that of the triple point, or 0.
double end_of_dome(const CurveFrame& c);

}  // namespace quor::diagrams
