#pragma once

#include <optional>

#include "models/fluid.h"

/// Curve computation, process lines, grids.
namespace quor::diagrams {

/// A V-L equilibrium of a cubic EOS.
struct Equilibrium {
    double T = 0, p = 0;    ///< K, kPa
    double vL = 0, vV = 0;  ///< m^3/kmol
    models::EosState state;
};

/// The critical point of the EOS, the end of its dome; nothing for an EOS without one.
std::optional<Equilibrium> critical_point(const models::Fluid& fluid);

/// Equilibrium at 0 < T <= Tcrit, to the rounding of the arithmetic, so that neighbouring points
/// of a curve lie on one smooth line. `p_start` is a near pressure, 0 when none is known. Nothing
/// above Tcrit, for a V-only EOS, and where p is too small for a number.
std::optional<Equilibrium> equilibrium_at_T(const models::Fluid& fluid, double T,
                                            double p_start = 0);

/// The same at 0 < p <= pcrit; `T_start` is a near temperature.
std::optional<Equilibrium> equilibrium_at_p(const models::Fluid& fluid, double p,
                                            double T_start = 0);

}  // namespace quor::diagrams
