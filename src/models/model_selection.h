#pragma once

#include "models/eos_records.h"

namespace quor::models {

/// The equations of state; `none` before a first choice.
enum class Eos {
    none,
    idealGas,
    vanDerWaals,
    berthelot,
    redlichKwong,
    soave,
    pengRobinson,
    jiTorvik1,
    jiTorvik2,
    manualVirial,
    virialVanDerWaals,
    virialBerthelot,
    virialRedlichKwong,
    virialSoave,
    virialPengRobinson,
    pitzerCurl
};

/// False for the ideal gas, and before a first choice.
inline bool is_real_gas(Eos eos) {
    return eos != Eos::none && eos != Eos::idealGas;
}

/// The vapour pressure equations: Antoine below and above the normal boiling point,
/// Frost/Kalkwarf, Wagner, August, and three sets that are correlated from the critical point.
enum class VapourPressureEquation {
    none,
    antoineLow,
    antoineHigh,
    frostKalkwarf,
    wagner,
    august,
    frostVanDerWaals,
    frostRedlichKwong,
    thompson
};

/// The ways to the enthalpy of vaporisation.
enum class VaporisationModel {
    none,
    databaseEquation,
    chen,
    carruthKobayashi,
    watson,
    databaseDensity,  ///< Clausius/Clapeyron with the database's liquid density
    benson,           ///< Clausius/Clapeyron with Benson's liquid density
    cubicEos
};

/// Forms of the heat capacity of the ideal gas.
enum class CpForm { none, polynomial, sinhCosh };

/// Coefficients of B = b0 - b1/T^b2, m^3/kmol and K.
struct ManualVirial {
    double b0 = 0, b1 = 0, b2 = 0;

    bool operator==(const ManualVirial&) const = default;
};

/// Which model is active for each of the five property families, with the parameters of those
/// models that no database holds.
struct ModelSelection {
    Eos eos = Eos::none;
    bool vapour_only = false;  ///< the equation of state describes only the V phase
    VapourPressureEquation vapour_pressure = VapourPressureEquation::none;
    VaporisationModel vaporisation = VaporisationModel::none;
    float watson_n = 0;  ///< Watson exponent
    CpForm cp_form = CpForm::none;
    bool eos_has_priority = true;  ///< p(LV), T(LV) come from the cubic EOS
    ManualVirial manual_virial{};
    JiTorvikParameters ji_torvik{};  ///< fitted to the substance; their computed part is not used

    bool operator==(const ModelSelection&) const = default;
};

}  // namespace quor::models
