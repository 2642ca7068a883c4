#pragma once

#include <QDialog>

class QLabel;

namespace quor::gui {

class NumberEdit;

/// Small input for the parameter of the next curve: T of an isotherm, p of an isobar, v of an
/// isochore. Accepted with a valid value, which is then in the session.
class CurveParameterDialog : public QDialog {
    Q_OBJECT

  public:
    explicit CurveParameterDialog(std::int16_t sectionKind, QWidget* parent = nullptr);

    /// True when the curve is to be drawn at once.
    bool drawNow() const { return drawNow_; }

  private:
    void confirm(bool draw);

    std::int16_t sectionKind_;
    NumberEdit* value_ = nullptr;
    QLabel* hint_ = nullptr;
    bool drawNow_ = false;
};

}  // namespace quor::gui
