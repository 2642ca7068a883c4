#include "diagrams/surface_grid.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>

#include "common/numbers.h"
#include "diagrams/axis_units.h"
#include "diagrams/caloric_functions.h"
#include "diagrams/curve_frame.h"
#include "diagrams/equilibrium.h"
#include "models/cubic_eos.h"
#include "models/state_solver.h"

namespace quor::diagrams {

using chart::SurfaceGrid;

namespace {

constexpr double kInsteadOfNoPressure = 0.05;  // kPa, for a p of 0

/// What the nodes of a surface need; z is computed by one function a kind.
struct Surface {
    const SurfaceKind& kind;
    const Basis& basis;
    bool s_curve;
    const models::Fluid& fluid = basis.fluid;
    CaloricFunctions functions{basis};
    double M = basis.M(), T_factor = basis.T_factor(), p_factor = basis.p_factor(),
           v_factor = basis.v_factor();
};

using Value = std::optional<double>;

Value pressure(const Surface& s, double T, double v) {
    models::EosState state = models::eos_at(s.fluid, T);
    const auto p = models::pressure_from_Tv(s.fluid, T, v, state);
    if (!p) return std::nullopt;
    return *p * s.p_factor;
}

/// p(v, T): below Tcrit the states inside the dome stand at its pressure.
Value pressure_of_node(const Surface& s, const std::optional<Equilibrium>& e, double T, double v) {
    const bool two_phase = !s.s_curve && e && v > e->vL && v < e->vV;
    return two_phase ? e->p * s.p_factor : pressure(s, T, v);
}

/// T(v, p), in the dome the temperature of the equilibrium.
Value temperature_of_node(const Surface& s, const std::optional<Equilibrium>& e, double v,
                          double p) {
    if (!s.s_curve && e && v > e->vL && v < e->vV) return e->T * s.T_factor;
    const auto T = models::temperature_from_p_rho(s.fluid, p, s.M / v, true);
    if (!T) return std::nullopt;
    return *T * s.T_factor;
}

Value volume_of_node(const Surface& s, double p, double T) {
    const auto v = stable_volume_of(models::solve_state_tp(s.fluid, T, p));
    if (!v) return std::nullopt;
    return *v * s.v_factor;
}

Value caloric_of_node(const Surface& s, double p, double T) {
    const auto v = stable_volume_of(models::solve_state_tp(s.fluid, T, p));
    if (!v) return std::nullopt;
    const auto value = caloric_value(s.kind, s.functions(T, p, *v));
    if (!value) return std::nullopt;
    return *value * s.basis.caloric(T);
}

/// Limits of z beyond which a node is a hole. v, p and T end at their upper limit; a caloric value
/// at the clipping limits, unless they stand for none.
struct Clip {
    double low = -HUGE_VAL, high = HUGE_VAL;

    bool cuts(double z) const { return z < low || z > high; }
};

Clip clip_of(const SurfaceKind& kind, const SurfaceLimits& all) {
    const Limits limits = limits_of(all, kind.z);
    Clip clip;
    if (!is_caloric(kind)) {
        clip.high = static_cast<double>(limits.high);
        return clip;
    }
    if (limits.high != kNoUpperClip) clip.high = static_cast<double>(limits.high);
    if (limits.low != kNoLowerClip) clip.low = static_cast<double>(limits.low);
    return clip;
}

void store(SurfaceGrid& grid, const Clip& clip, int i, int j, Value z) {
    if (!z || !chart::is_shown(static_cast<float>(*z))) return;
    std::vector<float>& target = clip.cuts(*z) ? grid.z_behind_holes : grid.z;
    target[grid.at(i, j)] = static_cast<float>(*z);
}

double positive_pressure(double p) {
    return p == 0 ? kInsteadOfNoPressure : p;
}

void fill(SurfaceGrid& grid, const Surface& s, const Clip& clip) {
    for (int j = 0; j < grid.ny; ++j) {
        const double y = grid.y(j);
        // The dome of a row of nodes is the same for all of them.
        std::optional<Equilibrium> e;
        if (s.kind.z == Axis::p) e = equilibrium_at_T(s.fluid, y / s.T_factor);
        if (s.kind.z == Axis::T) e = equilibrium_at_p(s.fluid, y / s.p_factor);
        for (int i = 0; i < grid.nx; ++i) {
            const double x = grid.x(i);
            Value z;
            if (s.kind.z == Axis::p) {
                z = pressure_of_node(s, e, y / s.T_factor, x / s.v_factor);
            } else if (s.kind.z == Axis::T) {
                z = temperature_of_node(s, e, x / s.v_factor, positive_pressure(y / s.p_factor));
            } else if (s.kind.z == Axis::v) {
                z = volume_of_node(s, positive_pressure(x / s.p_factor), y / s.T_factor);
            } else {
                z = caloric_of_node(s, positive_pressure(x / s.p_factor), y / s.T_factor);
            }
            store(grid, clip, i, j, z);
        }
    }
}

/// Nodes at equal distances between two limits.
void set_axis(const Limits& limits, int nodes, double& start, double& step) {
    start = static_cast<double>(limits.low);
    step = (static_cast<double>(limits.high) - start) / (nodes - 1);
}

/// The surface in units of the computation.
SurfaceGrid computed_grid(const SurfaceKind& kind, const Basis& basis, const SurfaceLimits& limits,
                          bool s_curve, int nx, int ny) {
    SurfaceGrid grid;
    grid.resize(std::clamp(nx, kFewestNodes, kMostNodes), std::clamp(ny, kFewestNodes, kMostNodes));
    grid.z_behind_holes.assign(grid.z.size(), grid.hole);
    set_axis(limits_of(limits, kind.x), grid.nx, grid.x0, grid.dx);
    set_axis(limits_of(limits, kind.y), grid.ny, grid.y0, grid.dy);
    try {
        fill(grid, {.kind = kind, .basis = basis, .s_curve = s_curve}, clip_of(kind, limits));
    } catch (const std::exception&) {
        // Units that cannot be had leave nothing to show: the holes stay.
        std::fill(grid.z.begin(), grid.z.end(), grid.hole);
    }
    return grid;
}

}  // namespace

void convert_grid(SurfaceGrid& grid, const AxisScale& x, const AxisScale& y, const AxisScale& z) {
    grid.x0 = x(grid.x0);
    grid.dx *= x.factor;
    grid.y0 = y(grid.y0);
    grid.dy *= y.factor;
    if (z.is_identity()) return;
    for (std::vector<float>* values : {&grid.z, &grid.z_behind_holes})
        for (float& value : *values)
            if (!grid.is_hole(value)) value = numbers::to_single(z(static_cast<double>(value)));
}

SurfaceGrid surface_grid(const SurfaceKind& kind, const Basis& basis, const SurfaceLimits& limits,
                         bool s_curve, int nx, int ny) {
    const auto scale = [&](Axis axis) { return shown_scale(nullptr, axis, basis); };
    const AxisScale x = scale(kind.x), y = scale(kind.y), z = scale(kind.z);
    if (x.is_identity() && y.is_identity() && z.is_identity())
        return computed_grid(kind, basis, limits, s_curve, nx, ny);
    const SurfaceLimits computed = converted_limits(
        limits, kind, [&](Axis axis, double value) { return scale(axis).back(value); });
    SurfaceGrid grid = computed_grid(kind, basis, computed, s_curve, nx, ny);
    convert_grid(grid, x, y, z);
    return grid;
}

bool has_surface(const SurfaceGrid& grid) {
    return std::any_of(grid.z.begin(), grid.z.end(), [&](float z) { return !grid.is_hole(z); });
}

}  // namespace quor::diagrams
