#include "app/tips.h"

#include "common/text.h"
#include "harness.h"
#include "session_value.h"

using namespace quor;

namespace {

/// The tips of the day.
bool read(std::string_view input) {
    static const fuzz::PropaneSession propane;
    fuzz::as_file(input, session::tips_file(propane.session));
    session::Tips tips = session::load_tips(propane.session, 0xFFFFFFFFU);
    FUZZ_CHECK(!tips.missing);
    for (std::size_t i = 0; i < tips.lines.size(); ++i) {
        FUZZ_CHECK(!text::trim(session::current_tip(tips)).empty());
        session::next_tip(tips);
    }
    return !tips.lines.empty();
}

const fuzz::Registered registered("tips", read);

}  // namespace
