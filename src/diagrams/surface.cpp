#include "diagrams/surface.h"

#include <array>

#include "common/text.h"
#include "diagrams/axis_units.h"
#include "diagrams/bounded.h"
#include "diagrams/caloric_functions.h"
#include "diagrams/curve_frame.h"
#include "diagrams/sheet_names.h"
#include "models/model_tables.h"

namespace quor::diagrams {

namespace {

constexpr auto kKinds = std::to_array<SurfaceKind>({
    {1, "Pressure p(v, T)", Axis::v, Axis::T, Axis::p, true, 0, "Pressure                p(v, T) "},
    {2, "", Axis::v, Axis::T, Axis::p},
    {3, "Volume  v(p, T)", Axis::p, Axis::T, Axis::v, false, 1, "Volume                  v(p, T)"},
    {4, "Temperature T(v, p)", Axis::v, Axis::p, Axis::T, true, 2, "Temperature          T(p, v)"},
    {5, "Heat Capacity cp(p, T)", Axis::p, Axis::T, Axis::cp, false, 4,
     "Heat Capacity         cp(p, T)"},
    {7, "Enthalpy  h(p, T)", Axis::p, Axis::T, Axis::h, false, 5,
     "Enthalpy                 h(p, T)"},
    {8, "Entropy s(p, T)", Axis::p, Axis::T, Axis::s, false, 6, "Entropy                  s(p, T)"},
    {9, "Gibbs Function g(p, T)", Axis::p, Axis::T, Axis::g, false, 7,
     "Gibbs Function       g(p, T)"},
    {10, "Exergy of H          e(p, T)", Axis::p, Axis::T, Axis::eH, false, 8,
     "Exergy of H            e(p, T)"},
    {11, "", Axis::p, Axis::T, Axis::eU},
});

/// Default ranges as shares of the critical values.
struct Ranges {
    Axis z;
    bool s_curve;
    double p_low, p_high;  ///< of pcrit; a low value of 0 stands for `p_lowest`
    double p_lowest;       ///< kPa
    double T_low, T_high;  ///< of Tcrit
    double v_high;         ///< of M/rhocrit; 0: the surface has no v
};

constexpr auto kRanges = std::to_array<Ranges>({
    {Axis::p, true, 0, 1.6, 0.001, 0.93, 1.3, 7},
    {Axis::p, false, 0, 1.6, 500, 0.75, 1.3, 11.5},
    {Axis::v, false, 0.05, 1.6, 0, 0.7, 1.3, 13},
    {Axis::T, false, 0.05, 1.6, 0, 0.4, 2.0, 13},
    {Axis::none, false, 0, 1.8, 0, 0.75, 1.4, 0},
});

/// The row of the quantity that a surface shows; all caloric ones share the last.
const Ranges& ranges_of(const SurfaceKind& surface, bool s_curve) {
    for (const Ranges& row : kRanges)
        if (row.z == surface.z && (row.z != Axis::p || row.s_curve == s_curve)) return row;
    return kRanges.back();
}

/// From a number as it is computed to that on an axis of a surface.
double shown(Axis axis, const Basis& basis, double value) {
    return shown_scale(nullptr, axis, basis)(value);
}

std::string label_of(Axis axis, const models::UnitChoice& units) {
    if (has_own_unit(axis, units)) return axis_text(axis, units);
    const bool reduced = units.system == models::UnitSystem::reduced;
    if (axis == Axis::T) return reduced ? "T(red)" : "T / K";
    if (axis == Axis::p) return reduced ? "p(red)" : "p / kPa";
    if (axis == Axis::v && reduced) return "v(red)";
    return axis_text(axis, units);
}

bool is_exergy(Axis axis) {
    return axis == Axis::eH || axis == Axis::eU;
}

float single(double value) {
    return bounded_single(value);
}

}  // namespace

std::span<const SurfaceKind> surface_kinds() {
    return kKinds;
}

const SurfaceKind* find_surface(int code) {
    for (const SurfaceKind& row : kKinds)
        if (row.code == code) return &row;
    return nullptr;
}

bool is_caloric(const SurfaceKind& surface) {
    return surface.z != Axis::p && surface.z != Axis::v && surface.z != Axis::T;
}

SurfaceTexts texts_of(const SurfaceKind& surface, const Basis& basis) {
    const models::UnitChoice& units = basis.units.choice;
    const bool has_zero_point =
        surface.z == Axis::h || surface.z == Axis::s || surface.z == Axis::g;
    return {std::string(surface.title),
            " for " + basis.fluid.substance().name + ",  " +
                text::trim(models::eos_name(basis.fluid.models().eos)),
            label_of(surface.x, units),
            label_of(surface.y, units),
            label_of(surface.z, units),
            reference_text(has_zero_point, is_exergy(surface.z), basis.reference, basis.units)};
}

std::string surface_axis_text(Axis axis, const models::UnitChoice& units) {
    return label_of(axis, units);
}

SurfaceLimits converted_limits(const SurfaceLimits& limits, const SurfaceKind& surface,
                               const std::function<double(Axis, double)>& convert) {
    SurfaceLimits result = limits;
    const auto pair = [&](Axis axis, float& low, float& high) {
        for (float* limit : {&low, &high})
            *limit = single(convert(axis, static_cast<double>(*limit)));
    };
    for (const Axis axis : {surface.x, surface.y, surface.z}) {
        if (axis == Axis::T) pair(axis, result.T_min, result.T_max);
        if (axis == Axis::p) pair(axis, result.p_min, result.p_max);
        if (axis == Axis::v) pair(axis, result.v_min, result.v_max);
    }
    if (!is_caloric(surface)) return result;
    const auto clip = [&](float& limit, float none) {
        if (limit != none) limit = single(convert(surface.z, static_cast<double>(limit)));
    };
    clip(result.z_min, kNoLowerClip);
    clip(result.z_max, kNoUpperClip);
    return result;
}

SurfaceLimits default_limits(const SurfaceKind& surface, const Basis& basis, bool s_curve) {
    constexpr float kVolumeWithoutData = 3.0F;
    const models::SubstanceRecord& s = basis.fluid.substance();
    const Ranges& row = ranges_of(surface, s_curve);
    const double p_factor = basis.p_factor(), T_factor = basis.T_factor();

    SurfaceLimits limits;
    limits.p_min = single(p_factor * (row.p_low > 0 ? row.p_low * s.pcrit : row.p_lowest));
    limits.p_max = single(p_factor * row.p_high * s.pcrit);
    limits.T_min = single(T_factor * row.T_low * s.Tcrit);
    limits.T_max = single(T_factor * row.T_high * s.Tcrit);
    if (row.v_high > 0)
        limits.v_max = s.rhocrit > 0 ? single(basis.v_factor() * row.v_high * basis.M() / s.rhocrit)
                                     : kVolumeWithoutData;
    return converted_limits(limits, surface,
                            [&](Axis axis, double value) { return shown(axis, basis, value); });
}

Limits limits_of(const SurfaceLimits& limits, Axis axis) {
    switch (axis) {
        case Axis::T:
            return {limits.T_min, limits.T_max};
        case Axis::p:
            return {limits.p_min, limits.p_max};
        case Axis::v:
            return {limits.v_min, limits.v_max};
        default:
            return {limits.z_min, limits.z_max};
    }
}

std::string refusal_of(const SurfaceLimits& limits, const SurfaceKind& surface) {
    for (const Axis axis : {surface.x, surface.y, surface.z}) {
        const Limits l = limits_of(limits, axis);
        if (!(l.low < l.high)) return "Lower limits have to be smaller then upper limits!";
    }
    return {};
}

SurfaceMark critical_mark(const SurfaceKind& surface, const Basis& basis) {
    const models::SubstanceRecord& s = basis.fluid.substance();
    double v = basis.fluid.eos().vcrit_calculated;
    if (!(v > 0)) v = s.vcrit_measured;
    if (surface.z == Axis::cp) return {.remark = "at the critical point cp => infinite"};
    if (!(v > 0)) return {.remark = "No critical density available"};

    double caloric = 0;
    if (is_caloric(surface)) {
        const auto value = caloric_value(surface, CaloricFunctions(basis)(s.Tcrit, s.pcrit, v));
        if (!value) return {.remark = "No cp(idGas) parameters available"};
        caloric = *value * basis.caloric(s.Tcrit);
    }
    const auto computed = [&](Axis axis) {
        switch (axis) {
            case Axis::T:
                return s.Tcrit * basis.T_factor();
            case Axis::p:
                return s.pcrit * basis.p_factor();
            case Axis::v:
                return v * basis.v_factor();
            default:
                return caloric;
        }
    };
    const auto place = [&](Axis axis) { return shown(axis, basis, computed(axis)); };
    return {place(surface.x), place(surface.y), place(surface.z), kCriticalMarkText, ""};
}

std::optional<double> caloric_value(const SurfaceKind& surface,
                                    const std::optional<models::StateValues>& z) {
    const std::optional<Function> function = function_of(surface.z);
    return function ? value_of(z, *function) : std::nullopt;
}

}  // namespace quor::diagrams
