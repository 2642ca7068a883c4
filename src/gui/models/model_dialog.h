#pragma once

#include <QDialog>
#include <array>

#include "models/model_choice.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace quor::gui {

/// Choice of the models: equation of state, vapour pressure, enthalpy of vaporisation, ideal-gas
/// heat capacity, and which of the first two gives p(LV). Accepted with a complete choice.
class ModelDialog : public QDialog {
    Q_OBJECT

  public:
    explicit ModelDialog(QWidget* parent = nullptr);

    void reject() override;

  private:
    void build();
    void arrange();
    void connectLists();
    void fillLists();
    void editData();
    void fill(QComboBox* list, const models::ModelEntries& entries, std::size_t index);
    /// Everything that follows from the equation of state and the method of vaporisation.
    void follow();
    void askManualVirial();
    void confirm();

    models::ModelChoice choice_;
    QComboBox* eos_ = nullptr;
    QComboBox* vp_ = nullptr;
    QComboBox* hlv_ = nullptr;
    QComboBox* watson_ = nullptr;
    QLabel* watsonCaption_ = nullptr;
    QComboBox* cp_ = nullptr;
    QLabel* densityState_ = nullptr;
    QLabel* densityRange_ = nullptr;
    QGroupBox* priorityFrame_ = nullptr;
    std::array<QRadioButton*, 2> priority_{};
};

}  // namespace quor::gui
