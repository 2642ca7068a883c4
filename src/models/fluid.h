#pragma once

#include "session/declare.h"

namespace Calc {

/// What a kernel needs to know: the substance, the choice of models and the constants that belong
/// to them. It only refers to the records; they must outlive it.
struct Fluid {
    const Declare::SubstanceRecord& substance;
    const Declare::ModelSelection& models;
    const Declare::EOSParameters& eos;
    const Declare::JiTorvikParameters& jt;
};

/// The process-level records as a `Fluid`.
inline Fluid CurrentFluid() {
    return {Declare::substance, Declare::models, Declare::eosParameters, Declare::jiTorvik};
}

}  // namespace Calc
