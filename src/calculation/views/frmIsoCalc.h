#pragma once

#include "calculation/iso_calculator.h"
#include "common/views/child_view.h"

class NumberEdit;
class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;

/// The iso-calculator: from a calculated state it keeps one function of a phase constant, takes a
/// new T or p and finds the other.
class frmIsoCalc : public ChildView {
    Q_OBJECT

  public:
    explicit frmIsoCalc(QWidget* parent = nullptr);

    /// Starts anew from the state in the direct input.
    void open();

  private:
    QGroupBox* buildFunctions();
    QGroupBox* buildPhase();
    QGroupBox* buildGiven();
    QLayout* buildFields();
    QLayout* buildButtons();
    void follow();
    void calculate();
    void reset();

    Zentrale::IsoCalculator iso_;
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
