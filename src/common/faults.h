#pragma once

#include <cmath>
#include <stdexcept>
#include <string>

/// Arithmetic faults. A guard of an outer routine catches them and shows the error text; none
/// leaves a public routine of the system.
namespace quor::faults {

inline constexpr const char* kDivisionByZero = "Division by zero";
inline constexpr const char* kOverflow = "Overflow";
inline constexpr const char* kInvalidArgument = "Invalid procedure call or argument";
inline constexpr const char* kTypeMismatch = "Type mismatch";

/// A run-time fault with the system's error text.
class Fault : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The value itself, or the fault "Overflow" when it is not finite.
inline double finite(double value) {
    if (!std::isfinite(value)) throw Fault(kOverflow);
    return value;
}

/// numerator/denominator, or the fault "Division by zero".
inline double divide(double numerator, double denominator) {
    if (denominator == 0.0) throw Fault(kDivisionByZero);
    return finite(numerator / denominator);
}

/// Natural logarithm, or the fault of a value that is not positive.
inline double log(double value) {
    if (!(value > 0.0)) throw Fault(kInvalidArgument);
    return std::log(value);
}

}  // namespace quor::faults
