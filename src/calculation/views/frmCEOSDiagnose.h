#pragma once

#include <array>

#include "common/views/child_view.h"

class IsothermPlot;
class QLabel;

/// The solutions of the cubic equation of state at the last T and p: the isotherm and its roots.
class frmCEOSDiagnose : public ChildView {
    Q_OBJECT

  public:
    explicit frmCEOSDiagnose(QWidget* parent = nullptr);

    /// Shows the last state.
    void open();

  private:
    /// A row of the roots: "v(1) =", its value and what it stands for.
    struct Row {
        QLabel* caption = nullptr;
        QLabel* value = nullptr;
        QLabel* note = nullptr;
    };

    IsothermPlot* plot_ = nullptr;
    QLabel* state_ = nullptr;
    QLabel* legend_ = nullptr;
    std::array<Row, 3> rows_;
};
