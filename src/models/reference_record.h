#pragma once

#include <cstdint>

namespace quor::models {

/// A state of the real fluid with given h and s, after which a reference state is named.
enum class NamedState : std::uint8_t {
    none,          ///< the ideal gas, as `mode` says
    iir,           ///< saturated liquid at 273.15 K: h = 200 kJ/kg, s = 1 kJ/(kg K)
    ashrae,        ///< saturated liquid at 233.15 K: h = s = 0
    boilingPoint,  ///< saturated liquid at 101.325 kPa: h = s = 0
    water,         ///< saturated liquid at the triple point: u = s = 0
    own            ///< any state, see `OwnState`
};

/// A state that its user gives h and s.
struct OwnState {
    double T = 298.15;    ///< K
    double p = 101.325;   ///< kPa
    bool vapour = true;   ///< which phase, where there are two
    double h = 0, s = 0;  ///< kJ/kmol, kJ/(kmol K)

    bool operator==(const OwnState&) const = default;
};

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
    /// Once it is resolved for a fluid (named_reference.h), href and sref say the same of the ideal
    /// gas at T0 and p0.
    NamedState named = NamedState::none;
    OwnState own{};

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
