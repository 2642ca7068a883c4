#pragma once

#include <QPainter>
#include <QRectF>

#include "chart/picture2d.h"

namespace quor::chart {

/// Paints a picture with its left top at the painter's origin. Works on every painter: widgets,
/// images, files, printers. A unit of the painter's coordinates is taken for 1/96 inch.
void paintPicture(QPainter& painter, const Picture2D& picture);

/// Lays the chart out in `rect` and paints it there.
void paintChart2D(QPainter& painter, const QRectF& rect, const Chart2D& chart);

}  // namespace quor::chart
