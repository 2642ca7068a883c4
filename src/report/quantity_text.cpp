#include "report/quantity_text.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "common/numbers.h"
#include "report/list_layout.h"

namespace quor::report {

namespace {

constexpr int kMostDecimals = 9;
constexpr double kDust = 1e-12;  // of the zero of a unit

/// How many decimals more a unit needs for digits of the same meaning.
int further_decimals(const models::Scale& scale) {
    return static_cast<int>(std::lround(-std::log10(scale.factor)));
}

/// A mask with more or fewer decimals; a digit stands in front of the decimal mark.
std::string with_decimals(std::string_view mask, int further) {
    std::string changed(mask);
    const std::size_t point = std::min(changed.find('.'), changed.size());
    const auto decimals = static_cast<int>(changed.size() - std::min(point + 1, changed.size()));
    const int wanted = std::clamp(decimals + further, 0, kMostDecimals);
    const char last = decimals > 0 ? changed.back() : '0';
    if (decimals == 0 && wanted > 0) changed += '.';
    if (wanted >= decimals)
        changed.append(static_cast<std::size_t>(wanted - decimals), last);
    else
        changed.resize(wanted > 0 ? changed.size() - static_cast<std::size_t>(decimals - wanted)
                                  : point);
    if (point > 0) changed[point - 1] = '0';
    return changed;
}

constexpr std::array<DerivedUnit, 24> kDerivedUnits = {{
    {"p/(v)", 0, 1, -1},    // dp/dV
    {"p/T", -1, 1, 0},      // dp/dT
    {"v/p", 0, -1, 1},      // dV/dp
    {"v/T", -1, 0, 1},      // dV/dT
    {"T/(v)", 1, 0, -1},    // dT/dV
    {"T/p", 1, -1, 0},      // dT/dp
    {"1/T", -1, 0, 0},      // alpha
    {"1/p", 0, -1, 0},      // chi
    {"1/T", -1, 0, 0},      // beta
    {"p/(v)^2", 0, 1, -2},  // d2p/dV2
    {},
    {},
    {"v/T^2", -2, 0, 1},    // d2V/dT2
    {"T/(v)^2", 1, 0, -2},  // d2T/dV2
    {},
    {"1/T", -1, 0, 0},    // dln phi/dT
    {"1/T^2", -2, 0, 0},  // d2ln phi/dT2
    {},
    {},
    {},
    {},
    {"T/p", 1, -1, 0},  // Joule-Thomson
    {},
    {},
}};

}  // namespace

bool has_own_units(const models::Units& units) {
    return std::ranges::any_of(units.choice.shown, [](std::uint8_t own) { return own != 0; });
}

models::Units listed_units(const models::Units& units) {
    return has_own_units(units) ? units : models::Units{};
}

double shown(const models::Units& units, Dimension dimension, double value) {
    const models::Scale& scale = units.of(dimension);
    const double z = scale.shown(value);
    return std::fabs(z) < kDust * std::fabs(scale.zero) ? 0.0 : z;
}

double digits_of(float value) {
    return numbers::number(numbers::general_point(value)).value_or(static_cast<double>(value));
}

std::string unit_name(const models::Units& units, Dimension dimension) {
    return std::string(units.of(dimension).name);
}

std::string unit_name(const models::Units& units, Dimension dimension, std::string_view told) {
    return units.has_own(dimension) ? unit_name(units, dimension) : std::string(told);
}

std::string unit_names(const models::Units& units) {
    std::string all;
    for (const models::Scale& scale : units.scales)
        all.append(all.empty() ? "" : ", ").append(scale.name);
    return all;
}

std::string by_mask(const models::Units& units, Dimension dimension, double value,
                    std::string_view mask) {
    const double z = shown(units, dimension, value);
    if (!units.has_own(dimension)) return numbers::format(z, mask);
    return numbers::format(z, with_decimals(mask, further_decimals(units.of(dimension))));
}

std::string pressure_by_mask(const models::Units& units, double p, std::string_view mask) {
    constexpr double kSmallest = 0.01;
    return p >= kSmallest ? by_mask(units, Dimension::pressure, p, mask)
                          : value32(units, Dimension::pressure, p);
}

std::string value32(const models::Units& units, Dimension dimension, double value) {
    return value32(shown(units, dimension, value));
}

std::string step_name(const models::Units& units, Dimension dimension) {
    constexpr std::string_view kGauge = "(g)";
    std::string name = unit_name(units, dimension);
    if (name == "degC") return "K";
    if (name == "degF") return "degR";
    if (name.ends_with(kGauge)) name.resize(name.size() - kGauge.size());
    return name;
}

std::string name_of(const models::Units& units, const DerivedUnit& unit) {
    std::string name;
    for (const char c : std::string_view(unit.form)) {
        switch (c) {
            case 'T':
                name += step_name(units, Dimension::temperature);
                break;
            case 'p':
                name += step_name(units, Dimension::pressure);
                break;
            case 'v':
                name += unit_name(units, Dimension::volume);
                break;
            default:
                name += c;
        }
    }
    return name;
}

double factor_of(const models::Units& units, const DerivedUnit& unit) {
    const auto part = [&](Dimension dimension, int power) {
        return std::pow(units.of(dimension).factor, power);
    };
    return part(Dimension::temperature, unit.T) * part(Dimension::pressure, unit.p) *
           part(Dimension::volume, unit.v);
}

const DerivedUnit& derived_unit(int label) {
    static constexpr DerivedUnit kNone;
    const auto place = static_cast<std::size_t>(label);
    return label >= 0 && place < kDerivedUnits.size() ? kDerivedUnits[place] : kNone;
}

}  // namespace quor::report
