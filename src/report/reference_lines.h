#pragma once

#include <string>
#include <vector>

#include "report/made.h"
#include "report/report.h"

namespace quor::report {

/// How the numbers of the lines are written.
enum class Numbers { Locale, Point };

/// What h, s, g of a list, page or protocol refer to: a line with the models, a line with the zero
/// of h and s, and with `exergies` a line with the surroundings.
std::vector<std::string> reference_lines(const Made& made, bool exergies = true,
                                         Numbers numbers = Numbers::Locale);
/// What every copy of a result begins with: substance, model, reference state and units.
std::vector<HeadLine> head_lines(const Made& made);
/// All of it in one line.
std::string reference_line(const Made& made);
/// The line with the models alone.
std::string model_line(const Made& made);

}  // namespace quor::report
