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
    SubstanceEditorView view(readOnly, asking != nullptr ? asking : shell::FrameWindow());
    shell::OpenModal(view);
}

void open_xy_editor() {
    if (auto* view = qobject_cast<XyEditor*>(shell::FindView("frmManuInput"))) {
        view->showList();
        shell::Activate("frmManuInput");
        return;
    }
    shell::OpenChild(new XyEditor);
}

}  // namespace

void Install() {
    actions::RegisterAction("mnuData_EditStoffdaten", [] { open_substance_data(false); });
    actions::RegisterAction("ShowSubstanceData", [] { open_substance_data(true); });
    actions::RegisterAction("mnuData_EditXY", open_xy_editor);
}

void InstallFileView() {
    dialogs::current().file = [others =
                                   dialogs::current().file](const dialogs::FileChoice& choice) {
        return FileView::Serves(choice) ? FileView::Choose(choice) : others(choice);
    };
}

}  // namespace editor_views

}  // namespace quor::gui
