#include "diagrams/curve.h"

#include <exception>
#include <utility>

#include "common/dialogs.h"
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

Curve curve(const Basis& basis, const CurveRequest& request, CurvePoints room) {
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
