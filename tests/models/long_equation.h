#pragma once

#include <array>
#include <cmath>
#include <functional>

#include "models/fluid.h"

using namespace quor;

/// The equations of state once more, in extended precision and straight from their formulas: the
/// oracle of the analytic derivatives. The constants are those of the fluid.
namespace oracle {

using Real = long double;

inline constexpr Real R = 8.31451L;

struct Coefficients {
    Real a = 0, b = 0, c = 0, d = 0;
};

inline Coefficients coefficients(const models::Fluid& f, Real T) {
    using models::Eos;
    const models::EosParameters& e = f.eos();
    const models::JiTorvikParameters& jt = f.jt();
    const Real Tc = f.substance().Tcrit;
    const Real pc = f.substance().pcrit;
    const Eos eos = f.models().eos;
    if (eos == Eos::jiTorvik1 || eos == Eos::jiTorvik2) {
        const Real x = std::pow(T / Tc, 0.75L);
        const Real u = 1 - x;
        const Real w =
            T > Tc ? 1 + u * jt.m : (u * jt.q + jt.p) * u * (0.76528558L - x) + u * jt.m + 1;
        const Real B = jt.omega_b * R * Tc / pc;
        const Real s = std::sqrt(Real(jt.omega_c) * jt.omega_c + 4 * Real(jt.omega_c));
        const Real t = 1 - T / Tc;
        const Real factor = eos == Eos::jiTorvik2 ? 1 - jt.k * t * t : 1;
        return {jt.a0 * w * w, B * factor, 0.5L * (jt.omega_c - s) * B * factor,
                0.5L * (jt.omega_c + s) * B * factor};
    }
    const Real Q = 1 + e.na * (1 - std::sqrt(T / Tc));
    return {e.alpha_form == 2 ? e.a0 * Q * Q : e.a0 * std::pow(T, Real(e.na)),
            e.b0 * std::pow(T, Real(e.nb)), e.c0 * std::pow(T, Real(e.nc)),
            e.d0 * std::pow(T, Real(e.nd))};
}

/// Second virial coefficient of a V-only model but the manual one.
inline Real virial(const models::Fluid& f, Real T) {
    using models::Eos;
    if (f.models().eos == Eos::idealGas) return 0;
    if (f.models().eos == Eos::pitzerCurl) {
        const models::SubstanceRecord& s = f.substance();
        const Real Tr = T / s.Tcrit;
        const Real f0 = 0.1445L - 0.33L / Tr - 0.1385L / (Tr * Tr) - 0.0121L / (Tr * Tr * Tr);
        const Real f1 = 0.073L + 0.46L / Tr - 0.5L / (Tr * Tr) - 0.097L / (Tr * Tr * Tr) -
                        0.0073L / std::pow(Tr, 8.0L);
        return (f0 + s.omega * f1) * R * s.Tcrit / s.pcrit;
    }
    const Coefficients k = coefficients(f, T);
    return k.b - k.a / (R * T);
}

inline Real pressure(const models::Fluid& f, Real T, Real v) {
    if (f.models().vapour_only) return R * T / (v - virial(f, T));
    const Coefficients k = coefficients(f, T);
    return R * T / (v - k.b) - k.a / ((v + k.c) * (v + k.d));
}

inline Real covolume(const models::Fluid& f, Real T) {
    return f.models().vapour_only ? virial(f, T) : coefficients(f, T).b;
}

inline Real ln_phi(const models::Fluid& f, Real T, Real p, Real v) {
    if (f.models().vapour_only) return virial(f, T) * p / (R * T);
    const auto [a, b, c, d] = coefficients(f, T);
    const Real L0 = std::log(R * T / p / (v - b)) + b / (v - b);
    if (c == d) return L0 - a / (R * T) * (2 * v + c) / ((v + c) * (v + c));
    return L0 + a / (R * T) / (c - d) * (std::log((v + d) / (v + c)) - c / (v + c) + d / (v + d));
}

/// Zero of f next to x where its slope is about `slope`, by the secant method.
template <class F>
Real zero_near(F f, Real x, Real slope) {
    Real value = f(x);
    for (int i = 0; i < 60 && value != 0; ++i) {
        const Real dx = -value / slope;
        const Real next = f(x + dx);
        if (next != value) slope = (next - value) / dx;
        x += dx;
        value = next;
        if (std::fabs(dx) <= 1e-18L * std::fabs(x)) break;
    }
    return x;
}

/// The volume at T and p next to a known one where (dp/dv)T is about `slope`.
inline Real volume_near(const models::Fluid& f, Real T, Real p, Real v, Real slope) {
    return zero_near([&](Real x) { return pressure(f, T, x) - p; }, v, slope);
}

/// The temperature at p and v next to a known one where (dp/dT)v is about `slope`.
inline Real temperature_near(const models::Fluid& f, Real T, Real p, Real v, Real slope) {
    return zero_near([&](Real x) { return pressure(f, x, v) - p; }, T, slope);
}

/// Central differences of eighth order (B. Fornberg, Math. Comp. 51 (1988) 699).
template <class F>
Real first_derivative(F f, Real x, Real h) {
    return (4.0L / 5 * (f(x + h) - f(x - h)) - 1.0L / 5 * (f(x + 2 * h) - f(x - 2 * h)) +
            4.0L / 105 * (f(x + 3 * h) - f(x - 3 * h)) -
            1.0L / 280 * (f(x + 4 * h) - f(x - 4 * h))) /
           h;
}

template <class F>
Real second_derivative(F f, Real x, Real h) {
    return (-205.0L / 72 * f(x) + 8.0L / 5 * (f(x + h) + f(x - h)) -
            1.0L / 5 * (f(x + 2 * h) + f(x - 2 * h)) + 8.0L / 315 * (f(x + 3 * h) + f(x - 3 * h)) -
            1.0L / 560 * (f(x + 4 * h) + f(x - 4 * h))) /
           (h * h);
}

}  // namespace oracle
