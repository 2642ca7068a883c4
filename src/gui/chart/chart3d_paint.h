#pragma once

#include <QPainter>
#include <QRectF>

#include "chart/chart3d.h"

namespace quor::chart {

/// How much time a picture may take. `Turning` leaves the edges of the cells in steps of whole
/// pixels; it is for frames that the next one replaces.
enum class PaintQuality { Fine, Turning };

/// Paints the chart into `rect`. Works on every painter: widgets, images, files, printers. A unit
/// of the painter's coordinates is taken for 1/96 inch.
void paintChart3D(QPainter& painter, const QRectF& rect, const Chart3D& chart,
                  PaintQuality quality = PaintQuality::Fine);

}  // namespace quor::chart
