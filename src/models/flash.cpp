#include "models/flash.h"

#include "models/flash_states.h"

/// What is known of a fluid before a search: the ranges of T, and its dome.
namespace quor::models {

using namespace flash_parts;

bool Flash::equation_holds(double T) const {
    const EosState s = eos_at(fluid_, T);
    if (fluid_.models().vapour_only && s.a == 0) return true;  // B has a form of its own
    return s.b > 0 && s.a - T * eos_slopes(fluid_, s, T).a1 > 0;
}

void Flash::find_ranges() {
    constexpr double kStep = 1.03;
    const SubstanceRecord& s = fluid_.substance();
    const double Tc = s.Tcrit > 0 ? s.Tcrit : kUsualT;
    const auto triple = static_cast<double>(s.Ttriple);
    const double lowest = triple > 0 ? std::min(triple, kLowestTr * Tc) : kLowestTr * Tc;
    const double least = kBelowTriple * lowest, most = std::max(kHighestTr * Tc, kHighestT);

    // From T outwards as far as `holds`, to the digit.
    const auto end_of = [](auto holds, double T, double step, double end) {
        double inside = T;
        for (;;) {
            const double next =
                step > 1 ? std::min(inside * step, end) : std::max(inside * step, end);
            if (!holds(next)) {
                double outside = next;
                for (int i = 0; i < 40; ++i) {
                    const double middle = 0.5 * (inside + outside);
                    (holds(middle) ? inside : outside) = middle;
                }
                return inside;
            }
            if (next == end) return end;
            inside = next;
        }
    };
    const auto equation = [this](double T) { return equation_holds(T); };
    if (!equation(Tc)) return;
    range_ = {end_of(equation, Tc, 1 / kStep, least), end_of(equation, Tc, kStep, most)};

    const CpSet* set = cp_set_of(fluid_);
    if (!set) return;
    const auto caloric = [&](double T) {
        return T >= range_.low && T <= range_.high &&
               ideal_gas_cp(s, fluid_.models().cp_form, T).value_or(0) > R &&
               ideal_gas_functions(s, fluid_.models().cp_form, reference_, T, 1.0);
    };
    const double middle = 0.5 * (set->T_low + set->T_high);
    for (const double T : {Tc, std::clamp(middle, range_.low, range_.high)}) {
        if (!caloric(T)) continue;
        caloric_ = {end_of(caloric, T, 1 / kStep, range_.low),
                    end_of(caloric, T, kStep, range_.high)};
        return;
    }
}

void Flash::find_dome() {
    const SubstanceRecord& s = fluid_.substance();
    const double vc = fluid_.eos().vcrit_calculated;
    if (fluid_.models().vapour_only || !(range_.high > s.Tcrit) || !(s.pcrit > 0) || !(vc > 0))
        return;
    dome_low_ = range_.low;
    const auto caloric = [&](double T, double p, double v) {
        Caloric c{kNaN, kNaN, kNaN};
        const auto z =
            caloric_.high > 0 ? state_functions(fluid_, reference_, {}, T, p, v) : std::nullopt;
        if (z) c = {z->h, z->s, z->u};
        return c;
    };
    for (std::size_t k = kNodes; k-- > 0;) {
        Node& node = dome_[k];
        Saturated& at = node.at;
        if (k == kNodes - 1) {
            at = {s.Tcrit, s.pcrit, vc, vc};
        } else {
            const double t = 1 - static_cast<double>(k) / static_cast<double>(kNodes - 1);
            at.T = s.Tcrit - (s.Tcrit - dome_low_) * t * t;
            std::optional<Saturation> found;
            if (k + 2 < kNodes) {
                // ln p over 1/T is nearly straight.
                const Node &a = dome_[k + 2], &b = dome_[k + 1];
                const double slope = (b.log_p - a.log_p) / (1 / b.at.T - 1 / a.at.T);
                const double guess = b.log_p + slope * (1 / at.T - 1 / b.at.T);
                found = equilibrium_near_p(fluid_, at.T, std::exp(guess));
            }
            if (!found) found = saturation_pressure(fluid_, at.T);
            if (!found || !(found->v[2] > found->v[0]) || !(found->v[0] > 0)) return;
            at.p = found->p;
            at.vL = found->v[0];
            at.vV = found->v[2];
        }
        node.log_p = std::log(at.p);
        node.L = caloric(at.T, at.p, at.vL);
        node.V = at.vV == at.vL ? node.L : caloric(at.T, at.p, at.vV);
        low_node_ = k;
    }
}

Flash::Flash(const Fluid& fluid, const ReferenceState& reference,
             const std::optional<Surroundings>& surroundings)
    : fluid_(fluid), reference_(reference), surroundings_(surroundings) {
    const EquationOfState& row = fluid.equation();
    simple_ = row.family == EosFamily::cubic && fluid.eos().nb == 0 && fluid.eos().nc == 0 &&
              fluid.eos().nd == 0 && row.eos != Eos::jiTorvik1 && row.eos != Eos::jiTorvik2;
    find_ranges();
    find_dome();
}

}  // namespace quor::models
