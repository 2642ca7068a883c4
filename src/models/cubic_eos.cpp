#include "models/cubic_eos.h"

#include "common/dialogs.h"
#include "common/faults.h"
#include "models/parameter_program.h"

namespace quor::models {

EOSState eos_at(const Fluid& f, double T, const EOSState& previous) {
    return T < constants::kPresent ? previous : f.equation().at(f, T);
}

}  // namespace quor::models
