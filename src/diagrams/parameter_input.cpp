#include "diagrams/parameter_input.h"

#include <cmath>

#include "common/dialogs.h"
#include "common/numbers.h"
#include "diagrams/axis_units.h"
#include "models/cubic_eos.h"
#include "models/unit_text.h"

namespace quor::diagrams {

namespace {

constexpr double kMostTOrP = 1000000, kMostV = 100000;
constexpr double kLeastT = 0.9, kLeastP = 0.001;  // K, kPa
constexpr double kNearCovolume = 1.03;

double T_factor(const models::Units& units) {
    return static_cast<double>(units.T);
}
double p_factor(const models::Units& units) {
    return static_cast<double>(units.p);
}

/// Co-volume of a cubic EOS at T/K, m^3/kmol; 0 for the others.
double covolume(const models::Fluid& fluid, double T) {
    if (fluid.models().vapour_only) return 0;
    return models::eos_at(fluid, T).b;
}

std::optional<double> temperature(const models::Units& units, double typed) {
    if (!(typed > 0 && typed > kLeastT * T_factor(units) && typed <= kMostTOrP))
        return std::nullopt;
    return typed / T_factor(units);
}

std::optional<double> pressure(const models::Units& units, double typed) {
    if (!(typed > kLeastP * p_factor(units) && typed <= kMostTOrP)) return std::nullopt;
    return typed / p_factor(units);
}

Parameter parameter_of(Section section) {
    return section == Section::isobaric    ? Parameter::p
           : section == Section::isochoric ? Parameter::v
                                           : Parameter::T;
}

double computed_factor(Parameter parameter, const models::Units& units) {
    return parameter == Parameter::p   ? p_factor(units)
           : parameter == Parameter::v ? units.v
                                       : T_factor(units);
}

/// A typed value in the unit of the computation.
double as_computed(Parameter parameter, const models::Units& units, double typed) {
    const models::Scale* own = own_scale(parameter, units);
    return own ? own->value(typed) * computed_factor(parameter, units) : typed;
}

/// The name of the unit of the computation, in which reduced fields are shown as well.
std::string_view computed_name(Parameter parameter, const models::UnitChoice& choice) {
    models::UnitChoice computed = choice;
    computed.shown = {};
    return models::units_of(computed)[static_cast<std::size_t>(dimension_of(parameter))]->name;
}

ParameterAnswer take_volume(const Basis& basis, StateParameters at, double typed) {
    if (!(typed > 0 && typed <= kMostV)) return {ParameterStatus::invalid, at};
    const double v = typed / basis.v_factor();
    const double b = covolume(basis.fluid, at.T);
    if (b > 0 && v <= b) {
        dialogs::tell("v < b not possible", dialogs::kNotPossible);
        return {ParameterStatus::refused, at};
    }
    if (b > 0 && v < kNearCovolume * b)
        dialogs::tell("There are possibly problems during calculation", "WARNING");
    at.v = v;
    return {ParameterStatus::taken, at};
}

std::string shown(const models::Units& units, double value, const char* plain,
                  const std::string& unit) {
    const bool reduced = units.choice.system == models::UnitSystem::reduced;
    return numbers::format(value, reduced ? "######0.00" : plain) +
           (reduced ? std::string() : " " + unit);
}

}  // namespace

models::Dimension dimension_of(Section section) {
    return dimension_of(parameter_of(section));
}

models::Scale input_scale(Section section, const models::Units& units) {
    const Parameter parameter = parameter_of(section);
    if (const models::Scale* own = own_scale(parameter, units)) return *own;
    return {computed_factor(parameter, units), 0, computed_name(parameter, units.choice)};
}

double shown_limit(Section section, const models::Units& units, double limit) {
    const Parameter parameter = parameter_of(section);
    const models::Scale* own = own_scale(parameter, units);
    return own ? own->shown(limit / computed_factor(parameter, units)) : limit;
}

ParameterField field_of(Section section, const models::Units& units, const StateParameters& at) {
    const Parameter parameter = parameter_of(section);
    if (const models::Scale* own = own_scale(parameter, units)) {
        const double value = parameter == Parameter::T   ? at.T
                             : parameter == Parameter::p ? at.p
                                                         : at.v;
        return {parameter == Parameter::T   ? "Isotherm"
                : parameter == Parameter::p ? "Isobar"
                                            : "Isochore",
                std::string(models::key_of(dimension_of(parameter))) + " = ",
                models::pretty_unit(own->name), own->shown(value)};
    }
    switch (section) {
        case Section::isobaric:
            return {"Isobar", "p = ", units.p_label, at.p * p_factor(units)};
        case Section::isochoric:
            return {"Isochore", "v = ", units.v_label, at.v * units.v};
        default:
            return {"Isotherm", "T = ", units.T_label, at.T * T_factor(units)};
    }
}

std::string shown_parameter(Section section, const models::Units& units,
                            const StateParameters& at) {
    const bool held = section == Section::isothermal || section == Section::isobaric ||
                      section == Section::isochoric;
    if (held && own_scale(parameter_of(section), units) != nullptr) {
        const ParameterField field = field_of(section, units, at);
        return field.caption + numbers::general(numbers::to_single(field.value)) + " " + field.unit;
    }
    switch (section) {
        case Section::isothermal:
            return "T = " + shown(units, at.T * T_factor(units), "####0.0", "K");
        case Section::isobaric:
            return "p = " + shown(units, at.p * p_factor(units), "#####0.0##", "kPa");
        case Section::isochoric:
            return "v = " + shown(units, at.v * units.v, "####0.0####", units.v_label);
        default:
            return {};
    }
}

ParameterAnswer take_parameter(Section section, const Basis& basis, const StateParameters& before,
                               double typed) {
    StateParameters at = before;
    if (!std::isfinite(typed)) return {ParameterStatus::invalid, at};
    typed = as_computed(parameter_of(section), basis.units, typed);
    if (section == Section::isochoric) return take_volume(basis, at, typed);
    const bool isobaric = section == Section::isobaric;
    const auto value = isobaric ? pressure(basis.units, typed) : temperature(basis.units, typed);
    if (!value) return {ParameterStatus::invalid, at};
    (isobaric ? at.p : at.T) = *value;
    return {ParameterStatus::taken, at};
}

namespace {

std::string refuse_range(double fixed, double start, double end) {
    for (const double value : {fixed, start, end}) {
        if (!std::isfinite(value)) return "Input incomplete or not valid";
        if (!(value > 0)) return "specificated p and T have to be > 0";
        if (value > kMostTOrP) return "Input incomplete or not valid";
    }
    return start == end ? "specification of the range is not valid " : std::string();
}

}  // namespace

RangeAnswer take_range(Section section, const models::Units& units, const StateParameters& before,
                       const ProcessLine& range, double fixed, double start, double end) {
    const bool runs_in_T = section == Section::isobaric;
    const Parameter running = runs_in_T ? Parameter::T : Parameter::p;
    fixed = as_computed(runs_in_T ? Parameter::p : Parameter::T, units, fixed);
    start = as_computed(running, units, start);
    end = as_computed(running, units, end);
    RangeAnswer answer{before, range, refuse_range(fixed, start, end)};
    if (!answer.refusal.empty()) return answer;
    const auto value = runs_in_T ? pressure(units, fixed) : temperature(units, fixed);
    if (!value) {
        answer.refusal = "Input incomplete or not valid";
        return answer;
    }
    (runs_in_T ? answer.at.p : answer.at.T) = *value;
    const double factor = runs_in_T ? T_factor(units) : p_factor(units);
    answer.range.range_is_T = runs_in_T;
    answer.range.range_start = start / factor;
    answer.range.range_end = end / factor;
    return answer;
}

bool is_vapour_fraction(double fraction) {
    return std::isfinite(fraction) && fraction >= 0 && fraction <= 1;
}

}  // namespace quor::diagrams
