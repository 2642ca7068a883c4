#pragma once

#include <QDialog>
#include <array>

#include "models/unit_text.h"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace quor::gui {

/// The unit of each quantity: a ready set, or units of the user's own, which are kept by a name.
class UnitsDialog : public QDialog {
    Q_OBJECT

  public:
    explicit UnitsDialog(const models::UnitChoice& present, QWidget* parent = nullptr);

    /// The units that are chosen in it.
    models::UnitChoice choice() const;

  private:
    QLayout* quantities();
    QLayout* ownSets();
    void showUnits(const models::UnitChoice& choice);
    void followSet();
    void keep();
    void forget();

    QComboBox* set_ = nullptr;
    std::array<QComboBox*, models::kDimensions> units_{};
    QLineEdit* name_ = nullptr;
    QPushButton* keep_ = nullptr;
    QPushButton* forget_ = nullptr;
};

}  // namespace quor::gui
