#pragma once

#include <array>
#include <cstdint>

namespace quor::models {

/// Constants of the active equation of state in p = R T/(v - b) - a/((v + c)(v + d)).
struct EosParameters {
    double a0 = 0, b0 = 0, c0 = 0, d0 = 0;  ///< constant factors of a, b, c, d
    double na = 0;  ///< exponent of T in a (alpha form 1) or the factor m (alpha form 2)
    double nb = 0, nc = 0, nd = 0;  ///< exponents of T in b, c, d
    double nv = 0;                  ///< exponent of the manual virial form
    /// 1: a = eosA0 T^eosNA; 2: a = eosA0 (1 + eosNA (1 - sqrt(T/Tcrit)))^2
    std::int16_t alpha_form = 1;
    double vcrit_calculated = 0;    ///< critical molar volume of the model, m^3/kmol
    double rhocrit_calculated = 0;  ///< M/vcrit_calculated, kg/m^3, 0 when there is none

    bool operator==(const EosParameters&) const = default;
};

/// a, b, c, d at the last temperature evaluated.
struct EosState {
    double a = 0, b = 0, c = 0, d = 0;
};

/// Parameters of the two Ji/Torvik forms.
struct JiTorvikParameters {
    double a0 = 0;                                 ///< a factor
    double k = 0;                                  ///< volume temperature factor, form II
    double zc = 0;                                 ///< critical compressibility factor
    double m = 0, p = 0, q = 0;                    ///< factors of the alpha function
    double omega_a = 0, omega_b = 0, omega_c = 0;  ///< computed coefficients

    bool operator==(const JiTorvikParameters&) const = default;
};

}  // namespace quor::models
