#pragma once

#include <string>

#include "calculation/request.h"

namespace quor::report {

/// The title of a calculation: with "(global calculation)" or "(partial calculation)" where both
/// exist. For a tank it is the whole caption.
std::string title_of(calculation::Task task, const calculation::Method& method);
/// Caption of the result view: "Result of the Calculation: " and the title, or the tank's own.
std::string caption_of(calculation::Task task, const calculation::Method& method);

}  // namespace quor::report
