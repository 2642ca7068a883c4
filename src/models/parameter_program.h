#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "common/child_program.h"
#include "common/result.h"
#include "models/model_selection.h"
#include "models/substance_record.h"

namespace quor::models {

/// The external program that fits the parameters of Ji/Torvik, and the files that it reads and
/// writes.
struct ParameterProgram {
    std::filesystem::path program;  ///< empty when there is none
    std::filesystem::path folder;   ///< where each run gets a folder of its own for its files
    Patience patience{std::chrono::milliseconds(100000)};
};

/// Reasons of `ask_parameter_program`.
inline constexpr auto kNoParameterFile = "No parameter-file generated.";
inline constexpr auto kUnreadableParameterFile = "The parameter-file cannot be read.";
inline constexpr auto kParametersGivenUp = "The wait for the parameters was given up.";

/// Asks the program for jtM, jtP, jtQ, jtZc (and jtK for form II) of a substance with a vapour
/// pressure equation. Fails without an answer, on one that cannot be read, and
/// when the wait is given up; the program has ended in any case.
Result<JiTorvikParameters> ask_parameter_program(const ParameterProgram& program,
                                                 const SubstanceRecord& substance,
                                                 VapourPressureEquation equation, Eos form);

/// The text that the program gets: six lines.
std::string parameter_request_text(const SubstanceRecord& substance,
                                   VapourPressureEquation equation, Eos form);

/// The parameters of the program's answer: a text, a number that is ignored, then jtM, jtP, jtQ,
/// jtZc and for form II jtK. Nothing where one of them is missing, is no finite number, or where no
/// fluid has them.
std::optional<JiTorvikParameters> parameters_of_answer(std::string_view answer, Eos form);

}  // namespace quor::models
