#include "gui/calculation/tank_drawing.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "calculation/tank_section.h"
#include "gui/widgets/theme.h"

namespace quor::gui {

namespace {

constexpr QSizeF kDepth(0.75, 0.22);  // how far the rear end lies off, in diameters
constexpr double kMargin = 8.0, kOutline = 1.5;
constexpr int kLighter = 125, kDarker = 112;

QPolygonF moved(QPolygonF polygon, QPointF by) {
    polygon.translate(by);
    return polygon;
}

// The area that a convex shape covers while it is moved.
void fillSwept(QPainter& painter, const QPolygonF& shape, QPointF by) {
    painter.drawPolygon(shape);
    painter.drawPolygon(moved(shape, by));
    for (qsizetype i = 0; i < shape.size(); ++i) {
        const QPointF a = shape[i], b = shape[(i + 1) % shape.size()];
        painter.drawPolygon(QPolygonF({a, b, b + by, a + by}));
    }
}

// The outline of a circle that is moved: both circles and the strip between their tangents.
QPainterPath sweptCircle(const QRectF& rect, QPointF by) {
    const double length = std::hypot(by.x(), by.y());
    const QPointF across = 0.5 * rect.width() / length * QPointF(-by.y(), by.x());
    const QPointF c = rect.center();
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addEllipse(rect);
    path.addEllipse(rect.translated(by));
    path.addPolygon(QPolygonF({c + across, c - across, c - across + by, c + across + by}));
    path.closeSubpath();
    return path.simplified();
}

// The part of a circle below a level, counted from its lowest point in diameters.
QPainterPath segment(const QRectF& rect, double height) {
    QPainterPath disc, below;
    disc.addEllipse(rect);
    const double y = rect.bottom() - height * rect.height();
    below.addRect(QRectF(QPointF(rect.left() - 1, y), rect.bottomRight() + QPointF(1, 1)));
    return disc.intersected(below);
}

}  // namespace

TankDrawing::TankDrawing(QWidget* parent) : QWidget(parent) {
    setObjectName("TankDrawing");
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void TankDrawing::showPicture(const report::TankPicture& picture) {
    picture_ = picture;
    setAccessibleDescription(QString::fromStdString(picture.level_text));
    update();
}

QColor TankDrawing::liquidColour() {
    return {0x2f, 0x74, 0xb5};
}
QColor TankDrawing::vapourColour() {
    return {0xd6, 0xe6, 0xf4};
}
QColor TankDrawing::supercriticalColour() {
    return {0x8f, 0xa8, 0xc8};
}

QRectF TankDrawing::section() const {
    const double d = std::min((width() - 2 * kMargin) / (1.0 + kDepth.width()),
                              (height() - 2 * kMargin) / (1.0 + kDepth.height()));
    const QSizeF all(d * (1.0 + kDepth.width()), d * (1.0 + kDepth.height()));
    return {0.5 * (width() - all.width()), 0.5 * (height() + all.height()) - d, d, d};
}

QPointF TankDrawing::depth() const {
    const double d = section().width();
    return {kDepth.width() * d, -kDepth.height() * d};
}

QSize TankDrawing::sizeHint() const {
    return {270, 210};
}
QSize TankDrawing::minimumSizeHint() const {
    return {160, 120};
}

void TankDrawing::paintLiquid(QPainter& painter) const {
    const QRectF end = section();
    const double height = calculation::level_height(picture_.level / 100.0);
    if (height <= 0.0) return;
    const QPainterPath front = segment(end, height);
    painter.setPen(Qt::NoPen);
    painter.setBrush(liquidColour().darker(kDarker));
    fillSwept(painter, front.toFillPolygon(), depth());
    if (height < 1.0) {
        // The surface, seen from above.
        const double y = end.bottom() - height * end.height();
        const double x = end.center().x();
        const double half = end.width() * std::sqrt(height * (1.0 - height));
        const QPointF left(x - half, y), right(x + half, y);
        painter.setBrush(liquidColour().lighter(kLighter));
        painter.drawPolygon(QPolygonF({left, right, right + depth(), left + depth()}));
    }
}

void TankDrawing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    paint(painter);
}

void TankDrawing::paint(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF end = section();
    const QColor vapour = picture_.empty           ? palette().color(QPalette::Window)
                          : picture_.supercritical ? supercriticalColour()
                                                   : vapourColour();
    const bool parts = !picture_.supercritical && !picture_.empty;

    const QPainterPath body = sweptCircle(end, depth());
    painter.fillPath(body, vapour.darker(kDarker));
    if (parts) paintLiquid(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(vapour);
    painter.drawEllipse(end);
    if (parts) {
        painter.setBrush(liquidColour());
        painter.drawPath(segment(end, calculation::level_height(picture_.level / 100.0)));
    }

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(
        picture_.error ? theme::errorColour() : palette().color(QPalette::WindowText), kOutline));
    painter.drawPath(body);
    painter.drawEllipse(end);
}

}  // namespace quor::gui
