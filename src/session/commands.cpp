#include "session/commands.h"

namespace quor::session {

namespace {
void (*changed)() = nullptr;
}

void set_commands(std::initializer_list<session::Command> commands, bool enabled) {
    for (const session::Command c : commands)
        session::the_commandStates.enabled[static_cast<std::size_t>(c)] = enabled;
    if (changed != nullptr) changed();
}

bool is_enabled(session::Command command) {
    return session::the_commandStates.enabled[static_cast<std::size_t>(command)];
}

void on_commands_changed(void (*listener)()) {
    changed = listener;
}

}  // namespace quor::session
