#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

/// The targets of the fuzz tests: each feeds one reader with any bytes at all.
namespace fuzz {

/// Reads an input; true when the reader took it, false when it refused it. Whatever else goes
/// wrong ends the process: see `FUZZ_CHECK`.
using Reader = bool (*)(std::string_view input);

struct Target {
    std::string name;  ///< of its source file and of its folder in the corpus
    Reader read;
};

/// All targets of the program, in the order of their names.
const std::vector<Target>& targets();

/// A target makes itself known by one of these at the foot of its source file.
struct Registered {
    Registered(const char* name, Reader read);
};

/// The small inputs of a target that are kept with the sources, by their file names; none when its
/// folder is missing.
std::vector<std::filesystem::path> corpus(const Target& target);
std::string content(const std::filesystem::path& file);

/// Replays a target's corpus. The number of inputs that its reader took.
int replay(const Target& target);
/// Ends the process where a target has no seeds, or its reader takes none of them: mutations of
/// what is refused at its first line test nothing.
void require_seeds(const Target& target);

/// Writes an input to a file of that name in a folder of this process, which lasts until its end,
/// and gives its path.
std::filesystem::path as_file(std::string_view input, const std::string& name);
/// That folder.
const std::filesystem::path& own_folder();

/// Ends the process, as a sanitizer does.
[[noreturn]] inline void fail(const char* what, const char* file, int line) {
    std::fprintf(stderr, "%s:%d: %s\n", file, line, what);
    std::abort();
}

}  // namespace fuzz

/// A property that holds for every input.
#define FUZZ_CHECK(condition) \
    ((condition) ? static_cast<void>(0) : fuzz::fail(#condition, __FILE__, __LINE__))
