#pragma once

#include <optional>

#include "models/saturation.h"

/// The equilibrium by Newton's method on equal fugacities of both phases, from a near state.
namespace quor::models {

/// The equilibrium at T/K whose pressure is next to p/kPa, to a relative 1E-12 of p. Nothing where
/// the isotherm has no loop at p, or the search leaves it.
std::optional<Saturation> equilibrium_near_p(const Fluid& fluid, double T, double p);

/// The equilibrium at p/kPa whose temperature is next to T/K, to a relative 1E-12 of T. Nothing
/// where the isotherm of T has no loop at p, or the search leaves it.
std::optional<Saturation> equilibrium_near_T(const Fluid& fluid, double p, double T);

}  // namespace quor::models
