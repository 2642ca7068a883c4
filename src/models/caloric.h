#pragma once

#include <array>
#include <optional>

#include "models/cubic_eos.h"
#include "models/fluid.h"
#include "models/reference_record.h"

namespace quor::models {

/// Rows of all tables: 0 V, 1 L.
inline constexpr int kRowV = 0;
inline constexpr int kRowL = 1;

/// cp/(kJ/(kmol K)) of the polynomial forms at T/K > 0: with C0 = 0 it is C1 + C2 T + C3 T^2 +
/// C4/T^2, else C0 + C1 T + C2 T^2 + C3 T^3 with C4 T^4 for |C4| < 1 and C4/T^2 otherwise. Nothing
/// for a set without any coefficient and on a fault.
std::optional<double> polynomial_cp(const CpSet& set, double T);
/// cp = C0 + C1 (x/sinh x)^2 + C3 (y/cosh y)^2 with x = C2/T and y = C4/T (L. A. Aly, L. L. Lee,
/// Fluid Phase Equilib. 6 (1981) 169-179). Nothing on a fault, as when exp(C2/T) overflows.
std::optional<double> sinh_cosh_cp(const CpSet& set, double T);
/// cp of the ideal gas by a form of the table of cp forms.
std::optional<double> ideal_gas_cp(const SubstanceRecord& s, CpForm form, double T);

struct IdealGasState {
    double cp = 0, h = 0, s = 0;  ///< kJ/(kmol K), kJ/kmol, kJ/(kmol K)
};
/// cp, h, s of the ideal gas at T/K and p/kPa; nothing without a cp form there. `reference` must be
/// settled (reference_state.h).
std::optional<IdealGasState> ideal_gas_functions(const SubstanceRecord& s, CpForm form,
                                                 const ReferenceState& reference, double T,
                                                 double p);

/// Columns of the residual table.
enum Residual {
    LnPhi,
    DLnPhi,
    D2LnPhi,
    ResS,
    ResH,
    ResG,
    ResCp,
    JouleThomson,
    Cv,
    Cp,
    SpeedOfSound
};

/// One row: derivatives of p(T, v) and residual functions of a phase.
struct PhaseTable {
    /// Columns 1 to 6: (dp/dV)T, (dp/dT)v, (dV/dp)T, (dV/dT)p, (dT/dV)p, (dT/dp)v; element 0 is
    /// unused. A quotient whose denominator is below 1E-11, or is nothing but rounding (at the
    /// critical point), is 0.
    std::array<double, 7> first{};
    std::array<double, 4> second{};  ///< columns 1 to 3: d2p/dV2, d2V/dT2, d2T/dV2
    /// Columns 0 to 10, index `Residual`. Where (dp/dV)T vanishes cp has a pole: D2LnPhi, ResCp
    /// and Cp are 0 there, all others have their limits. Columns 7 to 10 need a cp form.
    std::array<double, 11> residual{};
};
/// Derivatives and residual functions at T/K, p/kPa, v in m^3/kmol by the equation of `fluid`;
/// `state` holds a, b, c, d at T. Nothing where the equation has no state.
std::optional<PhaseTable> residual_functions(const Fluid& fluid, const EosState& state, double T,
                                             double p, double v);

/// Exergies of a state against its surroundings, kJ/kmol.
struct Exergies {
    double H = 0, U = 0;
};

struct StateValues {
    double h = 0, u = 0, s = 0, g = 0, a = 0, cp = 0, cv = 0, w = 0;
    /// Missing without surroundings, and where they are too far away for a number.
    std::optional<Exergies> exergies;
    PhaseTable table;
};

/// The fluid in equilibrium with its surroundings: the zero of the exergies.
struct Surroundings {
    double h = 0, u = 0, s = 0;  ///< kJ/kmol, kJ/kmol, kJ/(kmol K)
    double v = 0;                ///< m^3/kmol
};
/// State at Tenv, penv of `reference`: L when only L exists there, else V. Nothing without a cp
/// form or a state there.
std::optional<Surroundings> surroundings_state(const Fluid& fluid, const ReferenceState& reference);

/// All caloric values at T/K, p/kPa, v in m^3/kmol. Nothing when there is no cp form or
/// the equation has no state there; without surroundings only the exergies are missing. `reference`
/// must be settled (reference_state.h).
std::optional<StateValues> state_functions(const Fluid& fluid, const ReferenceState& reference,
                                           const std::optional<Surroundings>& surroundings,
                                           double T, double p, double v);

struct SaturationValues {
    double p = 0;           ///< kPa
    double vV = 0, vL = 0;  ///< m^3/kmol
    StateValues V, L;
};
/// Both phases at T/K from the cubic EOS; nothing where one of them is missing or has no values.
/// `reference` must be settled.
std::optional<SaturationValues> saturation_functions(
    const Fluid& fluid, const ReferenceState& reference,
    const std::optional<Surroundings>& surroundings, double T);

struct Inflexion {
    int count = 0;                              ///< 0, 1 or 2
    std::array<double, 2> v{}, p{};             ///< m^3/kmol, kPa
    std::array<double, 2> second_derivative{};  ///< d2p/dv2 at v
};
/// Points of inflexion at T/K of p = R T/(v - b) - a/((v + c)(v + d)) with v > b.
Inflexion inflexion_points(const EosState& state, double T);
/// Those of a fluid's isotherm; none where the equation describes the V phase alone.
Inflexion inflexion_points(const Fluid& fluid, double T);

}  // namespace quor::models
