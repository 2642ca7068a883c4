#include "common/views/child_view.h"

#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPushButton>

ChildView::ChildView(const QString& name, QWidget* parent) : QWidget(parent) {
    setObjectName(name);
}

void ChildView::closeView() {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget()))
        sub->close();
    else
        window()->close();
}

void ChildView::setDefaultButton(QPushButton* button) {
    if (default_ != nullptr) default_->setDefault(false);
    default_ = button;
    if (default_ != nullptr) default_->setDefault(true);
}

void ChildView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            cancel();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter: {
            auto* focused = qobject_cast<QPushButton*>(focusWidget());
            QPushButton* button = focused != nullptr ? focused : default_;
            if (button != nullptr && button->isEnabled() && button->isVisible()) {
                button->click();
                return;
            }
            break;
        }
        default:
            break;
    }
    QWidget::keyPressEvent(event);
}
