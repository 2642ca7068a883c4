#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "common/whole_file.h"
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

TEST_F(WholeFile, APartLeftByAKilledWriteDoesNotHinderTheNextOne) {
    WriteFile(folder() / "A.TXT", "old");
    WriteFile(folder() / "A.TXT.part", "half of the ne");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "old");
    EXPECT_EQ(told(folder() / "A.TXT", "new"), "");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "new");
    EXPECT_EQ(files_in_folder(), 1U);
}

TEST_F(WholeFile, AFailedWriteLeavesTheOldContent) {
    WriteFile(folder() / "A.TXT", "old");
    // A folder stands where the new content would be prepared.
    fs::create_directory(folder() / "A.TXT.part");
    const std::string error = told(folder() / "A.TXT", "new");
    EXPECT_EQ(error.find("The file A.TXT could not be written ("), 0U) << error;
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "old");
}

TEST_F(WholeFile, AWriteProtectedFileStays) {
    WriteFile(folder() / "A.TXT", "old");
    fs::permissions(folder() / "A.TXT", fs::perms::owner_read);
    EXPECT_EQ(told(folder() / "A.TXT", "new"),
              "The file A.TXT could not be written (it is write-protected).");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "old");
}

TEST_F(WholeFile, AFullDiskIsToldAndHarmsNothing) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "no device that is always full";
    WriteFile(folder() / "A.TXT", "old");
    fs::create_symlink("/dev/full", folder() / "A.TXT.part");
    const std::string error = told(folder() / "A.TXT", std::string(100000, 'x'));
    EXPECT_EQ(error, "The file A.TXT could not be written (No space left on device).");
    EXPECT_EQ(ReadFile(folder() / "A.TXT"), "old");
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
    for (int round = 0; round < 60; ++round) {
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
        usleep(static_cast<useconds_t>(61 * round));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const std::string found = ReadFile(path);
        ASSERT_TRUE(found == contents[0] || found == contents[1])
            << "round " << round << ", " << found.size() << " bytes";
        killedWhileWriting += fs::exists(folder() / "A.TXT.part") ? 1 : 0;
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
