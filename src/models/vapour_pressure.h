#pragma once

#include <cstdint>
#include <optional>

#include "models/model_selection.h"
#include "models/substance_record.h"

namespace quor::models {

struct VapourPressure {
    double p = 0;                ///< kPa
    std::int16_t deviation = 0;  ///< K outside the range of validity, negative below it
};

/// p(LV) at T/K by an equation; nothing outside 1E-6 <= T <= Tcrit, without its coefficients, and
/// where it gives no pressure.
std::optional<VapourPressure> vapour_pressure(const SubstanceRecord& s, double T,
                                              VapourPressureEquation code);

struct BoilingTemperature {
    double T = 0;                ///< K
    std::int16_t deviation = 0;  ///< K outside the range of validity, negative below it
};

/// T(LV) at p/kPa, the inverse of `vapour_pressure`; nothing above pcrit.
std::optional<BoilingTemperature> boiling_temperature(const SubstanceRecord& s, double p,
                                                      VapourPressureEquation code);

/// d(ln p)/d(1/T) in K at T/K; nothing where `vapour_pressure` has none.
std::optional<double> vapour_pressure_slope(const SubstanceRecord& s, double T,
                                            VapourPressureEquation code);

/// Fills the set of a correlated equation (Frost/Kalkwarf by van der Waals or Redlich/Kwong,
/// Antoine by Thompson) of a record from critical point and boiling point; points that give no
/// numbers of 32 bits leave zeros.
void correlate_vapour_pressure(SubstanceRecord& s, VapourPressureEquation equation, double Tcrit,
                               double pcrit, double Tboil);
/// Fills AUG of a record from its critical point and boiling point; a fault, and constants
/// that 32 bits do not hold, leave zeros.
void correlate_august(SubstanceRecord& s);

}  // namespace quor::models
