#include "gui/widgets/field_mark.h"

#include <QAction>
#include <QLineEdit>
#include <QPalette>
#include <QStyle>
#include <QToolTip>

#include "gui/widgets/theme.h"

namespace quor::gui {

void FieldMark::set(const QString& message) {
    clear();
    sign_ = field_.addAction(field_.style()->standardIcon(QStyle::SP_MessageBoxWarning),
                             QLineEdit::TrailingPosition);
    sign_->setToolTip(message);
    toolTip_ = field_.toolTip();
    field_.setToolTip(message);
    field_.setAccessibleDescription(message);
    QPalette colours = field_.palette();
    colours.setColor(QPalette::Text, theme::errorColour());
    field_.setPalette(colours);
    if (field_.isVisible())
        QToolTip::showText(field_.mapToGlobal(QPoint(0, field_.height())), message, &field_);
}

void FieldMark::clear() {
    if (sign_ == nullptr) return;
    field_.removeAction(sign_);
    sign_->deleteLater();
    sign_ = nullptr;
    field_.setToolTip(toolTip_);
    field_.setAccessibleDescription({});
    field_.setPalette({});
}

}  // namespace quor::gui
