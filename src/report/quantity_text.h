#pragma once

#include <string>
#include <string_view>

#include "models/units.h"

/// Numbers and names in the units of a result. Values come in K, kPa, m^3/kmol, kg/m^3, kJ/kmol,
/// kJ/(kmol K), m/s, m^3, kg and kmol.
namespace quor::report {

using models::Dimension;

/// True when a quantity has a unit of its own. Such a set shows everything in its units, also what
/// the sets without one always show in kJ/kmol, m^3/kmol and the like.
bool has_own_units(const models::Units& units);

/// The units of what the sets without a unit of their own always show in K, kPa, m^3/kmol, kJ/kmol:
/// those, or the units themselves.
models::Units listed_units(const models::Units& units);

/// A value in the unit of its quantity, without the dust that taking off a zero leaves.
double shown(const models::Units& units, Dimension dimension, double value);
/// What a value that was kept in 32 bits means in decimal digits: 273.16, not 273.160003662109.
double digits_of(float value);

/// "degC", "bar(g)", "m^3/kg".
std::string unit_name(const models::Units& units, Dimension dimension);
/// All of them, for the heads of lists: "degC, bar, m^3/kg, kg/m^3, kJ/kg, ...".
std::string unit_names(const models::Units& units);
/// `told` as long as the quantity has no unit of its own, else its unit.
std::string unit_name(const models::Units& units, Dimension dimension, std::string_view told);

/// A value by a mask for the unit that values are computed in. In a unit of its own a quantity
/// keeps the meaning of the digits: 3 decimals of kPa are 5 of bar, at most 9.
std::string by_mask(const models::Units& units, Dimension dimension, double value,
                    std::string_view mask);
/// A pressure/kPa by a mask, below 0.01 kPa as a 32-bit value.
std::string pressure_by_mask(const models::Units& units, double p, std::string_view mask);
/// A value in its unit as a 32-bit value. Throws `faults::Fault` when it is too large.
std::string value32(const models::Units& units, Dimension dimension, double value);

/// The name and the size of a difference: K for degC, degR for degF, a gauge pressure without its
/// mark.
std::string step_name(const models::Units& units, Dimension dimension);

/// What a derivative is measured in: the powers of T, p and v, and how its unit is written, with T,
/// p and v in the places of their names: "p/(v)^2".
struct DerivedUnit {
    const char* form = "";
    int T = 0, p = 0, v = 0;
};
std::string name_of(const models::Units& units, const DerivedUnit& unit);
/// What a value in K, kPa and m^3/kmol is multiplied with.
double factor_of(const models::Units& units, const DerivedUnit& unit);

/// The unit of the derivative behind a place of `models::function_label`; without letters where it
/// has none.
const DerivedUnit& derived_unit(int label);

}  // namespace quor::report
