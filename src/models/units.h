#pragma once

#include <string>

#include "models/fluid.h"

namespace quor::models {

/// How T, p and v are shown.
enum class UnitSystem { molar, specific, reduced };
/// How h, s and their kin are shown: kJ/kmol, K (h/R), R T, kJ/kg.
enum class CaloricUnit { molar, kelvin, RT, specific };

/// A choice of units.
struct UnitChoice {
    UnitSystem system = UnitSystem::molar;
    CaloricUnit caloric = CaloricUnit::molar;
    double T_of_RT = 298.15;  ///< T/K of the divisor R T

    bool operator==(const UnitChoice&) const = default;
};

/// A choice of units for a fluid: what values in K, kPa, m^3/kmol and kJ/kmol are multiplied with
/// to be shown, and how the units of T, p and v are named.
struct Units {
    UnitChoice choice;
    float T = 1, p = 1;
    double v = 1, caloric = 1;
    std::string T_label = "K", p_label = "kPa", v_label = "m^3/kmol";

    bool operator==(const Units&) const = default;
};

/// The units of a choice for a fluid. Reduced units fall back to molar ones where the model has no
/// critical volume; `choice.system` of the result tells. Throws `faults::Fault` where a molar mass
/// is needed and there is none.
Units make_units(const UnitChoice& choice, const Fluid& fluid);

/// The factor of a caloric unit for a fluid. Throws as `make_units`.
double caloric_factor(CaloricUnit unit, double T_of_RT, const SubstanceRecord& substance);

}  // namespace quor::models
