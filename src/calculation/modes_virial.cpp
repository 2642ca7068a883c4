#include <string>

#include "calculation/job.h"
#include "common/faults.h"
#include "common/text.h"
#include "legacy/current_fluid.h"
#include "models/cubic_eos.h"
#include "models/model_codes.h"
#include "models/model_tables.h"
#include "models/virial.h"

/// Mode 11: the second virial coefficients of all equations.
namespace quor::calculation {

namespace {

constexpr std::int16_t kFirstVirial = 11, kLastVirial = 16;
constexpr std::int16_t kFirstCubic = 2, kLastTwin = 6;
constexpr std::int16_t kToTwin = 9;
constexpr std::size_t kNameWidth = 35;

/// B of a virial code at T/K, without touching the active model.
double virial_of(std::int16_t code, double T) {
    const auto fluid = models::current_fluid().with(*models::eos_of_code(code));
    if (!fluid) throw faults::Fault(fluid.reason());
    models::EOSState state;
    return models::second_virial(*fluid, T, state);
}

/// B of the active equation; a cubic form has that of its virial twin.
double active_virial(double T) {
    const std::int16_t code = models::code_of(legacy::the_models.EOSModel);
    if (code >= kFirstCubic && code <= kLastTwin)
        return virial_of(static_cast<std::int16_t>(code + kToTwin), T);
    models::EOSState state;
    return models::second_virial(models::current_fluid(), T, state);
}

void virial_line(Job& job, std::int16_t code, double B) {
    constexpr std::size_t kNumberWidth = 16;
    const std::string name =
        text::pad_right(models::EOSName(*models::eos_of_code(code)), kNameWidth);
    const std::string value = value32(B);
    job.list.add(
        {name + " {B} = " + text::pad_left(value, kNumberWidth), false, {text::trim(name), value}});
}

}  // namespace

void VirialCoefficients(Job& job) {
    if (!fetch_t(job)) return;
    resultText.par1.text = temperature_text(job.T);
    job.list.underlined("Comparison of Virial Coefficients, [B] = m^3/kmol");
    for (std::int16_t code = kFirstVirial; code <= kLastVirial; ++code)
        virial_line(job, code, virial_of(code, job.T));

    const std::int16_t active = models::code_of(legacy::the_models.EOSModel);
    const double B = active_virial(job.T);
    const bool listed = (active >= kFirstCubic && active <= kLastTwin) ||
                        (active >= kFirstVirial && active <= kLastVirial);
    if (!listed) virial_line(job, active, B);
    store_fu(job, 41, B);
}

}  // namespace quor::calculation
