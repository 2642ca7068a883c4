#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <optional>

#include "report/partial_choice.h"

class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace quor::gui {

class Desk;

/// Preparation of a phase equilibrium: global or partial calculation, the source of the L density,
/// and the second reference point of Benson's method. Accepted when the calculation goes on.
class PartialChoiceDialog : public QDialog {
    Q_OBJECT

  public:
    /// Asks for the second reference point; nothing when that was cancelled.
    using AskReference =
        std::function<std::optional<models::BensonPoint>(const models::BensonPoint& present)>;

    PartialChoiceDialog(Desk& desk, report::PartialChoice choice, AskReference askReference,
                        QWidget* parent = nullptr);

    const report::PartialChoice& choice() const { return choice_; }

    /// Where there is nothing to choose there is nothing to cancel either.
    void reject() override;

  private:
    QWidget* buildMode();
    QWidget* buildDensity();
    QWidget* buildReference();
    void arrange();
    void follow();
    void askReference();
    void chooseGlobal(bool global);

    Desk& desk_;
    report::PartialChoice choice_;
    AskReference askReference_;
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
