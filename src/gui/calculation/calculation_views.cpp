#include "gui/calculation/calculation_views.h"

#include <QDialog>
#include <QMdiSubWindow>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "gui/calculation/diagnosis_view.h"
#include "gui/calculation/direct_input_view.h"
#include "gui/calculation/iso_calculator_view.h"
#include "gui/calculation/partial_choice_dialog.h"
#include "gui/calculation/result_view.h"
#include "gui/calculation/tank_view.h"
#include "gui/widgets/desk.h"
#include "gui/widgets/settings.h"
#include "gui/widgets/theme.h"
#include "session/calculations.h"

namespace quor::gui {

namespace calculation_views {

namespace {

// Where a view stands on first use. Later its place is the one that the user gave it.
enum class Corner { TopLeft, TopRight, BottomLeft, BottomRight };

void place(QWidget* view, Corner corner) {
    auto* window = qobject_cast<QMdiSubWindow*>(view->parentWidget());
    if (window == nullptr || settings::store().contains("Place/" + view->objectName())) return;
    const QSize room = window->parentWidget()->size();
    window->adjustSize();
    window->resize(window->size().boundedTo(room).expandedTo(view->layout()->totalMinimumSize()));
    const bool right = corner == Corner::TopRight || corner == Corner::BottomRight;
    const bool bottom = corner == Corner::BottomLeft || corner == Corner::BottomRight;
    const QSize rest = room - window->size();
    const auto along = [](int space, bool end) {
        return end ? std::max(space - theme::kMargin, 0)
                   : std::min(theme::kMargin, std::max(space, 0));
    };
    window->move(along(rest.width(), right), along(rest.height(), bottom));
}

/// Shows a view anew: the open one, or a new one in its corner.
template <class View>
void openOrRenew(Desk& desk, const QString& name, Corner corner) {
    if (View* view = desk.find<View>(name)) {
        view->open();
        desk.activate(name);
        return;
    }
    auto* view = new View(desk);
    desk.openChild(view);
    place(view, corner);
}

void openResult(Desk& desk) {
    if (auto* view = desk.find<ResultView>("frmCalcOut")) {
        view->open();
        desk.activate("frmCalcOut");
        return;
    }
    ResultCommands commands;
    commands.openIsoCalculator = [&desk] { openIsoCalculator(desk); };
    commands.openDiagnosis = [&desk] { openDiagnosis(desk); };
    commands.refreshDiagnosis = [&desk] { refreshDiagnosis(desk); };
    auto* view = new ResultView(desk, std::move(commands));
    desk.openChild(view);
    place(view, Corner::TopRight);
}

void showResult(Desk& desk) {
    auto* view = desk.find<ResultView>("frmCalcOut");
    if (view == nullptr) {
        openResult(desk);
        return;
    }
    view->showResult();
    desk.activate("frmCalcOut");
}

void openInput(Desk& desk) {
    if (auto* view = desk.find<DirectInputView>("frmParinput")) {
        view->open();
        desk.activate("frmParinput");
        return;
    }
    auto* view = new DirectInputView(desk);
    desk.openChild(view);
    place(view, Corner::TopLeft);
}

void openTank(Desk& desk) {
    openOrRenew<TankView>(desk, "frmKessel", Corner::BottomLeft);
}

// The input of the reference point stands in front of the view that asks for it.
std::optional<models::BensonPoint> askReference(Desk& desk, const models::BensonPoint& present) {
    QDialog dialog(desk.frameWindow());
    dialog.setObjectName("frmParinput");
    std::optional<models::BensonPoint> typed;
    auto* input = new DirectInputView(
        desk, present, [&typed](const models::BensonPoint& point) { typed = point; });
    input->setObjectName("frmParinput_form");
    dialog.setWindowTitle(input->windowTitle());
    auto* layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins({});
    layout->addWidget(input);
    desk.openModal(dialog);
    return typed;
}

}  // namespace

void install(Desk& desk) {
    session::CalculationViews& views = desk.calculationViews;
    views.open_partial_choice = [&desk] { return openPartialChoice(desk, false); };
    views.open_result_view = [&desk] { openResult(desk); };
    views.show_result_view = [&desk] { showResult(desk); };
    views.close_result_view = [&desk] { desk.closeViews({"frmCalcOut"}); };
    views.open_direct_input = [&desk] { openInput(desk); };
    views.close_direct_input = [&desk] { desk.closeViews({"frmParinput"}); };
    views.open_tank_view = [&desk] { openTank(desk); };
    views.close_tank_view = [&desk] { desk.closeViews({"frmKessel"}); };
}

bool openPartialChoice(Desk& desk, bool forDiagram) {
    session::Session& session = desk.session();
    const auto ask = [&desk](const models::BensonPoint& present) {
        return askReference(desk, present);
    };
    PartialChoiceDialog view(desk, session::open_partial_choice(session), ask, desk.frameWindow());
    if (desk.openModal(view) != QDialog::Accepted) return false;
    session::confirm_partial_choice(session, view.choice(), forDiagram, desk.calculationViews);
    return true;
}

bool openPartialChoice(Desk& desk, calculation::Task task, bool forDiagram) {
    session::Session& session = desk.session();
    const calculation::Task before = session->calculation.task;
    session.change()->calculation.task = task;
    const bool goesOn = openPartialChoice(desk, forDiagram);
    session.change()->calculation.task = before;
    return goesOn;
}

void openIsoCalculator(Desk& desk) {
    const auto start = session::iso_start(desk.session());
    if (!start) return;
    auto* view = desk.find<IsoCalculatorView>("frmIsoCalc");
    if (view != nullptr) {
        view->open(*start);
        desk.activate("frmIsoCalc");
        return;
    }
    view = new IsoCalculatorView(desk, *start, [&desk] { refreshResult(desk); });
    desk.openChild(view);
    place(view, Corner::BottomLeft);
}

void openDiagnosis(Desk& desk) {
    openOrRenew<DiagnosisView>(desk, "frmCEOSDiagnose", Corner::BottomLeft);
}

void refreshResult(Desk& desk) {
    if (auto* view = desk.find<ResultView>("frmCalcOut")) view->showResult();
}

void refreshDiagnosis(Desk& desk) {
    if (auto* view = desk.find<DiagnosisView>("frmCEOSDiagnose")) view->open();
}

}  // namespace calculation_views

}  // namespace quor::gui
