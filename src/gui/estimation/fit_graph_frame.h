#pragma once

#include <QGroupBox>
#include <array>
#include <string>

#include "estimation/fit_state.h"

#include "chart/chart2d.h"

class QCheckBox;
class QLabel;
class QRadioButton;

namespace quor::gui {

class NumberEdit;

}  // namespace quor::gui

namespace quor::chart {
class Chart2DPlot;
}  // namespace quor::chart

namespace quor::gui {

/// Graphs and single values of a fitted function.
class FitGraphFrame : public QGroupBox {
    Q_OBJECT

  public:
    /// Shows `fit`, which must outlive it.
    explicit FitGraphFrame(const estimation::FitState& fit, QWidget* parent = nullptr);

    /// Shows the function of the last fit; without one the frame is hidden.
    void showFit();

    const chart::Chart2D& shown() const { return chart_; }
    /// The graph as a drawing for the printer.
    std::string drawing() const;

  private:
    QWidget* buildCalculator();
    void showFunction();
    void showResiduals();
    void showLnp();
    void display(chart::Chart2D chart);
    void calculate();

    chart::Chart2D chart_;
    chart::Chart2DPlot* plot_ = nullptr;
    QCheckBox* relative_ = nullptr;
    std::array<QRadioButton*, 2> direction_{};
    NumberEdit* value_ = nullptr;
    QLabel* result_ = nullptr;
    const estimation::FitState& fit_;
};

}  // namespace quor::gui
