#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPen>
#include <QString>
#include <span>

#include "chart/chart_style.h"
#include "chart/text_measure.h"

/// From the styles of chart records to Qt's. Lengths are pixels of 1/96 inch, so that a chart
/// looks the same on screen, in files and on paper; printing scales the painter.
namespace quor::chart {

QColor toQt(const Colour& colour);
/// The face with its size in pixels of 1/96 inch.
QFont toQt(const Font& font);
/// The pen of a line; no pen for `LinePattern::None`.
QPen toQt(const LineStyle& line);
QPen toQt(const Frame& frame);

inline QString toQt(const std::string& text) {
    return QString::fromStdString(text);
}

/// Sizes of texts as `paintText` sets them.
MeasureText qtTextMeasure();

/// Paints a text around its centre, turned counter-clockwise by degrees. Numbers in power form
/// ("2e6") get their exponent raised.
void paintText(QPainter& painter, const QPointF& centre, const std::string& text, const Font& font,
               const Colour& colour, double rotation = 0);

/// Paints the symbols of points. `size` is the width of one in pixels; nothing for `Hidden`.
void paintSymbols(QPainter& painter, std::span<const QPointF> places, SymbolShape shape,
                  double size, const Colour& colour);

}  // namespace quor::chart
