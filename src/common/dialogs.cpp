#include "common/dialogs.h"

#include <thread>

namespace quor::dialogs {

namespace {

bool pass_a_moment() {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return true;
}

}  // namespace

Functions silent() {
    return {
        .message = [](const Message& m) { return m.default_answer; },
        .input = [](const Input& i) { return std::optional<std::string>(i.proposal); },
        .file = [](const FileChoice&) { return std::optional<std::string>(); },
        .print = [](const PrintJob&) { return false; },
        .set_clipboard = [](const std::string&) {},
        .clipboard = [] { return std::string(); },
        .pointer = [](bool) {},
        .patience = [](const std::string&, std::chrono::milliseconds) { return pass_a_moment; },
        .beep = [] {},
    };
}

Functions& current() {
    thread_local Functions functions = silent();
    return functions;
}

Answer show(const Message& message) {
    return current().message(message);
}

void tell(const std::string& text, const std::string& title, Icon icon) {
    show({.text = text, .title = title, .icon = icon});
}

void refuse(const std::string& text) {
    tell(text, kNotPossible);
}

bool ask(const std::string& text, const std::string& title, Icon icon, bool default_yes) {
    return show({.text = text,
                 .title = title,
                 .icon = icon,
                 .buttons = Buttons::YesNo,
                 .default_answer = default_yes ? Answer::Yes : Answer::No}) == Answer::Yes;
}

std::optional<std::string> ask_input(const Input& input) {
    return current().input(input);
}
std::optional<std::string> choose_file(const FileChoice& choice) {
    return current().file(choice);
}
bool print_out(const PrintJob& job) {
    return current().print(job);
}
void set_clipboard(const std::string& text) {
    current().set_clipboard(text);
}
std::string clipboard() {
    return current().clipboard();
}
void beep() {
    current().beep();
}
std::function<bool()> patience(const std::string& program, std::chrono::milliseconds limit) {
    return current().patience(program, limit);
}

}  // namespace quor::dialogs
