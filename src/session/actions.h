#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Actions by name: what a menu row, a tool button or a core routine starts without knowing the
/// view behind it. A subsystem registers what it can do; whatever has no handler stays disabled.
namespace quor::actions {

using Handler = std::function<void()>;

/// Registers a handler under an action id, in place of an earlier one; an empty handler removes it.
void register_action(std::string_view id, Handler handler);

/// True when a handler is registered.
bool has(std::string_view id);

/// Runs the handler; false when there is none.
bool Run(std::string_view id);

/// Removes all handlers.
void clear();

}  // namespace quor::actions
