#pragma once

#include <array>
#include <functional>
#include <string>

#include "gui/widgets/child_view.h"
#include "gui/widgets/follows_session.h"
#include "report/direct_input.h"

class QButtonGroup;
class QGroupBox;
class QLabel;

namespace quor::gui {

class NumberEdit;

/// Asks for numbers: the data of a direct calculation, of a tank, or of the second reference point.
/// It stays open beside the result, so that one set of values follows the other.
class DirectInputView : public ChildView, public FollowsSession {
    Q_OBJECT

  public:
    explicit DirectInputView(Desk& desk, QWidget* parent = nullptr);
    /// For a second reference point: `store` takes what is typed.
    DirectInputView(Desk& desk, const models::BensonPoint& present,
                    std::function<void(const models::BensonPoint&)> store,
                    QWidget* parent = nullptr);

    /// Shows the fields that the calculation asks for with the values that the session holds.
    void open();

    /// Labels follow the units; what was typed is converted to them.
    void followSession() override;

    /// The number in a field (0 to 3) that is asked for as text, else an empty one.
    std::string fieldText(std::size_t index) const;

  protected:
    void cancel() override;

  private:
    report::InputForm form() const;
    std::array<std::string, 4> presentTexts() const;
    std::array<std::string, 4> typedTexts() const;
    void storeReference();
    bool asksForReference() const { return store_ != nullptr; }
    void arrange();
    void follow();
    void refill();
    bool amount() const;
    void markMissing();
    void calculate();

    models::BensonPoint reference_;
    std::function<void(const models::BensonPoint&)> store_;  ///< for a reference point only
    std::array<NumberEdit*, 4> par_{};
    std::array<QLabel*, 4> captions_{};
    QGroupBox* volumeFrame_ = nullptr;
    QButtonGroup* volume_ = nullptr;
    QGroupBox* amountFrame_ = nullptr;
    QButtonGroup* amount_ = nullptr;
    QLabel* picture_ = nullptr;
    QPushButton* ok_ = nullptr;
};

}  // namespace quor::gui
