#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "calculation/result_records.h"

/// The table of experimental data without its view: units, cells, lines, order, clipboard.
namespace quor::datafiles {

enum class TemperatureUnit { K, Celsius };
enum class PressureUnit { kPa, atm, Torr };

/// How the user reads and types the table.
struct BatchUnits {
    TemperatureUnit T = TemperatureUnit::K;
    PressureUnit p = PressureUnit::kPa;
    bool volume = false;  ///< volumes in m^3 of the amount `n` instead of densities
    double n = 1;         ///< kmol
    double M = 0;         ///< molar mass, kg/kmol
};

/// Columns in the order of the screen and of the clipboard.
enum class BatchColumn { T, p, rhoL, rhoV, hLV, cp };
inline constexpr int kBatchColumns = 6;

/// From the typed to the stored value: K, kPa, kg/m^3. A volume of 0 gives 0, no density.
double stored_temperature(double typed, TemperatureUnit unit);
double stored_pressure(double typed, PressureUnit unit);
double stored_density(double typed, const BatchUnits& units);

/// From the stored to the shown value: T rounded to 3, p to 5 decimals in the unit chosen.
double shown_temperature(double T, TemperatureUnit unit);
double shown_pressure(double p, PressureUnit unit);
double shown_density(double rho, const BatchUnits& units);

/// A cell as shown, in the locale's number form; empty where the set has no value (0).
std::string cell_text(const calculation::BatchDataSet& set, BatchColumn column,
                      const BatchUnits& units);
/// Stores what was typed into a cell, point or comma as decimal mark. An empty cell stores 0, "no
/// value", and so does a text that is no number or a value that the column cannot hold.
void store_cell(calculation::BatchDataSet& set, BatchColumn column, std::string_view typed,
                const BatchUnits& units);

/// Sets from tab-separated lines of numbers in the order of the columns. Empty lines, and a first
/// line of headings, are left out.
std::vector<calculation::BatchDataSet> sets_from_clipboard(std::string_view text,
                                                           const BatchUnits& units);
/// The lines `first` to `last` (from 1) tab-separated, numbers in the locale's form.
std::string sets_for_clipboard(int first, int last, const BatchUnits& units);
/// The whole table in aligned columns for the printer, inactive lines in brackets.
std::string batch_table_text(const BatchUnits& units);

/// Operations on `BatchData`, lines 1 to `BatchCount`; element 0, the direct input, stays. Lines
/// beyond the table are ignored.
void insert_batch_sets(int position, std::span<const calculation::BatchDataSet> sets);
void remove_batch_sets(int first, int last);
void toggle_batch_sets(int first, int last);  ///< active becomes inactive and back
void sort_batch_sets(BatchColumn column);     ///< ascending; equal ones keep their order

/// The value of a column by the number that the fitting knows: 1 p, 2 rhoL, 3 rhoV, 4 hLV, 5 cp.
double fit_column_value(const calculation::BatchDataSet& set, int column);

}  // namespace quor::datafiles
