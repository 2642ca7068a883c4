#include "session/commands.h"

namespace Module2 {

namespace {
void (*changed)() = nullptr;
}

void SetCommands(std::initializer_list<Declare::Command> commands, bool enabled) {
    for (const Declare::Command c : commands)
        Declare::commandStates.enabled[static_cast<std::size_t>(c)] = enabled;
    if (changed != nullptr) changed();
}

bool IsEnabled(Declare::Command command) {
    return Declare::commandStates.enabled[static_cast<std::size_t>(command)];
}

void OnCommandsChanged(void (*listener)()) {
    changed = listener;
}

}  // namespace Module2
