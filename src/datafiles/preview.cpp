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
    const std::optional<BatchFileContent> file = ReadBatchText(bytes);
    if (!file) return {};
    const std::int16_t index = FindByCasrn(file->casrn);
    return {
        .substance = index == 0
                         ? "Substance not found in the actual data base"
                         : FirstName(legacy::the_substances.Names[static_cast<std::size_t>(index)]),
        .database = legacy::the_session.DatabaseFile,
        .comment = file->comment,
        .date = file->date};
}

/// The name that a database has for a CASRN, empty when it does not know it.
std::string name_in(const std::string& database, const std::string& casrn) {
    const auto lists = ReadDatabaseLists(session::FindFile(database));
    const std::string wanted = text::TrimRight(casrn);
    if (!lists || wanted.empty()) return {};
    for (std::size_t i = 1; i < lists->Casrn.size(); ++i)
        if (text::TrimRight(lists->Casrn[i]) == wanted) return FirstName(lists->Names[i]);
    return {};
}

FilePreview preview_project(const std::string& bytes, const std::string& folder) {
    const std::optional<ProjectHead> head = ReadProjectHead(bytes);
    if (!head) return {};
    const std::string name = name_in(FindDatabase(head->database, folder), head->casrn);
    return {.substance = name.empty() ? "Substance not found in the actual database" : name,
            .database = head->database,
            .comment = head->comment,
            .date = head->date};
}

}  // namespace

FilePreview PreviewFile(const std::string& path) {
    const std::string kind = path.size() < 3 ? "" : text::ToUpper(path.substr(path.size() - 3));
    if (kind != "BAQ" && kind != "QCF") return {};
    const FileContent file = ReadWhole(path);
    if (!file.error.empty()) return {};
    return kind == "BAQ" ? preview_batch(file.bytes)
                         : preview_project(file.bytes, session::FolderOf(path));
}

}  // namespace quor::datafiles
