#include "models/unit_text.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "common/numbers.h"
#include "common/text.h"

namespace quor::models {

namespace {

struct Word {
    std::string_view key, word;
};
constexpr std::array<Word, kDimensions> kWords = {{{"T", "temperature"},
                                                   {"p", "pressure"},
                                                   {"v", "volume"},
                                                   {"rho", "density"},
                                                   {"h", "enthalpy and energies"},
                                                   {"s", "entropy and heat capacities"},
                                                   {"w", "speed of sound"},
                                                   {"V", "volume of a tank"},
                                                   {"m", "mass"},
                                                   {"n", "amount of substance"}}};

/// What users write for parts of units.
struct Spelling {
    std::string_view written, meant;
};
constexpr Spelling kSpellings[] = {{"³", "3"}, {"²", "2"},       {"^", ""},       {"·", ""},
                                   {"*", ""},  {"°", "deg"},     {" ", ""},       {"(", ""},
                                   {")", ""},  {"[", ""},        {"]", ""},       {"Btu", "BTU"},
                                   {"L", "l"}, {"torr", "Torr"}, {"mmHg", "Torr"}};

/// A name without what may be written in several ways.
std::string reduced(std::string_view name) {
    std::string plain(name);
    for (const Spelling& s : kSpellings) plain = text::replace_all(plain, s.written, s.meant);
    return plain;
}

/// Names of units that differ from their own in more than signs, reduced.
constexpr Spelling kAliases[] = {{"C", "degC"},
                                 {"Celsius", "degC"},
                                 {"F", "degF"},
                                 {"Fahrenheit", "degF"},
                                 {"R", "degR"},
                                 {"Ra", "degR"},
                                 {"Kelvin", "K"},
                                 {"kJ/kmol/K", "kJ/(kmol K)"},
                                 {"kJ/kg/K", "kJ/(kg K)"},
                                 {"J/mol/K", "J/(mol K)"},
                                 {"BTU/lbF", "BTU/(lb degR)"},
                                 {"BTU/lb/F", "BTU/(lb degR)"},
                                 {"BTU/lb/degF", "BTU/(lb degR)"},
                                 {"BTU/lbdegF", "BTU/(lb degR)"},
                                 {"ft3/lbm", "ft^3/lb"},
                                 {"lbm/ft3", "lb/ft^3"},
                                 {"lbm", "lb"},
                                 {"J/g", "kJ/kg"},
                                 {"J/gK", "kJ/(kg K)"},
                                 {"g/l", "kg/m^3"}};

/// "bar(a)" and "kPa a" are absolute pressures as all without a mark are.
std::string_view without_absolute(std::string_view plain, Dimension dimension) {
    const bool marked =
        dimension == Dimension::pressure && plain.ends_with('a') && !plain.ends_with("Pa");
    return marked ? plain.substr(0, plain.size() - 1) : plain;
}

std::string list_of_names(Dimension dimension) {
    std::string all;
    for (const Unit& unit : units_of(dimension))
        all += (all.empty() ? "" : ", ") + std::string(unit.name);
    return all;
}

std::optional<Dimension> dimension_of(std::string_view key) {
    for (std::size_t i = 0; i < kDimensions; ++i)
        if (kWords[i].key == key) return static_cast<Dimension>(i);
    return std::nullopt;
}

/// Where the number of "12.5 bar" ends.
std::size_t end_of_number(std::string_view s) {
    std::size_t end = s.find_first_not_of("0123456789.,+-");
    // An exponent belongs to the number only with a digit behind it.
    if (end < s.size() && (s[end] == 'e' || s[end] == 'E')) {
        std::size_t digit = end + 1;
        if (digit < s.size() && (s[digit] == '+' || s[digit] == '-')) ++digit;
        if (digit < s.size() && s[digit] >= '0' && s[digit] <= '9')
            end = s.find_first_not_of("0123456789", digit);
    }
    return std::min(end, s.size());
}

}  // namespace

std::string_view key_of(Dimension dimension) {
    return kWords[static_cast<std::size_t>(dimension)].key;
}

std::string_view word_of(Dimension dimension) {
    return kWords[static_cast<std::size_t>(dimension)].word;
}

const Unit* find_unit(Dimension dimension, std::string_view name) {
    const std::string trimmed = text::trim(name);
    for (const Unit& unit : units_of(dimension))
        if (unit.name == trimmed) return &unit;
    const std::string whole = reduced(trimmed);
    if (whole.empty()) return nullptr;
    const std::string_view plain = without_absolute(whole, dimension);
    for (const Unit& unit : units_of(dimension))
        if (reduced(unit.name) == plain) return &unit;
    for (const Spelling& alias : kAliases) {
        if (alias.written != plain) continue;
        for (const Unit& unit : units_of(dimension))
            if (unit.name == alias.meant) return &unit;
    }
    return nullptr;
}

bool begins_unit(Dimension dimension, std::string_view text) {
    const std::string plain = reduced(text);
    const auto begins = [&](std::string name) {
        return (name + std::string(1, 'a')).starts_with(plain);
    };
    for (const Unit& unit : units_of(dimension)) {
        if (begins(reduced(unit.name))) return true;
        for (const Spelling& alias : kAliases)
            if (alias.meant == unit.name && begins(std::string(alias.written))) return true;
    }
    return dimension == Dimension::pressure && std::string_view("mmHg").starts_with(plain);
}

std::string_view unit_part(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    const std::string_view from = text.substr(first);
    const std::string_view rest = from.substr(end_of_number(from));
    return rest.substr(std::min(rest.find_first_not_of(' '), rest.size()));
}

std::optional<Dimension> dimension_of_unit(std::string_view name) {
    for (std::size_t i = 0; i < kDimensions; ++i)
        for (const Unit& unit : units_of(static_cast<Dimension>(i)))
            if (unit.name == name) return unit.dimension;
    return std::nullopt;
}

std::string text_of(const UnitChoice& choice) {
    const UnitList units = units_of(choice);
    std::string all;
    for (std::size_t i = 0; i < kDimensions; ++i) {
        const auto dimension = static_cast<Dimension>(i);
        if (units[i] == &units_of(dimension).front()) continue;
        all.append(all.empty() ? "" : ",").append(kWords[i].key).append("=").append(units[i]->name);
    }
    return all;
}

Result<UnitChoice> read_choice(std::string_view text) {
    const std::string whole = text::trim(text);
    for (const UnitSet& set : unit_sets())
        if (set.key == whole || set.name == whole) return set.choice;
    UnitList units = units_of(UnitChoice{});
    if (whole.empty()) return choice_of(units);
    for (const std::string& part : text::split(whole, ',')) {
        const std::size_t sign = part.find('=');
        const std::string key = text::trim(part.substr(0, sign));
        const auto dimension = dimension_of(key);
        if (sign == std::string::npos || !dimension)
            return Failure{"\"" + part +
                           "\" is neither a set of units (molar, specific, metric, chemistry, us, "
                           "reduced) nor one of T=, p=, v=, rho=, h=, s=, w=, V=, m=, n="};
        const Unit* const unit = find_unit(*dimension, part.substr(sign + 1));
        if (unit == nullptr)
            return Failure{"\"" + text::trim(part.substr(sign + 1)) + "\" is no unit of " + key +
                           "; there are " + list_of_names(*dimension)};
        units[static_cast<std::size_t>(*dimension)] = unit;
    }
    return choice_of(units);
}

Result<double> typed_value(std::string_view text, Dimension dimension, const Scale& field,
                           const Fluid& fluid) {
    const std::string whole = text::trim(text);
    const std::size_t end = end_of_number(whole);
    const auto number = numbers::typed_number(whole.substr(0, end));
    if (!number) return Failure{"This is not a number"};
    const std::string name = text::trim(whole.substr(end));
    if (name.empty()) return *number;
    const Unit* const unit = find_unit(dimension, name);
    if (unit == nullptr)
        return Failure{"\"" + name + "\" is no unit of the " + std::string(word_of(dimension)) +
                       "; there are " + list_of_names(dimension)};
    const auto scale = scale_of(*unit, fluid);
    if (!scale)
        return Failure{"The substance has no value for the unit " + std::string(unit->name)};
    const double value = scale->name == field.name ? *number : field.shown(scale->value(*number));
    if (!std::isfinite(value)) return Failure{"This number is too large"};
    return value;
}

std::string pretty_unit(std::string_view name) {
    return text::with_unit_signs(name);
}

}  // namespace quor::models
