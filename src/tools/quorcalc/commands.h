#pragma once

#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"
#include "tools/quorcalc/arguments.h"
#include "tools/quorcalc/kept.h"
#include "tools/quorcalc/pictures.h"

/// quorcalc: the core for scripts, batch runs and checks.
namespace quor::quorcalc {

using Json = nlohmann::ordered_json;

/// A calculation that cannot be done; the message goes to standard error.
struct CannotBeDone {
    std::string message;
};

/// What a call works with.
struct Call {
    session::Session& session;                 ///< as at the start of the program
    Kept& kept;                                ///< from former calls
    const PictureDrawer& pictures;             ///< for the pictures that it asks for
    const std::vector<std::string>& messages;  ///< what the core has told during this call
};

/// The status of a result that stands there in full and is not to be trusted; the exit status is 1.
inline constexpr int kWorthless = 1;

/// One subcommand: its options ("T!" is needed, "T" may be given) and what it computes. The result
/// holds `status`, and `message` when that is not 0.
struct Command {
    std::string_view name, help;
    std::vector<std::string_view> options;
    Json (*run)(Call&, const Arguments&) = nullptr;
    /// Prints the result for a reader; nothing: one "key = value" a line.
    std::string (*text)(const Json& result) = nullptr;
    bool in_chosen_units = false;  ///< its numbers follow --units and --out-units by themselves
    bool by_quantity = false;      ///< its numbers stand under the names of their quantities
};

std::span<const Command> commands();
const Command* find_command(std::string_view name);

/// The database that the options name, opened. Throws `CannotBeDone`.
datafiles::Database database_of(Call& call, const Arguments& arguments);

/// Brings the session from the start of the program to the state that the options ask for:
/// database, substance, overrides, models, units, reference state. Throws `CannotBeDone` or
/// `WrongCall`.
void set_up(Call& call, const Arguments& arguments);

/// Adds to a result what it was calculated with: substance, models, units, reference state. Keys
/// that the result has already stay.
void name_inputs(const session::Session& session, const Command& command, Json& result);

/// A result on one line. Bytes that are no UTF-8, as a word of the call may have, are replaced.
std::string json_text(const Json& value);
/// A number, or null for what is not there (0) or not finite.
Json present(double value);
Json present(std::optional<double> value);
/// The number that tells of success (0) or of a solver's failure (-1).
template <class Outcome>
int status_of(const Outcome& outcome) {
    return outcome ? 0 : -1;
}
/// A number, or null when it is not finite.
Json number(double value);

}  // namespace quor::quorcalc
