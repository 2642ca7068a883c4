#include <cmath>

#include "common/constants.h"
#include "models/cubic_eos.h"

namespace quor::models {

namespace {

using constants::R;

/// a = a0 w(x)^2 with x = (T/Tcrit)^0.75; w is a cubic in x below Tcrit and a line above.
void ji_torvik_a_slopes(const models::JiTorvikParameters& jt, double Tcrit, double T,
                        EOSSlopes& s) {
    constexpr double k = 0.76528558;
    const double x = std::pow(T / Tcrit, 0.75);
    const double x1 = 0.75 * x / T;
    const double x2 = -0.25 * x1 / T;

    const double u = 1.0 - x;
    double w = 1.0 + u * jt.jtM;
    double wx = -jt.jtM;
    double wxx = 0.0;
    if (T <= Tcrit) {
        const double f = (u * jt.jtQ + jt.jtP) * u;      // w = f (k - x) + u M + 1
        const double fx = -(2.0 * u * jt.jtQ + jt.jtP);  // df/dx
        w += f * (k - x);
        wx += fx * (k - x) - f;
        wxx = 2.0 * jt.jtQ * (k - x) - 2.0 * fx;
    }
    const double w1 = wx * x1;
    const double w2 = wxx * x1 * x1 + wx * x2;
    s.a1 = 2.0 * jt.jtA0 * w * w1;
    s.a2 = 2.0 * jt.jtA0 * (w1 * w1 + w * w2);
}

/// Form II: b, c and d share the factor 1 - K (1 - T/Tcrit)^2.
void ji_torvik_volume_slopes(const Fluid& fluid, double T, EOSSlopes& s) {
    const models::JiTorvikParameters& jt = fluid.jt();
    const double Tcrit = fluid.substance().Tcrit;
    const double factor1 = 2.0 * jt.jtK * (1.0 - T / Tcrit) / Tcrit;
    const double factor2 = -2.0 * jt.jtK / (Tcrit * Tcrit);

    const double B = jt.jtOmegaB * R * Tcrit / fluid.substance().pcrit;
    const double root = std::sqrt(jt.jtOmegaC * jt.jtOmegaC + 4.0 * jt.jtOmegaC);
    const double C = 0.5 * (jt.jtOmegaC - root) * B;
    const double D = 0.5 * (jt.jtOmegaC + root) * B;
    s.b1 = B * factor1;
    s.b2 = B * factor2;
    s.c1 = C * factor1;
    s.c2 = C * factor2;
    s.d1 = D * factor1;
    s.d2 = D * factor2;
}

}  // namespace

EOSSlopes eos_slopes(const Fluid& fluid, const models::EOSState& state, double T) {
    const double Tcrit = fluid.substance().Tcrit;
    if (fluid.models().EOSModel != 7 && fluid.models().EOSModel != 8)
        return power_slopes(fluid.eos(), Tcrit, state, T);
    EOSSlopes s;
    ji_torvik_a_slopes(fluid.jt(), Tcrit, T, s);
    if (fluid.models().EOSModel == 8) ji_torvik_volume_slopes(fluid, T, s);
    return s;
}

}  // namespace quor::models
