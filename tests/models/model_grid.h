#pragma once

#include <functional>
#include <span>
#include <string>

#include "models/fluid.h"

using namespace quor;

/// The sweep over all substances and models that the property tests share.
namespace grid {

using enum models::Eos;

inline constexpr models::Eos kCubic[] = {vanDerWaals,  berthelot, redlichKwong, soave,
                                         pengRobinson, jiTorvik1, jiTorvik2};
inline constexpr models::Eos kVOnly[] = {idealGas,           manualVirial,       virialVanDerWaals,
                                         virialBerthelot,    virialRedlichKwong, virialSoave,
                                         virialPengRobinson, pitzerCurl};
/// Those whose derivatives are exactly those of their B.
inline constexpr models::Eos kVOnlyByFormula[] = {
    idealGas,    virialVanDerWaals,  virialBerthelot, virialRedlichKwong,
    virialSoave, virialPengRobinson, pitzerCurl};

/// Calls `test` for every substance of the table with every equation, with a name for messages.
void ForAll(std::span<const models::Eos> equations,
            const std::function<void(const models::Fluid&, const std::string&)>& test);

}  // namespace grid
