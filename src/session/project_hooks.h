#pragma once

#include <functional>
#include <optional>
#include <string>

namespace quor::session {

/// Reading and writing of project files, as the commands of the main window need it. A command
/// whose function is not set stays disabled.
struct ProjectHooks {
    std::function<std::optional<std::string>()> choose;  ///< asks for a project file
    /// False, after a message, when the file cannot be loaded; nothing changes.
    std::function<bool(const std::string& file)> check{};
    std::function<bool(const std::string& file)> load;  ///< true when the session was restored
    std::function<void()> save;                         ///< asks for a name and writes
};

inline ProjectHooks& project_hooks() {
    static ProjectHooks hooks;
    return hooks;
}

}  // namespace quor::session
