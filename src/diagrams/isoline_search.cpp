#include "diagrams/isoline_search.h"

#include <cmath>

#include "common/constants.h"

namespace quor::diagrams {

namespace {

constexpr double kTolerance = 1e-9;  // relative, of T or p

/// Relative to the natural sizes of the functions: R T for an enthalpy, R for an entropy.
bool fits(double difference, double size) {
    constexpr double kFit = 1e-6;
    return std::fabs(difference) <= kFit * size;
}

/// Secant search; nothing when it does not end on a zero. A negative value is thrown back to twice
/// its size on the other side.
template <class F>
std::optional<double> secant(F excess, double start, double size) {
    constexpr int kRounds = 40;
    double x = start;
    double last = x;
    auto f_last = excess(last);
    if (!f_last) return std::nullopt;
    if (*f_last == 0) return x;
    // A first step of fifty tolerances is too fine for the digits of the functions.
    x = last * (1 + 1e-5);
    for (int i = 0; i < kRounds; ++i) {
        const auto f = excess(x);
        if (!f) return std::nullopt;
        if (*f == *f_last) return fits(*f, size) ? std::optional(x) : std::nullopt;
        const double step = *f * (x - last) / (*f - *f_last);
        last = x;
        f_last = f;
        x -= step;
        if (x < 0) x *= -2;
        if (!std::isfinite(x) || x == 0) return std::nullopt;
        if (std::fabs(step) <= kTolerance * x) {
            const auto rest = excess(x);
            return rest && fits(*rest, size) ? std::optional(x) : std::nullopt;
        }
    }
    return std::nullopt;
}

/// Halves a bracket; nothing when it holds a jump and not a zero.
template <class F>
std::optional<double> halve(F excess, double a, double b, double fa, double size) {
    constexpr int kHalvings = 80;
    for (int i = 0; i < kHalvings && std::fabs(b - a) > 1e-15 * a; ++i) {
        const double middle = 0.5 * (a + b);
        const auto f = excess(middle);
        if (!f) return std::nullopt;
        if (std::signbit(*f) == std::signbit(fa)) {
            a = middle;
        } else {
            b = middle;
        }
    }
    const double x = 0.5 * (a + b);
    const auto rest = excess(x);
    return rest && fits(*rest, size) ? std::optional(x) : std::nullopt;
}

/// Looks for a change of sign further and further from the start, on both sides in turn.
template <class F>
std::optional<double> widening(F excess, double start, double size) {
    constexpr double kRatio = 1.02;
    constexpr int kRounds = 600;
    const auto first = excess(start);
    if (!first) return std::nullopt;
    double up = start, down = start;
    auto f_up = first, f_down = first;
    for (int i = 0; i < kRounds && (f_up || f_down); ++i) {
        if (f_up) {
            const auto f = excess(up * kRatio);
            if (f && std::signbit(*f) != std::signbit(*f_up))
                return halve(excess, up, up * kRatio, *f_up, size);
            up *= kRatio;
            f_up = f;
        }
        if (f_down) {
            const auto f = excess(down / kRatio);
            if (f && std::signbit(*f) != std::signbit(*f_down))
                return halve(excess, down, down / kRatio, *f_down, size);
            down /= kRatio;
            f_down = f;
        }
    }
    return std::nullopt;
}

/// Value of a function of the stable phase, less a target.
struct Excess {
    const CurveFrame& c;
    Function function;
    double target;

    std::optional<double> operator()(double T, double p) const {
        const auto v = c.stable_volume(T, p);
        if (!v) return std::nullopt;
        const auto value = value_of(c.functions(T, p, *v), function);
        if (!value) return value;
        return *value - target;
    }
};

/// The natural size of a function at T: R, or R T.
double size_of(Function function, double T) {
    return function == Function::s ? constants::R : constants::R * T;
}

}  // namespace

std::optional<double> solve_isoline(const CurveFrame& c, Function function, double p, double value,
                                    double start_T) {
    if (!(p > 0) || !(start_T > 0)) return std::nullopt;
    const Excess excess{c, function, value};
    const auto over_T = [&](double T) { return excess(T, p); };
    const double size = size_of(function, start_T);
    const auto found = secant(over_T, start_T, size);
    return found ? found : widening(over_T, start_T, size);
}

std::optional<double> solve_isoline_pressure(const CurveFrame& c, Function function, double T,
                                             double value, double start_p) {
    if (!(T > 0) || !(start_p > 0)) return std::nullopt;
    const Excess excess{c, function, value};
    const auto over_p = [&](double p) { return excess(T, p); };
    const double size = size_of(function, T);
    const auto found = secant(over_p, start_p, size);
    // Only the near state continues a line.
    const bool is_near = found > 0.5 * start_p && found < 2 * start_p;
    return is_near ? found : widening(over_p, start_p, size);
}

}  // namespace quor::diagrams
