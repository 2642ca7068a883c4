#pragma once

#include <QPainter>
#include <QRectF>

#include "diagrams/chart/chart3d.h"

namespace chart {

/// Paints the chart into `rect`. Works on every painter: widgets, images, files, printers. A unit
/// of the painter's coordinates is taken for 1/96 inch.
void PaintChart3D(QPainter& painter, const QRectF& rect, const Chart3D& chart);

}  // namespace chart
