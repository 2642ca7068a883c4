#pragma once

#include <string>

#include "diagrams/diagram_sheet.h"

namespace quor::Module9 {

/// Asks for a name and writes the diagram as .oc2; false when nothing was written.
bool save_oc2(const DiagramSheet& sheet);

enum class LoadOutcome {
    Loaded,
    Cancelled,
    Failed  ///< said; the view closes
};

/// Asks for a saved diagram and takes it in the place of all that is there.
LoadOutcome load_oc2(DiagramSheet& sheet);
/// The same for a known file.
LoadOutcome load_oc2(DiagramSheet& sheet, const std::string& file);

/// The bookkeeping after a chart was read: slots, counters, labels, window.
void take_loaded_chart(DiagramSheet& sheet, chart::Chart2D chart);

/// `cmdSaveCurveAsXY`: writes one curve; false when nothing was written.
bool save_curve(const DiagramSheet& sheet, int slot);

/// The points of a curve as lines of x, y and the parameter, separated by tabs, under a line of
/// captions; numbers in the locale's form.
std::string curve_table(const DiagramSheet& sheet, int slot);

}  // namespace quor::Module9
