#pragma once

#include "models/state_solver.h"

namespace quor::models {

/// A saturation state of a cubic EOS. `v` holds the roots at the end, `state` a, b, c, d at T.
struct Saturation {
    double T = 0, p = 0;  ///< K, kPa
    Areas areas;
    std::int16_t root_count = 0;
    std::array<double, 3> v{};
    EosState state;
    int rounds = 0;         ///< rounds of the search, by its own count
    bool fallback = false;  ///< the bracketed search had to find the state
};

/// p(LV) at T/K by Maxwell's rule: a secant search from the vapour pressure equation, and where it
/// gives up below Tcrit a bracketed search between the spinodal pressures. Nothing above Tcrit and
/// for an equation without a liquid.
std::optional<Saturation> saturation_pressure(const Fluid& fluid, double T);

/// T(LV) at p/kPa. Tstart/K is the first trial, 0 asks for an own estimate. Nothing above pcrit.
std::optional<Saturation> saturation_temperature(const Fluid& fluid, double p, double Tstart = 0);

/// The secant and marching searches alone, without the bracketed search behind them.
std::optional<Saturation> search_saturation_pressure(const Fluid& fluid, double T);
std::optional<Saturation> search_saturation_temperature(const Fluid& fluid, double p,
                                                        double Tstart = 0);

}  // namespace quor::models
