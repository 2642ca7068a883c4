#include "app/wiring.h"

#include "app/open_file.h"

#include "app/help_viewer.h"
#include "app/main_window.h"
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
#include "session/calculations.h"
#include "session/commands.h"
#include "session/project_hooks.h"
#include "session/project_session.h"
#include "session/shutdown.h"
#include "session/substance_session.h"

namespace quor::app {

namespace wiring {

namespace {

using session::Command;

/// A project whose substance is missing leaves its database open: the user goes on from there.
bool load_project(const std::string& file) {
    const session::ProjectResult r = session::load_project(file);
    if (r.loaded && !r.modelsComplete) {
        session::set_commands({Command::mnuData_Status, Command::mnuStoff,
                               Command::mnuData_EditStoffdaten, Command::mnuData_BatchInput},
                              true);
        session::set_commands({Command::mnuModel}, r.substanceFound);
    }
    return r.modelsComplete;
}

void connect_projects() {
    session::ProjectHooks& hooks = session::project_hooks();
    hooks.choose = session::choose_project;
    hooks.check = session::may_load_project;
    hooks.load = load_project;
    hooks.save = [] { session::save_project(true); };
    // A project names its database without a folder: those used lately are where it may lie.
    for (const QString& folder : gui::settings::databaseFolders())
        session::add_database_folder(folder.toStdString());
}

void connect_shutdown() {
    session::ShutdownHooks& hooks = session::shutdown_hooks();
    hooks.writeProtocol = session::close_protocol;
    hooks.saveLastSession = [](const std::string&) { session::save_project(false); };
}

void open_reference() {
    gui::ReferenceStateDialog view(gui::shell::frameWindow());
    gui::shell::openModal(view);
}

}  // namespace

void connectViews() {
    using actions::register_action;
    connect_projects();
    connect_shutdown();
    gui::calculation_views::Install();
    register_action("frmReferenz", open_reference);
    register_action("mnuData_BatchInput", gui::MeasuredDataEditor::openNew);
    register_action("mnuData_BatchEdit", gui::MeasuredDataEditor::openPresent);
    gui::graph2d_views::Install();
    gui::graph3d_views::Install();
    register_action("mnuOptions", [] {
        gui::OptionsDialog view(gui::shell::frameWindow());
        gui::shell::openModal(view);
    });
    gui::editor_views::Install();
    help_views::Install();
    MainWindow::setFileOpener(open_file::Open);
    gui::estimation_views::Install();
}

}  // namespace wiring

}  // namespace quor::app
