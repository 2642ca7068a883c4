#include "common/paths.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>
#include <system_error>
#include <utility>

#include "common/system_reason.h"

namespace quor {

namespace fs = std::filesystem;

namespace paths {

namespace {
constexpr std::string_view kSeparators = "/\\";
}

bool has_separator(std::string_view path) {
    return path.find_first_of(kSeparators) != std::string_view::npos;
}

std::string file_title(const std::string& path) {
    return path.substr(path.find_last_of(kSeparators) + 1);
}

std::string folder_of(const std::string& path) {
    return path.substr(0, path.find_last_of(kSeparators) + 1);
}

std::string in_folder(const std::string& name, const std::string& folder) {
    return has_separator(name) ? name : (fs::path(folder) / name).string();
}

std::string target_path(const std::string& name, const std::string& folder,
                        std::string_view extension) {
    const bool bare = file_title(name).find('.') == std::string::npos;
    return in_folder(bare ? name + std::string(extension) : name, folder);
}

std::string as_title(std::string text) {
    constexpr std::string_view kForbidden = "/\\:*?\"<>|";
    for (char& c : text)
        if (kForbidden.find(c) != std::string_view::npos) c = '_';
    return text;
}

std::string shorten_path(const std::string& path, int most) {
    const int length = static_cast<int>(path.size());
    if (length <= most) return path;
    constexpr std::size_t kept = 3;  // characters at the beginning
    const int from = std::max(1, length - most + 6);
    const std::size_t found = path.find_first_of(kSeparators, static_cast<std::size_t>(from - 1));
    return path.substr(0, kept) + "..." + path.substr(std::min(found, path.size()));
}

}  // namespace paths

namespace {

/// A number of at least so many digits.
std::string padded(int number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return text.size() < digits ? std::string(digits - text.size(), '0') + text : text;
}

/// A clock that is far off gives a date of the same form.
std::string date_of(std::time_t now) {
    constexpr int kFirstYear = 1900, kLastYear = 9999;
    std::tm parts{};
    if (localtime_r(&now, &parts) == nullptr) parts.tm_mday = 1;
    const int year = std::clamp(parts.tm_year, 0, kLastYear - kFirstYear) + kFirstYear;
    return padded(parts.tm_mday, 2) + "." + padded(parts.tm_mon + 1, 2) + "." + padded(year, 4);
}

}  // namespace

Places::Places(fs::path program, const fs::path& user, std::string date)
    : program_(std::move(program)), date_(std::move(date)) {
    // Nothing is written beside an installed program, not even by an administrator.
    const bool own = data_folder() == program_ && access(program_.c_str(), W_OK) == 0;
    write_ = own || user.empty() ? program_ : user;
    std::error_code ignored;
    fs::create_directories(write_, ignored);
}

std::optional<std::string> Places::write_fault() const {
    if (access(write_.c_str(), W_OK | X_OK) == 0) return std::nullopt;
    return system_reason(errno);
}

/// The data of an installed program, beside its folder.
fs::path Places::shared_folder() const {
    return program_.parent_path() / "share" / "quor6";
}

fs::path Places::data_folder() const {
    std::error_code ignored;
    return fs::is_directory(shared_folder(), ignored) ? shared_folder() : program_;
}

fs::path Places::find_file(const std::string& name) const {
    if (paths::has_separator(name)) return name;
    std::error_code ignored;
    for (const fs::path& folder : {write_, program_, shared_folder()})
        if (fs::exists(folder / name, ignored)) return folder / name;
    return program_ / name;
}

bool Places::file_exists(const std::string& name) const {
    std::error_code ignored;
    return !name.empty() && fs::is_regular_file(find_file(name), ignored);
}

std::string Places::short_date() const {
    return date_.empty() ? date_of(std::time(nullptr)) : date_;
}

std::string Places::new_protocol_file_name() const {
    const std::string date = short_date();
    const std::string day = date.substr(date.size() - 2) + date.substr(0, 2) + date.substr(3, 2);
    std::error_code ignored;
    for (int n = 1;; ++n) {
        const std::string name = day + padded(n, 2) + ".CSV";
        if (!fs::exists(write_ / name, ignored)) return name;
    }
}

}  // namespace quor
