#pragma once

#include <vector>

#include "tools/quorcalc/commands.h"

namespace quor::quorcalc {

/// The database, equations of state, states and saturation.
std::vector<Command> StateCommands();
/// Densities, enthalpy of vaporisation, ideal-gas cp, caloric functions.
std::vector<Command> PropertyCommands();
/// Whole calculations and batch runs.
std::vector<Command> CalculationCommands();
/// Curves of diagrams.
std::vector<Command> CurveCommands();
/// Surfaces over p, v and T.
std::vector<Command> SurfaceCommands();
/// Fits and group contributions.
std::vector<Command> EstimationCommands();

}  // namespace quor::quorcalc
