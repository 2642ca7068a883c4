#include "session/options.h"

#include <algorithm>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/faults.h"
#include "session/module2.h"

namespace Module2 {

using Declare::session;

namespace {
void (*applied)() = nullptr;
}

OptionChoice OpenOptions() {
    OptionChoice c;
    c.reducedPossible = Declare::substance.Tcrit * Declare::substance.pcrit > constants::kPresent;
    if (!c.reducedPossible) session.UnitMode = 0;
    c.specific = session.CaloricUnit == 3;
    c.batch = session.BatchMode;
    c.reduced = session.UnitMode == 2;
    c.realRange = session.CurveRealRangeOnly;
    c.sWithoutTieLine = session.CurveSWithoutTieLine;
    c.sCurvePossible = !Declare::models.EOSOnlyV;
    c.partialGas = session.PartialGasCurve;
    c.points = std::clamp<int>(session.PointsPerCurve, kMinPoints, kMaxPoints);
    return c;
}

bool ApplyOptions(const OptionChoice& c) {
    const double oldCaloric = session.CaloricFactor, oldVolume = session.VolumeFactor;
    const std::int16_t caloricUnit = c.specific ? 3 : 0;
    try {
        const double factor = CaloricFactorOf(caloricUnit, session.DiagramT);
        session.UnitsChanged = false;
        session.CaloricUnit = caloricUnit;
        session.UnitMode = c.reduced ? 2 : c.specific ? 1 : 0;
        session.CaloricFactor = factor;
        RefreshUnits();
    } catch (const faults::Fault& fault) {
        dialogs::Tell(fault.what(), "Execution not possible", dialogs::Icon::Stop);
        return false;
    }
    session.CurveRealRangeOnly = c.realRange;
    session.CurveSWithoutTieLine = c.sWithoutTieLine;
    session.PartialGasCurve = c.partialGas;
    session.UnitsChanged = session.CaloricFactor != oldCaloric || session.VolumeFactor != oldVolume;
    session.PointsPerCurve =
        static_cast<std::int16_t>(std::clamp(c.points, kMinPoints, kMaxPoints));
    session.BatchMode = c.batch;
    if (applied != nullptr) applied();
    return true;
}

void OnOptionsApplied(void (*listener)()) {
    applied = listener;
}

}  // namespace Module2
