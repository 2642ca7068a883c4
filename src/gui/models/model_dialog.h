#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "models/model_choice.h"

class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace quor::gui {

class Desk;

/// Choice of the models: equation of state, vapour pressure, enthalpy of vaporisation, ideal-gas
/// heat capacity, and which of the first two gives p(LV). Accepted with a complete choice.
class ModelDialog : public QDialog {
    Q_OBJECT

  public:
    /// What the view needs of the session.
    struct Session {
        /// Shows the data editor; gives the substance as it stands afterwards. Without it the data
        /// cannot be edited from here.
        std::function<models::SubstanceRecord()> editData;
        /// Takes a choice over. False, after a message, when it cannot be used: the view stays
        /// open.
        std::function<bool(const models::ModelChoice&)> take;
    };

    ModelDialog(Desk& desk, const models::SubstanceRecord& substance,
                const models::ModelSelection& present, Session session, QWidget* parent = nullptr);

  private:
    void build();
    void arrange();
    void connectLists();
    void fillLists();
    void editData();
    void showSubstance();
    /// Everything that follows from the equation of state and the method of vaporisation.
    void follow();
    void askManualVirial();
    void confirm();

    Desk& desk_;
    models::ModelChoice choice_;
    Session session_;
    QComboBox* eos_ = nullptr;
    QPushButton* coefficients_ = nullptr;  ///< of the manual virial equation
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
