#pragma once

#include <vector>

#include "tools/quorcalc/commands.h"

namespace quorcalc {

/// The database, equations of state, states and saturation.
std::vector<Command> StateCommands();
/// Densities, enthalpy of vaporisation, ideal-gas cp, caloric functions.
std::vector<Command> PropertyCommands();
/// Whole calculations, curves, surfaces, batch runs, fits, group contributions.
std::vector<Command> CalculationCommands();

}  // namespace quorcalc
