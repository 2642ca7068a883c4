#pragma once

#include "diagrams/diagram_sheet.h"
#include "gui/chart/chart2d_widget.h"
#include "gui/diagrams/design_controls.h"

class QTabBar;

namespace quor::gui {

/// The panel beside a diagram: every property of its curves, points, axes, texts and legend. A
/// change shows at once. Pages: "curves", "points", "axes", "texts", "legend", "more".
class DesignPanel : public DesignControls {
    Q_OBJECT

  public:
    explicit DesignPanel(diagrams::DiagramSheet& sheet, QWidget* parent = nullptr);

    /// The controls take what the sheet holds now.
    void follow();

    /// The places whose tabs are in front, counted from 0; -1 when there is none.
    int curve() const;
    int pointSet() const;

    void showCurve(int place);
    void showPointSet(int place);
    /// The page and tab that design what was hit.
    void showHit(const chart::ChartHit& hit);

  Q_SIGNALS:
    void scalingWanted();

  private:
    void curvePage();
    void pointPage();
    void axisPage();
    void axisGroup(QFormLayout* into, bool xAxis);
    void scalingGroup(QFormLayout* into);
    void textPage();
    void legendPage();
    void morePage();
    void fillTextList();
    void applyScaling();

    chart::Series* series(chart::Group group) const;

    diagrams::DiagramSheet& sheet_;
    QTabBar* curves_ = nullptr;
    QTabBar* points_ = nullptr;
    class QComboBox* texts_ = nullptr;
};

}  // namespace quor::gui
