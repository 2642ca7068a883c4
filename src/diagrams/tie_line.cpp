#include "diagrams/tie_line.h"
#include "legacy/current_fluid.h"
#include "legacy/wrappers.h"

#include "diagrams/catalogue.h"
#include "diagrams/curve_kinds.h"
#include "diagrams/project_state.h"

namespace quor::diagrams {

using diagrams::CurvePoint;

namespace {

CurvePoint as_point(const Projection& at, double z) {
    return {static_cast<float>(at.x), static_cast<float>(at.y), static_cast<float>(z)};
}

}  // namespace

bool has_tie_line(std::int16_t sectionKind, double T, double p) {
    const models::SubstanceRecord& s = legacy::the_substance;
    return sectionKind == Module9::kIsobaric ? p > 0 && p < s.pcrit : T > 0 && T < s.Tcrit;
}

diagrams::TieLine tie_line_ends(std::int16_t DiagramType, std::int16_t sectionKind, double T,
                                double p) {
    if (!has_tie_line(sectionKind, T, p)) return {};
    const bool isobaric = sectionKind == Module9::kIsobaric;
    const models::Fluid fluid = models::current_fluid();
    const Equilibrium e = isobaric ? equilibrium_at_p(fluid, p) : equilibrium_at_T(fluid, T);
    if (!e.found) return {};
    const auto project = [&](double v) {
        const auto functions = needs_functions(DiagramType) ? models::StateFunctions(e.T, e.p, v)
                                                            : models::StateValues{};
        return project_state(DiagramType, e.T, e.p, v, functions);
    };
    const Projection L = project(e.vL), V = project(e.vV);
    if (!L.exists || !V.exists) return {};
    const double z = isobaric ? e.p : e.T;
    return {as_point(L, z), as_point(V, z), true};
}

void tie_line(Curve& c) {
    constexpr int kParts = 50;
    const std::int16_t kind = c.request.sectionKind;
    c.mark = kind == Module9::kIsobaric ? kMarkP : kMarkT;
    if (!has_tie_line(kind, c.T, c.p)) {
        c.status = CurveStatus::kNoTieLine;
        return;
    }
    const diagrams::TieLine ends = tie_line_ends(c.request.DiagramType, kind, c.T, c.p);
    legacy::the_tieLine = ends;
    if (!ends.exist) {
        c.status = CurveStatus::kNoResult;
        return;
    }
    const double stepX = (static_cast<double>(ends.V.x) - static_cast<double>(ends.L.x)) / kParts;
    const double stepY = (static_cast<double>(ends.V.y) - static_cast<double>(ends.L.y)) / kParts;
    for (int i = 0; i <= kParts; ++i)
        c.add(static_cast<double>(ends.L.x) + i * stepX, static_cast<double>(ends.L.y) + i * stepY,
              static_cast<double>(ends.L.z));
}

}  // namespace quor::diagrams
