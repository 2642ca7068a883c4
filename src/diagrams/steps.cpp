#include "diagrams/steps.h"

#include <algorithm>
#include <cmath>

namespace quor::diagrams {

namespace {

constexpr double kReached = 1e-6;  // of a step
constexpr long kMostPasses = 50000;

/// Passes of a loop; a step of 0 or in the wrong direction gives none.
double length_in_steps(double start, double end, double step) {
    const double length = (end - start) / step;
    return std::isfinite(length) && length >= -kReached ? length : -1;
}

long as_count(double passes) {
    return static_cast<long>(std::min(passes, 1e15));
}

}  // namespace

Steps Steps::plain(double start, double end, double step) {
    Steps s;
    s.start_ = start;
    s.end_ = end;
    s.step_ = step;
    const double length = length_in_steps(start, end, step);
    if (length >= 0 || length == -kReached) s.count_ = as_count(std::floor(length + kReached)) + 1;
    return s;
}

Steps Steps::clamped(double start, double end, double step) {
    Steps s;
    s.start_ = start;
    s.end_ = end;
    s.step_ = step;
    s.clamp_ = true;
    const double length = length_in_steps(start, end, step);
    if (length >= 0) s.count_ = as_count(std::ceil(length - kReached)) + 1;
    return s;
}

Steps& Steps::within(double low, double high) {
    if (count_ <= kMostPasses) return *this;
    const double a = (low - start_) / step_;
    const double b = (high - start_) / step_;
    const double from = std::max(0.0, std::floor(std::min(a, b)) - 1);
    const double to = std::ceil(std::max(a, b)) + 2;
    first_ = as_count(from);
    count_ = std::min(count_, as_count(std::max(to, 0.0)));
    return *this;
}

bool Steps::next(double& value) {
    if (first_ >= count_) return false;
    if (stride_ == 0) stride_ = (count_ - first_ - 1) / kMostPasses + 1;
    value = start_ + static_cast<double>(first_) * step_;
    const bool last = first_ == count_ - 1;
    if (clamp_ && last) value = end_;
    // The end is never stepped over.
    first_ = last ? count_ : std::min(first_ + stride_, count_ - 1);
    return true;
}

}  // namespace quor::diagrams
