#pragma once

#include <QGroupBox>

#include "estimation/fit_state.h"

class QLabel;
class QTableWidget;

namespace quor::gui {

/// How good a fit is: sum of squares, residual standard deviation, deviations, what went wrong, and
/// how the parameters depend on each other.
class FitQualityFrame : public QGroupBox {
    Q_OBJECT

  public:
    /// Shows `fit`, which must outlive it.
    explicit FitQualityFrame(const estimation::FitState& fit, QWidget* parent = nullptr);

    /// Shows the figures of the last fit; without one the frame is hidden.
    void showFit();

  private:
    void showCorrelation();

    QLabel* sumOfSquares_ = nullptr;
    QLabel* sR_ = nullptr;
    QLabel* deviations_ = nullptr;
    QLabel* explanation_ = nullptr;
    QLabel* notes_ = nullptr;
    QLabel* correlationCaption_ = nullptr;
    QTableWidget* correlation_ = nullptr;
    const estimation::FitState& fit_;
};

}  // namespace quor::gui
