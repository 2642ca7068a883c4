#pragma once

#include <cmath>

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

/// (dp/dv)T of a state, kPa kmol/m^3.
inline double cubic_slope(const EosState& s, double T, double v) {
    const double w = v - s.b, x = v + s.c, y = v + s.d;
    return -constants::R * T / (w * w) + s.a * (x + y) / (x * x * y * y);
}

/// Integral of p dv along the isotherm of T/K from v1 to v2 in m^3/kmol, kJ/kmol.
inline double isotherm_integral(const EosState& s, double T, double v1, double v2) {
    const double attraction =
        s.c == s.d
            ? s.a * (1 / (v2 + s.c) - 1 / (v1 + s.c))
            : s.a / (s.c - s.d) * std::log((v2 + s.c) / (v2 + s.d) * ((v1 + s.d) / (v1 + s.c)));
    return constants::R * T * std::log((v2 - s.b) / (v1 - s.b)) + attraction;
}

}  // namespace quor::models
