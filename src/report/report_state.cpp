#include <cmath>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "report/reference_lines.h"
#include "report/teller.h"

/// The state at T and p, or at p and a density, and the states of a process.
namespace quor::report {

using calculation::Reason;

namespace {

constexpr std::size_t kIndent = 12;

void critical_point_lines(Teller& t) {
    const models::EosParameters& eos = t.fluid().eos();
    t.list.add("Critical point!");
    t.list.value(" T(cr) = ", numbers::format(t.substance().Tcrit, "####0.00"), " K");
    t.list.value(" p(cr) = ", numbers::format(t.substance().pcrit, "#####.00"), " kPa");
    if (!(eos.vcrit_calculated > constants::kPresent)) return;
    t.list.value("rho(cr) = ", numbers::format(eos.rhocrit_calculated, "####.0"), " kg/m^3");
    t.list.value("  v(cr) = ", value32(eos.vcrit_calculated), " m^3/kmol");
}

std::string pressure_value(double p) {
    return pressure_by_mask(p, "####0.000", " kPa");
}

bool given_T(const Teller& t) {
    return t.request.task == calculation::Task::saturationAtT;
}

void source_of_liquid(Teller& t) {
    if (t.answer.other_liquid)
        t.list.add(std::string(kIndent, ' ') + (t.request.method.liquid_by_benson
                                                    ? "by BENSON's method:"
                                                    : "with database equation rho(T):"));
}

}  // namespace

void tell_given_tp(Teller& t) {
    if (tell_missing(t)) return;
    const calculation::Answer& a = t.answer;
    t.out.par1.text = temperature_text(a.T);
    t.out.par2.text = pressure_text(a.p);
    if (a.critical_point) critical_point_lines(t);
    if (t.models().vapour_only && a.B)
        t.out.co2.text = " Virialcoeff. B = " + value32(*a.B) + "  m^3/kmol";
    if (!a.ok()) {
        calculation_error(t, error_code());
        return;
    }
    t.out.co1.text = a.solver;
    source_of_liquid(t);
    density_lines(t);
}

void tell_given_p_rho(Teller& t) {
    if (tell_missing(t)) return;
    const calculation::Answer& a = t.answer;
    t.out.par1.text = pressure_text(a.p);
    t.out.par2.text = density_text(static_cast<double>(t.request.given.rhoV));
    if (t.failed(Reason::noTemperature)) {
        t.out.co2 = {" Error", true, false};
        return;
    }
    t.out.co2.text = " T = " + numbers::format(a.T, "###0.000 K");
    if (a.ok())
        density_lines(t);
    else
        calculation_error(t, error_code());
}

// ---- Equilibria -------------------------------------------------------------------------------

namespace {

/// True when the given value is told and nothing else can be.
bool tell_given_equilibrium(Teller& t) {
    if (tell_missing(t)) return true;
    const bool by_T = given_T(t);
    const std::string given =
        by_T ? temperature_text(t.request.given.T) : pressure_text(t.request.given.p);
    t.out.par1.text = given;
    if (!t.failed(Reason::aboveCritical)) return false;
    t.out.par1 = {given + (by_T ? " > T(cr) !!!" : " > p(cr) !!!"), true, false};
    return true;
}

void tell_measured(Teller& t) {
    const calculation::Answer& a = t.answer;
    t.out.co1.text = "No vapour pressur equation available";
    if (t.failed(Reason::noStandIn))
        t.out.co2 = {
            given_T(t) ? "  No p(LV) available from data set" : " No T(LV) available/calculable",
            true, false};
    else
        t.out.co2.text =
            given_T(t) ? " p(LV)(from data set) = " + pressure_by_mask(a.p, "####0.0#", " kPa")
                       : " T(LV) (from data set) = " + numbers::format(a.T, "####.0# K");
}

void tell_partial(Teller& t) {
    const calculation::Answer& a = t.answer;
    t.out.co1.text = given_T(t) ? "p(LV) from actual vapour pressure equation:"
                                : "T(LV) by using actual vapour pressure equation:";
    t.out.co2.text = given_T(t) ? pressure_value(a.p) : numbers::format(a.T, "####.000 K");
}

void tell_cubic(Teller& t) {
    const calculation::Answer& a = t.answer;
    t.out.co1.text = given_T(t) ? "p(LV) by using the cubic EOS: " : "T(LV) by using cubic EOS";
    t.out.co2.text = given_T(t) ? " p(LV) = " + pressure_value(a.p)
                                : " T(LV) = " + numbers::format(a.T, "####.000 K");
    t.list.add(std::string(kIndent, ' ') + "by using cubic EOS:");
    density_lines(t);
}

void tell_equation(Teller& t) {
    constexpr std::size_t kRule = 75;
    const calculation::Answer& a = t.answer;
    t.out.co2.text = given_T(t) ? " p(LV) = " + pressure_value(a.p)
                                : "T(LV) = " + numbers::format(a.T, "###0.0# K");
    t.list.add_red(std::string(kRule, '='));
    t.list.add_red(std::string(kIndent, ' ') +
                   "(Calculation of density not possible by using a vapour pressure equation" +
                   (given_T(t) ? "!)" : ")"));
    t.list.add_red(std::string(kRule, '='));
}

}  // namespace

void tell_equilibrium(Teller& t) {
    if (tell_given_equilibrium(t)) return;
    const calculation::Answer& a = t.answer;
    const bool global = t.request.method.global;
    if (t.failed(Reason::solver)) {
        const bool T_of_eos = global && t.models().eos_has_priority && !given_T(t);
        calculation_error(t, (T_of_eos ? " T(LV) = " : "") + error_code());
        return;
    }
    if (a.source == calculation::Source::dataSet) tell_measured(t);
    if (!a.ok()) return;
    if (global) {
        a.source == calculation::Source::cubicEos ? tell_cubic(t) : tell_equation(t);
        return;
    }
    if (a.source == calculation::Source::vapourPressureEquation) tell_partial(t);
    source_of_liquid(t);
    density_lines(t);
}

// ---- Process ----------------------------------------------------------------------------------

namespace {

/// A row of the list of the process, in columns wide enough for the labels of all units.
ListLine in_columns(std::vector<std::string> cells) {
    constexpr std::size_t kWidth = 17;
    ListLine line;
    for (const std::string& cell : cells) line.text += text::pad_left(cell, kWidth);
    line.cells = std::move(cells);
    return line;
}

std::string value_cell(double value) {
    return std::isfinite(value) ? value32(value) : "";
}

ListLine process_line(const Teller& t, const calculation::ProcessState& s) {
    std::vector<std::string> cells = {value_cell(s.T), value_cell(s.p)};
    if (s.v) cells.push_back(value_cell(*s.v * t.units().v));
    if (s.v && s.functions) {
        const models::UnitChoice& choice = t.units().choice;
        const double factor = models::caloric_factor(choice.caloric, s.T, t.substance());
        cells.push_back(value_cell(s.functions->z[calculation::kH] * factor));
        cells.push_back(value_cell(s.functions->z[calculation::kS] * factor));
    }
    return in_columns(std::move(cells));
}

}  // namespace

void tell_process(Teller& t) {
    t.out.panels_hidden = true;
    if (tell_missing(t)) return;
    t.out.par1.text = temperature_text(t.answer.T);
    t.out.par2.text = pressure_text(t.answer.p);
    if (t.answer.process.empty()) return;
    const calculation::Process& process = t.request.process;
    const models::CaloricUnit unit = t.units().choice.caloric;
    t.list.add("Polytropic process, n = " + numbers::general(process.exponent) +
               ", kappa = " + numbers::general(process.kappa));
    for (std::string& line : reference_lines(t.made)) t.list.add(std::move(line));
    t.list.add(in_columns({"T/K", "p/kPa", "v/(" + t.units().v_label + ")",
                           text::trim(caloric_label(calculation::kH, unit)),
                           text::trim(caloric_label(calculation::kS, unit))}));
    for (const calculation::ProcessState& s : t.answer.process) t.list.add(process_line(t, s));
}

}  // namespace quor::report
