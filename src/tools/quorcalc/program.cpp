#include "tools/quorcalc/program.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <utility>

#include "common/dialogs.h"
#include "common/single.h"
#include "common/text.h"
#include "diagrams/curve.h"
#include "tools/quorcalc/line_reader.h"
#include "tools/quorcalc/unit_options.h"

namespace quor::quorcalc {

namespace {

/// As long as it lives every message of the core is kept, and questions take their default answer.
class Listening {
  public:
    explicit Listening(std::vector<std::string>& messages) : before_(dialogs::current()) {
        dialogs::Functions f = dialogs::silent();
        f.message = [&messages](const dialogs::Message& m) {
            messages.push_back(m.title.empty() ? m.text : m.title + ": " + m.text);
            return m.default_answer;
        };
        dialogs::current() = std::move(f);
    }
    ~Listening() { dialogs::current() = std::move(before_); }
    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;

  private:
    dialogs::Functions before_;
};

Json failure(const std::string& message) {
    return {{"status", -1}, {"message", message}};
}

/// No temperature is negative; nor is it 0 for a command that cannot do without it.
void refuse_impossible_temperatures(const Command& command, const Arguments& a) {
    const std::pair<const char*, const std::optional<double>&> temperatures[] = {
        {"--T", a.T}, {"--Tcr", a.Tcr}, {"--Tb", a.Tb}, {"--T0", a.T0}, {"--Tenv", a.Tenv}};
    for (const auto& [option, value] : temperatures)
        if (value && *value < 0) throw WrongCall{std::string(option) + " is negative"};
    const bool needs_T = std::ranges::find(command.options, "T!") != command.options.end();
    if (needs_T && a.T == 0.0) throw WrongCall{"--T has to be > 0"};
}

/// 32-bit values of the core take no larger numbers.
void refuse_beyond_32_bits(const Arguments& a) {
    const std::pair<const char*, const std::optional<double>&> singles[] = {
        {"--T", a.T},   {"--v", a.v},   {"--rho", a.rho},       {"--V", a.V},    {"--m", a.m},
        {"--T0", a.T0}, {"--p0", a.p0}, {"--watson", a.watson}, {"--Tcr", a.Tcr}};
    for (const auto& [option, value] : singles)
        if (value && !numbers::fits_single(*value))
            throw WrongCall{std::string(option) + " is out of range"};
}

/// A curve that is drawn in spite of its status has been calculated all the same.
bool is_good(const Json& result) {
    const int status = result.at("status");
    return status == 0 || (result.contains("points") &&
                           diagrams::is_drawn(static_cast<diagrams::CurveStatus>(status)));
}

/// One "key = value" a line, with the units that the call has asked for.
std::string plain_text(const Json& result, bool with_units) {
    const Json units = with_units ? result.value("units", Json::object()) : Json::object();
    std::string out;
    for (const auto& [key, value] : result.items()) {
        constexpr std::string_view kInputs[] = {"status", "substance", "messages",
                                                "model",  "units",     "reference"};
        if (std::ranges::find(kInputs, key) != std::end(kInputs)) continue;
        out += key + " = " + (value.is_string() ? value.get<std::string>() : json_text(value));
        if (units.contains(key)) out += " " + units.at(key).get<std::string>();
        out += "\n";
    }
    return out;
}

}  // namespace

std::string json_text(const Json& value) {
    return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json number(double value) {
    return std::isfinite(value) ? Json(value) : Json();
}
Json present(double value) {
    return value == 0 ? Json() : number(value);
}

Json present(std::optional<double> value) {
    return present(value.value_or(0));
}

Program::Program(const Places& places, PictureDrawer pictures)
    : session_(places), start_(session_.state()), pictures_(std::move(pictures)) {}

Program::Outcome Program::execute(const Arguments& a) {
    messages_.clear();
    const Listening listening(messages_);
    *session_.change() = start_;
    Call call{session_, kept_, pictures_, messages_};
    const Command* command = find_command(a.command);
    Outcome outcome;
    Json& result = outcome.result;
    try {
        if (command == nullptr) throw WrongCall{"no such command: " + a.command};
        const Arguments base = in_base_units(call, a);
        refuse_impossible_temperatures(*command, base);
        refuse_beyond_32_bits(base);
        result = command->run(call, base);
        if (!a.out_units.empty() && command->by_quantity) to_out_units(session_, result);
        if (session_->substance_set) name_inputs(session_, *command, result);
    } catch (const WrongCall& e) {
        result = failure(e.message);
        outcome.wrong_call = true;
    } catch (const CannotBeDone& e) {
        result = failure(e.message);
    } catch (const std::exception& e) {
        result = failure(e.what());
    }
    // The messages that the core would have shown belong to the result.
    if (result.at("status") != 0) {
        if (!result.contains("message"))
            result["message"] =
                messages_.empty() ? "no result with these input data" : messages_.back();
        else if (!messages_.empty() && !result.contains("messages"))
            result["message"] = messages_.front();
    }
    if (result.contains("messages") || !messages_.empty()) result["messages"] = messages_;
    return outcome;
}

void Program::tell(const Json& result, std::ostream& err) const {
    const auto line = [&err](const std::string& message) {
        err << "quorcalc: " << text::replace_all(message, "\n", " ") << "\n";
    };
    for (const std::string& message : messages_) line(message);
    const std::string last = result.value("message", std::string());
    if (!last.empty() && std::ranges::find(messages_, last) == messages_.end()) line(last);
}

Json Program::call_of_line(const std::vector<std::string>& words) {
    try {
        const Arguments call = parser_.parse(words);
        if (call.command == "run") throw WrongCall{"run does not nest"};
        return execute(call).result;
    } catch (const WrongCall& e) {
        return failure(e.message);
    } catch (const HelpAsked&) {
        return failure("help is not a calculation");
    }
}

int Program::run_file(const Arguments& a, std::istream& in, std::ostream& out, std::ostream& err) {
    std::ifstream file;
    if (a.file != "-") {
        if (std::filesystem::is_directory(a.file)) {
            err << "a folder, no file of calls: " << a.file << "\n";
            return 1;
        }
        file.open(a.file);
        if (!file) {
            err << "file not found: " << a.file << "\n";
            return 1;
        }
    }
    LineReader lines(a.file == "-" ? in : file, [&] { out << std::flush; });
    int worst = 0;
    std::string line;
    while (lines.next(line)) {
        const std::vector<std::string> words = split_line(line);
        if (words.empty() || words.front().starts_with('#')) continue;
        const Json result = call_of_line(words);
        if (!is_good(result)) worst = 1;
        out << json_text(result) << "\n";
        // Nobody gets the rest either.
        if (!out) break;
    }
    return worst;
}

int Program::main(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
                  std::ostream& err) {
    const int status = answer(words, in, out, err);
    if (out.flush()) return status;
    err << "quorcalc: standard output cannot be written\n";
    return std::max(status, 1);
}

int Program::answer(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
                    std::ostream& err) {
    Arguments a;
    try {
        a = parser_.parse(words);
    } catch (const HelpAsked& e) {
        out << e.text;
        return 0;
    } catch (const WrongCall& e) {
        err << "quorcalc: " << e.message << "\n";
        return 2;
    }
    if (a.command == "run") return run_file(a, in, out, err);

    const auto [result, wrong_call] = execute(a);
    const bool good = is_good(result);
    if (!a.json)
        tell(result, err);
    else if (!good)
        err << "quorcalc: " << result.value("message", std::string("no result")) << "\n";
    const Command* command = find_command(a.command);
    const bool stands = good || result.at("status") == kWorthless;
    const bool drawn = wants_picture(a) && !a.points_out;
    if (a.json) {
        out << json_text(result) << "\n";
    } else if (stands && !drawn && command != nullptr) {
        out << (command->text != nullptr ? command->text(result)
                                         : plain_text(result, !a.out_units.empty()));
    }
    return wrong_call ? 2 : good ? 0 : 1;
}

}  // namespace quor::quorcalc
