#pragma once

#include <QDialog>
#include <array>

#include "session/options.h"

class QCheckBox;
class QComboBox;
class QRadioButton;
class QSlider;

namespace quor::gui {

class Desk;

/// Units, calculation mode and curve options of the session. OK applies them at once, Cancel leaves
/// everything as it was.
class OptionsDialog : public QDialog {
    Q_OBJECT

  public:
    explicit OptionsDialog(Desk& desk, QWidget* parent = nullptr);

  private:
    QWidget* modeFrame();
    QWidget* unitFrame();
    QWidget* curveFrame();
    QWidget* resolutionFrame();
    QWidget* referenceFrame();
    void chooseUnits();
    void takeTold();
    void showUnits(const models::UnitChoice& units);
    void apply();

    Desk& desk_;
    const session::OptionChoice opened_;
    models::UnitChoice units_;
    std::array<QRadioButton*, 2> mode_{}, unit_{};
    QCheckBox* reduced_ = nullptr;
    QComboBox* unitSet_ = nullptr;
    QCheckBox* realRange_ = nullptr;
    QCheckBox* sCurve_ = nullptr;
    QCheckBox* partialGas_ = nullptr;
    QSlider* points_ = nullptr;
};

}  // namespace quor::gui
