#include <cmath>

#include "common/constants.h"
#include "common/faults.h"
#include "models/cubic_forms.h"
#include "models/equations.h"
#include "models/fluid.h"

namespace quor::models {

using constants::R;

namespace {

void ji_torvik_coefficients(const SubstanceRecord& s, JiTorvikParameters& jt) {
    // The critical point fixes the three coefficients through jtZc: jtOmegaB is the real root of a
    // cubic equation, taken by Cardano's formula.
    const double zc = jt.zc;
    const double cbrt2 = std::cbrt(2.0);
    const double L = 6 * zc - 1;
    const double N = 1 - 3 * zc;
    const double Y = 27 * zc * zc * zc + 27 * N * zc * zc - 2 * N * N * N;
    const double D = Y * Y + 4 * L * L * L;
    if (D < 0) throw faults::Fault(faults::kInvalidArgument);
    const double S = std::cbrt(std::sqrt(D) + Y);
    jt.omega_b = faults::finite(-N / 3 - cbrt2 * L / (3 * S) + S / (3 * cbrt2));
    jt.omega_c = faults::divide(1 - 3 * zc + jt.omega_b, jt.omega_b);
    jt.omega_a = 3 * zc * zc + jt.omega_c * jt.omega_b + 2 * jt.omega_c * jt.omega_b * jt.omega_b;
    jt.a0 = faults::divide(jt.omega_a * R * R * s.Tcrit * s.Tcrit, s.pcrit);
}

/// The parameters are fitted to the substance; the rest follows from its critical point.
EosConstants constants_of(const SubstanceRecord& s, const ModelSelection& models) {
    EosConstants k{.power = {}, .ji_torvik = models.ji_torvik};
    ji_torvik_coefficients(s, k.ji_torvik);
    return k;
}

EosState state_of_form1(const Fluid& f, double T) {
    const JiTorvikParameters& jt = f.jt();
    const double Tr = T / f.substance().Tcrit;
    const double x = std::pow(Tr, 0.75);
    const double u = 1 - x;
    const double w =
        Tr > 1 ? 1 + u * jt.m : (u * jt.q + jt.p) * u * (0.76528558 - x) + u * jt.m + 1;
    const double B = jt.omega_b * R * f.substance().Tcrit / f.substance().pcrit;
    const double s = std::sqrt(jt.omega_c * jt.omega_c + 4 * jt.omega_c);
    EosState e{.a = jt.a0 * w * w,
               .b = B,
               .c = 0.5 * (jt.omega_c - s) * B,
               .d = 0.5 * (jt.omega_c + s) * B};
    return e;
}

/// Form II multiplies b, c and d with 1 - K (1 - Tr)^2.
EosState state_of_form2(const Fluid& f, double T) {
    EosState e = state_of_form1(f, T);
    const double Tr = T / f.substance().Tcrit;
    const double factor = 1 - f.jt().k * (1 - Tr) * (1 - Tr);
    e.b *= factor;
    e.c *= factor;
    e.d *= factor;
    return e;
}

/// a = a0 w(x)^2 with x = (T/Tcrit)^0.75; w is a cubic in x below Tcrit and a line above.
void ji_torvik_a_slopes(const JiTorvikParameters& jt, double Tcrit, double T, EosSlopes& s) {
    constexpr double k = 0.76528558;
    const double x = std::pow(T / Tcrit, 0.75);
    const double x1 = 0.75 * x / T;
    const double x2 = -0.25 * x1 / T;

    const double u = 1.0 - x;
    double w = 1.0 + u * jt.m;
    double wx = -jt.m;
    double wxx = 0.0;
    if (T <= Tcrit) {
        const double f = (u * jt.q + jt.p) * u;      // w = f (k - x) + u M + 1
        const double fx = -(2.0 * u * jt.q + jt.p);  // df/dx
        w += f * (k - x);
        wx += fx * (k - x) - f;
        wxx = 2.0 * jt.q * (k - x) - 2.0 * fx;
    }
    const double w1 = wx * x1;
    const double w2 = wxx * x1 * x1 + wx * x2;
    s.a1 = 2.0 * jt.a0 * w * w1;
    s.a2 = 2.0 * jt.a0 * (w1 * w1 + w * w2);
}

/// Form II: b, c and d share the factor 1 - K (1 - T/Tcrit)^2.
void ji_torvik_volume_slopes(const Fluid& fluid, double T, EosSlopes& s) {
    const JiTorvikParameters& jt = fluid.jt();
    const double Tcrit = fluid.substance().Tcrit;
    const double factor1 = 2.0 * jt.k * (1.0 - T / Tcrit) / Tcrit;
    const double factor2 = -2.0 * jt.k / (Tcrit * Tcrit);

    const double B = jt.omega_b * R * Tcrit / fluid.substance().pcrit;
    const double root = std::sqrt(jt.omega_c * jt.omega_c + 4.0 * jt.omega_c);
    const double C = 0.5 * (jt.omega_c - root) * B;
    const double D = 0.5 * (jt.omega_c + root) * B;
    s.b1 = B * factor1;
    s.b2 = B * factor2;
    s.c1 = C * factor1;
    s.c2 = C * factor2;
    s.d1 = D * factor1;
    s.d2 = D * factor2;
}

EosSlopes slopes_of_form1(const Fluid& fluid, const EosState&, double T) {
    EosSlopes s;
    ji_torvik_a_slopes(fluid.jt(), fluid.substance().Tcrit, T, s);
    return s;
}

EosSlopes slopes_of_form2(const Fluid& fluid, const EosState& state, double T) {
    EosSlopes s = slopes_of_form1(fluid, state, T);
    ji_torvik_volume_slopes(fluid, T, s);
    return s;
}

constexpr EquationOfState form(Eos eos, std::string_view name, decltype(EquationOfState::at) at,
                               decltype(EquationOfState::slopes) slopes) {
    return {.eos = eos,
            .name = name,
            .family = EosFamily::cubic,
            .needs_omega = true,
            .constants = constants_of,
            .at = at,
            .slopes = slopes,
            .second_virial = cubic_second_virial,
            .virial = power_virial};
}

}  // namespace

const EquationOfState kJiTorvik1 =
    form(Eos::jiTorvik1, "CEOS Ji / Torvik I                 ", state_of_form1, slopes_of_form1);
const EquationOfState kJiTorvik2 =
    form(Eos::jiTorvik2, "CEOS Ji / Torvik II                ", state_of_form2, slopes_of_form2);

}  // namespace quor::models
