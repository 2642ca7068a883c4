#include "session/menu_commands.h"

#include "common/dialogs.h"
#include "session/declare.h"

namespace menu {

namespace {

using Declare::session;

constexpr std::int16_t kSurfaceP = 1, kSurfaceT = 4;

bool prepare_diagram(const Row& row) {
    Declare::diagram.DiagramType = row.code;
    Declare::diagram.sectionKind = row.sectionKind;
    Declare::diagram.axisPair = row.axisPair;
    return true;
}

bool prepare_surface(const Row& row) {
    session.Diagram3DKind = row.code;
    session.SCurve3D = false;
    const bool hasSCurve = row.code == kSurfaceP || row.code == kSurfaceT;
    if (hasSCurve && !Declare::models.EOSOnlyV)
        session.SCurve3D = !dialogs::Ask(
            "Draw physically real behaviour?\n"
            "(No = Draw S-shaped curves in the undercritical region)",
            "for cubic EOS only");
    return true;
}

bool prepare_new_data() {
    if (session.CurrentSubstance == 0) {
        dialogs::Tell("First choose substance!", "friendly remark");
        return false;
    }
    if (session.BatchCount > 0 &&
        !dialogs::Ask("Exspecting input of new data;\nthe existing set of data will be deleted.\n"
                      "Do you want this?",
                      "WARNING", dialogs::Icon::Exclamation))
        return false;
    session.BatchCount = 0;
    session.BatchFile.clear();
    session.BatchComment.clear();
    session.BatchCasrn.clear();
    Declare::BatchData.resize(1);  // the direct input stays
    Declare::BatchData.resize(2);
    return true;
}

bool prepare_project_save() {
    if (session.ProjectNotePending)
        dialogs::Tell(
            "Please note:\nBefore saving your project the settings\n"
            "for \"Models\" and \"Options\" must be complete",
            "Single Note", dialogs::Icon::Information);
    session.ProjectNotePending = false;
    return true;
}

}  // namespace

bool Prepare(const Row& row) {
    if (row.action == "Diagram2D") return prepare_diagram(row);
    if (row.action == "Diagram3D") return prepare_surface(row);
    if (row.control == "mnuData_BatchInput") return prepare_new_data();
    if (row.control == "mnuData_SaveProject") return prepare_project_save();
    if (row.control == "mnuFitting") session.BatchCount = 0;
    return true;
}

void OpenDataMenu() {
    if (session.BatchCount > 0) Module2::SetCommands({Declare::Command::mnuData_BatchEdit}, true);
}

}  // namespace menu
