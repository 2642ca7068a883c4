#include "app/views/wiring.h"

#include "datafiles/database.h"
#include "datafiles/views/editor_views.h"
#include "estimation/views/estimation_views.h"
#include "session/actions.h"
#include "session/shutdown.h"
#include "session/views/frmOptions.h"
#include "session/views/shell.h"

namespace wiring {

void ConnectViews() {
    Module2::shutdownHooks().closeFiles = LoadSaveData::CloseDatabase;
    actions::RegisterAction("mnuOptions", [] {
        frmOptions view(shell::FrameWindow());
        shell::OpenModal(view);
    });
    editor_views::Install();
    estimation_views::Install();
}

}  // namespace wiring
