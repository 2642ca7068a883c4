#include "session/options.h"

#include <algorithm>
#include <optional>

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

/// The units of a choice; refused where the substance has not what they need, which is told.
std::optional<models::Units> possible_units(const Session& session, models::UnitChoice choice) {
    choice.T_of_RT = session->diagram_at.T;
    try {
        return models::make_units(choice, session.fluid());
    } catch (const faults::Fault& fault) {
        dialogs::tell(fault.what(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return std::nullopt;
    }
}

bool differ(const Session& session, const models::Units& chosen) {
    return chosen.caloric != session->caloric_factor || chosen.v != volume_factor(session) ||
           chosen.choice.shown != session->units.shown;
}

void take_units(Session& session, const models::Units& chosen) {
    const auto now = session.change();
    now->units_changed = differ(session, chosen);
    now->units = chosen.choice;
    renew_limits(session);
}

}  // namespace

OptionChoice open_options(Session& session) {
    using models::UnitSystem;
    OptionChoice c;
    c.reduced_possible = session->substance.Tcrit * session->substance.pcrit > constants::kPresent;
    if (!c.reduced_possible) session.change()->units.system = UnitSystem::molar;
    c.batch = session->batch_mode;
    c.units = session->units;
    c.real_range = session->curve_options.real_range_only;
    c.s_without_tie_line = session->curve_options.s_without_tie_line;
    c.s_curve_possible = !session->models.vapour_only;
    c.partial_gas = session->curve_options.partial_gas;
    c.points = std::clamp(session->curve_options.points, kMinPoints, kMaxPoints);
    return c;
}

bool apply_units(Session& session, const models::UnitChoice& units) {
    const std::optional<models::Units> chosen = possible_units(session, units);
    if (chosen) take_units(session, *chosen);
    return chosen.has_value();
}

bool apply_options(Session& session, const OptionChoice& c) {
    const std::optional<models::Units> chosen = possible_units(session, c.units);
    if (!chosen) return false;
    const auto now = session.change();
    now->curve_options = {.points = std::clamp(c.points, kMinPoints, kMaxPoints),
                          .real_range_only = c.real_range,
                          .s_without_tie_line = c.s_without_tie_line,
                          .partial_gas = c.partial_gas};
    now->batch_mode = c.batch;
    take_units(session, *chosen);
    return true;
}

}  // namespace quor::session
