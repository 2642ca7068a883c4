#pragma once

#include <QDialog>
#include <array>

#include "diagrams/diagram_sheet.h"

namespace quor::gui {

class NumberEdit;

/// The four limits of a diagram. Accepted when the sheet has taken them.
class CoordinatesDialog : public QDialog {
    Q_OBJECT

  public:
    explicit CoordinatesDialog(diagrams::DiagramSheet& sheet, QWidget* parent = nullptr);

  private:
    void confirm();

    diagrams::DiagramSheet& sheet_;
    std::array<NumberEdit*, 4> coord_{};
};

}  // namespace quor::gui
