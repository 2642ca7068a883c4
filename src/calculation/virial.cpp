#include "models/virial.h"

#include <algorithm>
#include <iterator>

#include "calculation/work.h"
#include "common/faults.h"

/// The second virial coefficients of all equations.
namespace quor::calculation {

using models::Eos;

namespace {

/// The virial forms, and the cubic equations that some are made from.
struct Form {
    Eos virial, cubic;
};
constexpr Form kForms[] = {
    {Eos::virialVanDerWaals, Eos::vanDerWaals},   {Eos::virialBerthelot, Eos::berthelot},
    {Eos::virialRedlichKwong, Eos::redlichKwong}, {Eos::virialSoave, Eos::soave},
    {Eos::virialPengRobinson, Eos::pengRobinson}, {Eos::pitzerCurl, Eos::none}};

/// B of a virial form at T/K for the substance.
double virial_of(const models::Fluid& fluid, Eos eos, double T) {
    const auto other = fluid.with(eos);
    if (!other) throw faults::Fault(other.reason());
    models::EosState state;
    return faults::finite(models::second_virial(*other, T, state));
}

}  // namespace

void virial_coefficients(Work& work) {
    if (!fetch_t(work)) return;
    Answer& a = work.answer;
    for (const Form& form : kForms)
        a.virials.push_back({form.virial, virial_of(work.fluid(), form.virial, a.T)});
    // A cubic form has the coefficient of its virial form.
    const Eos active = work.models().eos;
    const auto* const form =
        std::find_if(std::begin(kForms), std::end(kForms), [&](const Form& one) {
            return one.virial == active || (one.cubic == active && active != Eos::none);
        });
    const bool listed = form != std::end(kForms);
    a.active_virial = listed && form->cubic == active ? virial_of(work.fluid(), form->virial, a.T)
                                                      : active_virial(work);
    if (!listed) a.virials.push_back({active, *a.active_virial});
}

}  // namespace quor::calculation
