#include "support/machine_faults.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <array>
#include <string>
#include <utility>

namespace {

/// Mounts of this process from now on are its own.
bool own_mounts() {
    static const bool own =
        unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return own;
}

}  // namespace

FaultyDisk FaultyDisk::small(const std::filesystem::path& folder, std::size_t bytes) {
    const std::string size = "size=" + std::to_string(bytes);
    return {folder, own_mounts() && mount("none", folder.c_str(), "tmpfs", 0, size.c_str()) == 0};
}

FaultyDisk FaultyDisk::read_only(const std::filesystem::path& folder) {
    const char* const path = folder.c_str();
    if (!own_mounts() || mount(path, path, nullptr, MS_BIND, nullptr) != 0) return {folder, false};
    FaultyDisk disk{folder, true};
    disk.made_ = mount("none", path, nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) == 0;
    if (!disk.made_) umount2(path, MNT_DETACH);
    return disk;
}

FaultyDisk::FaultyDisk(FaultyDisk&& other) noexcept
    : folder_(std::move(other.folder_)), made_(std::exchange(other.made_, false)) {}

FaultyDisk::~FaultyDisk() {
    if (made_) umount2(folder_.c_str(), MNT_DETACH);
}

void FaultyDisk::fill() const {
    const int file = open((folder_ / "filler").c_str(), O_CREAT | O_WRONLY | O_APPEND, 0600);
    std::array<char, 4096> block{};
    while (write(file, block.data(), block.size()) > 0) {
    }
    while (write(file, block.data(), 1) > 0) {
    }
    close(file);
}
