#include "models/state_solver.h"

#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "models/saturation.h"
#include "models/virial.h"

namespace quor::models {

using constants::R;

namespace {

constexpr int kNewtonSteps = 200;
constexpr double kRootTolerance = 5e-7;
constexpr double kFlat = 1e-80;

/// Divides the root v out of the cubic v^3 + c2 v^2 + c1 v + c0 and gives e, g of the remaining
/// v^2 + e v + g. Each coefficient is taken from the side of the polynomial where the root makes
/// the larger term, which keeps the small roots when the largest is divided out and the other way
/// round (G. Peters, J. H. Wilkinson, J. Inst. Math. Appl. 8 (1971) 16).
struct Quadratic {
    double e, g;
};

Quadratic deflate(double v, double c2, double c1, double c0) {
    const double t0 = std::fabs(c0);
    const double t1 = std::fabs(c1 * v);
    const double t2 = std::max(std::fabs(c2), std::fabs(v)) * v * v;
    if (t0 >= t1 && t0 >= t2) {
        const double e = v + c2;
        return {e, e * v + c1};
    }
    const double g = -c0 / v;
    if (t1 >= t2) return {v + c2, g};
    return {(g - c1) / v, g};
}

/// Starts of the Newton search, in turn.
bool find_root(double start, double c2, double c1, double c0, double& v) {
    v = start;
    for (int i = 0; i < kNewtonSteps; ++i) {
        const double slope = (3 * v + 2 * c2) * v + c1;
        if (std::fabs(slope) < kFlat) return false;
        const double f = ((v + c2) * v + c1) * v + c0;
        const double dv = -f / slope;
        v += dv;
        if (std::fabs(dv / v) <= kRootTolerance) return true;
    }
    return false;
}

std::int16_t region_of(const SubstanceRecord& s, double T, double p, std::int16_t old) {
    const bool at_pcrit = static_cast<float>(p) == static_cast<float>(s.pcrit);
    if ((T == s.Tcrit && at_pcrit) || (T < s.Tcrit && p < s.pcrit)) return 0;
    if (T > s.Tcrit && p > s.pcrit) return 2;
    if (T <= s.Tcrit && p >= s.pcrit) return 1;
    if (T >= s.Tcrit && p <= s.pcrit) return 3;
    return old;
}

constexpr std::string_view kNoSolution = "No solution found";

bool physical(double v, double rho) {
    return std::isfinite(v) && std::isfinite(rho) && rho >= 0;
}

bool physical(const StateTP& r) {
    return (r.has_V || r.has_L) && (!r.vV || physical(*r.vV, *r.rhoV)) &&
           (!r.vL || physical(*r.vL, *r.rhoL));
}

/// Far above Tcrit a covolume may be negative, and a root above it too: that is no phase.
void set_v(StateTP& r, double v, double M) {
    if (!(v > 0)) return;
    r.has_V = true;
    r.vV = v;
    r.rhoV = M / v;
}

void set_l(StateTP& r, double v, double M) {
    if (!(v > 0)) return;
    r.has_L = true;
    r.vL = v;
    r.rhoL = M / v;
}

Result<StateTP, NoState> solve_v_only(const Fluid& f, double T, double p, std::int16_t region) {
    StateTP r;
    r.region = region;
    r.text = "EOS for the V-phase only!";
    r.B = second_virial(f, T, r.state);
    const double v = R * T / p + r.B;
    if (!(v > 0) || !std::isfinite(v)) return NoState{region, r.text};
    set_v(r, v, static_cast<double>(f.substance().M));
    return r;
}

/// Three roots: the stable one follows from the equal-area test. False where they are none.
bool decide_three_roots(StateTP& r, const Fluid& f, double T, double p) {
    constexpr double kOnBoundary = 0.001;
    const double M = static_cast<double>(f.substance().M);
    const double b = r.state.b;
    r.text = "3 V-solutions of the EOS";
    const bool accepted =
        r.v[0] > b && (r.v[2] - b) / (r.v[1] - b) >= 1e-6 && (r.v[1] - b) / (r.v[0] - b) >= 1e-6;
    if (!accepted) return false;
    set_v(r, r.v[2], M);
    set_l(r, r.v[0], M);
    r.areas = area_ratio(r.state, r.v, T, p).value_or(Areas{});
    if (std::fabs(r.areas.ratio) < kOnBoundary) return true;
    const bool vapour = r.areas.ratio >= kOnBoundary || T > f.substance().Tcrit;
    r.has_V = vapour && r.vV;
    r.has_L = !vapour && r.vL;
    return true;
}

void decide_one_root(StateTP& r, const Fluid& f, double T, double p) {
    const SubstanceRecord& s = f.substance();
    const double M = static_cast<double>(s.M);
    const double v = r.v[0];
    r.text = "One solution of the EOS";
    if (T == s.Tcrit && p == s.pcrit) {
        set_v(r, v, M);
        set_l(r, v, M);
    } else if (T <= s.Tcrit && p <= s.pcrit) {
        if (v > f.eos().vcrit_calculated) set_v(r, v, M);
        if (v < f.eos().vcrit_calculated) set_l(r, v, M);
    } else {
        set_v(r, v, M);
        set_l(r, v, M);
        r.text = "One solution of the EOS;supercritical";
    }
    if (std::fabs(v - f.eos().vcrit_calculated) < 0.001) {
        r.region = 4;
        set_v(r, v, M);
        set_l(r, v, M);
    }
}

}  // namespace

std::optional<double> pressure_from_Tv(const Fluid& f, double T, double v, EosState& state) {
    const auto finite = [](double p) { return std::isfinite(p) ? std::optional(p) : std::nullopt; };
    if (f.models().vapour_only) {
        state.b = second_virial(f, T, state);
        if (v <= state.b || v <= 0) return std::nullopt;
        return finite(R * T / (v - state.b));
    }
    state = eos_at(f, T, state);
    if (v <= state.b) return std::nullopt;
    return finite(cubic_pressure(state, T, v));
}

std::optional<CubicRoots> solve_cubic(const EosState& s, double T, double p) {
    const double b = s.b;
    const double q = R * T / p + b;
    const double cd = s.c + s.d;
    const double c2 = cd - q;
    const double c1 = s.c * s.d + s.a / p - cd * q;
    const double c0 = -s.a * b / p - s.c * s.d * q;

    double v = 0;
    if (!find_root(R * T / p, c2, c1, c0, v) && !find_root(2 * b, c2, c1, c0, v))
        return std::nullopt;
    CubicRoots r{.v = {v, 0, 0}, .count = 1};

    const Quadratic rest = deflate(v, c2, c1, c0);
    const double h = -0.5 * rest.e;
    const double D = h * h - rest.g;
    if (D < 0) return r;

    // The root of larger magnitude first; the other follows from the product of both.
    const double far = h < 0 ? h - std::sqrt(D) : h + std::sqrt(D);
    const double near = far == 0 ? 0 : rest.g / far;
    r.count = 3;
    r.v = {v, std::min(near, far), std::max(near, far)};
    if (r.v[0] > r.v[1]) std::swap(r.v[0], r.v[1]);
    if (r.v[1] > r.v[2]) std::swap(r.v[1], r.v[2]);
    if (r.v[0] > r.v[1]) std::swap(r.v[0], r.v[1]);
    if (!(r.v[0] >= b) && !(r.v[1] >= b)) {
        r.count = 1;
        r.v[0] = r.v[2];
    }
    return r;
}

std::optional<Areas> area_ratio(const EosState& s, const std::array<double, 3>& v, double T,
                                double p) {
    const auto integral = [&](double x, double y) {
        const double attraction =
            s.c == s.d
                ? s.a * (1 / (x + s.c) - 1 / (y + s.c))
                : s.a / (s.c - s.d) * std::log((x + s.c) * (y + s.d) / ((y + s.c) * (x + s.d)));
        return R * T * std::log((x - s.b) / (y - s.b)) + attraction;
    };
    Areas r;
    r.V = integral(v[2], v[1]) - (v[2] - v[1]) * p;
    r.L = integral(v[1], v[0]) - (v[1] - v[0]) * p;
    r.ratio = (r.V + r.L) / (r.V - r.L);
    if (!std::isfinite(r.ratio)) return std::nullopt;
    return r;
}

Result<StateTP, NoState> solve_state_tp(const Fluid& f, double T, double p, std::int16_t region) {
    if (!(p > 0) || !(T > 0)) return NoState{region, kNoSolution};
    if (f.models().vapour_only) return solve_v_only(f, T, p, region);

    Result<StateTP, NoState> found = StateTP{};
    StateTP& r = *found;
    r.region = region_of(f.substance(), T, p, region);
    r.state = eos_at(f, T);
    const std::optional<CubicRoots> roots = solve_cubic(r.state, T, p);
    if (!roots || !(roots->v[0] > r.state.b)) {
        found = NoState{r.region, ""};
        return found;
    }
    r.v = roots->v;
    r.root_count = roots->count;
    bool solved = true;
    if (r.root_count > 1) {
        solved = decide_three_roots(r, f, T, p);
    } else {
        decide_one_root(r, f, T, p);
    }
    if (!solved || !physical(r)) found = NoState{r.region, kNoSolution};
    return found;
}

namespace {

constexpr int kTemperatureRounds = 2000;
constexpr double kTemperatureTolerance = 1e-5;
constexpr double kSlopeStep = 1e-6;

std::optional<double> v_only_temperature(const Fluid& f, double p, double v) {
    double T = v * p / R;
    EosState state;
    for (int i = 0; i < 1000; ++i) {
        const double old = T;
        T = (v - second_virial(f, old, state)) * p / R;
        if (!std::isfinite(T) || T <= 0) return std::nullopt;
        if (std::fabs(T - old) < 0.001) return T;
    }
    return std::nullopt;
}

/// T where p(T, v) passes p, by halving a bracket; nothing when the isochore never reaches p.
std::optional<double> bracketed_temperature(const Fluid& f, double p, double v) {
    const auto excess = [&](double T) {
        const EosState s = eos_at(f, T);
        return v > s.b ? cubic_pressure(s, T, v) - p : std::nan("");
    };
    double low = f.substance().Tcrit, high = low;
    for (int i = 0; i < 60 && !(excess(low) < 0); ++i) low *= 0.8;
    for (int i = 0; i < 60 && !(excess(high) > 0); ++i) high *= 1.5;
    if (!(excess(low) < 0) || !(excess(high) > 0)) return std::nullopt;
    for (int i = 0; i < 200 && high - low > 1e-14 * high; ++i) {
        const double middle = 0.5 * (low + high);
        (excess(middle) < 0 ? low : high) = middle;
    }
    return 0.5 * (low + high);
}

/// Newton search on f(T) = (a/((v + c)(v + d)) + p)(v - b)/R - T. Counts its rounds.
std::optional<double> newton_temperature(const Fluid& f, double p, double v, int& rounds) {
    const auto function = [&](double T) {
        const EosState s = eos_at(f, T);
        return (s.a / ((v + s.c) * (v + s.d)) + p) * (v - s.b) / R - T;
    };
    double T =
        p < f.substance().pcrit ? static_cast<double>(f.substance().Tboil) : f.substance().Tcrit;
    if (T < constants::kPresent) T = 0.7 * f.substance().Tcrit;
    for (;;) {
        if (++rounds > kTemperatureRounds) return std::nullopt;
        const double value = function(T);
        const double slope = (function(T + kSlopeStep) - value) / kSlopeStep;
        const double dT = -value / slope;
        T += dT;
        if (!std::isfinite(T) || T <= 0) return std::nullopt;
        if (std::fabs(dT) / T <= kTemperatureTolerance) return T;
    }
}

/// The saturation temperature of a state inside the dome; goes on with the count of rounds.
std::optional<double> dome_temperature(const Fluid& f, double p, double T, int rounds) {
    const auto direct = [&]() -> std::optional<double> {
        const std::optional<Saturation> sat = saturation_temperature(f, p);
        return sat ? std::optional(sat->T) : std::nullopt;
    };
    if (p < f.substance().pcrit / 1.5) return direct();
    for (;;) {
        if (++rounds > kTemperatureRounds) return direct();
        const std::optional<Saturation> sat = saturation_pressure(f, T);
        if (!sat) {
            T -= f.substance().Tcrit / 10;
            if (T <= 0) return direct();
            continue;
        }
        const std::optional<Saturation> next = saturation_pressure(f, T + kSlopeStep);
        const double slope = ((next ? next->p : 0) - sat->p) / kSlopeStep;
        const double dT = (p - sat->p) / slope;
        T += dT;
        if (!std::isfinite(T) || T <= 0) return direct();
        if (std::fabs(dT) / T <= kTemperatureTolerance) return T;
    }
}

}  // namespace

std::optional<double> temperature_from_p_rho(const Fluid& f, double p, double rho,
                                             bool single_phase_only) {
    const double v = static_cast<double>(f.substance().M) / rho;
    if (!(p > 0) || !(v > 0) || !std::isfinite(v)) return std::nullopt;
    if (f.models().vapour_only) return v_only_temperature(f, p, v);

    int rounds = 0;
    std::optional<double> T = newton_temperature(f, p, v, rounds);
    if (!T) T = bracketed_temperature(f, p, v);
    if (!T || *T >= f.substance().Tcrit || single_phase_only) return T;

    const std::optional<CubicRoots> roots = solve_cubic(eos_at(f, *T), *T, p);
    if (!roots || roots->count != 3) return T;
    const std::optional<Saturation> sat = saturation_pressure(f, *T);
    if (!sat) return std::nullopt;
    if (v <= sat->v[0] || v >= sat->v[2]) return T;
    return dome_temperature(f, p, *T, rounds);
}

}  // namespace quor::models
