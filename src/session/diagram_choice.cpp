#include "session/diagram_choice.h"

namespace quor::session {

diagrams::Basis present_basis(const Session& session) {
    return {session.fluid(), session->reference, present_units(session),
            session->calculation.method.reference};
}

diagrams::Pen present_pen(const Session& session) {
    diagrams::Pen pen{.options = session->curveOptions, .limits = session->coordinates};
    try {
        pen.basis = present_basis(session);
    } catch (const std::exception&) {
        pen.basis = {.fluid = session.fluid(), .reference = session->reference};
    }
    if (!session->substanceSet) pen.basis.fluid = {};
    return pen;
}

diagrams::DiagramStart present_start(const Session& session) {
    return {session->diagramAt, session->coordinates, session->newSubstanceDiagram};
}

void keep_start(Session& session, const diagrams::DiagramStart& start) {
    const auto now = session.change();
    now->diagramAt = start.at;
    now->coordinates = start.limits;
    now->newSubstanceDiagram = start.newSubstance;
}

void renew_limits(Session& session) {
    const auto now = session.change();
    settle_units(session);
    now->caloricFactor = models::caloric_factor(now->caloricUnit, now->diagramAt.T, now->substance);
    now->coordinates =
        diagrams::coordinate_defaults(present_basis(session), now->coordinates, now->unitsChanged);
}

}  // namespace quor::session
