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
    return {.power = {}, .jiTorvik = models.jiTorvik};
}

EOSState power_state(const EOSParameters& e, double Tcrit, double T) {
    EOSState s{.eosA = 0,
               .eosB = e.eosB0 * power_of_T(T, e.eosNB),
               .eosC = e.eosC0 * power_of_T(T, e.eosNC),
               .eosD = e.eosD0 * power_of_T(T, e.eosND)};
    if (e.eosAlphaForm == 2) {
        const double root = 1 + e.eosNA * (1 - std::sqrt(T / Tcrit));
        s.eosA = e.eosA0 * root * root;
    } else {
        s.eosA = e.eosA0 * power_of_T(T, e.eosNA);
    }
    return s;
}

EOSSlopes power_slopes(const EOSParameters& e, double Tcrit, const EOSState& s, double T) {
    EOSSlopes d;
    if (e.eosAlphaForm == 2) {
        // a = a0 Q^2 with Q = 1 + m (1 - sqrt(T/Tcrit)).
        const double Q = 1 + e.eosNA * (1 - std::sqrt(T / Tcrit));
        const double Q1 = -0.5 * e.eosNA / std::sqrt(Tcrit * T);
        const double Q2 = -0.5 * Q1 / T;
        d.a1 = 2 * e.eosA0 * Q * Q1;
        d.a2 = 2 * e.eosA0 * (Q1 * Q1 + Q * Q2);
    } else {
        d.a1 = e.eosNA * s.eosA / T;
        d.a2 = (e.eosNA - 1) * d.a1 / T;
    }
    d.b1 = e.eosNB * s.eosB / T;
    d.b2 = (e.eosNB - 1) * d.b1 / T;
    d.c1 = e.eosNC * s.eosC / T;
    d.c2 = (e.eosNC - 1) * d.c1 / T;
    d.d1 = e.eosND * s.eosD / T;
    d.d2 = (e.eosND - 1) * d.d1 / T;
    return d;
}

EOSState power_at(const Fluid& f, double T) {
    return power_state(f.eos(), f.substance().Tcrit, T);
}

EOSSlopes power_slopes_of(const Fluid& f, const EOSState& state, double T) {
    return power_slopes(f.eos(), f.substance().Tcrit, state, T);
}

double cubic_second_virial(const Fluid& f, double T, EOSState& state) {
    state = f.equation().at(f, T);
    return state.eosB - state.eosA / (R * T);
}

double no_virial(const Fluid& f, double T, EOSState& state) {
    const EOSState power = power_at(f, T);
    state.eosA = power.eosA;
    state.eosB = power.eosB;
    return 0;
}

Virial power_virial(const Fluid& f, double T) {
    Virial r;
    EOSState state;
    r.B = f.equation().secondVirial(f, T, state);
    const EOSSlopes d = power_slopes(f.eos(), f.substance().Tcrit, state, T);
    const double lag = state.eosA / T - d.a1;
    r.dB = lag / (R * T) + d.b1;
    r.d2B = d.b2 - (2 * lag + T * d.a2) / (R * T) / T;
    return r;
}

}  // namespace quor::models
