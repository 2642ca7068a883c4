#include "gui/data/editor_views.h"
#include "common/dialogs.h"

#include <QApplication>

#include "gui/data/file_view.h"
#include "gui/data/measured_data_editor.h"
#include "gui/data/substance_editor_view.h"
#include "gui/data/xy_editor.h"
#include "gui/widgets/desk.h"

namespace quor::gui {

namespace editor_views {

namespace {

constexpr auto kXyEditor = "frmManuInput";

// The editor stands in front of the view that asks for it.
void openSubstanceData(Desk& desk, bool readOnly) {
    QWidget* asking = QApplication::activeModalWidget();
    SubstanceEditorView view(desk, readOnly, asking != nullptr ? asking : desk.frameWindow());
    desk.openModal(view);
}

void openXyEditor(Desk& desk) {
    if (auto* view = desk.find<XyEditor>(kXyEditor)) {
        view->showList();
        desk.activate(kXyEditor);
        return;
    }
    desk.openChild(new XyEditor(desk));
}

}  // namespace

void install(Desk& desk) {
    desk.doors.editSubstance = [&desk] { openSubstanceData(desk, false); };
    desk.doors.showSubstance = [&desk] { openSubstanceData(desk, true); };
    desk.doors.newMeasuredData = [&desk] { MeasuredDataEditor::openNew(desk); };
    desk.doors.editMeasuredData = [&desk] { MeasuredDataEditor::openPresent(desk); };
    desk.doors.editXy = [&desk] { openXyEditor(desk); };
}

void installFileView(Desk& desk) {
    dialogs::current().file =
        [&desk, others = dialogs::current().file](const dialogs::FileChoice& choice) {
            return FileView::serves(choice) ? FileView::choose(desk, choice) : others(choice);
        };
}

}  // namespace editor_views

}  // namespace quor::gui
