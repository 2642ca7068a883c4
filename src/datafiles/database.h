#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/paths.h"
#include "common/result.h"
#include "datafiles/substance_file.h"
#include "datafiles/substance_slots.h"

namespace quor::datafiles {

/// What the list of a database tells of a substance; texts have the full width of their fields.
struct DatabaseEntry {
    std::int16_t number = 0;  ///< substance number, as "#49" names it
    std::string formula{};
    std::string name{};  ///< the first name and, each behind a ";", further ones
    std::string casrn{};

    bool operator==(const DatabaseEntry&) const = default;
};

/// A database of substances: its file and the list of what is in it. A value, cheap to copy; the
/// list never changes. Places count from 0.
class Database {
  public:
    /// No database.
    Database() = default;
    /// A list without reading the file.
    Database(std::filesystem::path file, std::vector<DatabaseEntry> entries, bool english = true);

    /// Reads the list of a file, with English names or those of the other language. A file that is
    /// missing, empty, cut short or unreadable is refused.
    static Result<Database> open(const std::filesystem::path& file, bool english = true);

    bool is_open() const { return !path_.empty(); }
    const std::filesystem::path& path() const { return path_; }
    bool english() const { return english_; }

    std::size_t size() const { return entries().size(); }
    std::span<const DatabaseEntry> entries() const;

    /// The record of a substance as the file has it; refused when there is no such place, or the
    /// file can no longer be read there.
    Result<SubstanceFileRecord> record(std::size_t place) const;
    /// A substance with all rules of reading. `former_entropy` is the entropy of formation where
    /// the record lacks what it follows from.
    Result<LoadedSubstance> read(std::size_t place, float former_entropy = 0) const;

    /// The first place whose whole name field or CASRN is `text`, blanks at the end aside.
    std::optional<std::size_t> place_of(const std::string& text) const;
    /// The first place that has `name` as any of its names, in any usual spelling.
    std::optional<std::size_t> place_of_name(std::string_view name) const;
    std::optional<std::size_t> place_of_casrn(const std::string& casrn) const;
    std::optional<std::size_t> place_of_number(int number) const;

  private:
    /// The file itself, open as long as a copy of the database is there; many threads may read.
    class File;
    struct Content {
        explicit Content(std::vector<DatabaseEntry> list);
        Content(const Content&) = delete;
        Content& operator=(const Content&) = delete;

        std::vector<DatabaseEntry> entries;
        // The first place of each key; the texts are those of the entries.
        std::unordered_map<std::string_view, std::size_t> by_name_or_casrn{}, by_casrn{};
        std::unordered_map<int, std::size_t> by_number{};
        std::unordered_map<std::string, std::size_t> by_any_name{};  ///< by their comparing form
    };
    std::filesystem::path path_;
    bool english_ = true;
    std::shared_ptr<const Content> content_;
    std::shared_ptr<const File> file_;
};

/// The file of a database that a project names by its title: the title alone where the program's
/// folders have it, else its path in `beside` or in one of `folders`; the bare title when it is
/// nowhere.
std::string find_database(const std::string& title, const std::filesystem::path& beside,
                          const Places& places, const std::vector<std::filesystem::path>& folders);

/// The bytes of a private database of one substance: `own` is the record of the database that it
/// came from, which keeps every slot and text that `substance` does not set, `older` the content
/// of the file that is written over, whose records behind the first substance stay.
std::string private_database_bytes(const SubstanceFileRecord& own,
                                   const models::SubstanceRecord& substance, bool english,
                                   const std::string& date, std::string older);
/// A private file is at most as long as the longest database of the format.
inline constexpr std::size_t kLargestDatabase = kRecordSize * 32768;

}  // namespace quor::datafiles
