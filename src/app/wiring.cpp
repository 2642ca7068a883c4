#include "app/wiring.h"

#include "gui/calculation/calculation_views.h"
#include "gui/data/editor_views.h"
#include "gui/diagrams/diagram_window.h"
#include "gui/diagrams/state_chart_window.h"
#include "gui/estimation/estimation_views.h"
#include "gui/models/reference_state_dialog.h"
#include "gui/session/options_dialog.h"
#include "gui/surfaces/surface_window.h"
#include "gui/widgets/settings.h"
#include "session/calculations.h"
#include "session/substance_session.h"

namespace quor::app {

namespace wiring {

namespace {

using gui::Desk;

template <class Dialog>
void show(Desk& desk) {
    Dialog dialog(desk, desk.frameWindow());
    desk.openModal(dialog);
}

void addCalculations(Desk& desk, Commands& commands) {
    for (int code = 1; code < calculation::kTaskCount; ++code) {
        const calculation::Task task = calculation::task_of_code(code);
        if (task == calculation::Task::temperatureOnly) continue;
        commands.add("CalcMode_" + std::to_string(code), [&desk, task] {
            session::run_calculation(desk.session(), task, desk.calculationViews);
        });
    }
}

void addEditors(Desk& desk, Commands& commands) {
    commands.add("mnuData_EditStoffdaten", [&desk] { desk.doors.editSubstance(); });
    commands.add("mnuData_BatchInput", [&desk] { desk.doors.newMeasuredData(); });
    commands.add("mnuData_BatchEdit", [&desk] { desk.doors.editMeasuredData(); });
    commands.add("mnuData_EditXY", [&desk] { desk.doors.editXy(); });
}

void addEstimation(Desk& desk, Commands& commands) {
    using datafiles::GroupFrame;
    using gui::estimation_views::openGroups;
    commands.add("mnuFitting", [&desk] { gui::estimation_views::openFitting(desk); });
    commands.add("mnuData_JOBACK_CritData", [&desk] { openGroups(desk, GroupFrame::Critical); });
    commands.add("mnuData_JOBACK_bildung", [&desk] { openGroups(desk, GroupFrame::Formation); });
    commands.add("mnuData_JOBACK_cpIdG", [&desk] { openGroups(desk, GroupFrame::HeatCapacity); });
}

}  // namespace

void connectViews(Desk& desk, Commands& commands) {
    // A project names its database without a folder: those used lately are where it may lie.
    for (const QString& folder : gui::settings::databaseFolders())
        session::add_database_folder(desk.session(), folder.toStdString());
    desk.doors.chooseReference = [&desk] { show<gui::ReferenceStateDialog>(desk); };
    gui::calculation_views::install(desk);
    gui::diagram_views::install(desk);
    gui::editor_views::install(desk);
    gui::estimation_views::install(desk);

    addCalculations(desk, commands);
    addEditors(desk, commands);
    addEstimation(desk, commands);
    commands.add("Diagram2D", [&desk] { gui::diagram_views::openFromMenu(desk); });
    commands.add("StateChart", [&desk] { gui::StateChartWindow::openFromMenu(desk); });
    commands.add("Diagram3D", [&desk] { gui::surface_views::openFromMenu(desk); });
    commands.add("frmReferenz", [&desk] { desk.doors.chooseReference(); });
    commands.add("mnuOptions", [&desk] { show<gui::OptionsDialog>(desk); });
}

}  // namespace wiring

}  // namespace quor::app
