#include "app/frame_commands.h"

#include <QApplication>

#include "app/tip_dialog.h"
#include "common/dialogs.h"
#include "gui/data/substance_dialog.h"
#include "gui/estimation/fit_view.h"
#include "gui/models/model_dialog.h"
#include "gui/widgets/settings.h"
#include "gui/widgets/shell.h"
#include "legacy/declare.h"
#include "models/model_choice.h"
#include "session/actions.h"
#include "session/commands.h"
#include "session/module2.h"
#include "session/project_hooks.h"
#include "session/session_status.h"
#include "session/substance_session.h"
#include "session/take_models.h"

namespace quor::app {

namespace frame_commands {

namespace {

using legacy::the_session;
using session::Command;

void show(const session::Report& report) {
    dialogs::tell(report.text, report.title, dialogs::Icon::Information);
}

void close_results_and_input() {
    gui::shell::closeViews(gui::shell::resultViews() + gui::shell::inputViews());
}

// The commands of a session that a project has restored.
void enable_restored_session() {
    session::set_commands({Command::mnuData_Status, Command::mnuStoff, Command::mnuModel,
                           Command::mnuData_EditStoffdaten, Command::mnuData_BatchInput,
                           Command::mnuData_SaveProject},
                          true);
    session::enable_model_commands();
    the_session.ProjectLoaded = true;
    session::refresh_units();
}

void load_project(const std::string& file) {
    const session::ProjectHooks& hooks = session::project_hooks();
    if (hooks.check && !hooks.check(file)) return;
    close_results_and_input();
    session::reset_session();
    if (hooks.load(file)) {
        enable_restored_session();
        if (file != the_session.LastSessionFile)
            gui::settings::rememberFile(QString::fromStdString(file));
    }
    gui::shell::Refresh();
}

}  // namespace

void openDatabase() {
    close_results_and_input();
    if (session::load_database() != session::LoadOutcome::Loaded) return;
    const std::string file = legacy::the_database.path().string();
    gui::settings::rememberFile(QString::fromStdString(file));
    gui::settings::rememberDatabaseFolder(QString::fromStdString(paths::folder_of(file)));
    // The substance of the former database has no place in this one.
    the_session.CurrentSubstance = 0;
    the_session.SubstanceSet = false;
    session::set_commands({Command::mnuModel, Command::mnuCalcMain, Command::mnuOptions,
                           Command::mnuFitting, Command::mnu2D, Command::mnu3D},
                          false);
    session::set_commands(
        {Command::mnuStoff, Command::mnuData_EditStoffdaten, Command::mnuData_BatchInput}, true);
    chooseSubstance();
}

void chooseSubstance() {
    gui::SubstanceDialog view(gui::shell::frameWindow());
    const bool chosen = gui::shell::openModal(view) == QDialog::Accepted;
    gui::FitView::followSubstance();
    if (!chosen) return;
    close_results_and_input();
    chooseModels();
}

void chooseModels() {
    constexpr auto kEditData = "mnuData_EditStoffdaten";
    gui::ModelDialog::Session session{.editData = {}, .take = session::take_models};
    if (actions::has(kEditData))
        session.editData = [] {
            actions::Run(kEditData);
            return legacy::the_substance;
        };
    gui::ModelDialog view(legacy::the_substance, legacy::the_models, std::move(session),
                          gui::shell::frameWindow());
    gui::shell::openModal(view);
    gui::shell::Refresh();
}

void showStatus() {
    show(session::status_report());
}

void showParameters() {
    show(session::parameter_report());
}

void showTips() {
    TipDialog::showOnRequest();
}

void showAbout() {
    dialogs::tell(
        "QUOR-6   Thermodynamic Calculations of States and Processes for Pure Substances\n\n"
        "Version " +
            QApplication::applicationVersion().toStdString() +
            "\n\nFree software under the GNU General Public License, version 3 or later.\n"
            "It comes without any warranty.",
        "About the Program", dialogs::Icon::Information);
}

void showInformation() {
    const auto name_or_none = [](const std::string& s) { return s.empty() ? "none" : s; };
    dialogs::tell("Program folder: " + legacy::the_places.program_folder().string() +
                      "\nFolder of your files: " + legacy::the_places.write_folder().string() +
                      "\n\nDatabase: " + name_or_none(the_session.DatabaseFile) +
                      "\nProject: " + name_or_none(the_session.ProjectFile) + "\nProtocol file: " +
                      name_or_none(legacy::the_protocol.file) + "\n\nQt " + std::string(qVersion()),
                  "Information", dialogs::Icon::Information);
}

void load_last_session() {
    if (!legacy::the_places.file_exists(the_session.LastSessionFile)) {
        dialogs::tell("There is no last session yet:\n" + the_session.LastSessionFile,
                      "Execution not possible");
        return;
    }
    load_project(the_session.LastSessionFile);
}

void LoadProject() {
    if (const std::optional<std::string> file = session::project_hooks().choose())
        load_project(*file);
}

void save_project() {
    session::project_hooks().save();
}

}  // namespace frame_commands

}  // namespace quor::app
