#include "report/report.h"

#include <exception>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/model_tables.h"
#include "report/reference_lines.h"
#include "report/teller.h"

namespace quor::report {

using calculation::Answer;
using calculation::Region;
using calculation::Task;

namespace {

void tell_task(Teller& t) {
    switch (t.request.task) {
        case Task::none:
            break;
        case Task::pressureOfVapour:
        case Task::pressureOfLiquid:
            tell_given_t_rho(t);
            break;
        case Task::globalTank:
        case Task::partialTank:
            tell_tank(t);
            break;
        case Task::state:
            tell_given_tp(t);
            break;
        case Task::temperature:
            tell_given_p_rho(t);
            break;
        case Task::saturationAtT:
        case Task::saturationAtP:
            tell_equilibrium(t);
            break;
        case Task::vaporisationAtT:
        case Task::vaporisationAtP:
            tell_vaporisation(t);
            break;
        case Task::functions:
            tell_functions(t);
            break;
        case Task::virial:
            tell_virial(t);
            break;
        case Task::process:
            tell_process(t);
            break;
        case Task::temperatureOnly:
            if (!tell_missing(t)) t.out.par1.text = temperature_text(t, t.answer.T);
            break;
        default:
            tell_database_function(t);
            break;
    }
}

const char* limits_of(Region region) {
    switch (region) {
        case Region::critical:
            return "(T = T(cr), p = p(cr))";
        case Region::supercritical:
            return "(T > T(cr), p > p(cr))";
        case Region::liquid:
            return "(T < T(cr), p > p(cr))";
        case Region::vapour:
            return "(T > T(cr), p < p(cr))";
        case Region::subcritical:
            break;
    }
    return "";
}

std::string region_text(Region region, double p) {
    if (region == Region::vapour && p == 0) return "=> supercritical phase (T > T(cr))";
    return std::string("=> ") + region_name(region) + " " + limits_of(region);
}

/// Captions of the columns and the words on the region.
void tell_region(Teller& t) {
    t.out.identical = t.answer.same_density;
    if (!t.answer.region) return;
    const Region region = *t.answer.region;
    if (region == Region::liquid) t.out.caption_V = "L-Phase";
    if (region == Region::vapour && t.answer.p > 0) t.out.caption_L = "V-Phase";
    if (region != Region::subcritical) t.out.co1 = {region_text(region, t.answer.p), true, true};
}

constexpr std::size_t kNumberWidth = 16;

void tell_cubic_parameters(Teller& t) {
    const models::EosState& s = *t.answer.parameters;
    // They are those of K, kPa and m^3/kmol, which the other sets need not say.
    t.list.blank();
    t.list.underlined("Paramet. of the generalized cub. EOS (" +
                      text::trim(models::eos_name(t.models().eos)) + ")" +
                      (has_own_units(t.units()) ? " in kPa, m^3/kmol:" : ":"));
    const auto line = [&](const char* name, double value) {
        t.list.add(value_line(name + text::pad_left(value32(value), kNumberWidth),
                              quantity_of(name), value32(value)));
    };
    line("  A =", s.a);
    line("  B =", s.b);
    line("  C =", s.c);
    line("  D =", s.d);
}

void tell_virial_coefficient(Teller& t) {
    t.list.blank();
    t.list.add("Virial coeffizient:");
    const models::Units units = listed_units(t.units());
    const std::string value = value32(units, Dimension::volume, *t.answer.B),
                      unit = unit_name(units, Dimension::volume);
    t.list.add(
        value_line("  B =" + text::pad_left(value, kNumberWidth) + " " + unit, {"B", unit}, value));
}

void tell_all(Teller& t) {
    tell_task(t);
    tell_region(t);
    if (!t.answer.ok()) return;
    if (t.answer.pages) tell_pages(t);
    if (t.answer.parameters) tell_cubic_parameters(t);
    if (t.answer.B) tell_virial_coefficient(t);
}

/// The lines as far as they have grown.
std::string lines_so_far(const ListBuilder& list) {
    std::string all;
    for (const ListLine& line : list.lines()) all += '\n' + line.text;
    return all;
}

}  // namespace

const char* region_name(Region region) {
    switch (region) {
        case Region::critical:
            return "critical point";
        case Region::supercritical:
            return "supercritical phase L = V";
        case Region::liquid:
            return "supercritical L-phase";
        case Region::vapour:
            return "supercritical V-phase";
        case Region::subcritical:
            break;
    }
    return "";
}

std::string state_text(const Answer& a) {
    if (!a.ok() || is_database_function(a.task)) return "   ";
    const bool L = a.phases.liquid.has_value(), V = a.phases.vapour.has_value();
    return L && V ? "V+L" : V ? " V " : L ? " L " : "   ";
}

Report report(const Made& made, const calculation::Request& request, const Answer& answer) {
    Teller t{.made = made, .request = request, .answer = answer};
    t.out.head = head_lines(made);
    if (answer.reason == calculation::Reason::arithmetic) {
        t.out.panels_hidden = request.task == Task::process;
        return t.out;
    }
    try {
        tell_all(t);
        t.out.phases = state_text(answer);
        if (answer.diagnosable) t.out.diagnosis = {true, kDiagnoseColour};
        t.out.lines = t.list.take();
    } catch (const std::exception& fault) {
        t.out.fault = fault.what() + lines_so_far(t.list);
    }
    return t.out;
}

}  // namespace quor::report
