#pragma once

#include <functional>
#include <string>

#include "diagrams/coordinates.h"
#include "diagrams/diagram_request.h"

namespace quor::diagrams {

/// With what the next diagram begins: the parameters of the last curve and the limits of the
/// quantities.
struct DiagramStart {
    StateParameters at{298.15, 0, 0};
    CoordinateDefaults limits{};
    bool new_substance = true;  ///< no diagram of the substance was opened yet
};

/// A diagram that is ready to open.
struct PreparedDiagram {
    DiagramRequest request{};
    DiagramStart start{};
};

/// Window and texts of a diagram, and its first parameters: those of the last one, for a new
/// substance its critical point.
PreparedDiagram prepare_diagram(const Diagram& diagram, const Basis& basis, DiagramStart start);

/// The input that a diagram opens with.
enum class DiagramInput : std::uint8_t {
    none,
    parameter,
    range,     ///< of two functions over each other
    validity,  ///< none: the function of the database is drawn at once
};
DiagramInput input_of(const Diagram& diagram);

/// Caption of the diagram's view.
std::string view_caption(const DiagramRequest& request);

}  // namespace quor::diagrams
