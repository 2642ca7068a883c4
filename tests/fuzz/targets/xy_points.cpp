#include <cmath>

#include "datafiles/xy_file.h"
#include "harness.h"
#include "session/xy_session.h"
#include "session_value.h"

using namespace quor;

namespace {

/// The points that are active come back as they were written, to the digits that are written.
void check_written(const datafiles::XyData& data) {
    const auto active = datafiles::active_points(data.points);
    const std::string text = datafiles::xy_text(data.comment, data.points, ';');
    const datafiles::XyFile again = datafiles::read_xy_text(text, ';');
    FUZZ_CHECK(again.data.points.size() == active.size());
    FUZZ_CHECK(again.wrong.empty());
    for (std::size_t i = 0; i < active.size(); ++i) {
        const double x = static_cast<double>(active[i].x);
        FUZZ_CHECK(std::fabs(static_cast<double>(again.data.points[i].x) - x) <=
                   1e-6 * std::fabs(x));
    }
}

/// A file of x-y points (.XY, .LRG); the first byte chooses its delimiter.
bool read(std::string_view input) {
    static fuzz::PropaneSession propane;
    session::Session& session = propane.session;
    constexpr std::string_view kDelimiters = ";,\t";
    const auto chosen = input.empty() ? 0U : static_cast<unsigned char>(input.front()) % 3U;
    {
        const auto now = session.change();
        now->csv_separator = kDelimiters[chosen];
        now->xy = {};
    }
    const std::string name =
        fuzz::as_file(input.substr(input.empty() ? 0 : 1), "input.XY").string();
    const session::SessionState before = session.state();
    if (!session::load_xy(session, name)) {
        FUZZ_CHECK(fuzz::same(session.state(), before));
        return false;
    }
    for (const datafiles::FitPoint& point : session->xy.points)
        FUZZ_CHECK(std::isfinite(point.x) && std::isfinite(point.y));
    check_written(session->xy);
    return !session->xy.points.empty();
}

const fuzz::Registered registered("xy_points", read);

}  // namespace
