#include "tools/quorcalc/arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <limits>

#include "common/numbers.h"
#include "tools/quorcalc/commands.h"
#include "tools/quorcalc/options.h"

namespace quor::quorcalc {

namespace {

template <class Field>
using ValueOf = std::remove_cvref_t<decltype(std::declval<Arguments&>().*std::declval<Field>())>;

/// Reads a number itself: the library reads them as the locale has it, and takes "nan", "inf" and
/// an empty text for numbers.
void take(const std::string& flag, const std::string& text, std::optional<double>& number) {
    number = numbers::number(text);
    if (!number) throw CLI::ValidationError(flag, "not a number: " + text);
}
void take(const std::string& flag, const std::string& text, std::optional<int>& number) {
    constexpr double kMost = std::numeric_limits<int>::max();
    const std::optional<double> value = numbers::number(text);
    if (!value || numbers::round_down(*value) != *value || *value < -kMost || *value > kMost)
        throw CLI::ValidationError(flag, "not a whole number: " + text);
    number = static_cast<int>(*value);
}

CLI::Option* add_option(CLI::App& app, const Option& option, Arguments& a) {
    const std::string flag = "--" + std::string(option.name);
    CLI::Option* added = std::visit(
        [&](const auto field) {
            using Value = ValueOf<decltype(field)>;
            if constexpr (std::is_same_v<Value, bool>) {
                return app.add_flag(flag, a.*field, option.help);
            } else if constexpr (std::is_same_v<Value, std::optional<double>> ||
                                 std::is_same_v<Value, std::optional<int>>) {
                const std::function<void(const std::string&)> read =
                    [&a, flag, field](const std::string& text) { take(flag, text, a.*field); };
                return app.add_option_function(flag, read, option.help)
                    ->type_name(std::is_same_v<Value, std::optional<int>> ? "INT" : "FLOAT");
            } else {
                return app.add_option(flag, a.*field, option.help);
            }
        },
        option.field);
    if (std::holds_alternative<std::vector<std::string> Arguments::*>(option.field))
        added->take_all()->expected(1)->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    if (!option.allowed.empty())
        added->check(
            CLI::IsMember(std::vector<std::string>(option.allowed.begin(), option.allowed.end())));
    return added;
}

/// "--set A=1 B=2" is "--set A=1 --set B=2".
std::vector<std::string> with_every_set(const std::vector<std::string>& words) {
    std::vector<std::string> all;
    bool in_set = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        const bool assigns = !word.starts_with('-') && word.find('=') != std::string::npos;
        if (in_set && assigns && words[i - 1] != "--set") all.emplace_back("--set");
        in_set = word == "--set" || (in_set && assigns);
        all.push_back(word);
    }
    return all;
}

/// An option as a command has it: "T!" is needed, "T" may be given.
struct Wanted {
    std::string_view name;
    bool needed;
};

Wanted wanted(std::string_view option) {
    const bool needed = option.back() == '!';
    if (needed) option.remove_suffix(1);
    return {option, needed};
}

}  // namespace

/// The command line library with the options of every command.
class Parser::Reader {
  public:
    Reader();
    Arguments read(std::vector<std::string> words);

  private:
    CLI::App app_{"quorcalc: thermodynamic calculations of pure substances", "quorcalc"};
    Arguments arguments_;
};

Parser::Reader::Reader() {
    app_.fallthrough();
    app_.require_subcommand(1);
    for (const Option& option : common_options()) add_option(app_, option, arguments_);
    for (const Command& c : commands()) {
        CLI::App* sub = app_.add_subcommand(std::string(c.name), std::string(c.help));
        sub->final_callback([this, name = std::string(c.name)] { arguments_.command = name; });
        for (const std::string_view text : c.options) {
            const Wanted option = wanted(text);
            if (option.name == "FILE") {
                sub->add_option("FILE", arguments_.file, "file of calls, - for standard input")
                    ->required();
                continue;
            }
            CLI::Option* added = add_option(*sub, *find_option(option.name), arguments_);
            if (option.needed) added->required();
        }
    }
}

Arguments Parser::Reader::read(std::vector<std::string> words) {
    arguments_ = {};
    words = with_every_set(words);
    try {
        std::ranges::reverse(words);
        app_.parse(words);
    } catch (const CLI::CallForHelp&) {
        throw HelpAsked{app_.help()};
    } catch (const CLI::CallForAllHelp&) {
        throw HelpAsked{app_.help("", CLI::AppFormatMode::All)};
    } catch (const CLI::ParseError& e) {
        throw WrongCall{e.what()};
    }
    return arguments_;
}

Parser::Parser() : reader_(std::make_unique<Reader>()) {}
Parser::~Parser() = default;

Arguments Parser::parse(const std::vector<std::string>& words) {
    return reader_->read(words);
}

namespace {

void append(std::string& key, const std::string& text) {
    key += std::to_string(text.size()) + ':' + text;
}
void append(std::string& key, const std::vector<std::string>& texts) {
    key += std::to_string(texts.size()) + ':';
    for (const std::string& text : texts) append(key, text);
}
/// By its bytes: -0 is not 0.
template <class T>
void append(std::string& key, const std::optional<T>& value) {
    key += value ? '1' : '0';
    if (value) key.append(reinterpret_cast<const char*>(&*value), sizeof(T));
}
void append(std::string& key, bool value) {
    key += value ? '1' : '0';
}

}  // namespace

std::string common_key(const Arguments& a) {
    std::string key;
    for (const Option& option : common_options())
        std::visit([&](const auto field) { append(key, a.*field); }, option.field);
    return key;
}

std::vector<std::string> split_line(const std::string& line) {
    std::vector<std::string> words;
    std::string word;
    bool any = false;
    char quote = '\0';
    for (const char c : line) {
        if (quote != '\0') {
            if (c == quote) {
                quote = '\0';
            } else {
                word += c;
            }
        } else if (c == '"' || c == '\'') {
            quote = c;
            any = true;
        } else if (c == ' ' || c == '\t' || c == '\r') {
            if (any || !word.empty()) words.push_back(word);
            word.clear();
            any = false;
        } else {
            word += c;
        }
    }
    if (any || !word.empty()) words.push_back(word);
    return words;
}

}  // namespace quor::quorcalc
