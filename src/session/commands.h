#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>

namespace quor::session {

class Session;

/// The commands whose enabling orders the user's work. The core switches them; the frame shows it.
enum class Command : std::size_t {
    status,
    saveProject,
    measuredDataInput,
    measuredDataEdit,
    substanceData,
    chooseSubstance,
    chooseModels,
    diagrams,
    surfaces,
    calculations,
    fitting,
    options,
    toolReference,  ///< tool button 11
    toolTank,       ///< tool button 15
    toolSave,       ///< tool button 7
    needsLPhase,    ///< commands that need an L phase (cubic EOS)
    count
};

struct CommandStates {
    std::array<bool, static_cast<std::size_t>(Command::count)> enabled{};
};

/// Enables or disables commands.
void set_commands(Session& session, std::initializer_list<Command> commands, bool enabled);
bool is_enabled(const Session& session, Command command);

}  // namespace quor::session
