#pragma once

#include "diagrams/curve_frame.h"

namespace quor::diagrams {

/// T/K at p/kPa where h or s of the stable phase has a molar value, near a start; nothing when
/// there is none: the value may lie between those of both phases.
std::optional<double> solve_isoline(const CurveFrame& c, Function function, double p, double value,
                                    double start_T);

/// The same for p/kPa at T/K, the solution nearest to a start: an isenthalpic can meet a
/// temperature twice.
std::optional<double> solve_isoline_pressure(const CurveFrame& c, Function function, double T,
                                             double value, double start_p);

}  // namespace quor::diagrams
