#pragma once

#include "legacy/declare.h"

namespace quor::models {

/// What a kernel needs to know: the substance, the choice of models and the constants that belong
/// to them. It only refers to the records; they must outlive it.
struct Fluid {
    const models::SubstanceRecord& substance;
    const models::ModelSelection& models;
    const models::EOSParameters& eos;
    const models::JiTorvikParameters& jt;
};

/// The process-level records as a `Fluid`.
inline Fluid current_fluid() {
    return {legacy::the_substance, legacy::the_models, legacy::the_eosParameters,
            legacy::the_jiTorvik};
}

}  // namespace quor::models
