#pragma once

#include <cstdint>

namespace quor::models {

/// Zero of h and s, and the surroundings of the exergies. The order of the fields is their order
/// in a project file.
struct ReferenceState {
    std::int16_t mode = 1;  ///< 1 values of the view, 2 conventional, 10 quantities of formation
    double href = 0;        ///< h(ref), kJ/kmol
    double sref = 0;        ///< s(ref), kJ/(kmol K)
    float T0 = 298.15F;     ///< reference temperature, K
    float p0 = 101.325F;    ///< reference pressure, kPa; 0 means not yet set
    double Tenv = 298.15;   ///< surroundings, K
    double penv = 101.325;  ///< surroundings, kPa

    bool operator==(const ReferenceState&) const = default;
};

/// Second reference point of Benson's method, in this order.
struct BensonPoint {
    float T = 0;     ///< K
    float p = 0;     ///< p(LV), kPa
    float rhoL = 0;  ///< kg/m^3
    float rhoV = 0;  ///< kg/m^3

    bool operator==(const BensonPoint&) const = default;
};

}  // namespace quor::models
