#include "diagrams/curve_frame.h"
#include "legacy/current_fluid.h"

#include <algorithm>
#include <cmath>

#include "common/faults.h"
#include "common/numbers.h"
#include "models/reference_state.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"

namespace quor::diagrams {

using diagrams::CurvePoint;
using legacy::the_session;

Curve::Curve(diagrams::DiagramRequest& requestOfCurve, diagrams::CurvePointArray& pointsOfCurve,
             double TOfCurve, double pOfCurve, double vOfCurve)
    : request(requestOfCurve),
      points(pointsOfCurve),
      fluid(models::current_fluid()),
      substance(legacy::the_substance),
      T(TOfCurve),
      p(pOfCurve),
      v(vOfCurve),
      xMin(static_cast<double>(requestOfCurve.xMin)),
      xMax(static_cast<double>(requestOfCurve.xMax)),
      yMin(static_cast<double>(requestOfCurve.yMin)),
      yMax(static_cast<double>(requestOfCurve.yMax)) {
    steps = std::max<int>(
        1, request.PointsPerCurve > 0 ? request.PointsPerCurve : the_session.PointsPerCurve);
    dX = (xMax - xMin) / steps;
    dY = (yMax - yMin) / steps;
}

void Curve::prepare() {
    session::refresh_units();
    TF = static_cast<double>(the_session.TemperatureFactor);
    PF = static_cast<double>(the_session.PressureFactor);
    VF = the_session.VolumeFactor;
    M = static_cast<double>(substance.M);
    if (T > 0) {
        the_session.CaloricFactor = caloric(T);
        pLVCorr = models::vapour_pressure(substance, T, fluid.models().VPModel).p;
        if (subcritical_T()) atT = equilibrium_at_T(fluid, T);
    }
    if (p > 0) {
        TLVCorr = models::boiling_temperature(substance, p, fluid.models().VPModel).T;
        if (subcritical_p()) atP = equilibrium_at_p(fluid, p);
    }
    models::settle_reference(legacy::the_reference);
    surroundings_ = models::surroundings_state(fluid, legacy::the_reference);
}

void Curve::push(double x, double y, double z) {
    points.push_back({numbers::to_single(x), numbers::to_single(y), numbers::to_single(z)});
}

void Curve::add(double x, double y, double z) {
    push(x, y, z);
    if (x > xMin && x < xMax && y > yMin && y < yMax) outside_ = false;
}

void Curve::add_tested_by_x(double x, double y, double z) {
    push(x, y, z);
    if (x > xMin && x < xMax) outside_ = false;
}

void Curve::add_tested_by_y(double x, double y, double z) {
    push(x, y, z);
    if (y > yMin && y < yMax) outside_ = false;
}

bool Curve::below_triple() {
    if (the_session.CurveRealRangeOnly && fluid.models().EOSModel > models::Eos::idealGas)
        return false;
    status = CurveStatus::kBelowTriple;
    return true;
}

bool Curve::is_real_at_T(double temperature) {
    return temperature >= static_cast<double>(substance.Ttriple) || below_triple();
}

bool Curve::is_real_at_p(double pressure) {
    const auto triple = static_cast<double>(substance.ptriple);
    // A triple pressure above the critical one is a wrong entry of the database.
    return pressure >= triple || triple >= substance.pcrit || below_triple();
}

bool Curve::partial_gas() const {
    return the_session.PartialGasCurve && vapour_only();
}

double Curve::caloric(double temperature) const {
    return session::caloric_factor_of(the_session.CaloricUnit, temperature);
}

std::optional<double> Curve::pressure(double temperature, double volume) const {
    models::EOSState state = models::eos_at(fluid, temperature);
    const models::PressureResult r = models::pressure_from_Tv(fluid, temperature, volume, state);
    if (r.status != kSuccess || !std::isfinite(r.p)) return std::nullopt;
    return r.p;
}

double stable_volume_of(const models::StateTP& state) {
    if (state.status != kSuccess) return 0;
    if (state.hasV != state.hasL) return state.hasV ? state.vV : state.vL;
    // On the phase boundary within the tolerance of the solver the areas still tell the side.
    if (state.hasV) return state.areaRatio < 0 ? state.vL : state.vV;
    return state.v[0];
}

double Curve::stable_volume(double temperature, double pressure) const {
    return stable_volume_of(models::solve_state_tp(fluid, temperature, pressure));
}

models::StateValues Curve::functions(double temperature, double pressure, double volume) const {
    return models::state_functions(fluid, legacy::the_reference, surroundings_, temperature,
                                   pressure, volume);
}

std::optional<double> value_of(const models::StateValues& state, Function function) {
    using models::StateValues;
    if (!state.table.filled) return std::nullopt;
    const bool isExergy = function == &StateValues::eH || function == &StateValues::eU;
    if (state.status != kSuccess && isExergy) return std::nullopt;
    if (function == &StateValues::cp && state.cp == 0) return std::nullopt;
    const double value = state.*function;
    if (!std::isfinite(value)) return std::nullopt;
    return value;
}

namespace {

/// Ascending by a coordinate, stable, in place: curves come in runs that rise or fall, so that a
/// falling run is turned round and the few points added behind it are put in their place.
void sort_by(diagrams::CurvePointArray& points, float CurvePoint::*coordinate) {
    const auto key = [coordinate](const CurvePoint& point) { return point.*coordinate; };
    const auto begin = points.begin() + 1;
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

void Curve::sort_by_x() {
    sort_by(points, &CurvePoint::x);
}

void Curve::sort_by_y() {
    sort_by(points, &CurvePoint::y);
}

}  // namespace quor::diagrams
