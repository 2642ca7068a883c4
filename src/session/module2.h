#pragma once

#include <filesystem>
#include <string>

#include "legacy/declare.h"

/// Session helpers: defaults, units, busy pointer, paths, protocol names.
namespace quor::session {

/// Every process-level record gets its default: the state at the start of the program. The
/// folders follow `program_folder`.
void reset_everything();

/// Clears what depends on the substance and disables the commands that need one.
void reset_session();

struct UnitLabels {
    double Factor;  ///< multiplier on molar volumes
    std::string TemperatureLabel, PressureLabel, VolumeLabel;
};

/// Units of T, p and v for a mode (0 molar, 1 specific, 2 reduced). Falls back to molar when the
/// model has no critical volume, and then writes `UnitMode`. Sets `PressureFactor` and
/// `TemperatureFactor` of the session.
UnitLabels set_units(std::int16_t& UnitMode);
/// The same for the session: fills its factor and labels.
void refresh_units();

/// The multiplier on caloric values for a unit form (0 kJ/kmol, 1 K, 2 R T, 3 kJ/kg) with T/K as
/// the divisor of form 2. Throws `faults::Fault` for form 3 with M = 0.
double caloric_factor_of(std::int16_t CaloricUnit, double T);

/// Busy pointer, nested: only the outermost pair changes it.
void begin_busy();
void end_busy();

/// The pair as an object, for routines that may leave early.
class BusyPointer {
  public:
    BusyPointer() { begin_busy(); }
    ~BusyPointer() { end_busy(); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};

/// Folder of the executable, where the system's files live; where it is not writable new files go
/// to the user's data folder. Both are injected by the program and by tests.
const std::filesystem::path& program_folder();
void set_program_folder(const std::filesystem::path& folder,
                        const std::filesystem::path& userFolder = {});
/// Where the program's own data lie: the shared folder of an installed program, else the program's
/// folder.
std::filesystem::path data_folder();
/// Where files are written: the program's folder, or the user's data folder.
const std::filesystem::path& write_folder();
/// A file that is read: from `write_folder` if it is there, else from `program_folder`, else from
/// the shared data folder beside an installed program. A name with a separator stands as it is.
std::filesystem::path find_file(const std::string& name);
/// True when a file of that name exists; a name without a separator is looked up by `find_file`, an
/// empty name is false.
bool file_exists(const std::string& name);
/// True when the text holds "/" or "\".
bool has_separator(const std::string& path);
/// The name behind the last "/" or "\".
std::string file_title(const std::string& path);
/// The folder with its closing separator, empty when there is none.
std::string folder_of(const std::string& path);

/// Today's date in the short form dd.mm.yyyy; tests set a fixed one (empty: today again).
std::string short_date();
void set_short_date(const std::string& date);

/// A protocol file name that does not yet exist in `write_folder`: yymmdd and a running number of
/// two digits from the date, with ".CSV".
std::string new_protocol_file_name();

/// A path shortened for display to about MaxLength characters: its first three, "...", its end.
std::string shorten_path(const std::string& Path, int MaxLength);

}  // namespace quor::session
