#include "gui/estimation/estimation_views.h"

#include "gui/data/measured_data_editor.h"
#include "gui/data/substance_editor_view.h"
#include "gui/estimation/fit_view.h"
#include "gui/estimation/group_contribution_view.h"
#include "gui/widgets/shell.h"
#include "session/actions.h"

namespace quor::gui {

namespace estimation_views {

namespace {

using datafiles::GroupFrame;

constexpr int kFourthPage = 3;

FitView* open_fitting() {
    if (auto* view = qobject_cast<FitView*>(shell::findView("frmQFitting"))) {
        view->loadPoints();
        shell::activate("frmQFitting");
        return view;
    }
    auto* view = new FitView;
    shell::openChild(view);
    return view;
}

void open_groups(GroupFrame frame) {
    GroupContributionView view(frame, nullptr, shell::frameWindow());
    shell::openModal(view);
}

}  // namespace

void Install() {
    actions::register_action("mnuFitting", [] {
        // The row has left the experimental data.
        MeasuredDataEditor::followSession();
        open_fitting()->showTab(kFourthPage);
    });
    actions::register_action("fit_data", [] { open_fitting(); });
    actions::register_action("mnuData_JOBACK_CritData", [] { open_groups(GroupFrame::Critical); });
    actions::register_action("mnuData_JOBACK_bildung", [] { open_groups(GroupFrame::Formation); });
    actions::register_action("mnuData_JOBACK_cpIdG", [] { open_groups(GroupFrame::HeatCapacity); });
    SubstanceEditorView::setGroupContributions(
        [](GroupFrame frame, datafiles::EditorTexts& texts, QWidget* parent) {
            GroupContributionView view(frame, &texts, parent);
            shell::openModal(view);
        });
}

}  // namespace estimation_views

}  // namespace quor::gui
