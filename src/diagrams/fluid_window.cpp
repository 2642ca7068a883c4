#include "diagrams/fluid_window.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "chart/ticks.h"
#include "common/constants.h"
#include "diagrams/axis_units.h"
#include "diagrams/caloric_functions.h"
#include "diagrams/equilibrium.h"
#include "diagrams/project_state.h"
#include "models/state_solver.h"

namespace quor::diagrams {

namespace {

/// True for the limits of h, s and their kin, whose values depend on the zero of h and s, so that
/// no limits suit every fluid.
bool depend_on_zero(const LimitPair& limits) {
    return limits.low == &CoordinateDefaults::func_min ||
           limits.low == &CoordinateDefaults::entropy_min;
}

/// The range of an axis: given, or growing with the states.
class AxisRange {
  public:
    AxisRange(bool grows, float low, float high)
        : grows_(grows),
          low_(grows ? std::numeric_limits<double>::infinity() : static_cast<double>(low)),
          high_(grows ? -low_ : static_cast<double>(high)) {}

    bool takes(double value) const {
        return std::isfinite(value) && (grows_ || (value >= low_ && value <= high_));
    }
    void add(double value) {
        if (!grows_) return;
        low_ = std::min(low_, value);
        high_ = std::max(high_, value);
    }
    bool is_range() const { return low_ < high_; }
    /// Round numbers round what has been added; what was given stays.
    std::pair<float, float> limits() const {
        if (!grows_) return {static_cast<float>(low_), static_cast<float>(high_)};
        const chart::NiceWindow nice = chart::make_nice_window(low_, high_, false);
        return {static_cast<float>(nice.min), static_cast<float>(nice.max)};
    }

  private:
    bool grows_;
    double low_, high_;
};

/// Visits T/K, p/kPa and v in m^3/kmol of states of one phase and of both phases in equilibrium.
template <class Visit>
void visit_states(const models::Fluid& fluid, Visit visit) {
    constexpr int kTemperatures = 24, kPressures = 12;
    constexpr double kLowestShare = 0.45, kHighestShare = 1.4, kHighestPressure = 1.5;
    const models::SubstanceRecord& s = fluid.substance();
    const double low = std::max(static_cast<double>(s.Ttriple), kLowestShare * s.Tcrit);
    const double lowest_p = std::min(100.0, 0.1 * s.pcrit);
    for (int i = 0; i <= kTemperatures; ++i) {
        const double T = low + (kHighestShare * s.Tcrit - low) * i / kTemperatures;
        if (T < s.Tcrit && !fluid.models().vapour_only) {
            const auto e = equilibrium_at_T(fluid, T);
            if (e) {
                visit(T, e->p, e->vL);
                visit(T, e->p, e->vV);
            }
        }
        for (int k = 0; k <= kPressures; ++k) {
            const double p = lowest_p * std::pow(kHighestPressure * s.pcrit / lowest_p,
                                                 static_cast<double>(k) / kPressures);
            const auto state = models::solve_state_tp(fluid, T, p);
            if (!state) continue;
            const std::optional<double> v = state->has_V ? state->vV : state->vL;
            if (v) visit(T, p, *v);
        }
    }
}

}  // namespace

std::optional<CurveWindow> fluid_window(const Diagram& diagram, const Basis& basis,
                                        const CurveWindow& window) {
    const bool x_grows = depend_on_zero(diagram.x_limits),
               y_grows = depend_on_zero(diagram.y_limits);
    const models::SubstanceRecord& s = basis.fluid.substance();
    if ((!x_grows && !y_grows) || !(s.Tcrit > 0) || !(s.pcrit > 0)) return std::nullopt;
    AxisRange x(x_grows, window.x_min, window.x_max), y(y_grows, window.y_min, window.y_max);
    const CaloricFunctions functions(basis);
    const AxisScales scales = shown_scales(diagram, basis);
    visit_states(basis.fluid, [&](double T, double p, double v) {
        if (!(v > 0)) return;
        const auto values = functions(T, p, v);
        if (!values) return;
        const auto place = project_state(diagram, basis, {T, p, v}, *values);
        if (!place) return;
        const double shown_x = scales.x(place->x), shown_y = scales.y(place->y);
        if (!x.takes(shown_x) || !y.takes(shown_y)) return;
        x.add(shown_x);
        y.add(shown_y);
    });
    if (!x.is_range() || !y.is_range()) return std::nullopt;
    const auto [x_min, x_max] = x.limits();
    const auto [y_min, y_max] = y.limits();
    return CurveWindow{x_min, x_max, y_min, y_max};
}

}  // namespace quor::diagrams
