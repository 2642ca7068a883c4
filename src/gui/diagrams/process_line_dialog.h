#pragma once

#include <QDialog>
#include <functional>

#include "common/paths.h"
#include "diagrams/polytropic_exchange.h"
#include "diagrams/process_line.h"
#include "diagrams/sheet_draw.h"
#include "diagrams/sheet_units.h"

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;

namespace quor::gui {

class NumberEdit;

/// Input of a process line: start state, end of the range, phase, and for a polytropic process
/// its exponents. Accepted once the line is drawn; a refusal leaves the view open and nothing
/// changed. Ranges and vapour fractions are asked by `RangeInput`.
class ProcessLineDialog : public QDialog {
    Q_OBJECT

  public:
    /// What the view is opened for: a line in a diagram, or the calculation of a process.
    enum class Purpose { Line, Calculation };

    /// What the view works on.
    struct Task {
        Purpose purpose = Purpose::Line;
        diagrams::Pen pen;
        const diagrams::Diagram* diagram = nullptr;  ///< nullptr: none is open
        diagrams::StateParameters at;                ///< proposed for the start of the line
        diagrams::ProcessLine line;  ///< what was typed last; its kind says what is asked
        char separator = ';';
        Places places{};  ///< where the polytropic program and its files lie
        /// What the axes of the diagram show, where these are single quantities.
        std::optional<diagrams::AxisQuantity> x{}, y{};
    };
    /// `draw` runs with the line that was taken.
    ProcessLineDialog(Task task, std::function<void(const diagrams::ProcessLine&)> draw,
                      QWidget* parent = nullptr);

    /// From now on the polytropic program is started and waited for by `runner`.
    void setPolytropicRunner(diagrams::PolytropicRunner runner) { runner_ = std::move(runner); }

  private:
    /// The scale of T (even fields) or p (odd ones) of a state.
    const models::Scale& stateScale(int field) const;
    /// A number of a field in K or kPa, of a line in the units of the axes; NaN for none.
    double numberIn(int field) const;
    void show(int field, double value);
    void makeQuantity(int field);
    QString stateCaption(int field) const;

    bool isLine() const;
    bool isPolytropic() const;
    bool onlyVapour() const;
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
    Result<diagrams::ProcessLine, diagrams::PolytropicFailure> askProgram();
    /// Asks the polytropic program; false when there is nothing to draw.
    bool runProgram();

    Task task_;
    std::function<void(const diagrams::ProcessLine&)> draw_;
    diagrams::PolytropicRunner runner_ = diagrams::real_runner();
    diagrams::ProcessKind kind_;
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
    QCheckBox* metastable_ = nullptr;
    QLabel* state_ = nullptr;
};

}  // namespace quor::gui
