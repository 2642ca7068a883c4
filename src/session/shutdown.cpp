#include "session/shutdown.h"

#include "legacy/declare.h"
#include "session/module2.h"

namespace quor::session {

namespace {

void call(const std::function<void()>& hook) {
    if (hook) hook();
}

void delete_empty_protocol() {
    namespace fs = std::filesystem;
    const std::string& name = legacy::the_protocol.file;
    if (name.empty()) return;
    const fs::path file =
        paths::has_separator(name) ? fs::path(name) : legacy::the_places.write_folder() / name;
    std::error_code failed;
    if (fs::is_regular_file(file, failed) && fs::file_size(file, failed) == 0 && !failed)
        fs::remove(file, failed);
}

}  // namespace

ShutdownHooks& shutdown_hooks() {
    static ShutdownHooks hooks;
    return hooks;
}

void Shutdown() {
    const ShutdownHooks& hooks = shutdown_hooks();
    if (legacy::the_protocol.pending) call(hooks.writeProtocol);
    delete_empty_protocol();
    // A session without a substance would overwrite one that has it.
    if (legacy::the_session.SubstanceSet && hooks.saveLastSession)
        hooks.saveLastSession(legacy::the_session.LastSessionFile);
    call(hooks.closeFiles);
    call(hooks.closeHelp);
}

}  // namespace quor::session
