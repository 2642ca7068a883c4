#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <fstream>
#include <vector>

#include "common/whole_file.h"
#include "support/machine_faults.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void WriteFile(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

/// What the user is told of a write, nothing for a success.
std::string told(const fs::path& path, std::string_view bytes) {
    const Result<void> written = files::write_whole(path, bytes);
    return written ? std::string() : written.reason();
}

class WholeFile : public testing::Test {
  protected:
    const fs::path& folder() const { return folder_.path(); }
    std::size_t files_in_folder() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder()), fs::directory_iterator()));
    }

  private:
    TemporaryFolder folder_;
};

TEST_F(WholeFile, WhatIsWrittenIsRead) {
    const std::string bytes("a\0b\r\nc", 6);
    EXPECT_EQ(told(folder() / "A.TXT", bytes), "");
    const Result<std::string> content = files::read_whole(folder() / "A.TXT");
    ASSERT_TRUE(content);
    EXPECT_EQ(*content, bytes);
}

TEST_F(WholeFile, AWriteLeavesNothingBesideTheFile) {
    EXPECT_EQ(told(folder() / "A.TXT", "old"), "");
    EXPECT_EQ(told(folder() / "A.TXT", "new"), "");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "new");
    EXPECT_EQ(files_in_folder(), 1U);
}

TEST_F(WholeFile, PartsLeftByKilledWritesGoWithALaterOne) {
    WriteFile(folder() / "A.TXT", "old");
    const fs::path left = folder() / "A.TXT~17.part", young = folder() / "A.TXT~18.part",
                   other = folder() / "B.TXT~17.part";
    for (const fs::path& part : {left, young, other}) WriteFile(part, "half of the ne");
    for (const fs::path& part : {left, other})
        fs::last_write_time(part, fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_EQ(told(folder() / "A.TXT", "new"), "");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "new");
    EXPECT_FALSE(fs::exists(left));
    EXPECT_TRUE(fs::exists(young)) << "another program may be writing it";
    EXPECT_TRUE(fs::exists(other)) << "of another file";
}

TEST_F(WholeFile, AFailedWriteLeavesTheOldContentAndNothingElse) {
    WriteFile(folder() / "A.TXT", "old");
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit little{1000, before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &little), 0);
    const std::string error = told(folder() / "A.TXT", std::string(5000, 'n'));
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(error, "The file A.TXT could not be written (File too large).");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "old");
    EXPECT_EQ(files_in_folder(), 1U);
}

TEST_F(WholeFile, AWriteProtectedFileStays) {
    WriteFile(folder() / "A.TXT", "old");
    fs::permissions(folder() / "A.TXT", fs::perms::owner_read);
    EXPECT_EQ(told(folder() / "A.TXT", "new"),
              "The file A.TXT could not be written (it is write-protected).");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "old");
}

TEST_F(WholeFile, AFullDiskIsToldAndHarmsNothing) {
    const FaultyDisk disk = FaultyDisk::small(folder(), 64 * 1024);
    if (!disk.is_made()) GTEST_SKIP() << "no disks can be made here";
    WriteFile(folder() / "A.TXT", "old");
    disk.fill();
    EXPECT_EQ(told(folder() / "A.TXT", std::string(100000, 'x')),
              "The file A.TXT could not be written (No space left on device).");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "old");
    const files::NewFile made = files::write_new(folder() / "B.TXT", std::string(100000, 'x'));
    EXPECT_FALSE(made.exists);
    EXPECT_EQ(made.written.reason(),
              "The file B.TXT could not be written (No space left on device).");
    EXPECT_EQ(files_in_folder(), 2U) << "the old file and the filler";
}

TEST_F(WholeFile, ADiskThatTakesNoWritesIsTold) {
    WriteFile(folder() / "A.TXT", "old");
    const FaultyDisk disk = FaultyDisk::read_only(folder());
    if (!disk.is_made()) GTEST_SKIP() << "no disks can be made here";
    EXPECT_EQ(told(folder() / "A.TXT", "new"),
              "The file A.TXT could not be written (Read-only file system).");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "old");
}

TEST_F(WholeFile, APlantedLinkDoesNotLeadTheNewContentElsewhere) {
    WriteFile(folder() / "valuable.TXT", "valuable");
    WriteFile(folder() / "A.TXT", "old");
    fs::create_symlink(folder() / "valuable.TXT", folder() / "A.TXT.part");
    EXPECT_EQ(told(folder() / "A.TXT", "new"), "");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "new");
    EXPECT_EQ(ReadFile(folder() / "valuable.TXT"), "valuable");
}

TEST_F(WholeFile, TwoWritersAtOnceDoNotTearAFile) {
    const fs::path path = folder() / "A.TXT";
    constexpr std::size_t size = 300000;
    std::vector<pid_t> writers;
    for (const char letter : {'a', 'b', 'c'}) {
        writers.push_back(fork());
        ASSERT_GE(writers.back(), 0);
        if (writers.back() != 0) continue;
        bool all = true;
        for (int i = 0; i < 60; ++i)
            all = files::write_whole(path, std::string(size, letter)) && all;
        _exit(all ? 0 : 1);
    }
    int read = 0;
    for (bool running = true; running;) {
        siginfo_t ended{};
        running = waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) == 0 && ended.si_pid == 0;
        if (!fs::exists(path)) continue;
        const std::string found = ReadFile(path);
        ASSERT_EQ(found, std::string(size, found.empty() ? '?' : found.front()));
        ++read;
    }
    for (const pid_t writer : writers) {
        int status = 0;
        waitpid(writer, &status, 0);
        EXPECT_EQ(status, 0) << "a writer was hindered by another one";
    }
    EXPECT_GT(read, 0);
    EXPECT_EQ(files_in_folder(), 1U);
}

TEST_F(WholeFile, OfTwoProgramsThatMakeANewFileOneGetsTheName) {
    for (int round = 0; round < 100; ++round) {
        const fs::path path = folder() / (std::to_string(round) + ".TXT");
        std::vector<pid_t> writers;
        for (const char letter : {'a', 'b'}) {
            writers.push_back(fork());
            ASSERT_GE(writers.back(), 0);
            if (writers.back() != 0) continue;
            const files::NewFile made = files::write_new(path, std::string(1000, letter));
            _exit(made.written ? letter : made.exists ? 1 : 2);
        }
        std::vector<int> outcomes;
        for (const pid_t writer : writers) {
            int status = 0;
            waitpid(writer, &status, 0);
            outcomes.push_back(WEXITSTATUS(status));
        }
        std::sort(outcomes.begin(), outcomes.end());
        ASSERT_EQ(outcomes[0], 1) << "told that the name is taken";
        ASSERT_GT(outcomes[1], 2);
        ASSERT_EQ(ReadFile(path), std::string(1000, static_cast<char>(outcomes[1])));
    }
}

TEST_F(WholeFile, APipeInThePlaceOfAFileIsRefusedAtOnce) {
    ASSERT_EQ(mkfifo((folder() / "pipe.TXT").c_str(), 0600), 0);
    EXPECT_EQ(files::read_whole(folder() / "pipe.TXT").reason(),
              "The file pipe.TXT could not be read (it is no ordinary file).");
    EXPECT_EQ(told(folder() / "pipe.TXT", "new"),
              "The file pipe.TXT could not be written (it is no ordinary file).");
    EXPECT_EQ(files::read_whole("/dev/zero").reason(),
              "The file zero could not be read (it is no ordinary file).");
}

TEST_F(WholeFile, NamesOfAnyLengthAndCharactersAreWritten) {
    for (const std::string& name : {std::string(255, 'n'), std::string("a b\tc\n$(d)'\"e;*?.TXT"),
                                    std::string("\xff\xfe.TXT"), std::string("Ä 温度 .TXT")}) {
        EXPECT_EQ(told(folder() / name, "text"), "");
        EXPECT_EQ(files::read_whole(folder() / name).value(), "text");
    }
    EXPECT_NE(told(folder() / std::string(256, 'n'), "text"), "");
}

TEST_F(WholeFile, AFolderThatIsMissingIsTold) {
    const std::string error = told(folder() / "missing" / "A.TXT", "x");
    EXPECT_EQ(error, "The file A.TXT could not be written (No such file or directory).");
    EXPECT_EQ(told(folder(), "x").find("it is a folder") != std::string::npos, true);
}

TEST_F(WholeFile, AWriterKilledAtAnyMomentLeavesOldOrNewContent) {
    const fs::path path = folder() / "A.TXT";
    constexpr std::size_t size = 300000;
    const std::string contents[] = {std::string(size, 'o'), std::string(size, 'n')};
    int killedWhileWriting = 0;
    for (int round = 0; round < 200; ++round) {
        WriteFile(path, contents[0]);
        int started[2] = {};
        ASSERT_EQ(pipe(started), 0);
        const pid_t writer = fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            (void)!write(started[1], "x", 1);
            for (int i = 1;; ++i) (void)files::write_whole(path, contents[i % 2]);
        }
        // A busy machine may start the writer late.
        char mark = 0;
        ASSERT_EQ(read(started[0], &mark, 1), 1);
        close(started[0]);
        close(started[1]);
        usleep(static_cast<useconds_t>(31 * round));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const std::string found = ReadFile(path);
        ASSERT_TRUE(found == contents[0] || found == contents[1])
            << "round " << round << ", " << found.size() << " bytes";
        killedWhileWriting = static_cast<int>(files_in_folder()) - 1;
    }
    EXPECT_GT(killedWhileWriting, 0) << "no kill met a write";
}

TEST_F(WholeFile, ALinkStaysALink) {
    WriteFile(folder() / "real.TXT", "old");
    fs::create_symlink(folder() / "real.TXT", folder() / "link.TXT");
    EXPECT_EQ(told(folder() / "link.TXT", "new"), "");
    EXPECT_TRUE(fs::is_symlink(folder() / "link.TXT"));
    EXPECT_EQ(ReadFile(folder() / "real.TXT"), "new");
}

TEST_F(WholeFile, PermissionsOfTheOldFileStay) {
    WriteFile(folder() / "A.TXT", "old");
    fs::permissions(folder() / "A.TXT", fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(told(folder() / "A.TXT", "new"), "");
    EXPECT_EQ(fs::status(folder() / "A.TXT").permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(WholeFile, FoldersMissingAndLargeFilesAreRefused) {
    EXPECT_EQ(files::read_whole(folder() / "no.TXT").reason(), "The file no.TXT was not found.");
    EXPECT_FALSE(files::read_whole(folder()));
    WriteFile(folder() / "A.TXT", "12345");
    EXPECT_EQ(files::read_whole(folder() / "A.TXT", 4).reason(),
              "The file A.TXT is too large (5 bytes).");
    EXPECT_EQ(files::read_whole(folder() / "A.TXT", 5).value(), "12345");
}

TEST_F(WholeFile, LinesAreAnsiWithCarriageReturns) {
    EXPECT_EQ(files::ansi_lines({"Äther", ""}), "\xC4ther\r\n\r\n");
    EXPECT_EQ(files::one_line("a\r\nb\tc"), "a  b c");
}

}  // namespace
