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
bool run_program(const std::string& program, const std::string& folder,
                 std::chrono::milliseconds wait);

/// How long the parameter program may take; tests shorten it.
void set_ji_torvik_wait(std::chrono::milliseconds wait);

/// For form I (code 7) or II (code 8): gets jtM, jtP, jtQ, jtZc (and jtK for form II) of the active
/// substance from the external program "djipar.exe" through its files. 0, or a positive status: no
/// parameter file ("No parameter-file generated." is shown) or an unreadable one.
Status obtain_ji_torvik_parameters(std::int16_t code);

/// When set, `obtain_ji_torvik_parameters` keeps the values that stand in `legacy::the_jiTorvik`
/// instead of asking the program.
void give_ji_torvik_parameters(bool given);

}  // namespace quor::models
