#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "common/dialogs.h"

using namespace quor;

/// Stands in for the user: records everything the system shows and answers from a script.
/// A message without a scripted answer gets its default and is recorded as well.
class ScriptedDialogs {
  public:
    ScriptedDialogs();
    ~ScriptedDialogs();
    ScriptedDialogs(const ScriptedDialogs&) = delete;
    ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;

    std::vector<dialogs::Message> messages;
    std::vector<dialogs::Input> inputs;
    std::vector<dialogs::FileChoice> files;
    std::vector<dialogs::PrintJob> prints;
    bool cancelsPrinting = false;
    std::string clipboard;
    int beeps = 0;
    std::vector<bool> pointer;       ///< every change of the busy pointer
    std::vector<std::string> waits;  ///< programs that were waited for
    int patience = -1;               ///< looks until a wait is given up; negative: never

    std::deque<dialogs::Answer> answers;  ///< for the next messages
    /// Answers by the text of a message, for what a test is not about: such a message is not
    /// recorded and takes none of the answers above.
    std::map<std::string, dialogs::Answer> standing;
    std::deque<std::optional<std::string>> inputAnswers;  ///< for the next inputs
    std::deque<std::optional<std::string>> fileAnswers;   ///< for the next file dialogs

    /// Text of the last message, empty when there was none.
    std::string lastText() const { return messages.empty() ? "" : messages.back().text; }
    std::string lastTitle() const { return messages.empty() ? "" : messages.back().title; }

  private:
    dialogs::Functions saved_;
};
