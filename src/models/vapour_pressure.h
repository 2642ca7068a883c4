#pragma once

#include <cstdint>

#include "common/status.h"
#include "models/model_selection.h"
#include "models/substance_record.h"

namespace quor::models {

struct VapourPressureResult {
    double p = 0;                ///< kPa, 0 on failure
    std::int16_t deviation = 0;  ///< K outside the range of validity, negative below it
    Status status = kSuccess;
};

/// p(LV) at T/K by an equation. Works for 1E-6 <= T <= Tcrit.
VapourPressureResult vapour_pressure(const SubstanceRecord& s, double T,
                                     VapourPressureEquation code);

struct BoilingTemperatureResult {
    double T = 0;                ///< K, 0 on failure
    std::int16_t deviation = 0;  ///< K outside the range of validity, negative below it
    Status status = kSuccess;
};

/// T(LV) at p/kPa, the inverse of `vapour_pressure`. p above pcrit is a failure.
BoilingTemperatureResult boiling_temperature(const SubstanceRecord& s, double p,
                                             VapourPressureEquation code);

struct SlopeResult {
    double slope = 0;  ///< d(ln p)/d(1/T) in K, 0 on failure
    Status status = kSuccess;
};

SlopeResult vapour_pressure_slope(const SubstanceRecord& s, double T, VapourPressureEquation code);

/// Fills the set of a correlated equation (Frost/Kalkwarf by van der Waals or Redlich/Kwong,
/// Antoine by Thompson) of a record from critical point and boiling point.
void correlate_vapour_pressure(SubstanceRecord& s, VapourPressureEquation equation, double Tcrit,
                               double pcrit, double Tboil);
/// Fills AUG of a record from its critical point and boiling point; a fault leaves zeros.
void correlate_august(SubstanceRecord& s);

}  // namespace quor::models
