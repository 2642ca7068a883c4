#pragma once

#include <cstdint>
#include <string>

namespace quor::models {

/// Which model is active for each of the five property families (codes: models/model_tables.h).
struct ModelSelection {
    std::int16_t EOSModel = -1;  ///< code of the equation of state, -1 before a first choice
    bool EOSOnlyV = false;       ///< the EOS describes only the V phase (codes 0, 10 to 16)
    std::int16_t VPModel = 0;    ///< 0 to 8
    std::string VPCode = "0";    ///< its three-letter code, "000" for none, "0" at start
    std::int16_t HLVModel = 0;   ///< 1 to 7, 0 before a choice
    float WatsonN = 0;           ///< Watson exponent
    std::int16_t CpModel = 0;    ///< 0 to 2
    bool PriorityCEOS = true;    ///< p(LV), T(LV) come from the cubic EOS

    bool operator==(const ModelSelection&) const = default;
};

}  // namespace quor::models
