#pragma once

#include <QDialog>
#include <array>

class NumberEdit;

/// Input of the coefficients of the manual virial form B = b0 - b1/T^b2.
class frmBParInput : public QDialog {
    Q_OBJECT

  public:
    /// Shows the present coefficients.
    explicit frmBParInput(QWidget* parent = nullptr);

    double coefficient(std::size_t index) const;

  private:
    void confirm();

    std::array<NumberEdit*, 3> fields_{};
};
