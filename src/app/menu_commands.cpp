#include "app/menu_commands.h"

#include "common/dialogs.h"
#include "diagrams/surface.h"
#include "session/measured_data_session.h"

namespace quor::menu {

namespace {

bool prepare_diagram(session::Session& session, const Row& row) {
    session.change()->diagram = diagrams::find_diagram(row.code);
    return session->diagram != nullptr;
}

bool prepare_surface(session::Session& session, const Row& row) {
    {
        const auto now = session.change();
        now->surface_kind = row.code;
        now->surface_scurve = false;
    }
    const diagrams::SurfaceKind* kind = diagrams::find_surface(row.code);
    if (kind == nullptr) return false;
    if (!kind->has_s_curve || session->models.vapour_only) return true;
    const bool real = dialogs::ask(
        "Draw physically real behaviour?\n"
        "(No = Draw S-shaped curves in the undercritical region)",
        "for cubic EOS only");
    session.change()->surface_scurve = !real;
    return true;
}

bool prepare_new_data(session::Session& session) {
    if (session->substance_number == 0) {
        dialogs::tell("First choose substance!", "friendly remark");
        return false;
    }
    if (session->measured_unsaved && !session::may_leave_measured_data(session)) return false;
    if (!session->measured_unsaved && !session->measured.points.empty() &&
        !dialogs::ask("Exspecting input of new data;\nthe existing set of data will be deleted.\n"
                      "Do you want this?",
                      "WARNING", dialogs::Icon::Exclamation))
        return false;
    session::clear_measured_data(session);
    return true;
}

bool prepare_project_save(session::Session& session) {
    if (session->project_note_pending)
        dialogs::tell(
            "Please note:\nBefore saving your project the settings\n"
            "for \"Models\" and \"Options\" must be complete",
            "Single Note", dialogs::Icon::Information);
    session.change()->project_note_pending = false;
    return true;
}

/// A fit that the menu opens begins without measured data.
bool prepare_fitting(session::Session& session) {
    if (!session::may_leave_measured_data(session)) return false;
    const auto now = session.change();
    now->measured.points.clear();
    now->measured_unsaved = false;
    return true;
}

}  // namespace

bool prepare(session::Session& session, const Row& row) {
    if (row.action == "Diagram2D") return prepare_diagram(session, row);
    if (row.action == "Diagram3D") return prepare_surface(session, row);
    if (row.action == "StateChart") session.change()->state_chart = row.code;
    if (row.control == "mnuData_BatchInput") return prepare_new_data(session);
    if (row.control == "mnuData_SaveProject") return prepare_project_save(session);
    if (row.control == "mnuFitting") return prepare_fitting(session);
    return true;
}

void open_data_menu(session::Session& session) {
    if (!session->measured.points.empty())
        session::set_commands(session, {session::Command::measuredDataEdit}, true);
}

}  // namespace quor::menu
