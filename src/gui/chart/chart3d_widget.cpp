#include "gui/chart/chart3d_widget.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>

#include "gui/chart/chart3d_paint.h"
#include "gui/chart/chart_qt.h"

namespace quor::chart {

namespace {

constexpr double kDegreesPerPixel = 0.4;
constexpr double kDegreesPerKey = 5;
constexpr double kWheelFactor = 1.12;
constexpr int kRestMs = 150;  // without a further change of the view

}  // namespace

Chart3DWidget::Chart3DWidget(Chart3D& chart, QWidget* parent) : QWidget(parent), chart_(chart) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    rest_.setSingleShot(true);
    rest_.setInterval(kRestMs);
    connect(&rest_, &QTimer::timeout, this, qOverload<>(&QWidget::update));
}

void Chart3DWidget::refresh() {
    update();
}

void Chart3DWidget::changed() {
    rest_.start();
    update();
    emit viewChanged();
}

void Chart3DWidget::setPreset(PresetView preset) {
    set_preset(chart_.view, preset);
    changed();
}

void Chart3DWidget::zoom(double factor) {
    if (!(factor > 0)) return;
    chart_.view.zoom *= factor;
    chart_.view = sanitised(chart_.view);
    changed();
}

void Chart3DWidget::turn(double rotation, double elevation) {
    if (chart_.style.projection_2d) return;  // a flat map does not turn
    chart::turn(chart_.view, rotation, elevation);
    changed();
}

std::optional<PickedPlace> Chart3DWidget::placeAt(const QPointF& place) const {
    return pick_surface(chart_, width(), height(), qtTextMeasure(), {place.x(), place.y()});
}

void Chart3DWidget::report(const QPointF& place) {
    const auto found = placeAt(place);
    if (found) emit surfaceMoved(found->x, found->y, found->z);
    if (!found && overSurface_) emit surfaceLeft();
    overSurface_ = found.has_value();
}

void Chart3DWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paintChart3D(painter, rect(), chart_,
                 rest_.isActive() ? PaintQuality::Turning : PaintQuality::Fine);
}

void Chart3DWidget::mousePressEvent(QMouseEvent* event) {
    pressed_ = last_ = event->position();
    if (event->button() != Qt::LeftButton) return;
    turning_ = true;
    setCursor(Qt::ClosedHandCursor);
}

void Chart3DWidget::mouseMoveEvent(QMouseEvent* event) {
    const QPointF way = event->position() - last_;
    last_ = event->position();
    if (turning_)
        turn(-way.x() * kDegreesPerPixel, way.y() * kDegreesPerPixel);
    else
        report(event->position());
}

void Chart3DWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        turning_ = false;
        unsetCursor();
    }
    const QPointF way = event->position() - pressed_;
    const bool clicked = way.manhattanLength() < QApplication::startDragDistance();
    if (event->button() == Qt::RightButton && clicked)
        emit rightClicked(event->globalPosition().toPoint());
}

void Chart3DWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) setPreset(PresetView::Default);
}

void Chart3DWidget::wheelEvent(QWheelEvent* event) {
    zoom(std::pow(kWheelFactor, event->angleDelta().y() / 120.0));
    event->accept();
}

void Chart3DWidget::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Left:
            turn(-kDegreesPerKey, 0);
            return;
        case Qt::Key_Right:
            turn(kDegreesPerKey, 0);
            return;
        case Qt::Key_Up:
            turn(0, kDegreesPerKey);
            return;
        case Qt::Key_Down:
            turn(0, -kDegreesPerKey);
            return;
        case Qt::Key_Plus:
            zoom(kWheelFactor);
            return;
        case Qt::Key_Minus:
            zoom(1 / kWheelFactor);
            return;
        case Qt::Key_X:
            setPreset(PresetView::AlongX);
            return;
        case Qt::Key_Y:
            setPreset(PresetView::AlongY);
            return;
        case Qt::Key_Z:
            setPreset(PresetView::AlongZ);
            return;
        case Qt::Key_Home:
            setPreset(PresetView::Default);
            return;
        default:
            QWidget::keyPressEvent(event);
    }
}

void Chart3DWidget::leaveEvent(QEvent* event) {
    if (overSurface_) emit surfaceLeft();
    overSurface_ = false;
    QWidget::leaveEvent(event);
}

}  // namespace quor::chart
