#include <cmath>
#include <fstream>
#include <iostream>
#include <sstream>

#include "common/dialogs.h"
#include "common/faults.h"
#include "diagrams/curve.h"
#include "session/module2.h"
#include "tools/quorcalc/commands.h"

namespace quor::quorcalc {

namespace {

/// Every message of the core during one call; questions take their default answer.
std::vector<std::string> messages;

void install_dialogs() {
    dialogs::Functions f = dialogs::silent();
    f.message = [](const dialogs::Message& m) {
        messages.push_back(m.title.empty() ? m.text : m.title + ": " + m.text);
        return m.defaultAnswer;
    };
    dialogs::current() = f;
}

Json failure(const std::string& message) {
    return {{"status", -1}, {"message", message}};
}

/// A curve that is drawn in spite of its status has been calculated all the same.
bool is_good(const Json& result) {
    const int status = result.at("status");
    return status == 0 || (result.contains("points") &&
                           diagrams::is_drawn(static_cast<diagrams::CurveStatus>(status)));
}

std::string plain_text(const Json& result) {
    std::string out;
    for (const auto& [key, value] : result.items()) {
        if (key == "status") continue;
        out += key + " = " + (value.is_string() ? value.get<std::string>() : value.dump()) + "\n";
    }
    return out;
}

int run_file(const Arguments& a, std::istream& in, std::ostream& out, std::ostream& err) {
    std::ifstream file;
    if (a.file != "-") {
        file.open(a.file);
        if (!file) {
            err << "file not found: " << a.file << "\n";
            return 1;
        }
    }
    std::istream& source = a.file == "-" ? in : file;
    int worst = 0;
    std::string line;
    while (std::getline(source, line)) {
        const std::vector<std::string> words = split_line(line);
        if (words.empty() || words.front().starts_with('#')) continue;
        Json result;
        bool wrongCall = false;
        try {
            const Arguments call = Parse(words);
            if (call.command == "run") throw WrongCall{"run does not nest"};
            result = execute(call, wrongCall);
        } catch (const WrongCall& e) {
            result = failure(e.message);
            wrongCall = true;
        } catch (const HelpAsked&) {
            result = failure("help is not a calculation");
            wrongCall = true;
        }
        if (!is_good(result)) worst = 1;
        out << result.dump() << "\n" << std::flush;
    }
    return worst;
}

}  // namespace

Json Number(double value) {
    return std::isfinite(value) ? Json(value) : Json();
}
Json present(double value) {
    return value == 0 ? Json() : Number(value);
}

Json execute(const Arguments& a, bool& wrongCall) {
    wrongCall = false;
    messages.clear();
    install_dialogs();
    session::reset_everything();
    const Command* command = find_command(a.command);
    Json result;
    try {
        if (command == nullptr) throw WrongCall{"no such command: " + a.command};
        result = command->run(a);
    } catch (const WrongCall& e) {
        result = failure(e.message);
        wrongCall = true;
    } catch (const CannotBeDone& e) {
        result = failure(e.message);
    } catch (const std::exception& e) {
        result = failure(e.what());
    }
    // The messages that the core would have shown belong to the result.
    if (result.contains("messages")) {
        result["messages"] = messages;
    } else if (result.at("status") != 0 && !result.contains("message")) {
        result["message"] = messages.empty() ? "no result with these input data" : messages.back();
    } else if (result.at("status") != 0 && !messages.empty()) {
        result["message"] = messages.front();
    }
    return result;
}

int Main(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
         std::ostream& err) {
    Arguments a;
    try {
        a = Parse(words);
    } catch (const HelpAsked& e) {
        out << e.text;
        return 0;
    } catch (const WrongCall& e) {
        err << "quorcalc: " << e.message << "\n";
        return 2;
    }
    if (a.command == "run") return run_file(a, in, out, err);

    bool wrongCall = false;
    const Json result = execute(a, wrongCall);
    const bool good = is_good(result);
    if (!good || result.value("exit", false)) {
        err << "quorcalc: " << result.value("message", std::string("no result")) << "\n";
    }
    const Command* command = find_command(a.command);
    if (a.json) {
        out << result.dump() << "\n";
    } else if (good && command != nullptr) {
        out << (command->text != nullptr ? command->text(result) : plain_text(result));
    }
    return wrongCall ? 2 : good ? 0 : 1;
}

}  // namespace quor::quorcalc
