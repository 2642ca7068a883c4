#pragma once

#include "diagrams/diagram.h"

/// Default limits of the quantities and the window of each kind of diagram.
namespace quor::diagrams {

/// The defaults in units of the computation. `previous` are those before: its `p_max`, `T_max` and
/// `T_min` stay where they are not 0, unless the units are `renewed`; without critical data all of
/// it stays.
CoordinateDefaults coordinate_defaults(const Basis& basis, const CoordinateDefaults& previous = {},
                                       bool renewed = false);

/// The window of a diagram, in displayed units; for a function of the database also its validity.
struct ProposedWindow {
    CurveWindow window;
    Validity validity;
};
/// An added curve has the window of its diagram; a row without limits gets T from TMin to TMax and
/// an empty range of y.
ProposedWindow proposed_window(const Diagram& diagram, const Basis& basis,
                               const CoordinateDefaults& defaults);

}  // namespace quor::diagrams
