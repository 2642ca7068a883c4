#include "datafiles/database.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

#include "common/text.h"
#include "datafiles/search.h"
#include "datafiles/synonyms.h"

namespace quor::datafiles {

namespace {

namespace fs = std::filesystem;

/// The record with that number, the header being 1.
template <class File>
std::optional<SubstanceFileRecord> read_record(const File& file, std::size_t record) {
    RecordBytes bytes{};
    if (!file.read((record - 1) * kRecordSize, bytes)) return std::nullopt;
    return decode_record(bytes);
}

/// The fields of the list, without decoding the values.
DatabaseEntry entry_of(std::span<const char, kRecordSize> record, bool english) {
    constexpr std::size_t name_at = kFormulaLength;
    constexpr std::size_t casrn_at = kFormulaLength + 2 * kNameLength;
    constexpr std::size_t number_at = 186;
    const auto low = static_cast<unsigned char>(record[number_at]);
    const auto high = static_cast<unsigned char>(record[number_at + 1]);
    return {.number = static_cast<std::int16_t>(low | (high << 8)),
            .formula = field_text(record.subspan<0, kFormulaLength>()),
            .name = field_text(record.subspan(name_at + (english ? 0 : kNameLength), kNameLength)),
            .casrn = field_text(record.subspan<casrn_at, kCasrnLength>())};
}

/// Header and list of an open file, read in one go.
template <class File>
std::optional<std::vector<DatabaseEntry>> read_list(const File& file, bool english) {
    const std::optional<SubstanceFileRecord> header = read_record(file, 1);
    if (!header || header->number < 1) return std::nullopt;
    const auto count = static_cast<std::size_t>(header->number);
    if (file.size() < (count + 1) * kRecordSize) return std::nullopt;

    std::string bytes(count * kRecordSize, '\0');
    if (!file.read(kRecordSize, bytes)) return std::nullopt;

    std::vector<DatabaseEntry> list;
    list.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        list.push_back(entry_of(
            std::span<const char, kRecordSize>(bytes.data() + i * kRecordSize, kRecordSize),
            english));
    return list;
}

template <class Map, class Key>
std::optional<std::size_t> value_at(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

class Database::File {
  public:
    /// Opened without waiting: a pipe that stands in the place of a file has no end.
    explicit File(const fs::path& path)
        : handle_(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~File() {
        if (handle_ >= 0) ::close(handle_);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::size_t size() const {
        struct stat about {};
        return ::fstat(handle_, &about) == 0 ? static_cast<std::size_t>(about.st_size) : 0;
    }
    /// Fills `bytes` from a place of the file; false where there are not so many.
    bool read(std::size_t from, std::span<char> bytes) const {
        while (!bytes.empty()) {
            const ssize_t got =
                ::pread(handle_, bytes.data(), bytes.size(), static_cast<off_t>(from));
            if (got <= 0) return false;
            bytes = bytes.subspan(static_cast<std::size_t>(got));
            from += static_cast<std::size_t>(got);
        }
        return true;
    }

  private:
    int handle_;
};

Database::Content::Content(std::vector<DatabaseEntry> list) : entries(std::move(list)) {
    by_name_or_casrn.reserve(2 * entries.size());
    by_casrn.reserve(entries.size());
    by_number.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const std::string_view name = text::without_end_blanks(entries[i].name);
        const std::string_view casrn = text::without_end_blanks(entries[i].casrn);
        by_number.try_emplace(entries[i].number, i);
        for (const std::string& one : names_of(name)) {
            std::string form = comparing_form(normalise_name(one));
            if (!form.empty()) by_any_name.try_emplace(std::move(form), i);
        }
        if (!name.empty()) by_name_or_casrn.try_emplace(name, i);
        if (casrn.empty()) continue;
        by_name_or_casrn.try_emplace(casrn, i);
        by_casrn.try_emplace(casrn, i);
    }
}

Database::Database(fs::path file, std::vector<DatabaseEntry> entries, bool english)
    : path_(std::move(file)),
      english_(english),
      content_(std::make_shared<const Content>(std::move(entries))) {}

Result<Database> Database::open(const fs::path& file, bool english) {
    const Failure unusable{"Database " + file.filename().string() + " not found or empty resp."};
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored)) return unusable;
    auto opened = std::make_shared<const File>(file);
    std::optional<std::vector<DatabaseEntry>> list = read_list(*opened, english);
    if (!list) return unusable;
    Database database(file, *std::move(list), english);
    database.file_ = std::move(opened);
    return database;
}

std::span<const DatabaseEntry> Database::entries() const {
    return content_ ? std::span<const DatabaseEntry>(content_->entries)
                    : std::span<const DatabaseEntry>();
}

std::optional<std::size_t> Database::place_of(const std::string& text) const {
    return content_ ? value_at(content_->by_name_or_casrn, text) : std::nullopt;
}

std::optional<std::size_t> Database::place_of_name(std::string_view name) const {
    return content_ ? value_at(content_->by_any_name, comparing_form(normalise_name(name)))
                    : std::nullopt;
}

std::optional<std::size_t> Database::place_of_casrn(const std::string& casrn) const {
    return content_ ? value_at(content_->by_casrn, casrn) : std::nullopt;
}

std::optional<std::size_t> Database::place_of_number(int number) const {
    return content_ ? value_at(content_->by_number, number) : std::nullopt;
}

Result<SubstanceFileRecord> Database::record(std::size_t place) const {
    const Failure unreadable{"The substance could not be read from the database " +
                             path_.filename().string()};
    if (place >= size() || !file_) return unreadable;
    // The first record is the header.
    RecordBytes bytes{};
    if (!file_->read((place + 1) * kRecordSize, bytes)) return unreadable;
    if (entry_of(bytes, english_) != entries()[place])
        return Failure{"The database " + path_.filename().string() +
                       " has been changed by another program.\nOpen it again."};
    return decode_record(bytes);
}

Result<LoadedSubstance> Database::read(std::size_t place, float former_entropy) const {
    const Result<SubstanceFileRecord> file = record(place);
    if (!file) return file.failure();
    return record_from_slots(*file, english_, former_entropy);
}

std::string find_database(const std::string& title, const fs::path& beside, const Places& places,
                          const std::vector<fs::path>& folders) {
    if (places.file_exists(title)) return title;
    std::vector<fs::path> candidates{beside};
    candidates.insert(candidates.end(), folders.begin(), folders.end());
    for (const fs::path& folder : candidates) {
        std::error_code ignored;
        if (!folder.empty() && fs::is_regular_file(folder / title, ignored))
            return (folder / title).string();
    }
    return title;
}

std::string private_database_bytes(const SubstanceFileRecord& own,
                                   const models::SubstanceRecord& substance, bool english,
                                   const std::string& date, std::string older) {
    older.resize(std::max(older.size(), 2 * kRecordSize), '\0');
    const auto put = [&](std::size_t record, const SubstanceFileRecord& content) {
        const RecordBytes encoded = encode_record(content);
        std::copy(encoded.begin(), encoded.end(),
                  older.begin() + static_cast<std::ptrdiff_t>((record - 1) * kRecordSize));
    };
    SubstanceFileRecord header = own;
    set_field_text(header.formula, date);
    set_field_text(header.name_german, "");
    header.number = 1;
    put(1, header);
    SubstanceFileRecord record = own;
    slots_from_record(substance, english, record);
    put(2, record);
    return older;
}

}  // namespace quor::datafiles
