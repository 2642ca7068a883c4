#include "datafiles/measured_data.h"

#include "common/text.h"
#include "harness.h"
#include "session/measured_data_session.h"
#include "session_value.h"

using namespace quor;

namespace {

/// What was read is written as lines that read back the same.
void check_written(const datafiles::MeasuredData& data) {
    const std::string text = datafiles::measured_data_text(data, "15.11.2026");
    const auto again = datafiles::read_measured_data(text, data.file);
    FUZZ_CHECK(static_cast<bool>(again));
    FUZZ_CHECK(again->wrong.empty());
    FUZZ_CHECK(again->data.points.size() == data.points.size());
    for (std::size_t i = 0; i < data.points.size(); ++i) {
        datafiles::MeasuredPoint expected = data.points[i];
        expected.skip = 0;  // no file tells which lines are inactive
        FUZZ_CHECK(again->data.points[i] == expected);
    }
    FUZZ_CHECK(measured_data_text(again->data, "15.11.2026") == text);
}

/// A file of experimental data, taken into a session in place of its data.
bool read(std::string_view input) {
    const std::string name = fuzz::as_file(input, "input.BAQ").string();
    static fuzz::PropaneSession propane;
    session::Session& session = propane.session;
    session::clear_measured_data(session);
    const session::SessionState before = session.state();
    const bool loaded = session::load_measured_data(session, name, false);
    if (!loaded) {
        FUZZ_CHECK(fuzz::same(session.state(), before));
        return false;
    }
    const datafiles::MeasuredData& data = session->measured;
    FUZZ_CHECK(data.points.size() <= datafiles::kMostMeasuredPoints);
    check_written(data);
    // The same behind them once more.
    const std::size_t count = data.points.size();
    if (session::load_measured_data(session, name, true) && count > 0)
        FUZZ_CHECK(data.points.size() == 2 * count);
    return true;
}

const fuzz::Registered registered("measured_data", read);

}  // namespace
