#pragma once

#include "models/caloric.h"
#include "models/cubic_eos.h"
#include "models/reference_state.h"

using namespace quor;

/// A fluid with its zero of h and s and its surroundings: all that caloric functions need.
struct Medium {
    models::Fluid fluid;
    models::ReferenceState reference;
    std::optional<models::Surroundings> surroundings;

    explicit Medium(const models::Fluid& f, const models::ReferenceState& zero = {})
        : fluid(f), reference(zero) {
        models::settle_reference(reference);
        surroundings = models::surroundings_state(fluid, reference);
    }
    double Tcrit() const { return fluid.substance().Tcrit; }
    /// Of the ideal gas; 0 without one.
    double cp(double T) const {
        return models::ideal_gas_cp(fluid.substance(), fluid.models().cp_form, T).value_or(0);
    }
    std::optional<models::IdealGasState> ideal(double T, double p) const {
        return models::ideal_gas_functions(fluid.substance(), fluid.models().cp_form, reference, T,
                                           p);
    }
    std::optional<models::PhaseTable> residual(double T, double p, double v) const {
        return models::residual_functions(fluid, models::eos_at(fluid, T), T, p, v);
    }
    std::optional<models::StateValues> state(double T, double p, double v) const {
        return models::state_functions(fluid, reference, surroundings, T, p, v);
    }
    std::optional<models::SaturationValues> saturation(double T) const {
        return models::saturation_functions(fluid, reference, surroundings, T);
    }
};
