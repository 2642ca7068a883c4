#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "app/commands.h"
#include "session/session.h"

/// The main menu and the tool bar as data: every row with its control name, caption, what it starts
/// and when it is enabled. The frame only shows it.
namespace quor::menu {

enum class Kind { Command, Submenu, Separator };

/// One row of a menu. Texts stand as the user sees them, with their blanks; "&" marks the access
/// key.
struct Row {
    std::string_view parent{};   ///< menu that holds the row; empty for the menu bar
    std::string_view control{};  ///< control name; rows of a control array share it
    int index = -1;              ///< index in the control array, -1 outside one
    std::string_view caption{};
    Kind kind = Kind::Command;
    std::string_view action{};                  ///< id of the command that the row runs
    std::string_view submenu{};                 ///< name of the menu that a submenu row opens
    std::optional<session::Command> command{};  ///< command that switches the row
    std::int16_t code = 0;    ///< CalcMode, code of a diagram or of a kind of surface
    std::string_view hint{};  ///< shown in the status bar
};

/// All rows, in the order of the menus.
std::span<const Row> rows();

/// The object name of a row: its control name, with "_" and the index for a control array.
std::string object_name(const Row& row);

/// The row of an object name; nullptr when there is none.
const Row* find(std::string_view name);

/// The row that belongs to a calculation kind in `mnuCalc` or its submenus; nullptr for none.
const Row* calculation_row(std::int16_t task_code);

/// The present caption: some follow the mode of the Calculation menu and the kind of the EOS.
std::string caption(const session::Session& session, const Row& row);

/// False for a row that the present mode of the Calculation menu does not offer.
bool visible(const session::Session& session, const Row& row);

/// True when the session allows the row, whether or not something handles it yet.
bool allowed(const session::Session& session, const Row& row);

/// True when the session allows the row and a command stands behind it; a submenu needs none.
bool enabled(const session::Session& session, const app::Commands& commands, const Row& row);

/// A button of the tool bar.
struct ToolButton {
    int index;  ///< position, 1 to 15
    std::string_view tooltip;
    std::string_view icon;    ///< name of the picture
    std::string_view action;  ///< action id
    std::optional<session::Command> command;
};

std::span<const ToolButton> tool_buttons();

/// As `enabled`, for a tool button.
bool enabled(const session::Session& session, const app::Commands& commands,
             const ToolButton& button);

}  // namespace quor::menu
