#include "session/project_session.h"

#include "common/dialogs.h"
#include "common/faults.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/search.h"
#include "legacy/wrappers.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"
#include "session/substance_session.h"

namespace quor::session {

namespace {

using datafiles::ProjectContent;
using datafiles::ProjectSettings;
using legacy::the_models;
using legacy::the_reference;
using legacy::the_session;
using legacy::the_substance;
using models::ManualVirial;

constexpr const char* kFilter = "Project (*.QCF)|*.QCF";
constexpr const char* kExtension = ".QCF";
constexpr const char* kRefusal = "Execution not possible";

/// Calls `both` with every setting of the session and its place in a project's settings.
template <class Settings, class Both>
void for_each_setting(Settings& s, const Both& both) {
    both(the_session.DiagramT, s.diagramT);
    both(the_session.DiagramP, s.diagramP);
    both(the_session.DiagramV, s.diagramV);
    both(the_session.CaloricFactor, s.caloricFactor);
    both(the_session.UnitMode, s.unitMode);
    both(the_session.CaloricUnit, s.caloricUnit);
    both(the_session.CurveRealRangeOnly, s.curveRealRangeOnly);
    both(the_session.PointsPerCurve, s.pointsPerCurve);
    both(the_session.CsvSeparator, s.csvSeparator);
    both(the_models.VPModel, s.vapourPressure);
    both(the_models.EOSModel, s.eos);
    both(the_models.CpModel, s.cpForm);
    both(the_models.HLVModel, s.vaporisation);
    both(the_models.WatsonN, s.watsonN);
    both(the_models.PriorityCEOS, s.priorityCEOS);
    both(the_reference.RefMode, s.referenceMode);
    both(the_reference.href, s.href);
    both(the_reference.sref, s.sref);
    both(the_reference.T0, s.T0);
    both(the_reference.p0, s.p0);
    both(the_reference.Tenv, s.Tenv);
    both(the_reference.penv, s.penv);
    both(the_session.BatchMode, s.batchMode);
    both(the_session.CurveSWithoutTieLine, s.curveSWithoutTieLine);
    both(the_session.PartialGasCurve, s.partialGasCurve);
    both(the_session.tank.V, s.tankV);
    both(the_session.tank.m, s.tankM);
    both(the_session.tank.T, s.tankT);
}

void apply_settings(const ProjectSettings& settings) {
    for_each_setting(settings, [](auto& own, const auto& told) { own = told.value_or(own); });
}

/// The file of a project's database, as `open_database` takes it.
std::string database_of(const std::string& title, const std::string& projectFolder) {
    return datafiles::find_database(title, projectFolder, legacy::the_places,
                                    legacy::the_databaseFolders);
}

void tell_no_database(const std::string& title) {
    dialogs::tell("Database of the project " + title + "not found in the QUOR directory ", kRefusal,
                  dialogs::Icon::Stop);
}

/// Opens the database of a project. False when there is none at all.
bool open_project_database(const std::string& title, const std::string& projectFolder) {
    if (open_database(database_of(title, projectFolder))) {
        the_session.DatabaseFile = title;
        return true;
    }
    if (!legacy::the_database.is_open()) {
        tell_no_database(title);
        return false;
    }
    dialogs::tell("Database of the project " + title +
                      "not found in the QUOR directory or empty resp.\nThe actual database " +
                      the_session.DatabaseFile + " is still activ.",
                  "Hint", dialogs::Icon::Exclamation);
    return true;
}

void tell_no_critical_data() {
    dialogs::tell(
        "T(cr) and/or p(cr) not available in the database.\n"
        "(lacking critical data can be completed by the user in data-base editor)\n"
        "For " +
            the_substance.Name + " is no calculation possible!",
        "WARNING", dialogs::Icon::Exclamation);
}

/// Makes the substance of a project active, as far as the database has it.
void read_project_substance(const std::string& casrn, ProjectResult& result) {
    const std::optional<std::size_t> place = datafiles::find_by_casrn(legacy::the_database, casrn);
    the_session.CurrentSubstance = place ? static_cast<std::int16_t>(*place + 1) : std::int16_t{0};
    const Result<SubstanceRead> read = read_substance(the_session.CurrentSubstance);
    result.substanceFound = static_cast<bool>(read);
    the_session.SubstanceSet = result.substanceFound;
    if (!read) {
        // No data of an earlier substance stay behind an empty selection.
        the_session.CurrentSubstance = 0;
        the_substance = {};
        return;
    }
    result.noCriticalData = read->noCriticalData;
    if (result.noCriticalData) tell_no_critical_data();
    const bool complete =
        the_substance.Tboil > 0 && the_substance.Tcrit > 0 && the_substance.pcrit > 0;
    if (!complete) return;
    for (const char* code : {"KFW", "KFR", "THO"})
        models::CorrelateVapourPressure(models::vp_of_code(code), the_substance.Tcrit,
                                        the_substance.pcrit,
                                        static_cast<double>(the_substance.Tboil));
}

/// Takes the coefficients of the manual virial equation; false when the project has none. Nothing
/// of another equation stays behind it.
bool take_virial(const std::optional<ManualVirial>& virial) {
    const ManualVirial taken = virial.value_or(ManualVirial{});
    legacy::the_eosParameters = {};
    legacy::the_eosParameters.eosB0 = taken.b0;
    legacy::the_eosParameters.eosNB = taken.b1;
    legacy::the_eosParameters.eosNV = taken.b2;
    const bool computed = models::calc_eos_parameters(models::Eos::manualVirial) == kSuccess;
    if (!virial)
        dialogs::tell(
            "The project holds no coefficients b0, b1, b2 of its virial equation.\n"
            "Choose the equation of state again.",
            "WARNING", dialogs::Icon::Exclamation);
    return computed && virial;
}

/// What follows from the settings: constants of the equation of state, factors and labels.
void derive_from_settings(const std::optional<ManualVirial>& virial, ProjectResult& result) {
    if (the_models.EOSModel == models::Eos::none) the_models.EOSModel = models::Eos::idealGas;
    the_models.EOSOnlyV = models::is_v_only(the_models.EOSModel);
    if (the_models.EOSOnlyV) the_models.PriorityCEOS = false;

    if (result.substanceFound && !result.noCriticalData) {
        const bool manual = the_models.EOSModel == models::Eos::manualVirial;
        result.modelsComplete = manual
                                    ? take_virial(virial)
                                    : models::calc_eos_parameters(the_models.EOSModel) == kSuccess;
    }
    try {
        refresh_units();
    } catch (const faults::Fault&) {
        // Specific units need a molar mass.
        the_session.UnitMode = 0;
        refresh_units();
    }
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

ProjectResult load(const std::string& path) {
    const std::optional<ProjectContent> project = read_or_tell(path);
    if (!project) return {};
    if (!open_project_database(project->database, paths::folder_of(path))) return {};

    reset_session();
    ProjectResult result{.loaded = true};
    read_project_substance(project->casrn, result);
    apply_settings(project->settings);
    derive_from_settings(project->manualVirial, result);
    the_session.ProjectComment = project->comment;
    the_session.ProjectLoaded = true;
    return result;
}

void remember_project(const std::string& path) {
    the_session.ProjectFile = paths::file_title(path);
    the_session.FolderProject = paths::folder_of(path);
}

Result<void> write_project(const std::string& path) {
    return files::write_whole(path, datafiles::project_text(present_project()));
}

}  // namespace

datafiles::ProjectContent present_project() {
    ProjectContent content{.date = legacy::the_places.short_date(),
                           .comment = the_session.ProjectComment,
                           .database = the_session.DatabaseFile,
                           .casrn = the_session.CurrentSubstance == 0 ? "" : the_substance.CASRN};
    for_each_setting(content.settings, [](const auto& own, auto& told) { told = own; });
    if (the_models.EOSModel == models::Eos::manualVirial) {
        const models::EOSParameters& e = legacy::the_eosParameters;
        content.manualVirial = ManualVirial{e.eosB0, e.eosNB, e.eosNV};
    }
    return content;
}

bool save_project(bool asDialog) {
    if (!asDialog) return static_cast<bool>(write_project(the_session.LastSessionFile));

    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "save actual project as ...",
                              .filter = kFilter,
                              .folder = the_session.FolderProject,
                              .name = the_session.ProjectFile,
                              .defaultExtension = kExtension,
                              .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = paths::target_path(*name, the_session.FolderProject, kExtension);
    the_session.ProjectComment =
        dialogs::ask_input({.text = "Input text for comment\n<Cancel> = No Comment",
                            .title = " File comment (optional) ",
                            .proposal = the_session.ProjectComment})
            .value_or("");
    if (const Result<void> written = write_project(path); !written) {
        dialogs::tell(written.reason(), kRefusal, dialogs::Icon::Stop);
        return false;
    }
    remember_project(path);
    return true;
}

std::optional<std::string> choose_project() {
    std::optional<std::string> name = dialogs::choose_file({.title = "Load a project (*.QCF)",
                                                            .filter = kFilter,
                                                            .folder = the_session.FolderProject,
                                                            .defaultExtension = kExtension});
    return name && !name->empty() ? name : std::nullopt;
}

bool may_load_project(const std::string& name) {
    const std::string path = paths::in_folder(name, the_session.FolderProject);
    const std::optional<ProjectContent> project = read_or_tell(path);
    if (!project) return false;
    const std::string database = database_of(project->database, paths::folder_of(path));
    if (legacy::the_database.is_open() ||
        datafiles::Database::open(legacy::the_places.find_file(database)))
        return true;
    tell_no_database(project->database);
    return false;
}

ProjectResult load_project() {
    const std::optional<std::string> name = choose_project();
    return name ? load_project(*name) : ProjectResult{};
}

ProjectResult load_project(const std::string& name) {
    const std::string path = paths::in_folder(name, the_session.FolderProject);
    const ProjectResult result = load(path);
    // The last session is no project of the user's.
    if (result.loaded && path != the_session.LastSessionFile) remember_project(path);
    return result;
}

ProjectResult load_last_session() {
    return load_project(the_session.LastSessionFile);
}

}  // namespace quor::session
