#include "harness.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "support/temporary_folder.h"

namespace fuzz {

namespace fs = std::filesystem;

namespace {

std::vector<Target>& list() {
    static std::vector<Target> known;
    return known;
}

}  // namespace

const std::vector<Target>& targets() {
    return list();
}

Registered::Registered(const char* name, Reader read) {
    Target target{name, read};
    const auto behind = std::ranges::upper_bound(list(), target.name, {}, &Target::name);
    list().insert(behind, std::move(target));
}

std::vector<fs::path> corpus(const Target& target) {
    std::vector<fs::path> files;
    std::error_code missing;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(fs::path(QUOR_FUZZ_CORPUS) / target.name, missing))
        files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

std::string content(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

int replay(const Target& target) {
    int taken = 0;
    for (const fs::path& file : corpus(target)) taken += target.read(content(file)) ? 1 : 0;
    return taken;
}

void require_seeds(const Target& target) {
    FUZZ_CHECK(!corpus(target).empty());
    FUZZ_CHECK(replay(target) > 0);
}

const fs::path& own_folder() {
    static const TemporaryFolder folder;
    return folder.path();
}

fs::path as_file(std::string_view input, const std::string& name) {
    fs::path path = own_folder() / name;
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(input.data(), static_cast<std::streamsize>(input.size()));
    out.close();
    FUZZ_CHECK(out.good());
    return path;
}

}  // namespace fuzz
