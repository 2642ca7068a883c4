#include "session/session.h"

#include "common/dialogs.h"
#include "common/faults.h"
#include "common/numbers.h"
#include "common/whole_file.h"

namespace quor::session {

Session::Session(Places places) : places_(std::move(places)) {
    reset_everything(*this);
}

const models::Fluid& Session::fluid() const {
    const SessionState& s = state_;
    const bool same = fluid_.models() == s.models && fluid_.eos() == s.eosParameters &&
                      fluid_.jt() == s.jiTorvik && fluid_.substance() == s.substance;
    if (!same) fluid_ = models::Fluid(s.substance, s.models, s.eosParameters, s.jiTorvik);
    return fluid_;
}

void Session::end_change() {
    if (--changing_ == 0) listeners_.tell();
}

void Session::begin_busy() {
    if (++busy_ == 1) dialogs::current().pointer(true);
}

void Session::end_busy() {
    if (--busy_ == 0) dialogs::current().pointer(false);
}

void reset_everything(Session& session) {
    const auto now = session.change();
    SessionState fresh;
    // What was learnt of the computer's files stays.
    fresh.databaseFolders = session->databaseFolders;
    fresh.synonyms = session->synonyms;
    fresh.synonymFile = session->synonymFile;
    // The program's folder with its closing separator, as the five folders are kept.
    const std::string folder = (session.places().write_folder() / "").string();
    fresh.folderMeasured = fresh.folderDiagrams = fresh.folderSurfaces = folder;
    fresh.folderXy = fresh.folderProjects = folder;
    fresh.lastSessionFile = folder + "QuorLastSession.QCF";
    fresh.lastSessionWritten = files::time_written(fresh.lastSessionFile);
    fresh.protocol.begin(session.places().new_protocol_file_name());
    fresh.decimalComma = numbers::decimal_mark() == ',';
    *now = std::move(fresh);

    reset_session(session);
    set_commands(session, {Command::mnuData_Status}, true);
}

void reset_session(Session& session) {
    const auto now = session.change();
    now->batchMode = false;
    now->substanceSet = false;
    now->substanceNumber = 0;
    now->models.HLVModel = models::VaporisationModel::none;
    now->reference = {};
    now->coordinates = {};
    now->calculation.method.global = true;
    now->models.PriorityCEOS = true;
    now->newSubstanceDiagram = true;
    now->jiTorvik = {};
    set_commands(session,
                 {Command::mnuCalcMain, Command::mnuOptions, Command::mnuFitting, Command::mnu2D,
                  Command::mnu3D, Command::mnuData_SaveProject, Command::toolSave},
                 false);
}

models::UnitChoice unit_choice(const SessionState& state) {
    return {state.unitSystem, state.caloricUnit, state.diagramAt.T};
}

models::Units present_units(const Session& session) {
    return models::make_units(unit_choice(session.state()), session.fluid());
}

void settle_units(Session& session) {
    const auto now = session.change();
    try {
        now->unitSystem = present_units(session).choice.system;
    } catch (const faults::Fault&) {
        now->unitSystem = models::UnitSystem::molar;
        now->caloricUnit = models::CaloricUnit::molar;
    }
}

}  // namespace quor::session
