#include "datafiles/preview.h"

#include "common/text.h"
#include "common/whole_file.h"
#include "datafiles/batch_file.h"
#include "datafiles/database.h"
#include "datafiles/project.h"
#include "datafiles/search.h"
#include "legacy/declare.h"
#include "session/module2.h"

namespace quor::datafiles {

namespace {

FilePreview preview_batch(const std::string& bytes) {
    const std::optional<BatchFileContent> file = read_batch_text(bytes);
    if (!file) return {};
    const std::int16_t index = find_by_casrn(file->casrn);
    return {.substance =
                index == 0
                    ? "Substance not found in the actual data base"
                    : first_name(legacy::the_substances.Names[static_cast<std::size_t>(index)]),
            .database = legacy::the_session.DatabaseFile,
            .comment = file->comment,
            .date = file->date};
}

/// The name that a database has for a CASRN, empty when it does not know it.
std::string name_in(const std::string& database, const std::string& casrn) {
    const auto lists = read_database_lists(session::find_file(database));
    const std::string wanted = text::trim_right(casrn);
    if (!lists || wanted.empty()) return {};
    for (std::size_t i = 1; i < lists->Casrn.size(); ++i)
        if (text::trim_right(lists->Casrn[i]) == wanted) return first_name(lists->Names[i]);
    return {};
}

FilePreview preview_project(const std::string& bytes, const std::string& folder) {
    const std::optional<ProjectHead> head = read_project_head(bytes);
    if (!head) return {};
    const std::string name = name_in(find_database(head->database, folder), head->casrn);
    return {.substance = name.empty() ? "Substance not found in the actual database" : name,
            .database = head->database,
            .comment = head->comment,
            .date = head->date};
}

}  // namespace

FilePreview preview_file(const std::string& path) {
    const std::string kind = path.size() < 3 ? "" : text::to_upper(path.substr(path.size() - 3));
    if (kind != "BAQ" && kind != "QCF") return {};
    const FileContent file = read_whole(path);
    if (!file.error.empty()) return {};
    return kind == "BAQ" ? preview_batch(file.bytes)
                         : preview_project(file.bytes, session::folder_of(path));
}

}  // namespace quor::datafiles
