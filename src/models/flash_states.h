#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>

#include "common/constants.h"
#include "models/cubic_eos.h"
#include "models/equal_fugacity.h"
#include "models/flash.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "models/validity.h"
#include "models/virial.h"
#include "models/zero_search.h"

/// Inside of `flash`: states of one and of two phases by what is known of a fluid.
namespace quor::models {

namespace flash_parts {

using constants::R;

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr bool is_caloric(Property y) {
    return y == Property::h || y == Property::s || y == Property::u;
}

template <class Values>
double of(const Values& z, Property y) {
    return y == Property::h ? z.h : y == Property::s ? z.s : z.u;
}

/// What a difference of two values is measured by.
inline double scale_of(Property y, double value, double T) {
    const double size = std::fabs(value);
    if (y == Property::s) return std::max(size, R);
    if (is_caloric(y)) return std::max(size, R * T);
    return y == Property::x ? 1.0 : size;
}

/// A volume by which isotherms are measured; the covolume of van der Waals' equation.
inline double size_of_molecules(const SubstanceRecord& s) {
    return s.Tcrit > 0 && s.pcrit > 0 ? R * s.Tcrit / (8 * s.pcrit) : 0.05;
}

/// The cp set in use; null without one.
inline const CpSet* cp_set_of(const Fluid& f) {
    if (f.models().cp_form == CpForm::polynomial) return &f.substance().cp_polynomial;
    if (f.models().cp_form == CpForm::sinhCosh) return &f.substance().cp_sinh_cosh;
    return nullptr;
}

inline constexpr double kLowestTr = 0.45, kBelowTriple = 0.9;
inline constexpr double kHighestTr = 10, kHighestT = 3000;  // K
inline constexpr double kUsualT = 300;    // K, of a fluid without a critical point
inline constexpr double kLeastP = 1e-9;   // kPa: thinner gases are not searched
inline constexpr double kClosest = 1e-4;  // (v - b)/b of the densest states

inline constexpr double kZero = 1e-11, kJump = 1e-9;  // of the scale of a value

inline constexpr std::size_t kMostFound = 3 * Zeros::kMost;

/// Places where a function has a kink.
struct Kinks {
    std::array<double, kMostFound> at{};
    std::size_t count = 0;
};

}  // namespace flash_parts

using namespace flash_parts;

/// Saturated states, values and volumes of the fluid of a `Flash`.
class Flash::States {
  protected:
    explicit States(const Flash& flash) : k_(flash), f_(flash.fluid_), s_(f_.substance()) {}

    enum class Side { liquid, vapour, only };

    bool v_only() const { return f_.models().vapour_only; }

    // -- The two-phase region

    /// ln p(LV) between two nodes, straight over 1/T.
    double guessed_p(double T) const {
        const double t = std::sqrt((s_.Tcrit - T) / (s_.Tcrit - k_.dome_low_));
        const double place = (1 - t) * static_cast<double>(kNodes - 1);
        if (!(place >= static_cast<double>(k_.low_node_))) return 0;
        const std::size_t i = std::min(static_cast<std::size_t>(place), kNodes - 2);
        const Node &a = k_.dome_[i], &b = k_.dome_[i + 1];
        const double part = (1 / T - 1 / a.at.T) / (1 / b.at.T - 1 / a.at.T);
        return std::exp(a.log_p + part * (b.log_p - a.log_p));
    }

    static std::optional<Saturated> checked(const std::optional<Saturation>& s) {
        if (!s || !(s->v[2] > s->v[0]) || !(s->v[0] > 0)) return std::nullopt;
        return Saturated{s->T, s->p, s->v[0], s->v[2]};
    }

    /// The two phases at T; nothing at and above the critical point, and where there are none.
    std::optional<Saturated> saturated_at_T(double T) const {
        if (!k_.has_dome() || !(T < s_.Tcrit)) return std::nullopt;
        if (const double guess = guessed_p(T); guess > 0)
            if (const auto near = checked(equilibrium_near_p(f_, T, guess))) return near;
        return checked(saturation_pressure(f_, T));
    }

    const Saturated& lowest() const { return k_.dome_[k_.low_node_].at; }
    /// Where searches over p or v end.
    double least_pressure() const {
        return k_.has_dome() ? std::min(kLeastP, 0.1 * lowest().p) : kLeastP;
    }

    /// The two phases at p below the critical pressure; nothing below the lowest node.
    std::optional<Saturated> saturated_at_p(double p) const {
        if (!k_.has_dome() || !(p < s_.pcrit) || p < lowest().p) return std::nullopt;
        const double log_p = std::log(p);
        const auto* const begin = k_.dome_.data() + k_.low_node_;
        const auto* const end = k_.dome_.data() + kNodes;
        const auto* above = std::upper_bound(
            begin, end, log_p, [](double x, const Node& node) { return x < node.log_p; });
        above = std::clamp(above, begin + 1, end - 1);
        const Node &a = above[-1], &b = *above;
        const double part = (log_p - a.log_p) / (b.log_p - a.log_p);
        const double guess = 1 / (1 / a.at.T + part * (1 / b.at.T - 1 / a.at.T));
        if (const auto near = checked(equilibrium_near_T(f_, p, guess));
            near && near->T >= a.at.T * (1 - 1e-9) && near->T <= b.at.T * (1 + 1e-9))
            return near;
        // Near the critical point the loop is narrower than the guess is good.
        const auto excess = [&](double T) {
            const auto at = saturated_at_T(T);
            return at ? std::log(at->p) - log_p : kNaN;
        };
        const Sample zero =
            zero_between(excess, {a.at.T, a.log_p - log_p}, {b.at.T, b.log_p - log_p});
        auto at = saturated_at_T(zero.x);
        if (!at || std::fabs(at->p / p - 1) > 1e-10) return std::nullopt;
        at->p = p;
        return at;
    }

    // -- States of one phase

    /// h, s or u of one phase; NaN where it has none.
    double value_at(Property y, double T, double p, double v) const {
        const auto z = state_functions(f_, k_.reference_, {}, T, p, v);
        return z ? of(*z, y) : kNaN;
    }
    double pressure_at(double T, double v) const {
        return pressure_from_Tv(f_, T, v).value_or(kNaN);
    }
    /// The smallest volume at T.
    double smallest_volume(double T) const {
        return std::max(0.0, v_only() ? second_virial(f_, T) : eos_at(f_, T).b);
    }

    /// The volume of a phase at T and p; NaN where there is none.
    double volume_at(double T, double p, Side side) const {
        if (v_only()) {
            const double v = R * T / p + second_virial(f_, T);
            return v > smallest_volume(T) && std::isfinite(v) ? v : kNaN;
        }
        const EosState s = eos_at(f_, T);
        const auto roots = solve_cubic(s, T, p);
        if (!roots) return kNaN;
        const auto count = static_cast<std::size_t>(roots->count);
        double v = kNaN;
        for (std::size_t i = 0; i < count; ++i) {
            const double root = roots->v[i];
            if (!(root > s.b) || !(root > 0)) continue;
            v = root;
            if (side == Side::liquid) break;
        }
        return v;
    }

    const Flash& k_;
    const Fluid& f_;
    const SubstanceRecord& s_;
};

}  // namespace quor::models
