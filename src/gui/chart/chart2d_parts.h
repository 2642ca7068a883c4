#pragma once

#include <QPainter>

#include "chart/chart2d.h"
#include "chart/sheet2d.h"

/// The parts of a 2D sheet, from the lowest to the uppermost, at the places that `lay_out` has
/// found. Nothing needs clipping, which not every vector format knows.
namespace quor::chart {

void paintSheetBackground(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet);
void paintGrid(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet);
void PaintLines(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet);
void paintSymbols(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet);
void paint_axes(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet);
/// Header, footer, titles of the axes, labels and legend.
void paintTexts(QPainter& painter, const Chart2D& chart, const Sheet2D& sheet);

}  // namespace quor::chart
