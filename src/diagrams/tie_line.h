#pragma once

#include "diagrams/diagram.h"

namespace quor::diagrams {

/// True when a V-L equilibrium can exist at the parameter that a section holds: below the critical
/// point.
bool has_tie_line(Section section, const models::Fluid& fluid, const StateParameters& at);

}  // namespace quor::diagrams
