#pragma once

#include <chrono>
#include <exception>
#include <functional>
#include <string>

/// How far a long work is, and whether its user still waits for it.
namespace quor::progress {

/// Shows how much of a work is done, 0 to 1; 1 when it has ended. False: it is to be given up.
using Show = std::function<bool(const std::string& what, double done)>;

/// The function in use by this thread. Each begins with one that shows nothing and never gives up.
Show& current();
/// How long a work of this thread lasts before it is shown: 300 ms unless it is set.
std::chrono::milliseconds& moment();

/// Leaves a work that its user gives up. Who catches it leaves everything as it was before.
struct GivenUp : std::exception {
    const char* what() const noexcept override { return "given up"; }
};

/// A work while it lasts. Nothing is shown of one that is over in a moment.
class Work {
  public:
    /// `what` names it to the user: "Reading points".
    explicit Work(const char* what);
    ~Work();
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

    /// Tells how much is done, 0 to 1; quick enough for every step of some microseconds. Throws
    /// `GivenUp`.
    void at(double done);

  private:
    using Clock = std::chrono::steady_clock;

    const char* what_;
    Clock::time_point next_;  ///< when to show it next
    bool shown_ = false;
};

}  // namespace quor::progress
