#pragma once

#include <QColor>
#include <QFont>
#include <QPen>
#include <QString>

#include "diagrams/chart/chart_style.h"

/// From the styles of chart records to Qt's. Lengths are pixels of 1/96 inch, so that a chart
/// looks the same on screen, in files and on paper; printing scales the painter.
namespace chart {

QColor ToQt(const Colour& colour);
/// The face with its size in pixels of 1/96 inch.
QFont ToQt(const Font& font);
/// The pen of a line; no pen for `LinePattern::None`.
QPen ToQt(const LineStyle& line);
QPen ToQt(const Frame& frame);

inline QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace chart
