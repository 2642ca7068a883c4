#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "common/status.h"
#include "models/fluid.h"
#include "models/reference_record.h"

namespace quor::models {

struct EnthalpyOfVaporisationResult {
    std::int32_t h = 0;          ///< kJ/kmol, rounded to a whole number
    double raw = 0;              ///< before rounding
    double T = 0, p = 0;         ///< K and kPa at which it was evaluated
    double zV = 0, zL = 0;       ///< compressibility factors (Clausius/Clapeyron and the cubic EOS)
    double rhoV = 0, rhoL = 0;   ///< kg/m^3 (Clausius/Clapeyron and the cubic EOS)
    std::int16_t deviation = 0;  ///< K outside the range of the database's equation
    /// K outside the ranges of p(LV), T(LV) and of the L density, as far as they were used.
    std::int16_t pressure_deviation = 0, temperature_deviation = 0, density_deviation = 0;
    std::array<double, 3> v{};  ///< the volume roots of the last state solved, m^3/kmol
    std::string explanation;    ///< how T, p and the result were obtained
    Status status = kSuccess;
};

/// What an evaluation by a method needs beside the fluid.
struct VaporisationMethod {
    VaporisationModel model = VaporisationModel::none;
    VapourPressureEquation equation = VapourPressureEquation::none;
    BensonPoint reference;  ///< second reference point, for Benson's way
    double T = 0, p = 0;    ///< measured values that may stand in for a missing T or p, 0 for none
};

/// delta(LV)h at T/K or p/kPa (a value <= 1E-6 is not given and is found from the other).
EnthalpyOfVaporisationResult enthalpy_of_vaporisation(const Fluid& fluid,
                                                      const VaporisationMethod& method, double T,
                                                      double p);

struct EnthalpyEquationResult {
    double h = 0;  ///< kJ/kmol
    Status status = kSuccess;
};
/// The database equation A exp(-B Tr) (1 - Tr)^(C + D Tr + E Tr^2 + F Tr^3), Tr = T/Tc of the set,
/// without a range test. 0 from Tc of the set up to the critical point of the substance; status -1
/// above both, without a Tc, and on a fault.
EnthalpyEquationResult enthalpy_equation(const SubstanceRecord& s, double T);

}  // namespace quor::models
