#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "models/caloric.h"
#include "models/reference_state.h"

namespace quor::models {

namespace {

/// The database holds an unused coefficient as 1E-37.
constexpr double kUnused = 1e-30;

/// A polynomial set as numbers: C0 to C3 of T^0 to T^3 and a last term in T^4 or T^-2.
struct Polynomial {
    double c0, c1, c2, c3;
    double quartic = 0;         ///< factor of T^4
    double inverse_square = 0;  ///< factor of T^-2
};

Polynomial polynomial_of(const CpSet& set) {
    const auto c = [&](std::size_t i) { return static_cast<double>(set.c[i]); };
    if (std::fabs(c(0)) < 1e-8) return {c(1), c(2), c(3), 0.0, 0.0, c(4)};
    if (std::fabs(c(4)) < 1.0) return {c(0), c(1), c(2), c(3), c(4), 0.0};
    return {c(0), c(1), c(2), c(3), 0.0, c(4)};
}

bool has_coefficients(const CpSet& set) {
    return std::any_of(set.c.begin(), set.c.end(),
                       [](float c) { return std::fabs(static_cast<double>(c)) > kUnused; });
}

/// h and s of the ideal gas at T less those at T0, at one pressure.
struct Difference {
    double h = 0, s = 0;
};

/// The powers of T are taken as (T - T0) times a sum, so that h stays exact close to T0.
std::optional<Difference> polynomial_difference(const CpSet& set, double T, double T0) {
    if (!(T > 0.0) || !(T0 > 0.0)) return std::nullopt;
    const Polynomial c = polynomial_of(set);
    const double s1 = T + T0;
    const double s2 = T * s1 + T0 * T0;
    const double s3 = T * s2 + T0 * T0 * T0;
    const double s4 = T * s3 + T0 * T0 * T0 * T0;
    const double h = c.c0 + c.c1 / 2 * s1 + c.c2 / 3 * s2 + c.c3 / 4 * s3 + c.quartic / 5 * s4 +
                     c.inverse_square / (T * T0);
    const double s = c.c1 + c.c2 / 2 * s1 + c.c3 / 3 * s2 + c.quartic / 4 * s3 +
                     c.inverse_square / 2 * s1 / (T * T0 * T * T0);
    return Difference{h * (T - T0), s * (T - T0) + c.c0 * std::log(T / T0)};
}

/// Terms of the sinh/cosh form at one temperature.
struct SinhCosh {
    double sinh_x, cosh_x, cosh_y, tanh_y;
    double entropy;  ///< C1 (x coth x - ln sinh x) - C3 (y tanh y - ln cosh y)
};

/// Nothing where they overflow.
std::optional<SinhCosh> sinh_cosh_at(const CpSet& set, double T) {
    const auto c = [&](std::size_t i) { return static_cast<double>(set.c[i]); };
    const double x = c(2) / T;
    const double y = c(4) / T;
    SinhCosh t{std::sinh(x), std::cosh(x), std::cosh(y), std::tanh(y), 0.0};
    if (!(t.sinh_x > 0.0) || !std::isfinite(t.cosh_x) || !std::isfinite(t.cosh_y))
        return std::nullopt;
    t.entropy = c(1) * (x * t.cosh_x / t.sinh_x - std::log(t.sinh_x)) -
                c(3) * (y * t.tanh_y - std::log(t.cosh_y));
    return t;
}

std::optional<Difference> sinh_cosh_difference(const CpSet& set, double T, double T0) {
    constexpr double kLowestT = 0.1;
    if (!(T > kLowestT) || !(T0 > kLowestT)) return std::nullopt;
    const std::optional<SinhCosh> at = sinh_cosh_at(set, T);
    const std::optional<SinhCosh> zero = sinh_cosh_at(set, T0);
    if (!at || !zero) return std::nullopt;

    const auto c = [&](std::size_t i) { return static_cast<double>(set.c[i]); };
    const double inverse = (T0 - T) / (T * T0);  // 1/T - 1/T0
    const double coth = -std::sinh(c(2) * inverse) / (at->sinh_x * zero->sinh_x);
    const double tanh = std::sinh(c(4) * inverse) / (at->cosh_y * zero->cosh_y);
    return Difference{c(0) * (T - T0) + c(1) * c(2) * coth - c(3) * c(4) * tanh,
                      c(0) * std::log(T / T0) + at->entropy - zero->entropy};
}

std::optional<double> checked(double cp) {
    return std::isfinite(cp) ? std::optional(cp) : std::nullopt;
}

double square(double x) {
    return x * x;
}

}  // namespace

std::optional<double> polynomial_cp(const CpSet& set, double T) {
    if (!has_coefficients(set)) return std::nullopt;
    const Polynomial c = polynomial_of(set);
    return checked(c.c0 + T * (c.c1 + T * (c.c2 + T * (c.c3 + T * c.quartic))) +
                   (c.inverse_square == 0.0 ? 0.0 : c.inverse_square / (T * T)));
}

std::optional<double> sinh_cosh_cp(const CpSet& set, double T) {
    if (!has_coefficients(set)) return std::nullopt;
    const auto c = [&](std::size_t i) { return static_cast<double>(set.c[i]); };
    const double x = c(2) / T;
    const double y = c(4) / T;
    const double sinh_x = std::sinh(x);
    const double cosh_y = std::cosh(y);
    // By their definitions through exp both overflow here, and the quotients would silently be 0.
    if (!std::isfinite(sinh_x) || !std::isfinite(cosh_y)) return std::nullopt;
    return checked(c(0) + c(1) * square(x / sinh_x) + c(3) * square(y / cosh_y));
}

std::optional<double> ideal_gas_cp(const SubstanceRecord& s, CpForm form, double T) {
    if (form == CpForm::polynomial) return polynomial_cp(s.cp_polynomial, T);
    if (form == CpForm::sinhCosh) return sinh_cosh_cp(s.cp_sinh_cosh, T);
    return std::nullopt;
}

std::optional<IdealGasState> ideal_gas_functions(const SubstanceRecord& s, CpForm form,
                                                 const ReferenceState& reference, double T,
                                                 double p) {
    const std::optional<double> cp = ideal_gas_cp(s, form, T);
    if (!cp) return std::nullopt;

    const auto T0 = static_cast<double>(reference.T0);
    const std::optional<Difference> d = form == CpForm::polynomial
                                            ? polynomial_difference(s.cp_polynomial, T, T0)
                                            : sinh_cosh_difference(s.cp_sinh_cosh, T, T0);
    if (!d) return std::nullopt;

    const ReferenceBase base = reference_base(s, reference, p);
    const IdealGasState state{*cp, d->h + base.h + reference.href, d->s + base.s + reference.sref};
    return std::isfinite(state.h) && std::isfinite(state.s) ? std::optional(state) : std::nullopt;
}

}  // namespace quor::models
