#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "common/child_program.h"
#include "common/result.h"
#include "diagrams/curve.h"

/// The exchange with the separate program that computes polytropic processes, through the files
/// TO_DAL.DAT, FROM_DAL.DAT and WRITEEND.END.
namespace quor::diagrams {

inline constexpr auto kPolytropicProgram = "POLYTROPEN_1.EXE";

/// How the program is started and waited for. The desktop program gives a `pass` that keeps its
/// window alive, tests a stand-in for the program.
struct PolytropicRunner {
    /// Starts a program in a folder and comes back at once; false when it cannot be started. A
    /// program that is left in `running` is ended after the wait.
    std::function<bool(const std::string& program, const std::string& folder,
                       std::optional<ChildProgram>& running)>
        start;
    Patience patience{std::chrono::milliseconds(50000)};  ///< until the end mark is there
};
/// The runner that starts a real child process.
PolytropicRunner real_runner();

/// Why a run has given nothing.
enum class PolytropicFailure : std::int16_t {
    notWritten = 1,  ///< the file for the program could not be written; this was told
    notStarted = 2,
    timeOut = 3,
    givenUp = 4,
    unreadable = 5,       ///< the answer is missing or garbled
    missingProgram = 10,  ///< told; no file was touched
};

/// Where the program and its files lie.
struct PolytropicPlace {
    std::filesystem::path program;  ///< empty: it was not found
    std::filesystem::path folder;   ///< where each run gets a folder of its own for its files
};

/// What is asked: a process in a diagram.
struct PolytropicTask {
    const Diagram* diagram = nullptr;  ///< nullptr: none is open
    ProcessLine line{};
    CurveOptions options{};
    char csv_separator = ';';
};

/// Asks the program for the process of a task and gives its line with the points of the answer.
Result<ProcessLine, PolytropicFailure> run_polytrope(const Basis& basis, const PolytropicTask& task,
                                                     const PolytropicPlace& place,
                                                     const PolytropicRunner& runner);

/// The text of TO_DAL.DAT: one value a line.
std::string polytropic_request_text(const Basis& basis, const PolytropicTask& task);

/// The line with the states and values of the text of FROM_DAL.DAT; nothing when it is garbled.
std::optional<ProcessLine> take_polytropic_answer(std::string_view text, const ProcessLine& line,
                                                  char csv_separator);

}  // namespace quor::diagrams
