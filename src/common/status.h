#pragma once

#include <cstdint>

/// What a solver or parameter routine reports: 0 success, -1 failure of a solver, a positive value
/// a failure of a parameter routine.
using Status = std::int16_t;

inline constexpr Status kSuccess = 0;
inline constexpr Status kFailure = -1;
