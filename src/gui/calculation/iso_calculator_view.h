#pragma once

#include <functional>

#include "gui/widgets/child_view.h"
#include "gui/widgets/follows_session.h"
#include "report/iso_calculator.h"

class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;

namespace quor::gui {

class NumberEdit;

/// The iso-calculator: from a calculated state it keeps one function of a phase constant, takes a
/// new T or p and finds the other.
class IsoCalculatorView : public ChildView, public FollowsSession {
    Q_OBJECT

  public:
    /// `showResult` shows a new state.
    IsoCalculatorView(Desk& desk, const calculation::ProcessPoint& start,
                      std::function<void()> showResult, QWidget* parent = nullptr);

    /// Starts anew from the state at T and p.
    void open(const calculation::ProcessPoint& start);

    /// Calculates the last state anew when the fluid or the reference state changed, and tells it
    /// in the present units.
    void followSession() override;

  private:
    QGroupBox* buildFunctions();
    QGroupBox* buildPhase();
    QGroupBox* buildGiven();
    QLayout* buildFields();
    QLayout* buildButtons();
    void follow();
    void followUnits();
    void setQuantities();
    void calculate();
    void reset();
    void showState();

    std::function<void()> showResult_;
    report::IsoCalculator iso_;
    QButtonGroup* function_ = nullptr;
    QButtonGroup* phase_ = nullptr;
    QButtonGroup* given_ = nullptr;
    QLabel* constantLabel_ = nullptr;
    NumberEdit* constant_ = nullptr;
    QLabel* givenLabel_ = nullptr;
    NumberEdit* givenValue_ = nullptr;
    QLabel* soughtLabel_ = nullptr;
    QLineEdit* sought_ = nullptr;
    QLabel* state_ = nullptr;
};

}  // namespace quor::gui
