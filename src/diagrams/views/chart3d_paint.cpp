#include "diagrams/views/chart3d_paint.h"

#include <QPaintEngine>
#include <span>

#include "diagrams/chart/scene3d.h"
#include "diagrams/views/chart_qt.h"

namespace chart {

namespace {

/// Paints the shapes of a scene. State is set only where it changes: a surface has thousands of
/// shapes of few styles.
class ShapePainter {
  public:
    ShapePainter(QPainter& painter, const Scene3D& scene) : painter_(painter), scene_(scene) {
        const QPaintEngine* engine = painter.paintEngine();
        raster_ = engine && engine->type() == QPaintEngine::Raster;
    }

    void paint() {
        for (const SceneShape& shape : scene_.shapes) {
            const std::span<const Point2> points{scene_.points.data() + shape.first, shape.count};
            if (shape.kind == SceneShape::Kind::Fill)
                fill(shape, points);
            else
                line(shape, points);
        }
    }

  private:
    void fill(const SceneShape& shape, std::span<const Point2> points) {
        setBrush(shape.colour);
        // Neighbouring cells leave a seam of background where their edges are smoothed. Opaque
        // cells cover it by a fine line of their own colour; translucent ones, whose lines would
        // show, are not smoothed in images.
        const bool opaque = shape.colour.a == 255;
        setPen(shape.colour, shape.surface && opaque ? kSeamWidth : 0, LinePattern::Solid);
        setSmooth(!(shape.surface && raster_ && !opaque));
        painter_.drawPolygon(qtPoints(points), static_cast<int>(points.size()));
    }

    void line(const SceneShape& shape, std::span<const Point2> points) {
        setPen(shape.colour, shape.width, shape.pattern);
        setSmooth(true);
        painter_.drawPolyline(qtPoints(points), static_cast<int>(points.size()));
    }

    const QPointF* qtPoints(std::span<const Point2> points) {
        buffer_.clear();
        for (const Point2& p : points) buffer_.emplace_back(p.x, p.y);
        return buffer_.data();
    }

    void setBrush(Colour colour) {
        if (colour == brush_ && brushSet_) return;
        brush_ = colour;
        brushSet_ = true;
        painter_.setBrush(ToQt(colour));
    }

    void setPen(Colour colour, float width, LinePattern pattern) {
        if (width <= 0) {
            if (penWidth_ != 0) painter_.setPen(Qt::NoPen);
            penWidth_ = 0;
            return;
        }
        if (penWidth_ == width && penColour_ == colour && pattern_ == pattern) return;
        penWidth_ = width;
        penColour_ = colour;
        pattern_ = pattern;
        painter_.setPen(ToQt(LineStyle{pattern, colour, width}));
    }

    void setSmooth(bool smooth) {
        if (smooth_ == smooth) return;
        smooth_ = smooth;
        painter_.setRenderHint(QPainter::Antialiasing, smooth);
    }

    static constexpr float kSeamWidth = 0.8F;

    QPainter& painter_;
    const Scene3D& scene_;
    bool raster_ = false;
    bool smooth_ = true;
    bool brushSet_ = false;
    Colour brush_, penColour_;
    float penWidth_ = -1;
    LinePattern pattern_ = LinePattern::Solid;
    std::vector<QPointF> buffer_;
};

void paintMarker(QPainter& painter, const SceneMarker& marker) {
    const QColor colour = ToQt(marker.colour);
    painter.setPen(QPen(marker.hidden ? colour : QColor(Qt::white), 1.2));
    painter.setBrush(marker.hidden ? QBrush(Qt::NoBrush) : QBrush(colour));
    painter.drawEllipse(QPointF(marker.centre.x, marker.centre.y), marker.radius, marker.radius);
}

}  // namespace

void PaintChart3D(QPainter& painter, const QRectF& rect, const Chart3D& chart) {
    if (rect.width() < 1 || rect.height() < 1) return;
    const Scene3D scene = BuildScene(chart, rect.width(), rect.height(), QtTextMeasure());
    painter.save();
    painter.translate(rect.topLeft());
    painter.setClipRect(QRectF(QPointF(0, 0), rect.size()), Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.fillRect(QRectF(QPointF(0, 0), rect.size()), ToQt(chart.sheet));
    ShapePainter(painter, scene).paint();
    painter.setRenderHint(QPainter::Antialiasing, true);
    for (const SceneMarker& marker : scene.markers) paintMarker(painter, marker);
    for (const SceneText& text : scene.texts)
        PaintText(painter, {text.centre.x, text.centre.y}, text.text, text.font, text.colour,
                  text.rotation);
    painter.restore();
}

}  // namespace chart
