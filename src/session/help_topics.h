#pragma once

#include <cstdint>

/// Numbers of the help pages. A view opens its page by number; the pages of the models are found by
/// adding the model's code.
namespace help {

inline constexpr int kContents = 0;
inline constexpr int kTips = 500;
inline constexpr int kSubstanceChoice = 1000;
inline constexpr int kEquationsOfState = 2000;  ///< + `EOSModel`
inline constexpr int kVapourPressure = 2100;    ///< + `VPModel`
inline constexpr int kVaporisation = 2200;      ///< + `HLVModel`
inline constexpr int kLiquidDensity = 2300;
inline constexpr int kIdealGasCp = 2400;
inline constexpr int kPriority = 2500;
inline constexpr int kManualVirial = 2600;
inline constexpr int kGlobalPartial = 3060;
inline constexpr int kReferencePoint = 3100;
inline constexpr int kTank = 3500;
inline constexpr int kIsoCalculator = 3700;
inline constexpr int kSubstanceData = 4000;
inline constexpr int kTriplePoint = 4010;
inline constexpr int kCorrelatedAntoine = 4020;
inline constexpr int kWatsonPoint = 4030;
inline constexpr int kXYEditor = 4100;
inline constexpr int kFitting = 4200;
inline constexpr int kGroupContributions = 4300;
inline constexpr int kRealRange = 8555;
inline constexpr int kReferenceState = 12000;

}  // namespace help
