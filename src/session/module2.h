#pragma once

#include <filesystem>
#include <string>

#include "common/paths.h"
#include "legacy/declare.h"

/// Session helpers: defaults, units, busy pointer.
namespace quor::session {

/// Every process-level record gets its default: the state at the start of the program. The
/// folders follow `legacy::the_places`.
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

// Folders and dates for those who are not yet given `Places`.
inline const std::filesystem::path& write_folder() {
    return legacy::the_places.write_folder();
}
inline std::filesystem::path find_file(const std::string& name) {
    return legacy::the_places.find_file(name);
}
inline bool file_exists(const std::string& name) {
    return legacy::the_places.file_exists(name);
}
inline std::string short_date() {
    return legacy::the_places.short_date();
}
inline std::string new_protocol_file_name() {
    return legacy::the_places.new_protocol_file_name();
}
using paths::file_title;
using paths::folder_of;
using paths::has_separator;

}  // namespace quor::session
