#include "gui/data/editor_views.h"
#include "common/dialogs.h"

#include <QApplication>

#include "gui/data/file_view.h"
#include "gui/data/substance_editor_view.h"
#include "gui/data/xy_editor.h"
#include "gui/widgets/shell.h"
#include "session/actions.h"

namespace quor::gui {

namespace editor_views {

namespace {

// The editor stands in front of the view that asks for it.
void open_substance_data(bool readOnly) {
    QWidget* asking = QApplication::activeModalWidget();
    SubstanceEditorView view(readOnly, asking != nullptr ? asking : shell::frameWindow());
    shell::openModal(view);
}

void open_xy_editor() {
    if (auto* view = qobject_cast<XyEditor*>(shell::findView("frmManuInput"))) {
        view->showList();
        shell::activate("frmManuInput");
        return;
    }
    shell::openChild(new XyEditor);
}

}  // namespace

void Install() {
    actions::register_action("mnuData_EditStoffdaten", [] { open_substance_data(false); });
    actions::register_action("ShowSubstanceData", [] { open_substance_data(true); });
    actions::register_action("mnuData_EditXY", open_xy_editor);
}

void installFileView() {
    dialogs::current().file = [others =
                                   dialogs::current().file](const dialogs::FileChoice& choice) {
        return FileView::serves(choice) ? FileView::Choose(choice) : others(choice);
    };
}

}  // namespace editor_views

}  // namespace quor::gui
