#pragma once

#include <QDialog>
#include <array>

#include "calculation/partial_choice.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace quor::gui {

/// Preparation of a phase equilibrium: global or partial calculation, the source of the L density,
/// and the second reference point of Benson's method. Accepted when the calculation goes on.
class PartialChoiceDialog : public QDialog {
    Q_OBJECT

  public:
    explicit PartialChoiceDialog(bool forDiagram, QWidget* parent = nullptr);

    const calculation::PartialChoice& choice() const { return choice_; }

    /// Where there is nothing to choose there is nothing to cancel either.
    void reject() override;

  private:
    QWidget* buildMode();
    QWidget* buildDensity();
    QWidget* buildReference();
    void arrange();
    void follow();
    void askReference();

    calculation::PartialChoice choice_;
    QLabel* situation_ = nullptr;
    QGroupBox* modeFrame_ = nullptr;
    std::array<QRadioButton*, 2> global_{};
    QLabel* limits_ = nullptr;
    QGroupBox* densityFrame_ = nullptr;
    std::array<QRadioButton*, 2> density_{};
    QLabel* range_ = nullptr;
    QGroupBox* referenceFrame_ = nullptr;
    std::array<QRadioButton*, 3> reference_{};
    QPushButton* input_ = nullptr;
    QLabel* proposal_ = nullptr;
    QPushButton* escape_ = nullptr;
};

}  // namespace quor::gui
