#include "app/views/wiring.h"

#include "datafiles/database.h"
#include "diagrams/views/frmGraph2D.h"
#include "session/actions.h"
#include "session/shutdown.h"
#include "session/views/frmOptions.h"
#include "session/views/shell.h"

namespace wiring {

void ConnectViews() {
    Module2::shutdownHooks().closeFiles = LoadSaveData::CloseDatabase;
    graph2d_views::Install();
    actions::RegisterAction("mnuOptions", [] {
        frmOptions view(shell::FrameWindow());
        shell::OpenModal(view);
    });
}

}  // namespace wiring
