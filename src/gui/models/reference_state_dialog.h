#pragma once

#include <QDialog>
#include <array>

#include "models/reference_choice.h"

class QButtonGroup;
class QLayout;

namespace quor::gui {

class Desk;
class NumberEdit;

/// Reference state of the caloric functions: the zero of h and s, and the surroundings of the
/// exergies. Accepted when the session took it over.
class ReferenceStateDialog : public QDialog {
    Q_OBJECT

  public:
    explicit ReferenceStateDialog(Desk& desk, QWidget* parent = nullptr);

  private:
    QLayout* buildOptions();
    QLayout* buildFields();
    void arrange();
    void choose(models::ReferenceOption option);
    void enable(models::ReferenceOption option);
    void fill(const models::ReferenceFields& fields);
    models::ReferenceOption option() const;
    models::ReferenceFields typed() const;
    void confirm();

    Desk& desk_;
    double factor_;  ///< h and s are shown multiplied by it
    QButtonGroup* options_ = nullptr;
    std::array<NumberEdit*, models::kReferenceFields> fields_{};
    /// The fields as they were last filled: what the user leaves alone keeps all its digits.
    models::ReferenceFields filled_{};
};

}  // namespace quor::gui
