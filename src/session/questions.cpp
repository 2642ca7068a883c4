#include "session/questions.h"

#include <algorithm>

#include "common/dialogs.h"

namespace quor::session {

bool may_leave_unsaved(const std::function<bool()>& save, const std::string& question) {
    using dialogs::Answer;
    const Answer answer = dialogs::show({.text = question,
                                         .title = "WARNING",
                                         .icon = dialogs::Icon::Exclamation,
                                         .buttons = dialogs::Buttons::YesNoCancel,
                                         .default_answer = Answer::Yes});
    return answer == Answer::Yes ? save() : answer == Answer::No;
}

bool confirm_removal(int first, int last) {
    if (first < 1) {
        dialogs::tell("No marked item!", dialogs::kNotPossible, dialogs::Icon::Stop);
        return false;
    }
    const std::string question = last <= first ? "line " + std::to_string(first) + " really remove?"
                                               : "lines " + std::to_string(first) + " till " +
                                                     std::to_string(last) + " really remove?";
    return dialogs::ask(question, "WARNING", dialogs::Icon::Exclamation);
}

void tell_wrong_lines(std::span<const std::size_t> places, std::size_t before) {
    constexpr std::size_t kMostNamed = 20;
    if (places.empty()) return;
    const bool one = places.size() == 1;
    std::string named;
    for (const std::size_t place : places.first(std::min(places.size(), kMostNamed)))
        named += (named.empty() ? "" : ", ") + std::to_string(before + place + 1);
    if (places.size() > kMostNamed)
        named += " and " + std::to_string(places.size() - kMostNamed) + " more";
    dialogs::tell(std::to_string(places.size()) +
                      (one ? " line does not hold a number in each of its cells and is inactive.\n"
                             "Line "
                           : " lines do not hold a number in each of their cells and are "
                             "inactive.\nLines ") +
                      named + " of the table.",
                  "WARNING");
}

}  // namespace quor::session
