#pragma once

#include <optional>

#include "diagrams/coordinate_defaults.h"
#include "diagrams/diagram.h"

namespace quor::diagrams {

/// A window of round numbers round what the fluid's states from its triple point to 1.4 T(cr), and
/// from 100 kPa to 1.5 p(cr), reach on the axes of h, s and their kin. The other axis keeps its
/// limits in `window`. Nothing where no axis shows such a function, or without a heat capacity.
std::optional<CurveWindow> fluid_window(const Diagram& diagram, const Basis& basis,
                                        const CurveWindow& window);

}  // namespace quor::diagrams
