#pragma once

#include <array>

#include "common/status.h"
#include "models/fluid.h"

namespace thermo {

/// Rows of all tables: 0 V, 1 L.
inline constexpr int kRowV = 0;
inline constexpr int kRowL = 1;

struct CpResult {
    double cp = 0;  ///< kJ/(kmol K)
    Status status = kSuccess;
};
/// cp of the ideal gas at T/K by the active form; status -1 when there is none or on a fault.
CpResult IdealGasCp(double T);
/// cp of the liquid and of the solid by the database polynomial.
CpResult CpLiquid(double T);
CpResult CpSolid(double T);

struct IdealGasState {
    double cp = 0, h = 0, s = 0;  ///< kJ/(kmol K), kJ/kmol, kJ/(kmol K)
    Status status = kSuccess;
};
/// cp, h, s of the ideal gas at T/K and p/kPa, from the active reference state.
IdealGasState IdealGasFunctions(double T, double p);

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
    std::array<double, 7> first{};      ///< columns 1 to 6; element 0 unused
    std::array<double, 4> second{};     ///< columns 1 to 3: d2p/dV2, d2V/dT2, d2T/dV2
    std::array<double, 11> residual{};  ///< columns 0 to 10, index `Residual`
    bool filled = false;
};
/// Derivatives and residual functions at T/K, p/kPa, v in m^3/kmol.
PhaseTable ResidualFunctions(double T, double p, double v);

struct StateValues {
    double h = 0, u = 0, s = 0, g = 0, a = 0, cp = 0, cv = 0, w = 0, eH = 0, eU = 0;
    PhaseTable table;
    Status status = kSuccess;
};
/// All caloric values of a state with its exergies (kJ/kmol, kJ/(kmol K), m/s). It does not disturb
/// `Declare::vRoots`, `PhaseRegion`, or `eosState` of the caller's state.
StateValues StateFunctions(double T, double p, double v);

struct SaturationValues {
    double p = 0;           ///< kPa
    double vV = 0, vL = 0;  ///< m^3/kmol
    StateValues V, L;
    Status status = kSuccess;
};
/// Both phases at T/K from the cubic EOS.
SaturationValues SaturationFunctions(double T);

struct Inflexion {
    int count = 0;                             ///< 0, 1 or 2
    std::array<double, 2> v{}, p{};            ///< m^3/kmol, kPa
    std::array<double, 2> secondDerivative{};  ///< d2p/dv2 at v
};
/// Points of inflexion of the p-v isotherm at T/K, ascending in v.
Inflexion InflexionPoints(double T);

}  // namespace thermo
