#pragma once

#include <QLineEdit>

#include "datafiles/substance_editor.h"

/// A field of the substance editor: one value as text. Numbers take digits, sign, exponent and
/// point, a comma becomes a point, everything else is swallowed; names take every character, as
/// many as the record holds.
class DataField : public QLineEdit {
    Q_OBJECT

  public:
    explicit DataField(const LoadSaveData::EditorField& field, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    const LoadSaveData::EditorField& field_;
};
