#include "estimation/linearised.h"

#include <cmath>

#include "common/constants.h"
#include "estimation/model_functions.h"

namespace quor::estimation {

namespace {

using constants::kZeroCelsius;

}  // namespace

bool linearised_polynomial(double x, double y, const Parameters&, const ModelContext&,
                           LinearisedPoint& row) {
    polynomial_basis(x, row.coefficient);
    row.target = y;
    return true;
}

bool linearised_combi(double x, double y, const Parameters&, const ModelContext&,
                      LinearisedPoint& row) {
    if (!(x > 0)) return false;
    combi_basis(x, row.coefficient);
    row.target = y;
    return true;
}

bool linearised_august(double T, double p, const Parameters&, const ModelContext& c,
                       LinearisedPoint& row) {
    if (!(T > 0) || !(p > 0)) return false;
    row.coefficient = {c.L, -c.L / T, std::log(T)};
    row.target = std::log(p);
    return true;
}

bool linearised_antoine(double T, double p, const Parameters& par, const ModelContext& c,
                        LinearisedPoint& row) {
    const double t = T + par[2] - kZeroCelsius;
    if (!(t > 0) || !(p > 0)) return false;
    row.coefficient = {c.L, -c.L / t};
    row.target = std::log(p);
    return true;
}

bool linearised_frost(double T, double p, const Parameters& par, const ModelContext& c,
                      LinearisedPoint& row) {
    const double t = T + par[2] - kZeroCelsius;
    if (!(T > 0) || !(t > 0) || !(p > 0)) return false;
    row.coefficient = {c.L, c.L / t, 0, std::log(T), c.L * p / (T * T)};
    row.target = std::log(p);
    return true;
}

bool linearised_frost_thodos(double T, double p, const Parameters& par, const ModelContext& c,
                             LinearisedPoint& row) {
    if (!(c.Tcr > 0) || !linearised_frost(T, p, par, c, row)) return false;
    // D = D(0) + slope B: the constant part goes to the target, the other to B.
    const double D0 = thodos_d(0, c);
    const double slope = thodos_d(1, c) - D0;
    row.coefficient[1] += slope * row.coefficient[3];
    row.target -= D0 * row.coefficient[3];
    row.coefficient[3] = 0;
    return true;
}

bool linearised_riedel(double T, double p, const Parameters& par, const ModelContext& c,
                       LinearisedPoint& row) {
    if (!(T > 0) || !(p > 0)) return false;
    row.coefficient = {c.L, c.L / T, std::log(T), c.L * std::pow(T, par[4])};
    row.target = std::log(p);
    return true;
}

bool linearised_wagner(double T, double p, const Parameters&, const ModelContext& c,
                       LinearisedPoint& row) {
    const double X = 1 - T / c.Tcr;
    if (!(T > 0) || X < constants::kPresent || !(p > 0) || !(c.pcr > 0)) return false;
    row.coefficient = {X, std::pow(X, 1.5), std::pow(X, 3), std::pow(X, 6)};
    row.target = T / c.Tcr * std::log(p / c.pcr);
    return true;
}

bool linearised_rackett(double T, double rho, const Parameters& par, const ModelContext& c,
                        LinearisedPoint& row) {
    const double X = 1 - T / c.Tcr;
    if (!(X > 0) || !(rho > 0)) return false;
    row.coefficient = {1, -(1 + std::pow(X, par[2]))};
    row.target = std::log(rho);
    return true;
}

bool linearised_leuna(double T, double rho, const Parameters&, const ModelContext& c,
                      LinearisedPoint& row) {
    if (T > c.Tcr) return false;
    row.coefficient = {1, T, T * T, T * T * T, std::cbrt(1 - T / c.Tcr)};
    row.target = rho;
    return true;
}

bool linearised_cubic(double T, double y, const Parameters&, const ModelContext&,
                      LinearisedPoint& row) {
    row.coefficient = {1, T, T * T, T * T * T};
    row.target = y;
    return true;
}

bool linearised_majer(double T, double h, const Parameters&, const ModelContext& c,
                      LinearisedPoint& row) {
    const double Tr = T / c.Tcr;
    if (!(Tr < 1) || !(h > 0)) return false;
    row.coefficient = {1, -Tr, std::log(1 - Tr)};
    row.target = std::log(h);
    return true;
}

bool linearised_dippr_vaporisation(double T, double h, const Parameters&, const ModelContext& c,
                                   LinearisedPoint& row) {
    const double Tr = T / c.Tcr;
    if (!(Tr < 1) || !(h > 0)) return false;
    const double w = std::log(1 - Tr);
    row.coefficient = {1, w, w * Tr, w * Tr * Tr, w * Tr * Tr * Tr};
    row.target = std::log(h);
    return true;
}

bool linearised_shomate(double T, double cp, const Parameters&, const ModelContext&,
                        LinearisedPoint& row) {
    if (!(T > 0)) return false;
    row.coefficient = {1, T, T * T, T * T * T, 1 / (T * T)};
    row.target = cp;
    return true;
}

bool linearised_dippr_heat_capacity(double T, double cp, const Parameters& par, const ModelContext&,
                                    LinearisedPoint& row) {
    if (!(T > 0)) return false;
    const double u = par[2] / T;
    const double v = par[4] / T;
    row.coefficient = {1, std::pow(u / estimation::sinh(u), 2), 0,
                       std::pow(v / estimation::cosh(v), 2)};
    row.target = cp;
    return true;
}

}  // namespace quor::estimation
