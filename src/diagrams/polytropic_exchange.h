#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "legacy/declare.h"

/// The exchange with the separate program that computes polytropic processes, through the files
/// TO_DAL.DAT, FROM_DAL.DAT and WRITEEND.END.
namespace quor::diagrams {

inline constexpr auto kPolytropicProgram = "POLYTROPEN_1.EXE";

/// How the program is started and waited for. The desktop program installs a `pass` that keeps its
/// window alive, tests a stand-in for the program.
struct PolytropicRunner {
    /// Starts a program in a folder and comes back at once; false when it cannot be started.
    std::function<bool(const std::string& program, const std::string& folder)> start;
    /// Called between two looks for the end mark; false gives the wait up.
    std::function<bool()> pass;
    std::chrono::milliseconds limit{50000};  ///< how long the answer may take
};
/// The runner in use; at first a real child process and a short sleep.
PolytropicRunner& polytropic_runner();

/// What became of a run.
enum class PolytropicCode : std::int16_t {
    kDone = 0,
    kNotWritten = 1,  ///< the file for the program could not be written; this was told
    kNotStarted = 2,
    kTimeOut = 3,
    kGivenUp = 4,
    kUnreadable = 5,       ///< the answer is missing or garbled
    kMissingProgram = 10,  ///< told; no file was touched
};

/// Asks the program for the process of `legacy::the_processLine` and takes its answer into
/// `legacy::the_polytropicPoints` and `PolytropicValues`. On any failure the points are empty.
PolytropicCode run_polytrope();

/// The text of TO_DAL.DAT: one value a line, for the process of `legacy::the_processLine`.
std::string polytropic_request_text();

/// Reads the text of FROM_DAL.DAT into the session; false, and nothing taken, when it is garbled.
bool take_polytropic_answer(std::string_view text);

/// Number of a diagram in the list of the program; 0 when it has none.
int polytropic_diagram_number(std::int16_t DiagramType);

}  // namespace quor::diagrams
