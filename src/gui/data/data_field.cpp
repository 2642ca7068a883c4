#include "gui/data/data_field.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QTimer>
#include <QValidator>

#include "common/numbers.h"
#include "datafiles/substance_file.h"
#include "models/unit_text.h"

namespace quor::gui {

namespace {

using datafiles::EditorField;

constexpr int kDigitsShown = 12;
constexpr int kIndexName = 83, kIndexFormula = 84;

/// What a field takes for a typed character, nothing for one that it swallows.
std::optional<QChar> filtered(const EditorField& field, QChar typed) {
    if (typed.unicode() >= 0x80) return std::nullopt;
    const std::optional<char> taken = datafiles::filter_key(field, typed.toLatin1());
    return taken && typed.isPrint() ? std::optional<QChar>(QLatin1Char(*taken)) : std::nullopt;
}

/// True for a number with what may become a unit of the field's quantity: "27 deg".
bool mayGetUnit(const EditorField& field, const QString& text) {
    const auto dimension = models::dimension_of_unit(field.unit);
    const std::string typed = text.toStdString();
    const std::string_view unit = models::unit_part(typed);
    return dimension && !unit.empty() && unit.size() < typed.size() &&
           models::begins_unit(*dimension, unit);
}

/// Lets through what the field takes, also from the clipboard, and never refuses a text.
class DataValidator : public QValidator {
  public:
    DataValidator(const EditorField& field, QObject* parent) : QValidator(parent), field_(field) {}

    State validate(QString& input, int& cursor) const override {
        if (input == "<>" || mayGetUnit(field_, input)) return Acceptable;
        QString kept;
        int moved = cursor;
        for (int i = 0; i < input.size(); ++i) {
            const std::optional<QChar> taken = filtered(field_, input.at(i));
            const bool sign = input.at(i) == ' ' && kept.isEmpty();  // stands where a minus would
            if (sign || taken)
                kept += sign ? QChar(' ') : *taken;
            else if (i < cursor)
                --moved;
        }
        input = kept;
        cursor = moved;
        return Acceptable;
    }

  private:
    const EditorField& field_;
};

int longest(const EditorField& field) {
    if (field.index == kIndexName) return static_cast<int>(datafiles::kNameLength);
    return static_cast<int>(field.index == kIndexFormula ? datafiles::kFormulaLength
                                                         : datafiles::kCasrnLength);
}

}  // namespace

DataField::DataField(const EditorField& field, QWidget* parent) : QLineEdit(parent), field_(field) {
    setObjectName(QString("DD_%1").arg(field.index));
    setReadOnly(!field.editable);
    if (!field.editable) setToolTip("not editable");
    if (field.is_text()) {
        setMaxLength(longest(field));
        return;
    }
    setAlignment(Qt::AlignLeft);
    setValidator(new DataValidator(field, this));
    connect(this, &QLineEdit::textChanged, this, [this] { mark_.clear(); });
    connect(this, &QLineEdit::editingFinished, this, [this] { markWrong(); });
}

// A number with its unit becomes one in the unit of the record.
void DataField::convertTyped() {
    const auto dimension = models::dimension_of_unit(field_.unit);
    const std::string typed = text().toStdString();
    if (!dimension || models::unit_part(typed).empty()) return;
    const auto value =
        models::typed_value(typed, *dimension, models::Scale{1, 0, field_.unit}, models::Fluid());
    constexpr int kDigits = 12;
    if (value)
        setText(QString::fromStdString(numbers::comma_to_point(numbers::general(*value, kDigits))));
}

bool DataField::markWrong() {
    if (!field_.is_text()) convertTyped();
    if (datafiles::holds_value(field_, text().toStdString())) return false;
    mark_.set("This cannot be read as a number");
    return true;
}

bool DataField::check() {
    if (!markWrong()) return true;
    setFocus();
    return false;
}

void DataField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // The press that gives the focus sets the cursor afterwards, so the selection waits for it.
    if (event->reason() == Qt::MouseFocusReason)
        QTimer::singleShot(0, this, &QLineEdit::selectAll);
    else
        selectAll();
}

// The text as it would stand with what was typed.
QString DataField::withTyped(const QString& typed) const {
    QString all = text();
    if (hasSelectedText())
        all.replace(selectionStart(), selectionLength(), typed);
    else
        all.insert(cursorPosition(), typed);
    return all;
}

// A key that is swallowed leaves what is selected.
void DataField::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const bool command =
        event->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (!field_.is_text() && !command && typed.size() == 1 && typed.at(0).isPrint() &&
        !filtered(field_, typed.at(0)) && !mayGetUnit(field_, withTyped(typed))) {
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

QSize DataField::sizeHint() const {
    const QSize usual = QLineEdit::sizeHint();
    return {fontMetrics().horizontalAdvance('0') * kDigitsShown + usual.height() / 2,
            usual.height()};
}

QSize DataField::minimumSizeHint() const {
    return sizeHint();
}

}  // namespace quor::gui
