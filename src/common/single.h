#pragma once

#include <cmath>
#include <limits>

namespace quor::numbers {

/// True for a number that 32 bits hold, be it with fewer digits: finite and not beyond their range.
inline bool fits_single(double value) {
    return std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max());
}

}  // namespace quor::numbers
