#include "session/views/frame_commands.h"

#include <QApplication>

#include "common/dialogs.h"
#include "common/views/settings.h"
#include "datafiles/database.h"
#include "datafiles/session_status.h"
#include "datafiles/views/frmStoffWahl.h"
#include "models/model_choice.h"
#include "models/views/frmQModell.h"
#include "session/commands.h"
#include "session/declare.h"
#include "session/module2.h"
#include "session/project_hooks.h"
#include "session/views/frmTip.h"
#include "session/views/shell.h"

namespace frame_commands {

namespace {

using Declare::Command;
using Declare::session;

void show(const LoadSaveData::Report& report) {
    dialogs::Tell(report.text, report.title, dialogs::Icon::Information);
}

void close_results_and_input() {
    shell::CloseViews(shell::ResultViews() + shell::InputViews());
}

// The commands of a session that a project has restored.
void enable_restored_session() {
    Module2::SetCommands({Command::mnuData_Status, Command::mnuStoff, Command::mnuModel,
                          Command::mnuData_EditStoffdaten, Command::mnuData_BatchInput,
                          Command::mnuData_SaveProject},
                         true);
    Calc::EnableModelCommands();
    session.ProjectLoaded = true;
    Module2::RefreshUnits();
}

void load_project(const std::string& file) {
    close_results_and_input();
    Module2::ResetSession();
    if (Module2::projectHooks().load(file)) {
        enable_restored_session();
        if (file != session.LastSessionFile) settings::rememberFile(QString::fromStdString(file));
    }
    shell::Refresh();
}

}  // namespace

void OpenDatabase() {
    close_results_and_input();
    if (LoadSaveData::LoadDatabase() != LoadSaveData::LoadOutcome::Loaded) return;
    settings::rememberFile(QString::fromStdString(session.DatabasePath));
    settings::rememberDatabaseFolder(
        QString::fromStdString(Module2::FolderOf(session.DatabasePath)));
    // The substance of the former database has no place in this one.
    session.CurrentSubstance = 0;
    session.SubstanceSet = false;
    Module2::SetCommands({Command::mnuModel, Command::mnuCalcMain, Command::mnuOptions,
                          Command::mnuFitting, Command::mnu2D, Command::mnu3D},
                         false);
    Module2::SetCommands(
        {Command::mnuStoff, Command::mnuData_EditStoffdaten, Command::mnuData_BatchInput}, true);
    ChooseSubstance();
}

void ChooseSubstance() {
    frmStoffWahl view(shell::FrameWindow());
    if (shell::OpenModal(view) != QDialog::Accepted) return;
    close_results_and_input();
    ChooseModels();
}

void ChooseModels() {
    frmQModell view(shell::FrameWindow());
    shell::OpenModal(view);
    shell::Refresh();
}

void ShowStatus() {
    show(LoadSaveData::StatusReport());
}

void ShowParameters() {
    show(LoadSaveData::ParameterReport());
}

void ShowTips() {
    frmTip::ShowOnRequest();
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
    dialogs::Tell("Program folder: " + Module2::ProgramFolder().string() +
                      "\nFolder of your files: " + Module2::WriteFolder().string() +
                      "\n\nDatabase: " + name_or_none(session.DatabaseFile) +
                      "\nProject: " + name_or_none(session.ProjectFile) + "\nProtocol file: " +
                      name_or_none(session.ProtocolFile) + "\n\nQt " + std::string(qVersion()),
                  "Information", dialogs::Icon::Information);
}

void LoadLastSession() {
    if (!Module2::FileExists(session.LastSessionFile)) {
        dialogs::Tell("There is no last session yet:\n" + session.LastSessionFile,
                      "Execution not possible");
        return;
    }
    load_project(session.LastSessionFile);
}

void LoadProject() {
    if (const std::optional<std::string> file = Module2::projectHooks().choose())
        load_project(*file);
}

void SaveProject() {
    Module2::projectHooks().save();
}

}  // namespace frame_commands
