#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

namespace quor::diagrams {

/// A limit of an axis in 32 bits. Limits are proposals: those of a record that makes no sense end
/// at the largest number, and one that is no number is 0.
inline float bounded_single(double value) {
    constexpr double largest = std::numeric_limits<float>::max();
    return std::isnan(value) ? 0.0F : static_cast<float>(std::clamp(value, -largest, largest));
}

}  // namespace quor::diagrams
