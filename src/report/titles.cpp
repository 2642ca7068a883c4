#include "report/titles.h"

namespace quor::report {

using calculation::Task;

namespace {

/// What stands behind "Result of the Calculation: ".
const char* title(Task task) {
    switch (task) {
        case Task::pressureOfVapour:
            return " T, rho(V)  => p";
        case Task::pressureOfLiquid:
            return " T, rho(L)  => p";
        case Task::state:
            return " T, p => rho";
        case Task::temperature:
            return " p, rho => T";
        case Task::saturationAtT:
            return " T => p(LV)";
        case Task::saturationAtP:
            return " p => T(LV)";
        case Task::vaporisationAtT:
            return "T => Enthalpy of Vaporization according to \"Models\"";
        case Task::vaporisationAtP:
            return "p => Enthalpy of Vaporization according to \"Models\"";
        case Task::functions:
            return " thermodynamic Fu(T)";
        case Task::process:
            return "Polytropic process";
        case Task::globalTank:
        case Task::partialTank:
            return "Phases and Pressure in a Tank";
        case Task::virial:
            return "Comparison of Virial Coefficients";
        case Task::liquidDensity:
            return "L density";
        case Task::solidDensity:
            return "S density";
        case Task::vaporisationEquation:
            return "delta(LV)h equation";
        case Task::idealGasCp:
            return "ideal-gas cp";
        case Task::liquidCp:
            return "cp(L)";
        case Task::solidCp:
            return "cp(S)";
        case Task::pressureFrost:
            return "FRO";
        case Task::pressureWagner:
            return "WAG";
        case Task::pressureAntoineLow:
            return "ALP";
        case Task::pressureAntoineHigh:
            return "AHP";
        case Task::temperatureOnly:
        case Task::none:
            break;
    }
    return "";
}

constexpr auto kGlobal = " (global calculation)";

}  // namespace

std::string title_of(Task task, const calculation::Method& method) {
    const std::string plain = title(task);
    if (is_tank(task)) {
        if (method.global) return plain + kGlobal;
        return plain + " (partial calculation, rho_L " +
               (method.liquid_by_benson ? " by BENSON's method)" : " (from database)");
    }
    if (is_equilibrium(task)) return plain + (method.global ? kGlobal : " (partial calculation)");
    return task == Task::functions ? plain + kGlobal : plain;
}

std::string caption_of(Task task, const calculation::Method& method) {
    return is_tank(task) ? title_of(task, method)
                         : "Result of the Calculation: " + title_of(task, method);
}

}  // namespace quor::report
