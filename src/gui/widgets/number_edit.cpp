#include "gui/widgets/number_edit.h"

#include <QFocusEvent>
#include <QRegularExpressionValidator>
#include <QTimer>
#include <utility>

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
    explicit NumberValidator(QObject* parent,
                             std::optional<models::Dimension> dimension = std::nullopt)
        : QRegularExpressionValidator(typedNumber(), parent), dimension_(dimension) {}

    State validate(QString& input, int& cursor) const override {
        static const QRegularExpression characters(
            QStringLiteral("^[0-9.,eEdD+\\-\\s'\u00a0\u2009\u202f\u2019]*$"));
        static const QRegularExpression withUnit(
            QStringLiteral("^\\s*[-+.,\\d][-+.,\\d\\s]*([eE][-+]?\\d+)?\\s*"
                           "(?<unit>[A-Za-z°][A-Za-z0-9°/^()³²·*\\s]*)$"));
        const State state = QRegularExpressionValidator::validate(input, cursor);
        if (state != Invalid) return state;
        const auto match = dimension_ ? withUnit.match(input) : QRegularExpressionMatch();
        if (match.hasMatch() &&
            models::begins_unit(*dimension_, match.captured("unit").toStdString()))
            return Acceptable;
        return characters.match(input).hasMatch() ? Intermediate : Invalid;
    }

  private:
    std::optional<models::Dimension> dimension_;  // whose units may stand behind the number
};

constexpr auto kNotOneNumber =
    "This cannot be read as one number: a point or a comma may stand once, as the decimal mark";
constexpr int kDigitsShown = 14;
constexpr int kDigitsConverted = 12;  // without the dust of a conversion

}  // namespace

NumberEdit::NumberEdit(QWidget* parent) : QLineEdit(parent) {
    setValidator(new NumberValidator(this));
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textEdited, this, [this] {
        mark_.clear();
        if (!hasAcceptableInput()) mark_.set(kNotOneNumber);
    });
    connect(this, &QLineEdit::editingFinished, this, &NumberEdit::convertTyped);
}

void NumberEdit::setQuantity(models::Dimension dimension, const models::Scale& scale,
                             const models::Fluid& fluid) {
    if (!quantity_ || quantity_->dimension != dimension) {
        delete validator();
        setValidator(new NumberValidator(this, dimension));
    }
    const std::optional<Quantity> before =
        std::exchange(quantity_, Quantity{dimension, scale, fluid});
    if (!before || before->dimension != dimension || before->scale == scale) return;
    const auto typed = numbers::typed_number(text().toStdString());
    if (!typed) return;
    if (!written_ || text() != converted_) written_ = {text(), before->scale};
    const auto number = numbers::typed_number(written_->text.toStdString());
    if (!number) return;
    converted_ = written_->scale == scale
                     ? written_->text
                     : QString::fromStdString(numbers::general(
                           scale.shown(written_->scale.value(*number)), kDigitsConverted));
    setText(converted_);
}

Result<double> NumberEdit::read() const {
    const std::string typed = text().toStdString();
    if (quantity_)
        return models::typed_value(typed, quantity_->dimension, quantity_->scale, quantity_->fluid);
    if (const auto number = numbers::typed_number(typed)) return *number;
    return Failure{"This is not a number"};
}

std::string NumberEdit::numberText() const {
    if (!quantity_ || numbers::typed_number(text().toStdString())) return text().toStdString();
    const Result<double> value = read();
    return value ? numbers::general(*value, kDigitsConverted) : text().toStdString();
}

void NumberEdit::convertTyped() {
    if (!quantity_ || text().trimmed().isEmpty()) return;
    if (!holdsNumber()) return mark_.set(whatIsWrong());
    const QString number = QString::fromStdString(numberText());
    if (number == text()) return;
    setText(number);
    setModified(true);  // as it was typed
}

double NumberEdit::value() const {
    const Result<double> value = read();
    return value ? *value : 0;
}

QString NumberEdit::whatIsWrong() const {
    const Result<double> value = read();
    return value ? QString() : QString::fromStdString(value.reason());
}

bool NumberEdit::holdsNumber() const {
    return static_cast<bool>(read());
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
        if (!field->isHidden()) field->convertTyped();
        if (field->isHidden() || field->holdsNumber() || (empty && mayBeEmpty)) continue;
        field->setMark(empty ? "A number is needed" : field->whatIsWrong());
        field->setFocus();
        return true;
    }
    return false;
}

}  // namespace quor::gui
