#include "diagrams/curve_frame.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "chart/chart2d.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "models/reference_state.h"
#include "models/vapour_pressure.h"

namespace quor::diagrams {

using models::StateValues;

CurveFrame::CurveFrame(const Basis& basis_of_curve, const CurveRequest& request_of_curve,
                       CurvePoints room)
    : basis(basis_of_curve),
      request(request_of_curve),
      diagram(*request_of_curve.curve),
      axes(request_of_curve.axes()),
      fluid(basis_of_curve.fluid),
      substance(basis_of_curve.fluid.substance()),
      options(request_of_curve.options),
      result{.points = std::move(room)},
      points(result.points),
      T(request_of_curve.at.T),
      p(request_of_curve.at.p),
      v(request_of_curve.at.v),
      x_min(static_cast<double>(request_of_curve.window.x_min)),
      x_max(static_cast<double>(request_of_curve.window.x_max)),
      y_min(static_cast<double>(request_of_curve.window.y_min)),
      y_max(static_cast<double>(request_of_curve.window.y_max)) {
    steps = std::max(1, options.points);
    dx = (x_max - x_min) / steps;
    dy = (y_max - y_min) / steps;
    points.clear();
}

void CurveFrame::prepare() {
    T_factor = basis.T_factor();
    p_factor = basis.p_factor();
    v_factor = basis.v_factor();
    M = basis.M();
    if (T > 0) {
        // A caloric unit that cannot be had ends the curve before its first point.
        (void)caloric(T);
        if (const auto r = models::vapour_pressure(substance, T, fluid.models().vapour_pressure))
            pLV_correlated = r->p;
        if (subcritical_T()) at_T = equilibrium_at_T(fluid, T);
    }
    if (p > 0) {
        if (const auto r =
                models::boiling_temperature(substance, p, fluid.models().vapour_pressure))
            TLV_correlated = r->T;
        if (subcritical_p()) at_p = equilibrium_at_p(fluid, p);
    }
    reference_ = basis.reference;
    models::settle_reference(reference_);
    surroundings_ = models::surroundings_state(fluid, reference_);
}

void CurveFrame::push(double x, double y, double z) {
    points.push_back({numbers::to_single(x), numbers::to_single(y), numbers::to_single(z)});
}

void CurveFrame::add(double x, double y, double z) {
    push(x, y, z);
    if (x > x_min && x < x_max && y > y_min && y < y_max) outside_ = false;
}

void CurveFrame::add_tested_by_x(double x, double y, double z) {
    push(x, y, z);
    if (x > x_min && x < x_max) outside_ = false;
}

void CurveFrame::add_tested_by_y(double x, double y, double z) {
    push(x, y, z);
    if (y > y_min && y < y_max) outside_ = false;
}

void CurveFrame::add_gap() {
    if (!points.empty()) points.push_back({points.back().x, chart::kHole, points.back().z});
}

bool CurveFrame::below_triple() {
    if (real_range_only()) return false;
    set_status(CurveStatus::belowTriple);
    return true;
}

bool CurveFrame::is_real_at_T(double temperature) {
    return temperature >= static_cast<double>(substance.Ttriple) || below_triple();
}

bool CurveFrame::is_real_at_p(double pressure) {
    const auto triple = static_cast<double>(substance.ptriple);
    // A triple pressure above the critical one is a wrong entry of the database.
    return pressure >= triple || triple >= substance.pcrit || below_triple();
}

std::optional<double> CurveFrame::pressure(double temperature, double volume) const {
    models::EosState state = models::eos_at(fluid, temperature);
    return models::pressure_from_Tv(fluid, temperature, volume, state);
}

std::optional<double> stable_volume_of(const Result<models::StateTP, models::NoState>& state) {
    if (!state) return std::nullopt;
    if (state->has_V != state->has_L) return state->has_V ? state->vV : state->vL;
    // On the phase boundary within the tolerance of the solver the areas still tell the side.
    if (state->has_V) return state->areas.ratio < 0 ? state->vL : state->vV;
    return state->v[0];
}

std::optional<double> CurveFrame::stable_volume(double temperature, double pressure) const {
    return stable_volume_of(models::solve_state_tp(fluid, temperature, pressure));
}

std::optional<StateValues> CurveFrame::functions(double temperature, double pressure,
                                                 double volume) const {
    return models::state_functions(fluid, reference_, surroundings_, temperature, pressure, volume);
}

namespace {

double caloric_value(const StateValues& z, Function function) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    switch (function) {
        case Function::h:
            return z.h;
        case Function::u:
            return z.u;
        case Function::s:
            return z.s;
        case Function::g:
            return z.g;
        case Function::a:
            return z.a;
        case Function::eH:
            return z.exergies ? z.exergies->H : kNone;
        case Function::eU:
            return z.exergies ? z.exergies->U : kNone;
        case Function::cp:
            return z.cp != 0 ? z.cp : kNone;
        case Function::cv:
            return z.cv;
    }
    return kNone;
}

}  // namespace

std::optional<double> value_of(const std::optional<StateValues>& state, Function function) {
    if (!state) return std::nullopt;
    const double value = caloric_value(*state, function);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<Function> function_of(Axis axis) {
    switch (axis) {
        case Axis::h:
        case Axis::hSpaced:
            return Function::h;
        case Axis::s:
        case Axis::Tenvs:
            return Function::s;
        case Axis::g:
            return Function::g;
        case Axis::a:
            return Function::a;
        case Axis::u:
            return Function::u;
        case Axis::eH:
            return Function::eH;
        case Axis::eU:
            return Function::eU;
        case Axis::cp:
            return Function::cp;
        case Axis::cV:
        case Axis::cVIsochoric:
            return Function::cv;
        default:
            return std::nullopt;
    }
}

std::optional<models::Residual> residual_of(Axis axis) {
    switch (axis) {
        case Axis::deltas:
            return models::ResS;
        case Axis::deltah:
            return models::ResH;
        case Axis::deltag:
            return models::ResG;
        case Axis::deltacp:
            return models::ResCp;
        default:
            return std::nullopt;
    }
}

namespace {

/// Ascending by a coordinate, stable, in place: curves come in runs that rise or fall, so that a
/// falling run is turned round and the few points added behind it are put in their place.
void sort_by(CurvePoints& points, float CurvePoint::*coordinate) {
    const auto key = [coordinate](const CurvePoint& point) { return point.*coordinate; };
    const auto begin = points.begin();
    auto run = begin;
    while (run != points.end() && run + 1 != points.end() && key(*(run + 1)) < key(*run)) ++run;
    if (run != points.end()) std::reverse(begin, run + 1);
    for (auto it = begin; it != points.end(); ++it) {
        const CurvePoint point = *it;
        const auto place = std::upper_bound(
            begin, it, point,
            [&](const CurvePoint& a, const CurvePoint& b) { return key(a) < key(b); });
        std::move_backward(place, it, it + 1);
        *place = point;
    }
}

}  // namespace

void CurveFrame::sort_by_x() {
    sort_by(points, &CurvePoint::x);
}

void CurveFrame::sort_by_y() {
    sort_by(points, &CurvePoint::y);
}

}  // namespace quor::diagrams
