#include "diagrams/sheet_draw.h"

#include <algorithm>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/axis_units.h"
#include "diagrams/fluid_window.h"
#include "diagrams/process_line.h"
#include "diagrams/sheet_delete.h"
#include "diagrams/sheet_names.h"
#include "diagrams/sheet_window.h"
#include "models/model_tables.h"

namespace quor::diagrams {

namespace {

std::string point(double value, std::string_view mask) {
    return numbers::format_point(value, mask);
}

CurveName plain(const std::string& legend) {
    return {legend, legend};
}

CurveName process_line_name(const CurveRequest& request, const models::Units& units) {
    const ProcessKind kind = request.line.kind;
    std::string name(texts_of_process(kind).name);
    const HeldValue held = held_by(request, false);
    if (held.what != Parameter::none) name += " " + held_text(held, units);
    if (request.line.metastable) name += name.ends_with(' ') ? "metastable " : " metastable ";
    return plain("(" + name + ") ");
}

/// The volume of an isochore in p-T is told with its side of the critical one.
CurveName isochore_name(const CurveRequest& request, const Basis& basis,
                        bool critical_point_marked) {
    const double v = request.at.v;
    const HeldValue held = held_by(request, critical_point_marked);
    const std::string volume = held_text(held, basis.units);
    if (!held.has_side) return plain(volume);
    const double vcrit = basis.fluid.eos().vcrit_calculated;
    // The volume counts as critical when it shows the digits of the critical one.
    constexpr std::string_view kDigits = "###0.0####";
    if (point(v, kDigits) == point(vcrit, kDigits)) return {volume + " (cr) ", volume + "(cr)"};
    if (v > vcrit) return {volume + " (V) ", volume + "(V)"};
    return {volume + " (L) ", volume + "(L)"};
}

std::string database_equation(const Diagram& diagram) {
    switch (diagram.database) {
        case DatabaseFunction::densityLiquid:
            return "rho(L) = Fu(T)";
        case DatabaseFunction::volumeLiquid:
            return "v(L) = M / rho(L)";
        case DatabaseFunction::cpIdealGas:
            return "cp(id. gas) = Fu(T)";
        case DatabaseFunction::cpLiquid:
            return "cp(L) = Fu(T)";
        case DatabaseFunction::cpSolid:
            return "cp(S) = Fu(T)";
        case DatabaseFunction::vaporisation:
            return "delta(LV)h = Fu(T)";
        case DatabaseFunction::densitySolid:
            return "rho(S) = Fu(T)";
        case DatabaseFunction::vapourPressure:
            // Names of the list of equations are padded with blanks.
            return text::trim(models::vp_name(diagram.equation));
        case DatabaseFunction::none:
            break;
    }
    return "Fu(T)";
}

/// The range in which a curve is computed: the coordinates, and what is shown beside them.
CurveWindow computing_window(const DiagramSheet& sheet) {
    CurveWindow w = sheet.request.window;
    const chart::Window shown = chart::shown_window(sheet.chart);
    w.x_min = std::min(w.x_min, static_cast<float>(shown.x.min));
    w.x_max = std::max(w.x_max, static_cast<float>(shown.x.max));
    w.y_min = std::min(w.y_min, static_cast<float>(shown.y.min));
    w.y_max = std::max(w.y_max, static_cast<float>(shown.y.max));
    return w;
}

/// The header tells where the slope of a vapour pressure equation has its maximum.
void tell_maximum(DiagramSheet& sheet, const Basis& basis, const Curve& drawn) {
    const Diagram* diagram = sheet.request.diagram;
    if (diagram == nullptr || diagram->y != Axis::dlnp) return;
    std::string& title = sheet.request.texts.title;
    const std::string before = title;
    title = title.substr(0, title.find(kMaximumCaption)) +
            maximum_text(drawn.T_of_maximum, basis.units);
    sheet.T_of_maximum = drawn.T_of_maximum;
    if (title != before) show_texts(sheet, basis);
}

/// The request in a sheet, with its window, its parameters and the options of the pen.
CurveRequest in_sheet(const DiagramSheet& sheet, const Pen& pen, CurveRequest request) {
    if (request.on == nullptr) request.on = sheet.request.diagram;
    if (request.curve == nullptr) request.curve = sheet.request.diagram;
    request.window = computing_window(sheet);
    request.options = pen.options;
    request.p_min = pen.limits.p_min;
    request.p_max = pen.limits.p_max;
    const bool is_process = request.curve->section == Section::process;
    if (!is_process) request.at = sheet.at;
    return request;
}

Curve computed(const Basis& basis, const CurveRequest& request) {
    const dialogs::BusyPointer busy;
    return curve(basis, request);
}

bool tell_missing_fluid(const Pen& pen) {
    if (pen.has_fluid()) return false;
    dialogs::tell("First choose substance and models!", dialogs::kNotPossible);
    return true;
}

}  // namespace

HeldValue held_by(const CurveRequest& request, bool critical_point_marked) {
    if (request.branch == Branch::tieLine) return {};
    const Diagram& diagram = *request.curve;
    switch (diagram.section) {
        case Section::isothermal:
            return {Parameter::T, request.at.T};
        case Section::isobaric:
            return {Parameter::p, request.at.p};
        case Section::isochoric:
            return {Parameter::v, request.at.v,
                    critical_point_marked && diagram.x == Axis::T && diagram.y == Axis::p};
        case Section::process:
            if (request.line.kind == ProcessKind::isotherm) return {Parameter::T, request.at.T};
            if (request.line.kind == ProcessKind::isobar) return {Parameter::p, request.at.p};
            return {};
        default:
            return {};
    }
}

std::string held_text(const HeldValue& held, const models::Units& units) {
    if (const models::Scale* own = own_scale(held.what, units))
        return numbers::general_point(numbers::to_single(own->shown(held.value))) + " " +
               std::string(own->name) + " ";
    switch (held.what) {
        case Parameter::T:
            return point(held.value, "####0.0# K ");
        case Parameter::p:
            return point(held.value, "#####0.0# kPa ");
        case Parameter::v:
            if (!held.has_side) return point(held.value, "####0.0#### m^3/kmol ");
            return units.choice.system == models::UnitSystem::specific
                       ? point(held.value * units.v, "###0.0####") + " m^3/kg "
                       : point(held.value, "###0.0####") + " m^3/kmol ";
        case Parameter::none:
            break;
    }
    return {};
}

CurveName name_of(const CurveRequest& request, const Basis& basis, bool critical_point_marked) {
    const Diagram& diagram = *request.curve;
    const std::string held = held_text(held_by(request, critical_point_marked), basis.units);
    if (request.branch == Branch::tieLine) return plain("Tie-Line V-L ");
    switch (diagram.section) {
        case Section::process:
            return process_line_name(request, basis.units);
        case Section::isothermal:
            return {"(" + held + ") ", held};
        case Section::isobaric:
            return plain(held);
        case Section::isochoric:
            return isochore_name(request, basis, critical_point_marked);
        case Section::inversion:
            return {"Inversion curve", "delta = 0 "};
        case Section::projection:
            return plain("VLE ");
        case Section::database:
            return plain("(" + database_equation(diagram) + ")");
        case Section::none:
            break;
    }
    return {};
}

DrawOutcome draw_curve(DiagramSheet& sheet, const Pen& pen, CurveRequest wanted,
                       const std::string& branch) {
    if (tell_missing_fluid(pen)) return {};
    const Upright upright(sheet);
    Basis basis;
    try {
        basis = in_units_of(sheet, pen.basis);
    } catch (const std::exception& fault) {
        dialogs::tell(fault.what(), dialogs::kNotPossible);
        return {};
    }
    const CurveRequest request = in_sheet(sheet, pen, std::move(wanted));
    Curve drawn = computed(basis, request);
    DrawOutcome outcome{.status = drawn.status, .last = drawn.last};
    const StatusText said = text_of(drawn.status, drawn.message, basis.fluid);
    if (!said.text.empty()) dialogs::tell(said.text, said.title);
    if (!is_drawn(drawn.status)) return outcome;

    tell_maximum(sheet, basis, drawn);
    const bool marked = has_critical_point(sheet, true) || has_critical_point(sheet, false);
    CurveName name = name_of(request, basis, marked);
    name.legend += branch;
    name.label += branch;
    const DiagramTexts texts = texts_of(*sheet.request.diagram, basis, sheet.request.validity);
    // The series ends at the range in which it was computed.
    outcome.place = store_curve(sheet,
                                {std::move(drawn.points), drawn.parameter, std::move(basis),
                                 std::move(name), texts.sub_title, held_by(request, marked)},
                                request.window.x_max);
    return outcome;
}

DrawOutcome draw_process_line(DiagramSheet& sheet, const Pen& pen, const ProcessLine& line) {
    if (sheet.request.diagram == nullptr) return {};
    return draw_curve(sheet, pen, process_request(*sheet.request.diagram, line, sheet.at));
}

bool draw_both_branches(DiagramSheet& sheet, const Pen& pen, const Diagram& dome) {
    if (!dome.branches) return draw_curve(sheet, pen, {.curve = &dome}).place >= 0;
    const auto branch = [&](double fraction, const char* name) {
        return draw_curve(sheet, pen, {.curve = &dome, .vapour_fraction = fraction}, name).place >=
               0;
    };
    return branch(0, " (L)") && branch(1, " (V)");
}

namespace {

/// As the first curve is drawn, an untouched sheet of h, s and their kin takes the window of its
/// fluid: the limits that were proposed know nothing of it.
void take_fluid_window(DiagramSheet& sheet, const Pen& pen) {
    if (curve_count(sheet) > 0 || !pen.has_fluid()) return;
    const CurveWindow& proposed = sheet.request.proposed;
    if (!(sheet.request.window == proposed) ||
        !(chart::shown_window(sheet.chart) == as_chart_window(proposed)))
        return;
    try {
        const Basis basis = in_units_of(sheet, pen.basis);
        const auto window = fluid_window(*sheet.request.diagram, basis, proposed);
        if (!window) return;
        sheet.request.window = *window;
        show_window(sheet, as_chart_window(*window));
    } catch (const faults::Fault&) {
        // Drawing the curve tells why there are no values.
    }
}

}  // namespace

bool draw(DiagramSheet& sheet, const Pen& pen, const ProcessLine& range) {
    const Diagram* diagram = sheet.request.diagram;
    if (diagram == nullptr) return false;
    const Upright upright(sheet);
    take_fluid_window(sheet, pen);
    if (diagram->section == Section::projection) return draw_both_branches(sheet, pen, *diagram);
    return draw_curve(sheet, pen, {.line = range}).place >= 0;
}

std::string fluid_text(const Diagram* diagram, const Pen& pen) {
    if (!pen.has_fluid()) return {};
    const models::Fluid& fluid = pen.basis.fluid;
    const std::string model = diagram == nullptr || diagram->section == Section::database
                                  ? std::string()
                                  : model_name(*diagram, fluid);
    return fluid.substance().name + (model.empty() ? "" : ", " + model);
}

}  // namespace quor::diagrams
