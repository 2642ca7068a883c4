#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

/// Zeros of a continuous function of one variable, without derivatives and without allocation.
namespace quor::models {

struct Sample {
    double x = 0, f = 0;
};

/// The zero between two samples of different sign, to the last digits: T. R. Chandrupatla's choice
/// between inverse quadratic interpolation and halving (Adv. Eng. Softw. 28 (1997) 145). A value
/// may be infinite, where only its sign is known. At a jump the sample next to it comes back.
template <class F>
Sample zero_between(F&& f, Sample a, Sample b) {
    constexpr double kEpsilon = std::numeric_limits<double>::epsilon();
    Sample c = a;
    double t = 0.5;
    for (int i = 0; i < 200; ++i) {
        const double x = a.x + t * (b.x - a.x);
        const Sample at{x, f(x)};
        if (std::isnan(at.f)) break;
        if ((at.f > 0) == (a.f > 0)) {
            c = a;
        } else {
            c = b;
            b = a;
        }
        a = at;
        const Sample& best = std::fabs(a.f) < std::fabs(b.f) ? a : b;
        const double tolerance = 2 * kEpsilon * std::fabs(best.x);
        if (best.f == 0 || std::fabs(b.x - a.x) <= tolerance) return best;
        t = 0.5;
        const double xi = (a.x - b.x) / (c.x - b.x);
        const double phi = (a.f - b.f) / (c.f - b.f);
        const bool smooth = std::isfinite(a.f) && std::isfinite(b.f) && std::isfinite(c.f) &&
                            phi * phi < xi && (1 - phi) * (1 - phi) < 1 - xi;
        if (smooth)
            t = a.f / (b.f - a.f) * c.f / (b.f - c.f) +
                (c.x - a.x) / (b.x - a.x) * a.f / (c.f - a.f) * b.f / (c.f - b.f);
        const double least = std::min(0.5, tolerance / std::fabs(b.x - a.x));
        t = std::clamp(std::isfinite(t) ? t : 0.5, least, 1 - least);
    }
    return std::fabs(a.f) < std::fabs(b.f) ? a : b;
}

struct ValueAndSlope {
    double f = 0, slope = 0;
};

/// A zero of a function that rises, by Newton's method kept between `low` and `high`. `f` gives
/// value and slope; a slope that is not positive asks for halving. Without a zero the end that lies
/// next to it comes back.
template <class F>
Sample newton_zero(F&& f, double low, double high, double x, double f_tolerance) {
    Sample best{x, HUGE_VAL};
    bool low_seen = false, high_seen = false;
    double last = HUGE_VAL;
    if (!(x > low && x < high)) x = 0.5 * (low + high);
    for (int i = 0; i < 100; ++i) {
        const ValueAndSlope at = f(x);
        if (std::isnan(at.f)) return {x, at.f};
        if (std::fabs(at.f) < std::fabs(best.f)) best = {x, at.f};
        if (std::fabs(at.f) <= f_tolerance || (x == low && at.f > 0) || (x == high && at.f < 0))
            return best;
        (at.f < 0 ? low : high) = x;
        (at.f < 0 ? low_seen : high_seen) = true;
        double next = at.slope > 0 ? x - at.f / at.slope : 0.5 * (low + high);
        // An end that is asked for tells whether there is a zero at all.
        if (next <= low) next = low_seen ? 0.5 * (low + high) : low;
        if (next >= high) next = high_seen ? 0.5 * (low + high) : high;
        // Where the steps of Newton's method do not shrink the bracket has to.
        if (low_seen && high_seen && std::fabs(next - x) > 0.7 * last) next = 0.5 * (low + high);
        last = std::fabs(next - x);
        if (last <= std::numeric_limits<double>::epsilon() * std::fabs(x)) return best;
        x = next;
    }
    return best;
}

/// The zeros that were found, at most `kMost`.
struct Zeros {
    static constexpr std::size_t kMost = 6;
    std::array<double, kMost> x{};
    std::size_t count = 0;

    void add(double at) {
        if (count < kMost) x[count++] = at;
    }
};

/// Samples of a function over its variable. Where it is not defined (NaN) the ends of its domain
/// are found by halving, so that no zero next to them is lost.
template <std::size_t N>
class Samples {
  public:
    template <class F>
    void add(F&& f, double x) {
        add(f, Sample{x, f(x)});
    }
    template <class F>
    void add(F&& f, const Sample& s) {
        const bool defined = !std::isnan(s.f);
        if (any_ && inside_ && !defined) put(end_of_domain(f, last_, s), false);
        if (any_ && !inside_ && defined) put(end_of_domain(f, s, last_), true);
        if (defined) put(s, !any_);
        inside_ = defined;
        last_ = s;
        any_ = true;
    }

    /// The function has a kink at the last sample.
    void turn() {
        if (inside_) put(last_, true);
    }

    /// All zeros: of each change of sign, of each sample within `tolerance`, and of each extremum
    /// that reaches it. At a jump there is none.
    template <class F>
    Zeros zeros(F&& f, double tolerance, double jump) const {
        Zeros found;
        for (std::size_t i = 0; i < count_; ++i) {
            const Sample& s = samples_[i];
            const bool joined = i > 0 && !first_[i];
            if (is_zero(s, tolerance)) {
                if (!joined || !is_zero(samples_[i - 1], tolerance)) found.add(s.x);
                continue;
            }
            if (!joined || is_zero(samples_[i - 1], tolerance)) continue;
            const Sample& last = samples_[i - 1];
            if ((s.f > 0) != (last.f > 0)) {
                add_between(f, last, s, jump, found);
                continue;
            }
            if (count_ == 2) continue;  // the ends of a monotone function
            if (first_[i - 1])
                add_at_extremum(f, last, beside(f, last, s), s, tolerance, jump, found);
            if (i + 1 < count_ && !first_[i + 1])
                add_at_extremum(f, last, s, samples_[i + 1], tolerance, jump, found);
            else
                add_at_extremum(f, last, beside(f, s, last), s, tolerance, jump, found);
        }
        return found;
    }

  private:
    static bool is_zero(const Sample& s, double tolerance) { return std::fabs(s.f) <= tolerance; }

    template <class F>
    static void add_between(F&& f, const Sample& a, const Sample& b, double jump, Zeros& found) {
        const Sample zero = zero_between(f, a, b);
        if (std::fabs(zero.f) <= jump) found.add(zero.x);
    }

    /// The middle sample lies nearest to zero, and none of them on the other side: golden section,
    /// which ends where it gets there.
    template <class F>
    static void add_at_extremum(F&& f, Sample a, Sample m, Sample b, double tolerance, double jump,
                                Zeros& found) {
        constexpr double kGolden = 0.3819660112501051;
        const bool same = (a.f > 0) == (m.f > 0) && (b.f > 0) == (m.f > 0);
        if (!same || !(std::fabs(m.f) < std::fabs(a.f)) || !(std::fabs(m.f) < std::fabs(b.f)))
            return;
        if (a.x > b.x) std::swap(a, b);
        for (int i = 0; i < 80; ++i) {
            const bool left = m.x - a.x > b.x - m.x;
            const double x = left ? m.x - kGolden * (m.x - a.x) : m.x + kGolden * (b.x - m.x);
            const Sample s{x, f(x)};
            if (std::isnan(s.f)) return;
            if ((s.f > 0) != (m.f > 0) && s.f != 0) {
                add_between(f, left ? a : m, s, jump, found);
                add_between(f, s, left ? m : b, jump, found);
                return;
            }
            if (std::fabs(s.f) < std::fabs(m.f)) {
                (left ? b : a) = m;
                m = s;
            } else {
                (left ? a : b) = s;
            }
            if (b.x - a.x <= 1e-9 * std::fabs(m.x)) break;
        }
        if (is_zero(m, tolerance)) found.add(m.x);
    }

    /// A sample next to an end, which tells whether there is an extremum inside.
    template <class F>
    static Sample beside(F&& f, const Sample& end, const Sample& inside) {
        const double x = end.x + 1e-6 * (inside.x - end.x);
        return {x, f(x)};
    }

    template <class F>
    static Sample end_of_domain(F&& f, Sample inside, Sample outside) {
        for (int i = 0; i < 30; ++i) {
            const double x = 0.5 * (inside.x + outside.x);
            const Sample s{x, f(x)};
            (std::isnan(s.f) ? outside : inside) = s;
        }
        return inside;
    }
    void put(const Sample& s, bool first) {
        if (count_ == samples_.size()) return;
        first_[count_] = first;
        samples_[count_++] = s;
    }

    std::array<Sample, 3 * N + 2> samples_{};
    std::array<bool, 3 * N + 2> first_{};  ///< a sample begins a part of the domain
    std::size_t count_ = 0;
    Sample last_;
    bool any_ = false, inside_ = false;
};

}  // namespace quor::models
