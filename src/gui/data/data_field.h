#pragma once

#include <QLineEdit>

#include "datafiles/substance_editor.h"
#include "gui/widgets/field_mark.h"

namespace quor::gui {

/// A field of the substance editor: one value as text. Numbers take digits, sign, exponent and
/// point, a comma becomes a point, and units behind the number ("27 degC"), which are converted to
/// that of the record as the field is left; everything else is swallowed. A text that is no number
/// is marked as it is left. Names take every character, as many as the record holds.
class DataField : public QLineEdit {
    Q_OBJECT

  public:
    explicit DataField(const datafiles::EditorField& field, QWidget* parent = nullptr);

    /// True when the field can be read; else it is marked and gets the focus.
    bool check();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool markWrong();
    void convertTyped();
    QString withTyped(const QString& typed) const;

    const datafiles::EditorField& field_;
    FieldMark mark_{*this};
};

}  // namespace quor::gui
