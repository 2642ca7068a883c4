#include "models/cubic_eos.h"

namespace quor::models {

EosState eos_at(const Fluid& f, double T, const EosState& previous) {
    return T < constants::kPresent ? previous : f.equation().at(f, T);
}

}  // namespace quor::models
