#pragma once

#include <array>
#include <string>

#include "gui/widgets/child_view.h"

class QButtonGroup;
class QGroupBox;
class QLabel;

namespace quor::gui {

class NumberEdit;

/// Asks for numbers: the data of a direct calculation, of a tank, or of the second reference point.
/// It stays open beside the result, so that one set of values follows the other.
class DirectInputView : public ChildView {
    Q_OBJECT

  public:
    explicit DirectInputView(QWidget* parent = nullptr);

    /// Shows the fields of the present `InputSituation` with the values that the session holds.
    void open();

    /// The text of a field (0 to 3) that is asked for, else an empty one.
    std::string fieldText(std::size_t index) const;

  protected:
    void cancel() override;

  private:
    void arrange();
    void follow();
    void refill();
    bool amount() const;
    void markMissing();
    void calculate();

    std::array<NumberEdit*, 4> par_{};
    std::array<QLabel*, 4> Bz_{};
    QGroupBox* volumeFrame_ = nullptr;
    QButtonGroup* volume_ = nullptr;
    QGroupBox* amountFrame_ = nullptr;
    QButtonGroup* amount_ = nullptr;
    QLabel* picture_ = nullptr;
    QPushButton* ok_ = nullptr;
};

}  // namespace quor::gui
