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
    const models::Units units = listed_units(t.units());
    const auto line = [&](const char* label, Dimension dimension, double value, const char* mask) {
        t.list.value(label, by_mask(units, dimension, value, mask),
                     " " + unit_name(units, dimension));
    };
    line(" T(cr) = ", Dimension::temperature, t.substance().Tcrit, "####0.00");
    line(" p(cr) = ", Dimension::pressure, t.substance().pcrit, "#####.00");
    if (!(eos.vcrit_calculated > constants::kPresent)) return;
    line("rho(cr) = ", Dimension::density, eos.rhocrit_calculated, "####.0");
    t.list.value("  v(cr) = ", value32(units, Dimension::volume, eos.vcrit_calculated),
                 " " + unit_name(units, Dimension::volume));
}

std::string pressure_value(const Teller& t, double p) {
    return pressure_with_unit(t, p, "####0.000");
}

std::string temperature_value(const Teller& t, double T, std::string_view mask) {
    return with_unit(t, Dimension::temperature, T, mask);
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
    t.out.par1.text = temperature_text(t, a.T);
    t.out.par2.text = pressure_text(t, a.p);
    if (a.critical_point) critical_point_lines(t);
    if (t.models().vapour_only && a.B)
        t.out.co2.text =
            " Virialcoeff. B = " + value32(listed_units(t.units()), Dimension::volume, *a.B) +
            "  " + unit_name(listed_units(t.units()), Dimension::volume);
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
    t.out.par1.text = pressure_text(t, a.p);
    t.out.par2.text = density_text(t, digits_of(t.request.given.rhoV));
    if (t.failed(Reason::noTemperature) || t.failed(Reason::belowCovolume)) {
        t.out.co2 = {t.failed(Reason::belowCovolume) ? " T = , no T-solution (v <= b)" : " Error",
                     true, false};
        return;
    }
    t.out.co2.text = " T = " + temperature_value(t, a.T, "###0.000");
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
        by_T ? temperature_text(t, t.request.given.T) : pressure_text(t, t.request.given.p);
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
        t.out.co2.text = given_T(t)
                             ? " p(LV)(from data set) = " + pressure_with_unit(t, a.p, "####0.0#")
                             : " T(LV) (from data set) = " + temperature_value(t, a.T, "####.0#");
}

void tell_partial(Teller& t) {
    const calculation::Answer& a = t.answer;
    t.out.co1.text = given_T(t) ? "p(LV) from actual vapour pressure equation:"
                                : "T(LV) by using actual vapour pressure equation:";
    t.out.co2.text = given_T(t) ? pressure_value(t, a.p) : temperature_value(t, a.T, "####.000");
}

void tell_cubic(Teller& t) {
    const calculation::Answer& a = t.answer;
    t.out.co1.text = given_T(t) ? "p(LV) by using the cubic EOS: " : "T(LV) by using cubic EOS";
    t.out.co2.text = given_T(t) ? " p(LV) = " + pressure_value(t, a.p)
                                : " T(LV) = " + temperature_value(t, a.T, "####.000");
    t.list.add(std::string(kIndent, ' ') + "by using cubic EOS:");
    density_lines(t);
}

void tell_equation(Teller& t) {
    constexpr std::size_t kRule = 75;
    const calculation::Answer& a = t.answer;
    t.out.co2.text = given_T(t) ? " p(LV) = " + pressure_value(t, a.p)
                                : "T(LV) = " + temperature_value(t, a.T, "###0.0#");
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
ListLine in_columns(const Teller& t, std::vector<std::string> cells) {
    const std::size_t width = has_own_units(t.units()) ? 20 : 17;
    ListLine line;
    for (const std::string& cell : cells) line.text += text::pad_left(cell, width);
    line.cells = std::move(cells);
    return line;
}

std::string value_cell(double value) {
    return std::isfinite(value) ? value32(value) : "";
}

/// A function in its unit; one of R T has the T of its state.
std::string caloric_cell(const Teller& t, const calculation::ProcessState& s,
                         calculation::Function function) {
    const models::UnitList units = models::units_of(t.units().choice);
    const models::Unit& unit = *units[static_cast<std::size_t>(dimension_of(function))];
    const auto scale = models::scale_of(unit, t.fluid(), s.T);
    return scale ? value_cell(scale->shown(*s.functions->z[function])) : "";
}

ListLine process_line(const Teller& t, const calculation::ProcessState& s) {
    const models::Units& units = t.units();
    std::vector<std::string> cells = {value_cell(shown(units, Dimension::temperature, s.T)),
                                      value_cell(shown(units, Dimension::pressure, s.p))};
    if (s.v) cells.push_back(value_cell(shown(units, Dimension::volume, *s.v)));
    if (s.v && s.functions && s.functions->z[calculation::kH]) {
        cells.push_back(caloric_cell(t, s, calculation::kH));
        cells.push_back(caloric_cell(t, s, calculation::kS));
    }
    return in_columns(t, std::move(cells));
}

}  // namespace

void tell_process(Teller& t) {
    t.out.panels_hidden = true;
    if (tell_missing(t)) return;
    t.out.par1.text = temperature_text(t, t.answer.T);
    t.out.par2.text = pressure_text(t, t.answer.p);
    if (t.answer.process.empty()) return;
    const calculation::Process& process = t.request.process;
    const models::Units& units = t.units();
    t.list.add("Polytropic process, n = " + numbers::general(process.exponent) +
               ", kappa = " + numbers::general(process.kappa));
    for (std::string& line : reference_lines(t.made)) t.list.add(std::move(line));
    t.list.add(in_columns(t, {"T/" + unit_name(units, Dimension::temperature),
                              "p/" + unit_name(units, Dimension::pressure),
                              "v/(" + unit_name(units, Dimension::volume, units.v_label) + ")",
                              text::trim(caloric_label(units, calculation::kH)),
                              text::trim(caloric_label(units, calculation::kS))}));
    for (const calculation::ProcessState& s : t.answer.process) t.list.add(process_line(t, s));
}

}  // namespace quor::report
