#include "session/session.h"

#include "common/dialogs.h"
#include "models/named_reference.h"

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
    const bool same = fluid_.models() == s.models && fluid_.eos() == s.eos_parameters &&
                      fluid_.jt() == s.ji_torvik && fluid_.substance() == s.substance;
    if (!same) fluid_ = models::Fluid(s.substance, s.models, s.eos_parameters, s.ji_torvik);
    return fluid_;
}

void Session::end_change() {
    if (--changing_ > 0) return;
    tell_in_present_units();
    listeners_.tell();
}

// Nothing is calculated: the numbers of the answer do not depend on the units.
void Session::tell_in_present_units() {
    const models::UnitChoice present = unit_choice(state_);
    if (present == told_in_) return;
    told_in_ = present;
    report::TaskResult& current = state_.results.current;
    if (current.answer.task != calculation::Task::none && current.made.units.choice != present)
        current = report::told_in(current, present);
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
    fresh.database_folders = session->database_folders;
    fresh.synonyms = session->synonyms;
    fresh.synonym_file = session->synonym_file;
    // The program's folder with its closing separator, as the five folders are kept.
    const std::string folder = (session.places().write_folder() / "").string();
    fresh.folder_measured = fresh.folder_diagrams = fresh.folder_surfaces = folder;
    fresh.folder_xy = fresh.folder_projects = folder;
    fresh.last_session_file = folder + "QuorLastSession.QCF";
    fresh.last_session_written = files::time_written(fresh.last_session_file);
    fresh.protocol.begin(session.places().new_protocol_file_name());
    fresh.decimal_comma = numbers::decimal_mark() == ',';
    *now = std::move(fresh);

    reset_session(session);
    set_commands(session, {Command::status}, true);
}

void reset_session(Session& session) {
    const auto now = session.change();
    now->batch_mode = false;
    now->substance_set = false;
    now->substance_number = 0;
    now->models.vaporisation = models::VaporisationModel::none;
    now->reference = {};
    now->coordinates = {};
    now->calculation.method.global = true;
    now->models.eos_has_priority = true;
    now->new_substance_diagram = true;
    now->ji_torvik = {};
    set_commands(session,
                 {Command::calculations, Command::options, Command::fitting, Command::diagrams,
                  Command::surfaces, Command::saveProject, Command::toolSave},
                 false);
}

models::ReferenceState present_reference(const Session& session) {
    const Result<models::ReferenceState> resolved =
        models::resolved_reference(session.fluid(), session->reference);
    if (resolved) return *resolved;
    models::ReferenceState zero = session->reference;
    zero.named = models::NamedState::none;
    zero.mode = 1;
    zero.href = zero.sref = 0;
    return zero;
}

void settle_reference_state(Session& session) {
    const Result<models::ReferenceState> resolved =
        models::resolved_reference(session.fluid(), session->reference);
    if (resolved) return;
    const models::NamedState proposed = models::proposed_reference(session.fluid());
    const models::NamedReference* const row = models::named_reference(proposed);
    const std::string instead =
        row == nullptr ? "h = 0, s = 0 of the ideal gas" : std::string(row->text);
    const auto now = session.change();
    if (row == nullptr) now->reference = present_reference(session);
    now->reference.named = proposed;
    dialogs::tell(resolved.reason() + "\nThe zero of h and s is now: " + instead + ".",
                  "Reference state");
}

models::UnitChoice unit_choice(const SessionState& state) {
    models::UnitChoice choice = state.units;
    choice.T_of_RT = state.diagram_at.T;
    return choice;
}

models::Units present_units(const Session& session) {
    return models::make_units(unit_choice(session.state()), session.fluid());
}

models::Units usable_units(const Session& session) {
    try {
        return present_units(session);
    } catch (const faults::Fault&) {
        return models::make_units(
            models::possible_choice(unit_choice(session.state()), session.fluid()),
            session.fluid());
    }
}

void settle_units(Session& session) {
    const auto now = session.change();
    try {
        now->units.system = present_units(session).choice.system;
    } catch (const faults::Fault&) {
        now->units = models::possible_choice(now->units, session.fluid());
    }
}

}  // namespace quor::session
