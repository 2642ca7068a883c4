#pragma once

#include <optional>
#include <span>

#include "chart/chart2d.h"
#include "chart/sheet2d.h"

namespace quor::chart {

/// Where a text beside a curve stands: the point it is attached to, and the offset of its centre
/// in pixels, dy down.
struct LabelSpot {
    int point = 0;
    double dx = 0, dy = 0;
};

/// The spot of a text of `text_width` x `text_height` pixels at `fraction` (0..1) of that part of
/// the curve that lies in the window, measured along the line in the plot area of `width` x
/// `height` pixels. The text stands square to the curve beside it, inside the plot area where
/// possible. Empty when no point of the curve lies in the window.
std::optional<LabelSpot> spot_along_curve(const Chart2D& chart, int curve, double fraction,
                                          double width, double height, double text_width,
                                          double text_height);

/// The spot at which the text hides least of the curves, points and markers and stands on none of
/// the `taken` rectangles (in pixels of the plot area) if that can be; it leaves the middle of the
/// curve, its upper side and its neighbourhood only for that. Empty as for `spot_along_curve`.
std::optional<LabelSpot> best_spot(const Chart2D& chart, int curve, double width, double height,
                                   double text_width, double text_height,
                                   std::span<const SheetRect> taken = {});

/// The inner place of the legend that hides least of the series, for a legend of
/// `legend_width` x `legend_height` in a plot area of `width` x `height` pixels.
LegendAnchor best_legend_anchor(const Chart2D& chart, double width, double height,
                                double legend_width, double legend_height);

/// Left top of a legend with this anchor (not `Automatic`, `Free` or an outside one), in pixels of
/// the plot area, y downwards.
struct LegendSpot {
    double left, top;
};
LegendSpot spot_of_legend(LegendAnchor anchor, double width, double height, double legend_width,
                          double legend_height);

}  // namespace quor::chart
