#pragma once

#include <string>

#include "common/paths.h"
#include "datafiles/database.h"

namespace quor::datafiles {

/// What the head of a marked file tells before it is opened.
struct FilePreview {
    std::string substance{};  ///< name in the database, or that it is not found
    std::string database{};   ///< title; of a .BAQ file the one that is open
    std::string comment{};
    std::string date{};
};

/// The head of a .BAQ or .QCF file, by the last three letters of its name; all empty for any other
/// file and for one that cannot be read. `open` is the open database; that of a project is looked
/// for in `places`, beside the project, and in `folders`.
FilePreview preview_file(const std::string& path, const Database& open, const Places& places,
                         const std::vector<std::filesystem::path>& folders);

}  // namespace quor::datafiles
