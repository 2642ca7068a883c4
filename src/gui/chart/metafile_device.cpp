#include "gui/chart/metafile_device.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace quor::chart {

namespace {

using metafile::Cap;
using metafile::Join;
using metafile::MetaPoint;

constexpr int kDotsPerInch = 96;
constexpr double kMillimetresPerInch = 25.4;
constexpr int kUnitsPerInch = 1200;
constexpr double kLargestSide = 32000;  // units of a WMF, whose coordinates have 16 bits

metafile::MetaSize metaSize(MetafileKind kind, const QSizeF& size) {
    const double side = std::max({size.width(), size.height(), 1.0});
    double perInch = kUnitsPerInch;
    if (kind == MetafileKind::Wmf)
        perInch = std::min(perInch, std::floor(kLargestSide * kDotsPerInch / side));
    perInch = std::max(perInch, 1.0);
    const auto units = [&](double pixels) {
        return static_cast<std::int32_t>(std::lround(pixels * perInch / kDotsPerInch));
    };
    return {units(size.width()), units(size.height()), static_cast<std::int32_t>(perInch)};
}

std::unique_ptr<metafile::Writer> makeWriter(MetafileKind kind, const QSizeF& size,
                                             const QString& title) {
    const metafile::MetaSize units = metaSize(kind, size);
    if (kind == MetafileKind::Emf)
        return metafile::make_emf_writer(units, title.toLatin1().toStdString());
    return metafile::make_wmf_writer(units);
}

Colour colourOf(const QColor& colour, double opacity) {
    const auto channel = [](double value) {
        return static_cast<std::uint8_t>(std::clamp(value, 0.0, 255.0));
    };
    return {channel(colour.red()), channel(colour.green()), channel(colour.blue()),
            channel(std::round(colour.alpha() * opacity))};
}

Cap capOf(const QPen& pen) {
    if (pen.capStyle() == Qt::RoundCap) return Cap::Round;
    return pen.capStyle() == Qt::SquareCap ? Cap::Square : Cap::Flat;
}

Join joinOf(const QPen& pen) {
    if (pen.joinStyle() == Qt::RoundJoin) return Join::Round;
    return pen.joinStyle() == Qt::BevelJoin ? Join::Bevel : Join::Miter;
}

/// How much a transform enlarges, on the average of both directions.
double enlargement(const QTransform& t) {
    return std::sqrt(std::abs(t.determinant()));
}

/// The pieces of a line that a dash pattern leaves; lengths of the pattern in units of the line.
QList<QPolygonF> dashed(const QPolygonF& line, const QList<qreal>& pattern, double start) {
    constexpr qsizetype kMostPieces = 20000;
    double period = 0;
    for (const qreal length : pattern) period += length;
    if (!(period > 0)) return {line};
    // Find the place of the start in the pattern.
    qsizetype index = 0;
    double left = std::fmod(start, period);
    while (left >= pattern[index % pattern.size()]) left -= pattern[index++ % pattern.size()];
    left = pattern[index % pattern.size()] - left;
    QList<QPolygonF> pieces;
    QPolygonF piece;
    if (index % 2 == 0) piece << line.first();
    for (qsizetype k = 1; k < line.size(); ++k) {
        QPointF from = line[k - 1];
        double length = std::hypot(line[k].x() - from.x(), line[k].y() - from.y());
        while (length > left && pieces.size() < kMostPieces) {
            const QPointF at = from + (line[k] - from) * (left / length);
            if (index % 2 == 0) {
                piece << at;
                pieces << piece;
                piece.clear();
            } else {
                piece << at;
            }
            length -= left;
            from = at;
            left = pattern[++index % pattern.size()];
        }
        left -= length;
        if (index % 2 == 0) piece << line[k];
    }
    if (piece.size() > 1) pieces << piece;
    return pieces;
}

}  // namespace

MetafileEngine::MetafileEngine(std::unique_ptr<metafile::Writer> writer, double unit)
    : QPaintEngine(AllFeatures), writer_(std::move(writer)), unit_(unit) {}

bool MetafileEngine::begin(QPaintDevice*) {
    return true;
}

bool MetafileEngine::end() {
    const auto bytes = writer_->finish();
    file_ = QByteArray(reinterpret_cast<const char*>(bytes.data()),
                       static_cast<qsizetype>(bytes.size()));
    return true;
}

void MetafileEngine::updateClip(const QPaintEngineState& now) {
    if (now.clipOperation() == Qt::NoClip) {
        clip_.reset();
    } else {
        // All clips of charts are upright rectangles; of others the bounds count.
        const QRectF bounds =
            now.state().testFlag(DirtyClipPath)
                ? now.transform().map(now.clipPath()).boundingRect()
                : now.transform().mapRect(QRectF(now.clipRegion().boundingRect()));
        const bool narrows = now.clipOperation() == Qt::IntersectClip && clip_;
        clip_ = narrows ? clip_->intersected(bounds) : bounds;
    }
    if (!clip_) {
        writer_->clip(std::nullopt);
        return;
    }
    const MetaPoint topLeft{static_cast<std::int32_t>(std::floor(clip_->left() * unit_)),
                            static_cast<std::int32_t>(std::floor(clip_->top() * unit_))};
    const MetaPoint bottomRight{static_cast<std::int32_t>(std::ceil(clip_->right() * unit_)),
                                static_cast<std::int32_t>(std::ceil(clip_->bottom() * unit_))};
    writer_->clip(metafile::MetaRect{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y});
}

void MetafileEngine::updateState(const QPaintEngineState& now) {
    const DirtyFlags dirty = now.state();
    transform_ = now.transform();
    if (dirty & DirtyPen) pen_ = now.pen();
    if (dirty & DirtyBrush) brush_ = now.brush();
    if (dirty & DirtyOpacity) opacity_ = now.opacity();
    if (dirty & (DirtyClipPath | DirtyClipRegion)) updateClip(now);
}

MetaPoint MetafileEngine::unitsOf(const QPointF& point) const {
    const auto units = [&](double value) {
        // Far outside every picture, and within 32 bits.
        constexpr double kFar = 1e8;
        return static_cast<std::int32_t>(std::lround(std::clamp(value * unit_, -kFar, kFar)));
    };
    return {units(point.x()), units(point.y())};
}

void MetafileEngine::strokePolygon(const QPolygonF& points) {
    if (pen_.style() == Qt::NoPen || points.size() < 2) return;
    const double factor = pen_.isCosmetic() ? 1 : enlargement(transform_);
    const double width = std::max(pen_.widthF(), pen_.isCosmetic() ? 1.0 : 0.1) * factor;
    metafile::MetaPen pen;
    pen.colour = colourOf(pen_.color(), opacity_);
    pen.width = std::max(1, static_cast<int>(std::lround(width * unit_)));
    pen.cap = capOf(pen_);
    pen.join = joinOf(pen_);
    if (pen.colour.a == 0) return;
    const QPolygonF mapped = transform_.map(points);
    QList<QPolygonF> lines{mapped};
    if (pen_.style() != Qt::SolidLine) {
        QList<qreal> pattern = pen_.dashPattern();
        for (qreal& length : pattern) length *= width;
        lines = dashed(mapped, pattern, pen_.dashOffset() * width);
    }
    std::vector<MetaPoint> units;
    for (const QPolygonF& line : lines) {
        units.clear();
        for (const QPointF& p : line) units.push_back(unitsOf(p));
        writer_->polyline(units, pen);
    }
}

void MetafileEngine::fillPolygons(const QList<QPolygonF>& polygons, bool winding,
                                  const QColor& colour) {
    const Colour paint = colourOf(colour, opacity_);
    if (paint.a == 0) return;
    std::vector<metafile::Polygon> units;
    for (const QPolygonF& polygon : polygons) {
        metafile::Polygon corners;
        for (const QPointF& p : polygon) corners.push_back(unitsOf(transform_.map(p)));
        units.push_back(std::move(corners));
    }
    writer_->fill(units, winding, paint);
}

void MetafileEngine::drawPath(const QPainterPath& path) {
    const QList<QPolygonF> parts = path.toSubpathPolygons();
    if (brush_.style() != Qt::NoBrush)
        fillPolygons(parts, path.fillRule() == Qt::WindingFill, brush_.color());
    for (const QPolygonF& part : parts) strokePolygon(part);
}

void MetafileEngine::drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) {
    QPolygonF polygon(QList<QPointF>(points, points + count));
    if (mode == PolylineMode) {
        strokePolygon(polygon);
        return;
    }
    if (brush_.style() != Qt::NoBrush) fillPolygons({polygon}, mode == WindingMode, brush_.color());
    if (count > 0) polygon << polygon.first();
    strokePolygon(polygon);
}

void MetafileEngine::drawTextItem(const QPointF& at, const QTextItem& item) {
    const std::u16string text = item.text().toStdU16String();
    if (!writer_->holds(text)) {
        QPainterPath outline;
        outline.setFillRule(Qt::WindingFill);
        outline.addText(at, item.font(), item.text());
        fillPolygons(outline.toSubpathPolygons(), true, pen_.color());
        return;
    }
    const double factor = enlargement(transform_);
    const QFontMetricsF metrics(item.font());
    metafile::MetaText out;
    out.baseline = unitsOf(transform_.map(at));
    out.text = text;
    out.colour = colourOf(pen_.color(), opacity_);
    // Each place is rounded, not each advance, so that the errors do not add up.
    std::int32_t last = 0;
    for (qsizetype k = 1; k <= item.text().size(); ++k) {
        const double width = metrics.horizontalAdvance(item.text().left(k)) * factor * unit_;
        const auto end = static_cast<std::int32_t>(std::lround(width));
        out.advances.push_back(end - last);
        last = end;
    }
    const QFontInfo info(item.font());
    out.font.family = info.family().toLatin1().toStdString();
    out.font.height = static_cast<std::int32_t>(std::lround(info.pixelSize() * factor * unit_));
    constexpr double kTenthsPerRadian = 1800 / 3.14159265358979323846;
    out.font.tenth_degrees = static_cast<std::int32_t>(
        std::lround(std::atan2(-transform_.m12(), transform_.m11()) * kTenthsPerRadian));
    out.font.bold = item.font().bold();
    out.font.italic = item.font().italic();
    writer_->text(out);
}

MetafileDevice::MetafileDevice(MetafileKind kind, const QSizeF& size, const QString& title)
    : size_(size),
      engine_(makeWriter(kind, size, title),
              static_cast<double>(metaSize(kind, size).units_per_inch) / kDotsPerInch) {}

int MetafileDevice::metric(PaintDeviceMetric metric) const {
    const auto whole = [](double value) { return static_cast<int>(std::lround(value)); };
    switch (metric) {
        case PdmWidth:
            return whole(size_.width());
        case PdmHeight:
            return whole(size_.height());
        case PdmWidthMM:
            return whole(size_.width() * kMillimetresPerInch / kDotsPerInch);
        case PdmHeightMM:
            return whole(size_.height() * kMillimetresPerInch / kDotsPerInch);
        case PdmNumColors:
            return 1 << 24;
        case PdmDepth:
            return 32;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return kDotsPerInch;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return whole(devicePixelRatioFScale());
        default:
            return QPaintDevice::metric(metric);
    }
}

}  // namespace quor::chart
