#pragma once

#include <string>
#include <utility>

namespace quor::gui {

/// The views of the calculations and what opens them.
namespace calculation_views {

/// Registers the rows of the Calculation menu and the end of the protocol, and gives the engine
/// its views.
void Install();

/// The choice between global and partial calculation, modal; goes on by itself. `forDiagram` when a
/// diagram waits for it instead of a calculation.
void OpenCalcIn(bool forDiagram);

/// The first two fields of the input view of a direct calculation, T and p; empty texts when it
/// asks for something else or is not open.
std::pair<std::string, std::string> typedTp();

void open_iso_calculator();
void OpenDiagnosis();

/// The result view, when it is open, shows the texts of the last calculation.
void refreshResult();

/// The diagnosis, when it is open, shows the last state again.
void refreshDiagnosis();

}  // namespace calculation_views

}  // namespace quor::gui
