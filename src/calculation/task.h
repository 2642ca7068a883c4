#pragma once

#include <cstdint>

/// Calculations of single states: a request goes in, an answer of numbers by name comes out.
namespace quor::calculation {

/// What is calculated.
enum class Task {
    none,
    pressureOfVapour,      ///< p from T and rho
    pressureOfLiquid,      ///< p from T and rho(L)
    state,                 ///< phases and densities at T and p
    saturationAtT,         ///< equilibrium at T
    saturationAtP,         ///< equilibrium at p
    vaporisationAtT,       ///< enthalpy of vaporisation at T
    vaporisationAtP,       ///< enthalpy of vaporisation at p
    functions,             ///< caloric functions at T and p
    globalTank,            ///< content of a tank by the equation of state
    partialTank,           ///< content of a tank, L density from elsewhere
    virial,                ///< second virial coefficients of all equations
    process,               ///< states along a polytropic process
    temperature,           ///< T from p and rho
    liquidDensity,         ///< functions of T from the database alone ...
    vaporisationEquation,  //
    idealGasCp,
    liquidCp,
    solidCp,
    pressureFrost,
    pressureWagner,
    pressureAntoineLow,
    pressureAntoineHigh,
    temperatureOnly,  ///< a function that no database has
    solidDensity      ///< ... to here
};
inline constexpr std::int16_t kTaskCount = 25;

/// The numeric code of a task in files, on the command line and in JSON, 0 to 24; a code that does
/// not exist is no task.
constexpr std::int16_t code_of(Task task) {
    return static_cast<std::int16_t>(task);
}
constexpr Task task_of_code(int code) {
    return code > 0 && code < kTaskCount ? static_cast<Task>(code) : Task::none;
}

/// What a task asks for.
enum Asks : unsigned { kAsksNothing = 0, kAsksT = 1, kAsksP = 2, kAsksRho = 4 };
unsigned asks_of(Task task);

bool is_tank(Task task);
bool is_equilibrium(Task task);
bool is_vaporisation(Task task);
/// True for the functions of T from the database alone.
bool is_database_function(Task task);

}  // namespace quor::calculation
