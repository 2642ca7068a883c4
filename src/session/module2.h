#pragma once

#include <filesystem>
#include <string>

#include "legacy/declare.h"

/// Session helpers: defaults, units, busy pointer, paths, protocol names.
namespace quor::session {

/// Every process-level record gets its default: the state at the start of the program. The
/// folders follow `ProgramFolder`.
void ResetEverything();

/// Clears what depends on the substance and disables the commands that need one.
void ResetSession();

struct UnitLabels {
    double Factor;  ///< multiplier on molar volumes
    std::string TemperatureLabel, PressureLabel, VolumeLabel;
};

/// Units of T, p and v for a mode (0 molar, 1 specific, 2 reduced). Falls back to molar when the
/// model has no critical volume, and then writes `UnitMode`. Sets `PressureFactor` and
/// `TemperatureFactor` of the session.
UnitLabels SetUnits(std::int16_t& UnitMode);
/// The same for the session: fills its factor and labels.
void RefreshUnits();

/// The multiplier on caloric values for a unit form (0 kJ/kmol, 1 K, 2 R T, 3 kJ/kg) with T/K as
/// the divisor of form 2. Throws `faults::Fault` for form 3 with M = 0.
double CaloricFactorOf(std::int16_t CaloricUnit, double T);

/// Busy pointer, nested: only the outermost pair changes it.
void BeginBusy();
void EndBusy();

/// The pair as an object, for routines that may leave early.
class BusyPointer {
  public:
    BusyPointer() { BeginBusy(); }
    ~BusyPointer() { EndBusy(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

/// Folder of the executable, where the system's files live; where it is not writable new files go
/// to the user's data folder. Both are injected by the program and by tests.
const std::filesystem::path& ProgramFolder();
void SetProgramFolder(const std::filesystem::path& folder,
                      const std::filesystem::path& userFolder = {});
/// Where the program's own data lie: the shared folder of an installed program, else the program's
/// folder.
std::filesystem::path DataFolder();
/// Where files are written: the program's folder, or the user's data folder.
const std::filesystem::path& WriteFolder();
/// A file that is read: from `WriteFolder` if it is there, else from `ProgramFolder`, else from the
/// shared data folder beside an installed program. A name with a separator stands as it is.
std::filesystem::path FindFile(const std::string& name);
/// True when a file of that name exists; a name without a separator is looked up by `FindFile`, an
/// empty name is false.
bool FileExists(const std::string& name);
/// True when the text holds "/" or "\".
bool HasSeparator(const std::string& path);
/// The name behind the last "/" or "\".
std::string FileTitle(const std::string& path);
/// The folder with its closing separator, empty when there is none.
std::string FolderOf(const std::string& path);

/// Today's date in the short form dd.mm.yyyy; tests set a fixed one (empty: today again).
std::string ShortDate();
void SetShortDate(const std::string& date);

/// A protocol file name that does not yet exist in `WriteFolder`: yymmdd and a running number of
/// two digits from the date, with ".CSV".
std::string NewProtocolFileName();

/// A path shortened for display to about MaxLength characters: its first three, "...", its end.
std::string ShortenPath(const std::string& Path, int MaxLength);

}  // namespace quor::session
