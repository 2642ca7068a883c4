#include "calculation/calculation_snapshot.h"

namespace quor::calculation {

void CalculationSnapshot::restore() const {
    resultText = text_;
    legacy::the_Fu = Fu_;
    legacy::the_currentResult = current_;
    legacy::the_lastState = last_;
    legacy::the_vRoots = roots_;
    legacy::the_eosState = eosState_;
    legacy::the_Bvirial = Bvirial_;
    legacy::the_PhaseRegion = region_;
    legacy::the_BatchData.front() = input_;
}

}  // namespace quor::calculation
