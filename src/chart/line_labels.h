#pragma once

#include <array>
#include <string>
#include <vector>

#include "chart/sheet2d.h"

namespace quor::chart {

/// The rectangle of a text that is turned, by its corners in order.
using TurnedBox = std::array<SheetPoint, 4>;

/// True when two turned rectangles have a point in common.
bool overlap(const TurnedBox& a, const TurnedBox& b);
/// True when a segment has a point in common with a turned rectangle.
bool crosses(const TurnedBox& box, SheetPoint a, SheetPoint b);

/// The font of all labels on lines.
const Font& line_label_font();

/// Places of the labels that are written on their curves (`CurveLabel::on_line`): along the line
/// and upright to read, inside the plot area, none on another, none on a curve without such a
/// label; among those the one that lies on the fewest other lines. A curve that has no such place
/// gets none.
std::vector<LineLabel> place_line_labels(const Chart2D& chart, const SheetRect& plot,
                                         const MeasureText& measure);

}  // namespace quor::chart
