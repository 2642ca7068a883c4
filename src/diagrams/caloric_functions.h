#pragma once

#include "diagrams/basis.h"
#include "models/caloric.h"
#include "models/reference_state.h"

namespace quor::diagrams {

/// The caloric values of states on a basis. The reference is settled and the surroundings are
/// solved once.
class CaloricFunctions {
  public:
    explicit CaloricFunctions(const Basis& basis)
        : fluid_(basis.fluid), reference_(basis.reference) {
        models::settle_reference(reference_);
        surroundings_ = models::surroundings_state(fluid_, reference_);
    }
    /// At T/K, p/kPa, v in m^3/kmol; see `models::state_functions`.
    std::optional<models::StateValues> operator()(double T, double p, double v) const {
        return models::state_functions(fluid_, reference_, surroundings_, T, p, v);
    }

  private:
    models::Fluid fluid_;
    models::ReferenceState reference_;
    std::optional<models::Surroundings> surroundings_;
};

}  // namespace quor::diagrams
