#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "datafiles/measured_data.h"
#include "datafiles/table_text.h"
#include "datafiles/xy_points.h"
#include "models/units.h"

/// The table of experimental data without its view: units, cells, lines, order, clipboard.
namespace quor::datafiles {

enum class TemperatureUnit { K, Celsius, chosen };
enum class PressureUnit { kPa, atm, Torr, chosen };

/// How the user reads and types the table.
struct MeasuredUnits {
    TemperatureUnit T = TemperatureUnit::K;
    PressureUnit p = PressureUnit::kPa;
    bool volume = false;  ///< volumes in m^3 of the amount `n` instead of densities
    double n = 1;         ///< kmol
    double M = 0;         ///< molar mass, kg/kmol
    /// The units chosen for the whole program: T and p may have them, all others always do.
    models::Units program{};
};

/// Columns in the order of the screen and of the clipboard.
enum class MeasuredColumn { T, p, rhoL, rhoV, hLV, cp };
inline constexpr int kMeasuredColumns = 6;

/// The scale of a column; not that of volumes, which are no multiples of densities.
models::Scale scale_of(MeasuredColumn column, const MeasuredUnits& units);

/// From the typed to the stored value: K, kPa, kg/m^3. A volume of 0 gives 0, no density.
double stored_temperature(double typed, TemperatureUnit unit);
double stored_pressure(double typed, PressureUnit unit);
double stored_density(double typed, const MeasuredUnits& units);

/// From the stored to the shown value: T rounded to 3, p to 5 decimals in the unit chosen.
double shown_temperature(double T, TemperatureUnit unit);
double shown_pressure(double p, PressureUnit unit);
double shown_density(double rho, const MeasuredUnits& units);

/// A cell as shown, in the locale's number form; empty where the set has no value (0).
std::string cell_text(const MeasuredPoint& set, MeasuredColumn column, const MeasuredUnits& units);
/// Stores what was typed into a cell, point or comma as decimal mark; an empty cell stores 0, "no
/// value". False, with nothing stored, for a text that is no number from end to end and for a value
/// that the column cannot hold.
bool store_cell(MeasuredPoint& set, MeasuredColumn column, std::string_view typed,
                const MeasuredUnits& units);

/// Sets from tab-separated lines of numbers in the order of the columns. Empty lines, and a first
/// line of headings, are left out.
ReadPoints<MeasuredPoint> sets_from_clipboard(std::string_view text, const MeasuredUnits& units);
/// The lines `first` to `last` (from 1) tab-separated, numbers in the locale's form.
std::string sets_for_clipboard(std::span<const MeasuredPoint> points, int first, int last,
                               const MeasuredUnits& units);
/// The whole table in aligned columns for the printer, inactive lines in brackets.
std::string measured_table_text(std::span<const MeasuredPoint> points, const MeasuredUnits& units);

// Changes of the lines `first` to `last`, counted from 1; lines beyond the table are ignored.

/// Inserts lines before the line `position`, as many as a file can count.
void insert_points(std::vector<MeasuredPoint>& points, int position,
                   std::span<const MeasuredPoint> more);
void remove_points(std::vector<MeasuredPoint>& points, int first, int last);
/// Active lines become inactive and back.
void toggle_points(std::span<MeasuredPoint> points, int first, int last);
/// Sorts all lines, ascending; equal ones keep their order.
void sort_points(std::span<MeasuredPoint> points, MeasuredColumn column);

/// The active lines with a value in a column (1 to 5, as below) as a graph over T, or, for the
/// vapour pressure, ln p over 1/T. Refused without such a line.
Result<XyGraph> measured_graph(const MeasuredData& data, int column);
Result<XyGraph> measured_graph_ln(const MeasuredData& data);

/// The value of a column by the number that the fitting knows: 1 p, 2 rhoL, 3 rhoV, 4 hLV, 5 cp.
double fit_column_value(const MeasuredPoint& set, int column);

}  // namespace quor::datafiles
