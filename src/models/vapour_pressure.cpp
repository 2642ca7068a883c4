#include "models/vapour_pressure.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "common/single.h"
#include "models/validity.h"

namespace quor::models {

using constants::kLn10;
using constants::kNormalPressure;
using constants::kPresent;

namespace {

constexpr int kCap = 1000;  // of Newton searches that have no limit of their own

double log10_of(double x) {
    return std::log(x) / kLn10;
}
double exp10_of(double x) {
    return std::exp(kLn10 * x);
}

const AntoineSet* antoine_set(const SubstanceRecord& s, VapourPressureEquation code) {
    if (code == VapourPressureEquation::antoineLow) return &s.antoine_low;
    if (code == VapourPressureEquation::antoineHigh) return &s.antoine_high;
    if (code == VapourPressureEquation::thompson) return &s.thompson;
    return nullptr;
}

/// Parameters of log10 p = A + B/(T + C) + D log10 T + E p/T^F + G T + H T^I.
struct Frost {
    double A, B, C, D, E, F, G, H, I;
    Bounds range;

    double explicit_part(double T) const {
        return A + B / (T + C) + D * log10_of(T) + G * T + (H != 0 ? H * std::pow(T, I) : 0.0);
    }
    double implicit_factor(double T) const { return E != 0 ? E / std::pow(T, F) : 0.0; }
};

bool frost_set(const SubstanceRecord& s, VapourPressureEquation code, Frost& f) {
    const FrostSet* set =
        code == VapourPressureEquation::frostKalkwarf       ? &s.frost
        : code == VapourPressureEquation::frostVanDerWaals  ? &s.frost_van_der_waals
        : code == VapourPressureEquation::frostRedlichKwong ? &s.frost_redlich_kwong
                                                            : nullptr;
    if (set == nullptr) return false;
    const auto a = [&](std::size_t i) { return static_cast<double>(set->a[i]); };
    f = {a(0), a(1), a(2), a(3), a(4), a(5), a(6), a(7), a(8), {set->T_low, set->T_high}};
    if (code == VapourPressureEquation::frostKalkwarf) {
        // The stored third value is C + 273.15, the sixth the exponent less 2.
        f.C -= constants::kZeroCelsius;
        f.F += 2;
    }
    return f.A != 0 || f.B != 0;
}

struct WagnerSum {
    double X = 0, slope = 0;  // the sum and its derivative with respect to t
};

WagnerSum wagner_sum(const WagnerSet& w, double t) {
    const auto a = [&](std::size_t i) { return static_cast<double>(w.a[i]); };
    WagnerSum r{a(0) * t + a(1) * t * std::sqrt(t), a(0) + 1.5 * a(1) * std::sqrt(t)};
    for (const std::size_t i : {std::size_t{2}, std::size_t{4}, std::size_t{6}}) {
        if (a(i) == 0) continue;
        const double power = std::pow(t, a(i + 1));
        r.X += a(i) * power;
        r.slope += a(i + 1) * a(i) * power / t;
    }
    return r;
}

bool has_wagner(const WagnerSet& w) {
    return w.a[0] != 0 && w.a[8] > 0 && w.a[9] > 0;
}

/// B and A of the August line through the boiling point and the critical point.
struct August {
    double A = 0, B = 0;
};

August august_line(const SubstanceRecord& s) {
    const double Tb = static_cast<double>(s.Tboil);
    const double B = s.Tcrit * Tb * std::log(s.pcrit / kNormalPressure) / (Tb - s.Tcrit);
    return {std::log(s.pcrit) - B / s.Tcrit, B};
}

/// Nothing where the implicit equation has no solution.
std::optional<double> frost_pressure(const Frost& f, double T) {
    const double base = f.explicit_part(T);
    double p = exp10_of(base);
    if (std::fabs(f.E) < 1e-35) return p;
    const double factor = f.implicit_factor(T);
    for (int i = 0; i < kCap; ++i) {
        if (!(p >= 1e-120)) break;
        const double value = base + factor * p - log10_of(p);
        const double slope = factor - 1 / (p * kLn10);
        if (std::fabs(slope) < 1e-50) break;
        const double dp = -value / slope;
        p += dp;
        if (std::fabs(dp / p) < 1e-4) return p;
    }
    return std::nullopt;
}

}  // namespace

std::optional<VapourPressure> vapour_pressure(const SubstanceRecord& s, double T,
                                              VapourPressureEquation code) {
    if (!(T >= 1e-6) || T > s.Tcrit) return std::nullopt;

    VapourPressure r;
    double& p = r.p;
    Frost frost{};
    if (const AntoineSet* a = antoine_set(s, code)) {
        if (a->A == 0 && a->B == 0) return std::nullopt;
        p = exp10_of(static_cast<double>(a->A) -
                     static_cast<double>(a->B) /
                         (T + static_cast<double>(a->C) - constants::kZeroCelsius));
        if (code != VapourPressureEquation::thompson)
            r.deviation = deviation_of(T, {a->T_low, a->T_high});
    } else if (code == VapourPressureEquation::august) {
        if (s.august.B == 0) return std::nullopt;
        p = std::exp(static_cast<double>(s.august.A) + static_cast<double>(s.august.B) / T);
        const double Tb = static_cast<double>(s.Tboil);
        if (T < Tb) r.deviation = whole_kelvins(T - Tb);
    } else if (code == VapourPressureEquation::wagner) {
        if (!has_wagner(s.wagner)) return std::nullopt;
        const double Tset = static_cast<double>(s.wagner.a[8]);
        const double t = 1 - T / Tset;
        if (t < 1e-6) return std::nullopt;
        const double X = wagner_sum(s.wagner, t).X;
        if (!(std::fabs(X) <= 50)) return std::nullopt;
        p = static_cast<double>(s.wagner.a[9]) * std::exp(Tset / T * X);
        const Bounds range{s.wagner.T_low, s.wagner.T_high};
        if (both_given(range)) r.deviation = deviation_of(T, range);
    } else if (frost_set(s, code, frost)) {
        p = frost_pressure(frost, T).value_or(0);
        if (both_given(frost.range)) r.deviation = deviation_of(T, frost.range);
    } else {
        return std::nullopt;
    }
    if (!(p >= 1e-35) || !std::isfinite(p)) return std::nullopt;
    return r;
}

namespace {

/// Start of the Newton searches on T: the August line, held below the top of the equation.
double start_temperature(const SubstanceRecord& s, double Ttop, double p) {
    double T = static_cast<double>(s.Tboil);
    if (T > 1e-4) {
        const August line = august_line(s);
        T = line.B / (std::log(p) - line.A);
    }
    if (!(T >= 1e-4) || T >= Ttop) T = 0.8 * s.Tcrit;
    return T;
}

/// Newton steps on T; `evaluate` gives f and f' at T and is false where the equation ends.
template <class Evaluate>
double newton_on_T(double T, Evaluate evaluate) {
    for (int i = 0; i < kCap; ++i) {
        double f = 0, slope = 0;
        if (!evaluate(T, f, slope) || std::fabs(slope) < 1e-35) return 0;
        const double dT = -f / slope;
        T += dT;
        if (!(T > 0) || !std::isfinite(T)) return 0;
        if (std::fabs(dT / T) < 1e-4) return T;
    }
    return 0;
}

double wagner_temperature(const SubstanceRecord& s, double p) {
    const WagnerSet& w = s.wagner;
    const double Tset = static_cast<double>(w.a[8]);
    const double pset = static_cast<double>(w.a[9]);
    return newton_on_T(start_temperature(s, Tset, p), [&](double T, double& f, double& slope) {
        const double t = 1 - T / Tset;
        if (t < 1e-6) return false;
        const WagnerSum sum = wagner_sum(w, t);
        f = std::log(p / pset) - Tset * sum.X / T;
        slope = Tset * sum.X / (T * T) + sum.slope / T;
        return true;
    });
}

double frost_temperature(const SubstanceRecord& s, const Frost& e, double p) {
    return newton_on_T(start_temperature(s, s.Tcrit, p), [&](double T, double& f, double& slope) {
        const double implicit = e.implicit_factor(T) * p;
        f = e.explicit_part(T) + implicit - log10_of(p);
        slope = -e.B / ((T + e.C) * (T + e.C)) + e.D / (T * kLn10) - e.F * implicit / T + e.G +
                (e.H != 0 ? e.I * e.H * std::pow(T, e.I - 1) : 0.0);
        return true;
    });
}

}  // namespace

std::optional<BoilingTemperature> boiling_temperature(const SubstanceRecord& s, double p,
                                                      VapourPressureEquation code) {
    if (!(p > 0) || p > s.pcrit) return std::nullopt;

    BoilingTemperature r;
    double& T = r.T;
    Bounds range;
    Frost frost{};
    if (const AntoineSet* a = antoine_set(s, code)) {
        if (a->A == 0 && a->B == 0) return std::nullopt;
        T = static_cast<double>(a->B) / (static_cast<double>(a->A) - log10_of(p)) -
            static_cast<double>(a->C) + constants::kZeroCelsius;
        range = {a->T_low, a->T_high};
    } else if (code == VapourPressureEquation::august) {
        const double Tb = static_cast<double>(s.Tboil);
        if (Tb < kPresent) return std::nullopt;
        const August line = august_line(s);
        T = line.B / (std::log(p) - line.A);
        if (T < Tb) r.deviation = whole_kelvins(T - Tb);
    } else if (code == VapourPressureEquation::wagner) {
        if (!has_wagner(s.wagner)) return std::nullopt;
        T = wagner_temperature(s, p);
        range = {s.wagner.T_low, s.wagner.T_high};
    } else if (frost_set(s, code, frost)) {
        T = frost_temperature(s, frost, p);
        range = frost.range;
    }
    if (!(T > 0) || !std::isfinite(T)) return std::nullopt;
    if (both_given(range)) r.deviation = deviation_of(T, range);
    return r;
}

std::optional<double> vapour_pressure_slope(const SubstanceRecord& s, double T,
                                            VapourPressureEquation code) {
    if (!(T > 0)) return std::nullopt;
    double slope = 0;
    Frost f{};
    if (const AntoineSet* a = antoine_set(s, code)) {
        const double shifted = static_cast<double>(a->C) - constants::kZeroCelsius + T;
        slope = -kLn10 * static_cast<double>(a->B) * T * T / (shifted * shifted);
    } else if (code == VapourPressureEquation::august) {
        slope = august_line(s).B;
    } else if (code == VapourPressureEquation::wagner) {
        if (!has_wagner(s.wagner)) return std::nullopt;
        const double Tset = static_cast<double>(s.wagner.a[8]);
        const double t = 1 - T / Tset;
        if (t < 1e-6) return std::nullopt;
        const WagnerSum sum = wagner_sum(s.wagner, t);
        slope = Tset * sum.X + T * sum.slope;
    } else if (frost_set(s, code, f)) {
        const std::optional<VapourPressure> vp = vapour_pressure(s, T, code);
        if (!vp) return std::nullopt;
        const double shifted = T + f.C;
        const double Q = f.D + T * (-f.B * kLn10 / (shifted * shifted) + f.G * kLn10 +
                                    (f.H != 0 ? f.I * f.H * kLn10 * std::pow(T, f.I - 1) : 0.0));
        const double power = std::pow(T, f.F);
        slope = -T * (power * Q - f.F * f.E * kLn10 * vp->p) / (power - f.E * kLn10 * vp->p);
    }
    if (slope == 0 || !std::isfinite(slope)) return std::nullopt;
    return slope;
}

namespace {

/// True for coefficients that a set can hold; a record that makes no sense gives others.
bool fit_32_bits(std::initializer_list<double> coefficients) {
    return std::all_of(coefficients.begin(), coefficients.end(), numbers::fits_single);
}

/// Thompson's rule for C of the Antoine equation; A and B through boiling and critical point.
void correlate_thompson(SubstanceRecord& s, double Tcrit, double pcrit, double Tboil) {
    const double C = 18 - 0.19 * Tboil + constants::kZeroCelsius;
    const auto u = [&](double T) { return 1 / ((C + T) - constants::kZeroCelsius); };
    const double B = -log10_of(pcrit / kNormalPressure) / (u(Tcrit) - u(Tboil));
    const double A = log10_of(pcrit) + B * u(Tcrit);
    s.thompson = {};
    if (fit_32_bits({A, B, C}))
        s.thompson = {static_cast<float>(A), static_cast<float>(B), static_cast<float>(C), 0, 0};
}

/// Frost-Kalkwarf with the pressure term of van der Waals (e = 0.183218, f = 2) or of
/// Redlich/Kwong (0.185652, 2.5) and Thodos' rule D = 1.8 B/Tcrit + 2.67.
void correlate_frost(FrostSet& set, double e, double f, double Tcrit, double pcrit, double Tboil) {
    const double E = e * std::pow(Tcrit, f) / pcrit;
    const double y = (kNormalPressure / pcrit) / std::pow(Tboil / Tcrit, f) - 1;
    const double w = std::log(Tboil / Tcrit);
    const double z = log10_of(kNormalPressure / pcrit) - 2.67 * w / kLn10 - e * y;
    const double w2 = Tcrit / Tboil - 1 + 1.8 * w / kLn10;
    const double B = Tcrit * z / w2;
    const double D = 1.8 / Tcrit * B + 2.67;
    const double A =
        log10_of(pcrit) - B / Tcrit - D * log10_of(Tcrit) - E * pcrit / std::pow(Tcrit, f);
    set = {};
    if (!fit_32_bits({A, B, D, E, f})) return;
    set.a = {static_cast<float>(A), static_cast<float>(B), 0,
             static_cast<float>(D), static_cast<float>(E), static_cast<float>(f)};
}

}  // namespace

void correlate_vapour_pressure(SubstanceRecord& s, VapourPressureEquation equation, double Tcrit,
                               double pcrit, double Tboil) {
    if (!(Tboil >= kPresent) || !(Tcrit >= kPresent) || !(pcrit >= kPresent)) return;
    if (equation == VapourPressureEquation::frostVanDerWaals)
        correlate_frost(s.frost_van_der_waals, 0.183218, 2, Tcrit, pcrit, Tboil);
    if (equation == VapourPressureEquation::frostRedlichKwong)
        correlate_frost(s.frost_redlich_kwong, 0.185652, 2.5, Tcrit, pcrit, Tboil);
    if (equation == VapourPressureEquation::thompson) correlate_thompson(s, Tcrit, pcrit, Tboil);
}

void correlate_august(SubstanceRecord& s) {
    const August line = august_line(s);
    s.august = fit_32_bits({line.A, line.B})
                   ? AugustSet{static_cast<float>(line.A), static_cast<float>(line.B)}
                   : AugustSet{};
}

}  // namespace quor::models
