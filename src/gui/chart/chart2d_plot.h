#pragma once

#include <qcustomplot.h>

#include "chart/chart2d.h"
#include "chart/sheet2d.h"

namespace quor::chart {

/// The plot in which a 2D chart is shown on the screen; `Chart2DWidget` adds the mouse to it.
class Chart2DPlot : public QCustomPlot {
    Q_OBJECT
  public:
    explicit Chart2DPlot(QWidget* parent = nullptr);

    /// Shows this chart and repaints once. The chart is read at every repaint and has to live as
    /// long; nullptr shows an empty sheet.
    void show2D(const Chart2D* chart);

    /// Places of all parts at the last repaint.
    const Sheet2D& sheet() const { return sheet_; }
    const Chart2D& chart() const;

  private:
    void layOutSheet();

    const Chart2D* chart_ = nullptr;
    Sheet2D sheet_;
};

/// Paints the chart into `rect`. Works on every painter: widgets, images, files, printers. A unit
/// of the painter's coordinates is taken for 1/96 inch.
void paintChart2D(QPainter& painter, const QRectF& rect, const Chart2D& chart);

}  // namespace quor::chart
