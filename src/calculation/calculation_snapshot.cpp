#include "calculation/calculation_snapshot.h"

namespace Zentrale {

void CalculationSnapshot::restore() const {
    resultText = text_;
    Declare::Fu = Fu_;
    Declare::currentResult = current_;
    Declare::lastState = last_;
    Declare::vRoots = roots_;
    Declare::eosState = eosState_;
    Declare::Bvirial = Bvirial_;
    Declare::PhaseRegion = region_;
    Declare::BatchData.front() = input_;
}

}  // namespace Zentrale
