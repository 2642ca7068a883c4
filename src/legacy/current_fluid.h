#pragma once

#include "legacy/declare.h"
#include "models/fluid.h"
#include "models/units.h"

namespace quor::models {

/// The fluid of the process-level records.
Fluid current_fluid();

/// The units of the process-level records. Throws as `make_units`.
inline Units current_units() {
    const legacy::Session& s = legacy::the_session;
    return make_units(
        {static_cast<UnitSystem>(s.UnitMode), static_cast<CaloricUnit>(s.CaloricUnit), s.DiagramT},
        current_fluid());
}

}  // namespace quor::models
