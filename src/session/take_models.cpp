#include "session/take_models.h"

#include "common/dialogs.h"
#include "legacy/wrappers.h"
#include "session/actions.h"
#include "session/commands.h"

namespace quor::session {

namespace {

/// The records that a choice writes.
struct Chosen {
    models::SubstanceRecord substance = legacy::the_substance;
    models::ModelSelection models = legacy::the_models;
    models::EOSParameters eos = legacy::the_eosParameters;
    models::JiTorvikParameters jiTorvik = legacy::the_jiTorvik;

    void restore() const {
        legacy::the_substance = substance;
        legacy::the_models = models;
        legacy::the_eosParameters = eos;
        legacy::the_jiTorvik = jiTorvik;
    }
};

bool compute_constants() {
    const models::ModelSelection& m = legacy::the_models;
    if (m.EOSModel != models::Eos::manualVirial)
        return models::calc_eos_parameters(m.EOSModel) == kSuccess;
    legacy::the_eosParameters = models::eos_constants(legacy::the_substance, m).power;
    return true;
}

}  // namespace

bool take_models(const models::ModelChoice& choice) {
    if (const auto warning = choice.warning()) dialogs::tell(*warning, "WARNING");
    const Chosen before;
    legacy::the_models = choice.models();
    models::correlate_for(legacy::the_models, legacy::the_substance);
    if (!compute_constants()) {
        before.restore();
        return false;
    }
    enable_model_commands();
    actions::Run("CalcCoordinateDefaults");
    return true;
}

void enable_model_commands() {
    set_commands({Command::mnuCalcMain, Command::mnuOptions, Command::mnuFitting, Command::mnu2D,
                  Command::mnu3D, Command::mnuData_SaveProject, Command::toolSave,
                  Command::toolReference, Command::toolTank},
                 true);
    set_commands({Command::needsLPhase}, !legacy::the_models.EOSOnlyV);
}

}  // namespace quor::session
