#pragma once

#include <array>
#include <vector>

#include "calculation/result_text.h"
#include "session/declare.h"

namespace Zentrale {

/// What `CalcBatch` leaves behind, as it was when the object was made: for callers that calculate
/// beside the user's own calculation. `restore` brings it back, but not `ResultRecords`.
class CalculationSnapshot {
  public:
    void restore() const;

  private:
    ResultText text_ = resultText;
    Declare::FuArray Fu_ = Declare::Fu;
    Declare::ResultRecord current_ = Declare::currentResult;
    Declare::LastState last_ = Declare::lastState;
    std::array<double, 3> roots_ = Declare::vRoots;
    Declare::EOSState eosState_ = Declare::eosState;
    double Bvirial_ = Declare::Bvirial;
    std::int16_t region_ = Declare::PhaseRegion;
    Declare::BatchDataSet input_ = Declare::BatchData.front();
};

}  // namespace Zentrale
