#pragma once

#include "gui/widgets/child_view.h"
#include "gui/widgets/follows_session.h"
#include "report/result.h"

class QGroupBox;
class QLabel;

namespace quor::gui {

class TankDrawing;

/// The tank with its filling level, its phases and its pressure.
class TankView : public ChildView, public FollowsSession {
    Q_OBJECT

  public:
    explicit TankView(Desk& desk, QWidget* parent = nullptr);

    /// Shows the tank of the last calculation.
    void open();
    /// Tells the tank in the present units.
    void followSession() override;

  private:
    void showTank();
    QWidget* buildLegend();
    void print();

    report::TaskResult result_;  ///< a later calculation of another kind does not change it
    QGroupBox* frame_ = nullptr;
    TankDrawing* drawing_ = nullptr;
    QLabel* given_ = nullptr;
    QLabel* level_ = nullptr;
    QLabel* pressure_ = nullptr;
    QLabel* hint_ = nullptr;
    QLabel* upper_ = nullptr;
    QLabel* upperColour_ = nullptr;
    QLabel* lower_ = nullptr;
    QLabel* lowerColour_ = nullptr;
};

}  // namespace quor::gui
