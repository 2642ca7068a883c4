#include "session/diagram_choice.h"

#include "datafiles/search.h"

namespace quor::session {

diagrams::Basis present_basis(const Session& session) {
    return {session.fluid(), present_reference(session), present_units(session),
            session->calculation.method.reference};
}

diagrams::Pen present_pen(const Session& session) {
    diagrams::Pen pen{.options = session->curve_options, .limits = session->coordinates};
    try {
        pen.basis = present_basis(session);
    } catch (const std::exception&) {
        pen.basis = {.fluid = session.fluid(), .reference = present_reference(session)};
    }
    if (!session->substance_set) pen.basis.fluid = {};
    return pen;
}

diagrams::DiagramStart present_start(const Session& session) {
    return {session->diagram_at, session->coordinates, session->new_substance_diagram};
}

void keep_start(Session& session, const diagrams::DiagramStart& start) {
    const auto now = session.change();
    now->diagram_at = start.at;
    now->coordinates = start.limits;
    now->new_substance_diagram = start.new_substance;
}

std::string short_name(const Session& session, const models::SubstanceRecord& substance) {
    const auto place = datafiles::find_by_casrn(session->database, substance.casrn);
    return place ? datafiles::short_name_of(session->database.entries()[*place].name)
                 : substance.name;
}

void renew_limits(Session& session) {
    const auto now = session.change();
    settle_units(session);
    now->caloric_factor =
        models::caloric_factor(now->units.caloric, now->diagram_at.T, now->substance);
    now->coordinates =
        diagrams::coordinate_defaults(present_basis(session), now->coordinates, now->units_changed);
}

}  // namespace quor::session
