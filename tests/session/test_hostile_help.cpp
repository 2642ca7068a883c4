#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>

#include "app/help_book.h"
#include "app/tips.h"
#include "support/session_test.h"

using namespace quor;

/// Help and tips that are damaged or planted: read within bounds, or passed over.
namespace {

namespace fs = std::filesystem;

class HostileHelp : public SessionTest {
  protected:
    void write(const std::string& name, const std::string& bytes) {
        std::ofstream(folder() / name, std::ios::binary) << bytes;
    }
    void make_pipe(const std::string& name) {
        ASSERT_EQ(mkfifo((folder() / name).c_str(), 0600), 0);
    }
    static std::string repeated(const std::string& part, int times) {
        std::string all;
        for (int i = 0; i < times; ++i) all += part;
        return all;
    }
    std::optional<help::Book> book() const { return help::Book::load(folder()); }
};

TEST_F(HostileHelp, ContentsNestedFortyThousandDeepDoNotEndTheProgram) {
    constexpr int kDeep = 40000;
    write("contents.json", repeated(R"([{"children":)", kDeep) + "[]" + repeated("}]", kDeep));
    const auto read = book();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->contents().size(), 17U) << "what lies deeper is left out";
    EXPECT_EQ(read->contents().back().depth, 16);
}

TEST_F(HostileHelp, PagesThatAreNoFilesArePassedOver) {
    make_pipe("pipe.html");
    write("page.html", "<html><body>a word</body></html>");
    write("contents.json", R"([{"title":"a","page":"pipe.html"},{"title":"b","page":"/dev/zero"},
                               {"title":"c","page":"page.html"}])");
    const auto read = book();
    ASSERT_TRUE(read);
    ASSERT_EQ(read->search("word").size(), 1U);
    EXPECT_EQ(read->search("word")[0].page, "page.html");
}

TEST_F(HostileHelp, ContentsThatAreNoFileOrTooLargeAreNone) {
    make_pipe("contents.json");
    EXPECT_FALSE(book());
    fs::remove(folder() / "contents.json");
    write("contents.json", "[" + std::string(2 << 20, ' ') + "]");
    EXPECT_FALSE(book());
}

TEST_F(HostileHelp, APageOfVeryManySignsIsReadInProportion) {
    const std::string signs = help::plain_text("<body>" + repeated("&lt;", 100000));
    EXPECT_EQ(signs, std::string(100000, '<'));
}

TEST_F(HostileHelp, TipsThatAreNoFileAreToldAsMissing) {
    make_pipe(session::tips_file(session));
    EXPECT_TRUE(session::load_tips(session, 1).missing);
    EXPECT_EQ(user.messages.size(), 1U);
}

}  // namespace
