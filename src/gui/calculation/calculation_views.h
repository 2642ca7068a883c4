#pragma once

#include <string>
#include <utility>

#include "calculation/task.h"

namespace quor::gui {

class Desk;

/// The views of the calculations and what opens them.
namespace calculation_views {

/// Gives the calculations their views.
void install(Desk& desk);

/// The choice between global and partial calculation for the session's task, modal; goes on by
/// itself. `forDiagram` when a diagram waits for it instead of a calculation. False when it was
/// cancelled.
bool openPartialChoice(Desk& desk, bool forDiagram);
/// The same for a task that a diagram asks for.
bool openPartialChoice(Desk& desk, calculation::Task task, bool forDiagram);

void openIsoCalculator(Desk& desk);
void openDiagnosis(Desk& desk);

/// The result view, when it is open, shows the current result.
void refreshResult(Desk& desk);

/// The diagnosis, when it is open, shows the last state again.
void refreshDiagnosis(Desk& desk);

}  // namespace calculation_views

}  // namespace quor::gui
