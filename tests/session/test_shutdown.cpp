#include <fstream>

#include "app/tips.h"
#include "support/session_test.h"

using namespace quor;

namespace {


class Shutdown : public SessionTest {
  protected:
    Shutdown() {
        session::shutdown_hooks() = {
            .writeProtocol = [this] { calls.push_back("protocol"); },
            .saveLastSession = [this](const std::string& file) { calls.push_back("save " + file); },
            .closeFiles = [this] { calls.push_back("files"); },
            .closeHelp = [this] { calls.push_back("help"); }};
    }
    ~Shutdown() override { session::shutdown_hooks() = {}; }

    std::vector<std::string> calls;
};

TEST_F(Shutdown, WithoutADatabaseNoLastSessionIsWritten) {
    session::Shutdown();
    EXPECT_EQ(calls, (std::vector<std::string>{"files", "help"}));
}

TEST_F(Shutdown, ADatabaseWithoutASubstanceLeavesTheLastSessionAlone) {
    session.change()->databaseFile = "STUDENT.Q05";
    session::Shutdown();
    EXPECT_EQ(calls, (std::vector<std::string>{"files", "help"}));
}

TEST_F(Shutdown, PendingProtocolComesFirstAndTheSessionAfterIt) {
    session.change()->protocol.pending = true;
    session.change()->databaseFile = "STUDENT.Q05";
    session.change()->substanceSet = true;
    session::Shutdown();
    EXPECT_EQ(calls, (std::vector<std::string>{
                         "protocol", "save " + (folder() / "QuorLastSession.QCF").string(), "files",
                         "help"}));
}

TEST_F(Shutdown, AnEmptyProtocolFileIsDeletedAndOneWithDataStays) {
    const std::filesystem::path file = folder() / session->protocol.file;
    std::ofstream(file) << "";
    session::Shutdown();
    EXPECT_FALSE(std::filesystem::exists(file));
    std::ofstream(file) << "x";
    session::Shutdown();
    EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(Shutdown, AProtocolFileWithAFolderIsFoundThere) {
    std::filesystem::create_directory(folder() / "sub");
    const std::filesystem::path file = folder() / "sub" / "P.CSV";
    std::ofstream(file) << "";
    session.change()->protocol.file = file.string();
    session::Shutdown();
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Shutdown, WithoutHooksNothingHappens) {
    session::shutdown_hooks() = {};
    session.change()->protocol.pending = true;
    session.change()->databaseFile = "STUDENT.Q05";
    session.change()->substanceSet = true;
    EXPECT_NO_THROW(session::Shutdown());
}

class Tips : public SessionTest {
  protected:
    void write(const std::string& name, const std::string& content) {
        std::ofstream(folder() / name, std::ios::binary) << content;
    }
};

TEST_F(Tips, StartAtARandomLineAndWrapAround) {
    write("QUORTIPS_E.TXT", "one\r\ntwo\r\nthree\r\n");
    session::Tips tips = session::load_tips(4);
    ASSERT_EQ(tips.lines.size(), 3U);
    EXPECT_EQ(session::current_tip(tips), "two");
    session::next_tip(tips);
    EXPECT_EQ(session::current_tip(tips), "three");
    session::next_tip(tips);
    EXPECT_EQ(session::current_tip(tips), "one");
}

TEST_F(Tips, AreReadInTheCodePageOfTheTextFiles) {
    write("QUORTIPS.TXT", "gr\xFC\xDF\n");
    session.change()->english = false;
    EXPECT_EQ(session::current_tip(session::load_tips(0)), "grüß");
}

TEST_F(Tips, AMissingFileIsToldAndLeavesNothing) {
    session::Tips tips = session::load_tips(3);
    EXPECT_TRUE(tips.missing);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "The file QUORTIPS_E.TXTnot found in the QUOR directory ");
    session::next_tip(tips);
    EXPECT_EQ(session::current_tip(tips), "");
}

TEST_F(Tips, AnEmptyFileShowsNothing) {
    write("QUORTIPS_E.TXT", "\r\n\r\n");
    session::Tips tips = session::load_tips(7);
    EXPECT_FALSE(tips.missing);
    EXPECT_EQ(session::current_tip(tips), "");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Tips, StayHiddenOnlyWhenSwitchedOffAndNotAskedFor) {
    EXPECT_TRUE(session::tips_stay_hidden(false, false));
    EXPECT_FALSE(session::tips_stay_hidden(false, true));
    EXPECT_FALSE(session::tips_stay_hidden(true, false));
    EXPECT_FALSE(session::tips_stay_hidden(true, true));
}

}  // namespace
