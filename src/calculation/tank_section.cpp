#include "calculation/tank_section.h"

#include <cmath>
#include <numbers>

namespace quor::calculation {

double level_height(double share) {
    constexpr int kHalvings = 60;
    if (!(share > 0.0)) return 0.0;
    if (share >= 1.0) return 1.0;
    // The share rises with the angle all the way.
    double low = 0.0, high = 2.0 * std::numbers::pi;
    for (int i = 0; i < kHalvings; ++i) {
        const double a = 0.5 * (low + high);
        (a - std::sin(a) < 2.0 * std::numbers::pi * share ? low : high) = a;
    }
    return 0.5 * (1.0 - std::cos(0.5 * low));
}

}  // namespace quor::calculation
