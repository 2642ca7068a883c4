#include "gui/widgets/desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <algorithm>

#include "gui/widgets/settings.h"

namespace quor::gui {

namespace {

// A view inside the frame stands in a window of its own, which is what is shown and closed.
QWidget* outerWindow(QWidget* view) {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(view->parentWidget())) return sub;
    return view;
}

bool isShown(const QWidget* view) {
    return view->isVisible() || view->isMinimized();
}

}  // namespace

QWidget* Desk::frameWindow() const {
    return frame_ == nullptr ? nullptr : frame_->window();
}

void Desk::remember(QWidget* view) {
    std::erase_if(views_,
                  [&](const QPointer<QWidget>& one) { return one.isNull() || one == view; });
    views_.emplace_back(view);
}

void Desk::openChild(QWidget* view) {
    remember(view);
    if (frame_ != nullptr) {
        frame_->addChild(view);
        return;
    }
    view->setAttribute(Qt::WA_DeleteOnClose);
    view->show();
}

int Desk::openModal(QDialog& dialog) {
    const QString name = dialog.objectName();
    settings::restorePlace(&dialog, name);
    remember(&dialog);
    const int result = dialog.exec();
    std::erase_if(views_, [&](const QPointer<QWidget>& one) { return one == &dialog; });
    settings::rememberPlace(&dialog, name);
    return result;
}

void Desk::openDialog(QDialog* dialog) {
    remember(dialog);
    dialog->show();
}

QWidget* Desk::findView(const QString& name) const {
    for (const QPointer<QWidget>& view : views_)
        if (!view.isNull() && view->objectName() == name && isShown(outerWindow(view))) return view;
    return nullptr;
}

bool Desk::isOpen(const QWidget* view) const {
    // The pointer may be that of a view that has gone: compare first, look into it afterwards.
    return std::ranges::any_of(views_, [&](const QPointer<QWidget>& one) {
        return !one.isNull() && one == view && isShown(outerWindow(one));
    });
}

bool Desk::activate(const QString& name) {
    QWidget* view = findView(name);
    if (view == nullptr) return false;
    QWidget* window = outerWindow(view);
    window->show();
    window->raise();
    if (auto* sub = qobject_cast<QMdiSubWindow*>(window))
        sub->mdiArea()->setActiveSubWindow(sub);
    else
        window->activateWindow();
    view->setFocus(Qt::OtherFocusReason);
    return true;
}

bool Desk::closeViews(const QStringList& names) {
    bool all = true;
    // A name may stand for several views; one that refuses to close ends its row.
    for (const QString& name : names)
        while (QWidget* view = findView(name))
            if (!outerWindow(view)->close()) {
                all = false;
                break;
            }
    return all;
}

QStringList Desk::resultViews() {
    return {"frmCalcOut", "frmKessel", "frmCEOSDiagnose", "frmIsoCalc"};
}

QStringList Desk::inputViews() {
    return {"frmParinput", "frmTpVSInputBox"};
}

void Desk::refresh() {
    if (frame_ != nullptr) frame_->refresh();
}

void Desk::enter(QWidget* view) {
    leave(view);
    inUse_.push_back(view);
}

bool Desk::use(QWidget* view) {
    if (std::erase(inUse_, view) == 0) return false;
    inUse_.push_back(view);
    return true;
}

void Desk::leave(QWidget* view) {
    std::erase(inUse_, view);
}

bool Desk::showHelp(int topic) const {
    if (!doors.help) return false;
    doors.help(topic);
    return true;
}

void Desk::connectHelp(QAbstractButton* button, int topic) {
    button->setEnabled(static_cast<bool>(doors.help));
    QObject::connect(button, &QAbstractButton::clicked, button, [this, topic] { showHelp(topic); });
}

}  // namespace quor::gui
