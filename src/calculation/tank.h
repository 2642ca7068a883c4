#pragma once

#include "calculation/answer.h"

namespace quor::calculation {

/// Divides volume V/m^3 and mass m/kg between phases of density rhoL and rhoV; 0 for a phase that
/// does not exist.
TankContent divide_tank(double V, double m, double rhoL, double rhoV);

}  // namespace quor::calculation
