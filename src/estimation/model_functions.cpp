#include "estimation/model_functions.h"

#include <cmath>

#include "common/constants.h"

namespace quor::estimation {

namespace {

using constants::kLn10;
using constants::kZeroCelsius;

constexpr double kSmallestPressure = 1e-120;  // kPa
constexpr double kSmallestSlope = 1e-50;
constexpr double kPressureTolerance = 1e-7;  // relative
constexpr int kPressureSteps = 900;
constexpr double kLargestWagner = 50;       // |X sum| of the Wagner equation
constexpr double kSmallestProduct = 1e-35;  // |B C D E| of the sinh/cosh function
constexpr double kPresent = constants::kPresent;

bool finite(double y) {
    return std::isfinite(y);
}

double cubic_value(double T, const Parameters& par) {
    return par[0] + T * (par[1] + T * (par[2] + T * par[3]));
}

}  // namespace

double sinh(double x) {
    return (std::exp(x) - std::exp(-x)) * 0.5;
}
double cosh(double x) {
    return (std::exp(x) + std::exp(-x)) * 0.5;
}

double thodos_d(double B, const ModelContext& context) {
    // D = 1.80 B/Tcr + 2.67 with B of the decadic form.
    const double decadic_B = context.L == 1.0 ? B / kLn10 : B;
    return 1.8 * decadic_B / context.Tcr + 2.67;
}

PressureResult frost_pressure(double T, const Parameters& par, const ModelContext& context,
                              bool thodos) {
    constexpr PressureResult failure{0, true};
    const auto [A, B, C, givenD, E, unused6, unused7] = par;
    if (!(T > 0) || C - kZeroCelsius + T == 0) return failure;
    if (thodos && context.Tcr == 0) return failure;
    const double L = context.L;
    const double D = thodos ? thodos_d(B, context) : givenD;
    const double explicit_part = B / (C - kZeroCelsius + T) + A + D * std::log(T) / L;

    double p = std::exp(L * explicit_part);
    if (!finite(p) || std::fabs(p) < kSmallestPressure) return failure;
    for (int i = 0; i < kPressureSteps; ++i) {
        const double f = explicit_part + E * p / (T * T) - std::log(p) / L;
        const double slope = E / (T * T) - (1 / p) / L;
        if (std::fabs(slope) < kSmallestSlope) return failure;
        const double dp = -f / slope;
        p += dp;
        if (!finite(p) || p < kSmallestPressure) return failure;
        if (std::fabs(dp / p) < kPressureTolerance) break;
    }
    return {p, false};
}

PressureResult wagner_pressure(double T, const Parameters& par, double Tcr, double pcr) {
    constexpr PressureResult failure{0, true};
    if (T > Tcr || T < kPresent) return failure;
    const double X = 1 - T / Tcr;
    if (X < kPresent) return failure;
    const auto [A, B, C, D, unused5, unused6, unused7] = par;
    const double S = A * X + B * std::pow(X, 1.5) + C * std::pow(X, 3) + D * std::pow(X, 6);
    if (!(std::fabs(S) <= kLargestWagner)) return failure;
    const double p = pcr * std::exp(S * Tcr / T);
    return {p, !finite(p)};
}

CpSinhResult cp_sinh_cosh(double T, const Parameters& par) {
    constexpr CpSinhResult failure{0, true};
    const auto [A, B, C, D, E, unused6, unused7] = par;
    if (T == 0 || !(std::fabs(B * C * D * E) >= kSmallestProduct)) return failure;
    const double u = C / T;
    const double v = E / T;
    const double sinh_u = sinh(u);
    const double cosh_v = cosh(v);
    if (sinh_u == 0 || !finite(sinh_u) || !finite(cosh_v)) return failure;
    const double cp = A + B * std::pow(u / sinh_u, 2) + D * std::pow(v / cosh_v, 2);
    return {cp, !finite(cp)};
}

void polynomial_basis(double x, Parameters& basis) {
    basis = {};
    double power = 1;
    for (std::size_t i = 0; i < 6; ++i, power *= x) basis[i] = power;
}

void combi_basis(double x, Parameters& basis) {
    basis = {1, x, x * x, x * x * x, 1 / x, 1 / (x * x), std::log(x)};
}

bool polynomial(double x, const Parameters& par, const ModelContext&, double& y) {
    y = 0;
    for (std::size_t i = 6; i-- > 0;) y = y * x + par[i];
    return finite(y);
}

bool combi_expression(double x, const Parameters& par, const ModelContext&, double& y) {
    const auto [A, B, C, D, E, F, G] = par;
    if (x == 0 && (E != 0 || F != 0)) return false;
    if (!(x > 0) && G != 0) return false;
    y = A + x * (B + x * (C + x * D));
    if (E != 0) y += E / x;
    if (F != 0) y += F / (x * x);
    if (G != 0) y += G * std::log(x);
    return finite(y);
}

bool august(double T, const Parameters& par, const ModelContext& c, double& p) {
    if (!(T > 0)) return false;
    const auto [A, B, D, unused4, unused5, unused6, unused7] = par;
    p = std::exp(c.L * A - c.L * B / T + D * std::log(T));
    return finite(p);
}

bool antoine(double T, const Parameters& par, const ModelContext& c, double& p) {
    const auto [A, B, C, unused4, unused5, unused6, unused7] = par;
    const double t = T + C - kZeroCelsius;
    if (t == 0) return false;
    p = std::exp(c.L * A - c.L * B / t);
    return finite(p);
}

bool frost_kalkwarf(double T, const Parameters& par, const ModelContext& c, double& p) {
    const PressureResult r = frost_pressure(T, par, c, false);
    p = r.p;
    return !r.failed;
}

bool frost_kalkwarf_thodos(double T, const Parameters& par, const ModelContext& c, double& p) {
    const PressureResult r = frost_pressure(T, par, c, true);
    p = r.p;
    return !r.failed;
}

bool riedel_plank_miller(double T, const Parameters& par, const ModelContext& c, double& p) {
    if (!(T > 0)) return false;
    const auto [A, B, D, H, I, unused6, unused7] = par;
    p = std::exp(c.L * A + c.L * B / T + D * std::log(T) + c.L * H * std::pow(T, I));
    return finite(p);
}

bool wagner(double T, const Parameters& par, const ModelContext& c, double& p) {
    const PressureResult r = wagner_pressure(T, par, c.Tcr, c.pcr);
    p = r.p;
    return !r.failed;
}

bool rackett(double T, const Parameters& par, const ModelContext& c, double& rho) {
    const auto [A, B, C, unused4, unused5, unused6, unused7] = par;
    const double divisor = std::pow(B, 1 + std::pow(1 - T / c.Tcr, C));
    if (divisor == 0 || !finite(divisor)) return false;
    rho = A / divisor;
    return finite(rho);
}

bool leuna(double T, const Parameters& par, const ModelContext& c, double& rho) {
    rho = cubic_value(T, par) + par[4] * std::pow(1 - T / c.Tcr, 1.0 / 3.0);
    return finite(rho);
}

bool cubic(double T, const Parameters& par, const ModelContext&, double& y) {
    y = cubic_value(T, par);
    return finite(y);
}

bool majer(double T, const Parameters& par, const ModelContext& c, double& h) {
    if (!(c.Tcr > 0)) return false;
    const auto [A, alpha, beta, unused4, unused5, unused6, unused7] = par;
    const double Tr = T / c.Tcr;
    h = A * std::pow(1 - Tr, beta) * std::exp(-alpha * Tr);
    return finite(h);
}

bool dippr_vaporisation(double T, const Parameters& par, const ModelContext& c, double& h) {
    const auto [A, B, C, D, E, unused6, unused7] = par;
    const double Tr = T / c.Tcr;
    h = A * std::pow(1 - Tr, B + Tr * (C + Tr * (D + Tr * E)));
    return finite(h);
}

bool shomate(double T, const Parameters& par, const ModelContext&, double& cp) {
    if (!(T > 0)) return false;
    cp = cubic_value(T, par) + par[4] / (T * T);
    return finite(cp);
}

bool dippr_heat_capacity(double T, const Parameters& par, const ModelContext&, double& cp) {
    const CpSinhResult r = cp_sinh_cosh(T, par);
    cp = r.cp;
    return !r.failed;
}

}  // namespace quor::estimation
