#include "diagrams/project_state.h"

#include <cmath>

#include "common/constants.h"
#include "diagrams/curve.h"
#include "diagrams/curve_frame.h"
#include "session/module2.h"

namespace quor::diagrams {

using legacy::the_session;
using models::StateValues;
using Module9::Axis;

namespace {

/// The caloric value that an axis shows; nullptr for an axis that shows none.
Function function_of(Axis axis) {
    switch (axis) {
        case Axis::h:
        case Axis::hSpaced:
            return &StateValues::h;
        case Axis::s:
        case Axis::Tenvs:
            return &StateValues::s;
        case Axis::g:
            return &StateValues::g;
        case Axis::a:
            return &StateValues::a;
        case Axis::u:
            return &StateValues::u;
        case Axis::cp:
            return &StateValues::cp;
        case Axis::cV:
        case Axis::cVIsochoric:
            return &StateValues::cv;
        default:
            return nullptr;
    }
}

/// Exergies of the closed system; every other axis with e shows that of the stream.
bool is_closed_system(std::int16_t code) {
    return code == 95 || code == 155 || code == 160 || code == 181;
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

struct State {
    std::int16_t code;
    double T, p, v;
    const StateValues& functions;
};

std::optional<double> caloric_on_axis(Axis axis, const State& state) {
    const double factor = session::caloric_factor_of(the_session.CaloricUnit, state.T);
    const StateValues& f = state.functions;
    if (const auto column = residual_of(axis)) {
        if (!f.table.filled) return std::nullopt;
        return constants::R * f.table.residual[*column] * factor;
    }
    Function function = function_of(axis);
    if (axis == Axis::e)
        function = is_closed_system(state.code) ? &StateValues::eU : &StateValues::eH;
    if (function == nullptr) return std::nullopt;
    const auto value = value_of(f, function);
    if (!value) return value;
    const double scale = axis == Axis::Tenvs ? legacy::the_reference.Tenv * factor : factor;
    return *value * scale;
}

std::optional<double> on_axis(Axis axis, const State& state) {
    const auto TF = static_cast<double>(the_session.TemperatureFactor);
    const auto PF = static_cast<double>(the_session.PressureFactor);
    const double VF = the_session.VolumeFactor;
    switch (axis) {
        case Axis::T:
            return state.T * TF;
        case Axis::p:
            return state.p * PF;
        case Axis::v:
            return state.v * VF;
        case Axis::rho:
            return static_cast<double>(legacy::the_substance.M) / state.v;
        case Axis::pv:
            return state.p * PF * state.v * VF;
        case Axis::inverseT:
            return 1 / (state.T * TF);
        case Axis::lnp:
            return std::log(state.p * PF);
        case Axis::jouleThomson:
            if (!state.functions.table.filled) return std::nullopt;
            return state.functions.table.residual[models::JouleThomson];
        case Axis::inverseTSlope:
        case Axis::dlnp:
        case Axis::deltaLVh:
        case Axis::cpDatabase:
            return std::nullopt;
        default:
            return caloric_on_axis(axis, state);
    }
}

bool is_caloric(Axis axis) {
    return axis >= Axis::jouleThomson;
}

/// The functions of the database and the slope of the vapour pressure are no states of the fluid.
bool shows_states(const Module9::CatalogueRow& row) {
    const auto shows = [](Axis axis) {
        return axis != Axis::inverseTSlope && axis != Axis::dlnp && axis != Axis::deltaLVh;
    };
    return row.xLimits.low != nullptr && shows(row.x) && shows(row.y);
}

/// z of a diagram whose own curves have no parameter: both axes hold two of T, p, v already.
float mark_for_z(std::int16_t code) {
    const float mark = mark_of(code);
    return mark == kMarkNone ? kMarkV : mark;
}

}  // namespace

Projection project_state(std::int16_t DiagramType, double T, double p, double v,
                         const models::StateValues& functions) {
    const Module9::CatalogueRow* row = Module9::find_row(DiagramType);
    if (row == nullptr || !shows_states(*row) || !(T > 0) || !(p > 0) || !(v > 0)) return {};
    const State state{DiagramType, T, p, v, functions};
    const auto x = on_axis(row->x, state);
    const auto y = on_axis(row->y, state);
    if (!x || !y || !std::isfinite(*x) || !std::isfinite(*y)) return {};

    Projection r{.x = *x, .y = *y, .exists = true};
    const float mark = mark_for_z(DiagramType);
    r.zKind = static_cast<std::int16_t>(mark);
    r.z = mark == kMarkT ? T : mark == kMarkP ? p : v;
    return r;
}

bool needs_functions(std::int16_t DiagramType) {
    const Module9::CatalogueRow* row = Module9::find_row(DiagramType);
    return row != nullptr && (is_caloric(row->x) || is_caloric(row->y));
}

bool ShowsStates(std::int16_t DiagramType) {
    const Module9::CatalogueRow* row = Module9::find_row(DiagramType);
    return row != nullptr && shows_states(*row);
}

}  // namespace quor::diagrams
