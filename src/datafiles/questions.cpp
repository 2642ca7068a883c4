#include "datafiles/questions.h"

#include <filesystem>

#include "common/dialogs.h"

namespace quor::datafiles {

bool MayReplace(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) return true;
    return dialogs::Ask("such a file is already existing\nOverwright?", "WARNING",
                        dialogs::Icon::Exclamation);
}

bool AskToSaveNow() {
    return dialogs::Ask("Data not yet saved.\nSave now?", "WARNING", dialogs::Icon::Exclamation);
}

bool ConfirmRemoval(int first, int last) {
    if (first < 1) {
        dialogs::Tell("No marked item!", "Execution not possible", dialogs::Icon::Stop);
        return false;
    }
    const std::string question = last <= first ? "line " + std::to_string(first) + " really remove?"
                                               : "lines " + std::to_string(first) + " till " +
                                                     std::to_string(last) + " really remove?";
    return dialogs::Ask(question, "WARNING", dialogs::Icon::Exclamation);
}

}  // namespace quor::datafiles
