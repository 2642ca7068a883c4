#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "common/status.h"

namespace Calc {

struct EnthalpyOfVaporisationResult {
    std::int32_t h = 0;          ///< kJ/kmol, rounded to a whole number
    double raw = 0;              ///< before rounding
    double T = 0, p = 0;         ///< K and kPa at which it was evaluated
    double zV = 0, zL = 0;       ///< compressibility factors (methods 5, 6)
    double rhoV = 0, rhoL = 0;   ///< kg/m^3 (methods 5, 6, 7)
    std::int16_t deviation = 0;  ///< K outside the range of method 1
    std::string explanation;     ///< how T, p and the result were obtained
    Status status = kSuccess;
};

/// delta(LV)h by method 1 to 7 at T/K or p/kPa (a value <= 1E-6 is not given and is found from the
/// other). `dataSet` is the index of the experimental data row that may stand in for a missing
/// p or T, 0 for none. `warn` allows message boxes of range warnings.
EnthalpyOfVaporisationResult EnthalpyOfVaporisation(std::int16_t method, double T, double p,
                                                    std::string_view vpCode, bool warn,
                                                    std::int16_t dataSet = 0);

struct EnthalpyEquationResult {
    double h = 0;  ///< kJ/kmol
    Status status = kSuccess;
};
/// The database equation alone, without a range test; status -1 when it is missing.
EnthalpyEquationResult EnthalpyEquationValue(double T);

}  // namespace Calc
