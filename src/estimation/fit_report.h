#pragma once

#include <string>

#include "estimation/fit_state.h"

namespace quor::estimation {

/// A parameter as fields and lists show it: twelve significant digits at most.
std::string parameter_text(double value);
/// An uncertainty: seven digits suffice for it.
std::string rough_text(double value);
/// Mean and largest deviation of the function from the points; empty where there are none.
std::string deviation_text(const FitReport& report);

/// A fit as a list in columns, for the printer: substance, equation, parameters, quality, notes,
/// correlations, and the points with their residuals.
std::string fit_report(const FitState& state);

}  // namespace quor::estimation
