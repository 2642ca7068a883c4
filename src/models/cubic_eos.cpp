#include "models/cubic_eos.h"

namespace quor::models {

EOSState eos_at(const Fluid& f, double T, const EOSState& previous) {
    return T < constants::kPresent ? previous : f.equation().at(f, T);
}

}  // namespace quor::models
