#include "common/whole_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <fstream>
#include <system_error>

#include "common/text.h"

namespace quor::datafiles {

namespace {

namespace fs = std::filesystem;

std::string sentence(const fs::path& path, const std::string& what, const std::string& reason) {
    return "The file " + path.filename().string() + " " + what +
           (reason.empty() ? "." : " (" + reason + ").");
}

std::string reason_of(int error) {
    return error == 0 ? std::string() : std::generic_category().message(error);
}

bool has_separator(const std::string& name) {
    return name.find_first_of("/\\") != std::string::npos;
}

/// Whether the name behind the last separator has no extension.
bool is_bare(const std::string& name) {
    return name.find('.', name.find_last_of("/\\") + 1) == std::string::npos;
}

std::string not_written(const fs::path& path, const std::string& reason) {
    return sentence(path, "could not be written", reason);
}

bool is_write_protected(const fs::path& path) {
    std::error_code error;
    const fs::perms set = fs::status(path, error).permissions();
    const fs::perms write =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return !error && (set & write) == fs::perms::none;
}

}  // namespace

FileContent read_whole(const fs::path& path, std::size_t largest) {
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return {{}, sentence(path, "was not found", {})};
    const std::uintmax_t size = fs::file_size(path, error);
    if (error) return {{}, sentence(path, "could not be read", error.message())};
    if (size > largest)
        return {{}, sentence(path, "is too large", std::to_string(size) + " bytes")};

    errno = 0;
    std::ifstream in(path, std::ios::binary);
    if (!in) return {{}, sentence(path, "could not be read", reason_of(errno))};
    FileContent content;
    content.bytes.resize(static_cast<std::size_t>(size));
    in.read(content.bytes.data(), static_cast<std::streamsize>(size));
    if (in.bad()) return {{}, sentence(path, "could not be read", reason_of(errno))};
    content.bytes.resize(static_cast<std::size_t>(in.gcount()));
    return content;
}

std::string write_whole(const fs::path& path, std::string_view bytes) {
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

NewFile write_new(const fs::path& path, std::string_view bytes) {
    constexpr mode_t kMode = 0666;
    const int file = open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, kMode);
    if (file < 0 && errno == EEXIST) return {true, not_written(path, reason_of(EEXIST))};
    if (file < 0) return {false, not_written(path, reason_of(errno))};
    close(file);
    std::string failed = write_whole(path, bytes);
    std::error_code error;
    if (!failed.empty()) fs::remove(path, error);
    return {false, std::move(failed)};
}

std::string InFolder(const std::string& name, const std::string& folder) {
    return has_separator(name) ? name : (fs::path(folder) / name).string();
}

std::string target_path(const std::string& name, const std::string& folder,
                        std::string_view extension) {
    return InFolder(is_bare(name) ? name + std::string(extension) : name, folder);
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

}  // namespace quor::datafiles
