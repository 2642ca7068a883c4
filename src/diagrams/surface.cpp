#include "diagrams/surface.h"
#include "legacy/wrappers.h"

#include <array>

#include "common/numbers.h"
#include "common/text.h"
#include "diagrams/diagram_sheet.h"
#include "models/model_tables.h"
#include "session/module2.h"

namespace quor::Module9 {

namespace {

using legacy::the_session;

constexpr std::int16_t kPressure = 1, kTemperature = 4;
constexpr std::int16_t kReduced = 2;  // UnitMode

constexpr auto kKinds = std::to_array<SurfaceKind>({
    {1, "Pressure p(v, T)", Axis::v, Axis::T, Axis::p},
    {2, "", Axis::v, Axis::T, Axis::p},
    {3, "Volume  v(p, T)", Axis::p, Axis::T, Axis::v},
    {4, "Temperature T(v, p)", Axis::v, Axis::p, Axis::T},
    {5, "Heat Capacity cp(p, T)", Axis::p, Axis::T, Axis::cp},
    {7, "Enthalpy  h(p, T)", Axis::p, Axis::T, Axis::h},
    {8, "Entropy s(p, T)", Axis::p, Axis::T, Axis::s},
    {9, "Gibbs Function g(p, T)", Axis::p, Axis::T, Axis::g},
    {10, "Exergy of H          e(p, T)", Axis::p, Axis::T, Axis::e},
    {11, "", Axis::p, Axis::T, Axis::e, true},
});

/// Default ranges as shares of the critical values.
struct Ranges {
    std::int16_t kind;
    bool SCurve;
    double pLow, pHigh;  ///< of pcrit; a low value of 0 stands for `pLowest`
    double pLowest;      ///< kPa
    double TLow, THigh;  ///< of Tcrit
    double vHigh;        ///< of M/rhocrit; 0: the surface has no v
};

constexpr auto kRanges = std::to_array<Ranges>({
    {1, true, 0, 1.6, 0.001, 0.93, 1.3, 7},
    {1, false, 0, 1.6, 500, 0.75, 1.3, 11.5},
    {3, false, 0.05, 1.6, 0, 0.7, 1.3, 13},
    {4, false, 0.05, 1.6, 0, 0.4, 2.0, 13},
    {5, false, 0, 1.8, 0, 0.75, 1.4, 0},
});

const Ranges& ranges_of(std::int16_t kind, bool SCurve) {
    if (kind == 2) kind = kPressure;
    for (const Ranges& row : kRanges)
        if (row.kind == kind && (kind != kPressure || row.SCurve == SCurve)) return row;
    return kRanges.back();
}

std::string axis_text(Axis axis) {
    const bool reduced = the_session.UnitMode == kReduced;
    if (axis == Axis::T) return reduced ? "T(red)" : "T / K";
    if (axis == Axis::p) return reduced ? "p(red)" : "p / kPa";
    return std::string(AxisText(axis, the_session.CaloricUnit, the_session.UnitMode));
}

float single(double value) {
    return numbers::to_single(value);
}

}  // namespace

std::span<const SurfaceKind> surface_kinds() {
    return kKinds;
}

const SurfaceKind* find_surface(std::int16_t Diagram3DKind) {
    for (const SurfaceKind& row : kKinds)
        if (row.kind == Diagram3DKind) return &row;
    return nullptr;
}

bool IsCaloric(const SurfaceKind& surface) {
    return surface.kind > kTemperature;
}

SurfaceTexts TextsOf(const SurfaceKind& surface) {
    const bool hasZeroPoint = surface.z == Axis::h || surface.z == Axis::s || surface.z == Axis::g;
    return {std::string(surface.title),
            " for " + legacy::the_substance.Name + ",  " +
                text::trim(models::EOSName(legacy::the_models.EOSModel)),
            axis_text(surface.x),
            axis_text(surface.y),
            axis_text(surface.z),
            reference_text(hasZeroPoint, surface.z == Axis::e)};
}

diagrams::Grid3D default_grid(std::int16_t Diagram3DKind, bool SCurve) {
    constexpr float kVolumeWithoutData = 3.0F;
    const models::SubstanceRecord& s = legacy::the_substance;
    const Ranges& row = ranges_of(Diagram3DKind, SCurve);
    const auto PF = static_cast<double>(the_session.PressureFactor);
    const auto TF = static_cast<double>(the_session.TemperatureFactor);

    diagrams::Grid3D grid;
    grid.pMin = single(PF * (row.pLow > 0 ? row.pLow * s.pcrit : row.pLowest));
    grid.pMax = single(PF * row.pHigh * s.pcrit);
    grid.TMin = single(TF * row.TLow * s.Tcrit);
    grid.TMax = single(TF * row.THigh * s.Tcrit);
    if (row.vHigh > 0) {
        const double M = static_cast<double>(s.M);
        grid.vMax = s.rhocrit > 0 ? single(the_session.VolumeFactor * row.vHigh * M / s.rhocrit)
                                  : kVolumeWithoutData;
    }
    return grid;
}

Limits limits_of(const diagrams::Grid3D& grid, Axis axis) {
    switch (axis) {
        case Axis::T:
            return {grid.TMin, grid.TMax};
        case Axis::p:
            return {grid.pMin, grid.pMax};
        case Axis::v:
            return {grid.vMin, grid.vMax};
        default:
            return {grid.zMin, grid.zMax};
    }
}

std::string refusal_of(const diagrams::Grid3D& grid, const SurfaceKind& surface) {
    for (const Axis axis : {surface.x, surface.y, surface.z}) {
        const Limits limits = limits_of(grid, axis);
        if (!(limits.low < limits.high))
            return "Lower limits have to be smaller then upper limits!";
    }
    return {};
}

SurfaceMark critical_mark(const SurfaceKind& surface) {
    const models::SubstanceRecord& s = legacy::the_substance;
    double v = legacy::the_eosParameters.vcritCalc;
    if (!(v > 0)) v = s.vcritExp;
    if (surface.z == Axis::cp) return {.remark = "at the critical point cp => infinite"};
    if (!(v > 0)) return {.remark = "No critical density available"};

    double caloric = 0;
    if (IsCaloric(surface)) {
        const models::StateValues z = models::StateFunctions(s.Tcrit, s.pcrit, v);
        if (z.status != kSuccess) return {.remark = "No cp(idGas) parameters available"};
        caloric = caloric_value(surface, z) *
                  session::caloric_factor_of(the_session.CaloricUnit, s.Tcrit);
    }
    const auto place = [&](Axis axis) {
        switch (axis) {
            case Axis::T:
                return s.Tcrit * static_cast<double>(the_session.TemperatureFactor);
            case Axis::p:
                return s.pcrit * static_cast<double>(the_session.PressureFactor);
            case Axis::v:
                return v * the_session.VolumeFactor;
            default:
                return caloric;
        }
    };
    return {place(surface.x), place(surface.y), place(surface.z), kCriticalMarkText, ""};
}

double caloric_value(const SurfaceKind& surface, const models::StateValues& z) {
    switch (surface.z) {
        case Axis::cp:
            return z.cp;
        case Axis::s:
            return z.s;
        case Axis::g:
            return z.g;
        case Axis::e:
            return surface.isClosedSystem ? z.eU : z.eH;
        default:
            return z.h;
    }
}

}  // namespace quor::Module9
