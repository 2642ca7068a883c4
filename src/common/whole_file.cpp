#include "common/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <random>
#include <system_error>

#include "common/system_reason.h"
#include "common/text.h"

namespace quor::files {

namespace {

namespace fs = std::filesystem;

std::string sentence(const fs::path& path, const std::string& what, const std::string& reason) {
    return "The file " + path.filename().string() + " " + what +
           (reason.empty() ? "." : " (" + reason + ").");
}

std::string reason_of(int error) {
    return error == 0 ? std::string() : system_reason(error);
}

Failure not_written(const fs::path& path, const std::string& reason) {
    return {sentence(path, "could not be written", reason)};
}

bool is_write_protected(const fs::path& path) {
    std::error_code error;
    const fs::perms set = fs::status(path, error).permissions();
    const fs::perms write =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return !error && (set & write) == fs::perms::none;
}

struct Closing {
    int file;
    ~Closing() { close(file); }
};

constexpr std::string_view kPart = ".part";

/// What the names of all parts of a file begin with; a long name is cut, so that there is room.
std::string part_stem(const fs::path& target) {
    constexpr std::size_t kLongest = 200;
    return target.filename().string().substr(0, kLongest) + "~";
}

/// A file that is being written, beside the one that it becomes. Nothing is left of it unless it
/// took its place, or the program was killed.
class Part {
  public:
    explicit Part(const fs::path& target) {
        // A link that someone planted, and another writer of the same file, are both met by a name
        // that nobody can foresee, taken only where there is nothing.
        constexpr int kAttempts = 100;
        constexpr mode_t kMode = 0666;
        std::random_device random;
        for (int i = 0; i < kAttempts && file_ < 0; ++i) {
            path_ = target.parent_path() /
                    (part_stem(target) + std::to_string(random()) + std::string(kPart));
            file_ =
                open(path_.c_str(), O_CREAT | O_EXCL | O_NOFOLLOW | O_WRONLY | O_CLOEXEC, kMode);
            error_ = file_ < 0 ? errno : 0;
            if (error_ != EEXIST && error_ != 0) return;
        }
    }
    ~Part() {
        if (file_ < 0) return;
        close(file_);
        if (!placed_) unlink(path_.c_str());
    }
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    /// 0, or why not.
    int error() const { return error_; }

    int write_all(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t written = write(file_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) return errno;
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        // Some file systems know no sync; a disk that is full may say so only here.
        if (fsync(file_) != 0 && errno != EINVAL && errno != ENOTSUP) return errno;
        return 0;
    }
    void take_permissions(const fs::path& older) {
        struct stat status {};
        if (stat(older.c_str(), &status) == 0) (void)fchmod(file_, status.st_mode & 07777U);
    }
    int replace(const fs::path& target) { return placed(rename(path_.c_str(), target.c_str())); }
    /// Refused with EEXIST where there is such a file.
    int take_name(const fs::path& target) {
        const int error =
            placed(renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE));
        if (error != EINVAL && error != ENOSYS) return error;
        // A file system that cannot do it in one step: the name first, then the content.
        const int name = open(target.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
        if (name < 0) return errno;
        close(name);
        return replace(target);
    }

  private:
    int placed(int outcome) {
        placed_ = outcome == 0;
        return placed_ ? 0 : errno;
    }

    fs::path path_;
    int file_ = -1, error_ = 0;
    bool placed_ = false;
};

/// The folder's entry has to be on the disk as well before the write is told to have succeeded.
void sync_folder(const fs::path& target) {
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    const int file = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) return;
    (void)fsync(file);
    close(file);
}

/// Removes what killed writers of a file have left. A part that is still being written is young.
void remove_old_parts(const fs::path& target) {
    constexpr auto kOld = std::chrono::minutes(10);
    const std::string stem = part_stem(target);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::error_code error;
    for (fs::directory_iterator i(folder, error), end; !error && i != end; i.increment(error)) {
        const std::string name = i->path().filename().string();
        if (!name.starts_with(stem) || !name.ends_with(kPart)) continue;
        std::error_code ignored;
        const auto age = fs::file_time_type::clock::now() - i->last_write_time(ignored);
        if (!ignored && age > kOld) fs::remove(i->path(), ignored);
    }
}

}  // namespace

Result<std::string> read_whole(const fs::path& path, std::size_t largest) {
    const auto failed = [&](const std::string& what, const std::string& reason = {}) {
        return Failure{sentence(path, what, reason)};
    };
    // Opened without waiting: a pipe that stands in the place of a file has no end.
    const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return errno == ENOENT || errno == ENOTDIR ? failed("was not found")
                                                   : failed("could not be read", reason_of(errno));
    const Closing closing{file};
    struct stat status {};
    if (fstat(file, &status) != 0) return failed("could not be read", reason_of(errno));
    if (S_ISDIR(status.st_mode)) return failed("could not be read", "it is a folder");
    if (!S_ISREG(status.st_mode)) return failed("could not be read", "it is no ordinary file");
    const auto size = static_cast<std::uintmax_t>(status.st_size);
    if (size > largest) return failed("is too large", std::to_string(size) + " bytes");

    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got = read(file, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return failed("could not be read", reason_of(errno));
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return bytes;
}

Result<void> write_whole(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    // A link stays a link: the file that it names is replaced.
    const fs::path target = fs::is_symlink(path, error) ? fs::weakly_canonical(path, error) : path;
    const fs::file_status status = fs::status(target, error);
    if (fs::is_directory(status)) return not_written(path, "it is a folder");
    if (fs::exists(status) && !fs::is_regular_file(status))
        return not_written(path, "it is no ordinary file");
    if (fs::exists(status) && is_write_protected(target))
        return not_written(path, "it is write-protected");

    Part part(target);
    int failed = part.error();
    if (failed == 0) failed = part.write_all(bytes);
    if (failed == 0 && fs::exists(status)) part.take_permissions(target);
    if (failed == 0) failed = part.replace(target);
    if (failed != 0) return not_written(path, reason_of(failed));
    sync_folder(target);
    remove_old_parts(target);
    return {};
}

std::optional<std::filesystem::file_time_type> time_written(const std::filesystem::path& path) {
    std::error_code failed;
    const auto time = std::filesystem::last_write_time(path, failed);
    return failed ? std::nullopt : std::optional(time);
}

NewFile write_new(const fs::path& path, std::string_view bytes) {
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(path, ignored)))
        return {true, not_written(path, reason_of(EEXIST))};
    Part part(path);
    int failed = part.error();
    if (failed == 0) failed = part.write_all(bytes);
    if (failed == 0) failed = part.take_name(path);
    if (failed != 0) return {failed == EEXIST, not_written(path, reason_of(failed))};
    sync_folder(path);
    return {};
}

std::string ansi_lines(const std::vector<std::string>& lines) {
    std::string all;
    for (const std::string& line : lines) all += line + "\r\n";
    return text::to_ansi(all);
}

std::string one_line(std::string s) {
    for (char& c : s)
        if (c == '\r' || c == '\n' || c == '\t' || c == '\0') c = ' ';
    return s;
}

}  // namespace quor::files
