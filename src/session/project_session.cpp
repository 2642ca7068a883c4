#include "session/project_session.h"

#include "common/dialogs.h"
#include "common/save_file.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/search.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/substance_session.h"
#include "session/take_models.h"

namespace quor::session {

namespace {

using datafiles::ProjectContent;
using datafiles::ProjectSettings;
using models::ManualVirial;

constexpr const char* kFilter = "Project (*.QCF)|*.QCF";
constexpr const char* kExtension = ".QCF";

/// Calls `both` with every setting of a session and its place in a project's settings. Either may
/// be constant.
template <class State, class Settings, class Both>
void for_each_setting(State& now, Settings& s, const Both& both) {
    both(now.diagram_at.T, s.diagram_T);
    both(now.diagram_at.p, s.diagram_p);
    both(now.diagram_at.v, s.diagram_v);
    both(now.caloric_factor, s.caloric_factor);
    both(now.units.system, s.unit_mode);
    both(now.units.caloric, s.caloric_unit);
    both(now.curve_options.real_range_only, s.curve_real_range_only);
    both(now.curve_options.points, s.points_per_curve);
    both(now.csv_separator, s.csv_separator);
    both(now.models.vapour_pressure, s.vapour_pressure);
    both(now.models.eos, s.eos);
    both(now.models.cp_form, s.cp_form);
    both(now.models.vaporisation, s.vaporisation);
    both(now.models.watson_n, s.watson_n);
    both(now.models.eos_has_priority, s.eos_has_priority);
    both(now.reference.mode, s.reference_mode);
    both(now.reference.href, s.href);
    both(now.reference.sref, s.sref);
    both(now.reference.T0, s.T0);
    both(now.reference.p0, s.p0);
    both(now.reference.Tenv, s.Tenv);
    both(now.reference.penv, s.penv);
    both(now.batch_mode, s.batch_mode);
    both(now.curve_options.s_without_tie_line, s.curve_s_without_tie_line);
    both(now.curve_options.partial_gas, s.partial_gas_curve);
    both(now.tank.V, s.tank_V);
    both(now.tank.m, s.tank_m);
    both(now.tank.T, s.tank_T);
}

void apply_settings(Session& session, const ProjectSettings& settings) {
    const auto now = session.change();
    for_each_setting(*now, settings, [](auto& own, const auto& told) {
        using Own = std::remove_reference_t<decltype(own)>;
        if (told) own = static_cast<Own>(*told);
    });
}

void tell_no_database(const std::string& title) {
    dialogs::tell("Database of the project " + title + "not found in the QUOR directory ",
                  dialogs::kNotPossible, dialogs::Icon::Stop);
}

/// A database with the title that a session knows it by.
struct TitledDatabase {
    datafiles::Database database{};
    std::string title{};
};

/// The database of a project, or the open one where that cannot be had, which is told.
std::optional<TitledDatabase> first_database(Session& session, const std::string& title,
                                             const std::string& project_folder) {
    if (Result<datafiles::Database> own =
            read_database(session, datafiles::find_database(title, project_folder, session.places(),
                                                            session->database_folders)))
        return TitledDatabase{*std::move(own), title};
    if (!session->database.is_open()) {
        tell_no_database(title);
        return std::nullopt;
    }
    dialogs::tell("Database of the project " + title +
                      "not found in the QUOR directory or empty resp.\nThe actual database " +
                      session->database_file + " is still activ.",
                  "Hint", dialogs::Icon::Exclamation);
    return TitledDatabase{session->database, session->database_file};
}

/// Says that a database lacks the substance of a project, and asks for another one; nothing when
/// the user gives up.
std::optional<TitledDatabase> ask_for_database(Session& session, const std::string& casrn,
                                               const std::string& lacking) {
    if (!dialogs::ask("The substance of this project,\n" + known_name(session, casrn) +
                          ",\nis not in the database " + lacking + ".\n\nChoose another database?",
                      "WARNING", dialogs::Icon::Exclamation))
        return std::nullopt;
    const std::optional<std::string> path = choose_database(session);
    if (!path || path->empty()) return std::nullopt;
    Result<datafiles::Database> chosen = read_database(session, *path);
    if (chosen) return TitledDatabase{*std::move(chosen), paths::file_title(*path)};
    dialogs::tell(chosen.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
    return TitledDatabase{{}, paths::file_title(*path)};
}

/// A database that has the substance of a project; nothing, which is told, when there is none.
std::optional<TitledDatabase> database_for(Session& session, const ProjectContent& project,
                                           const std::string& project_folder) {
    std::optional<TitledDatabase> found = first_database(session, project.database, project_folder);
    while (found && !datafiles::find_by_casrn(found->database, project.casrn))
        found = ask_for_database(session, project.casrn, found->title);
    return found;
}

void tell_no_critical_data(const Session& session) {
    dialogs::tell(
        "T(cr) and/or p(cr) not available in the database.\n"
        "(lacking critical data can be completed by the user in data-base editor)\n"
        "For " +
            session->substance.name + " is no calculation possible!",
        "WARNING", dialogs::Icon::Exclamation);
}

/// Makes the substance of a project active, as far as the database has it.
void read_project_substance(Session& session, const std::string& casrn, ProjectResult& result) {
    const auto now = session.change();
    const std::optional<std::size_t> place = datafiles::find_by_casrn(session->database, casrn);
    now->substance_number = place ? static_cast<std::int16_t>(*place + 1) : std::int16_t{0};
    const Result<SubstanceRead> read = read_substance(session, now->substance_number);
    result.substance_found = static_cast<bool>(read);
    now->substance_set = result.substance_found;
    models::SubstanceRecord& substance = now->substance;
    if (!read) {
        // No data of an earlier substance stay behind an empty selection.
        now->substance_number = 0;
        now->applied_unsaved = false;
        substance = {};
        return;
    }
    result.no_critical_data = read->no_critical_data;
    if (result.no_critical_data) tell_no_critical_data(session);
    if (!(substance.Tboil > 0 && substance.Tcrit > 0 && substance.pcrit > 0)) return;
    for (const char* code : {"KFW", "KFR", "THO"})
        models::correlate_vapour_pressure(substance, models::vp_of_code(code), substance.Tcrit,
                                          substance.pcrit, static_cast<double>(substance.Tboil));
}

/// Takes the coefficients of the manual virial equation; false when the project has none. Nothing
/// of another equation stays behind it.
bool take_virial(Session& session, const std::optional<ManualVirial>& virial) {
    session.change()->models.manual_virial = virial.value_or(ManualVirial{});
    const bool computed = compute_constants(session, models::Eos::manualVirial);
    if (!virial)
        dialogs::tell(
            "The project holds no coefficients b0, b1, b2 of its virial equation.\n"
            "Choose the equation of state again.",
            "WARNING", dialogs::Icon::Exclamation);
    return computed && virial;
}

/// What follows from the settings: constants of the equation of state, factors and labels.
void derive_from_settings(Session& session, const std::optional<ManualVirial>& virial,
                          ProjectResult& result) {
    const auto now = session.change();
    models::ModelSelection& models = now->models;
    if (models.eos == models::Eos::none) models.eos = models::Eos::idealGas;
    models.vapour_only = models::is_v_only(models.eos);
    if (models.vapour_only) models.eos_has_priority = false;

    if (result.substance_found && !result.no_critical_data) {
        const bool manual = models.eos == models::Eos::manualVirial;
        result.models_complete =
            manual ? take_virial(session, virial) : compute_constants(session, models.eos);
        if (result.models_complete) settle_reference_state(session);
    }
    settle_units(session);
}

Result<ProjectContent> read_file(const std::string& path) {
    const Result<std::string> bytes = files::read_whole(path, datafiles::kLargestProject);
    if (!bytes) return bytes.failure();
    return datafiles::read_project(*bytes, paths::file_title(path));
}

/// The content of a file; nothing, after a message, when it cannot be read or is no project.
std::optional<ProjectContent> read_or_tell(const std::string& path) {
    const Result<ProjectContent> project = read_file(path);
    if (project) return *project;
    dialogs::tell(project.reason(), dialogs::kNotPossible, dialogs::Icon::Stop);
    return std::nullopt;
}

void remember_project(Session& session, const std::string& path) {
    const auto now = session.change();
    now->project_file = paths::file_title(path);
    now->folder_projects = paths::folder_of(path);
}

/// Another run that has ended since this one began has left its session there: it gets a name of
/// its own.
void keep_session_of_another_run(const Session& session) {
    namespace fs = std::filesystem;
    const fs::path file = session->last_session_file;
    const auto written = files::time_written(file);
    if (!written || written == session->last_session_written) return;
    std::error_code failed;
    for (int number = 1; number < 1000; ++number) {
        const fs::path kept =
            file.parent_path() /
            (file.stem().string() + "_" + std::to_string(number) + file.extension().string());
        if (fs::exists(kept, failed)) continue;
        // Its old name stays until the new session takes it: a run that is cut off in between
        // leaves no gap.
        fs::create_hard_link(fs::weakly_canonical(file, failed), kept, failed);
        if (failed) fs::copy_file(file, kept, failed);
        return;
    }
}

}  // namespace

datafiles::ProjectContent present_project(const Session& session) {
    ProjectContent content{.date = session.places().short_date(),
                           .comment = session->project_comment,
                           .database = session->database_file,
                           .casrn = session->substance_number == 0 ? "" : session->substance.casrn};
    for_each_setting(session.state(), content.settings, [](const auto& own, auto& told) {
        using Told = typename std::remove_reference_t<decltype(told)>::value_type;
        told = static_cast<Told>(own);
    });
    // The items tell what a named reference state comes to, for readers that know none.
    const models::ReferenceState reference = present_reference(session);
    content.settings.reference_mode = reference.mode;
    content.settings.href = reference.href;
    content.settings.sref = reference.sref;
    content.settings.T0 = reference.T0;
    content.settings.p0 = reference.p0;
    content.named_reference = reference.named;
    content.own_state = reference.own;
    if (models::has_own_units(session->units)) content.units = session->units;
    if (session->models.eos == models::Eos::manualVirial)
        content.manual_virial = session->models.manual_virial;
    return content;
}

bool save_project(Session& session) {
    std::optional<std::string> comment;
    const std::optional<std::string> path = saving::save_where_chosen(
        {.choice = {.save = true,
                    .title = "save actual project as ...",
                    .filter = kFilter,
                    .folder = session->folder_projects,
                    .name = session->project_file,
                    .default_extension = kExtension,
                    .overwrite_prompt = true},
         .content = [&](const std::string&) {
             if (!comment)
                 comment =
                     dialogs::ask_input({.text = "Input text for comment\n<Cancel> = No Comment",
                                         .title = " File comment (optional) ",
                                         .proposal = session->project_comment})
                         .value_or("");
             session.change()->project_comment = *comment;
             return datafiles::project_text(present_project(session));
         }});
    if (path) remember_project(session, *path);
    return path.has_value();
}

Result<void> save_last_session(Session& session) {
    keep_session_of_another_run(session);
    const std::string& file = session->last_session_file;
    const Result<void> written =
        files::write_whole(file, datafiles::project_text(present_project(session)));
    if (written) session.change()->last_session_written = files::time_written(file);
    return written;
}

std::optional<std::string> choose_project(Session& session) {
    std::optional<std::string> name = dialogs::choose_file({.title = "Load a project (*.QCF)",
                                                            .filter = kFilter,
                                                            .folder = session->folder_projects,
                                                            .default_extension = kExtension});
    return name && !name->empty() ? name : std::nullopt;
}

std::optional<PreparedProject> prepare_project(Session& session, const std::string& name) {
    const std::string path = paths::in_folder(name, session->folder_projects);
    std::optional<ProjectContent> content = read_or_tell(path);
    if (!content) return std::nullopt;
    if (text::trim(content->casrn).empty()) {
        dialogs::tell("The project " + paths::file_title(path) + " names no substance.",
                      dialogs::kNotPossible, dialogs::Icon::Stop);
        return std::nullopt;
    }
    std::optional<TitledDatabase> found = database_for(session, *content, paths::folder_of(path));
    if (!found) return std::nullopt;
    return PreparedProject{path, *std::move(content), std::move(found->database),
                           std::move(found->title)};
}

ProjectResult load_project(Session& session) {
    const std::optional<std::string> name = choose_project(session);
    return name ? load_project(session, *name) : ProjectResult{};
}

ProjectResult load_project(Session& session, const PreparedProject& project) {
    const auto now = session.change();
    now->database = project.database;
    now->database_file = project.database_file;
    add_database_folder(session, project.database.path().parent_path());
    reset_session(session);
    ProjectResult result{.loaded = true};
    read_project_substance(session, project.content.casrn, result);
    apply_settings(session, project.content.settings);
    now->reference.named = project.content.named_reference;
    now->reference.own = project.content.own_state;
    now->units.shown = {};
    if (project.content.units) now->units = *project.content.units;
    derive_from_settings(session, project.content.manual_virial, result);
    now->project_comment = project.content.comment;
    // The last session is no project of the user's.
    if (project.path != session->last_session_file) remember_project(session, project.path);
    return result;
}

ProjectResult load_project(Session& session, const std::string& name) {
    const std::optional<PreparedProject> project = prepare_project(session, name);
    return project ? load_project(session, *project) : ProjectResult{};
}

ProjectResult load_last_session(Session& session) {
    return load_project(session, session->last_session_file);
}

}  // namespace quor::session
