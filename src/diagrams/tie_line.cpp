#include "diagrams/tie_line.h"

#include "diagrams/curve_kinds.h"
#include "diagrams/project_state.h"

namespace quor::diagrams {

namespace {

CurvePoint as_point(const Projection& at, double z) {
    return {static_cast<float>(at.x), static_cast<float>(at.y), static_cast<float>(z)};
}

bool is_isobaric(const CurveFrame& c) {
    return c.diagram.section == Section::isobaric;
}

std::optional<TieLine> ends_of(const CurveFrame& c) {
    const bool isobaric = is_isobaric(c);
    const auto e = isobaric ? equilibrium_at_p(c.fluid, c.p) : equilibrium_at_T(c.fluid, c.T);
    if (!e) return std::nullopt;
    const auto project = [&](double v) {
        const auto functions =
            shows_caloric_values(c.axes) ? c.functions(e->T, e->p, v) : std::nullopt;
        return project_state(c.axes, c.basis, {e->T, e->p, v}, functions);
    };
    const auto L = project(e->vL), V = project(e->vV);
    if (!L || !V) return std::nullopt;
    const double z = isobaric ? e->p : e->T;
    return TieLine{as_point(*L, z), as_point(*V, z)};
}

}  // namespace

bool has_tie_line(Section section, const models::Fluid& fluid, const StateParameters& at) {
    const models::SubstanceRecord& s = fluid.substance();
    return section == Section::isobaric ? at.p > 0 && at.p < s.pcrit : at.T > 0 && at.T < s.Tcrit;
}

void tie_line(CurveFrame& c) {
    constexpr int kParts = 50;
    c.result.parameter = is_isobaric(c) ? Parameter::p : Parameter::T;
    if (!has_tie_line(c.diagram.section, c.fluid, c.request.at)) {
        c.set_status(CurveStatus::noTieLine);
        return;
    }
    c.result.tie_line = ends_of(c);
    if (!c.result.tie_line) {
        c.set_status(CurveStatus::noResult);
        return;
    }
    const TieLine& ends = *c.result.tie_line;
    const double step_x = (static_cast<double>(ends.V.x) - static_cast<double>(ends.L.x)) / kParts;
    const double step_y = (static_cast<double>(ends.V.y) - static_cast<double>(ends.L.y)) / kParts;
    for (int i = 0; i <= kParts; ++i)
        c.add(static_cast<double>(ends.L.x) + i * step_x,
              static_cast<double>(ends.L.y) + i * step_y, static_cast<double>(ends.L.z));
}

}  // namespace quor::diagrams
