#include "datafiles/project.h"
#include "legacy/wrappers.h"

#include <algorithm>

#include "common/dialogs.h"
#include "common/faults.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/database.h"
#include "datafiles/project_items.h"
#include "datafiles/search.h"
#include "legacy/declare.h"
#include "models/cubic_eos.h"
#include "models/model_tables.h"
#include "models/vapour_pressure.h"
#include "session/module2.h"

namespace quor::datafiles {

namespace {

using legacy::the_models;
using legacy::the_session;
using legacy::the_substance;

constexpr const char* kFilter = "Project (*.QCF)|*.QCF";
constexpr const char* kExtension = ".QCF";
constexpr const char* kRefusal = "Execution not possible";
constexpr std::size_t kHeadLines = 4;
constexpr std::size_t kLargestProject = std::size_t{1} << 20;

std::string project_text(const std::string& comment) {
    const std::string casrn = the_session.CurrentSubstance == 0 ? "" : the_substance.CASRN;
    return ansi_lines({session::short_date(), one_line(comment), the_session.DatabaseFile,
                       text::pad_right(casrn, kCasrnLength)}) +
           project_item_lines();
}

/// The lines of a project. A last line that is cut short does not count, for "29" may be the rest
/// of "298.15"; a file of full length needs no line end at its end.
std::vector<std::string> whole_lines(const std::string& ansiText) {
    std::vector<std::string> lines = text::Lines(text::from_ansi(ansiText));
    const bool open = !ansiText.empty() && ansiText.back() != '\n' && ansiText.back() != '\r';
    if (open && lines.size() < kHeadLines + kProjectItems) lines.pop_back();
    return lines;
}

bool is_plain(const std::string& line) {
    return std::none_of(line.begin(), line.end(),
                        [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

/// Opens the database of a project. False when there is none at all.
bool open_database(const std::string& title, const std::string& projectFolder) {
    if (!open_database_file(find_database(title, projectFolder)).notUsable) {
        the_session.DatabaseFile = title;
        return true;
    }
    if (!the_session.DatabaseLoaded) {
        dialogs::tell("Database of the project " + title + "not found in the QUOR directory ",
                      kRefusal, dialogs::Icon::Stop);
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
void read_substance(const std::string& casrn, ProjectResult& result) {
    the_session.CurrentSubstance = find_by_casrn(casrn);
    result.substanceFound = the_session.CurrentSubstance != 0 &&
                            ReadSubstance(the_session.CurrentSubstance, result.noCriticalData);
    the_session.SubstanceSet = result.substanceFound;
    if (!result.substanceFound) {
        // No data of an earlier substance stay behind an empty selection.
        the_session.CurrentSubstance = 0;
        the_substance = {};
        return;
    }
    if (result.noCriticalData) tell_no_critical_data();
    const bool complete =
        the_substance.Tboil > 0 && the_substance.Tcrit > 0 && the_substance.pcrit > 0;
    if (!complete) return;
    for (const char* code : {"KFW", "KFR", "THO"})
        models::CorrelateVapourPressure(models::vp_of_code(code), the_substance.Tcrit,
                                        the_substance.pcrit,
                                        static_cast<double>(the_substance.Tboil));
}

/// What follows from the settings: codes, constants of the equation of state, factors and labels.
void derive_from_settings(ProjectResult& result) {
    if (the_models.EOSModel == models::Eos::none) the_models.EOSModel = models::Eos::idealGas;
    the_models.EOSOnlyV = models::is_v_only(the_models.EOSModel);
    if (the_models.EOSOnlyV) the_models.PriorityCEOS = false;

    if (result.substanceFound && !result.noCriticalData) {
        const bool keeps = the_models.EOSModel == models::Eos::manualVirial;
        result.modelsComplete =
            keeps || models::calc_eos_parameters(the_models.EOSModel) == kSuccess;
    }
    try {
        session::refresh_units();
    } catch (const faults::Fault&) {
        // Specific units need a molar mass.
        the_session.UnitMode = 0;
        session::refresh_units();
    }
}

ProjectResult load(const std::string& path) {
    const FileContent file = read_whole(path, kLargestProject);
    const std::optional<ProjectHead> head =
        file.error.empty() ? read_project_head(file.bytes) : std::nullopt;
    if (!head) {
        dialogs::tell(file.error.empty()
                          ? "The file " + session::file_title(path) + " is no project file."
                          : file.error,
                      kRefusal, dialogs::Icon::Stop);
        return {};
    }
    if (!open_database(head->database, session::folder_of(path))) return {};

    session::reset_session();
    ProjectResult result{.loaded = true};
    read_substance(head->casrn, result);
    const std::vector<std::string> lines = whole_lines(file.bytes);
    read_project_items(std::span(lines).subspan(kHeadLines));
    derive_from_settings(result);
    the_session.ProjectComment = head->comment;
    the_session.ProjectLoaded = true;
    return result;
}

void remember_project(const std::string& path) {
    the_session.ProjectFile = session::file_title(path);
    the_session.FolderProject = session::folder_of(path);
}

}  // namespace

std::optional<ProjectHead> read_project_head(const std::string& ansiText) {
    const std::vector<std::string> lines = whole_lines(ansiText);
    if (lines.size() < kHeadLines) return std::nullopt;
    ProjectHead head{lines[0], lines[1], text::trim(lines[2]), lines[3]};
    const bool valid = !head.database.empty() && is_plain(head.database) && is_plain(head.casrn) &&
                       text::Length(text::trim_right(head.casrn)) <= kCasrnLength;
    return valid ? std::optional(std::move(head)) : std::nullopt;
}

bool save_project(bool asDialog) {
    if (!asDialog)
        return write_whole(the_session.LastSessionFile, project_text(the_session.ProjectComment))
            .empty();

    const std::optional<std::string> name =
        dialogs::choose_file({.save = true,
                              .title = "save actual project as ...",
                              .filter = kFilter,
                              .folder = the_session.FolderProject,
                              .name = the_session.ProjectFile,
                              .defaultExtension = kExtension,
                              .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = target_path(*name, the_session.FolderProject, kExtension);
    the_session.ProjectComment =
        dialogs::ask_input({.text = "Input text for comment\n<Cancel> = No Comment",
                            .title = " File comment (optional) ",
                            .proposal = the_session.ProjectComment})
            .value_or("");
    const std::string error = write_whole(path, project_text(the_session.ProjectComment));
    if (!error.empty()) {
        dialogs::tell(error, kRefusal, dialogs::Icon::Stop);
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

ProjectResult LoadProject() {
    const std::optional<std::string> name = choose_project();
    return name ? LoadProject(*name) : ProjectResult{};
}

ProjectResult LoadProject(const std::string& name) {
    const std::string path = InFolder(name, the_session.FolderProject);
    const ProjectResult result = load(path);
    // The last session is no project of the user's.
    if (result.loaded && path != the_session.LastSessionFile) remember_project(path);
    return result;
}

ProjectResult load_last_session() {
    return LoadProject(the_session.LastSessionFile);
}

}  // namespace quor::datafiles
