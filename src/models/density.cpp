#include "models/density.h"

#include <cmath>
#include <cstdlib>
#include <string>

#include "common/constants.h"
#include "common/dialogs.h"
#include "models/validity.h"

namespace quor::models {

using constants::kPresent;

namespace {

bool physical(double rho) {
    return std::isfinite(rho) && rho >= 0.0;
}

double rational_polynomial(const std::array<double, 7>& a, double Tc, double T) {
    double rho = a[0] + T * (a[1] + T * (a[2] + T * a[3]));
    if (a[4] != 0.0) rho += a[4] / (a[5] + T);
    if (std::fabs(a[6]) > kPresent && T < Tc) rho += a[6] * std::cbrt(1.0 - T / Tc);
    return rho;
}

}  // namespace

Result<Density, NoDensity> density_liquid(const SubstanceRecord& s, float temperature) {
    const auto T = static_cast<double>(temperature);
    constexpr double kLowest = 1e-10;
    std::array<double, 7> a{};
    for (std::size_t i = 0; i < a.size(); ++i) a[i] = static_cast<double>(s.rhoL_coefficients[i]);
    const auto Tc = static_cast<double>(s.rhoL_Tc);

    Density r;
    if (s.rhoL_T_low == 0 && a[0] > kPresent && a[2] > kPresent) {
        r.rho = a[0] + a[1] * T;
        if (!physical(r.rho)) return NoDensity::impossible;
        return r;
    }
    if (std::fabs(a[0]) > kPresent) {
        r.rho = rational_polynomial(a, Tc, T);
        if (r.rho < kLowest) return NoDensity::impossible;
    } else {
        if (T > Tc) return NoDensity::notDescribed;
        r.rho = a[1] / std::pow(a[2], 1.0 + std::pow(1.0 - T / Tc, a[3]));
    }
    if (!physical(r.rho)) return NoDensity::impossible;
    const Bounds range{s.rhoL_T_low, s.rhoL_T_high};
    if (both_given(range)) r.deviation = deviation_of(T, range);
    return r;
}

Result<Density, NoDensity> density_solid(const SubstanceRecord& s, float temperature) {
    const auto T = static_cast<double>(temperature);
    std::array<double, 4> a{};
    for (std::size_t i = 0; i < a.size(); ++i) a[i] = static_cast<double>(s.rhoS_coefficients[i]);
    const Bounds range{s.rhoS_T_low, s.rhoS_T_high};

    Density r;
    if (both_given(range)) {
        r.rho = a[0] + T * (a[1] + T * (a[2] + T * a[3]));
        r.deviation = deviation_of(T, range);
    } else if (range.T_low == 0 && a[0] > kPresent) {
        r.rho = a[0] + a[1] * T;
    } else {
        return NoDensity::notDescribed;
    }
    if (!physical(r.rho)) return NoDensity::impossible;
    return r;
}

std::optional<double> density_l_benson(double T, double Tcrit, double rhocrit, double rhoV,
                                       const BensonPoint& reference) {
    const auto Tref = static_cast<double>(reference.T);
    if (Tref == Tcrit || !(rhocrit > 0.0)) return std::nullopt;
    const double sum = static_cast<double>(reference.rhoL) + static_cast<double>(reference.rhoV);
    const double rho =
        sum * (T - Tcrit) / (Tref - Tcrit) + 2.0 * rhocrit * (Tref - T) / (Tref - Tcrit) - rhoV;
    return physical(rho) ? std::optional(rho) : std::nullopt;
}

bool is_known(const BensonPoint& r) {
    return static_cast<double>(r.T) * static_cast<double>(r.p) * static_cast<double>(r.rhoL) *
               static_cast<double>(r.rhoV) >
           kPresent;
}

std::optional<double> benson_approximation(double p, double pcrit, double rhocrit) {
    if (p <= kPresent || !(pcrit > 0.0)) return std::nullopt;
    return rhocrit * (1.981 + 0.18327 * std::log(pcrit / p));
}

}  // namespace quor::models
