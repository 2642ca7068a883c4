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
#include "gui/widgets/settings.h"
#include "gui/widgets/shell.h"
#include "gui/widgets/theme.h"
#include "legacy/declare.h"
#include "session/actions.h"
#include "session/calculations.h"
#include "session/shutdown.h"

namespace quor::gui {

namespace calculation_views {

namespace {

using legacy::the_session;

constexpr auto kCurveInput = "mnuData_EditXY";  // action of the XY editor

template <class View>
View* open_view(const QString& name) {
    return qobject_cast<View*>(shell::findView(name));
}

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
void open_or_renew(const QString& name, Corner corner) {
    if (View* view = open_view<View>(name)) {
        view->open();
        shell::activate(name);
        return;
    }
    auto* view = new View;
    shell::openChild(view);
    place(view, corner);
}

void open_result() {
    if (auto* view = open_view<ResultView>("frmCalcOut")) {
        view->open();
        shell::activate("frmCalcOut");
        return;
    }
    ResultCommands commands;
    commands.openIsoCalculator = [] {
        const auto [T, p] = typedTp();
        open_iso_calculator(T, p);
    };
    commands.openDiagnosis = OpenDiagnosis;
    commands.refreshDiagnosis = refreshDiagnosis;
    if (actions::has(kCurveInput)) commands.openCurveInput = [] { actions::Run(kCurveInput); };
    auto* view = new ResultView(std::move(commands), legacy::the_calculationViews);
    shell::openChild(view);
    place(view, Corner::TopRight);
}

void show_result() {
    auto* view = open_view<ResultView>("frmCalcOut");
    if (view == nullptr) {
        open_result();
        return;
    }
    view->showResult();
    shell::activate("frmCalcOut");
}

void open_input() {
    if (auto* view = open_view<DirectInputView>("frmParinput")) {
        view->open();
        shell::activate("frmParinput");
        return;
    }
    auto* view = new DirectInputView(legacy::the_calculationViews);
    shell::openChild(view);
    place(view, Corner::TopLeft);
}

void open_tank() {
    open_or_renew<TankView>("frmKessel", Corner::BottomLeft);
}

// The input of the reference point stands in front of the view that asks for it.
std::optional<models::BensonPoint> ask_reference(const models::BensonPoint& present) {
    QDialog dialog(shell::frameWindow());
    dialog.setObjectName("frmParinput");
    std::optional<models::BensonPoint> typed;
    auto* input =
        new DirectInputView(present, [&typed](const models::BensonPoint& point) { typed = point; });
    input->setObjectName("frmParinput_form");
    dialog.setWindowTitle(input->windowTitle());
    auto* layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins({});
    layout->addWidget(input);
    shell::openModal(dialog);
    return typed;
}

void register_rows() {
    for (int code = 1; code < calculation::kTaskCount; ++code) {
        const calculation::Task task = calculation::task_of_code(code);
        if (task == calculation::Task::temperatureOnly) continue;
        actions::register_action("CalcMode_" + std::to_string(code), [task] {
            session::run_calculation(task, legacy::the_calculationViews);
        });
    }
}

}  // namespace

void Install() {
    session::CalculationViews& views = legacy::the_calculationViews;
    views.openCalcIn = [] { return OpenCalcIn(false); };
    views.openResultView = open_result;
    views.showResultView = show_result;
    views.closeResultView = [] { shell::closeViews({"frmCalcOut"}); };
    views.openParinput = open_input;
    views.closeParinput = [] { shell::closeViews({"frmParinput"}); };
    views.openTankView = open_tank;
    views.closeTankView = [] { shell::closeViews({"frmKessel"}); };
    register_rows();
    session::shutdown_hooks().writeProtocol = session::close_protocol;
}

bool OpenCalcIn(bool forDiagram) {
    PartialChoiceDialog view(session::open_partial_choice(), ask_reference, shell::frameWindow());
    if (shell::openModal(view) != QDialog::Accepted) return false;
    session::confirm_partial_choice(view.choice(), forDiagram, legacy::the_calculationViews);
    return true;
}

bool OpenCalcIn(calculation::Task task, bool forDiagram) {
    calculation::Task& present = the_session.calculation.task;
    const calculation::Task before = std::exchange(present, task);
    const bool goesOn = OpenCalcIn(forDiagram);
    present = before;
    return goesOn;
}

std::pair<std::string, std::string> typedTp() {
    const auto* input = open_view<DirectInputView>("frmParinput");
    if (input == nullptr || the_session.calculation.input != report::InputKind::state) return {};
    return {input->fieldText(0), input->fieldText(1)};
}

void open_iso_calculator(const std::string& T, const std::string& p) {
    const auto start = session::iso_start(T, p);
    if (!start) return;
    auto* view = open_view<IsoCalculatorView>("frmIsoCalc");
    if (view != nullptr) {
        view->open(*start);
        shell::activate("frmIsoCalc");
        return;
    }
    std::function<void()> curve;
    if (actions::has(kCurveInput)) curve = [] { actions::Run(kCurveInput); };
    view = new IsoCalculatorView(*start, refreshResult, curve);
    shell::openChild(view);
    place(view, Corner::BottomLeft);
}

void OpenDiagnosis() {
    open_or_renew<DiagnosisView>("frmCEOSDiagnose", Corner::BottomLeft);
}

void refreshResult() {
    if (auto* view = open_view<ResultView>("frmCalcOut")) view->showResult();
}

void refreshDiagnosis() {
    if (auto* view = open_view<DiagnosisView>("frmCEOSDiagnose")) view->open();
}

}  // namespace calculation_views

}  // namespace quor::gui
