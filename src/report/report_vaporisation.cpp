#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "models/model_tables.h"
#include "report/teller.h"
#include "report/titles.h"

/// The enthalpy of vaporisation, the virial coefficients and the functions of the database.
namespace quor::report {

using calculation::Reason;
using calculation::Task;
using models::VaporisationModel;

namespace {

bool given_T(const Teller& t) {
    return t.request.task == Task::vaporisationAtT;
}

/// Labels by caloric unit.
struct UnitLabels {
    const char* h;
    const char* s;
};
constexpr UnitLabels kLabels[] = {{"delta(LV)h/(kJ/kmol)", "delta(LV)s/(kJ/(kmol K))"},
                                  {"delta(LV)h/K", "delta(LV)s/R"},
                                  {"delta(LV)h/(R T)", "delta(LV)s/(1/K))"},
                                  {"delta(LV)h/(kJ/kg)", "delta(LV)s/(kJ/(kg K))"}};

std::string label_of(const Teller& t, Dimension dimension) {
    const bool h = dimension == Dimension::energy;
    const UnitLabels& told = kLabels[static_cast<std::size_t>(t.units().choice.caloric)];
    if (!t.units().has_own(dimension)) return h ? told.h : told.s;
    return (h ? "delta(LV)h/(" : "delta(LV)s/(") + unit_name(t.units(), dimension) + ")";
}

/// How many digits there are depends on the size of the number, in a unit of its own on that of the
/// molar value.
std::string caloric_number(const Teller& t, Dimension dimension, double value) {
    constexpr double kLarge = 1000.0;
    const double size = t.units().has_own(dimension) ? value : shown(t.units(), dimension, value);
    return by_mask(t.units(), dimension, value, size < kLarge ? "##0.00" : "##########.0");
}

/// True when nothing can be told behind the given value.
bool tell_given(Teller& t) {
    if (tell_missing(t)) return true;
    const bool by_T = given_T(t);
    const std::string given =
        by_T ? temperature_text(t, t.request.given.T) : pressure_text(t, t.request.given.p);
    t.out.par1.text = given;
    if (!t.failed(Reason::aboveCritical)) return false;
    t.out.par1 = {given + (by_T ? " >= T(cr) !!!" : " >= p(cr) !!!"), true, false};
    return true;
}

void compressibility_lines(Teller& t) {
    const models::Vaporisation& r = t.answer.vaporisation->found;
    const models::VaporisationModel method = t.models().vaporisation;
    if (method != VaporisationModel::databaseDensity && method != VaporisationModel::benson) return;
    t.list.add("Following compressibility factors z were used:");
    t.list.value("z(L) = ", value32(r.zL.value_or(0)));
    t.list.value("z(V) = ", value32(r.zV.value_or(0)));
    t.list.add("z(V) by using " + text::trim(models::eos_name(t.models().eos)));
    t.list.add(method == VaporisationModel::benson
                   ? "rho_L for z_L-calculation (MATHIAS/CAILLETET/BENSON)"
                   : "rho_L for z_L by using database function rho_L = Fu(T)");
}

void tell_main_result(Teller& t) {
    const calculation::Answer& a = t.answer;
    t.out.co1.text = a.vaporisation->found.explanation;
    if (!given_T(t))
        t.out.co2.text = " T(LV) = " + with_unit(t, Dimension::temperature, a.T, "####.000");
    else if (a.p > constants::kPresent)
        t.out.co2.text = " p(LV) = " + pressure_with_unit(t, a.p, "####0.000");
}

/// How the one of T and p that was not given was found, with its value.
void obtained_line(Teller& t) {
    const models::Vaporisation& r = t.answer.vaporisation->found;
    if (r.obtained.empty()) return;
    std::string words = r.obtained;
    if (words.ends_with(':')) words.pop_back();
    const Dimension sought = given_T(t) ? Dimension::pressure : Dimension::temperature;
    t.list.value(words + ": ", value32(t.units(), sought, given_T(t) ? t.answer.p : t.answer.T),
                 " " + unit_name(t.units(), sought));
}

void result_lines(Teller& t) {
    constexpr std::size_t kRule = 70;
    const double h = *t.answer.hLV;
    t.list.add("Enthalpy of vaporization from " +
               text::trim(models::hlv_name(t.models().vaporisation)));
    t.list.rule('-', kRule);
    const std::string h_label = label_of(t, Dimension::energy),
                      s_label = label_of(t, Dimension::entropy);
    const std::string s = caloric_number(t, Dimension::entropy, h / t.answer.T);
    t.list.value(h_label + " = ", caloric_number(t, Dimension::energy, h));
    t.list.add(
        value_line("(enthalpy of vapor. delta(LV)s = delta(LV)h / T: " + s_label + " = " + s + ")",
                   quantity_of(s_label), s));
    compressibility_lines(t);
    if (const auto& database = t.answer.vaporisation->database)
        t.list.value("(cf. function from data base: " + h_label + " = ",
                     caloric_number(t, Dimension::energy, *database));
}

}  // namespace

void tell_vaporisation(Teller& t) {
    if (tell_given(t)) return;
    if (t.failed(Reason::noVaporisation)) {
        t.out.co1 = {t.answer.vaporisation->found.explanation, true, false};
        t.list.add_red("no Result");
        return;
    }
    density_lines(t);
    tell_main_result(t);
    obtained_line(t);
    result_lines(t);
}

void tell_virial(Teller& t) {
    constexpr std::size_t kNumberWidth = 16, kNameWidth = 35;
    if (tell_missing(t)) return;
    const models::Units units = listed_units(t.units());
    const std::string unit = unit_name(units, Dimension::volume);
    t.out.par1.text = temperature_text(t, t.answer.T);
    t.list.underlined("Comparison of Virial Coefficients, [B] = " + unit);
    for (const calculation::VirialValue& one : t.answer.virials) {
        const std::string name = text::pad_right(models::eos_name(one.eos), kNameWidth);
        const std::string value = value32(units, Dimension::volume, one.B);
        t.list.add(value_line(name + " {B} = " + text::pad_left(value, kNumberWidth),
                              {text::trim(name) + " B", unit}, value));
    }
}

// ---- Functions of the database ----------------------------------------------------------------

namespace {

// The units by caloric unit.
using Units = std::array<const char*, 4>;
constexpr Units kEnergyUnits = {" kJ/kmol", " K", " ", " kJ/kg"};
constexpr Units kCapacityUnits = {" kJ/(kmol/)", " ", " 1/K", " kJ/(kg K)"};

/// What a function is called in front of its value.
struct FunctionRow {
    Task task;
    const char* label;
};
constexpr FunctionRow kFunctions[] = {
    {Task::liquidDensity, " rho(L) = "},
    {Task::solidDensity, " rho(S) = "},
    {Task::vaporisationEquation, " delta(LV)h = "},
    {Task::idealGasCp, " cp_IdGas = "},
    {Task::liquidCp, " cp(L) = "},
    {Task::solidCp, " cp(S) = "},
    {Task::pressureFrost, " p(LV), ext. Frost-Kalkwarf = "},
    {Task::pressureWagner, " p(LV), Wagner = "},
    {Task::pressureAntoineLow, " p(LV), Antoine (Lo-p) = "},
    {Task::pressureAntoineHigh, " p(LV), Antoine (Hi-p) = "},
};

const FunctionRow& row_of(Task task) {
    for (const FunctionRow& row : kFunctions)
        if (row.task == task) return row;
    return kFunctions[0];
}

void density_of_database(Teller& t, const char* label, double rho) {
    const models::Units& units = t.units();
    t.list.value(label, value32(units, Dimension::density, rho),
                 " " + unit_name(units, Dimension::density));
    if (has_own_units(units)) {
        t.list.value("v  /" + unit_name(units, Dimension::volume) + " = ",
                     value32(units, Dimension::volume, t.M() / rho));
        return;
    }
    t.list.value("v  /m^3/kmol = ", numbers::format(t.M() / rho, "##0.000###"));
    t.list.value("v  /m^3/kg   = ", numbers::format(1.0 / rho, "##0.000###"));
}

void value_of_database(Teller& t, const char* label, double value) {
    const auto told = static_cast<std::size_t>(t.units().choice.caloric);
    const auto line = [&](Dimension dimension, double shown_value, const char* unit) {
        t.list.value(label, value32(shown_value),
                     t.units().has_own(dimension) ? " " + unit_name(t.units(), dimension) : unit);
    };
    switch (t.request.task) {
        case Task::liquidDensity:
        case Task::solidDensity:
            density_of_database(t, label, value);
            break;
        case Task::vaporisationEquation:
            line(Dimension::energy, shown(t.units(), Dimension::energy, value), kEnergyUnits[told]);
            break;
        case Task::idealGasCp:
        case Task::liquidCp:
        case Task::solidCp:
            line(Dimension::entropy, shown(t.units(), Dimension::entropy, value),
                 kCapacityUnits[told]);
            break;
        default:
            line(Dimension::pressure, computed_pressure(t.units(), value), " kPa");
            break;
    }
}

}  // namespace

void tell_database_function(Teller& t) {
    if (tell_missing(t) || !t.answer.ok()) return;
    const FunctionRow& row = row_of(t.request.task);
    const calculation::Range& range = t.answer.database->range;
    value_of_database(t, row.label, t.answer.database->value);
    t.out.par1.text = temperature_text(t, t.answer.T);
    t.out.co1.text =
        " Calculation by using the Database Function " + title_of(t.request.task, {}) + " Fu(T)";
    t.out.co2.text = temperature_text(t, t.answer.T);
    if (!range.known()) return;
    t.list.add("The function is valid within the following temperature limits:");
    const std::string unit = unit_name(t.units(), Dimension::temperature);
    t.list.value(" T(Lo)/" + unit + " = ", value32(t.units(), Dimension::temperature, range.T_low));
    t.list.value(" T(Hi)/" + unit + " = ",
                 value32(t.units(), Dimension::temperature, range.T_high));
}

}  // namespace quor::report
