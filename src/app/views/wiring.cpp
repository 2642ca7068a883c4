#include "app/views/wiring.h"

#include "calculation/views/calculation_views.h"
#include "datafiles/database.h"
#include "session/shutdown.h"

namespace wiring {

void ConnectViews() {
    Module2::shutdownHooks().closeFiles = LoadSaveData::CloseDatabase;
    calculation_views::Install();
}

}  // namespace wiring
