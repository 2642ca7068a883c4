#pragma once

#include <optional>

#include "diagrams/diagram.h"
#include "models/caloric.h"

namespace quor::diagrams {

/// A state on the axes of a diagram, in units of the computation; z holds T/K, p/kPa or v in
/// m^3/kmol.
struct Projection {
    double x = 0, y = 0, z = 0;
    Parameter parameter = Parameter::none;  ///< what z is
};

/// Maps a state at T/K, p/kPa, v in m^3/kmol with its caloric values to the axes of a diagram;
/// nothing where an axis has no value for the state. `functions` are needed only where
/// `shows_caloric_values`.
std::optional<Projection> project_state(const Diagram& diagram, const Basis& basis,
                                        const StateParameters& at,
                                        const std::optional<models::StateValues>& functions);

}  // namespace quor::diagrams
