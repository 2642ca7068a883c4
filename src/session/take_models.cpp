#include "session/take_models.h"

#include "common/dialogs.h"
#include "common/faults.h"
#include "models/parameter_program.h"
#include "models/vapour_pressure.h"
#include "session/commands.h"
#include "session/diagram_choice.h"

namespace quor::session {

namespace {

using models::Eos;

constexpr auto kParameterProgram = "djipar.exe";
constexpr std::chrono::milliseconds kParameterWait{100000};

/// What a choice writes.
struct Chosen {
    models::SubstanceRecord substance;
    models::ModelSelection models;
    models::EosParameters eos_parameters;
    models::JiTorvikParameters ji_torvik;
};

Chosen chosen(const SessionState& s) {
    return {s.substance, s.models, s.eos_parameters, s.ji_torvik};
}

void restore(Session& session, const Chosen& before) {
    const auto now = session.change();
    now->substance = before.substance;
    now->models = before.models;
    now->eos_parameters = before.eos_parameters;
    now->ji_torvik = before.ji_torvik;
}

/// Asks the external program for the parameters of Ji/Torvik. False without an answer.
bool obtain_ji_torvik(Session& session, Eos eos) {
    session.change()->ji_torvik = {};
    const BusyPointer busy(session);
    const Places& places = session.places();
    const bool present = places.file_exists(kParameterProgram);
    const auto answer = models::ask_parameter_program(
        {present ? places.find_file(kParameterProgram) : "",
         places.write_folder(),
         {kParameterWait,
          present ? dialogs::patience(kParameterProgram, kParameterWait) : nullptr}},
        session->substance, session->models.vapour_pressure, eos);
    if (!answer) {
        // The caller says that there are no parameters; what went wrong before an answer could be
        // read is told here.
        if (answer.reason() != models::kUnreadableParameterFile &&
            answer.reason() != models::kParametersGivenUp)
            dialogs::refuse(answer.reason());
        return false;
    }
    session.change()->ji_torvik = *answer;
    return true;
}

}  // namespace

bool compute_constants(Session& session, Eos eos) {
    const bool of_ji_torvik = eos == Eos::jiTorvik1 || eos == Eos::jiTorvik2;
    session.change()->eos_parameters = {};
    if (of_ji_torvik && !session->ji_torvik_given && !obtain_ji_torvik(session, eos)) {
        dialogs::tell("Error during EOS-parameter calculation", dialogs::kNotPossible,
                      dialogs::Icon::Stop);
        return false;
    }
    const auto now = session.change();
    try {
        models::ModelSelection models = now->models;
        models.eos = eos;
        models.ji_torvik = now->ji_torvik;
        const models::EosConstants constants = models::eos_constants(now->substance, models);
        now->eos_parameters = constants.power;
        now->ji_torvik = constants.ji_torvik;
    } catch (const faults::Fault&) {
        return false;
    }
    return true;
}

bool take_models(Session& session, const models::ModelChoice& choice) {
    if (const auto warning = choice.warning()) dialogs::tell(*warning, "WARNING");
    const Chosen before = chosen(session.state());
    {
        const auto now = session.change();
        now->models = choice.models();
        models::correlate_for(now->models, now->substance);
    }
    if (!compute_constants(session, session->models.eos)) {
        restore(session, before);
        return false;
    }
    const auto now = session.change();
    settle_reference_state(session);
    enable_model_commands(session);
    renew_limits(session);
    return true;
}

void enable_model_commands(Session& session) {
    const auto now = session.change();
    set_commands(session,
                 {Command::calculations, Command::options, Command::fitting, Command::diagrams,
                  Command::surfaces, Command::saveProject, Command::toolSave,
                  Command::toolReference, Command::toolTank},
                 true);
    set_commands(session, {Command::needsLPhase}, !now->models.vapour_only);
}

}  // namespace quor::session
