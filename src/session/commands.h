#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>

/// The commands whose enabling orders the user's work. The core switches them; the frame shows it.
namespace quor::session {

enum class Command : std::size_t {
    mnuData_Status,
    mnuData_SaveProject,
    mnuData_BatchInput,
    mnuData_BatchEdit,
    mnuData_EditStoffdaten,
    mnuStoff,
    mnuModel,
    mnu2D,
    mnu3D,
    mnuCalcMain,
    mnuFitting,
    mnuOptions,
    toolReference,  ///< tool button 11
    toolTank,       ///< tool button 15
    toolSave,       ///< tool button 7
    needsLPhase,    ///< commands that need an L phase (cubic EOS)
    count
};

struct CommandStates {
    std::array<bool, static_cast<std::size_t>(Command::count)> enabled{};
};

inline CommandStates the_commandStates;

}  // namespace quor::session

namespace quor::session {

/// Enables or disables commands and tells the frame (if one listens) that something changed.
void set_commands(std::initializer_list<session::Command> commands, bool enabled);
bool is_enabled(session::Command command);
/// The one listener of changes; an empty function removes it.
void on_commands_changed(void (*listener)());

}  // namespace quor::session
