#include "gui/chart/chart2d_plot.h"

#include <QPainter>

#include "gui/chart/chart2d_paint.h"
#include "gui/chart/chart_qt.h"

namespace quor::chart {

Chart2DPlot::Chart2DPlot(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoMousePropagation);
    setMouseTracking(true);
}

void Chart2DPlot::show2D(const Chart2D* chart) {
    chart_ = chart;
    layOut();
}

void Chart2DPlot::layOut() {
    picture_ = picture_of(chart_ ? *chart_ : Chart2D(), width(), height(), qtTextMeasure());
    pixels_ = {};
    update();
    emit laidOut();
}

void Chart2DPlot::paintPixels() {
    const qreal ratio = devicePixelRatioF();
    pixels_ = QPixmap(size() * ratio);
    pixels_.setDevicePixelRatio(ratio);
    pixels_.fill(Qt::white);  // beneath paper that is translucent
    QPainter painter(&pixels_);
    paintPicture(painter, picture_);
}

void Chart2DPlot::paintEvent(QPaintEvent*) {
    if (pixels_.isNull() || pixels_.devicePixelRatioF() != devicePixelRatioF()) paintPixels();
    QPainter(this).drawPixmap(0, 0, pixels_);
}

void Chart2DPlot::resizeEvent(QResizeEvent*) {
    layOut();
}

}  // namespace quor::chart
