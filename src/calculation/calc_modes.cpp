#include "calculation/calc_modes.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "common/constants.h"
#include "legacy/declare.h"

namespace quor::calculation {

using legacy::the_session;

namespace {

constexpr auto kVaporisationOfT = "T => Enthalpy of Vaporization according to \"Models\"";
constexpr auto kVaporisationOfP = "p => Enthalpy of Vaporization according to \"Models\"";

/// All calculation kinds. The rows of the database menu follow its handlers, not its captions.
constexpr std::array<ModeInfo, 24> kModes = {{
    {1, Menu::Calculation, 0, " T, rho(V)  => p", kAsksT | kAsksRho},
    {2, Menu::Calculation, 1, " T, rho(L)  => p", kAsksT | kAsksRho},
    {3, Menu::Calculation, 2, " T, p => rho", kAsksT | kAsksP},
    {13, Menu::Calculation, 3, " p, rho => T", kAsksP | kAsksRho},
    {4, Menu::Calculation, 5, " T => p(LV)", kAsksT},
    {5, Menu::Calculation, 6, " p => T(LV)", kAsksP},
    {6, Menu::Calculation, 8, kVaporisationOfT, kAsksT},
    {7, Menu::Calculation, 9, kVaporisationOfP, kAsksP},
    {8, Menu::Calculation, 11, " thermodynamic Fu(T)", kAsksT | kAsksP},
    {12, Menu::Calculation, 13, "Polytropic process", kAsksNothing},
    {9, Menu::Calculation, 15, "Phases and Pressure in a Tank", kAsksNothing},
    {10, Menu::Calculation, 16, "Phases and Pressure in a Tank", kAsksNothing},
    {11, Menu::Calculation, 18, "Comparison of Virial Coefficients", kAsksT},
    {14, Menu::Database, 1, "L density", kAsksT},
    {24, Menu::Database, 2, "S density", kAsksT},
    {15, Menu::Database, 3, "delta(LV)h equation", kAsksT},
    {16, Menu::Database, 4, "ideal-gas cp", kAsksT},
    {17, Menu::Database, 5, "cp(L)", kAsksT},
    {18, Menu::Database, 6, "cp(S)", kAsksT},
    {19, Menu::Pressure, 0, "FRO", kAsksT},
    {20, Menu::Pressure, 1, "WAG", kAsksT},
    {21, Menu::Pressure, 2, "ALP", kAsksT},
    {22, Menu::Pressure, 3, "AHP", kAsksT},
    {23, Menu::None, -1, "", kAsksT},
}};

bool has_value(float parameter) {
    return std::fabs(static_cast<double>(parameter)) > constants::kPresent;
}

bool has_limits(std::int16_t TLo, std::int16_t THi) {
    return TLo != 0 && THi != 0;
}

bool is_database_row_possible(int row) {
    const models::SubstanceRecord& s = legacy::the_substance;
    switch (row) {
        case 1:
            return has_value(s.rhoLPar[0]) || has_value(s.rhoLPar[1]);
        case 2:
            return has_value(s.rhoSPar[0]) || has_value(s.rhoSPar[1]);
        case 3:
            return s.hLVTLo != 0;
        case 4:
            return s.cpPoly.TLo != 0 || s.cpSinh.TLo != 0;
        case 5:
            return s.cpL.TLo != 0;
        case 6:
            return s.cpS.TLo != 0;
        default:
            return false;
    }
}

bool is_pressure_row_possible(int row) {
    const models::SubstanceRecord& s = legacy::the_substance;
    switch (row) {
        case 0:
            return has_limits(s.FRO.TLo, s.FRO.THi);
        case 1:
            return has_limits(s.WAG.TLo, s.WAG.THi);
        case 2:
            return has_limits(s.ALP.TLo, s.ALP.THi);
        case 3:
            return has_limits(s.AHP.TLo, s.AHP.THi);
        default:
            return false;
    }
}

}  // namespace

const ModeInfo& mode_of(std::int16_t mode) {
    static constexpr ModeInfo kNone;
    const auto found = std::find_if(kModes.begin(), kModes.end(),
                                    [&](const ModeInfo& m) { return m.mode == mode; });
    return found == kModes.end() ? kNone : *found;
}

std::int16_t mode_of_row(Menu menu, int row) {
    for (const ModeInfo& m : kModes)
        if (m.menu == menu && m.row == row && row >= 0) return m.mode;
    return 0;
}

bool is_tank(std::int16_t mode) {
    return mode == 9 || mode == 10;
}
bool is_database_function(std::int16_t mode) {
    return mode >= 14 && mode <= 24;
}
bool is_equilibrium(std::int16_t mode) {
    return mode == 4 || mode == 5;
}
bool is_vaporisation(std::int16_t mode) {
    return mode == 6 || mode == 7;
}

std::string mode_title(std::int16_t mode) {
    const std::string title = mode_of(mode).title;
    if (is_tank(mode)) {
        if (the_session.GlobalCalculation) return title + " (global calculation)";
        return title + " (partial calculation, rho_L " +
               (the_session.LiquidByBenson ? " by BENSON's method)" : " (from database)");
    }
    if (is_equilibrium(mode))
        return title +
               (the_session.GlobalCalculation ? " (global calculation)" : " (partial calculation)");
    if (mode == 8) return title + " (global calculation)";
    return title;
}

std::string result_caption(std::int16_t mode) {
    return is_tank(mode) ? mode_title(mode) : "Result of the Calculation: " + mode_title(mode);
}

bool is_row_possible(Menu menu, int row) {
    if (menu == Menu::Database) return is_database_row_possible(row);
    if (menu == Menu::Pressure) return is_pressure_row_possible(row);
    return mode_of_row(menu, row) != 0;
}

std::string virial_row_caption() {
    return legacy::the_models.EOSOnlyV ? "T => Virial Coefficient B"
                                       : "T => Virial Coefficient B, Parameters of the CEOS";
}

}  // namespace quor::calculation
