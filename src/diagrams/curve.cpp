#include "diagrams/curve.h"

#include <algorithm>
#include <array>

#include "common/faults.h"
#include "diagrams/curve_kinds.h"

namespace quor::diagrams {

namespace {

struct CurveKind {
    std::int16_t code;
    void (*compute)(Curve&);
    float mark;
};

constexpr auto kKinds = std::to_array<CurveKind>({
    {1, isotherm_p_v, kMarkT},
    {2, isotherm_over_p, kMarkT},
    {3, isobar_T_v, kMarkP},
    {4, isobar_T_v, kMarkP},
    {5, isochore_p_T, kMarkV},
    {6, dome_p_v, kMarkT},
    {7, dome_T_v, kMarkP},
    {8, dome_rho_T, kMarkP},
    {9, vapour_pressure_p_T, kMarkNone},
    {10, vapour_pressure_logarithmic, kMarkNone},
    {11, vapour_pressure_slope, kMarkNone},
    {12, dome_T_v, kMarkP},
    {13, heat_of_vaporisation, kMarkP},
    {15, functions_of_T, kMarkP},
    {16, functions_of_T, kMarkP},
    {17, functions_of_T, kMarkP},
    {18, functions_of_T, kMarkP},
    {19, heat_capacity, kMarkP},
    {21, function_pairs, kMarkP},
    {22, function_pairs, kMarkT},
    {23, function_pairs, kMarkT},
    {24, function_pairs, kMarkT},
    {26, isotherm_over_p, kMarkT},
    {27, dome_over_p, kMarkT},
    {30, residual_of_T, kMarkP},
    {31, residual_of_T, kMarkP},
    {32, residual_of_T, kMarkP},
    {33, residual_of_T, kMarkP},
    {34, joule_thomson, kMarkP},
    {40, residual_of_p, kMarkT},
    {41, residual_of_p, kMarkT},
    {42, residual_of_p, kMarkT},
    {43, residual_of_p, kMarkT},
    {70, saturation_functions_over_p, kMarkT},
    {71, saturation_functions_over_p, kMarkT},
    {72, saturation_functions_over_p, kMarkT},
    {73, saturation_functions_over_p, kMarkT},
    {74, saturation_functions_over_p, kMarkT},
    {75, saturation_functions_over_p, kMarkT},
    {80, rectilinear_diameter, kMarkP},
    {89, saturation_functions_over_v, kMarkT},
    {90, saturation_functions_over_T, kMarkP},
    {91, saturation_functions_over_T, kMarkP},
    {92, saturation_functions_over_T, kMarkP},
    {93, saturation_functions_over_T, kMarkP},
    {94, saturation_functions_over_T, kMarkP},
    {95, saturation_functions_over_T, kMarkP},
    {96, saturation_function_pairs, kMarkP},
    {97, saturation_functions_over_v, kMarkT},
    {98, saturation_functions_over_T, kMarkP},
    {99, saturation_functions_over_T, kMarkP},
    {100, saturation_functions_over_v, kMarkT},
    {101, saturation_functions_over_v, kMarkT},
    {102, saturation_functions_over_v, kMarkT},
    {105, inversion_p_T, kMarkV},
    {106, dome_over_p, kMarkT},
    {107, function_pairs, kMarkP},
    {109, function_pairs, kMarkP},
    {120, saturation_function_pairs, kMarkP},
    {121, saturation_function_pairs, kMarkP},
    {150, functions_of_p, kMarkT},
    {151, functions_of_p, kMarkT},
    {152, functions_of_p, kMarkT},
    {153, functions_of_p, kMarkT},
    {154, functions_of_p, kMarkT},
    {155, functions_of_p, kMarkT},
    {156, functions_of_v, kMarkP},
    {157, functions_of_v, kMarkP},
    {158, functions_of_v, kMarkP},
    {159, functions_of_v, kMarkP},
    {160, functions_of_v, kMarkP},
    {181, functions_of_T, kMarkV},
    {182, functions_of_T, kMarkV},
    {183, functions_of_T, kMarkV},
    {184, functions_of_T, kMarkV},
    {185, functions_of_T, kMarkV},
    {190, inversion_pv_p, kMarkT},
    {201, straight_line, kMarkNone},
    {202, process_isotherm, kMarkNone},
    {204, process_isobar, kMarkNone},
    {206, process_isochore, kMarkNone},
    {210, process_isoline, kMarkNone},
    {211, process_polytropic, kMarkNone},
    {300, database_function, kMarkNone},
    {301, database_function, kMarkNone},
    {302, database_function, kMarkNone},
    {303, database_function, kMarkNone},
    {304, database_function, kMarkNone},
    {305, database_function, kMarkNone},
    {306, database_function, kMarkNone},
    {307, database_function, kMarkNone},
    {308, database_function, kMarkNone},
    {309, database_function, kMarkNone},
    {310, database_function, kMarkNone},
});

const CurveKind* kind_of(std::int16_t code) {
    const auto row = std::find_if(kKinds.begin(), kKinds.end(),
                                  [code](const CurveKind& kind) { return kind.code == code; });
    return row == kKinds.end() ? nullptr : &*row;
}

void compute(Curve& c) {
    c.prepare();
    if (legacy::the_session.TieLineRequested) return tie_line(c);
    const CurveKind* kind = kind_of(c.request.DiagramType);
    if (kind == nullptr) return;
    c.mark = kind->mark;
    kind->compute(c);
}

/// A curve outside of the window replaces success and the hint at the triple point only.
std::int16_t final_status(const Curve& c) {
    const bool replaced =
        c.status == CurveStatus::kComplete || c.status == CurveStatus::kBelowTriple;
    return c.outside() && replaced ? CurveStatus::kOutside : c.status;
}

}  // namespace

CurveResult calc_curve(diagrams::DiagramRequest& request, diagrams::CurvePointArray& points,
                       double T, double p, double v) {
    points.assign(1, {});
    Curve curve(request, points, T, p, v);
    if (curve.dX == 0 || curve.dY == 0) return {};
    points.reserve(static_cast<std::size_t>(curve.steps) + 8);

    CurveResult result;
    try {
        compute(curve);
        result.status = final_status(curve);
    } catch (const std::exception& fault) {
        result = {CurveStatus::kFault, fault.what()};
    }
    if (result.status == CurveStatus::kNoResult) result.message = "no result with these input data";
    points[0] = {static_cast<float>(points.size() - 1), 0, curve.mark};
    return result;
}

std::size_t point_count(const diagrams::CurvePointArray& points) {
    return points.empty() ? 0 : points.size() - 1;
}

float mark_of(std::int16_t DiagramType) {
    const CurveKind* kind = kind_of(DiagramType);
    return kind == nullptr ? kMarkNone : kind->mark;
}

bool has_curve(std::int16_t DiagramType) {
    return kind_of(DiagramType) != nullptr;
}

bool has_metastable_branch(std::int16_t DiagramType) {
    const auto within = [DiagramType](int first, int last) {
        return DiagramType >= first && DiagramType <= last;
    };
    return within(1, 4) || within(15, 19) || DiagramType == 26 || within(30, 33) ||
           within(40, 43) || within(150, 160);
}

bool is_drawn(std::int16_t status) {
    return status == CurveStatus::kComplete || status == CurveStatus::kBelowTriple ||
           status == CurveStatus::kEndedEarly || status == CurveStatus::kOutside;
}

StatusText TextOf(const CurveResult& result) {
    switch (result.status) {
        case CurveStatus::kFault:
            return {"Aborted", "Critical error occured:\n" + result.message};
        case CurveStatus::kNoResult:
            return {"Aborted", result.message};
        case CurveStatus::kBelowTriple:
            if (legacy::the_models.EOSOnlyV) return {};
            return {"WARNING", "Partially calculated at T < T(triple)!"};
        case CurveStatus::kNoCriticalVolume:
            return {"Execution not possible", "No critical density available"};
        case CurveStatus::kNoTieLine:
            return {"Execution not possible",
                    "Tie-lines possible only for (T < T(cr)) and (p < p(cr))"};
        case CurveStatus::kEndedEarly:
            return {"Remark",
                    "The calculation of the curve was aborted.\n"
                    "possibly the V-L coexistence curve was reached\n"
                    "Check it by adding the coexistence curve."};
        case CurveStatus::kOutside:
            return {"WARNING", "Curve outside the actual coordinates\nEnlarge the coordinates"};
        default:
            return {};
    }
}

}  // namespace quor::diagrams
