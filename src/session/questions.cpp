#include "session/questions.h"

#include <filesystem>

#include "common/dialogs.h"

namespace quor::session {

bool may_replace(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) return true;
    return dialogs::ask("such a file is already existing\nOverwright?", "WARNING",
                        dialogs::Icon::Exclamation);
}

bool ask_to_save_now() {
    return dialogs::ask("Data not yet saved.\nSave now?", "WARNING", dialogs::Icon::Exclamation);
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

}  // namespace quor::session
