#include "models/flash_answers.h"

/// The searches of `flash`, one for each pair of properties.
namespace quor::models {

using namespace flash_parts;

/// One call: the states that have both values.
class Flash::Search : private Flash::Answers {
  public:
    Search(const Flash& flash, GivenValue a, GivenValue b) : Answers(flash, a, b) {}

    Result<FlashState, NoFlash> state(FlashChoice choice) {
        if (a_.property > b_.property) std::swap(a_, b_);
        if (!admit() || !find()) return refusal();
        if (count_ == 0) return refuse(NoFlashReason::noSolution), refusal();
        drop_unstable();
        if (count_ == 0) return refuse(NoFlashReason::unstable), refusal();
        std::sort(found_.begin(), found_.begin() + count_,
                  [](const Found& a, const Found& b) { return a.v < b.v; });
        drop_doubles();
        return told(choice);
    }

  private:
    bool has(Property y) const { return a_.property == y || b_.property == y; }

    // -- What cannot be, before any search

    bool admit() {
        for (const GivenValue& g : {a_, b_}) {
            if (!std::isfinite(g.value)) return refuse(NoFlashReason::notANumber);
            const bool positive =
                g.property == Property::T || g.property == Property::p || g.property == Property::v;
            if (positive && !(g.value > 0)) return refuse(NoFlashReason::notPositive);
            if (g.property == Property::x && !(g.value >= 0 && g.value <= 1))
                return refuse(NoFlashReason::outsideFraction);
        }
        if (a_.property == b_.property) return refuse(NoFlashReason::sameProperty);
        if (f_.equation().eos == Eos::none || !(k_.range_.high > 0))
            return refuse(NoFlashReason::noEquation);
        if (is_caloric(b_.property) || is_caloric(a_.property)) {
            if (!(k_.caloric_.high > 0)) return refuse(NoFlashReason::noHeatCapacity);
        }
        if (has(Property::x)) {
            if (v_only()) return refuse(NoFlashReason::noLiquid);
            if (!k_.has_dome()) return refuse(NoFlashReason::noSaturation);
        }
        const bool one_variable = is_of_T_alone(a_.property) && is_of_T_alone(b_.property);
        if (one_variable && is_ideal()) return refuse(NoFlashReason::onlyOfT);
        return true;
    }
    /// The ideal gas, also as a virial equation whose coefficients are 0.
    bool is_ideal() const {
        return v_only() && second_virial(f_, k_.range_.low) == 0 &&
               second_virial(f_, k_.range_.high) == 0;
    }
    static bool is_of_T_alone(Property y) {
        return y == Property::T || y == Property::h || y == Property::u;
    }

    bool find() {
        const double a = a_.value, b = b_.value;
        const Property y = b_.property;
        searched_ = is_caloric(y) || is_caloric(a_.property) ? k_.caloric_ : k_.range_;
        if (y == Property::x) {
            if (a_.property == Property::T) return at_T_x(a, b);
            if (a_.property == Property::p) return at_p_x(a, b);
            return along_x(a_.property, a, b);
        }
        if (a_.property == Property::T) {
            searched_ = {};
            if (y == Property::p) return at_T_p(a, b);
            if (y == Property::v) return at_T_v(a, b);
            return on_isotherm(a, y, b);
        }
        if (a_.property == Property::p) return y == Property::v ? at_p_v(a, b) : on_isobar(a, y, b);
        if (a_.property == Property::v) return on_isochore(a, y, b);
        if (a_.property == Property::h && y == Property::u) return at_h_u(a, b);
        return a_.property == Property::s ? on_isentrope(a, y, b) : on_isentrope(b, Property::h, a);
    }

    // -- T with p, v, x

    bool at_T_p(double T, double p) {
        constexpr double kSame = 1e-10;
        if (v_only()) {
            const double v = volume_at(T, p, Side::only);
            if (!(v > 0)) return refuse(NoFlashReason::noState);
            add_single(T, p, v);
            return true;
        }
        const auto at = saturated_at_T(T);
        if (at && std::fabs(p / at->p - 1) < kSame) {
            boundary_ = true;
            add_two(*at, 0);
            add_two(*at, 1);
            return true;
        }
        const Side side = at                             ? p > at->p ? Side::liquid : Side::vapour
                          : T < s_.Tcrit && p > s_.pcrit ? Side::liquid
                                                         : Side::vapour;
        const double v = volume_at(T, p, side);
        if (!(v > 0)) return refuse(NoFlashReason::noState);
        add_single(T, p, v);
        return true;
    }

    bool at_T_v(double T, double v) {
        if (!(v > smallest_volume(T))) return refuse(NoFlashReason::belowCovolume);
        const auto at = saturated_at_T(T);
        if (at && v >= at->vL && v <= at->vV) {
            add_two(*at, (v - at->vL) / (at->vV - at->vL));
            return true;
        }
        double p = pressure_at(T, v);
        // Of a liquid at a low pressure p is the rounding of two large terms.
        if (at && v < at->vL) p = std::max(p, at->p);
        if (!(p > 0)) return refuse(NoFlashReason::noState);
        add_single(T, p, v);
        return true;
    }

    bool at_T_x(double T, double x) {
        if (T > s_.Tcrit) return refuse(NoFlashReason::aboveCritical);
        const auto at = T == s_.Tcrit ? k_.dome_.back().at : saturated_at_T(T);
        if (!at) return refuse(NoFlashReason::noSaturation);
        add_two(*at, x);
        return true;
    }

    bool at_p_x(double p, double x) {
        if (p > s_.pcrit) return refuse(NoFlashReason::aboveCritical);
        std::optional<Saturated> at;
        if (p == s_.pcrit)
            at = k_.dome_.back().at;
        else if (p < lowest().p)
            at = checked(saturation_temperature(f_, p));
        else
            at = saturated_at_p(p);
        if (!at) return refuse(NoFlashReason::noSaturation);
        add_two(*at, x);
        return true;
    }

    // -- x with v, h, s, u

    bool along_x(Property y, double value, double x) {
        const auto mixed = [&](double L, double V) { return L + x * (V - L) - value; };
        // The variable is the root of the distance from the critical point: near it the values
        // are straight lines over that.
        const double span = s_.Tcrit - k_.dome_low_;
        const auto at_t = [&](double t) -> std::optional<Saturated> {
            return t == 0 ? k_.dome_.back().at : saturated_at_T(s_.Tcrit - span * t * t);
        };
        const auto excess = [&](double t) {
            const auto at = at_t(t);
            if (!at) return kNaN;
            if (y == Property::v) return mixed(at->vL, at->vV);
            return mixed(value_at(y, at->T, at->p, at->vL), value_at(y, at->T, at->p, at->vV));
        };
        Samples<kNodes> samples;
        for (std::size_t i = k_.low_node_; i < kNodes; ++i) {
            const Node& node = k_.dome_[i];
            const double t = 1 - static_cast<double>(i) / static_cast<double>(kNodes - 1);
            const double f = y == Property::v ? mixed(node.at.vL, node.at.vV)
                                              : mixed(of(node.L, y), of(node.V, y));
            samples.add(excess, Sample{t, f});
        }
        const double scale = scale_of(y, value, k_.range_.low);
        for_all(samples.zeros(excess, kZero * scale, kJump * scale), [&](double t) {
            if (const auto at = at_t(t)) add_two(*at, x);
        });
        searched_.high = s_.Tcrit;
        return true;
    }

    template <class F>
    static void for_all(const Zeros& zeros, F f) {
        for (std::size_t i = 0; i < zeros.count; ++i) f(zeros.x[i]);
    }

    /// Where states with this value enter and leave the two-phase region.
    template <class Variable>
    Kinks kinks(Property y, double value, Variable variable) const {
        Kinks kinks;
        if (!k_.has_dome()) return kinks;
        Search saturated(k_, {y, value}, {Property::x, 0});
        saturated.along_x(y, value, 0);
        saturated.along_x(y, value, 1);
        for (; kinks.count < saturated.count_; ++kinks.count)
            kinks.at[kinks.count] = variable(saturated.found_[kinks.count]);
        return kinks;
    }

    /// Zeros of a function from `low` to `high`: between the ends where it is monotone, else over
    /// many samples, of which those at its kinks tell of extrema there.
    template <class F>
    Zeros zeros_of(F f, double low, double high, bool monotone, double scale,
                   const Kinks& kinks = {}) const {
        constexpr std::size_t kSimple = 24, kMany = 40;
        const std::size_t steps = monotone ? 1 : k_.simple_ ? kSimple : kMany;
        std::array<double, kMany + 1 + kMostFound> at{};
        std::size_t count = 0;
        for (std::size_t i = 0; i <= steps; ++i)
            at[count++] = low + (high - low) * static_cast<double>(i) / static_cast<double>(steps);
        for (std::size_t i = 0; i < kinks.count; ++i)
            if (kinks.at[i] > low && kinks.at[i] < high) at[count++] = kinks.at[i];
        if (kinks.count > 0) std::sort(at.begin(), at.begin() + count);
        Samples<kMany + 1 + kMostFound> samples;
        const auto* const end = kinks.at.begin() + kinks.count;
        for (std::size_t i = 0; i < count; ++i) {
            samples.add(f, at[i]);
            if (std::find(kinks.at.begin(), end, at[i]) != end) samples.turn();
        }
        return samples.zeros(f, kZero * scale, kJump * scale);
    }

    /// The same over T. Some equations have another a(T) above the critical point, whose slope, and
    /// so h, s and u, jump there.
    template <class F, class Take>
    void over_T(F f, FlashRange range, double scale, Take take, Kinks kinks = {}) const {
        for (std::size_t i = 0; i < kinks.count; ++i) kinks.at[i] = std::log(kinks.at[i]);
        const auto part = [&](double low, double high) {
            if (!(low < high)) return;
            const auto T_of = [&](double q) { return std::clamp(std::exp(q), low, high); };
            for_all(zeros_of([&](double q) { return f(T_of(q)); }, std::log(low), std::log(high),
                             k_.simple_, scale, kinks),
                    [&](double q) { take(T_of(q)); });
        };
        if (k_.simple_ || !(range.low < s_.Tcrit && range.high > s_.Tcrit))
            return part(range.low, range.high);
        part(range.low, s_.Tcrit);
        part(above_critical(), range.high);
    }
    /// The next number above the critical temperature.
    double above_critical() const { return std::nextafter(s_.Tcrit, 2 * s_.Tcrit); }

    // -- T with h, s, u

    bool on_isotherm(double T, Property y, double value) {
        const auto cp = ideal_gas_cp(s_, f_.models().cp_form, T);
        if (!(cp > 0.0)) return refuse(NoFlashReason::noHeatCapacity);
        const double scale = scale_of(y, value, T);
        const double b = smallest_volume(T);
        const double size = b > 0 ? b : size_of_molecules(s_);
        const double densest = std::log(kClosest * size);
        const bool monotone =
            k_.simple_ && y != Property::h && T >= k_.range_.low && T <= k_.range_.high;
        const auto branch = [&](double low, double high, double least_p) {
            const auto excess = [&](double q) {
                const double v = b + std::exp(q);
                const double p = std::max(pressure_at(T, v), least_p);
                return value_at(y, T, p, v) - value;
            };
            for_all(zeros_of(excess, low, high, monotone, scale), [&](double q) {
                const double v = b + std::exp(q);
                add_single(T, std::max(pressure_at(T, v), least_p), v);
            });
        };
        const auto at = saturated_at_T(T);
        if (!at) {
            branch(densest, std::log(R * T / least_pressure()), 0);
            return true;
        }
        const double L = value_at(y, T, at->p, at->vL), V = value_at(y, T, at->p, at->vV);
        const bool inside = add_if_between(*at, L, V, value, scale);
        if (monotone && inside) return true;
        if (!monotone || value < L) branch(densest, std::log(at->vL - b), at->p);
        if (!monotone || value > V)
            branch(std::log(at->vV - b), std::log(std::max(R * T / least_pressure(), 1e6 * at->vV)),
                   0);
        return true;
    }

    /// A value between those of both phases belongs to a state of two.
    bool add_if_between(const Saturated& at, double L, double V, double value, double scale) {
        const double x = (value - L) / (V - L);
        const bool inside = (x >= 0 && x <= 1) || std::fabs(value - L) <= kZero * scale ||
                            std::fabs(value - V) <= kZero * scale;
        if (inside) add_two(at, x);
        return inside;
    }

    // -- p with v, h, s, u

    bool at_p_v(double p, double v) {
        double low = k_.range_.low, high = k_.range_.high;
        if (const auto at = saturated_at_p(p)) {
            if (v >= at->vL && v <= at->vV) {
                add_two(*at, (v - at->vL) / (at->vV - at->vL));
                return true;
            }
            (v < at->vL ? high : low) = at->T;
        }
        const auto excess = [&](double T) {
            return v > smallest_volume(T) ? pressure_at(T, v) - p : kNaN;
        };
        if (k_.simple_ && !(v > smallest_volume(s_.Tcrit)))
            return refuse(NoFlashReason::belowCovolume);
        // Of a liquid p is a difference of large terms.
        const double scale = std::max(p, R * low / v);
        over_T(excess, {low, high}, scale, [&](double T) { add_single(T, p, v); });
        return true;
    }

    /// The state on an isobar of a simple equation, where h, s and u rise with T.
    std::optional<Found> on_rising_isobar(double p, Property y, double value,
                                          const FlashRange& within) const {
        double low = within.low, high = within.high;
        Side side = p < s_.pcrit ? Side::vapour : Side::only;
        double start = 0.5 * (low + std::min(high, 2 * s_.Tcrit));
        if (const auto at = saturated_at_p(p); at && at->T >= low) {
            const auto zL = state_functions(f_, k_.reference_, {}, at->T, p, at->vL);
            const auto zV = state_functions(f_, k_.reference_, {}, at->T, p, at->vV);
            if (!zL || !zV) return std::nullopt;
            const double L = of(*zL, y), V = of(*zV, y);
            if (value >= L && value <= V) {
                const double x = (value - L) / (V - L);
                return Found{at->T, p, at->vL + x * (at->vV - at->vL), true, x, *at};
            }
            const bool liquid = value < L;
            side = liquid ? Side::liquid : Side::vapour;
            if (liquid)
                high = std::min(high, at->T);
            else
                low = std::max(low, at->T);
            start = at->T + (liquid ? value - L : value - V) /
                                slope_on_isobar(y, liquid ? *zL : *zV, at->T, p);
        }
        if (!(low < high)) return std::nullopt;
        const double scale = scale_of(y, value, low);
        const auto excess = [&](double T) -> ValueAndSlope {
            const double v =
                volume_at(T, p, T < s_.Tcrit && side == Side::only ? Side::liquid : side);
            const auto z = state_functions(f_, k_.reference_, {}, T, p, v);
            if (!z) return {kNaN, 0};
            return {of(*z, y) - value, slope_on_isobar(y, *z, T, p)};
        };
        const Sample zero = newton_zero(excess, low, high, start, 1e-14 * scale);
        if (!(std::fabs(zero.f) <= 1e-9 * scale)) return std::nullopt;
        const double T = zero.x;
        const double v = volume_at(T, p, T < s_.Tcrit && side == Side::only ? Side::liquid : side);
        return Found{.T = T, .p = p, .v = v, .two = false, .x = 0, .at = {}};
    }
    static double slope_on_isobar(Property y, const StateValues& z, double T, double p) {
        if (y == Property::h) return z.cp;
        if (y == Property::s) return z.cp / T;
        return z.cp - p * z.table.first[4];
    }

    /// The stable state on an isobar within a range of T where there should be one only.
    std::optional<Found> at_p_with(double p, Property y, double value,
                                   const FlashRange& within) const {
        if (!v_only()) return on_rising_isobar(p, y, value, within);
        Search search(k_, {Property::p, p}, {y, value});
        search.on_isobar(p, y, value);
        return search.warmest();
    }

    /// The states of a function of p, of which `excess` is zero, along the line of a value.
    template <class Excess>
    void along_p(Property y, double value, double most, double scale, Excess excess) {
        const auto of_p = [](const Found& at) { return std::log(at.p); };
        const Kinks turns = kinks(y, value, of_p);
        const auto within = [&](const FlashRange& range) {
            const auto f = [&](double q) {
                const auto at = at_p_with(std::exp(q), y, value, range);
                return at ? excess(*at) : kNaN;
            };
            for_all(zeros_of(f, std::log(least_pressure()), most, false, scale, turns),
                    [&](double q) {
                        if (const auto at = at_p_with(std::exp(q), y, value, range)) add(*at);
                    });
        };
        const FlashRange& all = k_.caloric_;
        const double Tc = s_.Tcrit;
        if (k_.simple_ || v_only() || !(all.low < Tc && all.high > Tc)) return within(all);
        within({all.low, Tc});
        within({above_critical(), all.high});
    }

    bool on_isobar(double p, Property y, double value) {
        if (k_.simple_) {
            if (const auto found = on_rising_isobar(p, y, value, k_.caloric_)) add(*found);
            return true;
        }
        double low = k_.caloric_.low, high = k_.caloric_.high;
        const auto branch = [&](double from, double to, Side side) {
            const auto excess = [&](double T) {
                const double v = volume_at(T, p, side);
                return v > 0 ? value_at(y, T, p, v) - value : kNaN;
            };
            const double scale = scale_of(y, value, low);
            over_T(excess, {from, to}, scale,
                   [&](double T) { add_single(T, p, volume_at(T, p, side)); });
        };
        const auto at = saturated_at_p(p);
        if (!at) {
            branch(low, p < s_.pcrit ? high : std::min(high, s_.Tcrit),
                   p < s_.pcrit ? Side::vapour : Side::liquid);
            if (!(p < s_.pcrit)) branch(std::max(low, above_critical()), high, Side::vapour);
            return true;
        }
        add_if_between(*at, value_at(y, at->T, p, at->vL), value_at(y, at->T, p, at->vV), value,
                       scale_of(y, value, at->T));
        branch(low, std::min(high, at->T), Side::liquid);
        branch(std::max(low, at->T), high, Side::vapour);
        return true;
    }

    // -- v with h, s, u

    /// h, s or u of the stable state at T and v, be it of one phase or two.
    double whole_at(Property y, double T, double v) const {
        if (!(v > smallest_volume(T))) return kNaN;
        const auto at = saturated_at_T(T);
        if (at && v > at->vL && v < at->vV) {
            const double x = (v - at->vL) / (at->vV - at->vL);
            const double L = value_at(y, T, at->p, at->vL), V = value_at(y, T, at->p, at->vV);
            return L + x * (V - L);
        }
        double p = pressure_at(T, v);
        if (at && v <= at->vL) p = std::max(p, at->p);
        return value_at(y, T, p, v);
    }

    bool on_isochore(double v, Property y, double value) {
        const auto excess = [&](double T) { return whole_at(y, T, v) - value; };
        if (k_.simple_ && !(v > smallest_volume(s_.Tcrit)))
            return refuse(NoFlashReason::belowCovolume);
        const double low = k_.caloric_.low;
        const double scale = scale_of(y, value, low);
        const auto of_T = [](const Found& at) { return at.T; };
        over_T(
            excess, k_.caloric_, scale, [&](double T) { at_T_v(T, v); },
            k_.simple_ ? Kinks{} : kinks(Property::v, v, of_T));
        return true;
    }

    // -- Two of h, s, u

    /// The state at T and s, and where there is none whether T is too low (negative) or too high.
    struct AtTs {
        std::optional<Found> found;
        double side = 0;
    };
    AtTs at_T_s(double T, double s) const {
        Search search(k_, {Property::T, T}, {Property::s, s});
        search.on_isotherm(T, Property::s, s);
        if (const auto found = search.warmest()) return {found, 0};
        // At the lowest pressure s is largest.
        const double v = R * T / least_pressure();
        const double largest = value_at(Property::s, T, pressure_at(T, v), v);
        return {std::nullopt, s > largest ? -HUGE_VAL : HUGE_VAL};
    }

    double value_of(const Found& at, Property y) const {
        if (!at.two) return value_at(y, at.T, at.p, at.v);
        const double L = value_at(y, at.T, at.p, at.at.vL), V = value_at(y, at.T, at.p, at.at.vV);
        return L + at.x * (V - L);
    }

    /// h and u rise with T along an isentrope, and with p. Where b depends on T an isotherm may
    /// have several states of one s, an isobar has not.
    bool on_isentrope(double s, Property y, double value) {
        // Over p a short line may lie between two samples, so that T is searched over as well.
        if (!k_.simple_ && !v_only())
            along_p(Property::s, s, most_log_p(), scale_of(y, value, k_.caloric_.low),
                    [&](const Found& at) { return value_of(at, y) - value; });
        const auto excess = [&](double T) {
            const AtTs at = at_T_s(T, s);
            return at.found ? value_of(*at.found, y) - value : at.side;
        };
        const auto take = [&](double T) {
            if (const AtTs at = at_T_s(T, s); at.found) add(*at.found);
        };
        over_T(excess, k_.caloric_, scale_of(y, value, k_.caloric_.low), take);
        return true;
    }

    /// ln p of the densest states.
    double most_log_p() const {
        const double b = smallest_volume(k_.caloric_.low);
        return std::log(R * k_.caloric_.high / (kClosest * (b > 0 ? b : size_of_molecules(s_))));
    }

    /// Along an isenthalp p v falls from that of the ideal gas to a minimum and rises again.
    bool at_h_u(double h, double u) {
        const double product = h - u;
        // Of a liquid near its triple point p v may be lost in the rounding of h and u.
        const double scale = scale_of(Property::h, h, k_.caloric_.low), least = kZero * scale;
        if (!(product > -least)) return true;
        if (v_only()) at_h_u_of_virial(h, product);
        // v is above b, and p v is given.
        const double most =
            k_.simple_ ? std::log(std::max(product, least) / smallest_volume(k_.caloric_.low))
                       : most_log_p();
        along_p(Property::h, h, most, scale,
                [&](const Found& at) { return at.p * at.v - product; });
        return true;
    }

    /// p v = R T v/(v - B) gives v at each T; of a thin gas hardly.
    void at_h_u_of_virial(double h, double product) {
        const auto volume = [&](double T) {
            const double B = second_virial(f_, T);
            const double v = product * B / (product - R * T);
            return v > std::max(0.0, B) && std::isfinite(v) ? v : kNaN;
        };
        const auto excess = [&](double T) {
            const double v = volume(T);
            return v > 0 ? value_at(Property::h, T, product / v, v) - h : kNaN;
        };
        over_T(excess, k_.caloric_, scale_of(Property::h, h, k_.caloric_.low),
               [&](double T) { add_single(T, product / volume(T), volume(T)); });
    }
};

Result<FlashState, NoFlash> Flash::operator()(GivenValue a, GivenValue b,
                                              FlashChoice choice) const {
    return Search(*this, a, b).state(choice);
}

Result<FlashState, NoFlash> flash(const Fluid& fluid, const ReferenceState& reference, GivenValue a,
                                  GivenValue b, FlashChoice choice) {
    return Flash(fluid, reference)(a, b, choice);
}

}  // namespace quor::models
