#include "datafiles/database.h"

#include <algorithm>
#include <fstream>

#include "common/dialogs.h"
#include "common/whole_file.h"
#include "datafiles/substance_slots.h"
#include "legacy/declare.h"
#include "models/model_choice.h"
#include "models/model_tables.h"
#include "session/module2.h"

namespace quor::datafiles {

namespace {

namespace fs = std::filesystem;

using datafiles::SubstanceLists;
using legacy::the_session;

/// A private file is at most as long as the longest database of the format.
constexpr std::size_t kLargestDatabase = kRecordSize * 32768;

/// The one database file of the process.
struct Channel {
    std::ifstream stream;
    fs::path path;

    void open(const fs::path& file) {
        close();
        path = file;
        stream.open(file, std::ios::binary);
    }
    void close() {
        stream.close();
        stream.clear();
        path.clear();
    }
};

Channel& channel() {
    static Channel c;
    return c;
}

std::vector<fs::path>& folders() {
    static std::vector<fs::path> list;
    return list;
}

std::optional<SubstanceFileRecord> read_record(std::istream& in, std::size_t record) {
    RecordBytes bytes{};
    in.clear();
    in.seekg(static_cast<std::streamoff>((record - 1) * kRecordSize));
    if (!in.read(bytes.data(), kRecordSize)) return std::nullopt;
    return decode_record(bytes);
}

/// The fields of the lists, without decoding the values.
void add_to(SubstanceLists& lists, std::span<const char, kRecordSize> record) {
    constexpr std::size_t nameAt = kFormulaLength;
    constexpr std::size_t casrnAt = kFormulaLength + 2 * kNameLength;
    constexpr std::size_t numberAt = 186;
    lists.Formulas.push_back(field_text(record.subspan<0, kFormulaLength>()));
    lists.Names.push_back(field_text(
        record.subspan(nameAt + (the_session.EnglishUi ? 0 : kNameLength), kNameLength)));
    lists.Casrn.push_back(field_text(record.subspan<casrnAt, kCasrnLength>()));
    const auto low = static_cast<unsigned char>(record[numberAt]);
    const auto high = static_cast<unsigned char>(record[numberAt + 1]);
    lists.Numbers.push_back(static_cast<std::int16_t>(low | (high << 8)));
}

/// Header and lists of an open file, read in one go.
std::optional<SubstanceLists> read_lists(std::istream& in) {
    const std::optional<SubstanceFileRecord> header = read_record(in, 1);
    if (!header || header->number < 1) return std::nullopt;
    const auto count = static_cast<std::size_t>(header->number);
    in.seekg(0, std::ios::end);
    if (in.tellg() < static_cast<std::streamoff>((count + 1) * kRecordSize)) return std::nullopt;
    in.seekg(kRecordSize);

    std::string bytes(count * kRecordSize, '\0');
    if (!in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) return std::nullopt;

    // Index 0 is unused: substances count from 1.
    SubstanceLists lists{.Numbers = {0}, .Formulas = {""}, .Names = {""}, .Casrn = {""}};
    lists.Numbers.reserve(count + 1);
    lists.Formulas.reserve(count + 1);
    lists.Names.reserve(count + 1);
    lists.Casrn.reserve(count + 1);
    for (std::size_t i = 0; i < count; ++i)
        add_to(lists,
               std::span<const char, kRecordSize>(bytes.data() + i * kRecordSize, kRecordSize));
    return lists;
}

/// The record of a substance of the listed database. Where a file that proved unusable has taken
/// its place, the listed one is opened again.
std::optional<SubstanceFileRecord> listed_record(std::int16_t index) {
    if (index < 1 || index > the_session.SubstanceCount) return std::nullopt;
    if (channel().path != the_session.DatabasePath) channel().open(the_session.DatabasePath);
    if (!channel().stream.is_open()) return std::nullopt;
    return read_record(channel().stream, static_cast<std::size_t>(index) + 1);
}

bool is_same_file(const fs::path& a, const fs::path& b) {
    std::error_code ignored;
    return fs::equivalent(a, b, ignored);
}

void tell_unusable(const std::string& title) {
    if (the_session.DatabaseLoaded) {
        dialogs::tell("Database " + title + "not found in the QUOR directory or empty resp.\n" +
                          "Database already loaded " + the_session.DatabaseFile +
                          " is still activ.",
                      "WARNING", dialogs::Icon::Exclamation);
    } else {
        dialogs::tell("Database " + title + " not found or empty resp.", "Execution not possible",
                      dialogs::Icon::Stop);
    }
}

}  // namespace

bool file_exists(const std::string& name) {
    return session::file_exists(name);
}

OpenResult open_database_file(const std::string& path) {
    if (!file_exists(path)) return {.notUsable = true};
    const session::BusyPointer busy;
    channel().open(session::find_file(path));
    std::optional<SubstanceLists> lists;
    if (channel().stream.is_open()) lists = read_lists(channel().stream);
    if (!lists) return {.notUsable = true};

    the_session.SubstanceCount = static_cast<std::int16_t>(lists->Numbers.size() - 1);
    the_session.DatabaseLoaded = true;
    the_session.DatabasePath = channel().path.string();
    legacy::the_substances = *std::move(lists);
    return {};
}

LoadOutcome load_database() {
    const std::optional<std::string> path =
        dialogs::choose_file({.title = "Select and load a database",
                              .filter = "Database (*.Q05)|*.Q05",
                              .folder = (session::data_folder() / "").string(),
                              .name = the_session.DatabaseFile,
                              .defaultExtension = ".Q05"});
    return path ? load_database(*path) : LoadOutcome::Cancelled;
}

LoadOutcome load_database(const std::string& path) {
    const std::string title = session::file_title(path);
    if (title.empty()) return LoadOutcome::Cancelled;
    if (open_database_file(path).notUsable) {
        tell_unusable(title);
        return LoadOutcome::Failed;
    }
    the_session.DatabaseFile = title;
    add_database_folder(fs::path(the_session.DatabasePath).parent_path());
    return LoadOutcome::Loaded;
}

bool ReadSubstance(std::int16_t index, bool& noCriticalData) {
    if (index == 0) return true;
    const std::optional<SubstanceFileRecord> file = listed_record(index);
    if (!file) {
        noCriticalData = true;
        return false;
    }
    LoadedSubstance loaded = record_from_slots(*file, the_session.EnglishUi, legacy::the_substance);
    noCriticalData = loaded.noCriticalData;
    legacy::the_substance = std::move(loaded.record);
    // The equation in use stays where the substance has it.
    auto& equation = legacy::the_models.VPModel;
    const auto offered = models::vp_entries(legacy::the_substance);
    if (offered[models::index_of(offered, equation)].model != equation)
        equation = models::vp_of_code(loaded.VPCode);
    return true;
}

bool write_data_base_q05() {
    const std::optional<std::string> path = dialogs::choose_file(
        {.save = true,
         .title = "Saving a Private Database File *.Q05 for the actual substance ",
         .filter = "Database (*.Q05)|*.Q05",
         .folder = (session::write_folder() / "").string(),
         .defaultExtension = ".Q05",
         .overwritePrompt = true});
    return path && !path->empty() && write_private_database(*path);
}

bool write_private_database(const std::string& path) {
    const fs::path target = target_path(path, session::write_folder().string(), ".Q05");
    if (is_same_file(target, the_session.DatabasePath)) {
        dialogs::tell("This file is the database that is open. Choose another name.",
                      "Execution not possible", dialogs::Icon::Stop);
        return false;
    }
    // The record of the database keeps every slot and text that is not set here.
    std::optional<SubstanceFileRecord> buffer = listed_record(the_session.CurrentSubstance);
    if (!buffer) return false;

    // An older, longer file keeps what lies behind the second record.
    std::string bytes = read_whole(target, kLargestDatabase).bytes;
    bytes.resize(std::max(bytes.size(), 2 * kRecordSize), '\0');
    const auto put = [&](std::size_t record) {
        const RecordBytes encoded = encode_record(*buffer);
        std::copy(encoded.begin(), encoded.end(),
                  bytes.begin() + static_cast<std::ptrdiff_t>((record - 1) * kRecordSize));
    };
    const auto substanceFormula = buffer->formula;
    const auto substanceGermanName = buffer->nameGerman;
    set_field_text(buffer->formula, session::short_date());
    set_field_text(buffer->nameGerman, "");
    buffer->number = 1;
    put(1);
    buffer->formula = substanceFormula;
    buffer->nameGerman = substanceGermanName;
    slots_from_record(legacy::the_substance, the_session.EnglishUi, *buffer);
    put(2);
    return write_whole(target, bytes).empty();
}

void close_database() {
    channel().close();
}

fs::path open_database_path() {
    return channel().path;
}

std::optional<SubstanceLists> read_database_lists(const fs::path& path) {
    std::error_code ignored;
    if (!fs::is_regular_file(path, ignored)) return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    return in ? read_lists(in) : std::nullopt;
}

void add_database_folder(const fs::path& folder) {
    if (std::find(folders().begin(), folders().end(), folder) == folders().end())
        folders().push_back(folder);
}

std::string find_database(const std::string& title, const fs::path& folder) {
    if (file_exists(title)) return title;
    std::vector<fs::path> places{folder};
    places.insert(places.end(), folders().begin(), folders().end());
    for (const fs::path& place : places) {
        std::error_code ignored;
        if (!place.empty() && fs::is_regular_file(place / title, ignored))
            return (place / title).string();
    }
    return title;
}

}  // namespace quor::datafiles
