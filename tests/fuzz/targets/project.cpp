#include "datafiles/project_file.h"

#include <cmath>

#include "harness.h"
#include "session/project_session.h"
#include "session_value.h"

using namespace quor;

namespace {

/// The settings of a session that a project holds are numbers, and come back from its text.
void check_saved(const session::Session& session) {
    const std::string text = datafiles::project_text(session::present_project(session));
    const auto again = datafiles::read_project(text, "again.QCF");
    FUZZ_CHECK(static_cast<bool>(again));
    FUZZ_CHECK(datafiles::project_text(*again) == text);
}

/// A project file (.QCF), loaded into a session whose database has its substance. The session that
/// the last run has left is a file of the same form.
bool read(std::string_view input) {
    static fuzz::PropaneSession propane;
    static const session::SessionState start = propane.session.state();
    session::Session& session = propane.session;
    const std::string file = fuzz::as_file(input, "input.QCF").string();

    const auto content = datafiles::read_project(std::string(input), "input.QCF");
    if (content) {
        const std::string text = datafiles::project_text(*content);
        const auto again = datafiles::read_project(text, "again.QCF");
        FUZZ_CHECK(static_cast<bool>(again));
        FUZZ_CHECK(datafiles::project_text(*again) == text);
    }
    bool loaded = false;
    for (const bool last_session : {false, true}) {
        *session.change() = start;
        session.change()->last_session_file = last_session ? file : "other.QCF";
        const session::SessionState before = session.state();
        const session::ProjectResult result = last_session ? session::load_last_session(session)
                                                           : session::load_project(session, file);
        if (!result.loaded) FUZZ_CHECK(fuzz::same(session.state(), before));
        if (result.loaded) check_saved(session);
        loaded = loaded || result.loaded;
    }
    return loaded;
}

const fuzz::Registered registered("project", read);

}  // namespace
