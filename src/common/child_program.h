#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "common/result.h"

/// External programs that calculate for this one.
namespace quor {

/// A folder that one run of an external program has for its files, so that two runs at once do not
/// take each other's. It goes with the value, and with all that is in it.
class RunFolder {
  public:
    /// A new folder in `parent`; the reason of a failure names `parent`.
    static Result<RunFolder> make(const std::filesystem::path& parent);

    RunFolder(RunFolder&& other) noexcept;
    RunFolder& operator=(RunFolder&& other) noexcept;
    ~RunFolder();

    const std::filesystem::path& path() const { return path_; }

  private:
    explicit RunFolder(std::filesystem::path path) : path_(std::move(path)) {}

    std::filesystem::path path_;  ///< empty: moved away
};

/// A running program. It is started without a shell, reads nothing, and what it says is dropped; it
/// ends, with all programs that it has started, when the value goes.
class ChildProgram {
  public:
    /// Starts a program with arguments in a folder; the reason of a failure names the program.
    static Result<ChildProgram> start(const std::filesystem::path& program,
                                      const std::vector<std::string>& arguments,
                                      const std::filesystem::path& folder);

    ChildProgram(ChildProgram&& other) noexcept;
    ChildProgram& operator=(ChildProgram&& other) noexcept;
    ~ChildProgram();

    /// True when the program itself is no longer running.
    bool has_ended();
    /// Ends it and what it has started: first asked to, then, if it is still there, made to.
    void end();

  private:
    explicit ChildProgram(int process) : process_(process) {}

    int process_ = 0;     ///< of the program and its group; 0: none
    bool ended_ = false;  ///< the program itself; others of its group may run
};

/// How long a run of an external program may take, and who may give it up.
struct Patience {
    std::chrono::milliseconds limit;
    /// Called between two looks; false gives the wait up. None: it sleeps a little.
    std::function<bool()> pass{};
};

enum class WaitEnd { done, timeOut, givenUp };

/// Waits until something is done.
WaitEnd wait_until(const std::function<bool()>& done, const Patience& patience);

}  // namespace quor
