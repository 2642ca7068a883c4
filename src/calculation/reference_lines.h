#pragma once

#include <string>
#include <vector>

namespace quor::calculation {

/// How the numbers of the lines are written.
enum class Numbers { Locale, Point };

/// What h, s, g of a list, page or protocol refer to: a line with the models, a line with the zero
/// of h and s, and with `exergies` a line with the surroundings.
std::vector<std::string> reference_lines(bool exergies = true, Numbers numbers = Numbers::Locale);
/// All of it in one line.
std::string ReferenceLine();

}  // namespace quor::calculation
