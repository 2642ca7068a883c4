#pragma once

#include <QLineEdit>
#include <span>

#include "gui/widgets/field_mark.h"

namespace quor::gui {

/// A field for one number: takes digits, sign, exponent, and point or comma as the decimal mark.
/// What looks like a number but cannot be read as one, such as "1.000,5" or "3 000", is marked
/// where it stands and has no value. It selects its text when it gets the focus and can carry a
/// mark with a message while it holds a wrong value.
class NumberEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit NumberEdit(QWidget* parent = nullptr);

    /// The number typed; 0 when the text is not one number from end to end.
    double value() const;
    /// True when the text is a number in itself, without a rest behind it.
    bool holdsNumber() const;
    /// Shows a number in general format with the locale's decimal mark.
    void setValue(double value);

    /// Marks the field with a message where it stands; typing takes the mark away.
    void setMark(const QString& message);
    bool isMarked() const;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    QSize sizeHint() const override;

  private:
    FieldMark mark_{*this};
};

/// Marks the first visible field whose text is no number, and gives it the focus. True when there
/// is one; an empty field is none as long as `mayBeEmpty`.
bool markWrongNumber(std::span<NumberEdit* const> fields, bool mayBeEmpty = true);

}  // namespace quor::gui
