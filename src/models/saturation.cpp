#include "models/saturation.h"

#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "models/maxwell.h"
#include "models/vapour_pressure.h"

namespace quor::models {

using models::EOSState;

namespace {

bool equal_as_single(double a, double b) {
    return static_cast<float>(a) == static_cast<float>(b);
}

/// The critical point as a saturation state. The volume slots carry 1/rhocritCalc, the reciprocal
/// of a mass density, on purpose: callers there read T and p only.
Saturation critical_state(const Fluid& f) {
    Saturation r;
    r.T = f.substance().Tcrit;
    r.p = f.substance().pcrit;
    r.nRoots = 3;
    if (f.eos().rhocritCalc > 0) r.v = {1 / f.eos().rhocritCalc, 0, 1 / f.eos().rhocritCalc};
    r.state = eos_at(f, r.T);
    r.status = kSuccess;
    return r;
}

bool has_no_equilibrium(const Fluid& f) {
    return f.models().EOSModel == Eos::none || f.models().EOSOnlyV;
}

/// One trial of a search: the roots and, with three of them, the areas.
struct Trial {
    CubicRoots roots;
    Areas areas;
    bool usable = false;
};

Trial try_state(const EOSState& s, double T, double p) {
    Trial t;
    t.roots = solve_cubic(s, T, p);
    t.usable = t.roots.status == kSuccess && t.roots.v[0] > s.eosB;
    if (t.usable && t.roots.count == 3) {
        t.areas = area_ratio(s, t.roots.v, T, p);
        t.usable = t.areas.status == kSuccess;
    }
    return t;
}

void take(Saturation& r, const Trial& t) {
    r.v = t.roots.v;
    r.nRoots = t.roots.count;
    r.areaRatio = t.areas.ratio;
    r.areaV = t.areas.V;
    r.areaL = t.areas.L;
}

double start_pressure(const Fluid& f, double T) {
    double p = 0;
    if (f.models().VPModel != VapourPressureEquation::none)
        p = vapour_pressure(f.substance(), T, f.models().VPModel).p;
    if (p < 1e-6) p = std::exp(T * std::log(f.substance().pcrit) / f.substance().Tcrit);
    return p;
}

}  // namespace

Saturation search_saturation_pressure(const Fluid& f, double T) {
    constexpr int kCap = 300;
    constexpr double kAreaTolerance = 1e-5;
    constexpr double kSmallestRelativeStep = 1e-10;
    constexpr double kSmallestStep = 1e-5;
    constexpr double kSlopeGuard = 1e-11;
    constexpr double kRestart = 0.01;
    constexpr double kFirstStep = 0.01;  // of p; negative with one root
    constexpr double kDamping = 0.1;

    if (T == f.substance().Tcrit) return critical_state(f);
    Saturation r;
    r.T = T;
    r.state = eos_at(f, T);
    if (T >= f.substance().Tcrit || has_no_equilibrium(f)) return r;

    double p = start_pressure(f, T);
    double step = 0, previousP = 0, previousRatio = 0, previousSide = 0;
    int oneRoot = 0, threeRoots = 0, restarts = 0;
    while (++r.rounds <= kCap) {
        const Trial t = try_state(r.state, T, p);
        if (!t.usable) return r;
        take(r, t);
        if (t.roots.count == 1) {
            // The trial lies outside the loop of the isotherm: walk towards it.
            const bool liquidLike = t.roots.v[0] < f.eos().vcritCalc;
            const double side = liquidLike ? -1 : t.roots.v[0];
            if (++oneRoot == 1) {
                step *= kDamping;
                if (std::fabs(step) < kSmallestStep) step = -kFirstStep * p;
            } else if (side * previousSide < 1e-6) {
                step *= kDamping;
            }
            step = liquidLike ? -std::fabs(step) : std::fabs(step);
            previousSide = side;
        } else {
            const double ratio = t.areas.ratio;
            if (++threeRoots == 1) {
                if (std::fabs(step) < kSmallestStep) step = kFirstStep * p;
                if (ratio < 0) step = -std::fabs(step);
                if (ratio > 0) step = std::fabs(step);
            } else {
                if (std::fabs(ratio) < kAreaTolerance) {
                    r.p = p;
                    r.status = kSuccess;
                    return r;
                }
                if (std::fabs(ratio - previousRatio) > kSlopeGuard) {
                    step = -(p - previousP) * ratio / (ratio - previousRatio);
                } else {
                    step = ratio < previousRatio ? -kFirstStep * p : kFirstStep * p;
                }
                if (std::fabs(step / p) < kSmallestRelativeStep) return r;
            }
            previousP = p;
            previousRatio = ratio;
        }
        p += step;
        if (!std::isfinite(p)) return r;
        if (equal_as_single(p, f.substance().pcrit)) {
            r.p = p;
            r.status = kSuccess;
            return r;
        }
        if (p < 1e-10) {
            p = kRestart / ++restarts;
            step = kDamping * (previousP - p);
        }
    }
    return r;
}

namespace {

Saturation search_temperature_by_secant(const Fluid& f, double p, double Tstart) {
    constexpr int kCap = 200;
    constexpr double kAreaTolerance = 5e-5;
    constexpr double kSmallestRelativeStep = 1e-12;
    constexpr double kSmallestStep = 1e-9;
    constexpr double kSlopeGuard = 1e-7;
    constexpr double kRestart = 0.01;
    constexpr double kFirstStep = 0.01;  // of T
    constexpr double kDamping = 0.1;

    Saturation r;
    r.p = p;
    double T =
        Tstart != 0 ? Tstart : std::log(p) * f.substance().Tcrit / std::log(f.substance().pcrit);
    double step = 0, previousT = 0, previousRatio = 0, previousSide = 0;
    int oneRoot = 0, threeRoots = 0, restarts = 0;
    while (++r.rounds <= kCap) {
        r.state = eos_at(f, T, r.state);
        const Trial t = try_state(r.state, T, p);
        if (!t.usable) return r;
        take(r, t);
        if (t.roots.count == 1) {
            if (++oneRoot > kCap) return r;
            const bool liquidLike = t.roots.v[0] < f.eos().vcritCalc;
            const double side = liquidLike ? -1 : t.roots.v[0];
            if (oneRoot == 1) {
                step *= kDamping;
                if (std::fabs(step) < kSmallestStep) step = kFirstStep * T;
            } else if (side * previousSide < 0) {
                step *= kDamping;
            }
            step = liquidLike ? std::fabs(step) : -std::fabs(step);
            previousSide = side;
        } else {
            oneRoot = 0;
            const double ratio = t.areas.ratio;
            if (++threeRoots == 1) {
                if (std::fabs(step) < kSmallestStep) step = kFirstStep * T;
                if (ratio > 0) step = -std::fabs(step);
                if (ratio < 0) step = std::fabs(step);
            } else {
                if (std::fabs(ratio) < kAreaTolerance) {
                    r.T = T;
                    r.status = kSuccess;
                    return r;
                }
                if (std::fabs(ratio - previousRatio) > kSlopeGuard) {
                    step = -(T - previousT) * ratio / (ratio - previousRatio);
                    const double limit = kFirstStep * T;
                    if (std::fabs(step) > limit) step = std::copysign(limit, step);
                } else {
                    step = ratio > previousRatio ? -kFirstStep * T : kFirstStep * T;
                }
                if (std::fabs(step / T) < kSmallestRelativeStep) return r;
            }
            previousT = T;
            previousRatio = ratio;
        }
        T += step;
        if (!std::isfinite(T)) return r;
        if (equal_as_single(T, f.substance().Tcrit)) {
            r.T = T;
            r.status = kSuccess;
            return r;
        }
        if (T < 1e-10) {
            T = kRestart / ++restarts;
            step = kDamping * (previousT - T);
        }
    }
    return r;
}

/// At small pressures the isotherms are too steep for the secant: march down in T and turn round
/// with a tenth of the step at each change of the stable phase.
Saturation search_temperature_by_marching(const Fluid& f, double p) {
    constexpr int kCap = 100000;
    constexpr double kAreaTolerance = 0.0002;
    constexpr double kSmallestStep = 0.0005;

    Saturation r;
    r.p = p;
    double step = (f.substance().pcrit - p) / 100;
    double T = f.substance().Tcrit + step;
    double previousRatio = p;
    while (++r.rounds <= kCap) {
        T -= step;
        if (T <= 0) {
            T += step;
            step *= 0.1;
            continue;
        }
        r.state = eos_at(f, T, r.state);
        const Trial t = try_state(r.state, T, p);
        if (!t.usable) return r;
        take(r, t);
        if (t.roots.count == 1) continue;
        const double ratio = t.areas.ratio;
        const bool sameSign = (ratio < 0) == (previousRatio < 0);
        previousRatio = ratio;
        if (sameSign) continue;
        step *= -0.1;
        if (std::fabs(ratio) < kAreaTolerance || std::fabs(step) < kSmallestStep) {
            if (T < constants::kPresent) return r;
            r.T = T;
            r.status = kSuccess;
            return r;
        }
    }
    return r;
}

}  // namespace

Saturation search_saturation_temperature(const Fluid& f, double p, double Tstart) {
    constexpr double kSteepIsotherms = 0.02;  // of pcrit
    if (!has_no_equilibrium(f) && p == f.substance().pcrit) return critical_state(f);
    Saturation r;
    r.p = p;
    if (!(p > 0) || p > f.substance().pcrit || has_no_equilibrium(f)) return r;
    return p / f.substance().pcrit < kSteepIsotherms ? search_temperature_by_marching(f, p)
                                                     : search_temperature_by_secant(f, p, Tstart);
}

Saturation saturation_pressure(const Fluid& f, double T) {
    Saturation r = search_saturation_pressure(f, T);
    if (r.status == kSuccess) return r;
    r.p = 0;
    if (has_no_equilibrium(f) || !(T > 0) || !(T < f.substance().Tcrit)) return r;
    Saturation found = maxwell_pressure(f, T);
    found.rounds = r.rounds;
    return found;
}

Saturation saturation_temperature(const Fluid& f, double p, double Tstart) {
    Saturation r = search_saturation_temperature(f, p, Tstart);
    if (r.status == kSuccess) return r;
    r.T = 0;
    if (has_no_equilibrium(f) || !(p > 0) || !(p < f.substance().pcrit)) return r;
    Saturation found = maxwell_temperature(f, p);
    found.rounds = r.rounds;
    return found;
}

namespace {}  // namespace

}  // namespace quor::models
