#include "models/cubic_forms.h"

#include <cmath>

#include "common/constants.h"
#include "models/fluid.h"

namespace quor::models {

using constants::R;

namespace {

/// T to a constant exponent; the exponents of the built-in models need no power function.
double power_of_T(double T, double exponent) {
    if (exponent == 0.0) return 1.0;
    if (exponent == -0.5) return 1.0 / std::sqrt(T);
    if (exponent == -1.0) return 1.0 / T;
    return std::pow(T, exponent);
}

}  // namespace

EosConstants no_constants(const SubstanceRecord&, const ModelSelection& models) {
    return {.power = {}, .ji_torvik = models.ji_torvik};
}

EosSlopes power_slopes(const EosParameters& e, double Tcrit, const EosState& s, double T) {
    EosSlopes d;
    if (e.alpha_form == 2) {
        // a = a0 Q^2 with Q = 1 + m (1 - sqrt(T/Tcrit)).
        const double Q = 1 + e.na * (1 - std::sqrt(T / Tcrit));
        const double Q1 = -0.5 * e.na / std::sqrt(Tcrit * T);
        const double Q2 = -0.5 * Q1 / T;
        d.a1 = 2 * e.a0 * Q * Q1;
        d.a2 = 2 * e.a0 * (Q1 * Q1 + Q * Q2);
    } else {
        d.a1 = e.na * s.a / T;
        d.a2 = (e.na - 1) * d.a1 / T;
    }
    d.b1 = e.nb * s.b / T;
    d.b2 = (e.nb - 1) * d.b1 / T;
    d.c1 = e.nc * s.c / T;
    d.c2 = (e.nc - 1) * d.c1 / T;
    d.d1 = e.nd * s.d / T;
    d.d2 = (e.nd - 1) * d.d1 / T;
    return d;
}

EosState power_at(const Fluid& f, double T) {
    const EosParameters& e = f.eos();
    const double b = e.b0 * power_of_T(T, e.nb);
    const double c = e.c0 * power_of_T(T, e.nc);
    const double d = e.d0 * power_of_T(T, e.nd);
    // All four in one expression: solvers copy the state at once, which waits for single stores.
    if (e.alpha_form == 2) {
        const double root = 1 + e.na * (1 - std::sqrt(T / f.substance().Tcrit));
        return {e.a0 * root * root, b, c, d};
    }
    return {e.a0 * power_of_T(T, e.na), b, c, d};
}

EosSlopes power_slopes_of(const Fluid& f, const EosState& state, double T) {
    return power_slopes(f.eos(), f.substance().Tcrit, state, T);
}

double cubic_second_virial(const Fluid& f, double T, EosState& state) {
    state = f.equation().at(f, T);
    return state.b - state.a / (R * T);
}

double no_virial(const Fluid& f, double T, EosState& state) {
    const EosState power = power_at(f, T);
    state.a = power.a;
    state.b = power.b;
    return 0;
}

Virial power_virial(const Fluid& f, double T) {
    Virial r;
    EosState state;
    r.B = f.equation().second_virial(f, T, state);
    const EosSlopes d = power_slopes(f.eos(), f.substance().Tcrit, state, T);
    const double lag = state.a / T - d.a1;
    r.dB = lag / (R * T) + d.b1;
    r.d2B = d.b2 - (2 * lag + T * d.a2) / (R * T) / T;
    return r;
}

}  // namespace quor::models
