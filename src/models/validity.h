#pragma once

#include <algorithm>
#include <cstdint>

#include "common/numbers.h"

namespace quor::models {

/// Range of validity of a correlation, K; a limit of 0 is not given.
struct Bounds {
    std::int16_t T_low = 0, T_high = 0;
};

inline bool both_given(Bounds range) {
    return range.T_low > 0 && range.T_high > 0;
}

/// The nearest whole number of kelvins that 16 bits hold, a tie to the even one.
inline std::int16_t whole_kelvins(double difference) {
    return static_cast<std::int16_t>(
        std::clamp(numbers::round_half_even(difference), -32768.0, 32767.0));
}

/// Whole kelvins of T/K outside a range, negative below it, a tie to the even one.
inline std::int16_t deviation_of(double T, Bounds range) {
    const double d = T < range.T_low ? T - range.T_low : T > range.T_high ? T - range.T_high : 0.0;
    return whole_kelvins(d);
}

}  // namespace quor::models
