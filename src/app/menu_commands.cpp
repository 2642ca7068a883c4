#include "app/menu_commands.h"

#include "common/dialogs.h"
#include "diagrams/surface.h"
#include "legacy/declare.h"
#include "session/measured_data_session.h"

namespace quor::menu {

namespace {

using legacy::the_session;

bool prepare_diagram(const Row& row) {
    legacy::the_diagram = diagrams::find_diagram(row.code);
    return legacy::the_diagram != nullptr;
}

bool prepare_surface(const Row& row) {
    the_session.Diagram3DKind = row.code;
    the_session.SCurve3D = false;
    const diagrams::SurfaceKind* kind = diagrams::find_surface(row.code);
    if (kind == nullptr) return false;
    if (kind->hasSCurve && !legacy::the_models.EOSOnlyV)
        the_session.SCurve3D = !dialogs::ask(
            "Draw physically real behaviour?\n"
            "(No = Draw S-shaped curves in the undercritical region)",
            "for cubic EOS only");
    return true;
}

bool prepare_new_data() {
    if (the_session.CurrentSubstance == 0) {
        dialogs::tell("First choose substance!", "friendly remark");
        return false;
    }
    if (the_session.BatchCount > 0 &&
        !dialogs::ask("Exspecting input of new data;\nthe existing set of data will be deleted.\n"
                      "Do you want this?",
                      "WARNING", dialogs::Icon::Exclamation))
        return false;
    session::clear_measured_data();
    return true;
}

bool prepare_project_save() {
    if (the_session.ProjectNotePending)
        dialogs::tell(
            "Please note:\nBefore saving your project the settings\n"
            "for \"Models\" and \"Options\" must be complete",
            "Single Note", dialogs::Icon::Information);
    the_session.ProjectNotePending = false;
    return true;
}

}  // namespace

bool Prepare(const Row& row) {
    if (row.action == "Diagram2D") return prepare_diagram(row);
    if (row.action == "Diagram3D") return prepare_surface(row);
    if (row.control == "mnuData_BatchInput") return prepare_new_data();
    if (row.control == "mnuData_SaveProject") return prepare_project_save();
    if (row.control == "mnuFitting") the_session.BatchCount = 0;
    return true;
}

void open_data_menu() {
    if (the_session.BatchCount > 0)
        session::set_commands({session::Command::mnuData_BatchEdit}, true);
}

}  // namespace quor::menu
