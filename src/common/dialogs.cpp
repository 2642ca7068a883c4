#include "common/dialogs.h"

namespace quor::dialogs {

Functions silent() {
    return {
        .message = [](const Message& m) { return m.defaultAnswer; },
        .input = [](const Input& i) { return std::optional<std::string>(i.proposal); },
        .file = [](const FileChoice&) { return std::optional<std::string>(); },
        .print = [](const PrintJob&) {},
        .setClipboard = [](const std::string&) {},
        .clipboard = [] { return std::string(); },
        .pointer = [](bool) {},
        .beep = [] {},
    };
}

Functions& current() {
    thread_local Functions functions = silent();
    return functions;
}

Answer Show(const Message& message) {
    return current().message(message);
}

void tell(const std::string& text, const std::string& title, Icon icon) {
    Show({.text = text, .title = title, .icon = icon});
}

void refuse(const std::string& text) {
    tell(text, kNotPossible);
}

bool ask(const std::string& text, const std::string& title, Icon icon, bool defaultYes) {
    return Show({.text = text,
                 .title = title,
                 .icon = icon,
                 .buttons = Buttons::YesNo,
                 .defaultAnswer = defaultYes ? Answer::Yes : Answer::No}) == Answer::Yes;
}

std::optional<std::string> ask_input(const Input& input) {
    return current().input(input);
}
std::optional<std::string> choose_file(const FileChoice& choice) {
    return current().file(choice);
}
void Print(const PrintJob& job) {
    current().print(job);
}
void set_clipboard(const std::string& text) {
    current().setClipboard(text);
}
std::string Clipboard() {
    return current().clipboard();
}
void Beep() {
    current().beep();
}

}  // namespace quor::dialogs
