#include "gui/chart/chart2d_paint.h"

#include <QPaintEngine>

#include "gui/chart/chart_qt.h"

namespace quor::chart {

namespace {

QRectF rectOf(const SheetRect& r) {
    return {r.left, r.top, r.width, r.height};
}

/// Paints the items of a picture, whatever stands before them.
class ItemPainter {
  public:
    explicit ItemPainter(QPainter& painter) : painter_(painter) {}

    void operator()(const PictureBox& box) {
        painter_.setPen(toQt(box.frame));
        painter_.setBrush(box.fill.a > 0 ? QBrush(toQt(box.fill)) : QBrush(Qt::NoBrush));
        painter_.drawRect(rectOf(box.rect));
    }

    void operator()(const PictureLine& line) {
        QPen pen = toQt(line.style);
        if (line.square_ends) pen.setCapStyle(Qt::SquareCap);
        painter_.setPen(pen);
        painter_.setBrush(Qt::NoBrush);
        const std::span<const QPointF> points = qtPoints(line.points);
        if (points.size() == 2)
            painter_.drawLine(points[0], points[1]);
        else
            painter_.drawPolyline(points.data(), static_cast<int>(points.size()));
    }

    void operator()(const PictureSymbols& symbols) {
        paintSymbols(painter_, qtPoints(symbols.places), symbols.shape,
                     static_cast<double>(symbols.size), symbols.colour);
    }

    void operator()(const PictureText& text) {
        paintText(painter_, {text.centre.x, text.centre.y}, text.text, text.font, text.colour,
                  text.rotation);
    }

  private:
    std::span<const QPointF> qtPoints(const std::vector<SheetPoint>& points) {
        points_.clear();
        for (const SheetPoint& p : points) points_.emplace_back(p.x, p.y);
        return points_;
    }

    QPainter& painter_;
    std::vector<QPointF> points_;
};

}  // namespace

void paintPicture(QPainter& painter, const Picture2D& picture) {
    painter.save();
    painter.fillRect(rectOf(picture.sheet.sheet), toQt(picture.paper));
    const QPaintEngine* engine = painter.paintEngine();
    // Lines of one pixel fill whole pixels of an image when they run along pixel centres.
    if (engine && engine->type() == QPaintEngine::Raster) painter.translate(0.5, 0.5);
    painter.setRenderHint(QPainter::Antialiasing, true);
    ItemPainter paintItem(painter);
    for (const PictureItem& item : picture.items) std::visit(paintItem, item);
    painter.restore();
}

void paintChart2D(QPainter& painter, const QRectF& rect, const Chart2D& chart) {
    if (rect.width() < 1 || rect.height() < 1) return;
    painter.save();
    painter.translate(rect.topLeft());
    paintPicture(painter, picture_of(chart, rect.width(), rect.height(), qtTextMeasure()));
    painter.restore();
}

}  // namespace quor::chart
