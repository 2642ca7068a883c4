#include "datafiles/project.h"

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
constexpr std::int16_t kManualVirial = 10;
constexpr std::size_t kHeadLines = 4;
constexpr std::size_t kLargestProject = std::size_t{1} << 20;

std::string project_text(const std::string& comment) {
    const std::string casrn = the_session.CurrentSubstance == 0 ? "" : the_substance.CASRN;
    return AnsiLines({session::ShortDate(), OneLine(comment), the_session.DatabaseFile,
                      text::PadRight(casrn, kCasrnLength)}) +
           ProjectItemLines();
}

/// The lines of a project. A last line that is cut short does not count, for "29" may be the rest
/// of "298.15"; a file of full length needs no line end at its end.
std::vector<std::string> whole_lines(const std::string& ansiText) {
    std::vector<std::string> lines = text::Lines(text::FromAnsi(ansiText));
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
    if (!OpenDatabaseFile(FindDatabase(title, projectFolder)).notUsable) {
        the_session.DatabaseFile = title;
        return true;
    }
    if (!the_session.DatabaseLoaded) {
        dialogs::Tell("Database of the project " + title + "not found in the QUOR directory ",
                      kRefusal, dialogs::Icon::Stop);
        return false;
    }
    dialogs::Tell("Database of the project " + title +
                      "not found in the QUOR directory or empty resp.\nThe actual database " +
                      the_session.DatabaseFile + " is still activ.",
                  "Hint", dialogs::Icon::Exclamation);
    return true;
}

void tell_no_critical_data() {
    dialogs::Tell(
        "T(cr) and/or p(cr) not available in the database.\n"
        "(lacking critical data can be completed by the user in data-base editor)\n"
        "For " +
            the_substance.Name + " is no calculation possible!",
        "WARNING", dialogs::Icon::Exclamation);
}

/// Makes the substance of a project active, as far as the database has it.
void read_substance(const std::string& casrn, ProjectResult& result) {
    the_session.CurrentSubstance = FindByCasrn(casrn);
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
        models::CorrelateVapourPressure(models::VPIndex(code), the_substance.Tcrit,
                                        the_substance.pcrit,
                                        static_cast<double>(the_substance.Tboil));
}

/// What follows from the settings: codes, constants of the equation of state, factors and labels.
void derive_from_settings(ProjectResult& result) {
    const bool offered = the_models.EOSModel >= 0 && !models::EOSName(the_models.EOSModel).empty();
    if (!offered) the_models.EOSModel = 0;
    the_models.EOSOnlyV = models::IsVOnlyEOS(the_models.EOSModel);
    if (the_models.EOSOnlyV) the_models.PriorityCEOS = false;
    // Index 0 leaves the choice to the sets of the substance.
    if (the_models.VPModel != 0) the_models.VPCode = models::VPCode(the_models.VPModel);
    the_models.VPModel = models::VPIndex(the_models.VPCode);

    if (result.substanceFound && !result.noCriticalData) {
        const bool keeps = the_models.EOSModel == kManualVirial;
        result.modelsComplete = keeps || models::CalcEOSParameters(the_models.EOSModel) == kSuccess;
    }
    try {
        session::RefreshUnits();
    } catch (const faults::Fault&) {
        // Specific units need a molar mass.
        the_session.UnitMode = 0;
        session::RefreshUnits();
    }
}

ProjectResult load(const std::string& path) {
    const FileContent file = ReadWhole(path, kLargestProject);
    const std::optional<ProjectHead> head =
        file.error.empty() ? ReadProjectHead(file.bytes) : std::nullopt;
    if (!head) {
        dialogs::Tell(file.error.empty()
                          ? "The file " + session::FileTitle(path) + " is no project file."
                          : file.error,
                      kRefusal, dialogs::Icon::Stop);
        return {};
    }
    if (!open_database(head->database, session::FolderOf(path))) return {};

    session::ResetSession();
    ProjectResult result{.loaded = true};
    read_substance(head->casrn, result);
    const std::vector<std::string> lines = whole_lines(file.bytes);
    ReadProjectItems(std::span(lines).subspan(kHeadLines));
    derive_from_settings(result);
    the_session.ProjectComment = head->comment;
    the_session.ProjectLoaded = true;
    return result;
}

void remember_project(const std::string& path) {
    the_session.ProjectFile = session::FileTitle(path);
    the_session.FolderProject = session::FolderOf(path);
}

}  // namespace

std::optional<ProjectHead> ReadProjectHead(const std::string& ansiText) {
    const std::vector<std::string> lines = whole_lines(ansiText);
    if (lines.size() < kHeadLines) return std::nullopt;
    ProjectHead head{lines[0], lines[1], text::Trim(lines[2]), lines[3]};
    const bool valid = !head.database.empty() && is_plain(head.database) && is_plain(head.casrn) &&
                       text::Length(text::TrimRight(head.casrn)) <= kCasrnLength;
    return valid ? std::optional(std::move(head)) : std::nullopt;
}

bool SaveProject(bool asDialog) {
    if (!asDialog)
        return WriteWhole(the_session.LastSessionFile, project_text(the_session.ProjectComment))
            .empty();

    const std::optional<std::string> name =
        dialogs::ChooseFile({.save = true,
                             .title = "save actual project as ...",
                             .filter = kFilter,
                             .folder = the_session.FolderProject,
                             .name = the_session.ProjectFile,
                             .defaultExtension = kExtension,
                             .overwritePrompt = true});
    if (!name || name->empty()) return false;
    const std::string path = TargetPath(*name, the_session.FolderProject, kExtension);
    the_session.ProjectComment =
        dialogs::AskInput({.text = "Input text for comment\n<Cancel> = No Comment",
                           .title = " File comment (optional) ",
                           .proposal = the_session.ProjectComment})
            .value_or("");
    const std::string error = WriteWhole(path, project_text(the_session.ProjectComment));
    if (!error.empty()) {
        dialogs::Tell(error, kRefusal, dialogs::Icon::Stop);
        return false;
    }
    remember_project(path);
    return true;
}

std::optional<std::string> ChooseProject() {
    std::optional<std::string> name = dialogs::ChooseFile({.title = "Load a project (*.QCF)",
                                                           .filter = kFilter,
                                                           .folder = the_session.FolderProject,
                                                           .defaultExtension = kExtension});
    return name && !name->empty() ? name : std::nullopt;
}

ProjectResult LoadProject() {
    const std::optional<std::string> name = ChooseProject();
    return name ? LoadProject(*name) : ProjectResult{};
}

ProjectResult LoadProject(const std::string& name) {
    const std::string path = InFolder(name, the_session.FolderProject);
    const ProjectResult result = load(path);
    // The last session is no project of the user's.
    if (result.loaded && path != the_session.LastSessionFile) remember_project(path);
    return result;
}

ProjectResult LoadLastSession() {
    return LoadProject(the_session.LastSessionFile);
}

}  // namespace quor::datafiles
