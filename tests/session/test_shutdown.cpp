#include <fstream>

#include "session/module2.h"
#include "session/shutdown.h"
#include "session/tips.h"
#include "support/session_test.h"

namespace {

using Declare::session;

class Shutdown : public SessionTest {
  protected:
    Shutdown() {
        Module2::shutdownHooks() = {
            .writeProtocol = [this] { calls.push_back("protocol"); },
            .saveLastSession = [this](const std::string& file) { calls.push_back("save " + file); },
            .closeFiles = [this] { calls.push_back("files"); },
            .closeHelp = [this] { calls.push_back("help"); }};
    }
    ~Shutdown() override { Module2::shutdownHooks() = {}; }

    std::vector<std::string> calls;
};

TEST_F(Shutdown, WithoutADatabaseNoLastSessionIsWritten) {
    Module2::Shutdown();
    EXPECT_EQ(calls, (std::vector<std::string>{"files", "help"}));
}

TEST_F(Shutdown, PendingProtocolComesFirstAndTheSessionAfterIt) {
    session.ProtocolPending = true;
    session.DatabaseFile = "STUDENT.Q05";
    Module2::Shutdown();
    EXPECT_EQ(calls, (std::vector<std::string>{
                         "protocol", "save " + (folder() / "QuorLastSession.QCF").string(), "files",
                         "help"}));
}

TEST_F(Shutdown, AnEmptyProtocolFileIsDeletedAndOneWithDataStays) {
    const std::filesystem::path file = folder() / session.ProtocolFile;
    std::ofstream(file) << "";
    Module2::Shutdown();
    EXPECT_FALSE(std::filesystem::exists(file));
    std::ofstream(file) << "x";
    Module2::Shutdown();
    EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(Shutdown, AProtocolFileWithAFolderIsFoundThere) {
    std::filesystem::create_directory(folder() / "sub");
    const std::filesystem::path file = folder() / "sub" / "P.CSV";
    std::ofstream(file) << "";
    session.ProtocolFile = file.string();
    Module2::Shutdown();
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(Shutdown, WithoutHooksNothingHappens) {
    Module2::shutdownHooks() = {};
    session.ProtocolPending = true;
    session.DatabaseFile = "STUDENT.Q05";
    EXPECT_NO_THROW(Module2::Shutdown());
}

class Tips : public SessionTest {
  protected:
    void write(const std::string& name, const std::string& content) {
        std::ofstream(folder() / name, std::ios::binary) << content;
    }
};

TEST_F(Tips, StartAtARandomLineAndWrapAround) {
    write("QUORTIPS_E.TXT", "one\r\ntwo\r\nthree\r\n");
    Module2::Tips tips = Module2::LoadTips(4);
    ASSERT_EQ(tips.lines.size(), 3U);
    EXPECT_EQ(Module2::CurrentTip(tips), "two");
    Module2::NextTip(tips);
    EXPECT_EQ(Module2::CurrentTip(tips), "three");
    Module2::NextTip(tips);
    EXPECT_EQ(Module2::CurrentTip(tips), "one");
}

TEST_F(Tips, AreReadInTheCodePageOfTheTextFiles) {
    write("QUORTIPS.TXT", "gr\xFC\xDF\n");
    session.EnglishUi = false;
    EXPECT_EQ(Module2::CurrentTip(Module2::LoadTips(0)), "grüß");
}

TEST_F(Tips, AMissingFileIsToldAndLeavesNothing) {
    Module2::Tips tips = Module2::LoadTips(3);
    EXPECT_TRUE(tips.missing);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "The file QUORTIPS_E.TXTnot found in the QUOR directory ");
    Module2::NextTip(tips);
    EXPECT_EQ(Module2::CurrentTip(tips), "");
}

TEST_F(Tips, AnEmptyFileShowsNothing) {
    write("QUORTIPS_E.TXT", "\r\n\r\n");
    Module2::Tips tips = Module2::LoadTips(7);
    EXPECT_FALSE(tips.missing);
    EXPECT_EQ(Module2::CurrentTip(tips), "");
    EXPECT_TRUE(user.messages.empty());
}

TEST_F(Tips, StayHiddenOnlyWhenSwitchedOffAndNotAskedFor) {
    EXPECT_TRUE(Module2::TipsStayHidden(false, false));
    EXPECT_FALSE(Module2::TipsStayHidden(false, true));
    EXPECT_FALSE(Module2::TipsStayHidden(true, false));
    EXPECT_FALSE(Module2::TipsStayHidden(true, true));
}

}  // namespace
