#include "datafiles/batch_table.h"

#include <algorithm>
#include <array>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "datafiles/batch_file.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/table_text.h"
#include "legacy/declare.h"

namespace quor::datafiles {

namespace {

using calculation::BatchDataSet;
using constants::kNormalPressure;
using constants::kZeroCelsius;
using legacy::the_BatchData;
using legacy::the_session;

constexpr double kTorrPerAtm = 760.0;

/// Int(x * scale + 0.5) / scale, as the table rounds.
double rounded(double value, double scale) {
    return numbers::Int(value * scale + 0.5) / scale;
}

/// rho = M n / V and V = M n / rho are one rule.
double mass_over(double x, const BatchUnits& units) {
    return x == 0 ? 0 : units.M * units.n / x;
}

double density_of(const BatchDataSet& set, BatchColumn column) {
    return static_cast<double>(column == BatchColumn::rhoL ? set.rhoL : set.rhoV);
}

BatchDataSet set_from_line(std::string_view line, const BatchUnits& units) {
    const std::vector<std::string> cells = text::split(line, '\t');
    BatchDataSet set;
    for (int i = 0; i < kBatchColumns && static_cast<std::size_t>(i) < cells.size(); ++i)
        store_cell(set, static_cast<BatchColumn>(i), cells[static_cast<std::size_t>(i)], units);
    return set;
}

/// The part of a range of lines that lies in the table.
struct Lines {
    std::ptrdiff_t first, last;  ///< `last` is behind the last line
};
Lines in_table(int first, int last) {
    const int count =
        std::clamp(static_cast<int>(the_BatchData.size()) - 1, 0, int{the_session.BatchCount});
    const int from = std::clamp(first, 1, count + 1);
    const int to = std::clamp(last + 1, from, count + 1);
    return {from, to};
}

void set_size(std::size_t count) {
    the_session.BatchCount = static_cast<std::int16_t>(count);
    // The list never gets smaller than at the start of the program.
    the_BatchData.resize(std::max<std::size_t>(count + 1, 2));
    if (count == 0) the_BatchData[1] = {};
}

double sort_key(const BatchDataSet& set, BatchColumn column) {
    return column == BatchColumn::T ? set.T : fit_column_value(set, static_cast<int>(column));
}

}  // namespace

double stored_temperature(double typed, TemperatureUnit unit) {
    return unit == TemperatureUnit::Celsius ? typed + kZeroCelsius : typed;
}

double stored_pressure(double typed, PressureUnit unit) {
    switch (unit) {
        case PressureUnit::atm:
            return typed * kNormalPressure;
        case PressureUnit::Torr:
            return typed * kNormalPressure / kTorrPerAtm;
        default:
            return typed;
    }
}

double stored_density(double typed, const BatchUnits& units) {
    return units.volume ? mass_over(typed, units) : typed;
}

double shown_temperature(double T, TemperatureUnit unit) {
    return rounded(unit == TemperatureUnit::Celsius ? T - kZeroCelsius : T, 1000.0);
}

double shown_pressure(double p, PressureUnit unit) {
    double shown = p;
    if (unit == PressureUnit::atm) shown = p / kNormalPressure;
    if (unit == PressureUnit::Torr) shown = p / kNormalPressure * kTorrPerAtm;
    return rounded(shown, 100000.0);
}

double shown_density(double rho, const BatchUnits& units) {
    return units.volume ? mass_over(rho, units) : rho;
}

std::string cell_text(const BatchDataSet& set, BatchColumn column, const BatchUnits& units) {
    switch (column) {
        case BatchColumn::T:
            return set.T == 0 ? "" : numbers::General(shown_temperature(set.T, units.T));
        case BatchColumn::p:
            return set.p == 0 ? "" : numbers::General(shown_pressure(set.p, units.p));
        case BatchColumn::rhoL:
        case BatchColumn::rhoV: {
            const double rho = density_of(set, column);
            return rho == 0 ? "" : numbers::General(single_or_zero(shown_density(rho, units)));
        }
        case BatchColumn::hLV:
            return set.hLV == 0 ? "" : numbers::General(set.hLV);
        case BatchColumn::cp:
            return set.cp == 0 ? "" : numbers::General(set.cp);
    }
    return {};
}

void store_cell(BatchDataSet& set, BatchColumn column, std::string_view typed,
                const BatchUnits& units) {
    const bool empty = typed.find_first_of("0123456789") == std::string_view::npos;
    const double value = cell_number_input(typed);
    switch (column) {
        case BatchColumn::T:
            set.T = empty ? 0 : stored_temperature(value, units.T);
            break;
        case BatchColumn::p:
            set.p = stored_pressure(value, units.p);
            break;
        case BatchColumn::rhoL:
            set.rhoL = single_or_zero(stored_density(value, units));
            break;
        case BatchColumn::rhoV:
            set.rhoV = single_or_zero(stored_density(value, units));
            break;
        case BatchColumn::hLV:
            set.hLV = single_or_zero(value);
            break;
        case BatchColumn::cp:
            set.cp = single_or_zero(value);
            break;
    }
}

std::vector<BatchDataSet> sets_from_clipboard(std::string_view table, const BatchUnits& units) {
    std::vector<BatchDataSet> sets;
    for (const std::string& line : data_lines(table)) sets.push_back(set_from_line(line, units));
    return sets;
}

std::string sets_for_clipboard(int first, int last, const BatchUnits& units) {
    const Lines lines = in_table(first, last);
    std::string table;
    for (std::ptrdiff_t i = lines.first; i < lines.last; ++i)
        for (int c = 0; c < kBatchColumns; ++c)
            table += cell_text(the_BatchData[static_cast<std::size_t>(i)],
                               static_cast<BatchColumn>(c), units) +
                     (c + 1 < kBatchColumns ? "\t" : "\r\n");
    return table;
}

std::string batch_table_text(const BatchUnits& units) {
    static constexpr std::array<const char*, 3> pressures{"p/kPa", "p/atm", "p/Torr"};
    std::vector<std::vector<std::string>> rows;
    rows.push_back(
        {"#", units.T == TemperatureUnit::Celsius ? "T/°C" : "T/K",
         pressures[static_cast<std::size_t>(units.p)], units.volume ? "v_L/m^3" : "rho_L/(kg/m^3)",
         units.volume ? "v_V/m^3" : "rho_V/(kg/m^3)", "delta(LV)h/(kJ/kmol)", "cp/(kJ/kmol/K)"});
    for (int i = 1; i <= the_session.BatchCount; ++i) {
        const BatchDataSet& set = the_BatchData[static_cast<std::size_t>(i)];
        const std::string number = std::to_string(i);
        std::vector<std::string> row{set.skip == 0 ? number : "(" + number + ")"};
        for (int c = 0; c < kBatchColumns; ++c)
            row.push_back(cell_text(set, static_cast<BatchColumn>(c), units));
        rows.push_back(std::move(row));
    }
    return aligned_columns(rows);
}

void insert_batch_sets(int position, std::span<const BatchDataSet> sets) {
    const auto count = static_cast<std::size_t>(the_session.BatchCount);
    const std::size_t room = kMostBatchSets - count;
    const std::span<const BatchDataSet> taken = sets.first(std::min(sets.size(), room));
    const int at = std::clamp(position, 1, the_session.BatchCount + 1);
    the_BatchData.resize(count + 1);
    the_BatchData.insert(the_BatchData.begin() + at, taken.begin(), taken.end());
    set_size(count + taken.size());
}

void remove_batch_sets(int first, int last) {
    const Lines lines = in_table(first, last);
    const auto removed = static_cast<std::size_t>(lines.last - lines.first);
    the_BatchData.erase(the_BatchData.begin() + lines.first, the_BatchData.begin() + lines.last);
    set_size(static_cast<std::size_t>(the_session.BatchCount) - removed);
}

void toggle_batch_sets(int first, int last) {
    const Lines lines = in_table(first, last);
    for (std::ptrdiff_t i = lines.first; i < lines.last; ++i) {
        std::int16_t& skip = the_BatchData[static_cast<std::size_t>(i)].skip;
        skip = skip == 0 ? std::int16_t{-1} : std::int16_t{0};
    }
}

void sort_batch_sets(BatchColumn column) {
    const Lines lines = in_table(1, the_session.BatchCount);
    std::stable_sort(the_BatchData.begin() + lines.first, the_BatchData.begin() + lines.last,
                     [&](const BatchDataSet& a, const BatchDataSet& b) {
                         return sort_key(a, column) < sort_key(b, column);
                     });
}

double fit_column_value(const BatchDataSet& set, int column) {
    switch (column) {
        case 1:
            return set.p;
        case 2:
            return static_cast<double>(set.rhoL);
        case 3:
            return static_cast<double>(set.rhoV);
        case 4:
            return static_cast<double>(set.hLV);
        case 5:
            return static_cast<double>(set.cp);
        default:
            return 0;
    }
}

}  // namespace quor::datafiles
