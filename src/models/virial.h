#pragma once

#include "models/fluid.h"

namespace quor::models {

/// Second virial coefficient and its derivatives, m^3/kmol, per K, per K^2.
struct Virial {
    double B = 0, dB = 0, d2B = 0;
};

/// B(T) of an EOS code in m^3/kmol; 0 below 1E-6 K, for the ideal gas and for codes 1 to 6 and 9.
/// Codes 7, 8 and 11 to 15 use B = b - a/(R T); 10 the manual form b0 - b1/T^b2; 16 Pitzer/Curl
/// (K. S. Pitzer, R. F. Curl, J. Am. Chem. Soc. 79 (1957) 2369). `state` receives a, b, c, d at T.
double second_virial(const Fluid& fluid, std::int16_t code, double T, models::EOSState& state);

/// B with dB/dT and d2B/dT2. The derivatives of all codes but 16 are those of B = b - a/(R T) with
/// a and b in the power or Soave form, for the manual form too.
Virial virial(const Fluid& fluid, std::int16_t code, double T);

/// B(T) by the process-level records; leaves a, b, c, d at T in `legacy::the_eosState`.
double SecondVirial(std::int16_t code, double T);
void second_virial_derivatives(std::int16_t code, double T, double& dB, double& d2B);

}  // namespace quor::models
