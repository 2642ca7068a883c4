#include <unistd.h>

#include <cstdio>
#include <ctime>

#include "common/text.h"
#include "session/module2.h"

namespace quor::session {

namespace {

namespace fs = std::filesystem;

fs::path programFolder = ".";
fs::path writeFolder = ".";
std::string fixedDate;

std::string two_digits(int n) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%02d", n);
    return buffer;
}

}  // namespace

const fs::path& program_folder() {
    return programFolder;
}
const fs::path& write_folder() {
    return writeFolder;
}

namespace {

/// The data of an installed program, beside its folder.
fs::path shared_folder() {
    return programFolder.parent_path() / "share" / "quor6";
}

}  // namespace

fs::path data_folder() {
    std::error_code ignored;
    return fs::is_directory(shared_folder(), ignored) ? shared_folder() : programFolder;
}

void set_program_folder(const fs::path& folder, const fs::path& userFolder) {
    programFolder = folder;
    // Nothing is written beside an installed program, not even by an administrator.
    const bool own = data_folder() == programFolder && access(folder.c_str(), W_OK) == 0;
    writeFolder = own || userFolder.empty() ? folder : userFolder;
    std::error_code ignored;
    fs::create_directories(writeFolder, ignored);
}

fs::path find_file(const std::string& name) {
    if (has_separator(name)) return name;
    std::error_code ignored;
    for (const fs::path& folder : {writeFolder, programFolder, shared_folder()})
        if (fs::exists(folder / name, ignored)) return folder / name;
    return programFolder / name;
}

bool file_exists(const std::string& name) {
    std::error_code ignored;
    return !name.empty() && fs::is_regular_file(find_file(name), ignored);
}

bool has_separator(const std::string& path) {
    return path.find_first_of("/\\") != std::string::npos;
}

std::string file_title(const std::string& path) {
    return path.substr(path.find_last_of("/\\") + 1);
}

std::string folder_of(const std::string& path) {
    return path.substr(0, path.find_last_of("/\\") + 1);
}

std::string short_date() {
    if (!fixedDate.empty()) return fixedDate;
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    localtime_r(&now, &parts);
    char buffer[16];
    std::strftime(buffer, sizeof buffer, "%d.%m.%Y", &parts);
    return buffer;
}

void set_short_date(const std::string& date) {
    fixedDate = date;
}

std::string new_protocol_file_name() {
    const std::string date = short_date();
    const std::string day = date.substr(date.size() - 2) + date.substr(0, 2) + date.substr(3, 2);
    std::error_code ignored;
    for (int n = 1;; ++n) {
        const std::string name = day + two_digits(n) + ".CSV";
        if (!fs::exists(writeFolder / name, ignored)) return name;
    }
}

std::string shorten_path(const std::string& Path, int MaxLength) {
    const int length = static_cast<int>(Path.size());
    if (length <= MaxLength) return Path;
    // Positions are counted from 1.
    const int from = std::max(1, length - MaxLength + 6);
    const std::size_t found = Path.find_first_of("/\\", static_cast<std::size_t>(from - 1));
    const int p = found == std::string::npos ? length + 1 : static_cast<int>(found) + 1;
    return Path.substr(0, 3) + "..." + Path.substr(static_cast<std::size_t>(p - 1));
}

}  // namespace quor::session
