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

const UnitLabels& labels(const Teller& t) {
    return kLabels[static_cast<std::size_t>(t.units().choice.caloric)];
}

std::string caloric_number(double value) {
    constexpr double kLarge = 1000.0;
    return numbers::format(value, value < kLarge ? "##0.00" : "##########.0");
}

/// True when nothing can be told behind the given value.
bool tell_given(Teller& t) {
    if (tell_missing(t)) return true;
    const bool by_T = given_T(t);
    const std::string given =
        by_T ? temperature_text(t.request.given.T) : pressure_text(t.request.given.p);
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
        t.out.co2.text = " T(LV) = " + numbers::format(a.T, "####.000 K");
    else if (a.p > constants::kPresent)
        t.out.co2.text = " p(LV) = " + pressure_by_mask(a.p, "####0.000", " kPa");
}

void result_lines(Teller& t) {
    constexpr std::size_t kRule = 70;
    const double h = *t.answer.hLV * t.units().caloric;
    t.list.add("Enthalpy of vaporization from " +
               text::trim(models::hlv_name(t.models().vaporisation)));
    t.list.rule('-', kRule);
    const std::string s = caloric_number(h / t.answer.T);
    t.list.value(std::string(labels(t).h) + " = ", caloric_number(h));
    t.list.add(value_line(std::string("(enthalpy of vapor. delta(LV)s = delta(LV)h / T: ") +
                              labels(t).s + " = " + s + ")",
                          quantity_of(labels(t).s), s));
    compressibility_lines(t);
    if (const auto& database = t.answer.vaporisation->database)
        t.list.value(std::string("(cf. function from data base: ") + labels(t).h + " = ",
                     caloric_number(*database * t.units().caloric));
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
    result_lines(t);
}

void tell_virial(Teller& t) {
    constexpr std::size_t kNumberWidth = 16, kNameWidth = 35;
    if (tell_missing(t)) return;
    t.out.par1.text = temperature_text(t.answer.T);
    t.list.underlined("Comparison of Virial Coefficients, [B] = m^3/kmol");
    for (const calculation::VirialValue& one : t.answer.virials) {
        const std::string name = text::pad_right(models::eos_name(one.eos), kNameWidth);
        const std::string value = value32(one.B);
        t.list.add(value_line(name + " {B} = " + text::pad_left(value, kNumberWidth),
                              {text::trim(name) + " B", "m^3/kmol"}, value));
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
    t.list.value(label, value32(rho), " kg/m^3");
    t.list.value("v  /m^3/kmol = ", numbers::format(t.M() / rho, "##0.000###"));
    t.list.value("v  /m^3/kg   = ", numbers::format(1.0 / rho, "##0.000###"));
}

void value_of_database(Teller& t, const char* label, double value) {
    const auto unit = static_cast<std::size_t>(t.units().choice.caloric);
    switch (t.request.task) {
        case Task::liquidDensity:
        case Task::solidDensity:
            density_of_database(t, label, value);
            break;
        case Task::vaporisationEquation:
            t.list.value(label, value32(value * t.units().caloric), kEnergyUnits[unit]);
            break;
        case Task::idealGasCp:
        case Task::liquidCp:
        case Task::solidCp:
            t.list.value(label, value32(value * t.units().caloric), kCapacityUnits[unit]);
            break;
        default:
            t.list.value(label, value32(value * static_cast<double>(t.units().p)), " kPa");
            break;
    }
}

}  // namespace

void tell_database_function(Teller& t) {
    if (tell_missing(t) || !t.answer.ok()) return;
    const FunctionRow& row = row_of(t.request.task);
    const calculation::Range& range = t.answer.database->range;
    value_of_database(t, row.label, t.answer.database->value);
    t.out.par1.text = temperature_text(t.answer.T);
    t.out.co1.text =
        " Calculation by using the Database Function " + title_of(t.request.task, {}) + " Fu(T)";
    t.out.co2.text = temperature_text(t.answer.T);
    if (!range.known()) return;
    t.list.add("The function is valid within the following temperature limits:");
    t.list.value(" T(Lo)/K = ", std::to_string(range.T_low));
    t.list.value(" T(Hi)/K = ", std::to_string(range.T_high));
}

}  // namespace quor::report
