#include "gui/calculation/calculation_views.h"

#include <QDialog>
#include <QMdiSubWindow>
#include <QVBoxLayout>
#include <algorithm>

#include "calculation/calc_modes.h"
#include "calculation/protocol.h"
#include "calculation/start_calculation.h"
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
#include "session/shutdown.h"

namespace quor::gui {

namespace calculation_views {

namespace {

using legacy::the_session;

constexpr std::int16_t kLastMode = 24, kDirectInput = 100;

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
    open_or_renew<ResultView>("frmCalcOut", Corner::TopRight);
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
    open_or_renew<DirectInputView>("frmParinput", Corner::TopLeft);
}

void open_tank() {
    open_or_renew<TankView>("frmKessel", Corner::BottomLeft);
}

// The input of the reference point stands in front of the view that asks for it.
void ask_reference() {
    QDialog dialog(shell::frameWindow());
    dialog.setObjectName("frmParinput");
    auto* input = new DirectInputView;
    input->setObjectName("frmParinput_form");
    dialog.setWindowTitle(input->windowTitle());
    auto* layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins({});
    layout->addWidget(input);
    shell::openModal(dialog);
}

void register_rows() {
    for (std::int16_t mode = 1; mode <= kLastMode; ++mode) {
        if (calculation::mode_of(mode).menu == calculation::Menu::None) continue;
        actions::register_action("CalcMode_" + std::to_string(mode),
                                 [mode] { calculation::run_calculation(mode); });
    }
}

}  // namespace

void Install() {
    calculation::Views& views = calculation::views();
    views.openCalcIn = [] { OpenCalcIn(false); };
    views.openResultView = open_result;
    views.showResultView = show_result;
    views.closeResultView = [] { shell::closeViews({"frmCalcOut"}); };
    views.openParinput = open_input;
    views.openReferenceInput = ask_reference;
    views.closeParinput = [] { shell::closeViews({"frmParinput"}); };
    views.openTankView = open_tank;
    views.closeTankView = [] { shell::closeViews({"frmKessel"}); };
    register_rows();
    session::shutdown_hooks().writeProtocol = calculation::close_protocol;
}

void OpenCalcIn(bool forDiagram) {
    PartialChoiceDialog view(forDiagram, shell::frameWindow());
    if (shell::openModal(view) == QDialog::Accepted)
        calculation::confirm_partial_choice(view.choice());
}

std::pair<std::string, std::string> typedTp() {
    const auto* input = open_view<DirectInputView>("frmParinput");
    if (input == nullptr || the_session.InputSituation <= kDirectInput) return {};
    return {input->fieldText(0), input->fieldText(1)};
}

void open_iso_calculator() {
    open_or_renew<IsoCalculatorView>("frmIsoCalc", Corner::BottomLeft);
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
