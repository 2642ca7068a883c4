#include "diagrams/diagram.h"

#include <algorithm>
#include <array>
#include <vector>

#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/axis_units.h"
#include "diagrams/database_functions.h"
#include "models/model_tables.h"

namespace quor::diagrams {

namespace {

using Texts = std::array<std::string_view, 4>;  // by CaloricUnit

using models::CaloricUnit;
using models::UnitSystem;

/// Texts of the axes that do not follow the volume unit, in the order of `Axis`. The doubled
/// brackets are part of the wording.
constexpr Texts same(std::string_view text) {
    return {text, text, text, text};
}

constexpr std::array kAxisTexts = {
    same(""),
    same("T / K"),
    same("p / kPa"),
    same(""),  // v, by UnitMode
    same("rho / (kg/m^3)"),
    same(""),  // pv, by UnitMode
    same("1/T / (1/K) "),
    same("1/T / (1/K)"),
    same("ln(p/kPa) "),
    same("dln(p/kPa) / d(1/T) "),
    same("delta / (K/kPa)"),
    Texts{"h / (kJ/kmol) ", "h / K", "h / (R T)", "h / (kJ/kg) "},
    Texts{"h / (kJ/kmol) ", "h / K ", "h / (R T) ", "h / (kJ/kg) "},
    Texts{"s / (kJ/kmol/K) ", "s / R ", "s / (1/K) ", "s / (kJ/kg/K)) "},
    Texts{"g / (kJ/kmol) ", "g / K", "g / (R T)", "g / (kJ/kg) "},
    Texts{"a / (kJ/kmol) ", "a / K", "a / (R T)", "a / (kJ/kg) "},
    Texts{"u / (kJ/kmol) ", "u / K", "u / (R T)", "u / (kJ/kg) "},
    Texts{"e / (kJ/kmol) ", "e / K", "e / (R T)", "e / (kJ/kg) "},
    Texts{"e / (kJ/kmol) ", "e / K", "e / (R T)", "e / (kJ/kg) "},
    Texts{"cp / (kJ/kmol/K) ", "cp / R ", "cp / (1/K) ", "cp / (kJ/kg/K)) "},
    Texts{"cp / (kJ/kmol/K) ", "cp / R ", "cp / (1/K) ", "cp / (kJ/kg/K) "},
    Texts{"cV / (kJ/kmol/K) ", "cV / R ", "cV / (1/K) ", "cV / (kJ/kg/K)) "},
    Texts{"cV / (kJ/kmol/K) ", "cp / R ", "cV / (1/K) ", "cV / (kJ/kg/K)) "},
    Texts{"delta(LV)h / (kJ/kmol) ", "delta(LV)h / K", "delta(LV)h / (R T)",
          "delta(LV)h / (kJ/kg) "},
    Texts{"delta s / (kJ/kmol/K) ", "delta s / R ", "delta s / (1/K) ", "delta s / (kJ/kg/K)) "},
    Texts{"delta h / (kJ/kmol) ", "delta h / K", "delta h / (R T)", "delta h / (kJ/kg) "},
    Texts{"delta g / (kJ/kmol) ", "delta g / K", "delta g / (R T)", "delta g / (kJ/kg) "},
    Texts{"delta cp / (kJ/kmol/K) ", "delta cp / R ", "delta cp / (1/K) ",
          "delta cp /(kJ/ (kg K)) "},
    Texts{"(T(u) * s) / (kJ/kmol) ", "(T(surr) * s) / K ", "(T(surr) *s) / (R T) ",
          "T(surr) * s / (kJ/kg) "},
};
static_assert(kAxisTexts.size() == static_cast<std::size_t>(Axis::Tenvs) + 1);

constexpr std::array<std::string_view, 3> kVolumeTexts = {"v / (m^3/kmol)", "v / (m^3/kg)",
                                                          "V(red)"};
constexpr std::array<std::string_view, 3> kPvTexts = {"pv / (kPa*m^3/kmol)", "pv / (kPa*m^3/kg)",
                                                      "p(red) * v(red)"};

/// The text that takes the place of that of an axis in reduced units.
std::string_view reduced_text(Axis axis) {
    switch (axis) {
        case Axis::T:
            return "T / T(cr)";
        case Axis::p:
            return "p / p(cr)";
        case Axis::inverseT:
        case Axis::inverseTSlope:
            return "1 / T(red)";
        case Axis::lnp:
            return "ln (p/p(cr))";
        default:
            return {};
    }
}

std::string eos_name(const models::Fluid& fluid) {
    return text::trim(models::eos_name(fluid.models().eos));
}

std::string vapour_pressure_name(const models::Fluid& fluid) {
    return text::trim(models::vp_name(fluid.models().vapour_pressure));
}

/// A diagram by priority draws the equilibrium of the EOS only where the EOS has priority and has
/// one.
bool vapour_pressure_by_eos(const models::Fluid& fluid) {
    return fluid.models().eos_has_priority && !fluid.models().vapour_only;
}

bool is_specific(const Basis& basis) {
    return basis.units.choice.caloric == CaloricUnit::specific;
}

std::string title_of(const Diagram& row, const Basis& basis) {
    std::string title(row.title);
    if (row.source == Source::priority)
        return vapour_pressure_by_eos(basis.fluid)
                   ? title + eos_name(basis.fluid)
                   : "Vapour pressure equation " + vapour_pressure_name(basis.fluid);
    if (row.database == DatabaseFunction::volumeLiquid && is_specific(basis))
        title = "specific" + title.substr(std::string_view("molar").size());
    if (row.database == DatabaseFunction::vapourPressure)
        title += text::trim(models::vp_name(row.equation));
    if (row.prefixed) title.insert(0, is_specific(basis) ? "specific " : "molar ");
    return title;
}

std::string validity_text(const Diagram& row, const Basis& basis, const Validity& validity) {
    std::string text(row.suffix);
    if (row.database == DatabaseFunction::cpIdealGas)
        text += basis.fluid.models().cp_form == models::CpForm::sinhCosh ? "sinh/cosh function)"
                                                                         : "Polynom)";
    const bool said_by_suffix = row.database == DatabaseFunction::densityLiquid ||
                                row.database == DatabaseFunction::volumeLiquid;
    if (!said_by_suffix) text += ", validity T = ";
    const models::Scale* own = own_scale(Parameter::T, basis.units);
    const auto shown = [own](double T) {
        return numbers::general(static_cast<float>(own ? own->shown(T) : T));
    };
    return text + shown(validity.low) + " ..." + shown(validity.high) + " " +
           (own ? std::string(own->name) : "K");
}

std::string sub_title_of(const Diagram& row, const Basis& basis, const Validity& validity) {
    const std::string& name = basis.fluid.substance().name;
    switch (row.sub_title) {
        case SubTitle::database:
            return name + validity_text(row, basis, validity);
        case SubTitle::vaporisation:
            return name + ",  " + text::trim(models::hlv_name(basis.fluid.models().vaporisation));
        case SubTitle::vapourPressure:
            if (!vapour_pressure_by_eos(basis.fluid))
                return name + ",  vapour press. equ. " + vapour_pressure_name(basis.fluid);
            break;
        case SubTitle::model:
            break;
    }
    return name + ",  " + model_name(row, basis.fluid) + std::string(row.suffix);
}

/// The functions of the database and the slope of the vapour pressure are no states of the fluid.
bool is_state_quantity(Axis axis) {
    return axis != Axis::none && axis != Axis::inverseTSlope && axis != Axis::dlnp &&
           axis != Axis::deltaLVh;
}

bool is_caloric(Axis axis) {
    return axis >= Axis::jouleThomson;
}

}  // namespace

bool shows_states(const Diagram& diagram) {
    return diagram.x_limits.low != nullptr && is_state_quantity(diagram.x) &&
           is_state_quantity(diagram.y);
}

bool shows_caloric_values(const Diagram& diagram) {
    return is_caloric(diagram.x) || is_caloric(diagram.y);
}

bool shows(const Diagram& diagram, Axis quantity) {
    return diagram.x == quantity || diagram.y == quantity;
}

namespace {

std::string_view computed_axis_text(Axis axis, const models::UnitChoice& units) {
    const bool reduced = units.system == UnitSystem::reduced;
    if (const std::string_view text = reduced_text(axis); reduced && !text.empty()) return text;
    const auto system = static_cast<std::size_t>(units.system);
    if (axis == Axis::v) return kVolumeTexts[system];
    if (axis == Axis::pv) return kPvTexts[system];
    return kAxisTexts[static_cast<std::size_t>(axis)][static_cast<std::size_t>(units.caloric)];
}

}  // namespace

std::string axis_text(Axis axis, const models::UnitChoice& units) {
    return has_own_unit(axis, units) ? own_axis_text(axis, units)
                                     : std::string(computed_axis_text(axis, units));
}

std::string axis_text_in(const Diagram& row, Axis axis, const models::UnitChoice& units) {
    if (row.database == DatabaseFunction::volumeLiquid && axis == Axis::v &&
        !has_own_unit(axis, units))
        return std::string(kVolumeTexts[liquid_volume_is_specific(units) ? 1 : 0]);
    return axis_text(axis, units);
}

std::string axis_symbol(Axis axis) {
    const std::string title = axis_text(axis, {});
    return text::trim(text::replace_all(title.substr(0, title.find(" / ")), "/kPa", ""));
}

namespace {

bool has_title(const Diagram& row, const std::string& title) {
    if (title.find(text::trim(row.title)) != std::string::npos) return true;
    return row.source == Source::priority && title.starts_with("Vapour pressure equation ");
}

/// Units with which both axes of a row have these texts: those of a ready set, else any.
std::optional<models::UnitChoice> units_by_texts(const Diagram& row, const std::string& x,
                                                 const std::string& y) {
    using enum UnitSystem;
    std::vector<models::UnitChoice> sets = {{molar, CaloricUnit::molar},
                                            {specific, CaloricUnit::specific},
                                            {reduced, CaloricUnit::molar},
                                            {reduced, CaloricUnit::specific}};
    for (const models::UnitSet& set : models::unit_sets()) sets.push_back(set.choice);
    const auto has_text = [&row](Axis axis, const models::UnitChoice& units,
                                 const std::string& text) {
        return text::trim(axis_text_in(row, axis, units)) == text;
    };
    for (const models::UnitChoice& units : sets)
        if (has_text(row.x, units, x) && has_text(row.y, units, y)) return units;
    for (const models::UnitChoice& units : choices_with_text(row.x, x, {}))
        for (const models::UnitChoice& both : choices_with_text(row.y, y, units))
            if (has_text(row.x, both, x)) return both;
    return std::nullopt;
}

}  // namespace

std::optional<KnownDiagram> diagram_by_texts(const std::string& title, const std::string& x,
                                             const std::string& y) {
    const std::string one_line = text::replace_all(title, "\n", " ");
    std::optional<KnownDiagram> found;
    for (const Diagram& row : all_diagrams()) {
        if (!row.opens() || row.section == Section::database || !has_title(row, one_line)) continue;
        if (found && found->diagram->title.size() >= row.title.size()) continue;
        if (const auto units = units_by_texts(row, text::trim(x), text::trim(y)))
            found = KnownDiagram{&row, *units};
    }
    return found;
}

std::string model_name(const Diagram& diagram, const models::Fluid& fluid) {
    const bool correlation = diagram.source == Source::vapourPressure ||
                             (diagram.source == Source::priority && !vapour_pressure_by_eos(fluid));
    return correlation ? vapour_pressure_name(fluid) : eos_name(fluid);
}

DiagramTexts texts_of(const Diagram& diagram, const Basis& basis, const Validity& validity) {
    const models::UnitChoice& units = basis.units.choice;
    return {title_of(diagram, basis), sub_title_of(diagram, basis, validity),
            axis_text_in(diagram, diagram.x, units), axis_text_in(diagram, diagram.y, units)};
}

OpeningAnswer opening_answer(const Diagram& diagram, const models::Fluid& fluid) {
    if (diagram.needs_cp_form && fluid.models().cp_form == models::CpForm::none)
        return {false, "No cp(idGas) parameters available"};
    if (diagram.section == Section::database && !has_database_function(diagram, fluid))
        return {false, "No parameters for this function in the database"};
    if (diagram.section != Section::projection || !fluid.models().vapour_only) return {};

    // What a correlation gives is drawn all the same, and said.
    const std::string refusal =
        "Phase equlilibria calculations are possible by using a cubic EOS only";
    const std::string instead = "\nCurve according to the actual ";
    switch (diagram.without_dome) {
        case WithoutDome::drawn:
            return {};
        case WithoutDome::byVapourPressure:
            return {true, refusal + instead + "vapour pressure equation"};
        case WithoutDome::byVaporisation:
            return {true, refusal + instead + "model of the enthalpy of vaporization"};
        case WithoutDome::refused:
            break;
    }
    return {false, refusal};
}

}  // namespace quor::diagrams
