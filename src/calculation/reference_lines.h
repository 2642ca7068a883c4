#pragma once

#include <string>
#include <vector>

namespace Zentrale {

/// What h, s, g of a list, page or protocol refer to: a line with the models, a line with the zero
/// of h and s, and with `exergies` a line with the surroundings. Numbers carry the locale's decimal
/// mark.
std::vector<std::string> ReferenceLines(bool exergies = true);
/// All of it in one line.
std::string ReferenceLine();

}  // namespace Zentrale
