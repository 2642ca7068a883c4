#pragma once

#include <array>

#include "gui/widgets/child_view.h"
#include "gui/widgets/follows_session.h"
#include "models/units.h"

class QLabel;

namespace quor::gui {

class IsothermPlot;

/// The solutions of the cubic equation of state at the last T and p: the isotherm and its roots.
class DiagnosisView : public ChildView, public FollowsSession {
    Q_OBJECT

  public:
    explicit DiagnosisView(Desk& desk, QWidget* parent = nullptr);

    /// Shows the last state.
    void open();
    /// Tells it in the present units.
    void followSession() override;

  private:
    void print();

    /// A row of the roots: "v(1) =", its value and what it stands for.
    struct Row {
        QLabel* caption = nullptr;
        QLabel* value = nullptr;
        QLabel* note = nullptr;
    };

    models::Units units_;  ///< of the state in view
    IsothermPlot* plot_ = nullptr;
    QLabel* state_ = nullptr;
    QLabel* legend_ = nullptr;
    std::array<Row, 3> rows_;
};

}  // namespace quor::gui
