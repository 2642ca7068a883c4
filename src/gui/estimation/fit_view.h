#pragma once

#include <array>

#include "common/history.h"
#include "estimation/fit_state.h"
#include "gui/estimation/fit_graph_frame.h"
#include "gui/estimation/fit_parameter_rows.h"
#include "gui/estimation/fit_quality_frame.h"
#include "gui/widgets/child_view.h"
#include "gui/widgets/follows_session.h"
#include "gui/widgets/undo_keys.h"

class QButtonGroup;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTabWidget;

namespace quor::gui {

/// Fits one of the correlations of the system to the points of an editor, shows how well it does,
/// and brings the parameters into the data of the active substance. Its settings can be taken back;
/// results go when they do not belong to them.
class FitView : public ChildView, public FollowsSession, public Undoable {
    Q_OBJECT

  public:
    explicit FitView(Desk& desk, QWidget* parent = nullptr);

    /// Takes the points from the editor that the session names, for the active substance.
    void loadPoints();
    /// Tells when the fit no longer belongs to the active substance.
    void followSession() override;
    const estimation::FitState& state() const { return fit_; }
    /// Brings a tab to the front, counted from 0.
    void showTab(int index);
    /// Brings the tab of the chosen model to the front.
    void showChosenTab();

    QString undoName() const override;
    QString redoName() const override;
    void undo() override;
    void redo() override;

  private:
    QWidget* buildTabs();
    QWidget* buildPage(int tab);
    QWidget* buildEquation();
    QWidget* buildCommands();

    /// The settings as they stand, as a step that can be taken back.
    void remember(const QString& step);
    /// Shows the present state of the history.
    void showPresent();
    void chooseModel(int number);
    /// Begins a fit of a model for the active substance.
    void beginFit(int number);
    void showModel();
    void changeForm(bool lg);
    void start();
    void propose();
    void apply();
    void print();
    /// The results of the last fit are no longer those of what stands in the view.
    void dropResults();
    void showEquation();
    /// Whose data the fit belongs to.
    void showTarget();
    /// From here on the fit belongs to the active substance.
    void adoptSubstance();
    void showResults();

    estimation::FitState fit_;
    History<estimation::FitSettings> history_;
    QLabel* title_ = nullptr;
    QLabel* data_ = nullptr;
    QLabel* target_ = nullptr;
    QLabel* equation_ = nullptr;
    QLabel* remark_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    QButtonGroup* models_ = nullptr;
    QButtonGroup* phases_ = nullptr;
    QCheckBox* lg_ = nullptr;
    std::array<QRadioButton*, 2> logFit_{};
    QPushButton* start_ = nullptr;
    QPushButton* apply_ = nullptr;
    FitParameterRows* rows_ = nullptr;
    FitQualityFrame* quality_ = nullptr;
    FitGraphFrame* graph_ = nullptr;
};

}  // namespace quor::gui
