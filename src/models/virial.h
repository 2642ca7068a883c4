#pragma once

#include "models/fluid.h"

namespace quor::models {

/// B(T)/(m^3/kmol) of the fluid's equation; 0 below 1E-6 K, for the ideal gas and for the cubic
/// equations of two parameters. `state` receives a, b, c, d at T.
double second_virial(const Fluid& fluid, double T, EosState& state);
inline double second_virial(const Fluid& fluid, double T) {
    EosState state;
    return second_virial(fluid, T, state);
}

/// B with dB/dT and d2B/dT2. The derivatives of all equations but Pitzer/Curl's are those of
/// B = b - a/(R T) with a and b in the power or Soave form, for the manual form too.
Virial virial(const Fluid& fluid, double T);

}  // namespace quor::models
