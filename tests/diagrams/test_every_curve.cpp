// Whatever is drawn of whatever substance in whatever window: points are numbers, and they come
// within a time that grows with the points asked for, not with the window.

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <sstream>

#include "chart/chart2d.h"
#include "diagrams/coordinates.h"
#include "diagrams/curve.h"
#include "diagrams/diagram.h"
#include "diagrams/surface_sheet.h"
#include "support/draws.h"
#include "support/scripted_dialogs.h"

using namespace quor;

namespace {

using Clock = std::chrono::steady_clock;

/// A window as it may be typed: that of the diagram, a part of it, a sliver, or any four numbers.
diagrams::CurveWindow drawn_window(Draws& draw, diagrams::CurveWindow proposed) {
    const auto side = [&](float& low, float& high) {
        const float span = high - low;
        switch (draw.below(6)) {
            case 0:
                high = low + span * 1e-10F;
                break;
            case 1:
                low = 0;
                high = 1e-10F;
                break;
            case 2:
                low = draw.any_finite_single();
                high = draw.any_finite_single();
                break;
            case 3:
                high = low + span * static_cast<float>(draw.share());
                break;
            case 4:
                high = low + span * 1e6F;
                break;
            default:
                break;
        }
    };
    side(proposed.x_min, proposed.x_max);
    side(proposed.y_min, proposed.y_max);
    return proposed;
}

diagrams::ProcessLine drawn_line(Draws& draw, const models::SubstanceRecord& s) {
    diagrams::ProcessLine line;
    line.vapour = draw.once_in(2);
    line.range_is_T = draw.once_in(2);
    line.T1 = draw.near(s.Tcrit / 2);
    line.p1 = draw.near(s.pcrit / 2);
    line.range_start = draw.near(line.range_is_T ? s.Tcrit / 2 : s.pcrit / 2);
    line.range_end = draw.near(line.range_is_T ? s.Tcrit / 2 : s.pcrit / 2);
    line.polytropic_exponent = draw.near(1.4);
    line.x1 = draw.any_finite_single();
    line.y1 = draw.any_finite_single();
    line.x2 = draw.any_finite_single();
    line.y2 = draw.any_finite_single();
    line.heterogeneous = draw.once_in(3);
    line.metastable = draw.once_in(3);
    return line;
}

std::string described(const models::Fluid& fluid, const diagrams::CurveRequest& r) {
    std::ostringstream out;
    out << fluid.substance().name << " eos " << static_cast<int>(fluid.models().eos) << " curve "
        << r.curve->code << " branch " << static_cast<int>(r.branch) << " T " << r.at.T << " p "
        << r.at.p << " v " << r.at.v << " window " << r.window.x_min << " " << r.window.x_max << " "
        << r.window.y_min << " " << r.window.y_max << " points " << r.options.points << " y "
        << r.vapour_fraction << " Tcrit " << fluid.substance().Tcrit << " pcrit "
        << fluid.substance().pcrit;
    return out.str();
}

TEST(EveryCurve, HasPointsThatAreNumbersAndComesInTime) {
    // A healthy curve takes some milliseconds; a sanitized program is far slower.
    const std::chrono::milliseconds longest(kSanitized ? 60000 : 5000);
    Draws draw(20240118);
    int good = 0;
    const int count = draws_of(6000);
    for (int i = 0; i < count; ++i) {
        const models::Fluid fluid = draw.fluid();
        const models::SubstanceRecord& s = fluid.substance();
        diagrams::Basis basis{fluid, draw.reference(), {}, {}};
        try {
            basis.units = models::make_units(draw.units(), fluid);
        } catch (const std::exception&) {
            continue;  // no molar mass for such units: told where they are chosen
        }
        const auto rows = diagrams::all_diagrams();
        const diagrams::Diagram& row = rows[draw.below(rows.size())];
        if (row.compute == nullptr) continue;
        const diagrams::CoordinateDefaults limits = diagrams::coordinate_defaults(basis);
        const diagrams::Diagram& home = diagrams::home_of(row);
        diagrams::CurveRequest request{
            .curve = &row,
            .window = drawn_window(draw, diagrams::proposed_window(home, basis, limits).window),
            .at = {draw.near(s.Tcrit / 2), draw.near(s.pcrit / 2), draw.near(1.0)},
            .branch = static_cast<diagrams::Branch>(draw.below(3)),
            .vapour_fraction = draw.near(0.5),
            .options = {.points = draw.between(1, 300),
                        .real_range_only = draw.once_in(2),
                        .s_without_tie_line = draw.once_in(2),
                        .partial_gas = draw.once_in(2)},
            .line = drawn_line(draw, s),
            .p_min = limits.p_min,
            .p_max = limits.p_max};
        const auto start = Clock::now();
        const diagrams::Curve curve = diagrams::curve(basis, request);
        const auto taken =
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
        EXPECT_LT(taken.count(), longest.count()) << described(fluid, request);
        for (const diagrams::CurvePoint& point : curve.points) {
            ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.z))
                << described(fluid, request);
            ASSERT_TRUE(std::isfinite(point.y) || !chart::is_shown(point.y))
                << described(fluid, request);
        }
        const diagrams::StatusText told = diagrams::text_of(curve.status, curve.message, fluid);
        EXPECT_FALSE(has_no_number(told.text)) << told.text;
        if (!diagrams::is_drawn(curve.status)) {
            EXPECT_NE(told.text, "") << described(fluid, request);
        }
        if (curve.status == diagrams::CurveStatus::complete && !curve.points.empty()) ++good;
    }
    // Draws that all fail would show nothing.
    EXPECT_GT(good, count / 40);
}

/// Any limits as they may be typed; those of a kind that are refused draw nothing.
diagrams::SurfaceLimits drawn_limits(Draws& draw, diagrams::SurfaceLimits limits) {
    for (float* const limit : {&limits.p_min, &limits.p_max, &limits.v_min, &limits.v_max,
                               &limits.T_min, &limits.T_max, &limits.z_min, &limits.z_max})
        if (draw.once_in(4)) *limit = draw.any_finite_single();
    return limits;
}

TEST(EverySurface, HasNodesThatAreNumbersOrHoles) {
    const ScriptedDialogs user;
    Draws draw(20240119);
    int good = 0;
    const int count = draws_of(1200);
    for (int i = 0; i < count; ++i) {
        const models::Fluid fluid = draw.fluid();
        diagrams::Basis basis{fluid, draw.reference(), {}, {}};
        try {
            basis.units = models::make_units(draw.units(), fluid);
        } catch (const std::exception&) {
            continue;
        }
        const auto kinds = diagrams::surface_kinds();
        const diagrams::SurfaceKind& kind = kinds[draw.below(kinds.size())];
        diagrams::SurfaceSheet sheet = diagrams::open_surface(
            kind, basis, draw.once_in(2), draw.between(2, 9), draw.between(2, 9));
        (void)diagrams::set_limits(sheet, drawn_limits(draw, sheet.limits));
        (void)diagrams::add_critical_point(sheet);
        const chart::SurfaceGrid& grid = sheet.chart.surface;
        bool any = false;
        for (const float z : grid.z) {
            any = any || !grid.is_hole(z);
            ASSERT_TRUE(grid.is_hole(z) || std::isfinite(z))
                << fluid.substance().name << " kind " << kind.code;
        }
        for (const double x : {grid.x0, grid.dx, grid.y0, grid.dy})
            ASSERT_TRUE(std::isfinite(x)) << fluid.substance().name << " kind " << kind.code;
        for (const dialogs::Message& message : user.messages)
            EXPECT_FALSE(has_no_number(message.text)) << message.text;
        if (any) ++good;
    }
    EXPECT_GT(good, count / 40);
}

}  // namespace
