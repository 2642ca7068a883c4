#pragma once

#include <cstdint>

namespace quor::calculation {

/// One line of experimental data; a value of 0 means that there is none.
struct BatchDataSet {
    std::int16_t skip = 0;  ///< non-zero (-1): the line is inactive
    double T = 0;           ///< K
    double p = 0;           ///< kPa
    float rhoV = 0;         ///< density of the vapour or of the single phase, kg/m^3
    float rhoL = 0;         ///< density of the liquid, kg/m^3
    float hLV = 0;          ///< enthalpy of vaporisation, kJ/kmol
    float cp = 0;           ///< heat capacity V, L or S, kJ/(kmol K)
};

/// What is filled into a tank.
struct Tank {
    float V = 0;  ///< m^3
    float m = 0;  ///< kg
    float T = 0;  ///< K
};

}  // namespace quor::calculation
