#include <utility>

#include "diagrams/curve_kinds.h"
#include "diagrams/project_state.h"

namespace quor::diagrams {

namespace {

constexpr double kLowestPressure = 0.01;

void add_state(CurveFrame& c, double T, double p, double v, double z) {
    const auto at = project_state(c.axes, c.basis, {T, p, v}, c.functions(T, p, v));
    if (at) c.add(at->x, at->y, z);
}

/// The two ends of the tie-line in the order in which the walk meets them.
void add_tie_line(CurveFrame& c, const Equilibrium& e, bool towards_liquid, double z) {
    const double first = towards_liquid ? e.vV : e.vL;
    const double second = towards_liquid ? e.vL : e.vV;
    add_state(c, e.T, e.p, first, z);
    add_state(c, e.T, e.p, second, z);
}

}  // namespace

/// Two functions against each other along an isotherm (over p) or an isobar (over T) between the
/// limits of the range. Where the walk crosses the coexistence curve, both ends of the tie-line
/// come in between, so that the two-phase part is the straight line it is.
void function_pairs(CurveFrame& c) {
    const bool isothermal = c.diagram.section == Section::isothermal;
    double from = c.request.line.range_start;
    double to = c.request.line.range_end;
    if (from > to) std::swap(from, to);
    const std::optional<Equilibrium>& e = isothermal ? c.at_T : c.at_p;
    const double edge = !e ? 0 : isothermal ? e->p : e->T;

    bool before = false;  // a point was added on the lower side of the coexistence curve
    Steps loop = Steps::plain(from, to, (to - from) / c.steps);
    for (double running; loop.next(running);) {
        if (running <= 0) running = kLowestPressure;
        const double T = isothermal ? c.T : running;
        const double p = isothermal ? running : c.p;
        if (!c.is_real_at_T(T)) continue;
        const auto v = c.stable_volume(T, p);
        if (!v) continue;
        if (e && before && running > edge) {
            add_tie_line(c, *e, isothermal, edge);
            before = false;
        }
        if (e && running < edge) before = true;
        add_state(c, T, p, *v, running);
    }
}

}  // namespace quor::diagrams
