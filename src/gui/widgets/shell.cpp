#include "gui/widgets/shell.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "gui/widgets/settings.h"

namespace quor::gui {

namespace shell {

namespace {

Frame* frame = nullptr;
void (*helpPages)(int topic) = nullptr;

// A view inside the frame stands in a window of its own, which is what is shown and closed.
QWidget* outer_window(QWidget* view) {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(view->parentWidget())) return sub;
    return view;
}

bool is_open(const QWidget* view) {
    return view->isVisible() || view->isMinimized();
}

}  // namespace

void setFrame(Frame* newFrame) {
    frame = newFrame;
}

QWidget* frameWindow() {
    return frame == nullptr ? nullptr : frame->window();
}

void openChild(QWidget* view) {
    if (frame != nullptr) {
        frame->addChild(view);
        return;
    }
    view->setAttribute(Qt::WA_DeleteOnClose);
    view->show();
}

int openModal(QDialog& dialog) {
    const QString name = dialog.objectName();
    settings::restorePlace(&dialog, name);
    const int result = dialog.exec();
    settings::rememberPlace(&dialog, name);
    return result;
}

QWidget* findView(const QString& name) {
    for (QWidget* top : QApplication::topLevelWidgets()) {
        if (top->objectName() == name && is_open(top)) return top;
        for (const QMdiSubWindow* sub : top->findChildren<QMdiSubWindow*>()) {
            QWidget* view = sub->widget();
            if (view != nullptr && view->objectName() == name && is_open(sub)) return view;
        }
    }
    return nullptr;
}

bool isFormOpen(const QWidget* view) {
    if (view == nullptr) return false;
    const QWidgetList all = QApplication::allWidgets();
    // The pointer may be that of a view that has gone: compare first, look into it afterwards.
    for (QWidget* one : all)
        if (one == view) return is_open(outer_window(one));
    return false;
}

bool activate(const QString& name) {
    QWidget* view = findView(name);
    if (view == nullptr) return false;
    QWidget* window = outer_window(view);
    window->show();
    window->raise();
    if (auto* sub = qobject_cast<QMdiSubWindow*>(window))
        sub->mdiArea()->setActiveSubWindow(sub);
    else
        window->activateWindow();
    view->setFocus(Qt::OtherFocusReason);
    return true;
}

void closeViews(const QStringList& names) {
    // A name may stand for several views; one that refuses to close ends its row.
    for (const QString& name : names)
        while (QWidget* view = findView(name))
            if (!outer_window(view)->close()) break;
}

QStringList resultViews() {
    return {"frmCalcOut", "frmKessel", "frmCEOSDiagnose", "frmIsoCalc"};
}

QStringList inputViews() {
    return {"frmParinput", "frmTpVSInputBox"};
}

void Refresh() {
    if (frame != nullptr) frame->refresh();
}

bool helpAvailable() {
    return helpPages != nullptr;
}

bool showHelp(int topic) {
    if (helpPages == nullptr) return false;
    helpPages(topic);
    return true;
}

void connectHelp(QAbstractButton* button, int topic) {
    button->setEnabled(helpAvailable());
    QObject::connect(button, &QAbstractButton::clicked, button, [topic] { showHelp(topic); });
}

void setHelp(void (*show)(int topic)) {
    helpPages = show;
}

}  // namespace shell

}  // namespace quor::gui
