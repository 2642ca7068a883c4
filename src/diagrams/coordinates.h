#pragma once

#include "legacy/declare.h"

/// Default limits of the quantities and the window of each kind of diagram.
namespace quor::Module9 {

/// Sets the defaults in displayed units from substance, models, units and reference state.
/// `pMax`, `TMax` and `TMin` keep a value that is not 0 unless the units have changed. Throws
/// `faults::Fault` when specific units are asked for without a molar mass.
void calc_coordinate_defaults(diagrams::CoordinateDefaults& defaults);

/// Window of `request.DiagramType`, in displayed units, and its copy in the default fields; for a
/// database function also its validity. An added curve has the window of its diagram; a code of no
/// diagram gets T from TMin to TMax and keeps y.
void fill_diagram_window(const diagrams::CoordinateDefaults& defaults,
                         diagrams::DiagramRequest& request);

}  // namespace quor::Module9
