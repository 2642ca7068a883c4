#pragma once

#include <vector>

#include "tools/quorcalc/commands.h"

namespace quor::quorcalc {

/// The database, equations of state, states and saturation.
std::vector<Command> state_commands();
/// States from any two properties.
std::vector<Command> flash_commands();
/// Densities, enthalpy of vaporisation, ideal-gas cp, caloric functions.
std::vector<Command> property_commands();
/// Whole calculations and batch runs.
std::vector<Command> calculation_commands();
/// Curves of diagrams.
std::vector<Command> curve_commands();
/// State charts: domes and families of lines.
std::vector<Command> chart_commands();
/// Surfaces over p, v and T.
std::vector<Command> surface_commands();
/// Fits and group contributions.
std::vector<Command> estimation_commands();

}  // namespace quor::quorcalc
