#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

#include "common/result.h"
#include "models/model_selection.h"
#include "models/substance_record.h"

namespace quor::models {

/// Starts a program in a folder and waits for its end, at most the given time; goes on whether it
/// ended or not. False when it could not be started.
using ProgramRunner = std::function<bool(const std::string& program, const std::string& folder,
                                         std::chrono::milliseconds wait)>;

/// The runner that starts a real child process.
bool run_program(const std::string& program, const std::string& folder,
                 std::chrono::milliseconds wait);

/// The external program that fits the parameters of Ji/Torvik, and the files that it reads and
/// writes.
struct ParameterProgram {
    std::filesystem::path program;  ///< empty when there is none
    std::filesystem::path folder;   ///< of the files
    std::chrono::milliseconds wait{100000};
};

/// Asks the program for jtM, jtP, jtQ, jtZc (and jtK for form II) of a substance with a vapour
/// pressure equation. Fails without an answer and on one that cannot be read.
Result<JiTorvikParameters> ask_parameter_program(const ParameterProgram& program,
                                                 const SubstanceRecord& substance,
                                                 VapourPressureEquation equation, Eos form);

}  // namespace quor::models
