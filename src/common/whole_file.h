#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// All files of the system: databases, projects, experimental data, XY data, synonyms, search.
namespace quor::datafiles {

/// Text files beyond this size are refused: none that a user means to load comes near it.
inline constexpr std::size_t kLargestTextFile = std::size_t{64} << 20;

struct FileContent {
    std::string bytes;
    std::string error;  ///< empty when the file was read; else a whole sentence for the user
};

/// A regular file as a whole, at most `largest` bytes.
FileContent read_whole(const std::filesystem::path& path, std::size_t largest = kLargestTextFile);

/// Writes a file as a whole or not at all: beside it first, then renamed into its place, so that
/// a crash or a full disk leaves the old content. Returns an empty text, or a sentence for the
/// user that names the file and the reason.
std::string write_whole(const std::filesystem::path& path, std::string_view bytes);

/// What became of a new file.
struct NewFile {
    bool exists = false;  ///< a file of that name is there already; nothing was written
    std::string error;    ///< as of `write_whole`
};
/// Writes a file only where there is none: its name is taken exclusively, so that of two programs
/// only one gets it.
NewFile write_new(const std::filesystem::path& path, std::string_view bytes);

/// Where a file of that name is written: a name without a folder goes to `folder`; a title
/// without a "." gets `extension` (".BAQ").
std::string target_path(const std::string& name, const std::string& folder,
                        std::string_view extension);

/// The name with `folder` in front when it has none of its own.
std::string InFolder(const std::string& name, const std::string& folder);

/// Lines joined with CR LF, each one ended, in the ANSI code page.
std::string ansi_lines(const std::vector<std::string>& lines);

/// One line of text: line ends and tabs become blanks.
std::string one_line(std::string text);

}  // namespace quor::datafiles
