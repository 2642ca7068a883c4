#pragma once

#include <array>
#include <cstdint>

namespace quor::models {

/// Constants of the active equation of state in p = R T/(v - b) - a/((v + c)(v + d)).
struct EOSParameters {
    double eosA0 = 0, eosB0 = 0, eosC0 = 0, eosD0 = 0;  ///< constant factors of a, b, c, d
    double eosNA = 0;  ///< exponent of T in a (alpha form 1) or the factor m (alpha form 2)
    double eosNB = 0, eosNC = 0, eosND = 0;  ///< exponents of T in b, c, d
    double eosNV = 0;                        ///< exponent of the manual virial form
    /// 1: a = eosA0 T^eosNA; 2: a = eosA0 (1 + eosNA (1 - sqrt(T/Tcrit)))^2
    std::int16_t eosAlphaForm = 1;
    double vcritCalc = 0;    ///< critical molar volume of the model, m^3/kmol
    double rhocritCalc = 0;  ///< M/vcritCalc, kg/m^3, 0 when there is none

    bool operator==(const EOSParameters&) const = default;
};

/// a, b, c, d at the last temperature evaluated.
struct EOSState {
    double eosA = 0, eosB = 0, eosC = 0, eosD = 0;
};

/// Parameters of the two Ji/Torvik forms.
struct JiTorvikParameters {
    double jtA0 = 0;                                  ///< a factor
    double jtK = 0;                                   ///< volume temperature factor, form II
    double jtZc = 0;                                  ///< critical compressibility factor
    double jtM = 0, jtP = 0, jtQ = 0;                 ///< factors of the alpha function
    double jtOmegaA = 0, jtOmegaB = 0, jtOmegaC = 0;  ///< computed coefficients

    bool operator==(const JiTorvikParameters&) const = default;
};

}  // namespace quor::models
