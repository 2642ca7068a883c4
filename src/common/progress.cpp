#include "common/progress.h"

namespace quor::progress {

namespace {

constexpr std::chrono::milliseconds kBetween{50};

}  // namespace

Show& current() {
    thread_local Show show = [](const std::string&, double) { return true; };
    return show;
}

std::chrono::milliseconds& moment() {
    thread_local std::chrono::milliseconds moment{300};
    return moment;
}

Work::Work(const char* what) : what_(what), next_(Clock::now() + moment()) {}

Work::~Work() {
    if (shown_) current()(what_, 1);
}

void Work::at(double done) {
    const Clock::time_point now = Clock::now();
    if (now < next_) return;
    shown_ = true;
    const bool on = current()(what_, done < 1 ? done : 0.999);
    // The box itself takes time, which is none of the work's.
    next_ = Clock::now() + kBetween;
    if (!on) throw GivenUp();
}

}  // namespace quor::progress
