#include "app/views/wiring.h"

#include "datafiles/database.h"
#include "session/shutdown.h"

namespace wiring {

void ConnectViews() {
    Module2::shutdownHooks().closeFiles = LoadSaveData::CloseDatabase;
}

}  // namespace wiring
