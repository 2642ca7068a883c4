#include "estimation/views/estimation_views.h"

#include "datafiles/views/frmBankEdit.h"
#include "estimation/views/frmJOBACK.h"
#include "estimation/views/frmQFitting.h"
#include "session/actions.h"
#include "session/views/shell.h"

namespace estimation_views {

namespace {

using LoadSaveData::GroupFrame;

constexpr int kFourthPage = 3;

frmQFitting* open_fitting() {
    if (auto* view = qobject_cast<frmQFitting*>(shell::FindView("frmQFitting"))) {
        view->loadPoints();
        shell::Activate("frmQFitting");
        return view;
    }
    auto* view = new frmQFitting;
    shell::OpenChild(view);
    return view;
}

void open_groups(GroupFrame frame) {
    frmJOBACK view(frame, nullptr, shell::FrameWindow());
    shell::OpenModal(view);
}

}  // namespace

void Install() {
    actions::RegisterAction("mnuFitting", [] { open_fitting()->showTab(kFourthPage); });
    actions::RegisterAction("fit_data", [] { open_fitting(); });
    actions::RegisterAction("mnuData_JOBACK_CritData", [] { open_groups(GroupFrame::Critical); });
    actions::RegisterAction("mnuData_JOBACK_bildung", [] { open_groups(GroupFrame::Formation); });
    actions::RegisterAction("mnuData_JOBACK_cpIdG", [] { open_groups(GroupFrame::HeatCapacity); });
    frmBankEdit::SetGroupContributions(
        [](GroupFrame frame, LoadSaveData::EditorTexts& texts, QWidget* parent) {
            frmJOBACK view(frame, &texts, parent);
            shell::OpenModal(view);
        });
}

}  // namespace estimation_views
