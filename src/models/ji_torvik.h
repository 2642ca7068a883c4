#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "common/status.h"

namespace quor::models {

/// Starts a program in a folder and waits for its end, at most the given time; goes on whether it
/// ended or not. False when it could not be started.
using ProgramRunner = std::function<bool(const std::string& program, const std::string& folder,
                                         std::chrono::milliseconds wait)>;

/// The runner that starts a real child process.
bool RunProgram(const std::string& program, const std::string& folder,
                std::chrono::milliseconds wait);

/// How long the parameter program may take; tests shorten it.
void SetJiTorvikWait(std::chrono::milliseconds wait);

/// For form I (code 7) or II (code 8): gets jtM, jtP, jtQ, jtZc (and jtK for form II) of the active
/// substance from the external program "djipar.exe" through its files. 0, or a positive status: no
/// parameter file ("No parameter-file generated." is shown) or an unreadable one.
Status ObtainJiTorvikParameters(std::int16_t code);

/// When set, `ObtainJiTorvikParameters` keeps the values that stand in `legacy::the_jiTorvik`
/// instead of asking the program.
void GiveJiTorvikParameters(bool given);

}  // namespace quor::models
