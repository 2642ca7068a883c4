#pragma once

#include "chart/chart3d.h"
#include "diagrams/axis_units.h"
#include "diagrams/surface.h"

namespace quor::diagrams {

/// Most and fewest nodes in one direction, and their number at first.
inline constexpr int kMostNodes = 201;
inline constexpr int kFewestNodes = 2;
inline constexpr int kNodesAtStart = 41;

/// z of a kind of surface over nx x ny nodes between limits, in displayed units; `s_curve` leaves
/// the dome out. A node without a state is a hole, and one whose z lies beyond a limit; the value
/// behind such a limit stands in `z_behind_holes`. Never throws: units that cannot be had leave
/// only holes. The numbers of nodes are kept within their bounds.
chart::SurfaceGrid surface_grid(const SurfaceKind& kind, const Basis& basis,
                                const SurfaceLimits& limits, bool s_curve, int nx, int ny);

/// A grid in other units of its axes; holes stay.
void convert_grid(chart::SurfaceGrid& grid, const AxisScale& x, const AxisScale& y,
                  const AxisScale& z);

/// True when at least one node has a value.
bool has_surface(const chart::SurfaceGrid& grid);

/// What is said of a surface of which nothing is to be seen.
inline constexpr auto kNoSurface =
    "If no function area is drawn within the x-y-z space\n"
    "two reasons possible:\n"
    "1st: Not enough memory; restart\n"
    "2nd: Insufficient values for axis-ranges";

}  // namespace quor::diagrams
