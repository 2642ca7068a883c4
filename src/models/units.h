#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "models/fluid.h"

namespace quor::models {

/// How T, p and v are computed for diagrams, and v everywhere.
enum class UnitSystem { molar, specific, reduced };
/// How h, s and their kin are computed: kJ/kmol, K (h/R), R T, kJ/kg.
enum class CaloricUnit { molar, kelvin, RT, specific };

/// Quantities whose unit can be chosen. All energies (h, u, g, a, exergy) share one unit, and so do
/// s, cp and cv.
enum class Dimension : std::uint8_t {
    temperature,
    pressure,
    volume,
    density,
    energy,
    entropy,
    speed,
    tankVolume,
    mass,
    amount,
};
inline constexpr std::size_t kDimensions = 10;

/// What a unit refers to beside its own size.
enum class Per : std::uint8_t {
    nothing,
    mass,         ///< of a molar value: divided by M
    amount,       ///< of a density: divided by M
    gasConstant,  ///< h/R and s/R
    RT,           ///< h/(R T) and s/(R T)
    critical,     ///< divided by the critical value
};

/// A unit: a value in K, kPa, m^3/kmol, kg/m^3, kJ/kmol, kJ/(kmol K), m/s, m^3, kg or kmol is shown
/// as value * factor / (what it refers to) + zero.
struct Unit {
    Dimension dimension = Dimension::temperature;
    std::string_view name{};  ///< plain text, as files have it: "m^3/kg", "degC", "bar(g)"
    double factor = 1, zero = 0;
    Per per = Per::nothing;
};

/// All units of a quantity; the first is the one that values are computed in. Calories and BTU are
/// those of the International Table (1 kcal = 4.1868 kJ, 1 BTU/lb = 2.326 kJ/kg), pounds and feet
/// the international ones; a gauge pressure counts from 101.325 kPa.
std::span<const Unit> units_of(Dimension dimension);

/// A choice of units. `system` and `caloric` say what curves and functions are computed in;
/// `shown` names by its place in `units_of`, from 1 on, a unit of its own, 0 is what the two say.
/// Reduced units then show T and p of lists and fields in K and kPa, on axes as T/T(cr) and
/// p/p(cr).
struct UnitChoice {
    UnitSystem system = UnitSystem::molar;
    CaloricUnit caloric = CaloricUnit::molar;
    double T_of_RT = 298.15;  ///< T/K of the divisor R T
    std::array<std::uint8_t, kDimensions> shown{};

    bool operator==(const UnitChoice&) const = default;
};

/// True when a quantity has a unit of its own.
bool has_own_units(const UnitChoice& choice);

/// A unit for each quantity, in the order of `Dimension`.
using UnitList = std::array<const Unit*, kDimensions>;

/// The choice of a list, and the list of a choice.
UnitChoice choice_of(const UnitList& units);
UnitList units_of(const UnitChoice& choice);

/// A ready set of units.
struct UnitSet {
    std::string_view key;   ///< "metric"
    std::string_view name;  ///< "Engineering metric"
    UnitChoice choice;
};
/// SI molar, SI specific, engineering metric, chemistry, US customary and reduced.
std::span<const UnitSet> unit_sets();

/// One unit for a fluid: a value in K, kPa, m^3/kmol, kJ/kmol ... is shown as value * factor +
/// zero.
struct Scale {
    double factor = 1, zero = 0;
    std::string_view name{};  ///< of the table of units

    double shown(double value) const { return value * factor + zero; }
    double value(double shown_value) const { return (shown_value - zero) / factor; }
    bool operator==(const Scale&) const = default;
};

/// A choice of units for a fluid. T, p, v and caloric are what values in K, kPa, m^3/kmol and
/// kJ/kmol are multiplied with for the computation of curves; the labels belong to them. What users
/// see is `of` a quantity.
struct Units {
    /// K, kPa, m^3/kmol, kg/m^3, kJ/kmol, kJ/(kmol K), m/s, m^3, kg and kmol.
    Units();

    UnitChoice choice;
    float T = 1, p = 1;
    double v = 1, caloric = 1;
    std::string T_label = "K", p_label = "kPa", v_label = "m^3/kmol";
    std::array<Scale, kDimensions> scales{};

    const Scale& of(Dimension dimension) const {
        return scales[static_cast<std::size_t>(dimension)];
    }
    /// True when a quantity has a unit of its own instead of that of the computation.
    bool has_own(Dimension dimension) const {
        return choice.shown[static_cast<std::size_t>(dimension)] != 0;
    }
    bool operator==(const Units&) const = default;
};

/// The units of a choice for a fluid. Reduced units fall back to molar ones where the model has no
/// critical volume; `choice.system` of the result tells. Throws `faults::Fault` where a molar mass
/// is needed and there is none.
Units make_units(const UnitChoice& choice, const Fluid& fluid);

/// One unit for a fluid; T/K is that of a unit R T. Nothing where the fluid has not what it needs.
std::optional<Scale> scale_of(const Unit& unit, const Fluid& fluid, double T = 298.15);

/// A choice without what the fluid cannot have: its mass units and those of R T become molar.
UnitChoice possible_choice(const UnitChoice& choice, const Fluid& fluid);

/// The factor of a caloric unit for a fluid. Throws as `make_units`.
double caloric_factor(CaloricUnit unit, double T_of_RT, const SubstanceRecord& substance);

}  // namespace quor::models
