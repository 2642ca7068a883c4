#pragma once

#include <array>
#include <vector>

#include "calculation/result_text.h"
#include "legacy/declare.h"

namespace quor::calculation {

/// What `CalcBatch` leaves behind, as it was when the object was made: for callers that calculate
/// beside the user's own calculation. `restore` brings it back, but not `ResultRecords`.
class CalculationSnapshot {
  public:
    void restore() const;

  private:
    ResultText text_ = resultText;
    calculation::FuArray Fu_ = legacy::the_Fu;
    calculation::ResultRecord current_ = legacy::the_currentResult;
    calculation::LastState last_ = legacy::the_lastState;
    std::array<double, 3> roots_ = legacy::the_vRoots;
    models::EOSState eosState_ = legacy::the_eosState;
    double Bvirial_ = legacy::the_Bvirial;
    std::int16_t region_ = legacy::the_PhaseRegion;
    calculation::BatchDataSet input_ = legacy::the_BatchData.front();
};

}  // namespace quor::calculation
