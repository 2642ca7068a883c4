#include "chart/chart3d.h"

#include "chart/chart_file.h"
#include "chart/scene3d.h"
#include "harness.h"

using namespace quor;

namespace {

chart::TextSize measure(const std::string& text, const chart::Font& font) {
    return {0.6 * font.size * static_cast<double>(text.size()), 1.3 * font.size};
}

/// A saved surface (.oc3), painted and pointed at.
bool read(std::string_view input) {
    chart::Chart3D chart;
    chart.header.text = "as it was";
    const std::string before = chart::to_text(chart);
    const auto read = chart::from_text(input, chart);
    const std::string now = chart::to_text(chart);
    if (!read) {
        FUZZ_CHECK(!read.reason().empty());
        FUZZ_CHECK(now == before);
        return false;
    }
    chart::Chart3D again;
    FUZZ_CHECK(static_cast<bool>(chart::from_text(now, again)));
    FUZZ_CHECK(chart::to_text(again) == now);

    chart::build_scene(chart, 640, 480, measure);
    static_cast<void>(chart::pick_surface(chart, 640, 480, measure, {320, 240}));
    return true;
}

const fuzz::Registered registered("chart3d", read);

}  // namespace
