#pragma once

#include <array>

#include "gui/widgets/child_view.h"

class QLabel;

namespace quor::gui {

class IsothermPlot;

/// The solutions of the cubic equation of state at the last T and p: the isotherm and its roots.
class DiagnosisView : public ChildView {
    Q_OBJECT

  public:
    explicit DiagnosisView(Desk& desk, QWidget* parent = nullptr);

    /// Shows the last state.
    void open();

  private:
    void print();

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

}  // namespace quor::gui
