#pragma once

#include <span>

#include "diagrams/sheet_draw.h"

namespace quor::diagrams {

/// A line of measured data; a value of 0 is missing. K, kPa, kg/m^3, kJ/kmol, kJ/(kmol K).
struct MeasuredState {
    double T = 0, p = 0;
    double rhoV = 0, rhoL = 0;
    double hLV = 0, cp = 0;
};

/// x and y of measured data on the axes of a diagram, in displayed units.
struct MeasuredPoints {
    std::vector<float> x, y;
};

/// Maps measured data to the axes of a diagram. A line without the values that the diagram needs
/// gives no point; one with both densities gives two in a projection. `T` stands in for a missing
/// temperature in the unit R T.
MeasuredPoints map_measured(const Diagram& diagram, const Basis& basis,
                            std::span<const MeasuredState> data, double T);

/// `ZeigePunkte`: adds measured data as a set of points under the name of their file. Refused, and
/// said, when no point lies in the window.
bool add_measured_points(DiagramSheet& sheet, const Pen& pen, std::span<const MeasuredState> data,
                         const std::string& file);

/// A graph of points that the XY editor has sent.
struct EditorGraph {
    std::string title, x_title, y_title;
    CurveWindow range;  ///< of its points
};
/// The request of an empty sheet for the graph.
DiagramRequest request_of_editor_graph(const EditorGraph& graph);

/// Points of the XY editor as a set of points or as a curve, under their comment.
bool add_editor_points(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                       const std::string& comment);
bool add_editor_curve(DiagramSheet& sheet, std::vector<float> x, std::vector<float> y,
                      const std::string& comment);

}  // namespace quor::diagrams
