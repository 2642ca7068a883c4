#include "session/options.h"

#include <algorithm>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "session/module2.h"

namespace quor::session {

using legacy::the_session;

namespace {
void (*applied)() = nullptr;
}

OptionChoice open_options() {
    OptionChoice c;
    c.reducedPossible =
        legacy::the_substance.Tcrit * legacy::the_substance.pcrit > constants::kPresent;
    if (!c.reducedPossible) the_session.UnitMode = 0;
    c.specific = the_session.CaloricUnit == 3;
    c.batch = the_session.BatchMode;
    c.reduced = the_session.UnitMode == 2;
    c.realRange = the_session.CurveRealRangeOnly;
    c.sWithoutTieLine = the_session.CurveSWithoutTieLine;
    c.sCurvePossible = !legacy::the_models.EOSOnlyV;
    c.partialGas = the_session.PartialGasCurve;
    c.points = std::clamp<int>(the_session.PointsPerCurve, kMinPoints, kMaxPoints);
    return c;
}

bool apply_options(const OptionChoice& c) {
    const double oldCaloric = the_session.CaloricFactor, oldVolume = the_session.VolumeFactor;
    const std::int16_t caloricUnit = c.specific ? 3 : 0;
    try {
        const double factor = caloric_factor_of(caloricUnit, the_session.DiagramT);
        the_session.UnitsChanged = false;
        the_session.CaloricUnit = caloricUnit;
        the_session.UnitMode = c.reduced ? 2 : c.specific ? 1 : 0;
        the_session.CaloricFactor = factor;
        refresh_units();
    } catch (const faults::Fault& fault) {
        dialogs::tell(fault.what(), "Execution not possible", dialogs::Icon::Stop);
        return false;
    }
    the_session.CurveRealRangeOnly = c.realRange;
    the_session.CurveSWithoutTieLine = c.sWithoutTieLine;
    the_session.PartialGasCurve = c.partialGas;
    the_session.UnitsChanged =
        the_session.CaloricFactor != oldCaloric || the_session.VolumeFactor != oldVolume;
    the_session.PointsPerCurve =
        static_cast<std::int16_t>(std::clamp(c.points, kMinPoints, kMaxPoints));
    the_session.BatchMode = c.batch;
    if (applied != nullptr) applied();
    return true;
}

void on_options_applied(void (*listener)()) {
    applied = listener;
}

}  // namespace quor::session
