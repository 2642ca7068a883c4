#pragma once

#include <cstddef>
#include <filesystem>

/// Faults of the machine, made for real: a folder becomes a disk of its own for as long as the
/// value lives, seen by this process and its children alone.
class FaultyDisk {
  public:
    /// An empty disk of some bytes in the place of a folder, full when they are used up.
    static FaultyDisk small(const std::filesystem::path& folder, std::size_t bytes);
    /// The folder with all that is in it, on a disk that takes no writes.
    static FaultyDisk read_only(const std::filesystem::path& folder);

    FaultyDisk(FaultyDisk&& other) noexcept;
    FaultyDisk& operator=(FaultyDisk&&) = delete;
    ~FaultyDisk();

    /// False where this machine does not let a program make disks.
    bool is_made() const { return made_; }
    /// Uses up what is left.
    void fill() const;

  private:
    FaultyDisk(std::filesystem::path folder, bool made) : folder_(std::move(folder)), made_(made) {}

    std::filesystem::path folder_;
    bool made_ = false;
};
