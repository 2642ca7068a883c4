#pragma once

#include <QDialog>
#include <array>

#include "estimation/group_contributions.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quor::session {
class Session;
}  // namespace quor::session

namespace quor::gui {

class Desk;

/// Data of a substance from the numbers of its structural groups: critical data and acentric
/// factor, quantities of formation, or the heat capacity of the ideal gas.
class GroupContributionView : public QDialog {
    Q_OBJECT

  public:
    /// Results go into the texts of the substance editor, or into the active substance when
    /// `editor` is nullptr.
    GroupContributionView(Desk& desk, datafiles::GroupFrame frame, datafiles::EditorTexts* editor,
                          QWidget* parent = nullptr);

  private:
    QWidget* buildGroups();
    QWidget* buildCommands();
    QGroupBox* buildCritical();
    QGroupBox* buildFormation();
    QGroupBox* buildHeatCapacity();
    QPushButton* calculation(const QString& name, void (GroupContributionView::*run)());

    estimation::GroupCounts counts() const;
    double knownBoilingPoint() const;
    void showMolarMass();
    /// Results belong to the groups that they were calculated from.
    void clearResults();
    /// Results can be transferred when there are some and somewhere to bring them.
    void offerTransfer(bool results);
    void reset();
    void calculateCritical();
    void calculateFormation();
    void calculateHeatCapacity();
    void showOmega();
    void apply();

    Desk& desk_;
    session::Session& session_;
    datafiles::GroupFrame frame_;
    datafiles::EditorTexts* editor_;
    std::array<QLineEdit*, estimation::kGroups> groups_{};
    QLineEdit* molarMass_ = nullptr;
    QLineEdit *Tb_ = nullptr, *Tf_ = nullptr, *Tc_ = nullptr, *pc_ = nullptr, *vc_ = nullptr,
              *rhoc_ = nullptr;
    QLineEdit *dfh_ = nullptr, *dfg_ = nullptr;
    std::array<QLineEdit*, 4> coefficients_{};
    QLabel* status_ = nullptr;
    QPushButton* apply_ = nullptr;
    estimation::CriticalData critical_;
    estimation::Formation formation_;
    std::optional<std::array<double, 4>> cp_;
};

}  // namespace quor::gui
