#pragma once

#include "common/constants.h"
#include "models/cubic_forms.h"
#include "models/fluid.h"

namespace quor::models {

/// a, b, c, d at T/K; T below 1E-6 gives `previous` back.
inline EosState eos_at(const Fluid& fluid, double T, const EosState& previous = {}) {
    return T < constants::kPresent ? previous : fluid.equation().at(fluid, T);
}

/// Their analytic derivatives at T/K > 0.
inline EosSlopes eos_slopes(const Fluid& fluid, const EosState& state, double T) {
    return fluid.equation().slopes(fluid, state, T);
}

/// p/kPa = R T/(v - b) - a/((v + c)(v + d)) of a state; v in m^3/kmol above b.
inline double cubic_pressure(const EosState& s, double T, double v) {
    return constants::R * T / (v - s.b) - s.a / ((v + s.c) * (v + s.d));
}

}  // namespace quor::models
