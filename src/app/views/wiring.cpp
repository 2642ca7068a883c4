#include "app/views/wiring.h"

#include "app/views/open_file.h"

#include "calculation/protocol.h"
#include "calculation/views/calculation_views.h"
#include "common/views/settings.h"
#include "datafiles/database.h"
#include "datafiles/project.h"
#include "datafiles/views/editor_views.h"
#include "datafiles/views/frmTpvEdit.h"
#include "diagrams/views/frmGraph2D.h"
#include "diagrams/views/frmGraph3D.h"
#include "estimation/views/estimation_views.h"
#include "models/views/frmReferenz.h"
#include "session/actions.h"
#include "session/commands.h"
#include "session/project_hooks.h"
#include "session/shutdown.h"
#include "session/views/frmOptions.h"
#include "session/views/help_viewer.h"
#include "session/views/mdiQUOR.h"
#include "session/views/shell.h"

namespace wiring {

namespace {

using Declare::Command;

/// A project whose substance is missing leaves its database open: the user goes on from there.
bool load_project(const std::string& file) {
    const LoadSaveData::ProjectResult r = LoadSaveData::LoadProject(file);
    if (r.loaded && !r.modelsComplete) {
        Module2::SetCommands({Command::mnuData_Status, Command::mnuStoff,
                              Command::mnuData_EditStoffdaten, Command::mnuData_BatchInput},
                             true);
        Module2::SetCommands({Command::mnuModel}, r.substanceFound);
    }
    return r.modelsComplete;
}

void connect_projects() {
    Module2::ProjectHooks& hooks = Module2::projectHooks();
    hooks.choose = LoadSaveData::ChooseProject;
    hooks.load = load_project;
    hooks.save = [] { LoadSaveData::SaveProject(true); };
    // A project names its database without a folder: those used lately are where it may lie.
    for (const QString& folder : settings::databaseFolders())
        LoadSaveData::AddDatabaseFolder(folder.toStdString());
}

void connect_shutdown() {
    Module2::ShutdownHooks& hooks = Module2::shutdownHooks();
    hooks.writeProtocol = Zentrale::CloseProtocol;
    hooks.saveLastSession = [](const std::string&) { LoadSaveData::SaveProject(false); };
    hooks.closeFiles = LoadSaveData::CloseDatabase;
}

void open_reference() {
    frmReferenz view(shell::FrameWindow());
    shell::OpenModal(view);
}

}  // namespace

void ConnectViews() {
    using actions::RegisterAction;
    connect_projects();
    connect_shutdown();
    calculation_views::Install();
    RegisterAction("frmReferenz", open_reference);
    RegisterAction("mnuData_BatchInput", frmTpvEdit::OpenNew);
    RegisterAction("mnuData_BatchEdit", frmTpvEdit::OpenPresent);
    graph2d_views::Install();
    graph3d_views::Install();
    RegisterAction("mnuOptions", [] {
        frmOptions view(shell::FrameWindow());
        shell::OpenModal(view);
    });
    editor_views::Install();
    help_views::Install();
    mdiQUOR::SetFileOpener(open_file::Open);
    estimation_views::Install();
}

}  // namespace wiring
