#include "tools/quorcalc/kept.h"

#include <sys/stat.h>

#include <utility>

namespace quor::quorcalc {

namespace {

// A run over more than these begins to keep anew: a bound on memory and open files.
constexpr std::size_t kMostDatabases = 16;
constexpr std::size_t kMostStates = 256;

}  // namespace

std::optional<FileStamp> stamp_of(const std::filesystem::path& file) {
    struct stat about {};
    if (::stat(file.c_str(), &about) != 0) return std::nullopt;
    return FileStamp{.path = file.string(),
                     .device = about.st_dev,
                     .node = about.st_ino,
                     .size = static_cast<std::uintmax_t>(about.st_size),
                     .seconds = about.st_mtim.tv_sec,
                     .nanoseconds = about.st_mtim.tv_nsec};
}

Result<datafiles::Database> Kept::database(const std::filesystem::path& file) {
    const std::optional<FileStamp> stamp = stamp_of(file);
    const auto known = databases_.find(file.string());
    if (stamp && known != databases_.end() && known->second.stamp == *stamp)
        return known->second.content;
    Result<datafiles::Database> opened = datafiles::Database::open(file);
    if (!stamp || !opened) return opened;
    if (databases_.size() >= kMostDatabases) databases_.clear();
    databases_.insert_or_assign(file.string(), File<datafiles::Database>{*stamp, *opened});
    return opened;
}

std::optional<datafiles::Synonyms> Kept::synonyms(const std::filesystem::path& file) {
    const std::optional<FileStamp> stamp = stamp_of(file);
    if (!stamp) return std::nullopt;
    if (!synonyms_ || synonyms_->stamp != *stamp) {
        Result<datafiles::Synonyms> read = datafiles::Synonyms::read(file);
        if (!read) return std::nullopt;
        synonyms_ = {*stamp, *std::move(read)};
    }
    return synonyms_->content;
}

const session::SessionState* Kept::state(const std::string& key, const Sources& sources) const {
    const auto known = states_.find(key);
    return known != states_.end() && known->second.sources == sources ? &known->second.state
                                                                      : nullptr;
}

void Kept::keep(const std::string& key, Sources sources, const session::SessionState& state) {
    if (states_.size() >= kMostStates) states_.clear();
    states_.insert_or_assign(key, SetUp{std::move(sources), state});
}

}  // namespace quor::quorcalc
