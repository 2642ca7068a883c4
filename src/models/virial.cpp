#include "models/virial.h"

#include "common/constants.h"

namespace quor::models {

double second_virial(const Fluid& f, double T, EosState& state) {
    return T < constants::kPresent ? 0 : f.equation().second_virial(f, T, state);
}

Virial virial(const Fluid& f, double T) {
    return T < constants::kPresent ? Virial{} : f.equation().virial(f, T);
}

}  // namespace quor::models
