#include "datafiles/preview.h"

#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/measured_data.h"
#include "datafiles/project_file.h"
#include "datafiles/search.h"

namespace quor::datafiles {

namespace {

namespace fs = std::filesystem;

/// The name that a database has for a CASRN; nothing when it does not know it.
std::optional<std::string> name_in(const Database& database, const std::string& casrn) {
    const std::optional<std::size_t> place = find_by_casrn(database, casrn);
    if (!place) return std::nullopt;
    return first_name(database.entries()[*place].name);
}

FilePreview preview_data(const std::string& bytes, const std::string& title, const Database& open) {
    const Result<MeasuredDataFile> file = read_measured_data(bytes, title);
    if (!file) return {};
    return {
        .substance =
            name_in(open, file->data.casrn).value_or("Substance not found in the actual data base"),
        .database = open.path().filename().string(),
        .comment = file->data.comment,
        .date = file->date};
}

FilePreview preview_project(const std::string& bytes, const std::string& path, const Places& places,
                            const std::vector<fs::path>& folders) {
    const Result<ProjectContent> project = read_project(bytes, paths::file_title(path));
    if (!project) return {};
    const Result<Database> database = Database::open(places.find_file(
        find_database(project->database, paths::folder_of(path), places, folders)));
    return {.substance = (database ? name_in(*database, project->casrn) : std::nullopt)
                             .value_or("Substance not found in the actual database"),
            .database = project->database,
            .comment = project->comment,
            .date = project->date};
}

}  // namespace

FilePreview preview_file(const std::string& path, const Database& open, const Places& places,
                         const std::vector<fs::path>& folders) {
    const std::string kind = path.size() < 3 ? "" : text::to_upper(path.substr(path.size() - 3));
    if (kind != "BAQ" && kind != "QCF") return {};
    const Result<std::string> bytes = files::read_whole(path);
    if (!bytes) return {};
    return kind == "BAQ" ? preview_data(*bytes, paths::file_title(path), open)
                         : preview_project(*bytes, path, places, folders);
}

}  // namespace quor::datafiles
