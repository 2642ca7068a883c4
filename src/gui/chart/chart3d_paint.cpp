#include "gui/chart/chart3d_paint.h"

#include <QImage>
#include <QPaintEngine>
#include <algorithm>
#include <cmath>
#include <limits>
#include <span>

#include "chart/scene3d.h"
#include "gui/chart/chart_qt.h"

namespace quor::chart {

namespace {

/// Device pixels to a unit of the painter; 0 where it turns or distorts.
double pixelsPerUnit(const QPainter& painter) {
    const QTransform& t = painter.deviceTransform();
    const bool upright = t.type() <= QTransform::TxScale && t.m11() > 0;
    return upright && std::abs(t.m11() - t.m22()) < 1e-9 * t.m11() ? t.m11() : 0;
}

/// Paints the shapes of a scene. State is set only where it changes: a surface has thousands of
/// shapes of few styles.
class ShapePainter {
  public:
    /// `smoothCells`: the edges of the cells are smoothed, as suits vectors.
    ShapePainter(QPainter& painter, const Scene3D& scene, bool smoothCells)
        : painter_(painter), scene_(scene), smoothCells_(smoothCells) {
        const QPaintEngine* engine = painter.paintEngine();
        if (engine && engine->type() == QPaintEngine::Raster) thinLines();
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
        // cells cover it by a fine line of their own colour; lines of translucent ones would show.
        const bool seam = shape.surface && smoothCells_ && shape.colour.a == 255;
        setPen(shape.colour, seam ? kSeamWidth : 0, LinePattern::Solid);
        setSmooth(smoothCells_ || !shape.surface);
        painter_.drawPolygon(qtPoints(points), static_cast<int>(points.size()));
    }

    void line(const SceneShape& shape, std::span<const Point2> points) {
        setPen(shape.colour, shape.surface ? std::min(shape.width, widest_) : shape.width,
               shape.pattern);
        setSmooth(true);
        painter_.drawPolyline(qtPoints(points), static_cast<int>(points.size()));
    }

    const QPointF* qtPoints(std::span<const Point2> points) {
        buffer_.clear();
        for (const Point2& p : points) buffer_.emplace_back(p.x, p.y);
        return buffer_.data();
    }

    /// Lines of a pixel are painted at once, wider ones as outlines: many of them, which lie close
    /// together anyway, become fine.
    void thinLines() {
        constexpr double kMostTime = 30000, kLine = 4, kWidth = 0.4;  // microseconds
        double time = 0;
        for (const SceneShape& shape : scene_.shapes)
            if (shape.kind == SceneShape::Kind::Line)
                time += kLine + kWidth * static_cast<double>(shape.width);
        const double pixels = pixelsPerUnit(painter_);
        if (time > kMostTime && pixels > 0) widest_ = static_cast<float>(1 / pixels);
    }

    void setBrush(Colour colour) {
        if (colour == brush_ && brushSet_) return;
        brush_ = colour;
        brushSet_ = true;
        painter_.setBrush(toQt(colour));
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
        painter_.setPen(toQt(LineStyle{pattern, colour, width}));
    }

    void setSmooth(bool smooth) {
        if (smooth_ == smooth) return;
        smooth_ = smooth;
        painter_.setRenderHint(QPainter::Antialiasing, smooth);
    }

    static constexpr float kSeamWidth = 0.8F;

    QPainter& painter_;
    const Scene3D& scene_;
    bool smoothCells_;
    bool smooth_ = true;
    bool brushSet_ = false;
    Colour brush_, penColour_;
    float penWidth_ = -1;
    float widest_ = std::numeric_limits<float>::max();  // line of the surface
    LinePattern pattern_ = LinePattern::Solid;
    std::vector<QPointF> buffer_;
};

void paintMarker(QPainter& painter, const SceneMarker& marker) {
    const QColor colour = toQt(marker.colour);
    painter.setPen(QPen(marker.hidden ? colour : QColor(Qt::white), 1.2));
    painter.setBrush(marker.hidden ? QBrush(Qt::NoBrush) : QBrush(colour));
    painter.drawEllipse(QPointF(marker.centre.x, marker.centre.y), marker.radius, marker.radius);
}

/// Each pixel the mean of four.
QImage halved(const QImage& fine) {
    QImage image(fine.width() / 2, fine.height() / 2, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return {};
    constexpr std::uint32_t kOdd = 0x00FF00FFU, kRound = 0x00020002U;
    for (int y = 0; y < image.height(); ++y) {
        const auto line = [&](int row) {
            return reinterpret_cast<const std::uint32_t*>(fine.constScanLine(row));
        };
        const std::uint32_t *upper = line(2 * y), *lower = line(2 * y + 1);
        auto* out = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x, upper += 2, lower += 2) {
            // Two channels a word; sums of four stay within their 16 bits.
            const auto mean = [&](int shift) {
                const std::uint32_t sum =
                    ((upper[0] >> shift) & kOdd) + ((upper[1] >> shift) & kOdd) +
                    ((lower[0] >> shift) & kOdd) + ((lower[1] >> shift) & kOdd) + kRound;
                return ((sum >> 2) & kOdd) << shift;
            };
            out[x] = mean(0) | mean(8);
        }
    }
    return image;
}

/// The sheet with all shapes, painted at twice the resolution. Its cells cover whole pixels:
/// smoothed edges would let what is hidden shine through as hairlines.
QImage fineImage(const Scene3D& scene, const QSizeF& size, double scale, const QColor& sheet) {
    constexpr double kMostPixels = 1.5e7;  // of larger ones the steps are not seen
    const QSizeF pixels = size * scale;
    if (pixels.width() * pixels.height() > kMostPixels) return {};
    QImage image(2 * static_cast<int>(std::ceil(pixels.width())),
                 2 * static_cast<int>(std::ceil(pixels.height())),
                 QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) return {};
    image.fill(sheet);
    QPainter painter(&image);
    painter.scale(2 * scale, 2 * scale);
    painter.setRenderHint(QPainter::Antialiasing, true);
    ShapePainter(painter, scene, false).paint();
    painter.end();
    return halved(image);
}

/// Sheet and shapes: as a fine image where the painter makes one, else as vectors.
void paintShapes(QPainter& painter, const Scene3D& scene, const QSizeF& size, const QColor& sheet,
                 PaintQuality quality) {
    const QPaintEngine* engine = painter.paintEngine();
    const bool raster = engine && engine->type() == QPaintEngine::Raster;
    constexpr std::size_t kMostFine = 80000;  // shapes that are painted fine in a tenth of a second
    const bool fine = raster && quality == PaintQuality::Fine && scene.shapes.size() <= kMostFine;
    const double scale = fine ? pixelsPerUnit(painter) : 0;
    const QImage image = scale > 0 ? fineImage(scene, size, scale, sheet) : QImage();
    if (!image.isNull()) {
        painter.drawImage(QRectF(QPointF(0, 0), QSizeF(image.size()) / scale), image);
        return;
    }
    painter.fillRect(QRectF(QPointF(0, 0), size), sheet);
    ShapePainter(painter, scene, !raster).paint();
}

}  // namespace

void paintChart3D(QPainter& painter, const QRectF& rect, const Chart3D& chart,
                  PaintQuality quality) {
    if (rect.width() < 1 || rect.height() < 1) return;
    const Scene3D scene = build_scene(chart, rect.width(), rect.height(), qtTextMeasure());
    painter.save();
    painter.translate(rect.topLeft());
    painter.setClipRect(QRectF(QPointF(0, 0), rect.size()), Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing, true);
    paintShapes(painter, scene, rect.size(), toQt(chart.sheet), quality);
    painter.setRenderHint(QPainter::Antialiasing, true);
    for (const SceneMarker& marker : scene.markers) paintMarker(painter, marker);
    for (const SceneText& text : scene.texts)
        paintText(painter, {text.centre.x, text.centre.y}, text.text, text.font, text.colour,
                  text.rotation);
    painter.restore();
}

}  // namespace quor::chart
