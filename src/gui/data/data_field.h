#pragma once

#include <QLineEdit>

#include "datafiles/substance_editor.h"

namespace quor::gui {

/// A field of the substance editor: one value as text. Numbers take digits, sign, exponent and
/// point, a comma becomes a point, everything else is swallowed; names take every character, as
/// many as the record holds.
class DataField : public QLineEdit {
    Q_OBJECT

  public:
    explicit DataField(const datafiles::EditorField& field, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    const datafiles::EditorField& field_;
};

}  // namespace quor::gui
