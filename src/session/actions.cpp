#include "session/actions.h"

#include <map>

namespace quor::actions {

namespace {

using Table = std::map<std::string, Handler, std::less<>>;

Table& table() {
    static Table handlers;
    return handlers;
}

}  // namespace

void register_action(std::string_view id, Handler handler) {
    if (handler)
        table().insert_or_assign(std::string(id), std::move(handler));
    else if (const auto it = table().find(id); it != table().end())
        table().erase(it);
}

bool has(std::string_view id) {
    return table().find(id) != table().end();
}

bool Run(std::string_view id) {
    const auto it = table().find(id);
    if (it == table().end()) return false;
    // The copy outlives a handler that registers another one under its own name.
    const Handler handler = it->second;
    handler();
    return true;
}

void clear() {
    table().clear();
}

}  // namespace quor::actions
