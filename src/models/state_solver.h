#pragma once

#include <array>
#include <string_view>

#include "common/status.h"
#include "models/fluid.h"

namespace quor::models {

struct PressureResult {
    double p = 0;  ///< kPa, 0 on failure
    Status status = kSuccess;
};

/// p of the fluid's equation at T/K and v in m^3/kmol. Status -1 for v at or below the covolume at
/// T (for a V-only model B(T)); `state` receives a, b, c, d at T.
PressureResult pressure_from_Tv(const Fluid& fluid, double T, double v, EosState& state);
inline PressureResult pressure_from_Tv(const Fluid& fluid, double T, double v) {
    EosState state;
    return pressure_from_Tv(fluid, T, v, state);
}

/// Volume roots of the cubic form, ascending, m^3/kmol. With one root only v[0] is meaningful.
struct CubicRoots {
    std::array<double, 3> v{};
    std::int16_t count = 0;
    Status status = kFailure;
};

/// Roots at T/K and p/kPa (not 0) for given a, b, c, d. Roots below b are dropped.
CubicRoots solve_cubic(const EosState& s, double T, double p);

/// Equal-area test between three roots at p: 0 at the Maxwell pressure, positive below it (V
/// stable), negative above it (L stable). Areas in kJ/kmol.
struct Areas {
    double ratio = 0, V = 0, L = 0;
    Status status = kSuccess;
};
Areas area_ratio(const EosState& s, const std::array<double, 3>& v, double T, double p);

/// A state at T and p. Flags, volumes and densities are 0 where the phase is missing.
struct StateTP {
    std::int16_t region = 0;
    bool has_L = false, has_V = false;
    double rhoV = 0, rhoL = 0;  ///< kg/m^3
    double vV = 0, vL = 0;      ///< m^3/kmol
    std::int16_t root_count = 0;
    double area_ratio = 0, area_V = 0, area_L = 0;
    std::array<double, 3> v{};  ///< the roots
    EosState state;             ///< a, b, c, d at T
    double B = 0;
    std::string_view text;  ///< what the solver says of the state
    Status status = kSuccess;
};

/// Phases and volumes at T/K, p/kPa. `region` of the result starts from `region`.
StateTP solve_state_tp(const Fluid& fluid, double T, double p, std::int16_t region = 0);

struct TemperatureResult {
    double T = 0;  ///< K, 0 when there is none
    Status status = kSuccess;
};

/// T at p/kPa and density/(kg/m^3); inside the two-phase dome of a cubic EOS the saturation
/// temperature unless `single_phase_only`. Each call stands alone.
TemperatureResult temperature_from_p_rho(const Fluid& fluid, double p, double rho,
                                         bool single_phase_only);

}  // namespace quor::models
