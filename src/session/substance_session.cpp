#include "session/substance_session.h"

#include <algorithm>

#include "common/constants.h"
#include "common/dialogs.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/search.h"
#include "legacy/wrappers.h"
#include "models/cubic_eos.h"
#include "models/model_choice.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/commands.h"
#include "session/measured_data_session.h"
#include "session/module2.h"

namespace quor::session {

namespace {

namespace fs = std::filesystem;

using legacy::the_database;
using legacy::the_session;

constexpr const char* kRefused = "Execution not possible";

bool is_same_file(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return fs::equivalent(a, b, ignored);
}

void tell_unusable(const std::string& title) {
    if (the_database.is_open()) {
        dialogs::tell("Database " + title + "not found in the QUOR directory or empty resp.\n" +
                          "Database already loaded " + the_session.DatabaseFile +
                          " is still activ.",
                      "WARNING", dialogs::Icon::Exclamation);
    } else {
        dialogs::tell("Database " + title + " not found or empty resp.", kRefused,
                      dialogs::Icon::Stop);
    }
}

void note_missing_synonyms() {
    if (!the_session.SynonymNotePending) return;
    the_session.SynonymNotePending = false;
    dialogs::tell(
        "The file SYNOM.TXT was not found in the QUOR directory.\n"
        "Substances are found by their exact name or CASRN only.",
        "Remark", dialogs::Icon::Information);
}

/// The synonyms, read when they are needed for the first time.
const datafiles::Synonyms& synonyms() {
    const fs::path file = legacy::the_places.find_file(std::string(datafiles::kSynonymFile));
    if (file != legacy::the_synonymFile) {
        Result<datafiles::Synonyms> read = datafiles::Synonyms::read(file);
        if (!read) {
            legacy::the_synonyms = {};
            return legacy::the_synonyms;
        }
        legacy::the_synonyms = *std::move(read);
        legacy::the_synonymFile = file;
    }
    return legacy::the_synonyms;
}

/// Place of an index that counts from 1.
std::size_t place_of(std::int16_t index) {
    return static_cast<std::size_t>(index) - 1;
}

void question_measured_data() {
    if (the_session.BatchCount == 0) return;
    if (dialogs::ask("Loaded exper. data (batch data) delete now?", "Batch data",
                     dialogs::Icon::Question, false))
        clear_measured_data();
}

void tell_no_critical_data() {
    dialogs::tell(
        "T(cr) and/or p(cr) not available in the data base\n"
        "(lacking critical data can be completed by the user in data-base editor)\n\n"
        "With  " +
            legacy::the_substance.Name + " no QUOR calculations are possible!",
        kRefused, dialogs::Icon::Stop);
}

// Equation of state and correlated vapour pressure sets follow the new critical data.
void compute_dependents() {
    const models::SubstanceRecord& s = legacy::the_substance;
    const models::Eos eos = legacy::the_models.EOSModel;
    if (eos != models::Eos::none) models::calc_eos_parameters(eos);
    if (static_cast<double>(s.Tboil) <= constants::kPresent) return;
    using enum models::VapourPressureEquation;
    for (const auto equation : {frostVanDerWaals, frostRedlichKwong, thompson})
        models::CorrelateVapourPressure(equation, s.Tcrit, s.pcrit, static_cast<double>(s.Tboil));
}

bool has_critical_data(const models::SubstanceRecord& s) {
    return s.Tcrit >= constants::kPresent && s.pcrit >= constants::kPresent;
}

}  // namespace

// ---------------------------------------------------------------------------------- the database

Result<void> open_database(const std::string& path) {
    const Failure unusable{"Database " + paths::file_title(path) + " not found or empty resp."};
    if (!legacy::the_places.file_exists(path)) return unusable;
    const BusyPointer busy;
    Result<datafiles::Database> opened =
        datafiles::Database::open(legacy::the_places.find_file(path), the_session.EnglishUi);
    if (!opened) return unusable;
    the_database = *std::move(opened);
    return {};
}

LoadOutcome load_database() {
    const std::optional<std::string> path =
        dialogs::choose_file({.title = "Select and load a database",
                              .filter = "Database (*.Q05)|*.Q05",
                              .folder = (legacy::the_places.data_folder() / "").string(),
                              .name = the_session.DatabaseFile,
                              .defaultExtension = ".Q05"});
    return path ? load_database(*path) : LoadOutcome::Cancelled;
}

LoadOutcome load_database(const std::string& path) {
    const std::string title = paths::file_title(path);
    if (title.empty()) return LoadOutcome::Cancelled;
    if (!open_database(path)) {
        tell_unusable(title);
        return LoadOutcome::Failed;
    }
    the_session.DatabaseFile = title;
    add_database_folder(the_database.path().parent_path());
    return LoadOutcome::Loaded;
}

void add_database_folder(const fs::path& folder) {
    std::vector<fs::path>& folders = legacy::the_databaseFolders;
    if (std::find(folders.begin(), folders.end(), folder) == folders.end())
        folders.push_back(folder);
}

std::int16_t find_substance(const std::string& search) {
    const Result<std::size_t> place = datafiles::find_substance(the_database, synonyms(), search);
    if (place) return static_cast<std::int16_t>(*place + 1);
    if (!legacy::the_places.file_exists(std::string(datafiles::kSynonymFile)))
        note_missing_synonyms();
    dialogs::tell(place.reason(), "ERROR: Selection of a substance", dialogs::Icon::Exclamation);
    return 0;
}

// --------------------------------------------------------------------------------- the substance

Result<SubstanceRead> read_substance(std::int16_t index) {
    Result<datafiles::LoadedSubstance> loaded =
        the_database.read(place_of(index), legacy::the_substance.dfs);
    if (!loaded) return loaded.failure();
    legacy::the_substance = std::move(loaded->record);
    // The equation in use stays where the substance has it.
    auto& equation = legacy::the_models.VPModel;
    const auto offered = models::vp_entries(legacy::the_substance);
    if (offered[models::index_of(offered, equation)].model != equation)
        equation = models::vp_of_code(loaded->VPCode);
    return SubstanceRead{loaded->noCriticalData};
}

bool take_substance(std::int16_t index) {
    reset_session();
    set_commands({Command::mnuModel}, false);
    question_measured_data();

    const Result<SubstanceRead> read = read_substance(index);
    if (!read) {
        dialogs::tell(
            "The substance could not be read from the database " + the_session.DatabaseFile,
            kRefused, dialogs::Icon::Stop);
        return false;
    }
    the_session.CurrentSubstance = index;
    if (read->noCriticalData) {
        tell_no_critical_data();
        return false;
    }
    the_session.SubstanceSet = true;
    const BusyPointer busy;
    compute_dependents();
    set_commands({Command::mnuModel}, true);
    return true;
}

bool save_private_database() {
    const std::optional<std::string> path = dialogs::choose_file(
        {.save = true,
         .title = "Saving a Private Database File *.Q05 for the actual substance ",
         .filter = "Database (*.Q05)|*.Q05",
         .folder = (legacy::the_places.write_folder() / "").string(),
         .defaultExtension = ".Q05",
         .overwritePrompt = true});
    return path && !path->empty() && write_private_database(*path);
}

bool write_private_database(const std::string& path) {
    const fs::path target =
        paths::target_path(path, legacy::the_places.write_folder().string(), ".Q05");
    if (is_same_file(target, the_database.path())) {
        dialogs::tell("This file is the database that is open. Choose another name.", kRefused,
                      dialogs::Icon::Stop);
        return false;
    }
    const Result<datafiles::SubstanceFileRecord> own =
        the_database.record(place_of(the_session.CurrentSubstance));
    if (!own) return false;
    const Result<std::string> older = files::read_whole(target, datafiles::kLargestDatabase);
    const std::string bytes = datafiles::private_database_bytes(
        *own, legacy::the_substance, the_session.EnglishUi, legacy::the_places.short_date(),
        older ? *older : std::string());
    return static_cast<bool>(files::write_whole(target, bytes));
}

// ------------------------------------------------------------------------------------ the editor

void apply_editor(datafiles::EditorTexts& texts) {
    models::ModelSelection& models = legacy::the_models;
    const models::SubstanceRecord& substance = legacy::the_substance;
    if (datafiles::apply_editor(texts, legacy::the_substance, models).watsonDropped)
        dialogs::Beep();
    // The coefficients of the manual virial equation were typed in and stay.
    if (has_critical_data(substance) && models.EOSModel != models::Eos::none &&
        models.EOSModel != models::Eos::manualVirial)
        models::calc_eos_parameters(models.EOSModel);
    if (has_critical_data(substance) && the_session.CurrentSubstance > 0 &&
        !the_session.SubstanceSet) {
        the_session.SubstanceSet = true;
        set_commands({Command::mnuModel}, true);
    }
    refresh_units();
    the_session.ResultsOutdated = true;
}

std::optional<std::string> triple_point_pressure(bool fromEquation) {
    const models::SubstanceRecord& s = legacy::the_substance;
    if (!fromEquation) return datafiles::editor_text(s.ptriple);
    const Result<std::string> text =
        datafiles::triple_point_pressure(s, legacy::the_models.VPModel);
    if (text) return *text;
    dialogs::tell(text.reason(), kRefused, dialogs::Icon::Stop);
    return std::nullopt;
}

bool may_close_editor(const datafiles::EditorTexts& shown, const datafiles::EditorTexts& now) {
    if (shown == now) return true;
    return dialogs::ask("Your changes are lost here (use \"Apply\")\n\nClose nevertheless?",
                        "WARNING", dialogs::Icon::Exclamation, false);
}

std::string active_equation_caption() {
    return "actual vapour-pressure equation: " +
           text::trim(models::vp_name(legacy::the_models.VPModel));
}

std::string database_caption() {
    return "Database loaded:  " + text::to_upper(paths::file_title(the_session.DatabaseFile));
}

}  // namespace quor::session
