#include "models/virial.h"
#include "legacy/current_fluid.h"

#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"

namespace quor::models {

using constants::R;
using models::EOSState;

namespace {

double pitzer_curl(const models::SubstanceRecord& s, double T) {
    const double x = s.Tcrit / T;  // 1/Tr
    const double f0 = 0.1445 - 0.33 * x - 0.1385 * x * x - 0.0121 * x * x * x;
    const double f1 = 0.073 + 0.46 * x - 0.5 * x * x - 0.097 * x * x * x - 0.0073 * std::pow(x, 8);
    return (f0 + s.omega * f1) * R * s.Tcrit / s.pcrit;
}

}  // namespace

double second_virial(const Fluid& f, std::int16_t code, double T, EOSState& state) {
    if (T < constants::kPresent) return 0;
    switch (code) {
        case 0:
            state = {};
            return 0;
        case 7:
        case 8:
        case 11:
        case 12:
        case 13:
        case 14:
        case 15:
            state = eos_at(f, T, state);
            return state.eosB - state.eosA / (R * T);
        default:
            break;
    }
    const EOSState power = power_state(f.eos(), f.substance().Tcrit, T);
    state.eosA = power.eosA;
    state.eosB = power.eosB;
    if (code == 10) return f.eos().eosB0 - f.eos().eosNB / std::pow(T, f.eos().eosNV);
    if (code == 16) return pitzer_curl(f.substance(), T);
    return 0;
}

Virial virial(const Fluid& f, std::int16_t code, double T) {
    Virial r;
    EOSState state;
    r.B = second_virial(f, code, T, state);
    if (T < constants::kPresent || code == 0) return r;

    if (code == 16) {
        const models::SubstanceRecord& s = f.substance();
        const double x = s.Tcrit / T;  // 1/Tr
        const double x2 = x * x;
        const double F0 = (0.33 + 0.277 * x + 0.0363 * x2) * x2;
        const double F1 = (-0.46 + x + 0.291 * x2) * x2 + 0.0584 * std::pow(x, 9);
        const double F2 = (0.66 + 0.831 * x + 0.1452 * x2) * x2 * x;
        const double F3 = (-0.92 + 3 * x + 1.164 * x2) * x2 * x + 0.5256 * std::pow(x, 10);
        r.dB = R / s.pcrit * (F0 + s.omega * F1);
        r.d2B = -R / (s.pcrit * s.Tcrit) * (F2 + s.omega * F3);
        return r;
    }
    // All other codes: the derivatives of b - a/(R T) with a and b in the power and Soave forms,
    // the manual form included.
    const EOSSlopes d = power_slopes(f.eos(), f.substance().Tcrit, state, T);
    const double lag = state.eosA / T - d.a1;
    r.dB = lag / (R * T) + d.b1;
    r.d2B = d.b2 - (2 * lag + T * d.a2) / (R * T) / T;
    return r;
}

double SecondVirial(std::int16_t code, double T) {
    return second_virial(current_fluid(), code, T, legacy::the_eosState);
}

void second_virial_derivatives(std::int16_t code, double T, double& dB, double& d2B) {
    const Virial v = virial(current_fluid(), code, T);
    dB = v.dB;
    d2B = v.d2B;
}

}  // namespace quor::models
