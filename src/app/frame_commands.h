#pragma once

class QWidget;

namespace quor::app {

/// What the commands of the main window do, one function a command.
namespace frame_commands {

/// "Open Database" and "New project": choose a database, then a substance and the models.
void openDatabase();
/// Substance choice, followed by the model choice.
void chooseSubstance();
void chooseModels();

void showStatus();
void showParameters();
void showTips();
void showAbout();
void showInformation();

/// Projects; the reader and writer are hooks of session/project_hooks.h.
void load_last_session();
void LoadProject();
void save_project();

}  // namespace frame_commands

}  // namespace quor::app
