#include "app/menu_catalogue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "app/menu_graph_rows.h"
#include "common/constants.h"

namespace quor::menu {

namespace {

using session::Command;

// How a row of the Calculation menu is started: the id under which an engine registers its mode.
constexpr std::array<std::string_view, 25> kModeActions = {
    "CalcMode_0",  "CalcMode_1",  "CalcMode_2",  "CalcMode_3",  "CalcMode_4",
    "CalcMode_5",  "CalcMode_6",  "CalcMode_7",  "CalcMode_8",  "CalcMode_9",
    "CalcMode_10", "CalcMode_11", "CalcMode_12", "CalcMode_13", "CalcMode_14",
    "CalcMode_15", "CalcMode_16", "CalcMode_17", "CalcMode_18", "CalcMode_19",
    "CalcMode_20", "CalcMode_21", "CalcMode_22", "CalcMode_23", "CalcMode_24"};

constexpr Row command(std::string_view parent, std::string_view control, std::string_view caption,
                      std::optional<Command> needs = std::nullopt, std::string_view hint = {}) {
    return {.parent = parent,
            .control = control,
            .caption = caption,
            .action = control,
            .command = needs,
            .hint = hint};
}

constexpr Row submenu(std::string_view parent, std::string_view control, std::string_view caption,
                      std::optional<Command> needs = std::nullopt) {
    return {.parent = parent,
            .control = control,
            .caption = caption,
            .kind = Kind::Submenu,
            .submenu = control,
            .command = needs};
}

constexpr Row line(std::string_view parent) {
    return {.parent = parent, .kind = Kind::Separator};
}

constexpr Row calc(std::string_view parent, std::string_view control, int index,
                   std::string_view caption, std::int16_t mode, std::string_view hint = {}) {
    return {.parent = parent,
            .control = control,
            .index = index,
            .caption = caption,
            .action = kModeActions[static_cast<std::size_t>(mode)],
            .code = mode,
            .hint = hint};
}

constexpr Row calc_submenu(std::string_view parent, std::string_view control, int index,
                           std::string_view caption, std::string_view opens) {
    return {.parent = parent,
            .control = control,
            .index = index,
            .caption = caption,
            .kind = Kind::Submenu,
            .submenu = opens};
}

constexpr std::string_view kCalc = "mnuCalc";
constexpr std::string_view kCalcMenu = "mnuCalcMain";
constexpr std::string_view kDatabase = "mnuCalc_sub_database";
constexpr std::string_view kSaturation = "mnuCalc_sub_sub_database";

constexpr int kRowL = 1, kRowTankGlobal = 15, kRowTankPartial = 16, kRowVirial = 18;

constexpr auto kBarRows = std::to_array<Row>({
    submenu("", "mnuData", "   &Data..."),
    command("mnuData", "mnuData_OpenBank", "Open Database"),
    command("mnuData", "mnuData_Status", "Loaded are ...", Command::status),
    line("mnuData"),
    command("mnuData", "mnuData_LoadLastSession", "Load Last Session"),
    command("mnuData", "mnuData_LoadProject", "Load an existing project ..."),
    command("mnuData", "mnuData_SaveProject", "save actual project as ...", Command::saveProject),
    line("mnuData"),
    command("mnuData", "mnuData_BatchInput", "T-p-rho data    New ", Command::measuredDataInput),
    command("mnuData", "mnuData_BatchEdit", "T-p-rho data    View / Edit / Save",
            Command::measuredDataEdit),
    command("mnuData", "mnuData_EditStoffdaten", "View/Edit Data of the Substance",
            Command::substanceData),
    command("mnuData", "mnuData_EditXY", "XY Editor (X-Y data input | load )"),
    command("mnuData", "mnuData_ParameterEOS", "Parameters EOS; calc. critical molar volume",
            Command::calculations),
    submenu("mnuData", "mnuJOBACK", "Data Prediction by using Group Contribution Methods "),
    command("mnuJOBACK", "mnuData_JOBACK_CritData",
            "Critical Data (JOBACK method), Acentric Factor"),
    command("mnuJOBACK", "mnuData_JOBACK_bildung",
            "Quantities of Formation (ideal gas state), JOBACK method"),
    command("mnuJOBACK", "mnuData_JOBACK_cpIdG",
            "Heat Capacities (ideal gas state), JOBACK method "),
    line("mnuData"),
    command("mnuData", "mnuData_Exit", "E&xit                                            Alt+F4"),
    submenu("", "mnuEdit", "&Edit"),
    command("mnuEdit", "mnuEdit_Undo", "&Undo\tCtrl+Z", std::nullopt,
            "Takes the last change in the view in front back"),
    command("mnuEdit", "mnuEdit_Redo", "&Redo\tCtrl+Shift+Z", std::nullopt,
            "Makes what was taken back again"),
    command("", "mnuStoff", "&Substance", Command::chooseSubstance),
    command("", "mnuModel", "&Models", Command::chooseModels),
    submenu("", "mnu2D", "Graph-&2D...", Command::diagrams),
    submenu("", "mnu3D", "Graph-&3D...", Command::surfaces),
    submenu("", kCalcMenu, "&Calculation...", Command::calculations),
});

// The captions of rows 0 to 3 are those of direct operation; `caption` has those of batch
// operation. The indices that are left out are the separators.
constexpr auto kCalcRows = std::to_array<Row>({
    calc(kCalcMenu, kCalc, 0, "T, rho      => p, state L/V     + thermod. Fu.", 1),
    calc(kCalcMenu, kCalc, 1, "columns T, rho(L) => p, state L/V     + thermod. Fu.", 2),
    calc(kCalcMenu, kCalc, 2, "T, p         => rho, state L/V  + thermod. Fu.", 3),
    calc(kCalcMenu, kCalc, 3, "p, rho      => T, state L/V     + thermod. Fu.", 13),
    line(kCalcMenu),
    calc(kCalcMenu, kCalc, 5, "T => p(LV)", 4, "Vapour pressure and densities of both phases"),
    calc(kCalcMenu, kCalc, 6, "p => T(LV)", 5, "Boiling temperature and densities of both phases"),
    line(kCalcMenu),
    calc(kCalcMenu, kCalc, 8, "T => Enthalpy of Vaporization according to \"Models\"", 6),
    calc(kCalcMenu, kCalc, 9, "p => Enthalpy of Vaporization according to \"Models\"", 7),
    line(kCalcMenu),
    calc(kCalcMenu, kCalc, 11, "T, p => thermodynamic Fu(T)", 8,
         "v, h, s, g, u, a, exergies, cp, cV and speed of sound of each phase"),
    line(kCalcMenu),
    calc(kCalcMenu, kCalc, 13, "Polytropic process", 12),
    line(kCalcMenu),
    calc(kCalcMenu, kCalc, kRowTankGlobal, "Tank Calculation (global method)", 9,
         "Pressure and phases in a closed tank by the cubic EOS"),
    calc(kCalcMenu, kCalc, kRowTankPartial, "Tank Calculation (partial method)", 10,
         "Pressure and phases in a closed tank, L density by Benson's method or the database"),
    line(kCalcMenu),
    calc(kCalcMenu, kCalc, kRowVirial, "T => Virial Coefficient B, Parameters of the CEOS", 11),
    line(kCalcMenu),
    calc_submenu(kCalcMenu, kCalc, 20, "Database Functions Fu(T)", kDatabase),
    // From row 2 on the captions run one row behind what the rows start; the hints name it.
    calc_submenu(kDatabase, kDatabase, 0, "saturation pressure", kSaturation),
    calc(kDatabase, kDatabase, 1, "L density", 14, "T => density of the saturated liquid"),
    calc(kDatabase, kDatabase, 2, "Enthalpy of vaporization", 24, "T => density of the solid"),
    calc(kDatabase, kDatabase, 3, "Ideal-gas heat capacity", 15, "T => enthalpy of vaporization"),
    calc(kDatabase, kDatabase, 4, "L heat capacity", 16, "T => heat capacity of the ideal gas"),
    calc(kDatabase, kDatabase, 5, "S heat capacity", 17, "T => heat capacity of the liquid"),
    calc(kDatabase, kDatabase, 6, "S heat capacity", 18, "T => heat capacity of the solid"),
    calc(kSaturation, kSaturation, 0, "extended Frost-Kalkwarf equation", 19),
    calc(kSaturation, kSaturation, 1, "Wagner equation", 20),
    calc(kSaturation, kSaturation, 2, "Antoine equation (Lo-p)", 21),
    calc(kSaturation, kSaturation, 3, "Antoine equation (Hi-p)", 22),
});

constexpr auto kEndRows = std::to_array<Row>({
    command("", "mnuFitting", "Fitting", Command::fitting),
    command("", "mnuOptions", "&Options", Command::options),
    submenu("", "mnuWindow", "&Windows..."),
    submenu("", "mnuHilfe", "&Help..."),
    command("mnuHilfe", "mnuHilfe_About", "About the Program"),
    command("mnuHilfe", "mnuHilfe_Index", "Index"),
    command("mnuHilfe", "mnuHilfe_Tip", "Show Tips"),
    line("mnuHilfe"),
    command("mnuHilfe", "mnuInfo", "Information", std::nullopt,
            "Version, folders and what is open"),
});

constexpr auto kToolButtons = std::to_array<ToolButton>({
    {2, " New project ", "new_project", "mnuData_OpenBank", std::nullopt},
    {4, " Load last session ", "last_session", "mnuData_LoadLastSession", std::nullopt},
    {6, " Load an existing project ", "open_project", "mnuData_LoadProject", std::nullopt},
    {7, " Save actual project ", "save_project", "mnuData_SaveProject", Command::toolSave},
    {11, "Reference State for Thermodynamic", "reference_state", "frmReferenz",
     Command::toolReference},
    {15, " Tank calculation ", "tank", "toolTank", Command::toolTank},
});

// What rows 0, 2 and 3 of the Calculation menu read when it works through a list of data.
std::string_view batch_caption(int index) {
    switch (index) {
        case 0:
            return "columns T, rho(V) => p, state L/V     + thermod. Fu.";
        case 2:
            return "columns T, p         => rho, state L/V  + thermod. Fu.";
        case 3:
            return "columns p, rho(V) => T, state L/V     + thermod. Fu.";
        default:
            return {};
    }
}

bool differs_from_zero(float value) {
    return std::fabs(static_cast<double>(value)) > constants::kPresent;
}

// Whether the substance has the function that a row of the database functions evaluates.
bool has_database_function(const session::Session& session, std::int16_t mode) {
    const models::SubstanceRecord& s = session->substance;
    const auto range = [](const auto& set) { return set.T_low != 0 && set.T_high != 0; };
    switch (mode) {
        case 14:
            return differs_from_zero(s.rhoL_coefficients[0]) ||
                   differs_from_zero(s.rhoL_coefficients[1]);
        case 24:
            return differs_from_zero(s.rhoS_coefficients[0]) ||
                   differs_from_zero(s.rhoS_coefficients[1]);
        case 15:
            return s.hLV_T_low != 0;
        case 16:
            return s.cp_polynomial.T_low != 0 || s.cp_sinh_cosh.T_low != 0;
        case 17:
            return s.cpL.T_low != 0;
        case 18:
            return s.cpS.T_low != 0;
        case 19:
            return range(s.frost);
        case 20:
            return range(s.wagner);
        case 21:
            return range(s.antoine_low);
        case 22:
            return range(s.antoine_high);
        default:
            return true;
    }
}

bool is_calc_row(const Row& row, int index) {
    return row.control == kCalc && row.index == index;
}

// Rules of single rows beyond the command that switches them.
bool allowed_by_session(const session::Session& session, const Row& row) {
    // The tank is a calculation of direct operation; its global method needs both phases from the
    // equation of state.
    if (is_calc_row(row, kRowTankGlobal))
        return !session->batch_mode && session::is_enabled(session, Command::needsLPhase);
    if (is_calc_row(row, kRowTankPartial)) return !session->batch_mode;
    if (row.control == kDatabase || row.control == kSaturation)
        return has_database_function(session, row.code);
    return true;
}

bool command_allows(const session::Session& session, const std::optional<Command>& needed) {
    return !needed || session::is_enabled(session, *needed);
}

}  // namespace

std::span<const Row> rows() {
    static const std::vector<Row> rows = [] {
        std::vector<Row> all(kBarRows.begin(), kBarRows.end());
        const std::span<const Row> graphs = graph_rows();
        all.insert(all.end(), graphs.begin(), graphs.end());
        all.insert(all.end(), kCalcRows.begin(), kCalcRows.end());
        all.insert(all.end(), kEndRows.begin(), kEndRows.end());
        return all;
    }();
    return rows;
}

std::string object_name(const Row& row) {
    const std::string control(row.control);
    return row.index < 0 ? control : control + "_" + std::to_string(row.index);
}

const Row* find(std::string_view name) {
    for (const Row& row : rows())
        if (row.kind != Kind::Separator && object_name(row) == name) return &row;
    return nullptr;
}

const Row* calculation_row(std::int16_t task_code) {
    for (const Row& row : rows())
        if (row.kind == Kind::Command && row.code == task_code && row.control.starts_with(kCalc))
            return &row;
    return nullptr;
}

std::string caption(const session::Session& session, const Row& row) {
    if (row.control == kCalc && session->batch_mode && !batch_caption(row.index).empty())
        return std::string(batch_caption(row.index));
    if (is_calc_row(row, kRowVirial) && session->models.vapour_only)
        return "T => Virial Coefficient B";
    return std::string(row.caption);
}

bool visible(const session::Session& session, const Row& row) {
    return !is_calc_row(row, kRowL) || session->batch_mode;
}

bool allowed(const session::Session& session, const Row& row) {
    return command_allows(session, row.command) && allowed_by_session(session, row);
}

bool enabled(const session::Session& session, const app::Commands& commands, const Row& row) {
    return allowed(session, row) && (row.kind == Kind::Submenu || commands.has(row.action));
}

std::span<const ToolButton> tool_buttons() {
    return kToolButtons;
}

bool enabled(const session::Session& session, const app::Commands& commands,
             const ToolButton& button) {
    if (!command_allows(session, button.command)) return false;
    // The tank is a row of the Calculation menu: it is there when that menu is.
    if (button.command == Command::toolTank) {
        const Row* row = calculation_row(session->models.eos_has_priority ? 9 : 10);
        return session::is_enabled(session, Command::calculations) && row != nullptr &&
               enabled(session, commands, *row);
    }
    return commands.has(button.action);
}

}  // namespace quor::menu
