#pragma once

#include "common/result.h"
#include "diagrams/diagram_sheet.h"

/// A sheet in another choice of units.
namespace quor::diagrams {

/// Shows all that is on a sheet in other units: points, marks, window, texts that the program has
/// given, and the steps that can be taken back. Each curve is converted for its own fluid, points
/// without one for that of the sheet. What goes back to units that it had is what it was. The
/// failure says why the sheet keeps its units; then nothing has changed.
/// `unzoomed` is a window to which a view goes back.
Result<void> change_units(DiagramSheet& sheet, const models::UnitChoice& choice,
                          chart::Window* unzoomed = nullptr);

/// The fluid of the first curve, else that with which the sheet was opened; one without a name for
/// a sheet of points alone.
const models::Fluid& fluid_of(const DiagramSheet& sheet);

/// The unit of an axis that shows one quantity, in which its values can be typed; nothing for
/// logarithms, products and quotients. `x` is the horizontal axis of the sheet as it stands.
struct AxisQuantity {
    models::Dimension dimension;
    models::Scale scale;
};
std::optional<AxisQuantity> quantity_of(const DiagramSheet& sheet, bool x);

/// The spacing of ticks in a unit that is `factor` times as many: the same where only the zero
/// differs, else the next round one; 0 stays.
double converted_spacing(double spacing, double factor);

}  // namespace quor::diagrams
