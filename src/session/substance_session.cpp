#include "session/substance_session.h"

#include <algorithm>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/save_file.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/search.h"
#include "models/cubic_eos.h"
#include "models/model_choice.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/commands.h"
#include "session/measured_data_session.h"
#include "session/questions.h"
#include "session/take_models.h"

namespace quor::session {

namespace {

namespace fs = std::filesystem;

bool is_same_file(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return fs::equivalent(a, b, ignored);
}

void tell_unusable(const Session& session, const std::string& title) {
    if (session->database.is_open()) {
        dialogs::tell("Database " + title + "not found in the QUOR directory or empty resp.\n" +
                          "Database already loaded " + session->database_file + " is still activ.",
                      "WARNING", dialogs::Icon::Exclamation);
    } else {
        dialogs::tell("Database " + title + " not found or empty resp.", dialogs::kNotPossible,
                      dialogs::Icon::Stop);
    }
}

void note_missing_synonyms(Session& session) {
    if (!session->synonym_note_pending) return;
    session.change()->synonym_note_pending = false;
    dialogs::tell(
        "The file SYNOM.TXT was not found in the QUOR directory.\n"
        "Substances are found by their exact name or CASRN only.",
        "Remark", dialogs::Icon::Information);
}

/// The synonyms, read when they are needed for the first time.
const datafiles::Synonyms& synonyms(Session& session) {
    const fs::path file = session.places().find_file(std::string(datafiles::kSynonymFile));
    if (file != session->synonym_file) {
        Result<datafiles::Synonyms> read = datafiles::Synonyms::read(file);
        if (!read) {
            session.change()->synonyms = {};
            return session->synonyms;
        }
        const auto now = session.change();
        now->synonyms = *std::move(read);
        now->synonym_file = file;
    }
    return session->synonyms;
}

/// Place of an index that counts from 1.
std::size_t place_of(std::int16_t index) {
    return static_cast<std::size_t>(index) - 1;
}

void question_measured_data(Session& session) {
    if (session->measured.points.empty()) return;
    if (dialogs::ask("Loaded exper. data (batch data) delete now?", "Batch data",
                     dialogs::Icon::Question, false))
        clear_measured_data(session);
}

void tell_no_critical_data(const Session& session) {
    dialogs::tell(
        "T(cr) and/or p(cr) not available in the data base\n"
        "(lacking critical data can be completed by the user in data-base editor)\n\n"
        "With  " +
            session->substance.name + " no QUOR calculations are possible!",
        dialogs::kNotPossible, dialogs::Icon::Stop);
}

// Equation of state and correlated vapour pressure sets follow the new critical data.
void compute_dependents(Session& session) {
    const models::Eos eos = session->models.eos;
    if (eos != models::Eos::none) compute_constants(session, eos);
    const auto now = session.change();
    models::SubstanceRecord& s = now->substance;
    const auto Tboil = static_cast<double>(s.Tboil);
    if (Tboil <= constants::kPresent) return;
    using enum models::VapourPressureEquation;
    for (const auto equation : {frostVanDerWaals, frostRedlichKwong, thompson})
        models::correlate_vapour_pressure(s, equation, s.Tcrit, s.pcrit, Tboil);
}

bool has_critical_data(const models::SubstanceRecord& s) {
    return s.Tcrit >= constants::kPresent && s.pcrit >= constants::kPresent;
}

}  // namespace

// ---------------------------------------------------------------------------------- the database

Result<datafiles::Database> read_database(Session& session, const std::string& path) {
    const Failure unusable{"Database " + paths::file_title(path) + " not found or empty resp."};
    if (!session.places().file_exists(path)) return unusable;
    const BusyPointer busy(session);
    Result<datafiles::Database> opened =
        datafiles::Database::open(session.places().find_file(path), session->english);
    if (!opened) return unusable;
    return opened;
}

Result<void> open_database(Session& session, const std::string& path) {
    Result<datafiles::Database> opened = read_database(session, path);
    if (!opened) return opened.failure();
    session.change()->database = *std::move(opened);
    return {};
}

std::optional<std::string> choose_database(const Session& session) {
    return dialogs::choose_file({.title = "Select and load a database",
                                 .filter = "Database (*.Q05)|*.Q05",
                                 .folder = (session.places().data_folder() / "").string(),
                                 .name = session->database_file,
                                 .default_extension = ".Q05"});
}

LoadOutcome load_database(Session& session) {
    const std::optional<std::string> path = choose_database(session);
    return path ? load_database(session, *path) : LoadOutcome::Cancelled;
}

LoadOutcome load_database(Session& session, const std::string& path) {
    const std::string title = paths::file_title(path);
    if (title.empty()) return LoadOutcome::Cancelled;
    if (!open_database(session, path)) {
        tell_unusable(session, title);
        return LoadOutcome::Failed;
    }
    session.change()->database_file = title;
    add_database_folder(session, session->database.path().parent_path());
    return LoadOutcome::Loaded;
}

void add_database_folder(Session& session, const fs::path& folder) {
    if (std::ranges::find(session->database_folders, folder) == session->database_folders.end())
        session.change()->database_folders.push_back(folder);
}

std::string known_name(Session& session, const std::string& casrn) {
    const std::string number = text::trim(casrn);
    const std::optional<datafiles::SynonymHit> known = synonyms(session).find(number);
    const std::string name = known ? text::trim(text::split(known->line, '_').front()) : "";
    return name.empty() ? "CASRN " + number : name + " (CASRN " + number + ")";
}

std::optional<std::int16_t> exact_substance(Session& session, const std::string& search) {
    if (text::trim(search).empty()) return std::nullopt;
    const datafiles::Synonyms& known = synonyms(session);
    const auto place = datafiles::find_substance(session->database, known, search);
    if (place) return static_cast<std::int16_t>(*place + 1);
    return datafiles::is_known(known, search) ? std::optional<std::int16_t>(0) : std::nullopt;
}

std::int16_t find_substance(Session& session, const std::string& search) {
    const Result<std::size_t> place =
        datafiles::find_substance(session->database, synonyms(session), search);
    if (place) return static_cast<std::int16_t>(*place + 1);
    if (!session.places().file_exists(std::string(datafiles::kSynonymFile)))
        note_missing_synonyms(session);
    dialogs::tell(place.reason(), "ERROR: Selection of a substance", dialogs::Icon::Exclamation);
    return 0;
}

// --------------------------------------------------------------------------------- the substance

Result<SubstanceRead> read_substance(Session& session, std::int16_t index) {
    Result<datafiles::LoadedSubstance> loaded =
        session->database.read(place_of(index), session->substance.dfs);
    if (!loaded) return loaded.failure();
    const auto now = session.change();
    now->substance = std::move(loaded->record);
    now->applied_unsaved = false;
    // The equation in use stays where the substance has it; one without a measured set starts with
    // its first entry, whatever the substance before had.
    models::VapourPressureEquation& equation = now->models.vapour_pressure;
    const auto offered = models::vp_entries(now->substance);
    if (!models::has_measured_vapour_pressure(now->substance) ||
        offered[models::index_of(offered, equation)].model != equation)
        equation = models::default_vapour_pressure(now->substance);
    return SubstanceRead{loaded->no_critical_data};
}

bool may_leave_substance(Session& session) {
    if (!session->applied_unsaved) return true;
    if (!may_leave_unsaved([&session] { return save_private_database(session); },
                           "The parameters applied to " + session->substance.name +
                               " live in this session only.\n"
                               "Save them in a private database now?"))
        return false;
    session.change()->applied_unsaved = false;
    return true;
}

bool take_substance(Session& session, std::int16_t index) {
    if (!may_leave_substance(session)) return false;
    const auto now = session.change();
    reset_session(session);
    set_commands(session, {Command::chooseModels}, false);
    question_measured_data(session);

    const Result<SubstanceRead> read = read_substance(session, index);
    if (!read) {
        dialogs::tell(read.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
        return false;
    }
    now->substance_number = index;
    if (read->no_critical_data) {
        tell_no_critical_data(session);
        return false;
    }
    now->substance_set = true;
    const BusyPointer busy(session);
    compute_dependents(session);
    set_commands(session, {Command::chooseModels}, true);
    return true;
}

namespace {

/// The bytes of a private database in a place, of which an older file keeps what is not written
/// anew.
Result<std::string> private_database(const Session& session, const std::string& target) {
    if (is_same_file(target, session->database.path()))
        return Failure{"This file is the database that is open. Choose another name."};
    const Result<datafiles::SubstanceFileRecord> own =
        session->database.record(place_of(session->substance_number));
    if (!own) return own.failure();
    const Result<std::string> older = files::read_whole(target, datafiles::kLargestDatabase);
    return datafiles::private_database_bytes(*own, session->substance, session->english,
                                             session.places().short_date(),
                                             older ? *older : std::string());
}

}  // namespace

bool save_private_database(Session& session) {
    const std::optional<std::string> path = saving::save_where_chosen(
        {.choice = {.save = true,
                    .title = "Saving a Private Database File *.Q05 for the actual substance ",
                    .filter = "Database (*.Q05)|*.Q05",
                    .folder = (session.places().write_folder() / "").string(),
                    .default_extension = ".Q05",
                    .overwrite_prompt = true},
         .content = [&session](const std::string& target) {
             return private_database(session, target);
         }});
    if (path) session.change()->applied_unsaved = false;
    return path.has_value();
}

// ------------------------------------------------------------------------------------ the editor

void apply_editor(Session& session, datafiles::EditorTexts& texts) {
    const auto now = session.change();
    if (datafiles::apply_editor(texts, now->substance, now->models).watson_dropped) dialogs::beep();
    const bool complete = has_critical_data(now->substance);
    if (complete && now->models.eos != models::Eos::none)
        compute_constants(session, now->models.eos);
    if (complete && now->substance_number > 0 && !now->substance_set) {
        now->substance_set = true;
        set_commands(session, {Command::chooseModels}, true);
    }
    settle_units(session);
}

std::optional<std::string> triple_point_pressure(const Session& session, bool from_equation) {
    const models::SubstanceRecord& s = session->substance;
    if (!from_equation) return datafiles::editor_text(s.ptriple);
    const Result<std::string> text =
        datafiles::triple_point_pressure(s, session->models.vapour_pressure);
    if (text) return *text;
    dialogs::tell(text.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
    return std::nullopt;
}

bool may_close_editor(const datafiles::EditorTexts& shown, const datafiles::EditorTexts& now) {
    if (shown == now) return true;
    return dialogs::ask("Your changes are lost here (use \"Apply\")\n\nClose nevertheless?",
                        "WARNING", dialogs::Icon::Exclamation, false);
}

std::string active_equation_caption(const Session& session) {
    return "actual vapour-pressure equation: " +
           text::trim(models::vp_name(session->models.vapour_pressure));
}

std::string database_caption(const Session& session) {
    return "Database loaded:  " + text::to_upper(paths::file_title(session->database_file));
}

}  // namespace quor::session
