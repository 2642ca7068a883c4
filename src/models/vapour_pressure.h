#pragma once

#include <string_view>

#include "common/status.h"
#include "legacy/declare.h"

namespace quor::models {

struct VapourPressureResult {
    double p = 0;                ///< kPa, 0 on failure
    std::int16_t deviation = 0;  ///< K outside the range of validity, negative below it
    Status status = kSuccess;
};

/// p(LV) at T/K by the equation of a three-letter code. Works for 1E-6 <= T <= Tcrit.
VapourPressureResult vapour_pressure(const models::SubstanceRecord& s, double T,
                                     std::string_view code);
/// The same for the active substance; with `warn` a box tells of more than 10 K outside the range.
VapourPressureResult VapourPressure(double T, std::string_view code, bool warn);

struct BoilingTemperatureResult {
    double T = 0;                ///< K, 0 on failure
    std::int16_t deviation = 0;  ///< K outside the range of validity, negative below it
    Status status = kSuccess;
};

/// T(LV) at p/kPa, the inverse of `vapour_pressure`. p above pcrit is a failure.
BoilingTemperatureResult boiling_temperature(const models::SubstanceRecord& s, double p,
                                             std::string_view code);
/// The same for the active substance; with `warn` a box tells of more than 10 K outside the range.
BoilingTemperatureResult BoilingTemperature(double p, std::string_view code, bool warn = true);

struct SlopeResult {
    double slope = 0;  ///< d(ln p)/d(1/T) in K, 0 on failure
    Status status = kSuccess;
};

SlopeResult vapour_pressure_slope(const models::SubstanceRecord& s, double T,
                                  std::string_view code);
SlopeResult VapourPressureSlope(double T, std::string_view code);

/// Fills KFW, KFR or THO (index 6, 7, 8) of a record from critical point and boiling point.
void correlate_vapour_pressure(models::SubstanceRecord& s, std::int16_t index, double Tcrit,
                               double pcrit, double Tboil);
/// Fills AUG of a record from its critical point and boiling point; a fault leaves zeros.
void correlate_august(models::SubstanceRecord& s);

void CorrelateVapourPressure(std::int16_t index, double Tcrit, double pcrit, double Tboil);
void CorrelateAugust();

}  // namespace quor::models
