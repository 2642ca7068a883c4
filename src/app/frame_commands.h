#pragma once

class QWidget;

namespace quor::app {

/// What the commands of the main window do, one function a command.
namespace frame_commands {

/// "Open Database" and "New project": choose a database, then a substance and the models.
void OpenDatabase();
/// Substance choice, followed by the model choice.
void ChooseSubstance();
void ChooseModels();

void ShowStatus();
void ShowParameters();
void ShowTips();
void ShowAbout();
void ShowInformation();

/// Projects; the reader and writer are hooks of session/project_hooks.h.
void LoadLastSession();
void LoadProject();
void SaveProject();

}  // namespace frame_commands

}  // namespace quor::app
