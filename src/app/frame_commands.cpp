#include "app/frame_commands.h"

#include <QApplication>

#include "app/tip_dialog.h"
#include "common/dialogs.h"
#include "datafiles/database.h"
#include "datafiles/session_status.h"
#include "gui/data/substance_dialog.h"
#include "gui/models/model_dialog.h"
#include "gui/widgets/settings.h"
#include "gui/widgets/shell.h"
#include "legacy/declare.h"
#include "models/model_choice.h"
#include "session/commands.h"
#include "session/module2.h"
#include "session/project_hooks.h"

namespace quor::app {

namespace frame_commands {

namespace {

using legacy::the_session;
using session::Command;

void show(const datafiles::Report& report) {
    dialogs::Tell(report.text, report.title, dialogs::Icon::Information);
}

void close_results_and_input() {
    gui::shell::CloseViews(gui::shell::ResultViews() + gui::shell::InputViews());
}

// The commands of a session that a project has restored.
void enable_restored_session() {
    session::SetCommands({Command::mnuData_Status, Command::mnuStoff, Command::mnuModel,
                          Command::mnuData_EditStoffdaten, Command::mnuData_BatchInput,
                          Command::mnuData_SaveProject},
                         true);
    models::EnableModelCommands();
    the_session.ProjectLoaded = true;
    session::RefreshUnits();
}

void load_project(const std::string& file) {
    close_results_and_input();
    session::ResetSession();
    if (session::projectHooks().load(file)) {
        enable_restored_session();
        if (file != the_session.LastSessionFile)
            gui::settings::rememberFile(QString::fromStdString(file));
    }
    gui::shell::Refresh();
}

}  // namespace

void OpenDatabase() {
    close_results_and_input();
    if (datafiles::LoadDatabase() != datafiles::LoadOutcome::Loaded) return;
    gui::settings::rememberFile(QString::fromStdString(the_session.DatabasePath));
    gui::settings::rememberDatabaseFolder(
        QString::fromStdString(session::FolderOf(the_session.DatabasePath)));
    // The substance of the former database has no place in this one.
    the_session.CurrentSubstance = 0;
    the_session.SubstanceSet = false;
    session::SetCommands({Command::mnuModel, Command::mnuCalcMain, Command::mnuOptions,
                          Command::mnuFitting, Command::mnu2D, Command::mnu3D},
                         false);
    session::SetCommands(
        {Command::mnuStoff, Command::mnuData_EditStoffdaten, Command::mnuData_BatchInput}, true);
    ChooseSubstance();
}

void ChooseSubstance() {
    gui::SubstanceDialog view(gui::shell::FrameWindow());
    if (gui::shell::OpenModal(view) != QDialog::Accepted) return;
    close_results_and_input();
    ChooseModels();
}

void ChooseModels() {
    gui::ModelDialog view(gui::shell::FrameWindow());
    gui::shell::OpenModal(view);
    gui::shell::Refresh();
}

void ShowStatus() {
    show(datafiles::StatusReport());
}

void ShowParameters() {
    show(datafiles::ParameterReport());
}

void ShowTips() {
    TipDialog::ShowOnRequest();
}

void ShowAbout() {
    dialogs::Tell(
        "QUOR-6   Thermodynamic Calculations of States and Processes for Pure Substances\n\n"
        "Version " +
            QApplication::applicationVersion().toStdString() +
            "\n\nFree software under the GNU General Public License, version 3 or later.\n"
            "It comes without any warranty.",
        "About the Program", dialogs::Icon::Information);
}

void ShowInformation() {
    const auto name_or_none = [](const std::string& s) { return s.empty() ? "none" : s; };
    dialogs::Tell("Program folder: " + session::ProgramFolder().string() +
                      "\nFolder of your files: " + session::WriteFolder().string() +
                      "\n\nDatabase: " + name_or_none(the_session.DatabaseFile) +
                      "\nProject: " + name_or_none(the_session.ProjectFile) + "\nProtocol file: " +
                      name_or_none(the_session.ProtocolFile) + "\n\nQt " + std::string(qVersion()),
                  "Information", dialogs::Icon::Information);
}

void LoadLastSession() {
    if (!session::FileExists(the_session.LastSessionFile)) {
        dialogs::Tell("There is no last session yet:\n" + the_session.LastSessionFile,
                      "Execution not possible");
        return;
    }
    load_project(the_session.LastSessionFile);
}

void LoadProject() {
    if (const std::optional<std::string> file = session::projectHooks().choose())
        load_project(*file);
}

void SaveProject() {
    session::projectHooks().save();
}

}  // namespace frame_commands

}  // namespace quor::app
