#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <unordered_map>

#include "common/result.h"
#include "datafiles/database.h"
#include "datafiles/synonyms.h"
#include "session/session_state.h"

namespace quor::quorcalc {

/// A file as it stands on the disk. One that was changed or replaced has another stamp.
struct FileStamp {
    std::string path;
    std::uintmax_t device = 0, node = 0, size = 0;
    std::int64_t seconds = 0, nanoseconds = 0;  ///< of its last change

    bool operator==(const FileStamp&) const = default;
};

/// The stamp of a file; nothing where there is none.
std::optional<FileStamp> stamp_of(const std::filesystem::path& file);

/// What is kept from call to call, because it is dear to make and would come out the same: files
/// that were read, and states of a session that were set up. What a changed file went into counts
/// no more.
class Kept {
  public:
    /// A database with English names, opened where it is not open in its present form. Refused as
    /// `Database::open`.
    Result<datafiles::Database> database(const std::filesystem::path& file);
    /// The synonyms of a file; nothing where it cannot be read.
    std::optional<datafiles::Synonyms> synonyms(const std::filesystem::path& file);

    /// The files that a state was set up from.
    struct Sources {
        std::optional<FileStamp> database, synonyms;

        bool operator==(const Sources&) const = default;
    };
    /// The state that was set up from these files under a key; null when there is none. It stays
    /// until the next call of `keep`.
    const session::SessionState* state(const std::string& key, const Sources& sources) const;
    void keep(const std::string& key, Sources sources, const session::SessionState& state);

  private:
    template <class Content>
    struct File {
        FileStamp stamp;
        Content content;
    };
    struct SetUp {
        Sources sources;
        session::SessionState state;
    };
    std::unordered_map<std::string, File<datafiles::Database>> databases_;
    std::optional<File<datafiles::Synonyms>> synonyms_;
    std::unordered_map<std::string, SetUp> states_;
};

}  // namespace quor::quorcalc
