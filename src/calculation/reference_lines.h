#pragma once

#include <string>
#include <vector>

namespace Zentrale {

/// What h, s, g and exergies of a list, page or protocol refer to: a line with the models, a line
/// with the zero of h and s, a line with the surroundings; each at most 74 characters or little
/// more. Numbers carry the locale's decimal mark.
std::vector<std::string> ReferenceLines();
/// The same in one line.
std::string ReferenceLine();

}  // namespace Zentrale
