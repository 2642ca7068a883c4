#include "session/options.h"

#include <cstring>

#include "harness.h"
#include "session_value.h"

using namespace quor;

namespace {

/// Choices of the options view, one after the other: a byte of switches and two of the points per
/// curve each. The critical data and the molar mass of the substance may be missing.
bool read(std::string_view input) {
    static fuzz::PropaneSession propane;
    static const session::SessionState start = propane.session.state();
    session::Session& session = propane.session;
    *session.change() = start;
    bool applied = false;
    for (; input.size() >= 3; input.remove_prefix(3)) {
        const unsigned switches = static_cast<unsigned char>(input[0]);
        std::int16_t points = 0;
        std::memcpy(&points, input.data() + 1, sizeof points);
        if ((switches & 128U) != 0) {
            const auto now = session.change();
            if ((switches & 1U) != 0) now->substance.M = 0;
            if ((switches & 2U) != 0) now->substance.Tcrit = now->substance.pcrit = 0;
            continue;
        }
        session::OptionChoice choice = session::open_options(session);
        choice.batch = (switches & 1U) != 0;
        const auto sets = models::unit_sets();
        choice.units = sets[((switches >> 1U) & 3U) + ((switches & 64U) != 0 ? 2U : 0U)].choice;
        if ((switches & 6U) == 6U)
            choice.units.shown[static_cast<std::size_t>(switches >> 3U) % models::kDimensions] = 2;
        choice.real_range = (switches & 8U) != 0;
        choice.s_without_tie_line = (switches & 16U) != 0;
        choice.partial_gas = (switches & 32U) != 0;
        choice.points = points;
        const session::SessionState before = session.state();
        if (!session::apply_options(session, choice)) {
            FUZZ_CHECK(fuzz::same(session.state(), before));
            continue;
        }
        applied = true;
        FUZZ_CHECK(session->curve_options.points >= session::kMinPoints);
        FUZZ_CHECK(session->curve_options.points <= session::kMaxPoints);
    }
    return applied;
}

const fuzz::Registered registered("options", read);

}  // namespace
