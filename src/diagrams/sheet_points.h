#pragma once

#include "diagrams/diagram_sheet.h"

namespace quor::Module9 {

/// x and y of measured data on the axes of a diagram, in displayed units.
struct MeasuredPoints {
    std::vector<float> x, y;
};

/// Maps the active lines of the experimental data to the axes of a code. A line without the values
/// that the diagram needs gives no point; one with both densities gives two in a projection.
MeasuredPoints map_measured(std::int16_t DiagramType);

/// `ZeigePunkte`: adds the experimental data as a set of points. Refused, and said, when all sets
/// are in use or no point lies in the window.
bool add_measured_points(DiagramSheet& sheet);

/// An empty diagram for the graph that the XY editor has sent, and that graph in it.
diagrams::DiagramRequest request_of_editor_graph();
bool add_editor_graph(DiagramSheet& sheet);

/// The active points of the XY editor's list as a set of points or as a curve.
bool add_editor_points(DiagramSheet& sheet);
bool add_editor_curve(DiagramSheet& sheet);

}  // namespace quor::Module9
