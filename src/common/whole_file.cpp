#include "common/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <system_error>

#include "common/text.h"

namespace quor::files {

namespace {

namespace fs = std::filesystem;

std::string sentence(const fs::path& path, const std::string& what, const std::string& reason) {
    return "The file " + path.filename().string() + " " + what +
           (reason.empty() ? "." : " (" + reason + ").");
}

std::string reason_of(int error) {
    return error == 0 ? std::string() : std::generic_category().message(error);
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

}  // namespace

Result<std::string> read_whole(const fs::path& path, std::size_t largest) {
    const auto failed = [&](const std::string& what, const std::string& reason = {}) {
        return Failure{sentence(path, what, reason)};
    };
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return failed("was not found");
    const std::uintmax_t size = fs::file_size(path, error);
    if (error) return failed("could not be read", error.message());
    if (size > largest) return failed("is too large", std::to_string(size) + " bytes");

    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) return failed("could not be read", reason_of(errno));
    std::string bytes(static_cast<std::size_t>(size), '\0');
    in.read(bytes.data(), static_cast<std::streamsize>(size));
    if (in.bad()) return failed("could not be read", reason_of(errno));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    return bytes;
}

Result<void> write_whole(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    // A link stays a link: the file that it names is replaced.
    const fs::path target = fs::is_symlink(path, error) ? fs::weakly_canonical(path, error) : path;
    const bool exists = fs::exists(target, error);
    if (fs::is_directory(target, error)) return not_written(path, "it is a folder");
    if (exists && is_write_protected(target)) return not_written(path, "it is write-protected");

    fs::path beside = target;
    beside += ".part";
    errno = 0;
    std::ofstream out(beside, std::ios::binary | std::ios::trunc);
    if (!out) return not_written(path, reason_of(errno));
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) {
        const std::string reason = reason_of(errno);
        fs::remove(beside, error);
        return not_written(path, reason);
    }
    if (exists) fs::permissions(beside, fs::status(target, error).permissions(), error);
    fs::rename(beside, target, error);
    if (!error) return {};
    const std::string reason = error.message();
    fs::remove(beside, error);
    return not_written(path, reason);
}

std::optional<std::filesystem::file_time_type> time_written(const std::filesystem::path& path) {
    std::error_code failed;
    const auto time = std::filesystem::last_write_time(path, failed);
    return failed ? std::nullopt : std::optional(time);
}

NewFile write_new(const fs::path& path, std::string_view bytes) {
    constexpr mode_t kMode = 0666;
    const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kMode);
    if (file < 0) return {errno == EEXIST, not_written(path, reason_of(errno))};
    close(file);
    NewFile made{false, write_whole(path, bytes)};
    std::error_code error;
    if (!made.written) fs::remove(path, error);
    return made;
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
