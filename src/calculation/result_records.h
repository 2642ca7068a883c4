#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "datafiles/measured_data.h"

namespace quor::calculation {

/// Results of the last `CalcBatch` call, index 0 to 41; the index is also the protocol's column.
using FuArray = std::array<double, 42>;

using BatchDataSet = datafiles::MeasuredPoint;

/// Functions of one phase for the result list.
struct PhaseFunctions {
    std::array<double, 11> caloric{};   ///< v, h, s, g, u, a, e(H), e(U), cp, cv, w
    std::array<double, 24> extended{};  ///< values in the order of `FunctionLabels`
};

/// Result of one data set.
struct ResultRecord {
    std::string State = "   ";  ///< " V ", " L ", "V+L" or blanks
    float T = 0;                ///< calculated T, K
    float p = 0;                ///< calculated p, kPa
    float rhoV = 0, rhoL = 0;   ///< calculated densities, kg/m^3
    float hLV = 0;              ///< calculated delta(LV)h, kJ/kmol
    PhaseFunctions FuV, FuL;
};

/// The last state of a cubic EOS, kept for the diagnosis view.
struct LastState {
    double T = 0;               ///< K
    double p = 0;               ///< kPa
    std::array<double, 3> v{};  ///< volume roots, m^3/kmol
    bool HasL = false, HasV = false;
    std::int16_t Roots = 0;
    std::int16_t error = 0;               ///< the numerical error indicator
    std::array<std::string, 2> messages;  ///< the last two state-solver messages
};

/// Input and results of the tank calculation.
struct Tank {
    float V = 0;       ///< m^3
    float m = 0;       ///< kg
    float T = 0;       ///< K
    float p = 0;       ///< kPa, result
    double level = 0;  ///< filling level, per cent by volume, result
    std::string
        answer{};  ///< the text that the calculation gave back: "ERROR1" to "ERROR3", "EXIT"
};

}  // namespace quor::calculation
