#include "session/project_session.h"

#include "common/dialogs.h"
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
constexpr const char* kRefusal = "Execution not possible";

/// Calls `both` with every setting of a session and its place in a project's settings. Either may
/// be constant.
template <class State, class Settings, class Both>
void for_each_setting(State& now, Settings& s, const Both& both) {
    both(now.diagramAt.T, s.diagramT);
    both(now.diagramAt.p, s.diagramP);
    both(now.diagramAt.v, s.diagramV);
    both(now.caloricFactor, s.caloricFactor);
    both(now.unitSystem, s.unitMode);
    both(now.caloricUnit, s.caloricUnit);
    both(now.curveOptions.realRangeOnly, s.curveRealRangeOnly);
    both(now.curveOptions.points, s.pointsPerCurve);
    both(now.csvSeparator, s.csvSeparator);
    both(now.models.VPModel, s.vapourPressure);
    both(now.models.EOSModel, s.eos);
    both(now.models.CpModel, s.cpForm);
    both(now.models.HLVModel, s.vaporisation);
    both(now.models.WatsonN, s.watsonN);
    both(now.models.PriorityCEOS, s.priorityCEOS);
    both(now.reference.RefMode, s.referenceMode);
    both(now.reference.href, s.href);
    both(now.reference.sref, s.sref);
    both(now.reference.T0, s.T0);
    both(now.reference.p0, s.p0);
    both(now.reference.Tenv, s.Tenv);
    both(now.reference.penv, s.penv);
    both(now.batchMode, s.batchMode);
    both(now.curveOptions.sWithoutTieLine, s.curveSWithoutTieLine);
    both(now.curveOptions.partialGas, s.partialGasCurve);
    both(now.tank.V, s.tankV);
    both(now.tank.m, s.tankM);
    both(now.tank.T, s.tankT);
}

void apply_settings(Session& session, const ProjectSettings& settings) {
    const auto now = session.change();
    for_each_setting(*now, settings, [](auto& own, const auto& told) {
        using Own = std::remove_reference_t<decltype(own)>;
        if (told) own = static_cast<Own>(*told);
    });
}

/// The file of a project's database, as `open_database` takes it.
std::string database_of(const Session& session, const std::string& title,
                        const std::string& projectFolder) {
    return datafiles::find_database(title, projectFolder, session.places(),
                                    session->databaseFolders);
}

void tell_no_database(const std::string& title) {
    dialogs::tell("Database of the project " + title + "not found in the QUOR directory ", kRefusal,
                  dialogs::Icon::Stop);
}

/// Opens the database of a project. False when there is none at all.
bool open_project_database(Session& session, const std::string& title,
                           const std::string& projectFolder) {
    if (open_database(session, database_of(session, title, projectFolder))) {
        session.change()->databaseFile = title;
        return true;
    }
    if (!session->database.is_open()) {
        tell_no_database(title);
        return false;
    }
    dialogs::tell("Database of the project " + title +
                      "not found in the QUOR directory or empty resp.\nThe actual database " +
                      session->databaseFile + " is still activ.",
                  "Hint", dialogs::Icon::Exclamation);
    return true;
}

void tell_no_critical_data(const Session& session) {
    dialogs::tell(
        "T(cr) and/or p(cr) not available in the database.\n"
        "(lacking critical data can be completed by the user in data-base editor)\n"
        "For " +
            session->substance.Name + " is no calculation possible!",
        "WARNING", dialogs::Icon::Exclamation);
}

/// Makes the substance of a project active, as far as the database has it.
void read_project_substance(Session& session, const std::string& casrn, ProjectResult& result) {
    const auto now = session.change();
    const std::optional<std::size_t> place = datafiles::find_by_casrn(session->database, casrn);
    now->substanceNumber = place ? static_cast<std::int16_t>(*place + 1) : std::int16_t{0};
    const Result<SubstanceRead> read = read_substance(session, now->substanceNumber);
    result.substanceFound = static_cast<bool>(read);
    now->substanceSet = result.substanceFound;
    models::SubstanceRecord& substance = now->substance;
    if (!read) {
        // No data of an earlier substance stay behind an empty selection.
        now->substanceNumber = 0;
        substance = {};
        return;
    }
    result.noCriticalData = read->noCriticalData;
    if (result.noCriticalData) tell_no_critical_data(session);
    if (!(substance.Tboil > 0 && substance.Tcrit > 0 && substance.pcrit > 0)) return;
    for (const char* code : {"KFW", "KFR", "THO"})
        models::correlate_vapour_pressure(substance, models::vp_of_code(code), substance.Tcrit,
                                          substance.pcrit, static_cast<double>(substance.Tboil));
}

/// Takes the coefficients of the manual virial equation; false when the project has none. Nothing
/// of another equation stays behind it.
bool take_virial(Session& session, const std::optional<ManualVirial>& virial) {
    session.change()->models.manualVirial = virial.value_or(ManualVirial{});
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
    if (models.EOSModel == models::Eos::none) models.EOSModel = models::Eos::idealGas;
    models.EOSOnlyV = models::is_v_only(models.EOSModel);
    if (models.EOSOnlyV) models.PriorityCEOS = false;

    if (result.substanceFound && !result.noCriticalData) {
        const bool manual = models.EOSModel == models::Eos::manualVirial;
        result.modelsComplete =
            manual ? take_virial(session, virial) : compute_constants(session, models.EOSModel);
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
    dialogs::tell(project.reason(), kRefusal, dialogs::Icon::Stop);
    return std::nullopt;
}

ProjectResult load(Session& session, const std::string& path) {
    const std::optional<ProjectContent> project = read_or_tell(path);
    if (!project) return {};
    if (!open_project_database(session, project->database, paths::folder_of(path))) return {};

    const auto now = session.change();
    reset_session(session);
    ProjectResult result{.loaded = true};
    read_project_substance(session, project->casrn, result);
    apply_settings(session, project->settings);
    derive_from_settings(session, project->manualVirial, result);
    now->projectComment = project->comment;
    return result;
}

void remember_project(Session& session, const std::string& path) {
    const auto now = session.change();
    now->projectFile = paths::file_title(path);
    now->folderProjects = paths::folder_of(path);
}

Result<void> write_project(const Session& session, const std::string& path) {
    return files::write_whole(path, datafiles::project_text(present_project(session)));
}

/// Another run that has ended since this one began has left its session there: it gets a name of
/// its own.
void keep_session_of_another_run(const Session& session) {
    namespace fs = std::filesystem;
    const fs::path file = session->lastSessionFile;
    const auto written = files::time_written(file);
    if (!written || written == session->lastSessionWritten) return;
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

bool write_last_session(Session& session) {
    keep_session_of_another_run(session);
    const std::string& file = session->lastSessionFile;
    if (!write_project(session, file)) return false;
    session.change()->lastSessionWritten = files::time_written(file);
    return true;
}

}  // namespace

datafiles::ProjectContent present_project(const Session& session) {
    ProjectContent content{.date = session.places().short_date(),
                           .comment = session->projectComment,
                           .database = session->databaseFile,
                           .casrn = session->substanceNumber == 0 ? "" : session->substance.CASRN};
    for_each_setting(session.state(), content.settings, [](const auto& own, auto& told) {
        using Told = typename std::remove_reference_t<decltype(told)>::value_type;
        told = static_cast<Told>(own);
    });
    if (session->models.EOSModel == models::Eos::manualVirial)
        content.manualVirial = session->models.manualVirial;
    return content;
}

bool save_project(Session& session, bool asDialog) {
    if (!asDialog) return write_last_session(session);

    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "save actual project as ...",
                              .filter = kFilter,
                              .folder = session->folderProjects,
                              .name = session->projectFile,
                              .defaultExtension = kExtension,
                              .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = paths::target_path(*name, session->folderProjects, kExtension);
    const std::string comment =
        dialogs::ask_input({.text = "Input text for comment\n<Cancel> = No Comment",
                            .title = " File comment (optional) ",
                            .proposal = session->projectComment})
            .value_or("");
    session.change()->projectComment = comment;
    if (const Result<void> written = write_project(session, path); !written) {
        dialogs::tell(written.reason(), kRefusal, dialogs::Icon::Stop);
        return false;
    }
    remember_project(session, path);
    return true;
}

std::optional<std::string> choose_project(Session& session) {
    std::optional<std::string> name = dialogs::choose_file({.title = "Load a project (*.QCF)",
                                                            .filter = kFilter,
                                                            .folder = session->folderProjects,
                                                            .defaultExtension = kExtension});
    return name && !name->empty() ? name : std::nullopt;
}

bool may_load_project(Session& session, const std::string& name) {
    const std::string path = paths::in_folder(name, session->folderProjects);
    const std::optional<ProjectContent> project = read_or_tell(path);
    if (!project) return false;
    const std::string database = database_of(session, project->database, paths::folder_of(path));
    if (session->database.is_open() ||
        datafiles::Database::open(session.places().find_file(database)))
        return true;
    tell_no_database(project->database);
    return false;
}

ProjectResult load_project(Session& session) {
    const std::optional<std::string> name = choose_project(session);
    return name ? load_project(session, *name) : ProjectResult{};
}

ProjectResult load_project(Session& session, const std::string& name) {
    const std::string path = paths::in_folder(name, session->folderProjects);
    const ProjectResult result = load(session, path);
    // The last session is no project of the user's.
    if (result.loaded && path != session->lastSessionFile) remember_project(session, path);
    return result;
}

ProjectResult load_last_session(Session& session) {
    return load_project(session, session->lastSessionFile);
}

}  // namespace quor::session
