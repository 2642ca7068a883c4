#include "gui/widgets/child_view.h"

#include <QKeyEvent>
#include <QLayout>
#include <QMdiSubWindow>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "gui/widgets/form.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

ChildView::ChildView(Desk& desk, const QString& name, QWidget* parent)
    : QWidget(parent), desk_(desk), session_(desk.session()) {
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

QPushButton* ChildView::printButton(std::function<void()> print) {
    print_ = std::move(print);
    QPushButton* button = form::button("Print", "cmdPrint");
    button->setIcon(theme::icon("print"));
    button->setToolTip("Prints what the view shows, to a printer or a PDF file (Ctrl+P)");
    connect(button, &QPushButton::clicked, this, [this] { print_(); });
    return button;
}

void ChildView::keyPressEvent(QKeyEvent* event) {
    if (print_ && event->matches(QKeySequence::Print)) {
        print_();
        return;
    }
    switch (event->key()) {
        case Qt::Key_Escape:
            cancel();
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter: {
            // A field with a command of its own has already run it.
            if (focusWidget() != nullptr && focusWidget()->property(kTakesReturn).toBool()) return;
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

void ChildView::fitWindow() {
    if (layout() == nullptr || !isVisible()) return;
    auto* sub = qobject_cast<QMdiSubWindow*>(parentWidget());
    QWidget* outer = sub != nullptr ? sub : window();
    if (outer->isMaximized() || outer->isMinimized()) return;
    layout()->activate();
    QSize needed = layout()->totalMinimumSize().expandedTo(size());
    if (hugs_) needed.setHeight(layout()->totalSizeHint().height());
    if (needed == size()) return;
    outer->resize(outer->size() + needed - size());
    if (sub == nullptr) return;
    // What has grown stays within the frame as far as there is room.
    const QSize rest = sub->parentWidget()->size() - sub->size();
    sub->move(std::max(0, std::min(sub->x(), rest.width())),
              std::max(0, std::min(sub->y(), rest.height())));
}

void ChildView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    fitWindow();
}

}  // namespace quor::gui
