#pragma once

#include "models/saturation.h"

namespace quor::models {

/// The two extrema of a subcritical isotherm: p has its minimum at vL and its maximum at vV.
struct Spinodal {
    double vL = 0, vV = 0;  ///< m^3/kmol
    double pL = 0, pV = 0;  ///< kPa; pL may be negative
};
/// Nothing at and above the critical isotherm.
std::optional<Spinodal> spinodal(const Fluid& fluid, const EosState& s, double T);

/// p(LV) at 0 < T < Tcrit by a bracketed search on the equal-area condition between the spinodal
/// pressures. It finds the state wherever the isotherm has a loop.
std::optional<Saturation> maxwell_pressure(const Fluid& fluid, double T);

/// T(LV) at 0 < p < pcrit by bracketing T with `maxwell_pressure`.
std::optional<Saturation> maxwell_temperature(const Fluid& fluid, double p);

}  // namespace quor::models
