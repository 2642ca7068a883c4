#include "diagrams/views/diagram_canvas.h"

#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>

#include "diagrams/chart/sheet2d.h"
#include "diagrams/views/chart_qt.h"

namespace {

using Module9::Hit;
using Module9::Part;

constexpr double kReach = 6;        // pixels at which a line counts as under the pointer
constexpr double kLeastDrag = 6;    // pixels; less is a click
constexpr double kWheelStep = 0.8;  // size of the window after one notch
constexpr double kNotch = 120;      // eighths of a degree

}  // namespace

DiagramCanvas::DiagramCanvas(Module9::DiagramSheet& sheet, QWidget* parent)
    : Chart2DPlot(parent), sheet_(sheet), band_(new QRubberBand(QRubberBand::Rectangle, this)) {
    setObjectName("chart");
    setMouseTracking(true);
    setMinimumSize(240, 180);
    setFocusPolicy(Qt::ClickFocus);
    show2D(&sheet_.chart);
}

void DiagramCanvas::refresh() {
    Module9::PlaceLabels(sheet_, width(), height(), chart::QtTextMeasure());
    show2D(&sheet_.chart);
}

void DiagramCanvas::setZoomArmed(bool armed) {
    zoomArmed_ = armed;
    setCursor(armed ? Qt::CrossCursor : Qt::ArrowCursor);
}

Hit DiagramCanvas::hitAt(const QPointF& pixel) const {
    return Module9::HitAt(sheet_, sheet(), pixel.x(), pixel.y(), kReach);
}

void DiagramCanvas::showPointer(const Hit& hit) {
    if (zoomArmed_) return;
    switch (hit.part) {
        case Part::Curve:
        case Part::ReferenceLine:
            setCursor(Qt::PointingHandCursor);
            break;
        case Part::PointSet:
            setCursor(Qt::CrossCursor);
            break;
        default:
            setCursor(Module9::IsMovable(sheet_, hit) ? Qt::SizeAllCursor : Qt::ArrowCursor);
    }
}

void DiagramCanvas::mousePressEvent(QMouseEvent* event) {
    pressed_ = last_ = event->position();
    const Hit hit = hitAt(pressed_);
    gesture_ = Gesture::None;
    if (event->button() == Qt::RightButton) {
        Q_EMIT designWanted(hit);
    } else if (event->button() == Qt::MiddleButton && zoomAllowed_) {
        gesture_ = Gesture::Pan;
        setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        grabbed_ = hit;
        if (!zoomArmed_ && Module9::IsMovable(sheet_, hit))
            gesture_ = Gesture::Move;
        else if (zoomAllowed_ && sheet().plot.contains(pressed_.x(), pressed_.y()))
            gesture_ = Gesture::Rectangle;
    }
    event->accept();
}

void DiagramCanvas::mouseMoveEvent(QMouseEvent* event) {
    const QPointF here = event->position();
    const QPointF step = here - last_;
    const chart::SheetRect& plot = sheet().plot;
    if (gesture_ == Gesture::None) {
        const Hit hit = hitAt(here);
        showPointer(hit);
        const chart::SheetScale scale(sheet_.chart, plot);
        Q_EMIT pointerMoved(hit, scale.valueOfX(here.x()), scale.valueOfY(here.y()));
    } else if (gesture_ == Gesture::Rectangle) {
        band_->setGeometry(QRectF(pressed_, here).normalized().toRect());
        band_->show();
    } else if (gesture_ == Gesture::Pan) {
        Q_EMIT panned(-step.x() / plot.width, step.y() / plot.height);
    } else {
        Module9::MovePart(sheet_, sheet(), grabbed_, step.x(), step.y());
        replot(rpQueuedReplot);
    }
    last_ = here;
    event->accept();
}

void DiagramCanvas::mouseReleaseEvent(QMouseEvent* event) {
    const Gesture done = std::exchange(gesture_, Gesture::None);
    const QPointF here = event->position();
    const QPointF way = here - pressed_;
    const bool dragged = std::fabs(way.x()) >= kLeastDrag && std::fabs(way.y()) >= kLeastDrag;
    band_->hide();
    if (done == Gesture::Rectangle && dragged) {
        const chart::SheetRect& plot = sheet().plot;
        const QRectF area(plot.left, plot.top, plot.width, plot.height);
        const QRectF chosen = QRectF(pressed_, here).normalized().intersected(area);
        const chart::SheetScale scale(sheet_.chart, plot);
        Q_EMIT rectangleZoom({{scale.valueOfX(chosen.left()), scale.valueOfX(chosen.right())},
                              {scale.valueOfY(chosen.bottom()), scale.valueOfY(chosen.top())}});
    } else if (done == Gesture::Move) {
        Q_EMIT moved();
    } else if (event->button() == Qt::LeftButton && way.manhattanLength() < kLeastDrag) {
        Q_EMIT clicked(hitAt(here));
    }
    if (done == Gesture::Pan) setCursor(Qt::ArrowCursor);
    event->accept();
}

void DiagramCanvas::mouseDoubleClickEvent(QMouseEvent* event) {
    gesture_ = Gesture::None;
    if (event->button() == Qt::LeftButton && zoomAllowed_) Q_EMIT fitWanted();
    event->accept();
}

void DiagramCanvas::wheelEvent(QWheelEvent* event) {
    event->accept();
    const chart::SheetRect& plot = sheet().plot;
    const QPointF here = event->position();
    if (!zoomAllowed_ || !plot.contains(here.x(), here.y())) return;
    const double notches = event->angleDelta().y() / kNotch;
    const chart::SheetScale scale(sheet_.chart, plot);
    Q_EMIT wheelZoom(scale.valueOfX(here.x()), scale.valueOfY(here.y()),
                     std::pow(kWheelStep, notches));
}

void DiagramCanvas::resizeEvent(QResizeEvent* event) {
    Chart2DPlot::resizeEvent(event);
    refresh();
}
