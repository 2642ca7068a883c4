#pragma once

#include "common/status.h"
#include "session/declare.h"

namespace Calc {

struct DensityResult {
    double rho = 0;              ///< kg/m^3, 0 when there is none
    std::int16_t deviation = 0;  ///< K outside the range of validity, negative below it
    Status status = kSuccess;
};

/// Saturated liquid density at T/K by the database equation, its rational and power terms, the
/// Rackett form or the single point (see the .cpp). Status -1 for a polynomial value below 1E-10.
DensityResult density_liquid(const Declare::SubstanceRecord& s, float T);
/// Solid density at T/K by the database equation; 0 when there is none.
DensityResult density_solid(const Declare::SubstanceRecord& s, float T);

/// The same for the active substance; with `warn` a box tells of more than 5 K outside the range.
DensityResult DensityL(float T, bool warn);
DensityResult DensityS(float T, bool warn);

/// L density at T/K by Benson's method (the law of rectilinear diameter of Cailletet and Mathias);
/// rhoV is the V density at T, the reference point must differ from the critical one.
double DensityLBenson(double T, double Tcrit, double rhocrit, double rhoV,
                      const Declare::BensonPoint& reference);

/// Benson's estimate of the L density at the normal boiling point; 0 for p <= 1E-6.
double BensonApproximation(double p, double pcrit, double rhocrit);

}  // namespace Calc
