#pragma once

#include <QString>
#include <string>
#include <utility>

#include "calculation/task.h"

class QWidget;

namespace quor::gui {

/// The views of the calculations and what opens them.
namespace calculation_views {

/// Registers the rows of the Calculation menu and the end of the protocol, and gives the session
/// its views.
void Install();

/// The choice between global and partial calculation for the session's task, modal; goes on by
/// itself. `forDiagram` when a diagram waits for it instead of a calculation. False when it was
/// cancelled.
bool OpenCalcIn(bool forDiagram);
/// The same for a task that a diagram asks for.
bool OpenCalcIn(calculation::Task task, bool forDiagram);

/// The first two fields of the input view of a direct calculation, T and p; empty texts when it
/// asks for something else or is not open.
std::pair<std::string, std::string> typedTp();

void open_iso_calculator(const std::string& T, const std::string& p);
void OpenDiagnosis();

/// The result view, when it is open, shows the current result.
void refreshResult();

/// The diagnosis, when it is open, shows the last state again.
void refreshDiagnosis();

}  // namespace calculation_views

}  // namespace quor::gui
