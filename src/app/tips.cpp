#include "app/tips.h"

#include "common/dialogs.h"
#include "common/text.h"
#include "common/whole_file.h"

namespace quor::session {

namespace {

constexpr std::size_t kLargestTips = std::size_t{1} << 20;

}  // namespace

std::string tips_file(const Session& session) {
    return session->english ? "QUORTIPS_E.TXT" : "QUORTIPS.TXT";
}

Tips load_tips(const Session& session, std::uint32_t random_number) {
    Tips tips;
    const std::string name = tips_file(session);
    const Result<std::string> content =
        files::read_whole(session.places().find_file(name), kLargestTips);
    if (!content) {
        tips.missing = true;
        dialogs::tell("The file " + name + "not found in the QUOR directory ", "Tips");
        return tips;
    }
    for (std::string& line : text::lines(text::from_ansi(*content)))
        if (!text::trim(line).empty()) tips.lines.push_back(std::move(line));
    if (!tips.lines.empty()) tips.current = random_number % tips.lines.size();
    return tips;
}

const std::string& current_tip(const Tips& tips) {
    static const std::string none;
    return tips.lines.empty() ? none : tips.lines[tips.current];
}

void next_tip(Tips& tips) {
    if (!tips.lines.empty()) tips.current = (tips.current + 1) % tips.lines.size();
}

bool tips_stay_hidden(bool show_at_startup, bool requested) {
    return !show_at_startup && !requested;
}

}  // namespace quor::session
