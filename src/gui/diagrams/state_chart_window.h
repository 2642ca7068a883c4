#pragma once

#include <array>
#include <memory>
#include <optional>

#include "diagrams/state_chart_picture.h"
#include "gui/chart/chart2d_widget.h"
#include "gui/diagrams/chart_window.h"
#include "gui/widgets/follows_session.h"

class QCheckBox;
class QComboBox;

namespace quor::gui {

/// A state chart of the present fluid: the kinds, a switch for each family, and the state under the
/// pointer. It follows fluid, models, reference state and units of the session at once.
class StateChartWindow : public ChartWindow, public FollowsSession {
    Q_OBJECT

  public:
    StateChartWindow(Desk& desk, diagrams::ChartKind kind);

    /// Opens a chart of the kind chosen last in the menu.
    static void openFromMenu(Desk& desk);

    void followSession() override;

    const chart::Chart2D& chart() const { return chart_; }

  protected:
    void keepChoice() override {}

  private:
    static constexpr std::size_t kFamilies = 5;

    void buildBar();
    void buildMenus();
    void choose(int kind);
    /// Computes the chart; what cannot be had is told on its sheet.
    void compute();
    void fit();
    void showState(const chart::ChartHit& hit);

    diagrams::ChartKind kind_;
    std::optional<diagrams::Basis> basis_;  ///< of the chart that is shown
    std::unique_ptr<models::Flash> flash_;  ///< of that basis
    std::optional<diagrams::ChartWindow> window_;
    chart::Chart2D chart_;
    chart::Chart2DWidget* canvas_ = nullptr;
    QComboBox* kinds_ = nullptr;
    std::array<QCheckBox*, kFamilies> families_{};
};

}  // namespace quor::gui
