#pragma once

#include "models/flash_states.h"

/// Inside of `flash`: the states that a search has found, and the one of them that is told.
namespace quor::models {

class Flash::Answers : protected Flash::States {
  protected:
    Answers(const Flash& flash, GivenValue a, GivenValue b) : States(flash), a_(a), b_(b) {}

    /// A state that was found.
    struct Found {
        double T = 0, p = 0, v = 0;
        bool two = false;
        double x = 0;
        Saturated at;  ///< of two phases
    };

    bool refuse(NoFlashReason why) {
        why_ = why;
        return false;
    }
    NoFlash refusal() const { return {why_, searched_.low, searched_.high}; }

    // -- What was found

    void add(const Found& found) {
        if (count_ < found_.size()) found_[count_++] = found;
    }
    void add_single(double T, double p, double v) {
        if (T > 0 && p > 0 && v > 0) add({.T = T, .p = p, .v = v, .two = false, .x = 0, .at = {}});
    }
    void add_two(const Saturated& at, double x) {
        const double part = std::clamp(x, 0.0, 1.0);
        add({.T = at.T,
             .p = at.p,
             .v = at.vL + part * (at.vV - at.vL),
             .two = true,
             .x = part,
             .at = at});
    }

    /// Far from where they were made for, some equations have states whose cv is not positive.
    void drop_unstable() {
        if (!(k_.caloric_.high > 0)) return;
        const auto unstable = [&](const Found& at) {
            if (k_.simple_ && at.T >= k_.caloric_.low && at.T <= k_.caloric_.high) return false;
            const auto z =
                at.two ? std::nullopt : state_functions(f_, k_.reference_, {}, at.T, at.p, at.v);
            return z && !(z->cv > 0);
        };
        const auto* const end = std::remove_if(found_.begin(), found_.begin() + count_, unstable);
        count_ = static_cast<std::size_t>(end - found_.data());
    }

    /// The stable state of the highest T, where there should be one only.
    std::optional<Found> warmest() {
        drop_unstable();
        const auto* const best =
            std::max_element(found_.begin(), found_.begin() + count_,
                             [](const Found& a, const Found& b) { return a.T < b.T; });
        return count_ > 0 ? std::optional(*best) : std::nullopt;
    }

    /// The end of one search is the start of another, where both find the same state.
    void drop_doubles() {
        constexpr double kSame = 1e-7;
        std::size_t kept = 1;
        for (std::size_t i = 1; i < count_; ++i) {
            const Found& last = found_[kept - 1];
            const bool same = std::fabs(found_[i].v / last.v - 1) < kSame &&
                              std::fabs(found_[i].T / last.T - 1) < kSame && !boundary_;
            if (!same) found_[kept++] = found_[i];
        }
        count_ = kept;
    }

    Result<FlashState, NoFlash> told(FlashChoice choice) {
        const auto wanted = static_cast<std::size_t>(choice);
        Result<FlashState, NoFlash> r = FlashState{};
        int answers = 0;
        for (std::size_t i = 0; i < count_; ++i) {
            // Next to the critical point rounding may keep a state from having its values: it is
            // none then, whatever the choice.
            if (count_ == 1 || static_cast<std::size_t>(answers) == wanted) {
                if (complete(found_[i], *r)) r->answer = answers++;
            } else {
                FlashState other;
                answers += complete(found_[i], other) ? 1 : 0;
            }
        }
        if (answers == 0) return refusal();
        if (wanted >= static_cast<std::size_t>(answers))
            return refuse(NoFlashReason::noSuchAnswer), refusal();
        r->answers = answers;
        return r;
    }

    FlashPhase phase_of(const Found& at) const {
        if (at.two) return FlashPhase::twoPhases;
        if (v_only()) return FlashPhase::vapour;
        if (at.T < s_.Tcrit)
            return at.v < f_.eos().vcrit_calculated ? FlashPhase::liquid : FlashPhase::vapour;
        return at.p >= s_.pcrit ? FlashPhase::supercritical : FlashPhase::vapour;
    }

    bool complete(const Found& at, FlashState& r) {
        r = {};
        r.T = at.T;
        r.p = at.p;
        r.v = at.v;
        r.phase = phase_of(at);
        const auto values = [&](double v) {
            return state_functions(f_, k_.reference_, k_.surroundings_, at.T, at.p, v);
        };
        if (at.two) {
            r.x = at.x;
            r.L = FlashPart{at.at.vL, values(at.at.vL)};
            r.V = FlashPart{at.at.vV, values(at.at.vV)};
            if (r.L->values && r.V->values) {
                const StateValues &L = *r.L->values, &V = *r.V->values;
                const auto mixed = [&](double l, double v) { return l + at.x * (v - l); };
                r.values = FlashValues{mixed(L.h, V.h), mixed(L.u, V.u), mixed(L.s, V.s),
                                       mixed(L.g, V.g), mixed(L.a, V.a)};
            }
        } else if ((r.single = values(at.v))) {
            const StateValues& z = *r.single;
            r.values = FlashValues{z.h, z.u, z.s, z.g, z.a};
        }
        const auto triple = static_cast<double>(s_.Ttriple);
        r.below_triple = triple > 0 && at.T < triple;
        if (const CpSet* set = cp_set_of(f_); set && both_given({set->T_low, set->T_high}))
            r.cp_deviation = deviation_of(at.T, {set->T_low, set->T_high});
        return keeps(a_, r) && keeps(b_, r);
    }

    /// The state has a given value, which it then bears to the digit.
    bool keeps(const GivenValue& g, FlashState& r) {
        constexpr double kTolerance = 1e-9;
        double value = g.value;
        switch (g.property) {
            case Property::T:
                value = std::exchange(r.T, g.value);
                break;
            case Property::p:
                value = std::exchange(r.p, g.value);
                break;
            case Property::v:
                value = std::exchange(r.v, g.value);
                break;
            case Property::x:
                value = r.x.value_or(kNaN);
                break;
            default:
                if (!r.values) return refuse(NoFlashReason::noHeatCapacity);
                value = of(*r.values, g.property);
        }
        const bool kept =
            std::fabs(value - g.value) <= kTolerance * scale_of(g.property, g.value, r.T);
        return kept || refuse(NoFlashReason::noSolution);
    }

    GivenValue a_, b_;
    std::array<Found, flash_parts::kMostFound> found_{};
    std::size_t count_ = 0;
    bool boundary_ = false;  ///< both answers are the phases of one T and p
    NoFlashReason why_ = NoFlashReason::noSolution;
    FlashRange searched_;
};

}  // namespace quor::models
