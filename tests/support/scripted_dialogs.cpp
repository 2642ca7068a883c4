#include "support/scripted_dialogs.h"

#include <thread>

using namespace quor;

namespace {

template <class T>
std::optional<T> take(std::deque<T>& queue) {
    if (queue.empty()) return std::nullopt;
    T value = queue.front();
    queue.pop_front();
    return value;
}

}  // namespace

ScriptedDialogs::ScriptedDialogs() : saved_(dialogs::current()) {
    dialogs::Functions f;
    f.message = [this](const dialogs::Message& m) {
        if (const auto known = standing.find(m.text); known != standing.end()) return known->second;
        messages.push_back(m);
        return take(answers).value_or(m.default_answer);
    };
    f.input = [this](const dialogs::Input& i) {
        inputs.push_back(i);
        return take(inputAnswers).value_or(i.proposal);
    };
    f.file = [this](const dialogs::FileChoice& c) {
        files.push_back(c);
        return take(fileAnswers).value_or(std::nullopt);
    };
    f.print = [this](const dialogs::PrintJob& job) {
        if (cancelsPrinting) return false;
        prints.push_back(job);
        return true;
    };
    f.set_clipboard = [this](const std::string& s) { clipboard = s; };
    f.clipboard = [this] { return clipboard; };
    f.pointer = [this](bool busy) { pointer.push_back(busy); };
    f.patience = [this](const std::string& program, std::chrono::milliseconds) {
        waits.push_back(program);
        return [this] {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            return patience-- != 0;
        };
    };
    f.beep = [this] { ++beeps; };
    dialogs::current() = f;
}

ScriptedDialogs::~ScriptedDialogs() {
    dialogs::current() = saved_;
}
