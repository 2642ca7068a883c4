#include <cmath>

#include "datafiles/measured_table.h"
#include "harness.h"

using namespace quor;

namespace {

bool is_finite(const datafiles::MeasuredPoint& set) {
    for (const double value :
         {set.T, set.p, static_cast<double>(set.rhoL), static_cast<double>(set.rhoV),
          static_cast<double>(set.hLV), static_cast<double>(set.cp)})
        if (!std::isfinite(value)) return false;
    return true;
}

/// What the clipboard holds, pasted into the table of experimental data; the first byte chooses
/// the units in which its user reads and types.
bool read(std::string_view input) {
    const unsigned choice = input.empty() ? 0U : static_cast<unsigned char>(input.front());
    const datafiles::MeasuredUnits units{
        .T = (choice & 1U) != 0 ? datafiles::TemperatureUnit::Celsius
                                : datafiles::TemperatureUnit::K,
        .p = static_cast<datafiles::PressureUnit>((choice >> 1U) % 3U),
        .volume = (choice & 8U) != 0,
        .M = 44.096};
    const auto pasted = datafiles::sets_from_clipboard(input.substr(input.empty() ? 0 : 1), units);
    for (const std::size_t place : pasted.wrong) FUZZ_CHECK(place < pasted.points.size());

    std::vector<datafiles::MeasuredPoint> table(3);
    datafiles::insert_points(table, 2, pasted.points);
    FUZZ_CHECK(table.size() <= datafiles::kMostMeasuredPoints);
    for (const datafiles::MeasuredPoint& set : table) FUZZ_CHECK(is_finite(set));
    for (int column = 0; column < datafiles::kMeasuredColumns; ++column)
        datafiles::sort_points(table, static_cast<datafiles::MeasuredColumn>(column));
    for (int column = 1; column <= 5; ++column)
        static_cast<void>(datafiles::measured_graph({.points = table}, column));
    static_cast<void>(datafiles::measured_graph_ln({.points = table}));
    datafiles::measured_table_text(table, units);

    // The table as it is copied can be pasted again.
    const std::string copied = datafiles::sets_for_clipboard(
        pasted.points, 1, static_cast<int>(pasted.points.size()), units);
    const auto again = datafiles::sets_from_clipboard(copied, units);
    for (const datafiles::MeasuredPoint& set : again.points) FUZZ_CHECK(is_finite(set));
    return !pasted.points.empty() && pasted.wrong.size() < pasted.points.size();
}

const fuzz::Registered registered("measured_paste", read);

}  // namespace
