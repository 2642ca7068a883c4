#include "datafiles/views/editor_views.h"
#include "common/dialogs.h"

#include <QApplication>

#include "datafiles/views/frmBankEdit.h"
#include "datafiles/views/frmCmnDlg.h"
#include "datafiles/views/frmManuInput.h"
#include "session/actions.h"
#include "session/views/shell.h"

namespace editor_views {

namespace {

// The editor stands in front of the view that asks for it.
void open_substance_data(bool readOnly) {
    QWidget* asking = QApplication::activeModalWidget();
    frmBankEdit view(readOnly, asking != nullptr ? asking : shell::FrameWindow());
    shell::OpenModal(view);
}

void open_xy_editor() {
    if (auto* view = qobject_cast<frmManuInput*>(shell::FindView("frmManuInput"))) {
        view->showList();
        shell::Activate("frmManuInput");
        return;
    }
    shell::OpenChild(new frmManuInput);
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
        return frmCmnDlg::Serves(choice) ? frmCmnDlg::Choose(choice) : others(choice);
    };
}

}  // namespace editor_views
