#pragma once

#include <QDialog>
#include <array>

#include "models/reference_choice.h"

class NumberEdit;
class QButtonGroup;

/// Reference state of the caloric functions: the zero of h and s, and the surroundings of the
/// exergies. Accepted when the session took it over.
class frmReferenz : public QDialog {
    Q_OBJECT

  public:
    explicit frmReferenz(QWidget* parent = nullptr);

  private:
    QLayout* buildOptions();
    QLayout* buildFields();
    void arrange();
    void choose(thermo::ReferenceOption option);
    void enable(thermo::ReferenceOption option);
    void fill(const thermo::ReferenceFields& fields);
    thermo::ReferenceOption option() const;
    thermo::ReferenceFields typed() const;
    void confirm();

    double factor_;  ///< h and s are shown multiplied by it
    QButtonGroup* options_ = nullptr;
    std::array<NumberEdit*, thermo::kReferenceFields> fields_{};
    /// The fields as they were last filled: what the user leaves alone keeps all its digits.
    thermo::ReferenceFields filled_{};
};
