#include "common/child_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>
#include <utility>

#include "common/system_reason.h"

extern char** environ;

namespace quor {

namespace fs = std::filesystem;

namespace {

/// How a program is started: its folder, its streams, a group of its own.
struct StartRules {
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;

    explicit StartRules(const fs::path& folder) {
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addchdir_np(&actions, folder.c_str());
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
        posix_spawnattr_setpgroup(&attributes, 0);
    }
    ~StartRules() {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    StartRules(const StartRules&) = delete;
    StartRules& operator=(const StartRules&) = delete;
};

}  // namespace

Result<RunFolder> RunFolder::make(const fs::path& parent) {
    std::string name = (parent / "run-XXXXXX").string();
    if (mkdtemp(name.data()) != nullptr) return RunFolder(name);
    return Failure{"No folder could be made in " + parent.string() + " (" + system_reason(errno) +
                   ")."};
}

RunFolder::RunFolder(RunFolder&& other) noexcept : path_(std::exchange(other.path_, {})) {}

RunFolder& RunFolder::operator=(RunFolder&& other) noexcept {
    std::swap(path_, other.path_);
    return *this;
}

RunFolder::~RunFolder() {
    std::error_code ignored;
    if (!path_.empty()) fs::remove_all(path_, ignored);
}

Result<ChildProgram> ChildProgram::start(const fs::path& program,
                                         const std::vector<std::string>& arguments,
                                         const fs::path& folder) {
    std::error_code failed;
    std::string name = fs::absolute(program, failed).string();
    std::vector<std::string> given = arguments;
    std::vector<char*> words{name.data()};
    for (std::string& argument : given) words.push_back(argument.data());
    words.push_back(nullptr);

    const StartRules rules(folder);
    pid_t process = 0;
    const int error = posix_spawn(&process, name.c_str(), &rules.actions, &rules.attributes,
                                  words.data(), environ);
    if (error == 0) return ChildProgram(process);
    return Failure{"The program " + program.filename().string() + " could not be started (" +
                   system_reason(error) + ")."};
}

ChildProgram::ChildProgram(ChildProgram&& other) noexcept
    : process_(std::exchange(other.process_, 0)), ended_(other.ended_) {}

ChildProgram& ChildProgram::operator=(ChildProgram&& other) noexcept {
    std::swap(process_, other.process_);
    std::swap(ended_, other.ended_);
    return *this;
}

ChildProgram::~ChildProgram() {
    end();
}

bool ChildProgram::has_ended() {
    if (process_ == 0 || ended_) return true;
    // It stays in the table of processes until `end`, so that its number names no other group.
    siginfo_t info{};
    const int looked =
        waitid(P_PID, static_cast<id_t>(process_), &info, WEXITED | WNOHANG | WNOWAIT);
    ended_ = looked != 0 || info.si_pid != 0;
    return ended_;
}

void ChildProgram::end() {
    if (process_ == 0) return;
    constexpr std::chrono::milliseconds kGrace{200};
    if (!has_ended()) {
        kill(-process_, SIGTERM);
        wait_until([this] { return has_ended(); }, {kGrace});
    }
    kill(-process_, SIGKILL);
    while (waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
    process_ = 0;
}

WaitEnd wait_until(const std::function<bool()>& done, const Patience& patience) {
    constexpr std::chrono::milliseconds kLook{5};
    const auto end = std::chrono::steady_clock::now() + patience.limit;
    while (!done()) {
        if (std::chrono::steady_clock::now() >= end) return WaitEnd::timeOut;
        if (!patience.pass)
            std::this_thread::sleep_for(kLook);
        else if (!patience.pass())
            return WaitEnd::givenUp;
    }
    return WaitEnd::done;
}

}  // namespace quor
