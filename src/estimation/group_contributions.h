#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "datafiles/substance_editor.h"
#include "estimation/group_table.h"
#include "models/substance_record.h"

namespace quor::estimation {

/// Number of each group in the molecule, in the order of `all_groups`.
using GroupCounts = std::array<int, kGroups>;

/// Groups written as "-CH3=2,>CH-=1,#20=1": a name as in the table (a ring group with " (ring)"
/// behind it) or the position from 1, and its number. Nothing when a part cannot be read.
std::optional<GroupCounts> parse_groups(std::string_view list);
/// Number of a group from its field; an empty one is 0.
int group_count(std::string_view field);

double molar_mass(const GroupCounts& groups);  ///< kg/kmol
int number_of_atoms(const GroupCounts& groups);
bool any_group(const GroupCounts& groups);
/// Sum of count times increment; nothing when a group of the molecule has no published increment.
std::optional<double> sum_of(const GroupCounts& groups, Increment increment);

/// Quantities of formation of the ideal gas at 298.15 K in kJ/kmol; nothing without groups or where
/// an increment is missing.
struct Formation {
    std::optional<double> dfh, dfg;
};
Formation joback_formation(const GroupCounts& groups);

/// C0 to C3 of cp/(kJ/(kmol K)) = C0 + C1 T + C2 T^2 + C3 T^3 of the ideal gas.
std::optional<std::array<double, 4>> joback_cp(const GroupCounts& groups);

/// Critical data; a value that cannot be had is missing.
struct CriticalData {
    std::optional<double> Tb;    ///< normal boiling point used, K
    std::optional<double> Tf;    ///< freezing point, K, a very rough estimate
    std::optional<double> Tc;    ///< K
    std::optional<double> pc;    ///< kPa
    std::optional<double> vc;    ///< m^3/kmol
    std::optional<double> rhoc;  ///< kg/m^3
};
/// Normal boiling point in K from the groups alone.
std::optional<double> joback_boiling_point(const GroupCounts& groups);
/// All critical data with a normal boiling point in K, or the one of the groups. Empty when =NH is
/// set.
CriticalData joback_critical(const GroupCounts& groups, std::optional<double> Tb = std::nullopt);

/// What among estimated critical data no substance can have, one sentence each: a temperature or
/// pressure that is not positive, a freezing point above the boiling point, and the like.
std::vector<std::string> implausible_values(const CriticalData& data);

/// Acentric factor of B. I. Lee and M. G. Kesler (AIChE J. 21 (1975) 510) from Tb/K, Tc/K and
/// pc/kPa. Nothing unless all are present and Tb lies below Tc.
std::optional<double> lee_kesler_omega(double Tb, double Tc, double pc);

// The commands of the view. They tell with a message what cannot be calculated.
Formation calc_formation(const GroupCounts& groups);                      ///< `cmdCalcBildung`
std::optional<std::array<double, 4>> calc_cp(const GroupCounts& groups);  ///< `cmdCalccp`
/// `cmdCalcCrit`: asks for a better boiling point; `known_Tb` is the one of the substance data, or
/// 0.
CriticalData calc_critical(const GroupCounts& groups, double known_Tb);
/// `cmdOmega`: shows the acentric factor or what it needs.
void show_omega(double Tb, double Tc, double pc);

// Transfer of the values that are there and not zero (`cmdApply`).
void transfer_formation(const Formation& formation, models::SubstanceRecord& substance);
void transfer_formation(const Formation& formation, datafiles::EditorTexts& editor);
void transfer_cp(const std::array<double, 4>& cp, models::SubstanceRecord& substance);
void transfer_cp(const std::array<double, 4>& cp, datafiles::EditorTexts& editor);

// Texts of the result fields, " ---" where there is no value.
std::string formation_text(std::optional<double> value);    ///< "#####.000"
std::string temperature_text(std::optional<double> value);  ///< "####.0"
std::string pressure_text(std::optional<double> value);     ///< "#####.000"
std::string volume_text(std::optional<double> value);       ///< "0.####"
std::string density_text(std::optional<double> value);      ///< "####.0"
/// Tooltip of the critical density that was calculated from the critical volume.
std::string density_tooltip(const GroupCounts& groups);

}  // namespace quor::estimation
