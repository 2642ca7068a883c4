#include "app/wiring.h"

#include "app/open_file.h"

#include "app/help_viewer.h"
#include "app/main_window.h"
#include "calculation/protocol.h"
#include "datafiles/database.h"
#include "datafiles/project.h"
#include "gui/calculation/calculation_views.h"
#include "gui/data/editor_views.h"
#include "gui/data/measured_data_editor.h"
#include "gui/diagrams/diagram_window.h"
#include "gui/estimation/estimation_views.h"
#include "gui/models/reference_state_dialog.h"
#include "gui/session/options_dialog.h"
#include "gui/surfaces/surface_window.h"
#include "gui/widgets/settings.h"
#include "gui/widgets/shell.h"
#include "session/actions.h"
#include "session/commands.h"
#include "session/project_hooks.h"
#include "session/shutdown.h"

namespace quor::app {

namespace wiring {

namespace {

using session::Command;

/// A project whose substance is missing leaves its database open: the user goes on from there.
bool load_project(const std::string& file) {
    const datafiles::ProjectResult r = datafiles::LoadProject(file);
    if (r.loaded && !r.modelsComplete) {
        session::SetCommands({Command::mnuData_Status, Command::mnuStoff,
                              Command::mnuData_EditStoffdaten, Command::mnuData_BatchInput},
                             true);
        session::SetCommands({Command::mnuModel}, r.substanceFound);
    }
    return r.modelsComplete;
}

void connect_projects() {
    session::ProjectHooks& hooks = session::projectHooks();
    hooks.choose = datafiles::ChooseProject;
    hooks.load = load_project;
    hooks.save = [] { datafiles::SaveProject(true); };
    // A project names its database without a folder: those used lately are where it may lie.
    for (const QString& folder : gui::settings::databaseFolders())
        datafiles::AddDatabaseFolder(folder.toStdString());
}

void connect_shutdown() {
    session::ShutdownHooks& hooks = session::shutdownHooks();
    hooks.writeProtocol = calculation::CloseProtocol;
    hooks.saveLastSession = [](const std::string&) { datafiles::SaveProject(false); };
    hooks.closeFiles = datafiles::CloseDatabase;
}

void open_reference() {
    gui::ReferenceStateDialog view(gui::shell::FrameWindow());
    gui::shell::OpenModal(view);
}

}  // namespace

void ConnectViews() {
    using actions::RegisterAction;
    connect_projects();
    connect_shutdown();
    gui::calculation_views::Install();
    RegisterAction("frmReferenz", open_reference);
    RegisterAction("mnuData_BatchInput", gui::MeasuredDataEditor::OpenNew);
    RegisterAction("mnuData_BatchEdit", gui::MeasuredDataEditor::OpenPresent);
    gui::graph2d_views::Install();
    gui::graph3d_views::Install();
    RegisterAction("mnuOptions", [] {
        gui::OptionsDialog view(gui::shell::FrameWindow());
        gui::shell::OpenModal(view);
    });
    gui::editor_views::Install();
    help_views::Install();
    MainWindow::SetFileOpener(open_file::Open);
    gui::estimation_views::Install();
}

}  // namespace wiring

}  // namespace quor::app
