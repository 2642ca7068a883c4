#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace quor::models {

/// Antoine set: log10(p/kPa) = A - B/(T + C - 273.15); TLo, THi in K, TLo = 0 means absent.
struct AntoineSet {
    float A = 0, B = 0, C = 0;
    std::int16_t T_low = 0, T_high = 0;

    bool operator==(const AntoineSet&) const = default;
};

/// Frost-Kalkwarf set of nine values A to I in the form of `vapour_pressure`; the stored
/// third value is C + 273.15 and the sixth the exponent F less 2 in `frost`. TLo = 0: absent.
struct FrostSet {
    std::array<float, 9> a{};
    std::int16_t T_low = 0, T_high = 0;

    bool operator==(const FrostSet&) const = default;
};

/// Wagner set: A1, A2, A3, n3, A4, n4, A5, n5, Tcrit/K and pcrit/kPa of the set. TLo = 0: absent.
struct WagnerSet {
    std::array<float, 10> a{};
    std::int16_t T_low = 0, T_high = 0;

    bool operator==(const WagnerSet&) const = default;
};

/// August set: ln(p/kPa) = A + B/T.
struct AugustSet {
    float A = 0, B = 0;

    bool operator==(const AugustSet&) const = default;
};

/// Heat capacity set, kJ/(kmol K): C0 to C4 and the range of validity in K.
struct CpSet {
    std::array<float, 5> c{};
    std::int16_t T_low = 0, T_high = 0;

    bool operator==(const CpSet&) const = default;
};

/// Everything the models need of the one selected substance. Units: K, kPa, kg/kmol, kg/m^3,
/// kJ/kmol, m^3/kmol. A value of 0 means "not available".
struct SubstanceRecord {
    std::string name;             ///< first name of the record, without synonyms
    std::string formula;          ///< right-trimmed formula
    std::string formula_compact;  ///< the formula without any blanks
    std::string casrn;            ///< 12 characters, blank-padded as in the file

    float M = 0;                ///< molar mass, kg/kmol
    double Tcrit = 0;           ///< critical temperature, K
    double pcrit = 0;           ///< critical pressure, kPa
    double rhocrit = 0;         ///< critical density, kg/m^3
    double vcrit_measured = 0;  ///< M/rhocrit, m^3/kmol
    double omega = 0;           ///< acentric factor
    float Tboil = 0;            ///< normal boiling temperature, K
    float rhoL_boil = 0;        ///< L density at the normal boiling point; no reader fills it
    float Ttriple = 0;          ///< triple point temperature, K
    float ptriple = 0;          ///< triple point pressure, kPa
    float dfh = 0;              ///< enthalpy of formation, ideal gas, 298.15 K, kJ/kmol
    float dfg = 0;              ///< Gibbs energy of formation, ideal gas, 298.15 K, kJ/kmol
    float dfs = 0;              ///< (dfh - dfg)/298.15
    float sconv = 0;            ///< conventional entropy at 298.15 K, kJ/(kmol K)

    AntoineSet antoine_low, antoine_high;
    FrostSet frost, frost_van_der_waals, frost_redlich_kwong;
    WagnerSet wagner;
    AugustSet august;
    AntoineSet thompson;

    std::array<float, 7> rhoL_coefficients{};
    float rhoL_Tc = 0;
    std::int16_t rhoL_T_low = 0, rhoL_T_high = 0;
    std::array<float, 4> rhoS_coefficients{};
    std::int16_t rhoS_T_low = 0, rhoS_T_high = 0;

    std::array<float, 6> hLV_coefficients{};
    float hLV_Tc = 0;
    std::int16_t hLV_T_low = 0, hLV_T_high = 0;
    float watson_hLV = 0, watson_T = 0;

    CpSet cp_polynomial, cp_sinh_cosh, cpL, cpS;
    bool has_cp_polynomial = false, has_cp_sinh_cosh = false, has_cpL = false, has_cpS = false;

    /// Slots that are read and kept but that no calculation uses: 12, 13, 24, 48, 89, 95, 96, 118.
    std::array<float, 8> spare{};

    bool operator==(const SubstanceRecord&) const = default;
};

}  // namespace quor::models
