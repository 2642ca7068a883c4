#include "gui/estimation/estimation_views.h"

#include "gui/estimation/fit_view.h"
#include "gui/estimation/group_contribution_view.h"
#include "gui/widgets/desk.h"

namespace quor::gui {

namespace estimation_views {

namespace {

using datafiles::GroupFrame;

constexpr auto kFitView = "frmQFitting";

FitView* shownFit(Desk& desk) {
    if (auto* view = desk.find<FitView>(kFitView)) {
        view->loadPoints();
        desk.activate(kFitView);
        return view;
    }
    auto* view = new FitView(desk);
    desk.openChild(view);
    return view;
}

}  // namespace

void install(Desk& desk) {
    desk.doors.fit = [&desk] { shownFit(desk); };
    desk.doors.estimate = [&desk](GroupFrame frame, datafiles::EditorTexts& texts,
                                  QWidget* parent) {
        GroupContributionView view(desk, frame, &texts, parent);
        desk.openModal(view);
    };
}

void openFitting(Desk& desk) {
    shownFit(desk)->showChosenTab();
}

void openGroups(Desk& desk, GroupFrame frame) {
    GroupContributionView view(desk, frame, nullptr, desk.frameWindow());
    desk.openModal(view);
}

}  // namespace estimation_views

}  // namespace quor::gui
