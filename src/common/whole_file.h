#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/paths.h"
#include "common/result.h"

/// Files read and written as a whole.
namespace quor::files {

/// Text files beyond this size are refused: none that a user means to load comes near it.
inline constexpr std::size_t kLargestTextFile = std::size_t{64} << 20;

/// The bytes of a regular file, at most `largest`; the reason is a sentence that names the file.
Result<std::string> read_whole(const std::filesystem::path& path,
                               std::size_t largest = kLargestTextFile);

/// Writes a file as a whole or not at all: beside it first, under a name that no other writer has
/// and no link can lead elsewhere, then, when the disk holds it, renamed into its place. A crash or
/// a full disk leaves the old content. The reason of a failure names the file.
Result<void> write_whole(const std::filesystem::path& path, std::string_view bytes);

/// When a file was written last; nothing where there is none.
std::optional<std::filesystem::file_time_type> time_written(const std::filesystem::path& path);

/// What became of a new file.
struct NewFile {
    bool exists = false;   ///< a file of that name is there already; nothing was written
    Result<void> written;  ///< as of `write_whole`
};
/// Writes a file as a whole where there is none: its name is taken exclusively, so that of two
/// programs only one gets it.
NewFile write_new(const std::filesystem::path& path, std::string_view bytes);

/// Lines joined with CR LF, each one ended, in the ANSI code page.
std::string ansi_lines(const std::vector<std::string>& lines);

/// One line of text: line ends and tabs become blanks.
std::string one_line(std::string text);

}  // namespace quor::files
