#pragma once

#include <QLineEdit>
#include <optional>
#include <span>
#include <string>

#include "gui/widgets/field_mark.h"
#include "models/unit_text.h"

namespace quor::gui {

/// A field for one number: takes digits, sign, exponent, and point or comma as the decimal mark.
/// What looks like a number but cannot be read as one, such as "1.000,5" or "3 000", is marked
/// where it stands and has no value. A field of a quantity takes numbers with their units as well,
/// "27 degC" or "3 MPa(g)", and turns them into its own unit. It selects its text when it gets the
/// focus and can carry a mark with a message while it holds a wrong value.
class NumberEdit : public QLineEdit {
    Q_OBJECT

  public:
    explicit NumberEdit(QWidget* parent = nullptr);

    /// Makes this the field of a quantity in a unit. A number in it is converted from the unit
    /// before; back in a unit in which it was typed it is what was typed.
    void setQuantity(models::Dimension dimension, const models::Scale& scale,
                     const models::Fluid& fluid);
    /// The unit of the field; none without a quantity.
    const models::Scale* scale() const { return quantity_ ? &quantity_->scale : nullptr; }
    /// What is typed, as a plain number in the unit of the field; a text that is none stays as it
    /// is.
    std::string numberText() const;

    /// A number with its unit becomes one in the unit of the field, as when the field is left.
    void convertTyped();

    /// The number typed; 0 when the text is not one number from end to end.
    double value() const;
    /// True when the text is a number in itself, without a rest behind it.
    bool holdsNumber() const;
    /// Why it is none; empty for a number.
    QString whatIsWrong() const;
    /// Shows a number in general format with the locale's decimal mark.
    void setValue(double value);

    /// Marks the field with a message where it stands; typing takes the mark away.
    void setMark(const QString& message);
    bool isMarked() const;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    QSize sizeHint() const override;

  private:
    struct Quantity {
        models::Dimension dimension;
        models::Scale scale;
        models::Fluid fluid;
    };
    /// A text with the unit that it was written in.
    struct Written {
        QString text;
        models::Scale scale;
    };
    Result<double> read() const;

    FieldMark mark_{*this};
    std::optional<Quantity> quantity_;
    std::optional<Written> written_;  ///< before the first conversion of what stands there
    QString converted_;               ///< what that has become
};

/// Marks the first visible field whose text is no number, and gives it the focus; numbers with
/// units are converted. True when there
/// is one; an empty field is none as long as `mayBeEmpty`.
bool markWrongNumber(std::span<NumberEdit* const> fields, bool mayBeEmpty = true);

}  // namespace quor::gui
