#pragma once

#include <QDialog>
#include <array>

#include "models/model_selection.h"

namespace quor::gui {

class NumberEdit;

/// Input of the coefficients of the manual virial form B = b0 - b1/T^b2.
class ManualVirialDialog : public QDialog {
    Q_OBJECT

  public:
    /// Shows the present coefficients.
    explicit ManualVirialDialog(const models::ManualVirial& present, QWidget* parent = nullptr);

    models::ManualVirial coefficients() const;

  private:
    void confirm();

    std::array<NumberEdit*, 3> fields_{};
};

}  // namespace quor::gui
