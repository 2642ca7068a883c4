#pragma once

/// Constants of the whole system. They are written to these digits everywhere.
namespace quor::constants {

inline constexpr double R = 8.31451;                ///< gas constant, kJ/(kmol K)
inline constexpr double kLn10 = 2.30258509299405;   ///< ln 10
inline constexpr double kNormalPressure = 101.325;  ///< kPa
inline constexpr double kZeroCelsius = 273.15;      ///< K
inline constexpr double kPresent = 1e-6;            ///< a field above this counts as available

}  // namespace quor::constants
