#pragma once

#include <optional>

#include "common/result.h"
#include "models/reference_record.h"
#include "models/substance_record.h"

namespace quor::models {

struct Density {
    double rho = 0;              ///< kg/m^3
    std::int16_t deviation = 0;  ///< K outside the range of validity, negative below it
};
/// Why a set of the database gives no density: it describes none there, or its value cannot be one.
enum class NoDensity { notDescribed, impossible };

/// Saturated liquid density at T/K by the database set a0 to a6, Tc, TLo, THi:
/// - TLo = 0 with a0, a2 > 1E-6: the short single-point form a0 + a1 T, without a range. The slope
/// is
///   not referred to the temperature a2 of the measurement; the reference point does that.
/// - a0 not 0: a0 + a1 T + a2 T^2 + a3 T^3 + a4/(a5 + T), and below Tc with a6 (1 - T/Tc)^(1/3).
/// - else a1/a2^(1 + (1 - T/Tc)^a3) (C. F. Spencer, R. P. Danner, J. Chem. Eng. Data 17 (1972)
/// 236);
///   none above Tc.
/// A polynomial value below 1E-10, a negative density and a fault are impossible.
Result<Density, NoDensity> density_liquid(const SubstanceRecord& s, float T);
/// Solid density at T/K: the cubic polynomial when both limits are given, s0 + s1 T for TLo = 0;
/// not described when there is neither.
Result<Density, NoDensity> density_solid(const SubstanceRecord& s, float T);

/// L density at T/K by Benson's method (the law of rectilinear diameter of Cailletet and Mathias);
/// rhoV is the V density at T. Only the sum of the densities of the reference point enters. Nothing
/// when the reference temperature is that of the critical point, rhocrit is not known, or the
/// density would be negative.
std::optional<double> density_l_benson(double T, double Tcrit, double rhocrit, double rhoV,
                                       const BensonPoint& reference);

/// True when all four values of a reference point are known: their product exceeds 1E-6.
bool is_known(const BensonPoint& reference);

/// Benson's estimate of the L density at the normal boiling point; nothing for p <= 1E-6.
std::optional<double> benson_approximation(double p, double pcrit, double rhocrit);

}  // namespace quor::models
