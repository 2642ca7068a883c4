#pragma once

#include <cstdint>
#include <string>

namespace quor::calculation {

/// What a direct calculation asks for.
enum Asks : unsigned { kAsksNothing = 0, kAsksT = 1, kAsksP = 2, kAsksRho = 4 };

/// Where the row of a calculation kind stands.
enum class Menu {
    Calculation,  ///< `mnuCalc`
    Database,     ///< `mnuCalc_sub_database`
    Pressure,     ///< `mnuCalc_sub_sub_database`
    None
};

/// One calculation kind.
struct ModeInfo {
    std::int16_t mode = 0;
    Menu menu = Menu::None;
    int row = -1;                  ///< index in its menu
    const char* title = "";        ///< what stands behind "Result of the Calculation: "
    unsigned asks = kAsksNothing;  ///< sum of `Asks`
};

/// The row of a `CalcMode`; an empty one for a code that does not exist.
const ModeInfo& mode_of(std::int16_t mode);
/// The `CalcMode` of a menu row, 0 when there is none.
std::int16_t mode_of_row(Menu menu, int row);

bool is_tank(std::int16_t mode);               ///< modes 9 and 10
bool is_database_function(std::int16_t mode);  ///< modes 14 to 24
bool is_equilibrium(std::int16_t mode);        ///< modes 4 and 5
bool is_vaporisation(std::int16_t mode);       ///< modes 6 and 7

/// The title of a calculation as the session stands: with "(global calculation)" or
/// "(partial calculation)" where both exist. For a tank it is the whole caption.
std::string mode_title(std::int16_t mode);
/// Caption of the result view: "Result of the Calculation: " and the title, or the tank's own.
std::string result_caption(std::int16_t mode);

/// True when the data of the substance allow a row of the two database menus.
bool is_row_possible(Menu menu, int row);
/// Caption of `mnuCalc` row 18, which names the parameters of a cubic EOS as well.
std::string virial_row_caption();

}  // namespace quor::calculation
