#include <algorithm>
#include <array>
#include <cmath>

#include "common/constants.h"
#include "diagrams/curve_kinds.h"
#include "diagrams/dome_pressures.h"
#include "models/vapour_pressure.h"

namespace quor::diagrams {

using constants::kPresent;
using models::StateValues;

namespace {

/// cp grows beyond all limits at the critical point: its curve ends before.
bool is_finite_at_critical_point(Function function) {
    return function != Function::cp;
}

/// Caloric values on both sides of an equilibrium.
struct BothPhases {
    std::optional<StateValues> L, V;
};

BothPhases functions_at(const CurveFrame& c, const Equilibrium& e) {
    return {c.functions(e.T, e.p, e.vL), c.functions(e.T, e.p, e.vV)};
}

/// The value at the vapour fraction of the session, in displayed units. A fraction of 0 or 1 asks
/// for one phase only.
std::optional<double> fraction_value(const CurveFrame& c, const Equilibrium& e,
                                     const BothPhases& both, Function function) {
    const double x = c.request.vapour_fraction;
    const auto L = value_of(both.L, function);
    const auto V = value_of(both.V, function);
    const double factor = c.caloric(e.T);
    if (x == 0 && L) return *L * factor;
    if (x == 1 && V) return *V * factor;
    if (!L || !V) return std::nullopt;
    return at_fraction(*L, *V, x) * factor;
}

std::optional<double> fraction_value(const CurveFrame& c, const Equilibrium& e, Function function) {
    return fraction_value(c, e, functions_at(c, e), function);
}

}  // namespace

void saturation_functions_over_p(CurveFrame& c) {
    const auto critical = critical_point(c.fluid);
    if (!critical) return;
    const Function function = function_of(c.axes.y).value();
    const auto add = [&](const Equilibrium& e) {
        if (const auto y = fraction_value(c, e, function)) c.add(e.p * c.p_factor, *y, e.T);
    };
    double T = 0;
    const auto add_at_pressure = [&](double p) {
        if (!(p > 0) || p >= critical->p || !c.is_real_at_p(p)) return;
        const auto e = equilibrium_at_p(c.fluid, p, T);
        if (!e || e->T < kPresent) return;
        add(*e);
        T = e->T;
    };

    constexpr double kLowest = 0.05;  // kPa, instead of a lower limit at or below 0
    const double top = critical->p * c.p_factor;
    if (top > c.x_min && top < c.x_max && is_finite_at_critical_point(function)) add(*critical);
    const double lowest = c.x_min + 0.5 * c.dx;  // the last pass is replaced by the foot
    double above = c.x_max;
    Steps loop = Steps::plain(c.x_max, lowest, -c.dx);
    for (double x; loop.next(x);) {
        if (x / c.p_factor <= end_of_dome(c)) break;
        add_at_pressure(x / c.p_factor);
        above = x;
    }
    const DomeFoot foot =
        foot_of_dome(c, c.x_min > 0 ? c.x_min / c.p_factor : kLowest, above / c.p_factor);
    for (auto p = foot.rbegin(); p != foot.rend(); ++p) add_at_pressure(*p);
}

void saturation_functions_over_T(CurveFrame& c) {
    const auto critical = critical_point(c.fluid);
    if (!critical) return;
    const Function function = function_of(c.axes.y).value();
    const auto add = [&](const Equilibrium& e) {
        if (const auto y = fraction_value(c, e, function)) c.add(e.T * c.T_factor, *y, e.p);
    };
    const double top = critical->T * c.T_factor;
    if (top > c.x_min && top < c.x_max && is_finite_at_critical_point(function)) add(*critical);
    double p = 0;
    Steps loop = Steps::plain(c.x_max, c.x_min, -c.dx);
    for (double x; loop.next(x);) {
        const double T = x / c.T_factor;
        if (!(T > 0) || T >= critical->T || !c.is_real_at_T(T)) continue;
        const auto e = equilibrium_at_T(c.fluid, T, p);
        if (!e || e->p < kPresent) continue;
        add(*e);
        p = e->p;
    }
}

namespace {

enum class Course { rising, falling, neither };

/// How y goes along the points.
Course course_of(const CurvePoints& points) {
    bool rises = true, falls = true;
    for (std::size_t i = 1; i < points.size(); ++i) {
        rises = rises && points[i].y >= points[i - 1].y;
        falls = falls && points[i].y <= points[i - 1].y;
    }
    return rises ? Course::rising : falls ? Course::falling : Course::neither;
}

}  // namespace

void saturation_functions_over_v(CurveFrame& c) {
    constexpr double kLowestT = 0.1;      // K
    constexpr double kBeyondWindow = 50;  // of xMax
    constexpr double kAboveCovolume = 1.08;
    const auto critical = critical_point(c.fluid);
    if (!critical) return;
    const Function function = function_of(c.axes.y).value();
    const double fraction = c.request.vapour_fraction;
    const bool magnitude = function == Function::cv;
    const auto add = [&](const Equilibrium& e) {
        const auto y = fraction_value(c, e, function);
        if (!y) return;
        c.add(at_fraction(e.vL, e.vV, fraction) * c.v_factor, magnitude ? std::fabs(*y) : *y, e.T);
    };

    // From the critical point down, so that the walk can end where the vapour leaves the diagram.
    const double step = critical->T / c.steps;
    const double passes = std::floor((critical->T - kLowestT) / step);
    double p = 0;
    Steps loop = Steps::plain(kLowestT + passes * step, kLowestT, -step);
    for (double T; loop.next(T);) {
        if (T >= critical->T) continue;
        const auto e = equilibrium_at_T(c.fluid, T, p);
        if (!e) continue;
        p = e->p;
        const double least = kAboveCovolume * e->state.b;
        if (e->vV * c.v_factor > kBeyondWindow * c.x_max || e->vL <= least || e->vV <= least) break;
        add(*e);
    }
    std::reverse(c.points.begin(), c.points.end());
    add(*critical);
    // Sorting must not tear the line: a function that turns on the way keeps the order of T.
    if (fraction == 0 && course_of(c.points) == Course::falling) c.sort_by_y();
}

void saturation_function_pairs(CurveFrame& c) {
    constexpr double kLowest = 0.05;  // kPa, instead of a limit at or below 0
    constexpr double kStep = 0.3;     // of a step of the limits of p
    const auto critical = critical_point(c.fluid);
    if (!critical) return;
    const Function x_function = function_of(c.axes.x).value(),
                   y_function = function_of(c.axes.y).value();
    const double scale = c.axes.x == Axis::Tenvs ? c.basis.reference.Tenv : 1.0;
    const auto add = [&](const Equilibrium& e) {
        const BothPhases both = functions_at(c, e);
        const auto x = fraction_value(c, e, both, x_function);
        const auto y = fraction_value(c, e, both, y_function);
        if (x && y) c.add(*x * scale, *y, e.p);
    };
    // T comes from the vapour pressure equation, the state from the EOS at this T; without an
    // equation the EOS gives both.
    const auto add_at_pressure = [&](double p) {
        const auto boiling =
            models::boiling_temperature(c.substance, p, c.fluid.models().vapour_pressure);
        const auto by_eos = boiling ? std::nullopt : equilibrium_at_p(c.fluid, p);
        const double T = boiling ? boiling->T : by_eos ? by_eos->T : 0;
        if (T < kPresent || T >= critical->T || !c.is_real_at_T(T)) return;
        const auto e = equilibrium_at_T(c.fluid, T, p);
        if (e) add(*e);
    };

    const CurveRequest& r = c.request;
    const double low = r.p_min > 0 ? static_cast<double>(r.p_min) / c.p_factor : kLowest;
    const double high = static_cast<double>(r.p_max) / c.p_factor;
    const double step = kStep * (high - low) / c.steps;
    Steps loop = Steps::plain(low, high, step);
    bool started = false;
    for (double p; loop.next(p);) {
        if (p >= critical->p) break;
        if (started) {
            add_at_pressure(p);
        } else if (p + step > end_of_dome(c)) {
            for (const double foot : foot_of_dome(c, p, p + step)) add_at_pressure(foot);
            started = true;
        }
    }
    add(*critical);
}

}  // namespace quor::diagrams
