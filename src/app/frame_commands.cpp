#include "app/frame_commands.h"

#include <QApplication>

#include "app/tip_dialog.h"
#include "common/dialogs.h"
#include "gui/data/substance_dialog.h"
#include "gui/models/model_dialog.h"
#include "gui/widgets/settings.h"
#include "models/model_choice.h"
#include "session/commands.h"
#include "session/project_session.h"
#include "session/session_status.h"
#include "session/substance_session.h"
#include "session/take_models.h"

namespace quor::app {

namespace frame_commands {

namespace {

using gui::Desk;
using session::Command;
using session::Session;

void show(const session::Report& report) {
    dialogs::tell(report.text, report.title, dialogs::Icon::Information);
}

void closeResultsAndInput(Desk& desk) {
    desk.closeViews(Desk::resultViews() + Desk::inputViews());
}

/// The commands of a session that a project has restored. Where its substance could not be read
/// the user goes on from its database.
void enableRestoredSession(Session& session, const session::ProjectResult& project) {
    const auto now = session.change();
    session::set_commands(session,
                          {Command::status, Command::chooseSubstance, Command::substanceData,
                           Command::measuredDataInput},
                          true);
    session::set_commands(session, {Command::chooseModels}, project.substance_found);
    if (!project.models_complete) return;
    session::set_commands(session, {Command::chooseModels, Command::saveProject}, true);
    session::enable_model_commands(session);
}

void loadProject(Desk& desk, const std::string& file) {
    Session& session = desk.session();
    const auto prepared = session::prepare_project(session, file);
    if (!prepared || !session::may_leave_substance(session)) return;
    closeResultsAndInput(desk);
    const session::ProjectResult project = session::load_project(session, *prepared);
    enableRestoredSession(session, project);
    if (project.models_complete && file != session->last_session_file)
        gui::settings::rememberFile(QString::fromStdString(file));
}

void chooseModels(Desk& desk) {
    Session& session = desk.session();
    gui::ModelDialog::Session present{.editData = {}, .take = [&session](const auto& choice) {
                                          return session::take_models(session, choice);
                                      }};
    if (desk.doors.editSubstance)
        present.editData = [&desk] {
            desk.doors.editSubstance();
            return desk.session()->substance;
        };
    gui::ModelDialog view(desk, session->substance, session->models, std::move(present),
                          desk.frameWindow());
    desk.openModal(view);
}

void chooseSubstance(Desk& desk, const std::string& name = {}) {
    gui::SubstanceDialog view(desk, desk.frameWindow());
    if (!name.empty()) view.search(QString::fromStdString(name));
    if (desk.openModal(view) != QDialog::Accepted) return;
    closeResultsAndInput(desk);
    chooseModels(desk);
}

void open_database(Desk& desk, const std::string& name = {}) {
    Session& session = desk.session();
    closeResultsAndInput(desk);
    if (session::load_database(session) != session::LoadOutcome::Loaded) return;
    const std::string file = session->database.path().string();
    gui::settings::rememberFile(QString::fromStdString(file));
    gui::settings::rememberDatabaseFolder(QString::fromStdString(paths::folder_of(file)));
    {
        // The substance of the former database has no place in this one.
        const auto now = session.change();
        now->substance_number = 0;
        now->substance_set = false;
        session::set_commands(session,
                              {Command::chooseModels, Command::calculations, Command::options,
                               Command::fitting, Command::diagrams, Command::surfaces},
                              false);
        session::set_commands(
            session, {Command::chooseSubstance, Command::substanceData, Command::measuredDataInput},
            true);
    }
    chooseSubstance(desk, name);
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

void showInformation(const Session& session) {
    const auto nameOrNone = [](const std::string& s) { return s.empty() ? "none" : s; };
    dialogs::tell("Program folder: " + session.places().program_folder().string() +
                      "\nFolder of your files: " + session.places().write_folder().string() +
                      "\n\nDatabase: " + nameOrNone(session->database_file) +
                      "\nProject: " + nameOrNone(session->project_file) + "\nProtocol file: " +
                      nameOrNone(session->protocol.file) + "\n\nQt " + std::string(qVersion()),
                  "Information", dialogs::Icon::Information);
}

void loadLastSession(Desk& desk) {
    const std::string& file = desk.session()->last_session_file;
    if (!desk.session().places().file_exists(file)) {
        dialogs::refuse("There is no last session yet:\n" + file);
        return;
    }
    loadProject(desk, file);
}

void chooseProject(Desk& desk) {
    if (const auto file = session::choose_project(desk.session())) loadProject(desk, *file);
}

}  // namespace

void add(Desk& desk, Commands& commands) {
    Session& session = desk.session();
    desk.doors.chooseSubstance = [&desk](const std::string& name) {
        desk.session()->database.is_open() ? chooseSubstance(desk, name)
                                           : open_database(desk, name);
        desk.refresh();
    };
    commands.add("mnuData_OpenBank", [&desk] { open_database(desk); });
    commands.add("mnuData_Status", [&session] { show(session::status_report(session)); });
    commands.add("mnuData_LoadLastSession", [&desk] { loadLastSession(desk); });
    commands.add("mnuData_LoadProject", [&desk] { chooseProject(desk); });
    commands.add("mnuData_SaveProject", [&session] { session::save_project(session); });
    commands.add("mnuData_ParameterEOS", [&session] { show(session::parameter_report(session)); });
    commands.add("mnuStoff", [&desk] { chooseSubstance(desk); });
    commands.add("mnuModel", [&desk] { chooseModels(desk); });
    commands.add("mnuHilfe_About", showAbout);
    commands.add("mnuHilfe_Tip", [&desk] { TipDialog::showOnRequest(desk); });
    commands.add("mnuInfo", [&session] { showInformation(session); });
}

}  // namespace frame_commands

}  // namespace quor::app
