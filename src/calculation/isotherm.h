#pragma once

#include <vector>

#include "calculation/answer.h"
#include "models/fluid.h"

namespace quor::calculation {

/// A point of the p-v isotherm: m^3/kmol and kPa.
struct IsothermPoint {
    double v = 0, p = 0;
};

/// The p-v isotherm of a cubic EOS round a state; empty without one, and where its pressures are
/// beyond all numbers.
struct Isotherm {
    double T = 0, p = 0;  ///< K, kPa
    /// The isotherm at T, ascending in v and evenly spaced in log(v); one curve without gaps.
    std::vector<IsothermPoint> isotherm;
    /// Below Tcrit: p(LV) and the two areas between isotherm and p(LV), each a closed polygon;
    /// equal by Maxwell's rule. Empty above Tcrit.
    double saturation_pressure = 0;
    std::vector<IsothermPoint> area_below;  ///< between the L and the middle volume
    std::vector<IsothermPoint> area_above;  ///< between the middle and the V volume
    /// Limits of p that show the loop and the given p well, kPa.
    double p_min = 0, p_max = 0;
};
Isotherm isotherm_of(const models::Fluid& fluid, const LastState& last);

}  // namespace quor::calculation
