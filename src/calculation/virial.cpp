#include "models/virial.h"
#include "calculation/work.h"
#include "models/cubic_eos.h"

/// The second virial coefficients of all equations.
namespace quor::calculation {

namespace {

constexpr std::int16_t kFirstVirial = 11, kLastVirial = 16;
constexpr std::int16_t kFirstCubic = 2, kLastTwin = 6;
constexpr std::int16_t kToTwin = 9;

/// B of a virial code at T/K for the substance.
double virial_of(const models::Fluid& fluid, std::int16_t code, double T) {
    models::JiTorvikParameters jt;
    models::ModelSelection models = fluid.models();
    models.EOSModel = code;
    models.EOSOnlyV = true;
    const models::EOSParameters eos = models::eos_constants(code, true, fluid.substance(), jt);
    models::EOSState state;
    return models::second_virial({fluid.substance(), models, eos, jt}, code, T, state);
}

bool has_twin(std::int16_t code) {
    return code >= kFirstCubic && code <= kLastTwin;
}

}  // namespace

void virial_coefficients(Work& work) {
    if (!fetch_t(work)) return;
    Answer& a = work.answer;
    for (std::int16_t code = kFirstVirial; code <= kLastVirial; ++code)
        a.virials.push_back({code, virial_of(work.fluid(), code, a.T)});
    // A cubic form has the coefficient of its virial twin.
    const std::int16_t active = work.models().EOSModel;
    const auto twin = static_cast<std::int16_t>(active + kToTwin);
    a.activeVirial = has_twin(active) ? virial_of(work.fluid(), twin, a.T) : active_virial(work);
    if (!has_twin(active) && (active < kFirstVirial || active > kLastVirial))
        a.virials.push_back({active, *a.activeVirial});
}

}  // namespace quor::calculation
