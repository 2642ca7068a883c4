#include "chart/chart2d.h"

#include "chart/chart_file.h"
#include "chart/picture2d.h"
#include "diagrams/sheet_file.h"
#include "harness.h"

using namespace quor;

namespace {

chart::TextSize measure(const std::string& text, const chart::Font& font) {
    return {0.6 * font.size * static_cast<double>(text.size()), 1.3 * font.size};
}

/// A saved diagram (.oc2), shown on a sheet and painted.
bool read(std::string_view input) {
    chart::Chart2D chart;
    chart.header.text = "as it was";
    const std::string before = chart::to_text(chart);
    const auto read = chart::from_text(input, chart);
    const std::string now = chart::to_text(chart);
    if (!read) {
        FUZZ_CHECK(!read.reason().empty());
        FUZZ_CHECK(now == before);
        return false;
    }
    chart::Chart2D again;
    FUZZ_CHECK(static_cast<bool>(chart::from_text(now, again)));
    FUZZ_CHECK(chart::to_text(again) == now);

    diagrams::DiagramSheet sheet;
    diagrams::take_loaded_chart(sheet, chart);
    for (int place = 0; place < static_cast<int>(sheet.curves.size()); ++place) {
        diagrams::shown_points(sheet, place);
        diagrams::curve_name(sheet, place);
        diagrams::curve_table(sheet, place);
    }
    chart::picture_of(sheet.chart, 640, 480, measure);
    return true;
}

const fuzz::Registered registered("chart2d", read);

}  // namespace
