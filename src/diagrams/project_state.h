#pragma once

#include <cstdint>

#include "diagrams/catalogue.h"
#include "models/caloric.h"

namespace quor::diagrams {

/// A state on the axes of a diagram, in displayed units; z holds T/K, p/kPa or v in m^3/kmol by
/// its kind (-1, -2, -3).
struct Projection {
    double x = 0, y = 0, z = 0;
    std::int16_t zKind = 0;
    bool exists = false;  ///< false where an axis of the diagram has no value for the state
};

/// Maps a state at T/K, p/kPa, v in m^3/kmol with its caloric values to the axes of a diagram.
Projection project_state(std::int16_t DiagramType, double T, double p, double v,
                         const models::StateValues& functions);

/// True when an axis shows a caloric value, so that `functions` are needed.
bool needs_functions(std::int16_t DiagramType);

/// True when the states of the fluid have a place in the diagram: process lines and tie-lines can
/// be drawn in it.
bool ShowsStates(std::int16_t DiagramType);

}  // namespace quor::diagrams
