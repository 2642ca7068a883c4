#include "diagrams/project_state.h"

#include <cmath>

#include "common/constants.h"
#include "diagrams/curve_frame.h"

namespace quor::diagrams {

using models::StateValues;

namespace {

struct State {
    const Basis& basis;
    double T, p, v;
    const std::optional<StateValues>& functions;
};

std::optional<double> caloric_on_axis(Axis axis, const State& state) {
    const double factor = state.basis.caloric(state.T);
    if (const auto column = residual_of(axis)) {
        if (!state.functions) return std::nullopt;
        return constants::R * state.functions->table.residual[*column] * factor;
    }
    const std::optional<Function> function = function_of(axis);
    const auto value = function ? value_of(state.functions, *function) : std::nullopt;
    if (!value) return value;
    const double scale = axis == Axis::Tenvs ? state.basis.reference.Tenv * factor : factor;
    return *value * scale;
}

std::optional<double> on_axis(Axis axis, const State& state) {
    const double T_factor = state.basis.T_factor(), p_factor = state.basis.p_factor(),
                 v_factor = state.basis.v_factor();
    switch (axis) {
        case Axis::T:
            return state.T * T_factor;
        case Axis::p:
            return state.p * p_factor;
        case Axis::v:
            return state.v * v_factor;
        case Axis::rho:
            return state.basis.M() / state.v;
        case Axis::pv:
            return state.p * p_factor * state.v * v_factor;
        case Axis::inverseT:
            return 1 / (state.T * T_factor);
        case Axis::lnp:
            return std::log(state.p * p_factor);
        case Axis::jouleThomson:
            if (!state.functions) return std::nullopt;
            return state.functions->table.residual[models::JouleThomson];
        case Axis::none:
        case Axis::inverseTSlope:
        case Axis::dlnp:
        case Axis::deltaLVh:
        case Axis::cpDatabase:
            return std::nullopt;
        default:
            return caloric_on_axis(axis, state);
    }
}

/// z of a diagram whose own curves have no parameter: both axes hold two of T, p, v already.
Parameter parameter_for_z(const Diagram& diagram) {
    return diagram.parameter == Parameter::none ? Parameter::v : diagram.parameter;
}

}  // namespace

std::optional<Projection> project_state(const Diagram& diagram, const Basis& basis,
                                        const StateParameters& at,
                                        const std::optional<StateValues>& functions) {
    if (!shows_states(diagram) || !(at.T > 0) || !(at.p > 0) || !(at.v > 0)) return std::nullopt;
    const State state{basis, at.T, at.p, at.v, functions};
    const auto x = on_axis(diagram.x, state);
    const auto y = on_axis(diagram.y, state);
    if (!x || !y || !std::isfinite(*x) || !std::isfinite(*y)) return std::nullopt;
    const Parameter parameter = parameter_for_z(diagram);
    const double z = parameter == Parameter::T ? at.T : parameter == Parameter::p ? at.p : at.v;
    return Projection{*x, *y, z, parameter};
}

}  // namespace quor::diagrams
