#pragma once

#include <QByteArray>
#include <QPaintDevice>
#include <QPaintEngine>
#include <memory>

#include "chart/metafile_writer.h"

namespace quor::chart {

/// Turns what is painted into calls of a metafile writer: lines, areas and texts stay such.
class MetafileEngine : public QPaintEngine {
  public:
    /// `unit` is the number of metafile units in a unit of the painter.
    MetafileEngine(std::unique_ptr<metafile::Writer> writer, double unit);

    bool begin(QPaintDevice* device) override;
    bool end() override;
    void updateState(const QPaintEngineState& now) override;
    void drawPath(const QPainterPath& path) override;
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    void drawTextItem(const QPointF& at, const QTextItem& item) override;
    /// Charts hold no images; metafiles of this system neither.
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    Type type() const override { return User; }

    /// The whole file, after the painter has ended.
    QByteArray file() const { return file_; }

  private:
    metafile::MetaPoint unitsOf(const QPointF& point) const;
    void strokePolygon(const QPolygonF& points);
    void fillPolygons(const QList<QPolygonF>& polygons, bool winding, const QColor& colour);
    void updateClip(const QPaintEngineState& now);

    std::unique_ptr<metafile::Writer> writer_;
    double unit_;
    QByteArray file_;
    QTransform transform_;
    QPen pen_;
    QBrush brush_;
    double opacity_ = 1;
    std::optional<QRectF> clip_;  ///< in units of the device
};

enum class MetafileKind { Emf, Wmf };

/// A paint device whose picture becomes a metafile. Sizes in pixels of 1/96 inch.
class MetafileDevice : public QPaintDevice {
  public:
    MetafileDevice(MetafileKind kind, const QSizeF& size, const QString& title);
    QPaintEngine* paintEngine() const override { return &engine_; }
    QByteArray file() const { return engine_.file(); }

  protected:
    int metric(PaintDeviceMetric metric) const override;

  private:
    QSizeF size_;
    mutable MetafileEngine engine_;
};

}  // namespace quor::chart
