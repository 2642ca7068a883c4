#include "models/cubic_eos.h"
#include "legacy/current_fluid.h"

#include <cmath>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "models/ji_torvik.h"
#include "models/model_tables.h"

namespace quor::models {

using constants::R;
using models::EOSParameters;
using models::EOSState;
using models::JiTorvikParameters;
using models::SubstanceRecord;

namespace {

/// The code whose constants a model uses: the virial forms 11 to 15 share those of 2 to 6.
std::int16_t constants_code(std::int16_t code) {
    return code >= 11 && code <= 15 ? static_cast<std::int16_t>(code - 9) : code;
}

/// T to a constant exponent; the exponents of the built-in models need no power function.
double power_of_T(double T, double exponent) {
    if (exponent == 0.0) return 1.0;
    if (exponent == -0.5) return 1.0 / std::sqrt(T);
    if (exponent == -1.0) return 1.0 / T;
    return std::pow(T, exponent);
}

void ji_torvik_coefficients(const SubstanceRecord& s, JiTorvikParameters& jt) {
    // The critical point fixes the three coefficients through jtZc: jtOmegaB is the real root of a
    // cubic equation, taken by Cardano's formula.
    const double zc = jt.jtZc;
    const double cbrt2 = std::cbrt(2.0);
    const double L = 6 * zc - 1;
    const double N = 1 - 3 * zc;
    const double Y = 27 * zc * zc * zc + 27 * N * zc * zc - 2 * N * N * N;
    const double D = Y * Y + 4 * L * L * L;
    if (D < 0) throw faults::Fault(faults::kInvalidArgument);
    const double S = std::cbrt(std::sqrt(D) + Y);
    jt.jtOmegaB = faults::finite(-N / 3 - cbrt2 * L / (3 * S) + S / (3 * cbrt2));
    jt.jtOmegaC = faults::divide(1 - 3 * zc + jt.jtOmegaB, jt.jtOmegaB);
    jt.jtOmegaA =
        3 * zc * zc + jt.jtOmegaC * jt.jtOmegaB + 2 * jt.jtOmegaC * jt.jtOmegaB * jt.jtOmegaB;
    jt.jtA0 = faults::divide(jt.jtOmegaA * R * R * s.Tcrit * s.Tcrit, s.pcrit);
}

EOSState ji_torvik_state(const Fluid& f, double T) {
    const JiTorvikParameters& jt = f.jt();
    const double Tr = T / f.substance().Tcrit;
    const double x = std::pow(Tr, 0.75);
    const double u = 1 - x;
    const double w =
        Tr > 1 ? 1 + u * jt.jtM : (u * jt.jtQ + jt.jtP) * u * (0.76528558 - x) + u * jt.jtM + 1;
    const double B = jt.jtOmegaB * R * f.substance().Tcrit / f.substance().pcrit;
    const double s = std::sqrt(jt.jtOmegaC * jt.jtOmegaC + 4 * jt.jtOmegaC);
    EOSState e{.eosA = jt.jtA0 * w * w,
               .eosB = B,
               .eosC = 0.5 * (jt.jtOmegaC - s) * B,
               .eosD = 0.5 * (jt.jtOmegaC + s) * B};
    if (f.models().EOSModel == 8) {
        const double factor = 1 - jt.jtK * (1 - Tr) * (1 - Tr);
        e.eosB *= factor;
        e.eosC *= factor;
        e.eosD *= factor;
    }
    return e;
}

}  // namespace

EOSParameters eos_constants(std::int16_t code, bool onlyV, const SubstanceRecord& s,
                            JiTorvikParameters& jt) {
    EOSParameters e;
    const double Tc = s.Tcrit;
    const double pc = s.pcrit;
    double zcrit = 0;

    switch (constants_code(code)) {
        case 2:  // van der Waals
            e.eosA0 = faults::divide(27.0 / 64.0 * R * R * Tc * Tc, pc);
            e.eosB0 = R * Tc / pc / 8;
            zcrit = 3.0 / 8.0;
            break;
        case 3:  // Berthelot
            e.eosA0 = faults::divide(27.0 / 64.0 * R * R * Tc * Tc * Tc, pc);
            e.eosB0 = R * Tc / pc / 8;
            e.eosNA = -1;
            zcrit = 3.0 / 8.0;
            break;
        case 4:    // Redlich, Kwong, Chem. Rev. 44 (1949) 233
        case 5: {  // Soave, Chem. Eng. Sci. 27 (1972) 1197
            const double root = std::cbrt(2.0) - 1;
            const double K = 1 / (9 * root);
            const double W = root / 3;
            const bool soave = constants_code(code) == 5;
            e.eosA0 = faults::divide(K * R * R * Tc * Tc * (soave ? 1.0 : std::sqrt(Tc)), pc);
            e.eosB0 = W * R * Tc / pc;
            e.eosD0 = e.eosB0;
            if (soave) {
                e.eosAlphaForm = 2;
                e.eosNA = 0.48 + 1.574 * s.omega - 0.176 * s.omega * s.omega;
            } else {
                e.eosNA = -0.5;
            }
            zcrit = 1.0 / 3.0;
            break;
        }
        case 6: {  // Peng, Robinson, Ind. Eng. Chem. Fundam. 15 (1976) 59
            const double X = std::cbrt(std::pow(2.0, 4.5) + 13);
            const double OB = -1.0 / 32.0 - 21.0 / (32.0 * X) + 3.0 * X / 32.0;
            const double OA = 10.0 / 3.0 * OB * OB + 4.0 / 3.0 * OB + 1.0 / 3.0;
            e.eosA0 = faults::divide(OA * R * R * Tc * Tc, pc);
            e.eosB0 = OB * R * Tc / pc;
            e.eosC0 = (1 - std::sqrt(2.0)) * e.eosB0;
            e.eosD0 = (1 + std::sqrt(2.0)) * e.eosB0;
            e.eosAlphaForm = 2;
            e.eosNA = 0.37464 + 1.54226 * s.omega - 0.26992 * s.omega * s.omega;
            zcrit = 0.3074;
            break;
        }
        case 7:  // Ji, Torvik; the parameters are fitted to the substance
        case 8:
            ji_torvik_coefficients(s, jt);
            zcrit = jt.jtZc;
            break;
        default:
            break;
    }

    if (zcrit > 0 && !onlyV) e.vcritCalc = faults::divide(zcrit * R * Tc, pc);
    if (e.vcritCalc > constants::kPresent) e.rhocritCalc = static_cast<double>(s.M) / e.vcritCalc;
    return e;
}

EOSState power_state(const EOSParameters& e, double Tcrit, double T) {
    EOSState s{.eosA = 0,
               .eosB = e.eosB0 * power_of_T(T, e.eosNB),
               .eosC = e.eosC0 * power_of_T(T, e.eosNC),
               .eosD = e.eosD0 * power_of_T(T, e.eosND)};
    if (e.eosAlphaForm == 2) {
        const double root = 1 + e.eosNA * (1 - std::sqrt(T / Tcrit));
        s.eosA = e.eosA0 * root * root;
    } else {
        s.eosA = e.eosA0 * power_of_T(T, e.eosNA);
    }
    return s;
}

EOSState eos_at(const Fluid& f, double T, const EOSState& previous) {
    if (T < constants::kPresent) return previous;
    if (f.models().EOSModel == 7 || f.models().EOSModel == 8) return ji_torvik_state(f, T);

    return power_state(f.eos(), f.substance().Tcrit, T);
}

EOSSlopes power_slopes(const EOSParameters& e, double Tcrit, const EOSState& s, double T) {
    EOSSlopes d;
    if (e.eosAlphaForm == 2) {
        // a = a0 Q^2 with Q = 1 + m (1 - sqrt(T/Tcrit)).
        const double Q = 1 + e.eosNA * (1 - std::sqrt(T / Tcrit));
        const double Q1 = -0.5 * e.eosNA / std::sqrt(Tcrit * T);
        const double Q2 = -0.5 * Q1 / T;
        d.a1 = 2 * e.eosA0 * Q * Q1;
        d.a2 = 2 * e.eosA0 * (Q1 * Q1 + Q * Q2);
    } else {
        d.a1 = e.eosNA * s.eosA / T;
        d.a2 = (e.eosNA - 1) * d.a1 / T;
    }
    d.b1 = e.eosNB * s.eosB / T;
    d.b2 = (e.eosNB - 1) * d.b1 / T;
    d.c1 = e.eosNC * s.eosC / T;
    d.c2 = (e.eosNC - 1) * d.c1 / T;
    d.d1 = e.eosND * s.eosD / T;
    d.d2 = (e.eosND - 1) * d.d1 / T;
    return d;
}

Status calc_eos_parameters(std::int16_t code) {
    EOSParameters& e = legacy::the_eosParameters;
    if (code == 1) {
        // The manual coefficients stay; only what belongs to a built-in model goes.
        e.eosAlphaForm = 1;
        e.vcritCalc = e.rhocritCalc = 0;
        return kSuccess;
    }
    e = {};
    if (code == 7 || code == 8) {
        if (obtain_ji_torvik_parameters(code) > 0) {
            dialogs::tell("Error during EOS-parameter calculation", "Execution not possible",
                          dialogs::Icon::Stop);
            return 1;
        }
    }
    try {
        e = eos_constants(code, legacy::the_models.EOSOnlyV, legacy::the_substance,
                          legacy::the_jiTorvik);
    } catch (const faults::Fault&) {
        e = {};
        return 1;
    }
    return kSuccess;
}

void eval_eos_at_t(double T) {
    legacy::the_eosState = eos_at(current_fluid(), T, legacy::the_eosState);
}

}  // namespace quor::models
