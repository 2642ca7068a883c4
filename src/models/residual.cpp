#include <cmath>
#include <limits>

#include "common/constants.h"
#include "models/caloric.h"
#include "models/virial.h"

namespace quor::models {

namespace {

using constants::R;

/// Derivatives below this are not divided by.
constexpr double kDivisible = 1e-11;

/// p of the equation and its partial derivatives, at T and v.
struct PressureDerivatives {
    double pv = 0, p_T = 0, pvv = 0, p_vT = 0, p_TT = 0;
    double scale = 0;  ///< size of the larger of the two terms of pv, which tells its rounding

    /// At the critical point pv is the rounding of a difference of equal terms.
    bool pv_vanishes() const {
        return std::fabs(pv) <= 16.0 * std::numeric_limits<double>::epsilon() * scale;
    }
};

/// What the residual columns are made of. The dimensionless forms keep their digits at low p.
struct ResidualParts {
    double ln_phi = 0, d_ln_phi = 0;
    double cv = 0;           ///< (cv - cv_idG)/R
    double cp_minus_cv = 0;  ///< (cp - cv)/R - 1, that is the departure from the ideal gas
    double heating = 0;      ///< T (dv/dT)p - v, m^3/kmol
};

/// J = ln((v + d)/(v + c))/(d - c) and its derivatives with respect to c and d: the integral of
/// dv/((v + c)(v + d)) from v to infinity, the same for c = d.
struct Attraction {
    double J = 0, c = 0, d = 0, cc = 0, cd = 0, dd = 0;
};

Attraction attraction(double C, double D, double spread) {
    if (spread == 0.0) {
        const double C2 = C * C;
        return {C, -C2 / 2, -C2 / 2, 2.0 / 3.0 * C * C2, C * C2 / 3.0, 2.0 / 3.0 * C * C2};
    }
    Attraction r;
    r.J = std::log1p(spread * C) / spread;
    r.c = (r.J - C) / spread;
    r.d = (D - r.J) / spread;
    r.cc = (2.0 * r.c + C * C) / spread;
    r.cd = (r.d - r.c) / spread;
    r.dd = (-2.0 * r.d - D * D) / spread;
    return r;
}

/// Derivatives and residual parts of p = R T/(v - b) - a/((v + c)(v + d)).
void cubic(const EosState& s, const EosSlopes& t, double T, double p, double v,
           PressureDerivatives& q, ResidualParts& r) {
    const double e = 1.0 / (v - s.b);
    const double C = 1.0 / (v + s.c);
    const double D = 1.0 / (v + s.d);
    const double a = s.a;

    // g = 1/((v + c)(v + d)) and its derivatives; S is dln(g)/dT.
    const double g = C * D;
    const double S = -(C * t.c1 + D * t.d1);
    const double squares = C * C * t.c1 * t.c1 + D * D * t.d1 * t.d1;
    const double gv = -g * (C + D);
    const double gvv = 2.0 * g * (C * C + C * D + D * D);
    const double g_T = g * S;
    const double g_TT = g * (S * S + squares - (C * t.c2 + D * t.d2));
    const double g_vT = -g * (S * (C + D) - C * C * t.c1 - D * D * t.d1);

    const double RT = R * T;
    q.pv = -RT * e * e - a * gv;
    q.pvv = 2.0 * RT * e * e * e - a * gvv;
    q.p_T = R * e + RT * e * e * t.b1 - t.a1 * g - a * g_T;
    q.p_vT = -R * e * e - 2.0 * RT * e * e * e * t.b1 - t.a1 * gv - a * g_vT;
    q.p_TT = 2.0 * R * e * e * t.b1 + RT * e * e * (2.0 * e * t.b1 * t.b1 + t.b2) - t.a2 * g -
             2.0 * t.a1 * g_T - a * g_TT;
    q.scale = RT * e * e;

    // Helmholtz function: (A - A_idG)/(R T) at T, v = -ln(1 - b/v) - k J, k = a/(R T).
    const Attraction J = attraction(C, D, s.d - s.c);
    const double k = a / RT;
    const double k1 = t.a1 / RT - k / T;
    const double k2 = t.a2 / RT - 2.0 * k1 / T;
    const double J_T = J.c * t.c1 + J.d * t.d1;
    const double J_TT = J.c * t.c2 + J.d * t.d2 + J.cc * t.c1 * t.c1 + 2.0 * J.cd * t.c1 * t.d1 +
                        J.dd * t.d1 * t.d1;
    const double helmholtz_T = e * t.b1 - k1 * J.J - k * J_T;
    const double helmholtz_TT =
        e * t.b2 + e * e * t.b1 * t.b1 - k2 * J.J - 2.0 * k1 * J_T - k * J_TT;

    const double be = s.b * e;
    const double z_minus_1 = be - k * v * g;
    r.ln_phi = std::log(RT * e / p) + be - k * (J.J + v * g);
    r.d_ln_phi = helmholtz_T - z_minus_1 / T;
    r.cv = -T * (2.0 * helmholtz_T + T * helmholtz_TT);

    // (cp - cv)/R = (v pT/R)^2/(-v^2 pv/(R T)); both brackets are 1 in the ideal gas.
    const double p_T1 = be + T * v * e * e * t.b1 - v / R * (t.a1 * g + a * g_T);
    const double pv1 = be * (2.0 + be) + v * v * a * gv / RT;
    r.cp_minus_cv = (p_T1 * (2.0 + p_T1) - pv1) / (1.0 + pv1);
    r.heating = v * (p_T1 - pv1) / (1.0 + pv1);
}

/// Derivatives and residual parts of p = R T/(v - B(T)), with ln(phi*) = B p/(R T).
void v_only(const Virial& b, double T, double p, double v, PressureDerivatives& q, ResidualParts& r,
            double& d2_ln_phi) {
    const double e = 1.0 / (v - b.B);
    const double RT = R * T;
    q.pv = -RT * e * e;
    q.pvv = 2.0 * RT * e * e * e;
    q.p_T = R * e + RT * e * e * b.dB;
    q.p_vT = -R * e * e - 2.0 * RT * e * e * e * b.dB;
    q.p_TT = 2.0 * R * e * e * b.dB + RT * e * e * (2.0 * e * b.dB * b.dB + b.d2B);
    q.scale = RT * e * e;

    const double slope = b.dB - b.B / T;
    r.ln_phi = b.B * p / RT;
    r.d_ln_phi = p / RT * slope;
    d2_ln_phi = p / RT / T * (T * b.d2B - 2.0 * slope);

    // (cp - cv)/R = (1 + T B'/(v - B))^2
    const double x = T * e * b.dB;
    r.cp_minus_cv = x * (2.0 + x);
    r.heating = T * b.dB - b.B;
    r.cv = -T * (2.0 * r.d_ln_phi + T * d2_ln_phi) - r.cp_minus_cv;
}

void fill_derivatives(const PressureDerivatives& q, PhaseTable& t) {
    const auto quotient = [](double numerator, double denominator) {
        return std::fabs(denominator) < kDivisible ? 0.0 : numerator / denominator;
    };
    const double pv = q.pv_vanishes() ? 0.0 : q.pv;
    const double v_T = quotient(-q.p_T, pv);
    const double Tv = quotient(-q.pv, q.p_T);
    t.first = {0.0, q.pv, q.p_T, quotient(1.0, pv), v_T, quotient(1.0, v_T), quotient(1.0, q.p_T)};
    t.second = {0.0, q.pvv, quotient(-(q.p_TT + v_T * (2.0 * q.p_vT + v_T * q.pvv)), pv),
                quotient(-(q.pvv + Tv * (2.0 * q.p_vT + Tv * q.p_TT)), q.p_T)};
}

/// Columns 7 to 10. They stay finite where (dp/dV)T vanishes: cv from the Helmholtz function, the
/// others with cp - cv = -T pT^2/pv multiplied out.
void fill_heat_capacities(const PressureDerivatives& q, const ResidualParts& r, double cp_ideal,
                          double M, double T, double v, PhaseTable& t) {
    const double cv = cp_ideal - R + R * r.cv;
    const double difference = R * (1.0 + r.cp_minus_cv);  // cp - cv
    const bool pole = q.pv_vanishes();
    const double cp = pole ? 0.0 : cv + difference;

    t.residual[Cv] = cv;
    t.residual[Cp] = cp;
    if (pole) {
        if (q.p_T != 0.0) t.residual[JouleThomson] = 1.0 / q.p_T;
    } else if (std::fabs(cp) >= kDivisible) {
        t.residual[JouleThomson] = r.heating / cp;
    }
    if (std::fabs(cv) < kDivisible || !(M > 0.0)) return;
    // -(cp/cv) (dp/dV)T = T pT^2/cv - pv, in kPa kmol/m^3
    const double slope = T * q.p_T * q.p_T / cv - q.pv;
    if (slope > 0.0) t.residual[SpeedOfSound] = v / M * std::sqrt(slope * 1000.0 * M);
}

template <class Values>
bool finite(const Values& values) {
    for (const double x : values)
        if (!std::isfinite(x)) return false;
    return true;
}

}  // namespace

std::optional<PhaseTable> residual_functions(const Fluid& fluid, const EosState& state, double T,
                                             double p, double v) {
    if (!(T > 0.0) || !(p > 0.0) || !(v > 0.0)) return std::nullopt;
    std::optional<PhaseTable> table = PhaseTable{};
    PhaseTable& t = *table;
    PressureDerivatives q;
    ResidualParts r;
    auto& f = t.residual;
    if (fluid.models().vapour_only) {
        const Virial b = virial(fluid, T);
        if (!(v > b.B)) return std::nullopt;
        v_only(b, T, p, v, q, r, f[D2LnPhi]);
        f[ResCp] = r.cv + r.cp_minus_cv;
    } else {
        if (!(v - state.b >= 1e-17)) return std::nullopt;
        cubic(state, eos_slopes(fluid, state, T), T, p, v, q, r);
        if (!q.pv_vanishes()) {
            f[ResCp] = r.cv + r.cp_minus_cv;
            f[D2LnPhi] = -(f[ResCp] / T + 2.0 * r.d_ln_phi) / T;
        }
    }
    f[LnPhi] = r.ln_phi;
    f[DLnPhi] = r.d_ln_phi;
    f[ResS] = -r.ln_phi - T * r.d_ln_phi;
    f[ResH] = -T * T * r.d_ln_phi;
    f[ResG] = T * r.ln_phi;
    fill_derivatives(q, t);

    const std::optional<double> ideal = ideal_gas_cp(fluid.substance(), fluid.models().cp_form, T);
    if (ideal > 0.0)
        fill_heat_capacities(q, r, *ideal, static_cast<double>(fluid.substance().M), T, v, t);

    if (!finite(t.first) || !finite(t.second) || !finite(t.residual)) table.reset();
    return table;
}

}  // namespace quor::models
