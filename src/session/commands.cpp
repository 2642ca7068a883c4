#include "session/commands.h"

#include "session/session.h"

namespace quor::session {

void set_commands(Session& session, std::initializer_list<Command> commands, bool enabled) {
    const auto now = session.change();
    for (const Command c : commands) now->commands.enabled[static_cast<std::size_t>(c)] = enabled;
}

bool is_enabled(const Session& session, Command command) {
    return session->commands.enabled[static_cast<std::size_t>(command)];
}

}  // namespace quor::session
