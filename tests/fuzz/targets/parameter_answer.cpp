#include <cmath>

#include "harness.h"
#include "models/parameter_program.h"

using namespace quor;

namespace {

/// The answer of the separate program that fits the parameters of Ji/Torvik.
bool read(std::string_view input) {
    bool taken = false;
    for (const models::Eos form : {models::Eos::jiTorvik1, models::Eos::jiTorvik2}) {
        const auto parameters = models::parameters_of_answer(input, form);
        if (!parameters) continue;
        taken = true;
        const auto& [a0, k, zc, m, p, q, omega_a, omega_b, omega_c] = *parameters;
        for (const double value : {a0, k, zc, m, p, q, omega_a, omega_b, omega_c})
            FUZZ_CHECK(std::isfinite(value));
        FUZZ_CHECK(zc > 0 && zc < 1);
    }
    return taken;
}

const fuzz::Registered registered("parameter_answer", read);

}  // namespace
