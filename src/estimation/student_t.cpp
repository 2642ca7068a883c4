#include "estimation/student_t.h"

#include <cmath>
#include <limits>

namespace quor::estimation {

namespace {

constexpr int kFractionSteps = 500;
constexpr double kFractionTolerance = 1e-15;
constexpr int kBisections = 1100;  // as many halvings as a double can tell apart

/// The continued fraction; converges fast for x < (a + 1)/(a + b + 2).
double beta_fraction(double a, double b, double x) {
    constexpr double tiny = 1e-300;
    const auto guard = [](double v) { return std::fabs(v) < tiny ? tiny : v; };
    double c = 1;
    double d = 1 / guard(1 - (a + b) * x / (a + 1));
    double value = d;
    for (int m = 1; m <= kFractionSteps; ++m) {
        const double even = m * (b - m) * x / ((a + 2 * m - 1) * (a + 2 * m));
        d = 1 / guard(1 + even * d);
        c = guard(1 + even / c);
        value *= d * c;
        const double odd = -(a + m) * (a + b + m) * x / ((a + 2 * m) * (a + 2 * m + 1));
        d = 1 / guard(1 + odd * d);
        c = guard(1 + odd / c);
        value *= d * c;
        if (std::fabs(d * c - 1) < kFractionTolerance) break;
    }
    return value;
}

}  // namespace

double incomplete_beta(double a, double b, double x) {
    if (!(x > 0)) return 0;
    if (x >= 1) return 1;
    const double front = std::exp(std::lgamma(a + b) - std::lgamma(a) - std::lgamma(b) +
                                  a * std::log(x) + b * std::log1p(-x));
    if (x < (a + 1) / (a + b + 2)) return front * beta_fraction(a, b, x) / a;
    return 1 - front * beta_fraction(b, a, 1 - x) / b;
}

double student_t_quantile(double probability, double freedom) {
    if (probability == 0.5) return 0;
    // Both tails together hold I_x(freedom/2, 1/2) with x = freedom/(freedom + t^2).
    const double tail = probability > 0.5 ? 1 - probability : probability;
    double low = 0;
    double high = 1;
    for (int i = 0; i < kBisections; ++i) {
        const double middle = 0.5 * (low + high);
        if (!(middle > low && middle < high)) break;
        (incomplete_beta(0.5 * freedom, 0.5, middle) < 2 * tail ? low : high) = middle;
    }
    const double x = std::fmax(high, std::numeric_limits<double>::min());
    const double t = std::sqrt(freedom * (1 - x) / x);
    return probability > 0.5 ? t : -t;
}

}  // namespace quor::estimation
