#include "models/units.h"

#include "common/constants.h"
#include "common/faults.h"

namespace quor::models {

namespace {

constexpr double kAtmosphere = constants::kNormalPressure;      // kPa
constexpr double kZeroCelsius = 273.15;                         // K
constexpr double kPoundForcePerSquareInch = 6.894757293168361;  // kPa: 0.45359237 kg x g / in^2
constexpr double kFoot = 0.3048, kPound = 0.45359237;           // m, kg
constexpr double kCubicFoot = kFoot * kFoot * kFoot;            // m^3
constexpr double kGallon = 0.003785411784;                      // m^3, 231 in^3
constexpr double kCalorie = 4.1868, kBtuPerPound = 2.326;       // kJ/kcal, kJ/kg

constexpr Unit gauge(std::string_view name, double factor) {
    return {Dimension::pressure, name, factor, -kAtmosphere * factor};
}

/// All units, by quantity; the first of each is the one that values are computed in.
constexpr auto kUnits = std::to_array<Unit>({
    {Dimension::temperature, "K"},
    {Dimension::temperature, "degC", 1, -kZeroCelsius},
    {Dimension::temperature, "degF", 1.8, -459.67},
    {Dimension::temperature, "degR", 1.8},
    {Dimension::temperature, "T/T(cr)", 1, 0, Per::critical},
    {Dimension::pressure, "kPa"},
    {Dimension::pressure, "Pa", 1000},
    {Dimension::pressure, "hPa", 10},
    {Dimension::pressure, "MPa", 1e-3},
    {Dimension::pressure, "bar", 1e-2},
    {Dimension::pressure, "atm", 1 / kAtmosphere},
    {Dimension::pressure, "Torr", 760 / kAtmosphere},
    {Dimension::pressure, "psi", 1 / kPoundForcePerSquareInch},
    gauge("kPa(g)", 1),
    gauge("Pa(g)", 1000),
    gauge("hPa(g)", 10),
    gauge("MPa(g)", 1e-3),
    gauge("bar(g)", 1e-2),
    gauge("atm(g)", 1 / kAtmosphere),
    gauge("Torr(g)", 760 / kAtmosphere),
    gauge("psi(g)", 1 / kPoundForcePerSquareInch),
    {Dimension::pressure, "p/p(cr)", 1, 0, Per::critical},
    {Dimension::volume, "m^3/kmol"},
    {Dimension::volume, "m^3/kg", 1, 0, Per::mass},
    {Dimension::volume, "cm^3/mol", 1e3},
    {Dimension::volume, "l/mol"},
    {Dimension::volume, "l/kg", 1e3, 0, Per::mass},
    {Dimension::volume, "cm^3/g", 1e3, 0, Per::mass},
    {Dimension::volume, "ft^3/lb", kPound / kCubicFoot, 0, Per::mass},
    {Dimension::volume, "ft^3/lbmol", kPound / kCubicFoot},
    {Dimension::volume, "V(red)", 1, 0, Per::critical},
    {Dimension::density, "kg/m^3"},
    {Dimension::density, "kmol/m^3", 1, 0, Per::amount},
    {Dimension::density, "mol/l", 1, 0, Per::amount},
    {Dimension::density, "g/cm^3", 1e-3},
    {Dimension::density, "lb/ft^3", kCubicFoot / kPound},
    {Dimension::energy, "kJ/kmol"},
    {Dimension::energy, "K", 1, 0, Per::gasConstant},
    {Dimension::energy, "R T", 1, 0, Per::RT},
    {Dimension::energy, "kJ/kg", 1, 0, Per::mass},
    {Dimension::energy, "J/mol"},
    {Dimension::energy, "kcal/kg", 1 / kCalorie, 0, Per::mass},
    {Dimension::energy, "BTU/lb", 1 / kBtuPerPound, 0, Per::mass},
    {Dimension::entropy, "kJ/(kmol K)"},
    {Dimension::entropy, "R", 1, 0, Per::gasConstant},
    {Dimension::entropy, "1/K", 1, 0, Per::RT},
    {Dimension::entropy, "kJ/(kg K)", 1, 0, Per::mass},
    {Dimension::entropy, "J/(mol K)"},
    {Dimension::entropy, "kcal/(kg K)", 1 / kCalorie, 0, Per::mass},
    {Dimension::entropy, "BTU/(lb degR)", 1 / kCalorie, 0, Per::mass},
    {Dimension::speed, "m/s"},
    {Dimension::speed, "ft/s", 1 / kFoot},
    {Dimension::tankVolume, "m^3"},
    {Dimension::tankVolume, "l", 1e3},
    {Dimension::tankVolume, "ft^3", 1 / kCubicFoot},
    {Dimension::tankVolume, "gal", 1 / kGallon},
    {Dimension::mass, "kg"},
    {Dimension::mass, "g", 1e3},
    {Dimension::mass, "t", 1e-3},
    {Dimension::mass, "lb", 1 / kPound},
    {Dimension::amount, "kmol"},
    {Dimension::amount, "mol", 1e3},
    {Dimension::amount, "lbmol", 1 / kPound},
});

constexpr std::size_t at(Dimension dimension) {
    return static_cast<std::size_t>(dimension);
}

constexpr Unit first_unit(Dimension dimension) {
    for (const Unit& unit : kUnits)
        if (unit.dimension == dimension) return unit;
    return kUnits.front();
}

/// The unit of a quantity that refers to something and has no size of its own.
const Unit& plain_unit(Dimension dimension, Per per) {
    for (const Unit& unit : units_of(dimension))
        if (unit.per == per && unit.factor == 1 && unit.zero == 0) return unit;
    return units_of(dimension).front();
}

Per per_of(CaloricUnit caloric) {
    constexpr std::array kPer = {Per::nothing, Per::gasConstant, Per::RT, Per::mass};
    return kPer[static_cast<std::size_t>(caloric)];
}

/// What the two parts of a choice say by themselves of a quantity on an axis.
const Unit& computed_unit(const UnitChoice& choice, Dimension dimension) {
    const bool reduced = choice.system == UnitSystem::reduced;
    switch (dimension) {
        case Dimension::temperature:
        case Dimension::pressure:
            return plain_unit(dimension, reduced ? Per::critical : Per::nothing);
        case Dimension::volume:
            return plain_unit(dimension, reduced                                 ? Per::critical
                                         : choice.system == UnitSystem::specific ? Per::mass
                                                                                 : Per::nothing);
        case Dimension::energy:
        case Dimension::entropy:
            return plain_unit(dimension, per_of(choice.caloric));
        default:
            return units_of(dimension).front();
    }
}

std::uint8_t number_of(const Unit& unit) {
    return static_cast<std::uint8_t>(&unit - units_of(unit.dimension).data() + 1);
}

UnitSystem system_of(const Unit& volume) {
    return volume.per == Per::critical ? UnitSystem::reduced
           : volume.per == Per::mass   ? UnitSystem::specific
                                       : UnitSystem::molar;
}

CaloricUnit caloric_of(const Unit& energy) {
    switch (energy.per) {
        case Per::gasConstant:
            return CaloricUnit::kelvin;
        case Per::RT:
            return CaloricUnit::RT;
        case Per::mass:
            return CaloricUnit::specific;
        default:
            return CaloricUnit::molar;
    }
}

/// What a unit refers to, as a factor on a value; nothing where the fluid has none.
std::optional<double> reference_factor(const Unit& unit, const Fluid& fluid, double T) {
    const SubstanceRecord& s = fluid.substance();
    const auto M = static_cast<double>(s.M);
    const auto inverse = [](double x) { return x > 0 ? std::optional(1.0 / x) : std::nullopt; };
    switch (unit.per) {
        case Per::nothing:
            return 1.0;
        case Per::mass:
        case Per::amount:
            return inverse(M);
        case Per::gasConstant:
            return 1.0 / constants::R;
        case Per::RT:
            return inverse(constants::R * T);
        case Per::critical:
            return unit.dimension == Dimension::temperature ? inverse(s.Tcrit)
                   : unit.dimension == Dimension::pressure  ? inverse(s.pcrit)
                                                            : inverse(fluid.eos().vcrit_calculated);
    }
    return std::nullopt;
}

void set_specific(Units& u, const SubstanceRecord& substance) {
    u.v = faults::divide(1.0, static_cast<double>(substance.M));
    u.v_label = "m^3/kg  ";
}

void set_reduced(Units& u, const Fluid& fluid) {
    const SubstanceRecord& s = fluid.substance();
    if (fluid.eos().vcrit_calculated > 0) {
        u.v = 1.0 / fluid.eos().vcrit_calculated;
        u.v_label = "V(red)";
    } else {
        u.choice.system = UnitSystem::molar;
    }
    if (s.Tcrit > 0) {
        u.T = static_cast<float>(1.0 / s.Tcrit);
        u.T_label = "T(red)";
    }
    if (s.pcrit > 0) {
        u.p = static_cast<float>(1.0 / s.pcrit);
        u.p_label = "p(red)";
    }
}

/// The unit in which lists and fields show a quantity: in reduced units T and p stay as they are.
const Unit& listed_unit(const UnitChoice& choice, Dimension dimension) {
    const std::uint8_t own = choice.shown[at(dimension)];
    if (own != 0) return units_of(dimension)[own - 1U];
    const bool stays = dimension == Dimension::temperature || dimension == Dimension::pressure;
    return stays ? units_of(dimension).front() : computed_unit(choice, dimension);
}

void set_scales(Units& u, const Fluid& fluid) {
    for (std::size_t i = 0; i < kDimensions; ++i) {
        const Unit& unit = listed_unit(u.choice, static_cast<Dimension>(i));
        const auto scale = scale_of(unit, fluid, u.choice.T_of_RT);
        if (!scale)
            throw faults::Fault("No unit " + std::string(unit.name) + " for this substance");
        u.scales[i] = *scale;
    }
}

UnitList list_of(std::array<std::string_view, kDimensions> names) {
    UnitList list{};
    for (std::size_t i = 0; i < kDimensions; ++i)
        for (const Unit& unit : units_of(static_cast<Dimension>(i)))
            if (unit.name == names[i]) list[i] = &unit;
    return list;
}

std::array<UnitSet, 6> make_sets() {
    return {{{"molar", "SI molar", {}},
             {"specific", "SI specific", {UnitSystem::specific, CaloricUnit::specific}},
             {"metric", "Engineering metric",
              choice_of(list_of({"degC", "bar", "m^3/kg", "kg/m^3", "kJ/kg", "kJ/(kg K)", "m/s",
                                 "m^3", "kg", "kmol"}))},
             {"chemistry", "Chemistry",
              choice_of(list_of({"K", "MPa", "cm^3/mol", "mol/l", "J/mol", "J/(mol K)", "m/s", "l",
                                 "g", "mol"}))},
             {"us", "US customary",
              choice_of(list_of({"degF", "psi", "ft^3/lb", "lb/ft^3", "BTU/lb", "BTU/(lb degR)",
                                 "ft/s", "ft^3", "lb", "lbmol"}))},
             {"reduced", "Reduced", {UnitSystem::reduced, CaloricUnit::molar}}}};
}

}  // namespace

std::span<const Unit> units_of(Dimension dimension) {
    std::size_t first = 0;
    while (kUnits[first].dimension != dimension) ++first;
    std::size_t end = first;
    while (end < kUnits.size() && kUnits[end].dimension == dimension) ++end;
    return std::span(kUnits).subspan(first, end - first);
}

bool has_own_units(const UnitChoice& choice) {
    return choice.shown != UnitChoice{}.shown;
}

UnitChoice choice_of(const UnitList& units) {
    UnitChoice choice{.system = system_of(*units[at(Dimension::volume)]),
                      .caloric = caloric_of(*units[at(Dimension::energy)])};
    for (std::size_t i = 0; i < kDimensions; ++i)
        if (units[i] != &computed_unit(choice, static_cast<Dimension>(i)))
            choice.shown[i] = number_of(*units[i]);
    return choice;
}

UnitList units_of(const UnitChoice& choice) {
    UnitList list{};
    for (std::size_t i = 0; i < kDimensions; ++i) {
        const auto dimension = static_cast<Dimension>(i);
        const std::uint8_t own = choice.shown[i];
        list[i] = own != 0 ? &units_of(dimension)[own - 1U] : &computed_unit(choice, dimension);
    }
    return list;
}

std::span<const UnitSet> unit_sets() {
    static const std::array<UnitSet, 6> sets = make_sets();
    return sets;
}

double caloric_factor(CaloricUnit unit, double T_of_RT, const SubstanceRecord& substance) {
    switch (unit) {
        case CaloricUnit::kelvin:
            return 1.0 / constants::R;
        case CaloricUnit::RT:
            return faults::divide(1.0, constants::R * T_of_RT);
        case CaloricUnit::specific:
            return faults::divide(1.0, static_cast<double>(substance.M));
        case CaloricUnit::molar:
            break;
    }
    return 1.0;
}

std::optional<Scale> scale_of(const Unit& unit, const Fluid& fluid, double T) {
    const auto factor = reference_factor(unit, fluid, T);
    if (!factor) return std::nullopt;
    return Scale{unit.factor * *factor, unit.zero, unit.name};
}

Units::Units() {
    for (std::size_t i = 0; i < kDimensions; ++i)
        scales[i].name = first_unit(static_cast<Dimension>(i)).name;
}

Units make_units(const UnitChoice& choice, const Fluid& fluid) {
    Units u;
    u.choice = choice;
    u.caloric = caloric_factor(choice.caloric, choice.T_of_RT, fluid.substance());
    if (choice.system == UnitSystem::specific) set_specific(u, fluid.substance());
    if (choice.system == UnitSystem::reduced) set_reduced(u, fluid);
    set_scales(u, fluid);
    return u;
}

UnitChoice possible_choice(const UnitChoice& choice, const Fluid& fluid) {
    UnitList units = units_of(choice);
    for (const Unit*& unit : units)
        if (!scale_of(*unit, fluid, choice.T_of_RT)) unit = &units_of(unit->dimension).front();
    UnitChoice possible = choice_of(units);
    possible.T_of_RT = choice.T_of_RT;
    return possible;
}

}  // namespace quor::models
