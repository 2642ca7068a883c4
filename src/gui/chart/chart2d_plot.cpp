#include "gui/chart/chart2d_plot.h"

#include <array>

#include "gui/chart/chart2d_parts.h"
#include "gui/chart/chart_qt.h"

namespace quor::chart {

namespace {

using PaintPart = void (*)(QPainter&, const Chart2D&, const Sheet2D&);

struct Part {
    const char* layer;  ///< of the plot library, from the lowest to the uppermost
    PaintPart paint;
};

constexpr std::array<Part, 6> kParts{{{"background", paintSheetBackground},
                                      {"grid", paintGrid},
                                      {"main", PaintLines},
                                      {"main", paintSymbols},
                                      {"axes", paint_axes},
                                      {"legend", paintTexts}}};

/// A part of the sheet as an object of the plot library.
class PartLayer : public QCPLayerable {
  public:
    PartLayer(Chart2DPlot* plot, const Part& part)
        : QCPLayerable(plot, QString::fromLatin1(part.layer)), plot_(plot), paint_(part.paint) {}

  protected:
    void applyDefaultAntialiasingHint(QCPPainter* painter) const override {
        painter->setAntialiasing(true);
    }
    void draw(QCPPainter* painter) override { paint_(*painter, plot_->chart(), plot_->sheet()); }

  private:
    Chart2DPlot* plot_;
    PaintPart paint_;
};

const Chart2D& emptyChart() {
    static const Chart2D chart;
    return chart;
}

void setAxis(QCPAxis* axis, const Range& range, bool logarithmic) {
    axis->setScaleType(logarithmic ? QCPAxis::stLogarithmic : QCPAxis::stLinear);
    axis->setRange(range.min, range.max);
}

}  // namespace

Chart2DPlot::Chart2DPlot(QWidget* parent) : QCustomPlot(parent) {
    setBackground(QBrush(Qt::NoBrush));
    plotLayout()->setAutoMargins(QCP::msNone);
    plotLayout()->setMargins({});
    axisRect()->setAutoMargins(QCP::msNone);
    axisRect()->setMinimumSize(0, 0);
    for (QCPAxis* axis : {xAxis, yAxis, xAxis2, yAxis2}) {
        axis->setVisible(false);
        axis->grid()->setVisible(false);
    }
    for (const Part& part : kParts) new PartLayer(this, part);  // owned by the plot
    connect(this, &QCustomPlot::beforeReplot, this, &Chart2DPlot::layOutSheet);
}

const Chart2D& Chart2DPlot::chart() const {
    return chart_ ? *chart_ : emptyChart();
}

void Chart2DPlot::show2D(const Chart2D* chart) {
    chart_ = chart;
    replot(rpQueuedRefresh);
}

void Chart2DPlot::layOutSheet() {
    const QSize size = viewport().size();
    sheet_ = lay_out(chart(), size.width(), size.height(), qtTextMeasure());
    const SheetRect& p = sheet_.plot;
    // The library counts the lowest pixel row as the lower edge, hence one row further down.
    axisRect()->setMargins({static_cast<int>(p.left), static_cast<int>(p.top) + 1,
                            size.width() - static_cast<int>(p.right()),
                            size.height() - static_cast<int>(p.bottom()) - 1});
    setAxis(xAxis, sheet_.window.x, chart().x.logarithmic);
    setAxis(yAxis, sheet_.window.y, chart().y.logarithmic);
}

void paintChart2D(QPainter& painter, const QRectF& rect, const Chart2D& chart) {
    if (rect.width() < 1 || rect.height() < 1) return;
    const Sheet2D sheet = lay_out(chart, rect.width(), rect.height(), qtTextMeasure());
    painter.save();
    painter.translate(rect.topLeft());
    const QPaintEngine* engine = painter.paintEngine();
    // Lines of one pixel fill whole pixels of an image when they run along pixel centres.
    if (engine && engine->type() == QPaintEngine::Raster) painter.translate(0.5, 0.5);
    painter.setRenderHint(QPainter::Antialiasing, true);
    for (const Part& part : kParts) part.paint(painter, chart, sheet);
    painter.restore();
}

}  // namespace quor::chart
