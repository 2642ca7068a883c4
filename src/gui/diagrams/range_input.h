#pragma once

#include <QDialog>

#include "diagrams/parameter_input.h"

class QLabel;

namespace quor::gui {

class NumberEdit;

/// The view `ProcessLineDialog` in its small forms: the range of a function-function diagram,
/// or a vapour fraction. Accepted with a valid input.
class RangeInput : public QDialog {
    Q_OBJECT

  public:
    /// What is asked for a range: the section, the present parameters and range, and the limits
    /// that are proposed.
    struct Range {
        diagrams::Section section = diagrams::Section::none;
        diagrams::Basis basis;  ///< in the units of the sheet
        diagrams::StateParameters at;
        diagrams::ProcessLine line;
        diagrams::CoordinateDefaults limits;
    };
    explicit RangeInput(const Range& range, QWidget* parent = nullptr);
    /// Asks for a vapour fraction.
    explicit RangeInput(QWidget* parent = nullptr);

    double vapourFraction() const;
    /// Parameters and range as they were taken.
    const Range& range() const { return range_; }

  private:
    void build();
    void askRange();
    void askFraction();
    NumberEdit* field(int index, const QString& caption, const QString& unit, double value);
    void makeQuantity(NumberEdit* edit, diagrams::Section section);
    void confirm();

    Range range_;
    bool fraction_;
    NumberEdit* par_[3] = {};
    class QGridLayout* grid_ = nullptr;
    QLabel* hint_ = nullptr;
};

}  // namespace quor::gui
