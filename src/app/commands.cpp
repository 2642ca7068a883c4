#include "app/commands.h"

#include <utility>

namespace quor::app {

void Commands::add(std::string_view id, Command command) {
    all_.insert_or_assign(std::string(id), std::move(command));
}

bool Commands::has(std::string_view id) const {
    return all_.contains(id);
}

bool Commands::run(std::string_view id) const {
    const auto it = all_.find(id);
    if (it == all_.end()) return false;
    it->second();
    return true;
}

}  // namespace quor::app
