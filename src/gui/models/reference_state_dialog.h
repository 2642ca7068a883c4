#pragma once

#include <QDialog>
#include <array>
#include <optional>

#include "models/reference_choice.h"

class QButtonGroup;
class QComboBox;
class QLabel;
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
    QWidget* buildOwnState();
    void arrange();
    QWidget* buildReadySurroundings();
    void choose(int id);
    void enable(int id);
    void fill(const models::ReferenceFields& fields);
    /// Shows what a named state comes to for the present fluid, or why it has none.
    void followNamed();
    models::ReferenceOption option() const;
    models::NamedState named() const;
    models::OwnState ownState() const;
    models::ReferenceFields typed() const;
    /// The record as the view says it; nothing for a number beyond the range of its field.
    std::optional<models::ReferenceState> chosen() const;
    void confirm();

    Desk& desk_;
    models::Units units_;  ///< in which all numbers are shown and typed
    QButtonGroup* options_ = nullptr;
    std::array<NumberEdit*, models::kReferenceFields> fields_{};
    /// The fields as they were last filled, in base units: what the user leaves alone keeps all its
    /// digits.
    models::ReferenceFields filled_{};
    std::array<NumberEdit*, 4> own_{};  ///< T, p, h, s of an own state
    QComboBox* ready_ = nullptr;        ///< ready states of the surroundings
    QComboBox* ownPhase_ = nullptr;
    QWidget* ownFrame_ = nullptr;
    QLabel* note_ = nullptr;
};

}  // namespace quor::gui
