#include "diagrams/curve.h"

#include <exception>
#include <utility>

#include "chart/chart2d.h"
#include "common/dialogs.h"
#include "common/numbers.h"
#include "diagrams/axis_units.h"
#include "diagrams/curve_kinds.h"

namespace quor::diagrams {

namespace {

void compute(CurveFrame& c) {
    c.prepare();
    if (c.request.branch == Branch::tieLine) return tie_line(c);
    c.result.parameter = c.diagram.parameter;
    c.diagram.compute(c);
}

/// A curve outside of the window replaces success and the hint at the triple point only.
CurveStatus final_status(const CurveFrame& c) {
    const CurveStatus status = c.result.status;
    const bool replaced = status == CurveStatus::complete || status == CurveStatus::belowTriple;
    return c.outside() && replaced ? CurveStatus::outside : status;
}

}  // namespace

namespace {

/// The curve in the units of the computation.
Curve computed_curve(const Basis& basis, const CurveRequest& request, CurvePoints room) {
    CurveFrame frame(basis, request, std::move(room));
    Curve& result = frame.result;
    if (frame.dx == 0 || frame.dy == 0) return std::move(result);
    result.points.reserve(static_cast<std::size_t>(frame.steps) + 8);
    try {
        compute(frame);
        result.status = final_status(frame);
    } catch (const std::exception& fault) {
        result.status = CurveStatus::fault;
        result.message = fault.what();
    }
    if (result.status == CurveStatus::noResult) result.message = "no result with these input data";
    return std::move(result);
}

/// A request with window and straight line in the units of the computation.
CurveRequest computed_request(const CurveRequest& shown, const AxisScales& scales) {
    CurveRequest request = shown;
    request.window = scales.computed(shown.window);
    ProcessLine& line = request.line;
    const CurveWindow ends = scales.computed({line.x1, line.x2, line.y1, line.y2});
    line.x1 = ends.x_min;
    line.x2 = ends.x_max;
    line.y1 = ends.y_min;
    line.y2 = ends.y_max;
    return request;
}

void show(CurvePoint& point, const AxisScales& scales) {
    point.x = numbers::to_single(scales.x(static_cast<double>(point.x)));
    if (chart::is_shown(point.y))
        point.y = numbers::to_single(scales.y(static_cast<double>(point.y)));
}

}  // namespace

Curve curve(const Basis& basis, const CurveRequest& request, CurvePoints room) {
    AxisScales scales;
    try {
        scales = shown_scales(request.axes(), basis);
    } catch (const std::exception& fault) {
        return {.points = {}, .status = CurveStatus::fault, .message = fault.what()};
    }
    if (scales.are_identity()) return computed_curve(basis, request, std::move(room));
    Curve result = computed_curve(basis, computed_request(request, scales), std::move(room));
    for (CurvePoint& point : result.points) show(point, scales);
    if (result.tie_line) {
        show(result.tie_line->L, scales);
        show(result.tie_line->V, scales);
    }
    return result;
}

bool is_drawn(CurveStatus status) {
    return status == CurveStatus::complete || status == CurveStatus::belowTriple ||
           status == CurveStatus::endedEarly || status == CurveStatus::outside;
}

StatusText text_of(CurveStatus status, const std::string& message, const models::Fluid& fluid) {
    switch (status) {
        case CurveStatus::complete:
            break;
        case CurveStatus::fault:
            return {"Aborted", "Critical error occured:\n" + message};
        case CurveStatus::noResult:
            return {"Aborted", message};
        case CurveStatus::belowTriple:
            if (fluid.models().vapour_only) break;
            return {"WARNING", "Partially calculated at T < T(triple)!"};
        case CurveStatus::noCriticalVolume:
            return {dialogs::kNotPossible, "No critical density available"};
        case CurveStatus::noTieLine:
            return {dialogs::kNotPossible,
                    "Tie-lines possible only for (T < T(cr)) and (p < p(cr))"};
        case CurveStatus::endedEarly:
            return {"Remark",
                    "The calculation of the curve was aborted.\n"
                    "possibly the V-L coexistence curve was reached\n"
                    "Check it by adding the coexistence curve."};
        case CurveStatus::outside:
            return {"WARNING", "Curve outside the actual coordinates\nEnlarge the coordinates"};
    }
    return {};
}

}  // namespace quor::diagrams
