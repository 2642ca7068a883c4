#include "app/views/wiring.h"

#include "calculation/views/calculation_views.h"
#include "datafiles/database.h"
#include "datafiles/views/frmTpvEdit.h"
#include "models/views/frmReferenz.h"
#include "session/actions.h"
#include "session/shutdown.h"
#include "session/views/shell.h"

namespace wiring {

namespace {

void open_reference() {
    frmReferenz view(shell::FrameWindow());
    shell::OpenModal(view);
}

}  // namespace

void ConnectViews() {
    using actions::RegisterAction;
    Module2::shutdownHooks().closeFiles = LoadSaveData::CloseDatabase;
    calculation_views::Install();
    RegisterAction("frmReferenz", open_reference);
    RegisterAction("mnuData_BatchInput", frmTpvEdit::Open);
    RegisterAction("mnuData_BatchEdit", frmTpvEdit::Open);
}

}  // namespace wiring
