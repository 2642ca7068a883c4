#pragma once

#include <QWidget>
#include <array>

#include "estimation/fit_state.h"

#include "estimation/fit_models.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QToolButton;

namespace quor::gui {

class NumberEdit;

/// The rows of parameters of the fitting view: start value, mark "fixed", result, standard
/// deviation, confidence interval; below them Tcr and pcr. It shows the state of the fit and writes
/// what is typed back to it.
class FitParameterRows : public QWidget {
    Q_OBJECT

  public:
    /// Shows `fit`, which must outlive it.
    explicit FitParameterRows(estimation::FitState& fit, QWidget* parent = nullptr);

    /// Shows the rows of the chosen model with their start values and marks; results stay.
    void showSettings();
    void showStartValues();
    void showResults();
    /// Brings the typed start values, Tcr and pcr into the state.
    void read();

  Q_SIGNALS:
    /// The user has changed the state; `step` says what.
    void changed(const QString& step);

  private:
    struct Row {
        QLabel* label;
        NumberEdit* start;
        QCheckBox* fixed;
        QLineEdit* result;
        QLineEdit* stdDev;
        QLineEdit* interval;
        QToolButton* left;
    };
    Row buildRow(QGridLayout* grid, int i);
    void keepPlaces();
    /// Takes what was typed into a field as one step, no longer the field's own.
    void finish(NumberEdit* field, double& value, const QString& step);
    void finishStart(int i);
    void finishCritical();
    QString nameOf(int i) const;
    void fix(int i, bool fixed);
    void shade(int i);
    void takeResult(int i);
    void takeAllResults();

    std::array<Row, estimation::kMaxPar> rows_{};
    std::array<QLabel*, 4> resultHeads_{};
    QToolButton* leftAll_ = nullptr;
    QLabel* TcrCaption_ = nullptr;
    NumberEdit* Tcr_ = nullptr;
    QLabel* pcrCaption_ = nullptr;
    NumberEdit* pcr_ = nullptr;
    estimation::FitState& fit_;
};

}  // namespace quor::gui
