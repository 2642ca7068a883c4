#include "session/commands.h"

namespace quor::session {

namespace {
void (*changed)() = nullptr;
}

void SetCommands(std::initializer_list<session::Command> commands, bool enabled) {
    for (const session::Command c : commands)
        session::the_commandStates.enabled[static_cast<std::size_t>(c)] = enabled;
    if (changed != nullptr) changed();
}

bool IsEnabled(session::Command command) {
    return session::the_commandStates.enabled[static_cast<std::size_t>(command)];
}

void OnCommandsChanged(void (*listener)()) {
    changed = listener;
}

}  // namespace quor::session
