#include <cmath>

#include "common/constants.h"
#include "models/caloric.h"
#include "models/cubic_eos.h"

namespace quor::models {

using constants::R;

namespace {

constexpr int kCap = 200;

/// d2p/dv2 = 0 reads R T/(v - b)^3 = a (C^3 D + C^2 D^2 + C D^3) with C = 1/(v + c), D = 1/(v + d).
/// `Balance` is the logarithm of the right side over the left as a function of t = ln((v - b)/b).
/// It rises with slope 3 from b, has one maximum, and falls with slope -1 towards infinity, so that
/// there are two points of inflexion, or none where the maximum stays below 0.
class Balance {
  public:
    Balance(const EosState& state, double T) : s_(state), log_ratio_(std::log(state.a / (R * T))) {}

    double volume(double t) const { return s_.b * (1.0 + std::exp(t)); }

    double value(double t) const {
        const auto [w, C, D] = at(t);
        return log_ratio_ + 3.0 * std::log(w) + std::log(C * D * (C * C + C * D + D * D));
    }

    double slope(double t) const {
        const auto [w, C, D] = at(t);
        return 3.0 - 3.0 * w * (C * C + D * D) * (C + D) / (C * C + C * D + D * D);
    }

  private:
    struct Point {
        double w, C, D;
    };
    Point at(double t) const {
        const double w = s_.b * std::exp(t);
        return {w, 1.0 / (w + s_.b + s_.c), 1.0 / (w + s_.b + s_.d)};
    }

    const EosState& s_;
    double log_ratio_;
};

/// t of the maximum, by halving.
double top(const Balance& f) {
    double rising = -40.0, falling = 40.0;
    for (int i = 0; i < kCap && falling - rising > 1e-15; ++i) {
        const double middle = 0.5 * (rising + falling);
        if (middle == rising || middle == falling) break;
        (f.slope(middle) > 0.0 ? rising : falling) = middle;
    }
    return 0.5 * (rising + falling);
}

/// The zero between a t where the balance is positive and one where it is negative: Newton steps
/// that are replaced by halving when they leave the bracket.
double zero(const Balance& f, double positive, double negative) {
    double t = 0.5 * (positive + negative);
    for (int i = 0; i < kCap; ++i) {
        const double value = f.value(t);
        (value > 0.0 ? positive : negative) = t;
        double next = t - value / f.slope(t);
        if (!((next - positive) * (next - negative) < 0.0)) next = 0.5 * (positive + negative);
        if (std::fabs(next - t) <= 1e-15 * std::fmax(1.0, std::fabs(t))) return next;
        t = next;
    }
    return t;
}

/// A t beyond the zero, on the side of `direction`.
double beyond(const Balance& f, double from, double direction) {
    double step = direction;
    for (int i = 0; i < 10 && f.value(from + step) > 0.0; ++i) step *= 2.0;
    return from + step;
}

void add(Inflexion& r, const EosState& s, double T, double v) {
    const double e = 1.0 / (v - s.b);
    const double C = 1.0 / (v + s.c);
    const double D = 1.0 / (v + s.d);
    const auto i = static_cast<std::size_t>(r.count++);
    r.v[i] = v;
    r.p[i] = cubic_pressure(s, T, v);
    r.second_derivative[i] = 2.0 * R * T * e * e * e - 2.0 * s.a * C * D * (C * C + C * D + D * D);
}

}  // namespace

Inflexion inflexion_points(const EosState& state, double T) {
    Inflexion r;
    const bool attracts =
        state.a > 0.0 && state.b > 0.0 && state.b + state.c > 0.0 && state.b + state.d > 0.0;
    if (!(T > 0.0) || !attracts) return r;

    const Balance f(state, T);
    const double middle = top(f);
    const double height = f.value(middle);
    // Where the two points meet their distance is below what 64 bits can tell.
    constexpr double kTouching = 1e-15;
    if (!(height >= -kTouching)) return r;
    if (height <= kTouching) {
        add(r, state, T, f.volume(middle));
        return r;
    }
    add(r, state, T, f.volume(zero(f, middle, beyond(f, middle, -1.0))));
    add(r, state, T, f.volume(zero(f, middle, beyond(f, middle, 1.0))));
    return r;
}

Inflexion inflexion_points(const Fluid& fluid, double T) {
    return fluid.models().vapour_only ? Inflexion{} : inflexion_points(eos_at(fluid, T), T);
}

}  // namespace quor::models
