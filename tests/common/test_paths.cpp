#include <fstream>

#include "common/paths.h"
#include "support/machine_faults.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;

class PlacesTest : public testing::Test {
  protected:
    const fs::path& folder() const { return folder_.path(); }
    void write(const std::string& name, const std::string& bytes) const {
        std::ofstream(folder() / name, std::ios::binary) << bytes;
    }
    Places places() const { return Places(folder(), {}, "15.11.2026"); }

  private:
    TemporaryFolder folder_;
};

TEST(Paths, BothSlashesDivideAPath) {
    EXPECT_EQ(paths::file_title("a/b\\C.Q05"), "C.Q05");
    EXPECT_EQ(paths::folder_of("a/b\\C.Q05"), "a/b\\");
    EXPECT_EQ(paths::folder_of("C.Q05"), "");
    EXPECT_TRUE(paths::has_separator("a\\b"));
    EXPECT_FALSE(paths::has_separator("b"));
}

TEST(Paths, ShortenPathKeepsTheStartAndTheEnd) {
    EXPECT_EQ(paths::shorten_path("C:\\short.txt", 50), "C:\\short.txt");
    EXPECT_EQ(paths::shorten_path("C:\\one\\two\\three\\four\\five.txt", 20),
              "C:\\...\\four\\five.txt");
    EXPECT_EQ(paths::shorten_path("/home/user/one/two/five.txt", 18), "/ho.../two/five.txt");
}

TEST(Paths, ATargetGetsFolderAndExtension) {
    EXPECT_EQ(paths::target_path("data", "/x/", ".BAQ"), "/x/data.BAQ");
    EXPECT_EQ(paths::target_path("data.txt", "/x", ".BAQ"), "/x/data.txt");
    EXPECT_EQ(paths::target_path("/y.z/data", "/x/", ".BAQ"), "/y.z/data.BAQ");
    EXPECT_EQ(paths::in_folder("data", "/x"), "/x/data");
}

TEST_F(PlacesTest, ProtocolNamesCountUp) {
    EXPECT_EQ(places().new_protocol_file_name(), "26151101.CSV");
    write("26151101.CSV", "");
    write("26151102.CSV", "x");
    EXPECT_EQ(places().new_protocol_file_name(), "26151103.CSV");
}

TEST_F(PlacesTest, AFolderThatTakesNoFilesIsKnown) {
    EXPECT_EQ(places().write_fault(), std::nullopt);
    write("file", "no folder");
    EXPECT_EQ(Places(folder() / "file").write_fault(), "Permission denied");
    EXPECT_EQ(Places(folder() / "file" / "sub").write_fault(), "Not a directory");
    const FaultyDisk disk = FaultyDisk::read_only(folder());
    if (!disk.is_made()) GTEST_SKIP() << "no disks can be made here";
    EXPECT_EQ(places().write_fault(), "Read-only file system");
}

TEST_F(PlacesTest, TheDateIsTheOneGivenElseTodays) {
    EXPECT_EQ(places().short_date(), "15.11.2026");
    const std::string today = Places(folder()).short_date();
    ASSERT_EQ(today.size(), 10U);
    EXPECT_EQ(today[2], '.');
    EXPECT_EQ(today[5], '.');
}

TEST_F(PlacesTest, FilesAreLookedUpInTheProgramsFolder) {
    write("A.TXT", "x");
    EXPECT_TRUE(places().file_exists("A.TXT"));
    EXPECT_FALSE(places().file_exists(""));
    EXPECT_FALSE(places().file_exists("B.TXT"));
    EXPECT_TRUE(places().file_exists((folder() / "A.TXT").string()));
}

TEST_F(PlacesTest, AFileOfTheUserGoesBeforeTheProgramsOwn) {
    const fs::path program = folder() / "missing", user = folder() / "user";
    const Places both(program, user);
    fs::create_directory(program);
    std::ofstream(program / "A.TXT") << "program";
    EXPECT_EQ(both.find_file("A.TXT"), program / "A.TXT");
    std::ofstream(user / "A.TXT") << "user";
    EXPECT_EQ(both.find_file("A.TXT"), user / "A.TXT");
}

TEST_F(PlacesTest, AProgramFolderThatCannotBeWrittenSendsNewFilesToTheUsersFolder) {
    const Places elsewhere(folder() / "missing", folder() / "user");
    EXPECT_EQ(elsewhere.write_folder(), folder() / "user");
    EXPECT_TRUE(fs::is_directory(folder() / "user"));
    EXPECT_EQ(Places(folder()).write_folder(), folder());
}

}  // namespace
