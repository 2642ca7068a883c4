#include "models/equal_fugacity.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "models/caloric.h"
#include "models/cubic_eos.h"

namespace quor::models {

using constants::R;

namespace {

/// Newton steps of a search that ends on rounding: small ones go on as long as each is less than
/// half of the one before.
class Steps {
  public:
    /// True as long as another step makes sense after a relative one.
    bool go_on(double step) {
        constexpr int kCap = 50;
        constexpr double kTolerance = 1e-14, kSmall = 1e-7;
        const double size = std::fabs(step);
        const bool better = size > kSmall || size < 0.5 * last_;
        last_ = size;
        return ++count_ < kCap && size > kTolerance && better;
    }

  private:
    double last_ = HUGE_VAL;
    int count_ = 0;
};

/// The root of p(v) = p next to v, by steps in ln(v - b); nothing where p no longer falls with v.
std::optional<double> volume_near(const EosState& s, double T, double p, double v) {
    Steps steps;
    double w = v - s.b;
    for (;;) {
        const double slope = cubic_slope(s, T, s.b + w);
        if (!(slope < 0)) return std::nullopt;
        const double step = (p - cubic_pressure(s, T, s.b + w)) / (slope * w);
        if (!(std::fabs(step) < 1)) return std::nullopt;
        w *= std::exp(step);
        if (!steps.go_on(step)) return s.b + w;
    }
}

/// Both phases at T and p, and the logarithm of their ratio of fugacities f(V)/f(L).
struct Pair {
    double vL = 0, vV = 0;
    double log_ratio = 0;
};

/// Two phases next to two volumes. An error of a volume changes the ratio by its square only, as
/// each lies on the isobar, and no term is larger than those of ln f, so that the ratio keeps its
/// digits also where p is small beside both parts of p(v).
std::optional<Pair> pair_near(const EosState& s, double T, double p, double vL, double vV) {
    const auto L = volume_near(s, T, p, vL), V = volume_near(s, T, p, vV);
    if (!L || !V || !(*V > *L)) return std::nullopt;
    return Pair{*L, *V, p * (*V - *L) / (R * T) - isotherm_integral(s, T, *L, *V) / (R * T)};
}

std::optional<Pair> pair_at(const EosState& s, double T, double p) {
    const std::optional<CubicRoots> roots = solve_cubic(s, T, p);
    if (!roots || roots->count != 3 || !(roots->v[0] > s.b)) return std::nullopt;
    return pair_near(s, T, p, roots->v[0], roots->v[2]);
}

/// A saturation state with its middle root and areas.
Saturation saturation_of(const EosState& s, double T, double p, const Pair& pair) {
    Saturation r;
    r.T = T;
    r.p = p;
    r.state = s;
    r.root_count = 3;
    const std::optional<CubicRoots> roots = solve_cubic(s, T, p);
    const double middle = roots && roots->count == 3 ? roots->v[1] : std::sqrt(pair.vL * pair.vV);
    r.v = {pair.vL, std::clamp(middle, pair.vL, pair.vV), pair.vV};
    r.areas = area_ratio(s, r.v, T, p).value_or(Areas{});
    return r;
}

/// d(ln f(V)/f(L))/dT at p, by the residual enthalpies.
std::optional<double> slope_over_T(const Fluid& f, const EosState& s, double T, double p,
                                   const Pair& pair) {
    const auto V = residual_functions(f, s, T, p, pair.vV);
    const auto L = residual_functions(f, s, T, p, pair.vL);
    if (!V || !L) return std::nullopt;
    return V->residual[DLnPhi] - L->residual[DLnPhi];
}

}  // namespace

std::optional<Saturation> equilibrium_near_p(const Fluid& f, double T, double p) {
    const EosState s = eos_at(f, T);
    std::optional<Pair> pair = pair_at(s, T, p);
    for (Steps steps; pair;) {
        const double step = -pair->log_ratio * R * T / (p * (pair->vV - pair->vL));
        if (!(std::fabs(step) < 1)) return std::nullopt;
        p *= std::exp(step);
        pair = pair_near(s, T, p, pair->vL, pair->vV);
        if (!steps.go_on(step)) break;
    }
    if (!pair || !(p > 0)) return std::nullopt;
    return saturation_of(s, T, p, *pair);
}

std::optional<Saturation> equilibrium_near_T(const Fluid& f, double p, double T) {
    EosState s = eos_at(f, T);
    std::optional<Pair> pair = pair_at(s, T, p);
    for (Steps steps; pair;) {
        const std::optional<double> slope = slope_over_T(f, s, T, p, *pair);
        const double step = slope ? -pair->log_ratio / (*slope * T) : HUGE_VAL;
        if (!(std::fabs(step) < 0.1)) return std::nullopt;
        T *= std::exp(step);
        s = eos_at(f, T);
        pair = pair_near(s, T, p, pair->vL, pair->vV);
        if (!steps.go_on(step)) break;
    }
    if (!pair) return std::nullopt;
    return saturation_of(s, T, p, *pair);
}

}  // namespace quor::models
