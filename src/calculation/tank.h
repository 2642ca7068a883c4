#pragma once

#include "calculation/answer.h"

namespace quor::calculation {

/// Divides volume V/m^3 and mass m/kg between the phases that exist, of density rhoL and rhoV.
TankContent divide_tank(double V, double m, std::optional<double> rhoL, std::optional<double> rhoV);

}  // namespace quor::calculation
