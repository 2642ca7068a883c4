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

/// The units of a choice; refused where the substance has not what they need.
Result<models::Units> units_of(const Session& session, const OptionChoice& c) {
    using models::UnitSystem;
    const models::UnitChoice units{
        .system = c.reduced    ? UnitSystem::reduced
                  : c.specific ? UnitSystem::specific
                               : UnitSystem::molar,
        .caloric = c.specific ? models::CaloricUnit::specific : models::CaloricUnit::molar,
        .T_of_RT = session->diagram_at.T};
    try {
        return models::make_units(units, session.fluid());
    } catch (const faults::Fault& fault) {
        return Failure{fault.what()};
    }
}

bool differ(const Session& session, const models::Units& chosen) {
    return chosen.caloric != session->caloric_factor || chosen.v != volume_factor(session);
}

}  // namespace

OptionChoice open_options(Session& session) {
    using models::UnitSystem;
    OptionChoice c;
    c.reduced_possible = session->substance.Tcrit * session->substance.pcrit > constants::kPresent;
    if (!c.reduced_possible) session.change()->units.system = UnitSystem::molar;
    c.specific = session->units.caloric == models::CaloricUnit::specific;
    c.batch = session->batch_mode;
    c.reduced = session->units.system == UnitSystem::reduced;
    c.real_range = session->curve_options.real_range_only;
    c.s_without_tie_line = session->curve_options.s_without_tie_line;
    c.s_curve_possible = !session->models.vapour_only;
    c.partial_gas = session->curve_options.partial_gas;
    c.points = std::clamp(session->curve_options.points, kMinPoints, kMaxPoints);
    return c;
}

bool changes_units(const Session& session, const OptionChoice& c) {
    const Result<models::Units> chosen = units_of(session, c);
    return chosen && differ(session, *chosen);
}

bool apply_options(Session& session, const OptionChoice& c) {
    const Result<models::Units> chosen = units_of(session, c);
    if (!chosen) {
        dialogs::tell(chosen.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return false;
    }
    const auto now = session.change();
    now->units_changed = differ(session, *chosen);
    now->units.system = chosen->choice.system;
    now->units.caloric = chosen->choice.caloric;
    now->curve_options = {.points = std::clamp(c.points, kMinPoints, kMaxPoints),
                          .real_range_only = c.real_range,
                          .s_without_tie_line = c.s_without_tie_line,
                          .partial_gas = c.partial_gas};
    now->batch_mode = c.batch;
    renew_limits(session);
    return true;
}

}  // namespace quor::session
