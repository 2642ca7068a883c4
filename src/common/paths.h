#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace quor {

/// Names of files as texts; "/" and "\" both divide a path.
namespace paths {

/// True when the text holds "/" or "\".
bool has_separator(std::string_view path);
/// The name behind the last "/" or "\".
std::string file_title(const std::string& path);
/// The folder with its closing separator, empty when there is none.
std::string folder_of(const std::string& path);
/// The name with `folder` in front when it has none of its own.
std::string in_folder(const std::string& name, const std::string& folder);
/// Where a file of that name is written: a name without a folder goes to `folder`; a title
/// without a "." gets `extension` (".BAQ").
std::string target_path(const std::string& name, const std::string& folder,
                        std::string_view extension);
/// A text as the title of a file: what no file system takes there becomes "_".
std::string as_title(std::string text);
/// A path shortened for display to about `most` characters: its first three, "...", its end.
std::string shorten_path(const std::string& path, int most);

}  // namespace paths

/// Where the program's files lie and new ones go, and the date that they bear.
class Places {
  public:
    /// The present folder for everything.
    Places() = default;
    /// `program` is the folder of the executable. Where it is not writable, and beside an
    /// installed program always, new files go to `user`, which is made when it is missing. A `date`
    /// (dd.mm.yyyy) stands for today's.
    explicit Places(std::filesystem::path program, const std::filesystem::path& user = {},
                    std::string date = {});

    /// Folder of the executable.
    const std::filesystem::path& program_folder() const { return program_; }
    /// Where files are written: the program's folder, or the user's data folder.
    const std::filesystem::path& write_folder() const { return write_; }
    /// Why no files can be written there, be it missing, protected or on a disk that takes none: a
    /// reason in words. Nothing where they can.
    std::optional<std::string> write_fault() const;
    /// Where the program's own data lie: the shared folder of an installed program, else the
    /// program's folder.
    std::filesystem::path data_folder() const;

    /// A file that is read: from the folder of the user's files if it is there, else from the
    /// program's, else from the shared one. A name with a separator stands as it is.
    std::filesystem::path find_file(const std::string& name) const;
    /// True when a file of that name exists, looked up by `find_file`; an empty name is false.
    bool file_exists(const std::string& name) const;

    /// Today's date in the short form dd.mm.yyyy.
    std::string short_date() const;
    /// A protocol file name that does not yet exist in `write_folder`: yymmdd and a running number
    /// of two digits, with ".CSV".
    std::string new_protocol_file_name() const;

  private:
    std::filesystem::path shared_folder() const;

    std::filesystem::path program_ = ".";
    std::filesystem::path write_ = ".";
    std::string date_;  ///< empty: today
};

}  // namespace quor
