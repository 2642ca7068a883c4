#include <cmath>

#include "common/constants.h"
#include "models/cubic_forms.h"
#include "models/equations.h"
#include "models/fluid.h"

namespace quor::models {

using constants::R;

namespace {

/// K. S. Pitzer, R. F. Curl, J. Am. Chem. Soc. 79 (1957) 2369.
double pitzer_curl(const SubstanceRecord& s, double T) {
    const double x = s.Tcrit / T;  // 1/Tr
    const double f0 = 0.1445 - 0.33 * x - 0.1385 * x * x - 0.0121 * x * x * x;
    const double f1 = 0.073 + 0.46 * x - 0.5 * x * x - 0.097 * x * x * x - 0.0073 * std::pow(x, 8);
    return (f0 + s.omega * f1) * R * s.Tcrit / s.pcrit;
}

double second_virial_of(const Fluid& f, double T, EosState& state) {
    no_virial(f, T, state);
    return pitzer_curl(f.substance(), T);
}

Virial virial_of_T(const Fluid& f, double T) {
    Virial r;
    r.B = pitzer_curl(f.substance(), T);
    const SubstanceRecord& s = f.substance();
    const double x = s.Tcrit / T;  // 1/Tr
    const double x2 = x * x;
    const double F0 = (0.33 + 0.277 * x + 0.0363 * x2) * x2;
    const double F1 = (-0.46 + x + 0.291 * x2) * x2 + 0.0584 * std::pow(x, 9);
    const double F2 = (0.66 + 0.831 * x + 0.1452 * x2) * x2 * x;
    const double F3 = (-0.92 + 3 * x + 1.164 * x2) * x2 * x + 0.5256 * std::pow(x, 10);
    r.dB = R / s.pcrit * (F0 + s.omega * F1);
    r.d2B = -R / (s.pcrit * s.Tcrit) * (F2 + s.omega * F3);
    return r;
}

}  // namespace

const EquationOfState kPitzerCurl =
    virial_form(Eos::pitzerCurl, "VIRIAL Equ. Pitzer / Curl          ", no_constants,
                second_virial_of, virial_of_T, true);

}  // namespace quor::models
