#pragma once

#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/quorcalc/arguments.h"

/// quorcalc: the core for scripts, batch runs and checks.
namespace quor::quorcalc {

using Json = nlohmann::ordered_json;

/// A calculation that cannot be done; the message goes to standard error.
struct CannotBeDone {
    std::string message;
};

/// One subcommand: its options ("T!" is needed, "T" may be given) and what it computes. The result
/// holds `status`, and `message` when that is not 0.
struct Command {
    std::string_view name, help;
    std::vector<std::string_view> options;
    Json (*run)(const Arguments&) = nullptr;
    /// Prints the result for a reader; nothing: one "key = value" a line.
    std::string (*text)(const Json& result) = nullptr;
};

std::span<const Command> commands();
const Command* find_command(std::string_view name);

/// Brings the session to the state that the options ask for: database, substance, overrides,
/// models, units, reference state. Throws `CannotBeDone` or `WrongCall`.
void set_up(const Arguments& arguments);

/// Runs one parsed call from a fresh session and gives its result; never throws. A calculation
/// that cannot be done has status -1, a wrong call `wrongCall` set.
Json execute(const Arguments& arguments, bool& wrongCall);

/// The whole program: words behind the program's name, exit code back. Results go to `out`,
/// messages to `err`.
int Main(const std::vector<std::string>& words, std::istream& in, std::ostream& out,
         std::ostream& err);

/// A number, or null for what is not there (0) or not finite.
Json present(double value);
/// A number, or null when it is not finite.
Json Number(double value);

}  // namespace quor::quorcalc
