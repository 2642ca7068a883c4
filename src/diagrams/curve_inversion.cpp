#include <array>
#include <cmath>

#include "common/constants.h"
#include "diagrams/curve_kinds.h"
#include "models/cubic_eos.h"

namespace quor::diagrams {

using constants::kPresent;

namespace {

/// T (dv/dT)p - v, the numerator of the differential Joule-Thomson coefficient: it has its zeros
/// and its sign and needs no heat capacity.
std::optional<double> throttling(const CurveFrame& c, double T, double p, std::optional<double> v) {
    if (!v) return std::nullopt;
    const auto table = models::residual_functions(c.fluid, models::eos_at(c.fluid, T), T, p, *v);
    if (!table || table->first[4] == 0) return std::nullopt;
    return T * table->first[4] - *v;
}

std::optional<double> stable_throttling(const CurveFrame& c, double T, double p) {
    return throttling(c, T, p, c.stable_volume(T, p));
}

struct Search {
    double start, step, low, high;  // K
};

/// The steps of the searches suit fluids that boil above 100 K; those of the cryogenic ones follow
/// their critical temperature.
double scale_of_steps(const CurveFrame& c) {
    return std::fmin(1.0, c.substance.Tcrit / 100);
}

/// At a zero nothing is left of the numerator beside the covolume; at a jump from one phase to the
/// other there is.
bool vanishes(const CurveFrame& c, double numerator, double T) {
    constexpr double kZero = 1e-6;
    return std::fabs(numerator) < kZero * models::eos_at(c.fluid, T).b;
}

/// Halves the bracket of a change of sign.
std::optional<double> halved(const CurveFrame& c, double p, double a, double b, double at_A) {
    constexpr int kHalvings = 60;
    for (int i = 0; i < kHalvings; ++i) {
        const double middle = 0.5 * (a + b);
        const auto value = stable_throttling(c, middle, p);
        if (!value) return std::nullopt;
        if (std::signbit(*value) == std::signbit(at_A)) {
            a = middle;
        } else {
            b = middle;
        }
    }
    const double T = 0.5 * (a + b);
    const auto rest = stable_throttling(c, T, p);
    if (!rest || !vanishes(c, *rest, T)) return std::nullopt;
    return T;
}

/// Walks T from a start until the coefficient changes its sign.
std::optional<double> find_inversion_temperature(const CurveFrame& c, double p,
                                                 const Search& search) {
    constexpr int kMostSteps = 300;
    constexpr double kFinest = 0.001;  // K
    double T = search.start, step = search.step;
    double before = T;
    auto last = stable_throttling(c, T, p);
    for (int i = 0; i < kMostSteps; ++i) {
        before = T;
        T += step;
        if (T < search.low || T > search.high) return std::nullopt;
        const auto now = stable_throttling(c, T, p);
        const bool changed = now && last && std::signbit(*now) != std::signbit(*last);
        if (changed) {
            step *= -0.1;
            if (std::fabs(step) < kFinest) return halved(c, p, before, T, *last);
        }
        if (now) last = now;
    }
    return std::nullopt;
}

void add_inversion(CurveFrame& c, double p, double T) {
    if (const auto v = c.stable_volume(T, p))
        c.add(p * c.p_factor, p * c.p_factor * *v * c.v_factor, T);
}

/// The temperature from which the upper branch starts: the gas inversion temperature at low p.
double upper_start(const CurveFrame& c) {
    constexpr double kLowPressure = 0.02;  // kPa
    constexpr double kBetween = 50;
    constexpr int kTries = 50;
    const double Tcrit = c.substance.Tcrit;
    const double walking_step = -10 * scale_of_steps(c);
    const double first = Tcrit < 200 ? 400 : 5 * Tcrit;
    const auto search_from = [&](double start) {
        return find_inversion_temperature(c, kLowPressure, {start, walking_step, 1, 2 * start});
    };
    for (int i = 0; i < kTries; ++i) {
        const double start = first - i * kBetween;
        if (start <= 0) break;
        if (const auto T = search_from(start)) return *T;
    }
    // The gas may still cool there: look higher, until it warms.
    constexpr double kFurther = 1.25;
    constexpr int kFurtherTries = 20;
    double start = first;
    for (int i = 0; i < kFurtherTries; ++i) {
        start *= kFurther;
        const auto value = stable_throttling(c, start, kLowPressure);
        if (!value || *value >= 0) continue;
        const double step = std::fmin(walking_step, -start / 100);
        const auto T = find_inversion_temperature(c, kLowPressure, {start, step, 1, 2 * start});
        return T.value_or(0);
    }
    return 0;
}

}  // namespace

void inversion_pv_p(CurveFrame& c) {
    constexpr double kLowest = 0.03;  // kPa
    if (c.vapour_only()) return;
    const double scale = scale_of_steps(c);
    double T = upper_start(c);
    if (!(T > 0)) return;

    const auto pressure_of = [&](double x) {
        const double p = x / c.p_factor;
        return p < kPresent ? kLowest : p;
    };
    double reached = c.x_min;
    Steps up = Steps::plain(c.x_min, c.x_max, 2 * c.dx);
    for (double x; up.next(x);) {
        const double p = pressure_of(x);
        const Search search{1.3 * T, -10 * scale, 1, 1.5 * T};
        const auto found = find_inversion_temperature(c, p, search);
        if (!found) continue;
        T = *found;
        add_inversion(c, p, T);
        reached = x;
    }
    // Both branches meet where the curve turns; where the window ends before, they do not.
    if (reached > c.x_max - 2 * c.dx * (1 + 1e-6)) c.add_gap();
    const double highest = 4 * c.substance.Tcrit;
    const double lowest = 10 * scale;
    const Search from_below{lowest, std::fmax(5 * scale, highest / 300), 0.5 * lowest, highest};
    Steps down = Steps::plain(c.x_max, c.x_min, -2 * c.dx);
    for (double x; down.next(x);) {
        const double p = pressure_of(x);
        if (const auto found = find_inversion_temperature(c, p, from_below))
            add_inversion(c, p, *found);
    }
}

namespace {

/// The volume of the liquid, stable or not, below Tcrit, and of the fluid above.
std::optional<double> dense_volume(const CurveFrame& c, double T, double p) {
    const models::EosState state = models::eos_at(c.fluid, T);
    const auto roots = models::solve_cubic(state, T, p);
    return roots && roots->v[0] > state.b ? std::optional(roots->v[0]) : std::nullopt;
}

std::optional<double> dense_throttling(const CurveFrame& c, double T, double p) {
    return throttling(c, T, p, dense_volume(c, T, p));
}

/// Secant search on p at T from a start; 0 when it fails.
double find_inversion_pressure(const CurveFrame& c, double T, double start) {
    constexpr int kRounds = 200;
    constexpr double kDifference = 0.0001;  // kPa
    constexpr double kEnough = 0.001;
    constexpr double kPolished = 1e-10;
    double p = start;
    bool close = false;
    for (int i = 0; i < kRounds; ++i) {
        const auto value = dense_throttling(c, T, p);
        const auto next = dense_throttling(c, T, p + kDifference);
        if (!value || !next || *value == *next) return close ? p : 0;
        const double change = -*value * kDifference / (*next - *value);
        if (!std::isfinite(change) || p + change <= 0) return 0;
        p += change;
        const double relative = std::fabs(change / p);
        if (relative <= kPolished) return p;
        close = relative <= kEnough;
    }
    return close ? p : 0;
}

/// The same by a scan over p, for starts from which the secant runs away.
double scan_inversion_pressure(const CurveFrame& c, double T) {
    constexpr double kRatio = 1.3;
    constexpr int kHalvings = 60;
    const double pcrit = c.substance.pcrit;
    double low = 1e-3 * pcrit;
    auto last = dense_throttling(c, T, low);
    for (double p = low * kRatio; p < 100 * pcrit; p *= kRatio) {
        const auto now = dense_throttling(c, T, p);
        if (now && last && *last > 0 && *now <= 0) {
            double high = p;
            for (int i = 0; i < kHalvings; ++i) {
                const double middle = 0.5 * (low + high);
                const auto value = dense_throttling(c, T, middle);
                if (!value) return 0;
                (*value > 0 ? low : high) = middle;
            }
            const double found = 0.5 * (low + high);
            const auto rest = dense_throttling(c, T, found);
            return rest && vanishes(c, *rest, T) ? found : 0;
        }
        last = now;
        low = p;
    }
    return 0;
}

/// Where the line meets the coexistence curve: the zero on the saturated liquid between a T at
/// which the inversion lies below the vapour pressure and one at which it lies above.
std::optional<Equilibrium> meeting_point(const CurveFrame& c, double below, double above) {
    constexpr int kHalvings = 60;
    std::optional<Equilibrium> e;
    for (int i = 0; i < kHalvings; ++i) {
        const double T = 0.5 * (below + above);
        e = equilibrium_at_T(c.fluid, T, e ? e->p : 0);
        const auto value = e ? throttling(c, T, e->p, e->vL) : std::nullopt;
        if (!value) return std::nullopt;
        (*value < 0 ? below : above) = T;
    }
    return e;
}

}  // namespace

void inversion_p_T(CurveFrame& c) {
    constexpr double kLowestT = 0.5;  // K
    if (c.vapour_only()) return;
    double p = 0, above = 0;
    Steps loop = Steps::plain(c.x_max, c.x_min, -c.dx / 3);
    for (double x; loop.next(x);) {
        const double T = x / c.T_factor < kPresent ? kLowestT : x / c.T_factor;
        double found = p > 0 ? find_inversion_pressure(c, T, p) : 0;
        if (!(found > 0)) found = scan_inversion_pressure(c, T);
        const auto saturated = T < c.substance.Tcrit ? equilibrium_at_T(c.fluid, T) : std::nullopt;
        const double pLV = saturated ? saturated->p : 0;
        if (found > pLV) {
            p = found;
            above = T;
            c.add(T * c.T_factor, p * c.p_factor, dense_volume(c, T, p).value_or(0));
        } else if (above > 0 && pLV > 0) {
            const auto end = meeting_point(c, T, above);
            if (end) c.add(end->T * c.T_factor, end->p * c.p_factor, end->vL);
            break;
        }
    }
}

}  // namespace quor::diagrams
