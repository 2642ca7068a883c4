#pragma once

#include <QDialog>
#include <functional>

#include "diagrams/process_line.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace quor::gui {

class NumberEdit;

/// Input of a process line: start state, end of the range, phase, and for a polytropic process
/// its exponents. Accepted once the line is drawn; a refusal leaves the view open and the session
/// as it was. Ranges and vapour fractions are asked by `RangeInput`.
class ProcessLineDialog : public QDialog {
    Q_OBJECT

  public:
    /// What the view is opened for: a line in a diagram, or the calculation of a process.
    enum class Purpose { Line, Calculation };

    /// `legacy::the_processLine.Kind` says what is asked, 0 to 6. `draw` runs with the input in the
    /// session.
    ProcessLineDialog(Purpose purpose, std::function<void()> draw, QWidget* parent = nullptr);

  private:
    bool isLine() const;
    bool isPolytropic() const;
    bool mayBeHeterogeneous() const;
    bool asksForRange() const;

    QWidget* buildFields();
    QGroupBox* buildOptions(const QString& title, const QString& name, const QStringList& captions,
                            int chosen, QButtonGroup*& group);
    QGroupBox* buildExponents();
    void showStart();

    diagrams::ProcessInput input() const;
    bool chosen(const QButtonGroup* group, int index) const;
    /// Captions and fields after a choice.
    void follow();
    void continueLast(bool on);
    void offerKappa();
    void tellStart();
    void confirm();
    /// Asks the polytropic program; false when there is nothing to draw.
    bool runProgram();

    Purpose purpose_;
    std::function<void()> draw_;
    std::uint8_t kind_;
    QLabel* title_ = nullptr;
    NumberEdit* par_[4] = {};
    QLabel* parCaption_[4] = {};
    QLabel* parUnit_[4] = {};
    QButtonGroup *eos_ = nullptr, *region_ = nullptr, *phase_ = nullptr, *range_ = nullptr;
    QGroupBox* rangeFrame_ = nullptr;
    QComboBox* kappa_ = nullptr;
    NumberEdit* exponent_ = nullptr;
    QCheckBox* continue_ = nullptr;
    QPushButton* estimate_ = nullptr;
    QLabel* state_ = nullptr;
};

}  // namespace quor::gui
