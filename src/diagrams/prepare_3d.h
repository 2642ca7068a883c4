#pragma once

#include <functional>

#include "chart/chart3d.h"

namespace quor::Module9 {

/// The view that the preparation opens; the program installs it.
struct Diagram3DViews {
    std::function<void()> openDiagram;  ///< `SurfaceWindow`, for `Diagram3DKind` of the session
};
Diagram3DViews& views3_d();

/// Sets the working limits of the session's surface to their defaults and opens the view. A fault
/// while the view opens is told.
void prepare_diagram3_d();

/// A chart of the session's surface: its fonts, and all that `renew_surface` sets.
void init_graph3_d(chart::Chart3D& chart, int nx, int ny);

/// Texts, axes and surface of a chart from the session: limits, titles, the grid of nx x ny nodes.
/// The axis of z follows the data where no limits are set. Fonts, styles and view stay.
void renew_surface(chart::Chart3D& chart, int nx, int ny);

/// The critical point as a marker of a chart; false, after a box, where there is none.
bool add_critical_point(chart::Chart3D& chart);

/// The remark of a chart without a surface; false when there is something to see.
bool tell_empty_surface(const chart::Chart3D& chart);

}  // namespace quor::Module9
