#pragma once

#include "diagrams/prepare_2d.h"
#include "diagrams/sheet_draw.h"
#include "legacy/current_fluid.h"

namespace quor::diagrams {

/// Fluid, reference state and units of the process-level records. Throws as `make_units`.
inline Basis current_basis() {
    return {models::current_fluid(), legacy::the_reference, models::current_units(),
            legacy::the_session.calculation.method.reference};
}

inline CurveOptions current_options() {
    const legacy::Session& s = legacy::the_session;
    return {s.PointsPerCurve, s.CurveRealRangeOnly, s.CurveSWithoutTieLine, s.PartialGasCurve};
}

/// The pen of the process-level records. Without the units that are chosen it has molar ones.
inline Pen current_pen() {
    Pen pen{.options = current_options(), .limits = legacy::the_coordinates};
    try {
        pen.basis = current_basis();
    } catch (const std::exception&) {
        pen.basis = {.fluid = models::current_fluid(), .reference = legacy::the_reference};
    }
    if (!legacy::the_session.SubstanceSet) pen.basis.fluid = {};
    return pen;
}

inline DiagramStart current_start() {
    const legacy::Session& s = legacy::the_session;
    return {{s.DiagramT, s.DiagramP, s.DiagramV}, legacy::the_coordinates, s.NewSubstanceDiagram};
}

/// Gives the parameters of a diagram to the process-level records.
inline void keep_parameters(const StateParameters& at) {
    legacy::Session& s = legacy::the_session;
    s.DiagramT = at.T;
    s.DiagramP = at.p;
    s.DiagramV = at.v;
}

inline void keep_start(const DiagramStart& start) {
    keep_parameters(start.at);
    legacy::the_coordinates = start.limits;
    legacy::the_session.NewSubstanceDiagram = start.newSubstance;
}

}  // namespace quor::diagrams
