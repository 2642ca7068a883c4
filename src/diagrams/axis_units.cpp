#include "diagrams/axis_units.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <utility>

#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/database_functions.h"

namespace quor::diagrams {

namespace {

using models::CaloricUnit;
using models::Dimension;
using models::Per;
using models::Unit;
using models::UnitChoice;
using models::UnitSystem;

/// The quantities whose units an axis has.
std::initializer_list<Dimension> dimensions_of(Axis axis) {
    using enum Dimension;
    static constexpr std::initializer_list<Dimension> kNone{}, kT{temperature}, kP{pressure},
        kV{volume}, kRho{density}, kPv{pressure, volume}, kBoth{temperature, pressure},
        kEnergy{energy}, kEntropy{entropy};
    switch (axis) {
        case Axis::none:
            return kNone;
        case Axis::T:
        case Axis::inverseT:
        case Axis::inverseTSlope:
            return kT;
        case Axis::p:
        case Axis::lnp:
            return kP;
        case Axis::v:
            return kV;
        case Axis::rho:
            return kRho;
        case Axis::pv:
            return kPv;
        case Axis::dlnp:
        case Axis::jouleThomson:
            return kBoth;
        case Axis::s:
        case Axis::cp:
        case Axis::cpDatabase:
        case Axis::cV:
        case Axis::cVIsochoric:
        case Axis::deltas:
        case Axis::deltacp:
            return kEntropy;
        case Axis::h:
        case Axis::hSpaced:
        case Axis::g:
        case Axis::a:
        case Axis::u:
        case Axis::eH:
        case Axis::eU:
        case Axis::deltaLVh:
        case Axis::deltah:
        case Axis::deltag:
        case Axis::Tenvs:
            return kEnergy;
    }
    return kNone;
}

const Unit& chosen_unit(const UnitChoice& choice, Dimension dimension) {
    return *models::units_of(choice)[static_cast<std::size_t>(dimension)];
}

bool is_caloric(Dimension dimension) {
    return dimension == Dimension::energy || dimension == Dimension::entropy;
}

bool is_own(const UnitChoice& choice, Dimension dimension) {
    if (choice.shown[static_cast<std::size_t>(dimension)] == 0) return false;
    const bool of_each_state =
        choice.caloric == CaloricUnit::RT || chosen_unit(choice, dimension).per == Per::RT;
    return !(is_caloric(dimension) && of_each_state);
}

/// The unit that axes show.
const Unit& unit_of(const UnitChoice& choice, Dimension dimension) {
    if (is_own(choice, dimension)) return chosen_unit(choice, dimension);
    UnitChoice computed = choice;
    computed.shown = {};
    return chosen_unit(computed, dimension);
}

std::optional<double> inverse(double value) {
    return value > 0 ? std::optional(1.0 / value) : std::nullopt;
}

/// Factor of the computation on a quantity in K, kPa, m^3/kmol ...
std::optional<double> computed_size(const UnitChoice& choice, Dimension dimension,
                                    const models::Fluid& fluid) {
    const models::SubstanceRecord& s = fluid.substance();
    const bool reduced = choice.system == UnitSystem::reduced;
    // Curves are computed with the 32-bit factors of `models::Units`.
    const auto single = [](double critical) {
        return critical > 0 ? static_cast<double>(static_cast<float>(1.0 / critical)) : 1.0;
    };
    switch (dimension) {
        case Dimension::temperature:
            return reduced ? single(s.Tcrit) : 1.0;
        case Dimension::pressure:
            return reduced ? single(s.pcrit) : 1.0;
        case Dimension::volume:
            if (reduced) return inverse(fluid.eos().vcrit_calculated);
            return choice.system == UnitSystem::specific ? inverse(static_cast<double>(s.M)) : 1.0;
        case Dimension::energy:
        case Dimension::entropy:
            if (choice.caloric == CaloricUnit::RT) return std::nullopt;
            if (choice.caloric == CaloricUnit::specific && !(s.M > 0)) return std::nullopt;
            return models::caloric_factor(choice.caloric, 0, s);
        default:
            return 1.0;
    }
}

std::optional<AxisScale> scale_of(const UnitChoice& choice, Dimension dimension,
                                  const models::Fluid& fluid) {
    if (is_own(choice, dimension)) {
        const auto scale = models::scale_of(unit_of(choice, dimension), fluid, choice.T_of_RT);
        if (!scale) return std::nullopt;
        return AxisScale{scale->factor, scale->zero};
    }
    const auto size = computed_size(choice, dimension, fluid);
    if (!size) return std::nullopt;
    return AxisScale{*size, 0};
}

std::optional<double> size_of(const UnitChoice& choice, Dimension dimension,
                              const models::Fluid& fluid) {
    const auto scale = scale_of(choice, dimension, fluid);
    return scale ? std::optional(scale->factor) : std::nullopt;
}

/// The size of a unit of its own; quotients are computed in K and kPa in every system.
std::optional<double> own_size(const UnitChoice& choice, Dimension dimension,
                               const models::Fluid& fluid) {
    return is_own(choice, dimension) ? size_of(choice, dimension, fluid) : 1.0;
}

std::optional<AxisScale> product(std::optional<double> a, std::optional<double> b) {
    if (!a || !b) return std::nullopt;
    return AxisScale{*a * *b, 0};
}

bool is_liquid_volume(const Diagram* row, Axis axis) {
    return row != nullptr && row->database == DatabaseFunction::volumeLiquid && axis == Axis::v;
}

}  // namespace

bool has_own_unit(Axis axis, const UnitChoice& choice) {
    for (const Dimension dimension : dimensions_of(axis))
        if (is_own(choice, dimension)) return true;
    return false;
}

std::optional<AxisScale> axis_scale(const Diagram* row, Axis axis, const UnitChoice& choice,
                                    const models::Fluid& fluid) {
    using enum Dimension;
    switch (axis) {
        case Axis::none:
            return AxisScale{};
        case Axis::inverseT:
        case Axis::inverseTSlope: {
            const auto size = size_of(choice, temperature, fluid);
            return product(size ? std::optional(1.0 / *size) : std::nullopt, 1.0);
        }
        case Axis::lnp: {
            const auto size = size_of(choice, pressure, fluid);
            if (!size) return std::nullopt;
            return AxisScale{1, std::log(*size)};
        }
        case Axis::dlnp:
            return product(own_size(choice, temperature, fluid), 1.0);
        case Axis::jouleThomson: {
            const auto p = own_size(choice, pressure, fluid);
            return product(own_size(choice, temperature, fluid),
                           p ? std::optional(1.0 / *p) : std::nullopt);
        }
        case Axis::pv:
            return product(size_of(choice, pressure, fluid), size_of(choice, volume, fluid));
        default:
            break;
    }
    if (is_liquid_volume(row, axis) && !is_own(choice, volume)) {
        if (!liquid_volume_is_specific(choice)) return AxisScale{};
        return product(inverse(static_cast<double>(fluid.substance().M)), 1.0);
    }
    return scale_of(choice, *dimensions_of(axis).begin(), fluid);
}

std::optional<AxisScale> conversion(const Diagram* row, Axis axis, const UnitChoice& from,
                                    const UnitChoice& to, const models::Fluid& fluid) {
    const auto same_unit = [&](Dimension d) { return &unit_of(from, d) == &unit_of(to, d); };
    bool same = !is_liquid_volume(row, axis) ||
                liquid_volume_is_specific(from) == liquid_volume_is_specific(to);
    for (const Dimension dimension : dimensions_of(axis)) same = same && same_unit(dimension);
    if (same) return AxisScale{};
    const auto before = axis_scale(row, axis, from, fluid),
               after = axis_scale(row, axis, to, fluid);
    if (!before || !after) return std::nullopt;
    const double factor = after->factor / before->factor;
    return AxisScale{factor, after->zero - before->zero * factor};
}

AxisScale shown_scale(const Diagram* row, Axis axis, const Basis& basis) {
    const UnitChoice& choice = basis.units.choice;
    if (!has_own_unit(axis, choice)) return {};
    UnitChoice computed = choice;
    computed.shown = {};
    const auto scale = conversion(row, axis, computed, choice, basis.fluid);
    if (!scale) throw faults::Fault("The units of this diagram cannot be had for this substance");
    return *scale;
}

AxisScales shown_scales(const Diagram& diagram, const Basis& basis) {
    return {shown_scale(&diagram, diagram.x, basis), shown_scale(&diagram, diagram.y, basis)};
}

namespace {

/// A number with so many significant digits.
double rounded_to(double value, int digits) {
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value,
                                       std::chars_format::scientific, digits - 1);
    double rounded = value;
    std::from_chars(text.data(), written.ptr, rounded);
    return rounded;
}

CurveWindow converted(const CurveWindow& w, const auto& x, const auto& y) {
    return {x(w.x_min), x(w.x_max), y(w.y_min), y(w.y_max)};
}

float shown_single(const AxisScale& scale, float computed) {
    return numbers::to_single(scale(static_cast<double>(computed)));
}

/// The computed number with the fewest digits that is shown as a 32-bit number: a limit at the
/// triple point must not come back just below it.
float computed_single(const AxisScale& scale, float shown) {
    constexpr int kMostDigits = 9;
    const double value = scale.back(static_cast<double>(shown));
    for (int digits = 1; digits <= kMostDigits && std::isfinite(value); ++digits) {
        const float rounded = numbers::to_single(rounded_to(value, digits));
        if (shown_single(scale, rounded) == shown) return rounded;
    }
    return numbers::to_single(value);
}

}  // namespace

CurveWindow AxisScales::shown(const CurveWindow& computed) const {
    if (are_identity()) return computed;
    return converted(
        computed, [this](float value) { return shown_single(x, value); },
        [this](float value) { return shown_single(y, value); });
}

CurveWindow AxisScales::computed(const CurveWindow& shown) const {
    if (are_identity()) return shown;
    return converted(
        shown, [this](float value) { return computed_single(x, value); },
        [this](float value) { return computed_single(y, value); });
}

namespace {

std::string name_of(const UnitChoice& choice, Dimension dimension) {
    return std::string(unit_of(choice, dimension).name);
}

bool is_critical(const UnitChoice& choice, Dimension dimension) {
    return unit_of(choice, dimension).per == Per::critical;
}

/// The unit of differences of temperature.
std::string difference_name(const UnitChoice& choice) {
    const Unit& unit = unit_of(choice, Dimension::temperature);
    if (unit.per == Per::critical) return "T(cr)";
    return unit.factor == 1 ? "K" : "degR";
}

std::string absolute_name(const UnitChoice& choice) {
    return is_critical(choice, Dimension::pressure)
               ? "p(cr)"
               : text::replace_all(name_of(choice, Dimension::pressure), "(g)", "");
}

std::string behind_symbol(const std::string& symbol, const std::string& unit) {
    const bool composed = unit.find_first_of("/ *") != std::string::npos;
    return symbol + " / " + (composed ? "(" + unit + ")" : unit);
}

}  // namespace

std::optional<Unit> plain_unit_of(const Diagram* row, Axis axis, const UnitChoice& choice) {
    const bool is_product = axis == Axis::pv || axis == Axis::inverseT ||
                            axis == Axis::inverseTSlope || axis == Axis::lnp ||
                            axis == Axis::dlnp || axis == Axis::jouleThomson;
    const auto dimensions = dimensions_of(axis);
    if (is_product || dimensions.size() == 0) return std::nullopt;
    UnitChoice shown = choice;
    if (is_liquid_volume(row, axis) && !has_own_unit(axis, choice))
        shown.system = liquid_volume_is_specific(choice) ? UnitSystem::specific : UnitSystem::molar;
    const Unit& unit = unit_of(shown, *dimensions.begin());
    return unit.per == Per::RT ? std::nullopt : std::optional(unit);
}

std::string own_axis_text(Axis axis, const UnitChoice& choice) {
    using enum Dimension;
    // Quotients and logarithms are told in K and kPa in every system.
    const std::string T = is_own(choice, temperature) ? difference_name(choice) : "K",
                      p = is_own(choice, pressure) ? absolute_name(choice) : "kPa";
    switch (axis) {
        case Axis::T:
            return is_critical(choice, temperature)
                       ? "T / T(cr)"
                       : behind_symbol("T", name_of(choice, temperature));
        case Axis::p:
            return is_critical(choice, pressure) ? "p / p(cr)"
                                                 : behind_symbol("p", name_of(choice, pressure));
        case Axis::v:
            return is_critical(choice, volume) ? "V(red)"
                                               : behind_symbol("v", name_of(choice, volume));
        case Axis::pv:
            return behind_symbol("pv", absolute_name(choice) + "*" + name_of(choice, volume));
        case Axis::inverseT:
        case Axis::inverseTSlope:
            return is_critical(choice, temperature) ? "1 / T(red)" : "1/T / (1/" + T + ")";
        case Axis::lnp:
            return is_critical(choice, pressure) ? "ln (p/p(cr))" : "ln(p/" + p + ")";
        case Axis::dlnp:
            return "dln(p/" + p + ") / d(1/T)" + (T == "K" ? "" : " / " + T);
        case Axis::jouleThomson:
            return "delta / (" + T + "/" + p + ")";
        default:
            break;
    }
    const auto dimensions = dimensions_of(axis);
    return dimensions.size() == 0
               ? std::string()
               : behind_symbol(axis_symbol(axis), name_of(choice, *dimensions.begin()));
}

std::string window_text(const std::string& text, const UnitChoice& choice) {
    return choice.shown == UnitChoice{}.shown ? text : text::with_unit_signs(text);
}

namespace {

/// The unit of the other caloric quantity that goes with one.
const Unit& partner_of(const Unit& unit) {
    const Dimension other =
        unit.dimension == Dimension::energy ? Dimension::entropy : Dimension::energy;
    const auto same = models::units_of(unit.dimension), others = models::units_of(other);
    // Both lists have the same units in the same order.
    const auto place = static_cast<std::size_t>(&unit - same.data());
    return others[std::min(place, others.size() - 1)];
}

/// Choices that differ from one in the unit of a quantity.
std::vector<UnitChoice> with_all_units(const UnitChoice& choice, Dimension dimension) {
    std::vector<UnitChoice> choices;
    for (const Unit& unit : models::units_of(dimension)) {
        models::UnitList list = models::units_of(choice);
        list[static_cast<std::size_t>(dimension)] = &unit;
        const Unit& partner = partner_of(unit);
        if (is_caloric(dimension)) list[static_cast<std::size_t>(partner.dimension)] = &partner;
        choices.push_back(models::choice_of(list));
    }
    return choices;
}

}  // namespace

std::vector<UnitChoice> choices_with_text(Axis axis, const std::string& text,
                                          const UnitChoice& others) {
    std::vector<UnitChoice> choices{others};
    for (const Dimension dimension : dimensions_of(axis)) {
        std::vector<UnitChoice> more;
        for (const UnitChoice& choice : choices)
            for (const UnitChoice& next : with_all_units(choice, dimension)) more.push_back(next);
        choices = std::move(more);
    }
    std::erase_if(choices, [&](const UnitChoice& choice) {
        return text::trim(axis_text(axis, choice)) != text;
    });
    return choices;
}

Dimension dimension_of(Parameter parameter) {
    return parameter == Parameter::T   ? Dimension::temperature
           : parameter == Parameter::p ? Dimension::pressure
                                       : Dimension::volume;
}

const models::Scale* own_scale(Parameter parameter, const models::Units& units) {
    if (parameter == Parameter::none) return nullptr;
    const Dimension dimension = dimension_of(parameter);
    return units.has_own(dimension) ? &units.of(dimension) : nullptr;
}

}  // namespace quor::diagrams
