#pragma once

#include <array>
#include <functional>

#include "gui/widgets/child_view.h"
#include "gui/widgets/follows_session.h"
#include "report/report.h"
#include "report/result_view.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QRadioButton;

namespace quor::gui {

class PhaseHead;
class ResultList;

/// What the result view calls for beside itself.
struct ResultCommands {
    std::function<void()> openIsoCalculator, openDiagnosis;
    std::function<void()> refreshDiagnosis;
};

/// The result of a calculation: given values, main result, list, pages of functions. In batch
/// operation it steps through the data sets; results leave it as a list, as a protocol, or through
/// the clipboard.
class ResultView : public ChildView, public FollowsSession {
    Q_OBJECT

  public:
    ResultView(Desk& desk, ResultCommands commands, QWidget* parent = nullptr);

    /// The view as it opens for the present mode; calculates.
    void open();
    /// Shows the current result.
    void showResult();
    /// Marks a result that does not stand for the present fluid, models or reference state; one in
    /// other units is shown in the present ones.
    void followSession() override;

  protected:
    void cancel() override;
    void closeEvent(QCloseEvent* event) override;

  private:
    /// A text of the result with the sign in front of it that tells of an error without colour.
    struct ResultLine {
        QLabel* sign = nullptr;
        QLabel* text = nullptr;
        QWidget* box = nullptr;
    };

    ResultLine resultLine(const QString& name);
    void show(const ResultLine& line, const report::TextField& field) const;

    QWidget* buildSpecification();
    QWidget* buildExtended();
    QWidget* buildOutput();
    QWidget* buildProtocol();
    QLayout* buildButtons();
    void arrange();

    void showTexts();
    void follow();
    void followProtocol();
    void step(void (*to)(session::Session&));
    void choosePages();
    void finish();
    void writeProtocol();
    void newProtocol();

    ResultCommands commands_;
    report::ResultView view_;
    models::Units units_;  ///< of the result in view
    ResultLine par1_, par2_, co1_, co2_;
    ResultList* list_ = nullptr;
    PhaseHead* head_ = nullptr;
    QGroupBox* specification_ = nullptr;
    QPushButton* back_ = nullptr;
    QPushButton* forward_ = nullptr;
    QGroupBox* extended_ = nullptr;
    QCheckBox* uhs_ = nullptr;
    std::array<QCheckBox*, 2> pages_{};  ///< `ResPlus`(1) and (2)
    QGroupBox* output_ = nullptr;
    std::array<QRadioButton*, 3> target_{};
    QCheckBox* funcPrint_ = nullptr;
    QGroupBox* protocol_ = nullptr;
    QComboBox* separator_ = nullptr;
    QPushButton* write_ = nullptr;
    QPushButton* openNew_ = nullptr;
    QLabel* protocolName_ = nullptr;
    QPushButton* iso_ = nullptr;
    QPushButton* diagnose_ = nullptr;
    QPushButton* ok_ = nullptr;
    QLabel* status_ = nullptr;
};

}  // namespace quor::gui
