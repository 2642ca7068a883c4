#include "datafiles/database.h"

#include <algorithm>
#include <fstream>

#include "common/dialogs.h"
#include "common/whole_file.h"
#include "datafiles/substance_slots.h"
#include "legacy/declare.h"
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
    return DecodeRecord(bytes);
}

/// The fields of the lists, without decoding the values.
void add_to(SubstanceLists& lists, std::span<const char, kRecordSize> record) {
    constexpr std::size_t nameAt = kFormulaLength;
    constexpr std::size_t casrnAt = kFormulaLength + 2 * kNameLength;
    constexpr std::size_t numberAt = 186;
    lists.Formulas.push_back(FieldText(record.subspan<0, kFormulaLength>()));
    lists.Names.push_back(
        FieldText(record.subspan(nameAt + (the_session.EnglishUi ? 0 : kNameLength), kNameLength)));
    lists.Casrn.push_back(FieldText(record.subspan<casrnAt, kCasrnLength>()));
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
        dialogs::Tell("Database " + title + "not found in the QUOR directory or empty resp.\n" +
                          "Database already loaded " + the_session.DatabaseFile +
                          " is still activ.",
                      "WARNING", dialogs::Icon::Exclamation);
    } else {
        dialogs::Tell("Database " + title + " not found or empty resp.", "Execution not possible",
                      dialogs::Icon::Stop);
    }
}

}  // namespace

bool FileExists(const std::string& name) {
    return session::FileExists(name);
}

OpenResult OpenDatabaseFile(const std::string& path) {
    if (!FileExists(path)) return {.notUsable = true};
    const session::BusyPointer busy;
    channel().open(session::FindFile(path));
    std::optional<SubstanceLists> lists;
    if (channel().stream.is_open()) lists = read_lists(channel().stream);
    if (!lists) return {.notUsable = true};

    the_session.SubstanceCount = static_cast<std::int16_t>(lists->Numbers.size() - 1);
    the_session.DatabaseLoaded = true;
    the_session.DatabasePath = channel().path.string();
    legacy::the_substances = *std::move(lists);
    return {};
}

LoadOutcome LoadDatabase() {
    const std::optional<std::string> path =
        dialogs::ChooseFile({.title = "Select and load a database",
                             .filter = "Database (*.Q05)|*.Q05",
                             .folder = (session::DataFolder() / "").string(),
                             .name = the_session.DatabaseFile,
                             .defaultExtension = ".Q05"});
    return path ? LoadDatabase(*path) : LoadOutcome::Cancelled;
}

LoadOutcome LoadDatabase(const std::string& path) {
    const std::string title = session::FileTitle(path);
    if (title.empty()) return LoadOutcome::Cancelled;
    if (OpenDatabaseFile(path).notUsable) {
        tell_unusable(title);
        return LoadOutcome::Failed;
    }
    the_session.DatabaseFile = title;
    AddDatabaseFolder(fs::path(the_session.DatabasePath).parent_path());
    return LoadOutcome::Loaded;
}

bool ReadSubstance(std::int16_t index, bool& noCriticalData) {
    if (index == 0) return true;
    const std::optional<SubstanceFileRecord> file = listed_record(index);
    if (!file) {
        noCriticalData = true;
        return false;
    }
    LoadedSubstance loaded = RecordFromSlots(*file, the_session.EnglishUi, legacy::the_substance);
    noCriticalData = loaded.noCriticalData;
    legacy::the_substance = std::move(loaded.record);
    legacy::the_models.VPCode = std::move(loaded.VPCode);
    return true;
}

bool WriteDataBaseQ05() {
    const std::optional<std::string> path = dialogs::ChooseFile(
        {.save = true,
         .title = "Saving a Private Database File *.Q05 for the actual substance ",
         .filter = "Database (*.Q05)|*.Q05",
         .folder = (session::WriteFolder() / "").string(),
         .defaultExtension = ".Q05",
         .overwritePrompt = true});
    return path && !path->empty() && WritePrivateDatabase(*path);
}

bool WritePrivateDatabase(const std::string& path) {
    const fs::path target = TargetPath(path, session::WriteFolder().string(), ".Q05");
    if (is_same_file(target, the_session.DatabasePath)) {
        dialogs::Tell("This file is the database that is open. Choose another name.",
                      "Execution not possible", dialogs::Icon::Stop);
        return false;
    }
    // The record of the database keeps every slot and text that is not set here.
    std::optional<SubstanceFileRecord> buffer = listed_record(the_session.CurrentSubstance);
    if (!buffer) return false;

    // An older, longer file keeps what lies behind the second record.
    std::string bytes = ReadWhole(target, kLargestDatabase).bytes;
    bytes.resize(std::max(bytes.size(), 2 * kRecordSize), '\0');
    const auto put = [&](std::size_t record) {
        const RecordBytes encoded = EncodeRecord(*buffer);
        std::copy(encoded.begin(), encoded.end(),
                  bytes.begin() + static_cast<std::ptrdiff_t>((record - 1) * kRecordSize));
    };
    const auto substanceFormula = buffer->formula;
    const auto substanceGermanName = buffer->nameGerman;
    SetFieldText(buffer->formula, session::ShortDate());
    SetFieldText(buffer->nameGerman, "");
    buffer->number = 1;
    put(1);
    buffer->formula = substanceFormula;
    buffer->nameGerman = substanceGermanName;
    SlotsFromRecord(legacy::the_substance, the_session.EnglishUi, *buffer);
    put(2);
    return WriteWhole(target, bytes).empty();
}

void CloseDatabase() {
    channel().close();
}

fs::path OpenDatabasePath() {
    return channel().path;
}

std::optional<SubstanceLists> ReadDatabaseLists(const fs::path& path) {
    std::error_code ignored;
    if (!fs::is_regular_file(path, ignored)) return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    return in ? read_lists(in) : std::nullopt;
}

void AddDatabaseFolder(const fs::path& folder) {
    if (std::find(folders().begin(), folders().end(), folder) == folders().end())
        folders().push_back(folder);
}

std::string FindDatabase(const std::string& title, const fs::path& folder) {
    if (FileExists(title)) return title;
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
