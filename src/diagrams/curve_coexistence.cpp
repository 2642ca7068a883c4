#include <algorithm>
#include <cmath>

#include "common/constants.h"
#include "diagrams/curve_kinds.h"
#include "diagrams/dome_pressures.h"

namespace quor::diagrams {

using constants::kPresent;

namespace {

double plotted_volume(const CurveFrame& c, const Equilibrium& e) {
    return at_fraction(e.vL, e.vV, c.request.vapour_fraction);
}

/// The walk down the dome in p-v. Its step in T adapts itself, so that neighbouring points are
/// never further apart than the told share of the window, and seldom closer than half of it.
class DomeWalk {
  public:
    explicit DomeWalk(CurveFrame& curve) : c_(curve) {
        largest_p_ = c_.y_max / c_.p_factor / kShare;
        largest_v_ = c_.x_max / c_.v_factor / kShare;
    }

    void run(Equilibrium start) {
        at_ = start;
        draw(at_);
        step_ = std::fmax(std::log(c_.y_max / c_.p_factor) / 1000, 1e-7 * c_.substance.Tcrit);
        for (int i = 0; i < kMostTrials && !ended_; ++i) advance();
    }

  private:
    static constexpr double kShare = 800;  // points stand at most 1/800 of the window apart
    static constexpr int kMostTrials = 200000;

    void advance() {
        double T = at_.T - step_;
        bool last = false;
        if (const double end = lowest_T(); T <= end) {
            if (end <= kPresent) return finish();
            T = end;
            last = true;
        }
        const auto next = equilibrium_at_T(c_.fluid, T, guess(T));
        if (!next || !(next->p > 0) || next->p >= c_.substance.pcrit) return finish();
        const double vcrit = c_.fluid.eos().vcrit_calculated;
        if (next->vL > vcrit || next->vV < vcrit) return finish();

        const double moved =
            std::fmax(std::fabs(next->p - at_.p) / largest_p_,
                      std::fabs(plotted_volume(c_, *next) - plotted_volume(c_, at_)) / largest_v_);
        if (moved > 1) {
            step_ = (at_.T - T) * std::clamp(0.8 / moved, 0.05, 0.8);
            return;
        }
        if (moved < 0.5 && !last) {
            step_ *= 2;
            return;
        }
        const double step_done = at_.T - T;
        before_ = at_;
        at_ = *next;
        draw(at_);
        if (last) return finish();
        step_ = step_done * std::clamp(0.8 / moved, 0.5, 2.0);
    }

    /// Where the walk has to end: at the triple point, or nowhere.
    double lowest_T() const {
        const bool real_only = c_.real_range_only();
        return real_only ? static_cast<double>(c_.substance.Ttriple) : 0;
    }

    /// ln p is nearly straight over 1/T.
    double guess(double T) const {
        if (before_.p <= 0 || before_.T == at_.T) return 0;
        const double slope = std::log(at_.p / before_.p) / (1 / at_.T - 1 / before_.T);
        return at_.p * std::exp(slope * (1 / T - 1 / at_.T));
    }

    /// Points outside of the window are kept only where the line enters or leaves it.
    void draw(const Equilibrium& e) {
        const double x = plotted_volume(c_, e) * c_.v_factor;
        const bool inside = x >= c_.x_min && x <= c_.x_max;
        if (inside && pending_) add(waiting_);
        pending_ = !inside && !entered_;
        if (pending_) waiting_ = e;
        if (inside || entered_) add(e);
        entered_ = inside;
        was_inside_ = was_inside_ || inside;
        if (was_inside_ && x > c_.x_max && x > 1.5 * c_.x_min) ended_ = true;
    }

    void add(const Equilibrium& e) {
        if (e.T < static_cast<double>(c_.substance.Ttriple))
            c_.set_status(CurveStatus::belowTriple);
        c_.add(plotted_volume(c_, e) * c_.v_factor, e.p * c_.p_factor, e.T);
    }

    void finish() { ended_ = true; }

    CurveFrame& c_;
    Equilibrium at_, before_, waiting_;
    double step_ = 0, largest_p_ = 0, largest_v_ = 0;
    bool pending_ = false, entered_ = false, was_inside_ = false, ended_ = false;
};

}  // namespace

void dome_p_v(CurveFrame& c) {
    const auto critical = critical_point(c.fluid);
    if (!critical || !(c.x_max > 0) || !(c.y_max > 0)) return;
    const double top = critical->p * c.p_factor;
    if (top > c.y_max) {
        const auto edge = equilibrium_at_p(c.fluid, c.y_max / c.p_factor);
        if (edge) DomeWalk(c).run(*edge);
    } else if (top > c.y_min) {
        DomeWalk(c).run(*critical);
    }
}

namespace {

/// Ordinate over p: pv or rho.
void add_over_p(CurveFrame& c, const Equilibrium& e) {
    const double v = plotted_volume(c, e);
    const bool is_product = c.axes.y == Axis::pv;
    c.add(e.p * c.p_factor, is_product ? e.p * c.p_factor * v * c.v_factor : c.M / v, e.T);
}

}  // namespace

void dome_over_p(CurveFrame& c) {
    constexpr double kLowest = 0.1;       // kPa
    constexpr double kBelowCritical = 5;  // kPa
    const auto critical = critical_point(c.fluid);
    if (!critical) return;

    double T = 0;
    const auto add_at_pressure = [&](double p) {
        if (!c.is_real_at_p(p)) return;
        const auto e = equilibrium_at_p(c.fluid, p, T);
        if (!e || e->T < kPresent) return;
        add_over_p(c, *e);
        T = e->T;
    };
    const double step = 0.75 * c.dx;
    const double end = (critical->p - kBelowCritical) * c.p_factor;
    Steps loop = Steps::plain(c.x_min, end, step).within(c.x_min, c.x_max);
    bool started = false;
    for (double x; loop.next(x);) {
        const double p = std::fmax(x / c.p_factor, kLowest);
        const double next = (x + step) / c.p_factor;
        if (started || next <= p || x + step >= end) {
            add_at_pressure(p);
            started = true;
        } else if (next > end_of_dome(c)) {
            for (const double low : foot_of_dome(c, p, next)) add_at_pressure(low);
            started = true;
        }
    }
    add_over_p(c, *critical);
}

void dome_T_v(CurveFrame& c) {
    const auto critical = critical_point(c.fluid);
    if (!critical) return;
    const auto add = [&](const Equilibrium& e) {
        const double v = plotted_volume(c, e);
        c.add(c.axes.x == Axis::v ? v * c.v_factor : c.M / v, e.T * c.T_factor, e.p);
    };
    // The liquid line is steep: it takes a quarter of the step.
    double step = 2 * c.dy / c.T_factor;
    if (c.request.vapour_fraction < 0.5) step /= 4;
    add(*critical);
    double p = 0;
    Steps loop = Steps::plain(critical->T - step, c.y_min / c.T_factor, -step)
                     .within(c.y_min / c.T_factor, c.y_max / c.T_factor);
    for (double T; loop.next(T);) {
        if (!(T > 0) || !c.is_real_at_T(T)) continue;
        const auto e = equilibrium_at_T(c.fluid, T, p);
        if (!e || e->p <= kPresent) continue;
        add(*e);
        p = e->p;
    }
}

namespace {

/// Walks down from the critical point in steps of x and gives each equilibrium to `add`.
template <class Add>
void walk_rho_T(CurveFrame& c, double step, Add add) {
    const auto critical = critical_point(c.fluid);
    if (!(c.fluid.eos().vcrit_calculated > kPresent) || !critical) {
        c.set_status(CurveStatus::noCriticalVolume);
        return;
    }
    c.add(critical->T * c.T_factor, c.M / c.fluid.eos().vcrit_calculated, critical->p);
    double p = 0;
    double lowest = c.x_min;
    if (c.real_range_only())
        lowest = std::fmax(lowest, static_cast<double>(c.substance.Ttriple) * c.T_factor);
    Steps loop = Steps::clamped(critical->T * c.T_factor, lowest, -step).within(lowest, c.x_max);
    for (double x; loop.next(x);) {
        const double T = x / c.T_factor;
        if (!(T > 0) || T >= critical->T || !c.is_real_at_T(T)) continue;
        const auto e = equilibrium_at_T(c.fluid, T, p);
        if (!e || e->vL <= e->state.b || e->p <= kPresent || e->vV <= kPresent) continue;
        add(*e);
        p = e->p;
    }
}

}  // namespace

void dome_rho_T(CurveFrame& c) {
    walk_rho_T(c, c.dx, [&](const Equilibrium& e) {
        c.add(e.T * c.T_factor, c.M / e.vL, e.p);
        c.add(e.T * c.T_factor, c.M / e.vV, e.p);
    });
    c.sort_by_y();
}

/// L. Cailletet, E. Mathias, C. R. Acad. Sci. 102 (1886) 1202: the mean of both densities lies on
/// a nearly straight line.
void rectilinear_diameter(CurveFrame& c) {
    constexpr double kLeastProduct = 1e-5;  // (m^3/kmol)^2: smaller volumes are degenerate
    walk_rho_T(c, c.dx, [&](const Equilibrium& e) {
        if (e.vL * e.vV < kLeastProduct) return;
        c.add(e.T * c.T_factor, 0.5 * (c.M / e.vL + c.M / e.vV), e.p);
    });
}

}  // namespace quor::diagrams
