#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "datafiles/substance_file.h"
#include "datafiles/substance_lists.h"
#include "legacy/session_record.h"

namespace quor::datafiles {

/// True when a file of that name exists; a name without a folder is looked up in the program's
/// folder, an empty name is false.
bool file_exists(const std::string& name);

struct OpenResult {
    bool notUsable = false;  ///< missing, empty, cut short or unreadable
    bool reserved = false;
};

/// Opens a database and builds the lists of its substances. The file stays open for
/// `ReadSubstance` until the next opening. The file that was open is closed before the new one is
/// looked into; where that proves unusable, the lists of the earlier one stay, and the next
/// selection opens it again. A missing file changes nothing.
OpenResult open_database_file(const std::string& path);

enum class LoadOutcome { Loaded, Cancelled, Failed };

/// Asks for a database and opens it; a failure is told. A cancel changes nothing.
LoadOutcome load_database();
/// The same for a known file, as for one that was dropped on the frame.
LoadOutcome load_database(const std::string& path);

/// Reads a substance (1 to `SubstanceCount`) of the open database into `legacy::the_substance` and
/// its default into `VPCode`. `noCriticalData` becomes true when Tcrit or pcrit is missing; the
/// record is loaded all the same. Index 0 does nothing at all. False when the record could not be
/// read: the record stays as it was and `noCriticalData` is true.
bool ReadSubstance(std::int16_t index, bool& noCriticalData);

/// Asks for a name and writes the active substance to a private database of one substance. What
/// the session does not hold comes from the substance's record in the open database. False when
/// nothing was written.
bool write_data_base_q05();
/// The same to a known file.
bool write_private_database(const std::string& path);

/// Closes the database file, as at the end of the program. The lists stay.
void close_database();
/// The file that is open now, empty for none.
std::filesystem::path open_database_path();

/// The lists of a database without opening it for the session; nothing when it is not usable.
std::optional<datafiles::SubstanceLists> read_database_lists(const std::filesystem::path& path);

/// Folders, besides the program's, in which a database named by a project is looked for. Every
/// database that is loaded adds its own.
void add_database_folder(const std::filesystem::path& folder);
/// The file of a database that a project names: in the program's folder, else in `folder`, else in
/// one of the folders added; the bare title when it is nowhere.
std::string find_database(const std::string& title, const std::filesystem::path& folder);

}  // namespace quor::datafiles
