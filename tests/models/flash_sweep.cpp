#include "models/flash_sweep.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>
#include <random>

#include "common/constants.h"
#include "models/model_grid.h"
#include "models/model_tables.h"
#include "models/reference_state.h"
#include "models/saturation.h"
#include "models/state_solver.h"
#include "support/fluids.h"

namespace flash_sweep {

namespace {

using constants::R;
using models::Property;

constexpr std::array kAll{Property::T, Property::p, Property::v, Property::h,
                          Property::s, Property::u, Property::x};
constexpr std::array<const char*, 7> kNames{"T", "p", "v", "h", "s", "u", "x"};

std::string text(double value) {
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.17g", value);
    return buffer.data();
}

std::optional<double> value_of(const models::FlashState& z, Property y) {
    switch (y) {
        case Property::T:
            return z.T;
        case Property::p:
            return z.p;
        case Property::v:
            return z.v;
        case Property::x:
            return z.x;
        default:
            break;
    }
    if (!z.values) return std::nullopt;
    return y == Property::h ? z.values->h : y == Property::s ? z.values->s : z.values->u;
}

/// Difference of a value from the asked one, of h, s, u against no less than R T or R.
double difference(Property y, double value, double asked, double T) {
    double size = std::fabs(asked);
    if (y == Property::h || y == Property::u) size = std::max(size, R * T);
    if (y == Property::s) size = std::max(size, R);
    if (y == Property::x) size = 1;
    return std::fabs(value - asked) / size;
}

/// The properties of a state by the functions that know nothing of flashes.
class Independent {
  public:
    Independent(const models::Fluid& fluid, const models::ReferenceState& reference)
        : fluid_(fluid), reference_(reference) {}

    /// Values at T and v of one phase, at T and x of two; nothing where there is no state.
    std::optional<std::array<double, 7>> single(double T, double p, double v) const {
        const auto z = models::state_functions(fluid_, reference_, {}, T, p, v);
        return std::array<double, 7>{T, p, v, z ? z->h : 0, z ? z->s : 0, z ? z->u : 0, 0};
    }
    std::optional<std::array<double, 7>> two(double T, double x) const {
        const auto sat = models::saturation_pressure(fluid_, T);
        if (!sat) return std::nullopt;
        const auto L = single(T, sat->p, sat->v[0]), V = single(T, sat->p, sat->v[2]);
        std::array<double, 7> all{};
        for (std::size_t i = 0; i < all.size(); ++i) all[i] = (*L)[i] + x * ((*V)[i] - (*L)[i]);
        all[6] = x;
        return all;
    }
    std::optional<std::array<double, 7>> of(const models::FlashState& z) const {
        if (z.x) return two(z.T, *z.x);
        return single(z.T, z.p, z.v);
    }
    /// p of one phase by its T and v.
    std::optional<double> pressure(double T, double v) const {
        return models::pressure_from_Tv(fluid_, T, v);
    }

  private:
    const models::Fluid& fluid_;
    const models::ReferenceState& reference_;
};

class Sweep {
  public:
    Sweep(const models::Fluid& fluid, const std::string& name, Counts& counts)
        : fluid_(fluid),
          name_(name),
          counts_(counts),
          reference_(settled()),
          flash_(fluid, reference_),
          independent_(fluid, reference_) {}

    void run(int states) {
        ++counts_.fluids;
        const models::SubstanceRecord& s = fluid_.substance();
        const bool caloric = flash_.caloric_range().high > 0;
        if (!caloric) ++counts_.gaps["fluids without a usable heat capacity: no h, s, u"];
        const models::FlashRange range = caloric ? flash_.caloric_range() : flash_.range();
        low_ = std::max(range.low * 1.0001, flash_.range().low / 0.9);
        high_ = std::min(range.high * 0.9999, 3 * s.Tcrit);
        if (!(low_ < high_)) {
            ++counts_.gaps["fluids without a range of T"];
            return;
        }
        const bool v_only = fluid_.models().vapour_only;
        for (int i = 0; i < states; ++i) {
            const bool two = !v_only && i % 3 == 0 && low_ < s.Tcrit;
            two ? two_phases(i) : one_phase(i);
        }
    }

  private:
    static models::ReferenceState settled() {
        models::ReferenceState reference;
        models::settle_reference(reference);
        return reference;
    }
    double draw() { return std::generate_canonical<double, 53>(random_); }

    void two_phases(int i) {
        const double Tc = fluid_.substance().Tcrit;
        // Every fourth near the critical point.
        const double Tr = i % 4 == 0 ? 1 - std::pow(10.0, -1 - 3 * draw())
                                     : std::exp(std::log(low_ / Tc) * draw());
        const double T = std::max(low_, std::min(Tr, 0.9999) * Tc);
        const double x = i % 15 == 0 ? 0 : i % 15 == 3 ? 1 : draw();
        start({Property::T, T}, {Property::x, x});
    }
    void one_phase(int i) {
        const models::SubstanceRecord& s = fluid_.substance();
        double T = low_ * std::pow(high_ / low_, draw());
        double p = s.pcrit * std::pow(10.0, -6 + 7.5 * draw());
        if (i % 5 == 0) {  // round the critical point
            T = std::clamp(s.Tcrit * (0.97 + 0.06 * draw()), low_, high_);
            p = s.pcrit * (0.85 + 0.3 * draw());
        }
        start({Property::T, T}, {Property::p, p});
    }

    void start(models::GivenValue a, models::GivenValue b) {
        const auto found = flash_(a, b);
        if (!found) {
            const bool told = found.failure().reason == models::NoFlashReason::noState ||
                              found.failure().reason == models::NoFlashReason::unstable;
            if (told)
                ++counts_.gaps["states that the equation lacks: " + words_of(found.failure())];
            else
                fail("start", a, b, words_of(found.failure()));
            return;
        }
        ++counts_.states;
        if (found->x) ++counts_.two_phases;
        check_start(*found, a, b);
        for (std::size_t i = 0; i < kAll.size(); ++i)
            for (std::size_t k = i + 1; k < kAll.size(); ++k) pair(*found, kAll[i], kAll[k]);
    }

    /// The state that stands at the start is that of the functions for T and p.
    void check_start(const models::FlashState& z, models::GivenValue a, models::GivenValue b) {
        if (z.x) {
            const auto sat = models::saturation_pressure(fluid_, z.T);
            if (!sat || std::fabs(sat->p / z.p - 1) > 1e-9)
                fail("start", a, b, "not p(LV) of the saturation functions");
            return;
        }
        const auto state = models::solve_state_tp(fluid_, z.T, z.p);
        if (!state) return fail("start", a, b, "no state by T and p");
        const bool liquid = z.phase == models::FlashPhase::liquid;
        const auto v = liquid ? state->vL : state->vV;
        if (!v || std::fabs(*v / z.v - 1) > 1e-9) fail("start", a, b, "another volume by T and p");
    }

    void pair(const models::FlashState& z, Property y1, Property y2) {
        const auto first = value_of(z, y1), second = value_of(z, y2);
        if (!first || !second) return;
        ++counts_.pairs;
        const models::GivenValue a{y1, *first}, b{y2, *second};
        const auto found = flash_(b, a);
        if (!found) {
            if (found.failure().reason == models::NoFlashReason::onlyOfT)
                ++counts_.gaps["pairs: " + words_of(found.failure())];
            else
                fail(z, a, b, words_of(found.failure()));
            return;
        }
        if (found->other_answer()) ++counts_.others;
        bool same = false, alike = false;
        double nearest = HUGE_VAL;
        for (int i = 0; i < found->answers; ++i) {
            const auto answer = i == 0 ? found : flash_(a, b, static_cast<models::FlashChoice>(i));
            if (!answer) {
                fail(z, a, b, "an answer was told that is not there");
                continue;
            }
            check_pair(*answer, z, a, b);
            const double apart =
                std::max(std::fabs(answer->T / z.T - 1), std::fabs(std::log(answer->v / z.v)));
            nearest = std::min(nearest, apart);
            same = same || apart < 1e-6;
            alike = alike || is_alike(*answer, z);
        }
        if (same) return;
        if (z.x && y1 == Property::T && y2 == Property::p) {
            ++counts_.gaps["pairs: T and p of two phases leave x open, both phases are told"];
            if (found->answers != 2) fail(z, a, b, "not both phases");
            return;
        }
        if (alike || nearest <= 100 * spread(z, y1, y2))
            ++counts_.ill_conditioned;
        else
            fail(z, a, b,
                 "another state, " + text(nearest) + " apart, spread " + text(spread(z, y1, y2)));
    }

    /// Of a cold liquid T, s and u hardly tell p, nor whether there is a trace of vapour: its p is
    /// small beside R T/v.
    static bool is_alike(const models::FlashState& a, const models::FlashState& b) {
        if (!a.values || !b.values) return false;
        bool alike = std::fabs(a.T / b.T - 1) < 1e-4 &&
                     std::fabs(a.p - b.p) < 0.01 * R * b.T / std::min(a.v, b.v);
        for (const Property y : {Property::s, Property::u})
            alike = alike && difference(y, *value_of(a, y), *value_of(b, y), b.T) < 1e-8;
        return alike;
    }

    void check_pair(const models::FlashState& z, const models::FlashState& asked,
                    models::GivenValue a, models::GivenValue b) {
        const auto all = independent_.of(z);
        if (!all) return fail(asked, a, b, "no such state by the state functions");
        for (const models::GivenValue g : {a, b}) {
            const double told_value = value_of(z, g.property).value_or(HUGE_VAL);
            const double by_functions = (*all)[static_cast<std::size_t>(g.property)];
            const auto check = [&](double value, double tolerance) {
                const double apart = difference(g.property, value, g.value, z.T);
                const double of_tolerance = apart / tolerance;
                if (of_tolerance > counts_.worst_pair) {
                    counts_.worst_pair = of_tolerance;
                    counts_.worst_where = name_ + " " + described(asked, a, b);
                }
                if (!(of_tolerance <= 1))
                    fail(asked, a, b,
                         std::string(kNames[static_cast<std::size_t>(g.property)]) +
                             " differs by " + text(apart));
            };
            check(told_value, 1e-9);
            // Close to the critical point the rounding of p(LV) moves the volumes further apart.
            const double Tr = z.T / fluid_.substance().Tcrit;
            check(by_functions, z.x ? 1e-9 * std::max(1.0, 1e-4 / (1 - Tr)) : 1e-9);
        }
        if (z.x) return;
        // One equation: T, p and v belong together. Of a dense liquid p is a difference of terms of
        // the size of R T/v and more.
        const auto p = independent_.pressure(z.T, z.v);
        const double size = std::max(z.p, 100 * R * z.T / z.v);
        if (!p || std::fabs(*p - z.p) > 1e-9 * size)
            fail(asked, a, b, "p and v do not belong together");
    }

    /// How far states may lie apart, of T and ln v, whose values differ by 1E-9: by differences of
    /// the values over T and ln v, to each side, as a state may lie at the edge of two phases.
    double spread(const models::FlashState& z, Property y1, Property y2) const {
        constexpr double kStep = 1e-6;
        const auto scaled = [&](Property y, double value) {
            const double zero = difference(y, 0, value_of(z, y).value_or(1), z.T);
            return value / (std::fabs(value_of(z, y).value_or(1)) / std::max(1e-300, zero));
        };
        const auto values = [&](double T, double lnv) -> std::optional<std::array<double, 2>> {
            const auto at = flash_({Property::T, T}, {Property::v, std::exp(lnv)});
            if (!at) return std::nullopt;
            const auto first = value_of(*at, y1), second = value_of(*at, y2);
            if (!first || !second) return std::nullopt;
            return std::array{scaled(y1, *first), scaled(y2, *second)};
        };
        const double lnv = std::log(z.v);
        const auto here = values(z.T, lnv);
        double most = 0;
        for (const double dT : {-kStep, kStep})
            for (const double dv : {-kStep, kStep}) {
                const auto over_T = values(z.T * (1 + dT), lnv), over_v = values(z.T, lnv + dv);
                if (!here || !over_T || !over_v) continue;
                const double a = ((*over_T)[0] - (*here)[0]) / dT,
                             b = ((*over_v)[0] - (*here)[0]) / dv;
                const double c = ((*over_T)[1] - (*here)[1]) / dT,
                             d = ((*over_v)[1] - (*here)[1]) / dv;
                const double size = std::fabs(a) + std::fabs(b) + std::fabs(c) + std::fabs(d);
                most = std::max(most, 1e-9 * size / std::fabs(a * d - b * c));
            }
        return most;
    }

    static std::string described(const models::FlashState& z, models::GivenValue a,
                                 models::GivenValue b) {
        std::string out = "T=" + text(z.T) + " p=" + text(z.p) + " v=" + text(z.v);
        if (z.x) out += " x=" + text(*z.x);
        for (const models::GivenValue g : {a, b})
            out += std::string(", ") + kNames[static_cast<std::size_t>(g.property)] + "=" +
                   text(g.value);
        return out;
    }
    void fail(const models::FlashState& z, models::GivenValue a, models::GivenValue b,
              const std::string& what) {
        counts_.fail(name_ + ": " + described(z, a, b) + ": " + what);
        ++counts_.failed_by[name_.substr(name_.find(", ") + 2) + ": " +
                            kNames[static_cast<std::size_t>(a.property)] + ", " +
                            kNames[static_cast<std::size_t>(b.property)]];
    }
    void fail(const std::string& where, models::GivenValue a, models::GivenValue b,
              const std::string& what) {
        std::string out = name_ + ": " + where;
        for (const models::GivenValue g : {a, b})
            out += std::string(", ") + kNames[static_cast<std::size_t>(g.property)] + "=" +
                   text(g.value);
        counts_.fail(out + ": " + what);
    }

    const models::Fluid& fluid_;
    const std::string& name_;
    Counts& counts_;
    models::ReferenceState reference_;
    models::Flash flash_;
    Independent independent_;
    std::mt19937 random_{20250};
    double low_ = 0, high_ = 0;
};

}  // namespace

void Counts::fail(const std::string& what) {
    constexpr std::size_t kMost = 20;
    ++failed;
    if (failures.size() < kMost) failures.push_back(what);
}

void sweep(const models::Fluid& fluid, const std::string& name, int states, Counts& counts) {
    Sweep(fluid, name, counts).run(states);
}

void sweep_all(int states, std::size_t first, std::size_t stride, Counts& counts) {
    std::size_t place = 0;
    for (const std::string& name : fluids::AllNames()) {
        ++place;  // so that the equations take turns whatever the stride
        const models::SubstanceRecord substance = fluids::correlated_row(name);
        for (const models::EquationOfState* row : models::equations()) {
            if (place++ % stride != first) continue;
            const models::Eos eos = row->eos;
            // Manual coefficients and those of Ji/Torvik belong to no substance of the table.
            if (row->needs_omega && substance.omega == 0) {
                ++counts.gaps["fluids whose equation needs an acentric factor"];
                continue;
            }
            const auto fluid = models::Fluid::make(substance, fluids::selection(substance, eos));
            if (!fluid) {
                ++counts.gaps["fluids that the equation does not admit: " + fluid.reason()];
                continue;
            }
            sweep(*fluid, name + ", " + std::string(row->name.substr(0, row->name.find("  "))),
                  states, counts);
        }
    }
}

std::string told(const Counts& c) {
    std::string out = std::to_string(c.fluids) + " fluids, " + std::to_string(c.states) +
                      " states (" + std::to_string(c.two_phases) + " of two phases), " +
                      std::to_string(c.pairs) + " pairs, " + std::to_string(c.others) +
                      " with another answer, " + std::to_string(c.ill_conditioned) +
                      " that hardly tell states apart, " + std::to_string(c.failed) +
                      " failures; largest difference " + text(c.worst_pair) + " of the tolerance" +
                      " (" + c.worst_where + ")\n";
    for (const auto& [reason, count] : c.gaps)
        out += "  " + std::to_string(count) + "  " + reason + "\n";
    for (const auto& [what, count] : c.failed_by)
        out += "  FAILED " + std::to_string(count) + "  " + what + "\n";
    for (const std::string& failure : c.failures) out += "FAILED " + failure + "\n";
    return out;
}

}  // namespace flash_sweep
