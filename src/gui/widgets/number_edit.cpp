#include "gui/widgets/number_edit.h"

#include <QAction>
#include <QFocusEvent>
#include <QPalette>
#include <QRegularExpressionValidator>
#include <QStyle>
#include <QTimer>
#include <QToolTip>

#include "common/numbers.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

// What may stand in a field while it is typed.
const QRegularExpression& typedNumber() {
    static const QRegularExpression form(
        QStringLiteral("\\s*[+-]?\\d*[.,]?\\d*([eEdD][+-]?\\d*)?\\s*"));
    return form;
}

const QRegularExpression& wholeNumber() {
    static const QRegularExpression form(
        QStringLiteral("^\\s*[+-]?(\\d+[.,]?\\d*|[.,]\\d+)([eEdD][+-]?\\d+)?\\s*$"));
    return form;
}

constexpr int kDigitsShown = 14;

}  // namespace

NumberEdit::NumberEdit(QWidget* parent) : QLineEdit(parent) {
    setValidator(new QRegularExpressionValidator(typedNumber(), this));
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textEdited, this, &NumberEdit::clearMark);
}

double NumberEdit::value() const {
    return numbers::val_input(text().toStdString());
}

bool NumberEdit::holdsNumber() const {
    return wholeNumber().match(text()).hasMatch();
}

void NumberEdit::setValue(double value) {
    setText(QString::fromStdString(numbers::general(value)).trimmed());
    clearMark();
}

void NumberEdit::setMark(const QString& message) {
    clearMark();
    mark_ = addAction(style()->standardIcon(QStyle::SP_MessageBoxWarning), TrailingPosition);
    mark_->setToolTip(message);
    setToolTip(message);
    setAccessibleDescription(message);
    QPalette colours = palette();
    colours.setColor(QPalette::Text, theme::errorColour());
    setPalette(colours);
    if (isVisible()) QToolTip::showText(mapToGlobal(QPoint(0, height())), message, this);
}

bool NumberEdit::isMarked() const {
    return mark_ != nullptr;
}

void NumberEdit::clearMark() {
    if (mark_ == nullptr) return;
    removeAction(mark_);
    mark_->deleteLater();
    mark_ = nullptr;
    setToolTip({});
    setAccessibleDescription({});
    setPalette({});
}

void NumberEdit::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // The press that gives the focus sets the cursor afterwards, so the selection waits for it.
    if (event->reason() == Qt::MouseFocusReason)
        QTimer::singleShot(0, this, &QLineEdit::selectAll);
    else
        selectAll();
}

QSize NumberEdit::sizeHint() const {
    const QSize usual = QLineEdit::sizeHint();
    return {fontMetrics().horizontalAdvance('0') * kDigitsShown + usual.height(), usual.height()};
}

bool markWrongNumber(std::span<NumberEdit* const> fields, bool mayBeEmpty) {
    for (NumberEdit* field : fields) {
        const bool empty = field->text().trimmed().isEmpty();
        if (field->isHidden() || field->holdsNumber() || (empty && mayBeEmpty)) continue;
        field->setMark(empty ? "A number is needed" : "This is not a number");
        field->setFocus();
        return true;
    }
    return false;
}

}  // namespace quor::gui
