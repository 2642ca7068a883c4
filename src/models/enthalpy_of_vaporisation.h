#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "models/fluid.h"
#include "models/reference_record.h"

namespace quor::models {

/// delta(LV)h, or why there is none, and what was found on the way.
struct Vaporisation {
    std::optional<std::int32_t> h;     ///< kJ/kmol, rounded to a whole number; `explanation` tells
                                       ///< why there is none
    double raw = 0;                    ///< before rounding
    std::optional<double> T, p;        ///< K and kPa at which it was evaluated, as far as known
    std::optional<double> zV, zL;      ///< compressibility factors (Clausius/Clapeyron, cubic EOS)
    std::optional<double> rhoV, rhoL;  ///< kg/m^3 (Clausius/Clapeyron and the cubic EOS)
    std::int16_t deviation = 0;        ///< K outside the range of the database's equation
    /// K outside the ranges of p(LV), T(LV) and of the L density, as far as they were used.
    std::int16_t pressure_deviation = 0, temperature_deviation = 0, density_deviation = 0;
    std::array<double, 3> v{};  ///< the volume roots of the last state solved, m^3/kmol
    std::string explanation;    ///< how T, p and the result were obtained
};

/// What an evaluation by a method needs beside the fluid.
struct VaporisationMethod {
    VaporisationModel model = VaporisationModel::none;
    VapourPressureEquation equation = VapourPressureEquation::none;
    BensonPoint reference;  ///< second reference point, for Benson's way
    std::optional<double> T = {},
                          p = {};  ///< measured values that may stand in for a missing T or p
};

/// delta(LV)h at T/K or p/kPa; one that is not given (or not above 1E-6) is found from the other.
Vaporisation enthalpy_of_vaporisation(const Fluid& fluid, const VaporisationMethod& method,
                                      std::optional<double> T, std::optional<double> p);

/// The database equation A exp(-B Tr) (1 - Tr)^(C + D Tr + E Tr^2 + F Tr^3), Tr = T/Tc of the set,
/// without a range test. kJ/kmol. 0 from Tc of the set up to the critical point of the substance;
/// nothing above both, without a Tc, and on a fault.
std::optional<double> enthalpy_equation(const SubstanceRecord& s, double T);

}  // namespace quor::models
