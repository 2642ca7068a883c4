#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

namespace fs = std::filesystem;

std::string content(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream all;
    all << in.rdbuf();
    return all.str();
}

/// Calls the program as a shell does, in a folder of its own.
class MakeDatabase : public testing::Test {
  protected:
    MakeDatabase() {
        std::string pattern = (fs::temp_directory_path() / "quor-make-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
    }
    ~MakeDatabase() override {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    int call(const std::string& arguments) {
        const std::string command = "cd " + folder_.string() +
                                    " && " QUOR_BINARY_FOLDER "/make_database " + arguments +
                                    " >out 2>err";
        const int status = std::system(command.c_str());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    void write(const std::string& name, const std::string& bytes) {
        std::ofstream(folder_ / name, std::ios::binary) << bytes;
    }
    std::string read(const std::string& name) const { return content(folder_ / name); }
    bool exists(const std::string& name) const { return fs::exists(folder_ / name); }

  private:
    fs::path folder_;
};

constexpr const char* kTable =
    "formula,name_en,casrn,M,Tcrit,pcrit\nC3H8,Propane,74-98-6,44.096,369.89,4251.2\n";

TEST_F(MakeDatabase, WritesATableAsADatabase) {
    write("t.csv", kTable);
    EXPECT_EQ(call("t.csv OUT.Q05"), 0);
    EXPECT_EQ(read("out"), "1 substances written to OUT.Q05\n");
    EXPECT_EQ(read("err"), "");
    const std::string bytes = read("OUT.Q05");
    ASSERT_EQ(bytes.size(), 2U * 684U);
    EXPECT_EQ(bytes.substr(186, 2), std::string("\1\0", 2));
    EXPECT_EQ(bytes.substr(684, 19), "C3H8        Propane");
}

TEST_F(MakeDatabase, TheSystemsOwnTableIsSound) {
    EXPECT_EQ(call(QUOR_SOURCE_DATA "/substances.csv S.Q05"), 0) << read("err");
    EXPECT_EQ(read("S.Q05").size(), 181U * 684U);
}

TEST_F(MakeDatabase, ABadTableIsToldAndTheOldDatabaseStays) {
    write("OUT.Q05", "old");
    write("t.csv", std::string(kTable) + "X,Y,1,2,hot,3\n");
    EXPECT_EQ(call("t.csv OUT.Q05"), 1);
    EXPECT_EQ(read("err"),
              "make_database: t.csv: Line 3, column Tcrit: \"hot\" is not a number.\n");
    EXPECT_EQ(read("OUT.Q05"), "old");
    EXPECT_FALSE(exists("OUT.Q05.part"));
}

TEST_F(MakeDatabase, FilesThatCannotBeReadOrWrittenAreTold) {
    EXPECT_EQ(call("missing.csv OUT.Q05"), 1);
    EXPECT_EQ(read("err"), "make_database: The file missing.csv was not found.\n");
    write("t.csv", kTable);
    EXPECT_EQ(call("t.csv nowhere/OUT.Q05"), 1);
    EXPECT_EQ(
        read("err"),
        "make_database: The file OUT.Q05 could not be written (No such file or directory).\n");
}

TEST_F(MakeDatabase, AWrongCallShowsTheUsage) {
    for (const char* arguments : {"", "one", "one two three"}) {
        EXPECT_EQ(call(arguments), 2) << arguments;
        EXPECT_EQ(read("err"), "usage: make_database TABLE.csv OUT.Q05\n");
    }
}

}  // namespace
