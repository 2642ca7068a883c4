#pragma once

#include <QString>

class QAction;
class QLineEdit;

namespace quor::gui {

/// The mark of a field with a wrong content: a warning sign with a message in it, and the text in
/// the colour of errors.
class FieldMark {
  public:
    /// For `field`, which outlives the mark.
    explicit FieldMark(QLineEdit& field) : field_(field) {}

    void set(const QString& message);
    void clear();
    bool isSet() const { return sign_ != nullptr; }

  private:
    QLineEdit& field_;
    QAction* sign_ = nullptr;
    QString toolTip_;  ///< of the field without the mark
};

}  // namespace quor::gui
