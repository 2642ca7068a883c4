#pragma once

#include <QDialog>

class QLabel;

namespace quor::gui {

class NumberEdit;

/// The view `ProcessLineDialog` in its small forms: the range of a function-function diagram,
/// or a vapour fraction. Accepted with a valid input, which is then in the session.
class RangeInput : public QDialog {
    Q_OBJECT

  public:
    /// `legacy::the_processLine.Kind` says what is asked: 7 the range, 8 the fraction.
    explicit RangeInput(std::int16_t sectionKind, QWidget* parent = nullptr);

    double vapourFraction() const;

  private:
    void askRange();
    void askFraction();
    NumberEdit* field(int index, const QString& caption, const QString& unit, double value);
    void confirm();

    std::int16_t sectionKind_;
    bool fraction_;
    NumberEdit* par_[3] = {};
    class QGridLayout* grid_ = nullptr;
    QLabel* hint_ = nullptr;
};

}  // namespace quor::gui
