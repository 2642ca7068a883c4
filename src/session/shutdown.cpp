#include "session/shutdown.h"

#include "session/declare.h"
#include "session/module2.h"

namespace Module2 {

namespace {

void call(const std::function<void()>& hook) {
    if (hook) hook();
}

void delete_empty_protocol() {
    namespace fs = std::filesystem;
    const std::string& name = Declare::session.ProtocolFile;
    if (name.empty()) return;
    const fs::path file = HasSeparator(name) ? fs::path(name) : WriteFolder() / name;
    std::error_code failed;
    if (fs::is_regular_file(file, failed) && fs::file_size(file, failed) == 0 && !failed)
        fs::remove(file, failed);
}

}  // namespace

ShutdownHooks& shutdownHooks() {
    static ShutdownHooks hooks;
    return hooks;
}

void Shutdown() {
    const ShutdownHooks& hooks = shutdownHooks();
    if (Declare::session.ProtocolPending) call(hooks.writeProtocol);
    delete_empty_protocol();
    if (!Declare::session.DatabaseFile.empty() && hooks.saveLastSession)
        hooks.saveLastSession(Declare::session.LastSessionFile);
    call(hooks.closeFiles);
    call(hooks.closeHelp);
}

}  // namespace Module2
