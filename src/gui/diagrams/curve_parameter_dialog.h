#pragma once

#include <QDialog>

#include "diagrams/parameter_input.h"

class QLabel;

namespace quor::gui {

class NumberEdit;

/// Small input for the parameter of the next curve: T of an isotherm, p of an isobar, v of an
/// isochore. Accepted with a valid value.
class CurveParameterDialog : public QDialog {
    Q_OBJECT

  public:
    /// `at` are the present parameters, of which the section has one.
    CurveParameterDialog(diagrams::Section section, const diagrams::Basis& basis,
                         const diagrams::StateParameters& at, QWidget* parent = nullptr);

    /// The parameters with the value that was taken.
    const diagrams::StateParameters& parameters() const { return at_; }

    /// True when the curve is to be drawn at once.
    bool drawNow() const { return drawNow_; }

  private:
    void confirm(bool draw);

    diagrams::Section section_;
    diagrams::Basis basis_;
    diagrams::StateParameters at_;
    NumberEdit* value_ = nullptr;
    QLabel* hint_ = nullptr;
    bool drawNow_ = false;
};

}  // namespace quor::gui
