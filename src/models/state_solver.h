#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "common/result.h"
#include "models/fluid.h"

namespace quor::models {

/// p/kPa of the fluid's equation at T/K and v in m^3/kmol; nothing for v at or below the covolume
/// at T (for a V-only model B(T)). `state` receives a, b, c, d at T.
std::optional<double> pressure_from_Tv(const Fluid& fluid, double T, double v, EosState& state);
inline std::optional<double> pressure_from_Tv(const Fluid& fluid, double T, double v) {
    EosState state;
    return pressure_from_Tv(fluid, T, v, state);
}

/// Volume roots of the cubic form, ascending, m^3/kmol. With one root only v[0] is meaningful.
struct CubicRoots {
    std::array<double, 3> v{};
    std::int16_t count = 0;
};

/// Roots at T/K and p/kPa (not 0) for given a, b, c, d. Roots below b are dropped. Nothing where no
/// start of the search leads to a root.
std::optional<CubicRoots> solve_cubic(const EosState& s, double T, double p);

/// Equal-area test between three roots at p: 0 at the Maxwell pressure, positive below it (V
/// stable), negative above it (L stable). Areas in kJ/kmol.
struct Areas {
    double ratio = 0, V = 0, L = 0;
};
/// Nothing where the roots coincide or lie below the covolume.
std::optional<Areas> area_ratio(const EosState& s, const std::array<double, 3>& v, double T,
                                double p);

/// A state at T and p.
struct StateTP {
    std::int16_t region = 0;
    bool has_L = false, has_V = false;  ///< the stable phases; both on the phase boundary
    /// kg/m^3 and m^3/kmol. Where the equation has three roots a phase that is not stable has them
    /// too.
    std::optional<double> rhoV = {}, rhoL = {}, vV = {}, vL = {};
    std::int16_t root_count = 0;
    Areas areas = {};           ///< between three roots
    std::array<double, 3> v{};  ///< the roots
    EosState state = {};        ///< a, b, c, d at T
    double B = 0;
    std::string_view text;  ///< what the solver says of the state
};

/// What is known where there is no state.
struct NoState {
    std::int16_t region = 0;
    std::string_view text;  ///< what the solver says
};

/// Phases and volumes at T/K, p/kPa. `region` of the result starts from `region`.
Result<StateTP, NoState> solve_state_tp(const Fluid& fluid, double T, double p,
                                        std::int16_t region = 0);

/// T/K at p/kPa and density/(kg/m^3); inside the two-phase dome of a cubic EOS the saturation
/// temperature unless `single_phase_only`. Nothing where no T gives that density. Each call stands
/// alone.
std::optional<double> temperature_from_p_rho(const Fluid& fluid, double p, double rho,
                                             bool single_phase_only);

}  // namespace quor::models
