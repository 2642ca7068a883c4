#include "session/options.h"

#include <algorithm>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "session/diagram_choice.h"

namespace quor::session {

namespace {

/// What molar volumes are multiplied with now; that of molar units where the chosen ones cannot be
/// had.
double volume_factor(const Session& session) {
    try {
        return present_units(session).v;
    } catch (const faults::Fault&) {
        return 1;
    }
}

}  // namespace

OptionChoice open_options(Session& session) {
    using models::UnitSystem;
    OptionChoice c;
    c.reducedPossible = session->substance.Tcrit * session->substance.pcrit > constants::kPresent;
    if (!c.reducedPossible) session.change()->unitSystem = UnitSystem::molar;
    c.specific = session->caloricUnit == models::CaloricUnit::specific;
    c.batch = session->batchMode;
    c.reduced = session->unitSystem == UnitSystem::reduced;
    c.realRange = session->curveOptions.realRangeOnly;
    c.sWithoutTieLine = session->curveOptions.sWithoutTieLine;
    c.sCurvePossible = !session->models.EOSOnlyV;
    c.partialGas = session->curveOptions.partialGas;
    c.points = std::clamp(session->curveOptions.points, kMinPoints, kMaxPoints);
    return c;
}

bool apply_options(Session& session, const OptionChoice& c) {
    using models::UnitSystem;
    const models::UnitChoice units{
        .system = c.reduced    ? UnitSystem::reduced
                  : c.specific ? UnitSystem::specific
                               : UnitSystem::molar,
        .caloric = c.specific ? models::CaloricUnit::specific : models::CaloricUnit::molar,
        .T_of_RT = session->diagramAt.T};
    models::Units chosen;
    try {
        chosen = models::make_units(units, session.fluid());
    } catch (const faults::Fault& fault) {
        dialogs::tell(fault.what(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return false;
    }
    const auto now = session.change();
    now->unitsChanged = chosen.caloric != now->caloricFactor || chosen.v != volume_factor(session);
    now->unitSystem = chosen.choice.system;
    now->caloricUnit = units.caloric;
    now->curveOptions = {.points = std::clamp(c.points, kMinPoints, kMaxPoints),
                         .realRangeOnly = c.realRange,
                         .sWithoutTieLine = c.sWithoutTieLine,
                         .partialGas = c.partialGas};
    now->batchMode = c.batch;
    renew_limits(session);
    return true;
}

}  // namespace quor::session
