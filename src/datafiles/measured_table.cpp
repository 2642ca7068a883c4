#include "datafiles/measured_table.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "common/constants.h"
#include "common/numbers.h"
#include "common/text.h"
#include "common/text_parts.h"
#include "datafiles/cell_numbers.h"
#include "datafiles/table_text.h"

namespace quor::datafiles {

namespace {

using constants::kNormalPressure;
using constants::kZeroCelsius;

constexpr double kTorrPerAtm = 760.0;

/// Int(x * scale + 0.5) / scale, as the table rounds.
double rounded(double value, double scale) {
    return numbers::round_down(value * scale + 0.5) / scale;
}

/// rho = M n / V and V = M n / rho are one rule.
double mass_over(double x, const MeasuredUnits& units) {
    return x == 0 ? 0 : units.M * units.n / x;
}

double density_of(const MeasuredPoint& set, MeasuredColumn column) {
    return static_cast<double>(column == MeasuredColumn::rhoL ? set.rhoL : set.rhoV);
}

void add_line(ReadPoints<MeasuredPoint>& read, std::string_view line, const MeasuredUnits& units) {
    text::CellCursor cells(line, '\t');
    MeasuredPoint set;
    bool right = true;
    for (int i = 0; i < kMeasuredColumns; ++i) {
        const auto cell = cells.next();
        if (!cell) break;
        if (!store_cell(set, static_cast<MeasuredColumn>(i), *cell, units)) right = false;
    }
    if (!right) set.skip = kInactive;
    read.add(set, right);
}

bool is_density(MeasuredColumn column) {
    return column == MeasuredColumn::rhoL || column == MeasuredColumn::rhoV;
}

/// True where a column is shown in the unit chosen for the whole program.
bool in_program_unit(MeasuredColumn column, const MeasuredUnits& units) {
    using models::Dimension;
    switch (column) {
        case MeasuredColumn::T:
            return units.T == TemperatureUnit::chosen;
        case MeasuredColumn::p:
            return units.p == PressureUnit::chosen;
        case MeasuredColumn::rhoL:
        case MeasuredColumn::rhoV:
            return !units.volume && units.program.has_own(Dimension::density);
        case MeasuredColumn::hLV:
            return units.program.has_own(Dimension::energy);
        case MeasuredColumn::cp:
            return units.program.has_own(Dimension::entropy);
    }
    return false;
}

/// What is stored for a value typed into a column; nothing for one that the column cannot hold.
std::optional<double> stored(MeasuredColumn column, double typed, const MeasuredUnits& units) {
    double value = typed;
    if (in_program_unit(column, units))
        value = scale_of(column, units).value(typed);
    else if (column == MeasuredColumn::T)
        value = stored_temperature(typed, units.T);
    else if (column == MeasuredColumn::p)
        value = stored_pressure(typed, units.p);
    else if (is_density(column))
        value = stored_density(typed, units);
    return single(value) ? std::optional(value) : std::nullopt;
}

double value_of(const MeasuredPoint& set, MeasuredColumn column) {
    return column == MeasuredColumn::T ? set.T : fit_column_value(set, static_cast<int>(column));
}

/// A value in the unit of the program: T to 3 decimals, all else to what 32 bits hold.
std::string program_text(double value, MeasuredColumn column, const MeasuredUnits& units) {
    const double shown = scale_of(column, units).shown(value);
    return column == MeasuredColumn::T ? numbers::general(rounded(shown, 1000.0))
                                       : numbers::general(single_or_zero(shown));
}

/// "p/kPa" and "cp/(kJ/kmol/K)": the head of a column on paper.
std::string head_of(MeasuredColumn column, const MeasuredUnits& units, const char* symbol,
                    const char* told) {
    if (!in_program_unit(column, units)) return told;
    const std::string unit(scale_of(column, units).name);
    return std::string(symbol) +
           (unit.find('/') == std::string::npos ? "/" + unit : "/(" + unit + ")");
}

/// The part of a range of lines that lies in the table, from 0.
struct Lines {
    std::ptrdiff_t first, last;  ///< `last` is behind the last line
};
Lines in_table(std::size_t size, int first, int last) {
    const auto count = static_cast<std::ptrdiff_t>(size);
    const std::ptrdiff_t from = std::clamp<std::ptrdiff_t>(first - 1, 0, count);
    return {from, std::clamp<std::ptrdiff_t>(last, from, count)};
}

}  // namespace

models::Scale scale_of(MeasuredColumn column, const MeasuredUnits& units) {
    using models::Dimension;
    constexpr models::Scale kCelsius{1, -kZeroCelsius, "degC"};
    constexpr models::Scale kAtm{1 / kNormalPressure, 0, "atm"};
    constexpr models::Scale kTorr{kTorrPerAtm / kNormalPressure, 0, "Torr"};
    const bool program = in_program_unit(column, units);
    switch (column) {
        case MeasuredColumn::T:
            if (program) return units.program.of(Dimension::temperature);
            return units.T == TemperatureUnit::Celsius ? kCelsius : models::Scale{1, 0, "K"};
        case MeasuredColumn::p:
            if (program) return units.program.of(Dimension::pressure);
            return units.p == PressureUnit::atm    ? kAtm
                   : units.p == PressureUnit::Torr ? kTorr
                                                   : models::Scale{1, 0, "kPa"};
        case MeasuredColumn::rhoL:
        case MeasuredColumn::rhoV:
            return program ? units.program.of(Dimension::density) : models::Scale{1, 0, "kg/m^3"};
        case MeasuredColumn::hLV:
            return program ? units.program.of(Dimension::energy) : models::Scale{1, 0, "kJ/kmol"};
        case MeasuredColumn::cp:
            return program ? units.program.of(Dimension::entropy)
                           : models::Scale{1, 0, "kJ/(kmol K)"};
    }
    return {};
}

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

double stored_density(double typed, const MeasuredUnits& units) {
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

double shown_density(double rho, const MeasuredUnits& units) {
    return units.volume ? mass_over(rho, units) : rho;
}

std::string cell_text(const MeasuredPoint& set, MeasuredColumn column, const MeasuredUnits& units) {
    if (in_program_unit(column, units)) {
        const double value = value_of(set, column);
        return value == 0 ? "" : program_text(value, column, units);
    }
    switch (column) {
        case MeasuredColumn::T:
            return set.T == 0 ? "" : numbers::general(shown_temperature(set.T, units.T));
        case MeasuredColumn::p:
            return set.p == 0 ? "" : numbers::general(shown_pressure(set.p, units.p));
        case MeasuredColumn::rhoL:
        case MeasuredColumn::rhoV: {
            const double rho = density_of(set, column);
            return rho == 0 ? "" : numbers::general(single_or_zero(shown_density(rho, units)));
        }
        case MeasuredColumn::hLV:
            return set.hLV == 0 ? "" : numbers::general(set.hLV);
        case MeasuredColumn::cp:
            return set.cp == 0 ? "" : numbers::general(set.cp);
    }
    return {};
}

bool store_cell(MeasuredPoint& set, MeasuredColumn column, std::string_view typed,
                const MeasuredUnits& units) {
    double value = 0;
    if (!text::trim(typed).empty()) {
        const std::optional<double> number = numbers::typed_number(typed);
        const auto kept = number ? stored(column, *number, units) : std::nullopt;
        if (!kept) return false;
        value = *kept;
    }
    switch (column) {
        case MeasuredColumn::T:
            set.T = value;
            break;
        case MeasuredColumn::p:
            set.p = value;
            break;
        case MeasuredColumn::rhoL:
            set.rhoL = static_cast<float>(value);
            break;
        case MeasuredColumn::rhoV:
            set.rhoV = static_cast<float>(value);
            break;
        case MeasuredColumn::hLV:
            set.hLV = static_cast<float>(value);
            break;
        case MeasuredColumn::cp:
            set.cp = static_cast<float>(value);
            break;
    }
    return true;
}

ReadPoints<MeasuredPoint> sets_from_clipboard(std::string_view table, const MeasuredUnits& units) {
    ReadPoints<MeasuredPoint> read;
    for (const std::string_view line : data_lines(table)) add_line(read, line, units);
    return read;
}

std::string sets_for_clipboard(std::span<const MeasuredPoint> points, int first, int last,
                               const MeasuredUnits& units) {
    const Lines lines = in_table(points.size(), first, last);
    std::string table;
    for (std::ptrdiff_t i = lines.first; i < lines.last; ++i)
        for (int c = 0; c < kMeasuredColumns; ++c)
            table += cell_text(points[static_cast<std::size_t>(i)], static_cast<MeasuredColumn>(c),
                               units) +
                     (c + 1 < kMeasuredColumns ? "\t" : "\r\n");
    return table;
}

std::string measured_table_text(std::span<const MeasuredPoint> points, const MeasuredUnits& units) {
    static constexpr std::array<const char*, 3> pressures{"p/kPa", "p/atm", "p/Torr"};
    std::vector<std::vector<std::string>> rows;
    const char* const p =
        units.p == PressureUnit::chosen ? "" : pressures[static_cast<std::size_t>(units.p)];
    rows.push_back(
        {"#",
         head_of(MeasuredColumn::T, units, "T",
                 units.T == TemperatureUnit::Celsius ? "T/°C" : "T/K"),
         head_of(MeasuredColumn::p, units, "p", p),
         head_of(MeasuredColumn::rhoL, units, "rho_L", units.volume ? "v_L/m^3" : "rho_L/(kg/m^3)"),
         head_of(MeasuredColumn::rhoV, units, "rho_V", units.volume ? "v_V/m^3" : "rho_V/(kg/m^3)"),
         head_of(MeasuredColumn::hLV, units, "delta(LV)h", "delta(LV)h/(kJ/kmol)"),
         head_of(MeasuredColumn::cp, units, "cp", "cp/(kJ/kmol/K)")});
    for (std::size_t i = 0; i < points.size(); ++i) {
        const MeasuredPoint& set = points[i];
        const std::string number = std::to_string(i + 1);
        std::vector<std::string> row{set.skip == 0 ? number : "(" + number + ")"};
        for (int c = 0; c < kMeasuredColumns; ++c)
            row.push_back(cell_text(set, static_cast<MeasuredColumn>(c), units));
        rows.push_back(std::move(row));
    }
    return aligned_columns(rows);
}

void insert_points(std::vector<MeasuredPoint>& points, int position,
                   std::span<const MeasuredPoint> more) {
    const std::size_t room = kMostMeasuredPoints - std::min(points.size(), kMostMeasuredPoints);
    const std::span<const MeasuredPoint> taken = more.first(std::min(more.size(), room));
    const auto at =
        std::clamp<std::ptrdiff_t>(position - 1, 0, static_cast<std::ptrdiff_t>(points.size()));
    points.insert(points.begin() + at, taken.begin(), taken.end());
}

void remove_points(std::vector<MeasuredPoint>& points, int first, int last) {
    const Lines lines = in_table(points.size(), first, last);
    points.erase(points.begin() + lines.first, points.begin() + lines.last);
}

void toggle_points(std::span<MeasuredPoint> points, int first, int last) {
    const Lines lines = in_table(points.size(), first, last);
    for (std::ptrdiff_t i = lines.first; i < lines.last; ++i) {
        std::int16_t& skip = points[static_cast<std::size_t>(i)].skip;
        skip = skip == 0 ? kInactive : std::int16_t{0};
    }
}

void sort_points(std::span<MeasuredPoint> points, MeasuredColumn column) {
    std::stable_sort(points.begin(), points.end(),
                     [&](const MeasuredPoint& a, const MeasuredPoint& b) {
                         return value_of(a, column) < value_of(b, column);
                     });
}

namespace {

/// The points of a graph over the active lines, each from `point`, which gives none for a line
/// without its values.
template <class PointOf>
Result<XyGraph> graph_of(const MeasuredData& data, const std::string& needed,
                         const PointOf& point) {
    XyGraph graph;
    for (const MeasuredPoint& set : data.points) {
        if (set.skip != 0) continue;
        if (const std::optional<FitPoint> one = point(set)) graph.points.push_back(*one);
    }
    if (graph.points.empty()) return Failure{"There is no active line with " + needed + "."};
    graph.range = range_of_active(graph.points);
    return graph;
}

}  // namespace

Result<XyGraph> measured_graph(const MeasuredData& data, int column) {
    static constexpr std::array<const char*, 5> kNames{"p", "rho(L)", "rho(V)", "delta(LV)h", "cp"};
    static constexpr std::array<const char*, 5> kUnits{"kPa", "(kg/m^3)", "(kg/m^3)", "(kJ/kmol)",
                                                       "(kJ/kmol/K)"};
    const auto chosen = static_cast<std::size_t>(std::clamp(column, 1, 5) - 1);
    const std::string name = kNames[chosen];
    Result<XyGraph> graph = graph_of(
        data, "T and " + name, [column](const MeasuredPoint& set) -> std::optional<FitPoint> {
            const double y = fit_column_value(set, column);
            if (set.T == 0 || y == 0) return std::nullopt;
            return FitPoint{single_or_zero(set.T), single_or_zero(y), 0};
        });
    if (!graph) return graph;
    graph->title = "Experimental points " + name + "(T)";
    graph->x_title = "T / K";
    graph->y_title = name + " / " + kUnits[chosen];
    return graph;
}

Result<XyGraph> measured_graph_ln(const MeasuredData& data) {
    Result<XyGraph> graph =
        graph_of(data, "T and p above 0", [](const MeasuredPoint& set) -> std::optional<FitPoint> {
            if (!(set.T > 0 && set.p > 0)) return std::nullopt;
            return FitPoint{single_or_zero(1 / set.T), single_or_zero(std::log(set.p)), 0};
        });
    if (!graph) return graph;
    graph->title = "Experimental points ln{p} = f(1/T)";
    graph->x_title = "1/ (T/K)";
    graph->y_title = "ln (p/kPa)";
    return graph;
}

double fit_column_value(const MeasuredPoint& set, int column) {
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
