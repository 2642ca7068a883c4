#include "datafiles/views/data_field.h"

#include <QFocusEvent>
#include <QTimer>
#include <QValidator>

#include "datafiles/substance_file.h"

namespace {

using LoadSaveData::EditorField;

constexpr int kDigitsShown = 12;
constexpr int kIndexName = 83, kIndexFormula = 84;

/// Lets through what the field takes, also from the clipboard, and never refuses a text.
class DataValidator : public QValidator {
  public:
    DataValidator(const EditorField& field, QObject* parent) : QValidator(parent), field_(field) {}

    State validate(QString& input, int& cursor) const override {
        if (input == "<>") return Acceptable;
        QString kept;
        int moved = cursor;
        for (int i = 0; i < input.size(); ++i) {
            const QChar typed = input.at(i);
            const bool sign = typed == ' ' && kept.isEmpty();  // stands where a minus would
            const auto taken = typed.unicode() < 0x80
                                   ? LoadSaveData::FilterKey(field_, typed.toLatin1())
                                   : std::nullopt;
            if (sign)
                kept += typed;
            else if (taken && typed.isPrint())
                kept += QLatin1Char(*taken);
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
    if (field.DD == kIndexName) return static_cast<int>(LoadSaveData::kNameLength);
    return static_cast<int>(field.DD == kIndexFormula ? LoadSaveData::kFormulaLength
                                                      : LoadSaveData::kCasrnLength);
}

}  // namespace

DataField::DataField(const EditorField& field, QWidget* parent)
    : QLineEdit(parent), isText_(field.IsText()) {
    setObjectName(QString("DD_%1").arg(field.DD));
    setReadOnly(!field.editable);
    if (!field.editable) setToolTip("not editable");
    if (isText_) {
        setMaxLength(longest(field));
        return;
    }
    setAlignment(Qt::AlignLeft);
    setValidator(new DataValidator(field, this));
}

void DataField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    // The press that gives the focus sets the cursor afterwards, so the selection waits for it.
    if (event->reason() == Qt::MouseFocusReason)
        QTimer::singleShot(0, this, &QLineEdit::selectAll);
    else
        selectAll();
}

QSize DataField::sizeHint() const {
    const QSize usual = QLineEdit::sizeHint();
    return {fontMetrics().horizontalAdvance('0') * kDigitsShown + usual.height() / 2,
            usual.height()};
}

QSize DataField::minimumSizeHint() const {
    return sizeHint();
}
