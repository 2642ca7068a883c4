#include "models/maxwell.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"

namespace quor::models {

using constants::R;

namespace {

constexpr int kHalvings = 200;

/// (dp/dv) at T.
double slope(const EosState& s, double T, double v) {
    const double w = v - s.b;
    const double x = v + s.c;
    const double y = v + s.d;
    return -R * T / (w * w) + s.a * (x + y) / (x * x * y * y);
}

/// The volume at which the isotherm is steepest upwards (or least steep downwards), by golden
/// section on ln(v - b) round the critical volume.
double steepest_volume(const EosState& s, double T, double vcrit) {
    constexpr double kGolden = 0.6180339887498949;
    // dp/dv itself vanishes for large v, so it is weighed with (v - b)^2/(R T).
    const auto height = [&](double u) {
        const double w = std::exp(u);
        return slope(s, T, s.b + w) * w * w / (R * T);
    };
    const double centre = std::log(std::max(vcrit - s.b, 0.05 * s.b));
    double lo = centre - 3, hi = centre + 3;
    double a = hi - kGolden * (hi - lo), b = lo + kGolden * (hi - lo);
    double fa = height(a), fb = height(b);
    for (int i = 0; i < 100 && hi - lo > 1e-9; ++i) {
        if (fa < fb) {
            lo = a;
            a = b;
            fa = fb;
            b = lo + kGolden * (hi - lo);
            fb = height(b);
        } else {
            hi = b;
            b = a;
            fb = fa;
            a = hi - kGolden * (hi - lo);
            fa = height(a);
        }
    }
    return s.b + std::exp(0.5 * (lo + hi));
}

/// Zero of a function that is negative at `outside` and positive at `inside`, in v - b.
template <class F>
double bisect(F f, double outside, double inside) {
    for (int i = 0; i < kHalvings && std::fabs(inside - outside) > 1e-15 * inside; ++i) {
        const double middle = 0.5 * (outside + inside);
        (f(middle) < 0 ? outside : inside) = middle;
    }
    return 0.5 * (outside + inside);
}

/// Volume on a branch where p falls with v, by Newton steps in ln(v - b) kept inside a bracket.
double branch_volume(const EosState& s, double T, double p, double lo, double hi) {
    double ulo = std::log(lo - s.b), uhi = std::log(hi - s.b);
    double u = 0.5 * (ulo + uhi);
    for (int i = 0; i < kHalvings; ++i) {
        const double w = std::exp(u);
        const double v = s.b + w;
        const double f = cubic_pressure(s, T, v) - p;
        (f > 0 ? ulo : uhi) = u;
        double next = u - f / (slope(s, T, v) * w);
        if (!(next > ulo && next < uhi)) next = 0.5 * (ulo + uhi);
        if (std::fabs(next - u) <= 1e-16 * std::fabs(u) + 1e-16) break;
        u = next;
    }
    return s.b + std::exp(u);
}

/// Area between isotherm and isobar from v1 to v3, kJ/kmol; positive below the Maxwell pressure.
double whole_area(const EosState& s, double T, double p, double v1, double v3) {
    const double attraction =
        s.c == s.d ? s.a * (1 / (v3 + s.c) - 1 / (v1 + s.c))
                   : s.a / (s.c - s.d) *
                         (std::log((v3 + s.c) / (v1 + s.c)) - std::log((v3 + s.d) / (v1 + s.d)));
    return R * T * std::log((v3 - s.b) / (v1 - s.b)) + attraction - (v3 - v1) * p;
}

Saturation at_critical_volume(const EosState& s, double T, double v) {
    Saturation r;
    r.T = T;
    r.p = cubic_pressure(s, T, v);
    r.v = {v, v, v};
    r.root_count = 3;
    r.state = s;
    r.fallback = true;
    return r;
}

}  // namespace

namespace {

/// The loop of an isotherm that is steepest upwards at `middle`; nothing where it falls there.
std::optional<Spinodal> loop_round(const EosState& s, double T, double middle) {
    const auto g = [&](double w) { return slope(s, T, s.b + w); };
    const double w = middle - s.b;
    if (!(g(w) > 0)) return std::nullopt;

    double inner = w, outer = w;
    for (int i = 0; i < 1000 && g(inner) > 0; ++i) inner *= 0.5;
    for (int i = 0; i < 1000 && g(outer) > 0; ++i) outer *= 2;
    if (g(inner) > 0 || g(outer) > 0) return std::nullopt;
    Spinodal r;
    r.vL = s.b + bisect(g, inner, w);
    r.vV = s.b + bisect(g, outer, w);
    r.pL = cubic_pressure(s, T, r.vL);
    r.pV = cubic_pressure(s, T, r.vV);
    return r.pV > r.pL && r.pV > 0 ? std::optional(r) : std::nullopt;
}

}  // namespace

std::optional<Spinodal> spinodal(const Fluid& f, const EosState& s, double T) {
    return loop_round(s, T, steepest_volume(s, T, f.eos().vcrit_calculated));
}

std::optional<Saturation> maxwell_pressure(const Fluid& f, double T) {
    Saturation r;
    r.T = T;
    r.fallback = true;
    r.state = eos_at(f, T);
    const EosState& s = r.state;
    const double middle = steepest_volume(s, T, f.eos().vcrit_calculated);
    const std::optional<Spinodal> found = loop_round(s, T, middle);
    if (!found) return at_critical_volume(s, T, middle);
    const Spinodal& loop = *found;

    // ln p between its bounds; the lower bound is open where the loop dips below zero.
    double hi = std::log(loop.pV);
    double lo = loop.pL > 0 ? std::log(loop.pL) : -700.0;
    double x = loop.pL > 0 ? std::log(0.5 * (loop.pL + loop.pV)) : hi - 1;
    double v1 = 0, v3 = 0;
    for (int i = 0; i < kHalvings; ++i) {
        const double p = std::exp(x);
        double liquid_end = s.b + 0.5 * (loop.vL - s.b);
        for (int k = 0; k < 1000 && cubic_pressure(s, T, liquid_end) < p; ++k)
            liquid_end = s.b + 0.5 * (liquid_end - s.b);
        const double gas_end = std::max(2 * loop.vV, 2 * R * T / p + s.b);
        v1 = branch_volume(s, T, p, liquid_end, loop.vL);
        v3 = branch_volume(s, T, p, loop.vV, gas_end);
        const double area = whole_area(s, T, p, v1, v3);
        (area > 0 ? lo : hi) = x;
        // d(area)/d(ln p) = -p (v3 - v1), because both ends lie on the isobar.
        double next = x + area / (p * (v3 - v1));
        if (!(next > lo && next < hi)) next = 0.5 * (lo + hi);
        if (std::fabs(next - x) <= 1e-15 * std::max(1.0, std::fabs(x))) break;
        x = next;
    }
    r.p = std::exp(x);
    if (!std::isfinite(r.p) || !(r.p > 0)) return std::nullopt;
    const std::optional<CubicRoots> roots = solve_cubic(s, T, r.p);
    const double v2 =
        roots && roots->count == 3 ? std::clamp(roots->v[1], v1, v3) : 0.5 * (loop.vL + loop.vV);
    r.v = {v1, v2, v3};
    r.root_count = 3;
    r.areas = area_ratio(s, r.v, T, r.p).value_or(Areas{});
    return r;
}

std::optional<Saturation> maxwell_temperature(const Fluid& f, double p) {
    // ln p(LV) over 1/T is nearly straight: regula falsi (Illinois) on it.
    const double target = std::log(p);
    const auto excess = [&](double x) {
        const std::optional<Saturation> sat = maxwell_pressure(f, 1 / x);
        return sat ? std::log(sat->p) - target : -HUGE_VAL;
    };
    double hi = 1 / f.substance().Tcrit;
    double fhi = std::log(f.substance().pcrit) - target;
    double lo = hi, flo = fhi;
    for (int i = 0; i < 400 && flo > 0; ++i) {
        hi = lo;
        fhi = flo;
        lo *= 1.05;
        flo = excess(lo);
    }
    if (!(flo <= 0)) return std::nullopt;

    double x = lo;
    for (int i = 0, side = 0; i < kHalvings; ++i) {
        x = (lo * fhi - hi * flo) / (fhi - flo);
        if (!(x > std::min(lo, hi) && x < std::max(lo, hi))) x = 0.5 * (lo + hi);
        const double fx = excess(x);
        if (std::fabs(fx) < 1e-14 || std::fabs(hi - lo) < 1e-15 * lo) break;
        if (fx < 0) {
            lo = x;
            flo = fx;
            if (side == -1) fhi *= 0.5;
            side = -1;
        } else {
            hi = x;
            fhi = fx;
            if (side == 1) flo *= 0.5;
            side = 1;
        }
    }
    std::optional<Saturation> r = maxwell_pressure(f, 1 / x);
    if (r) r->p = p;
    return r;
}

}  // namespace quor::models
