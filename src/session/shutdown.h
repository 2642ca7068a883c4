#pragma once

#include <functional>
#include <string>

namespace quor::session {

/// What the end of the program and the project commands need of other subsystems. A function that
/// is not set does nothing.
struct ShutdownHooks {
    std::function<void()> writeProtocol;  ///< writes the pending columns of the CSV protocol
    std::function<void(const std::string& file)> saveLastSession;  ///< writes the project file
    std::function<void()> closeFiles;  ///< closes the database and every other open file
    std::function<void()> closeHelp;   ///< closes all help windows
};

ShutdownHooks& shutdown_hooks();

/// The end of a session: pending protocol data are written, an empty protocol file is deleted, the
/// session is saved as a project when a database is open, files and help windows are closed.
void Shutdown();

}  // namespace quor::session
