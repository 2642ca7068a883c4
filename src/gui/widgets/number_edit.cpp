#include "gui/widgets/number_edit.h"

#include <QFocusEvent>
#include <QRegularExpressionValidator>
#include <QTimer>

#include "common/numbers.h"

namespace quor::gui {

namespace {

// What may stand in a field while it is typed.
const QRegularExpression& typedNumber() {
    static const QRegularExpression form(
        QStringLiteral("\\s*[+-]?\\d*[.,]?\\d*([eEdD][+-]?\\d*)?\\s*"));
    return form;
}

// Lets stand what looks like a number but is none, so that it can be marked: "1.000,5".
class NumberValidator : public QRegularExpressionValidator {
  public:
    explicit NumberValidator(QObject* parent)
        : QRegularExpressionValidator(typedNumber(), parent) {}

    State validate(QString& input, int& cursor) const override {
        static const QRegularExpression characters(
            QStringLiteral("^[0-9.,eEdD+\\-\\s'\u00a0\u2009\u202f\u2019]*$"));
        const State state = QRegularExpressionValidator::validate(input, cursor);
        const bool stands = state == Invalid && characters.match(input).hasMatch();
        return stands ? Intermediate : state;
    }
};

constexpr auto kNotOneNumber =
    "This cannot be read as one number: a point or a comma may stand once, as the decimal mark";
constexpr int kDigitsShown = 14;

}  // namespace

NumberEdit::NumberEdit(QWidget* parent) : QLineEdit(parent) {
    setValidator(new NumberValidator(this));
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textEdited, this, [this] {
        mark_.clear();
        if (!hasAcceptableInput()) mark_.set(kNotOneNumber);
    });
}

double NumberEdit::value() const {
    return numbers::typed_number(text().toStdString()).value_or(0);
}

bool NumberEdit::holdsNumber() const {
    return numbers::typed_number(text().toStdString()).has_value();
}

void NumberEdit::setValue(double value) {
    setText(QString::fromStdString(numbers::general(value)).trimmed());
    mark_.clear();
}

void NumberEdit::setMark(const QString& message) {
    mark_.set(message);
}

bool NumberEdit::isMarked() const {
    return mark_.isSet();
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
