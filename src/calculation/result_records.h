#pragma once

#include <cstdint>

#include "datafiles/measured_data.h"

namespace quor::calculation {

using BatchDataSet = datafiles::MeasuredPoint;

/// What is filled into a tank.
struct Tank {
    float V = 0;  ///< m^3
    float m = 0;  ///< kg
    float T = 0;  ///< K
};

}  // namespace quor::calculation
