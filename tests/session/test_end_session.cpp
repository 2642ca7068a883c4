#include <fstream>

#include "app/tips.h"
#include "session/end_session.h"
#include "support/database_builder.h"
#include "support/session_test.h"

using namespace quor;

namespace {

class EndOfASession : public SessionTest {
  protected:
    std::filesystem::path last() const { return folder() / "QuorLastSession.QCF"; }
    static void write(const std::filesystem::path& file, const std::string& content) {
        std::ofstream(file, std::ios::binary) << content;
    }
    void have_a_substance() {
        const auto now = session.change();
        now->database_file = "STUDENT.Q05";
        now->substance_set = true;
    }
    int protocols() const {
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder()))
            if (entry.path().extension() == ".CSV") ++count;
        return count;
    }
};

TEST_F(EndOfASession, WithoutADatabaseNoLastSessionIsWritten) {
    EXPECT_TRUE(session::end_session(session));
    EXPECT_FALSE(std::filesystem::exists(last()));
}

TEST_F(EndOfASession, ADatabaseWithoutASubstanceLeavesTheLastSessionAlone) {
    write(last(), "the good one");
    session.change()->database_file = "STUDENT.Q05";
    EXPECT_TRUE(session::end_session(session));
    EXPECT_EQ(builder::ReadFile(last()), "the good one");
}

TEST_F(EndOfASession, PendingRowsOfTheProtocolAndTheSessionAreWritten) {
    have_a_substance();
    {
        const auto now = session.change();
        ASSERT_TRUE(now->protocol.add({}, {}));
        now->protocol.pending = true;
    }
    EXPECT_TRUE(session::end_session(session));
    EXPECT_FALSE(session->protocol.pending);
    EXPECT_EQ(protocols(), 1);
    EXPECT_TRUE(std::filesystem::exists(last()));
}

TEST_F(EndOfASession, AnEmptyProtocolFileIsDeletedAndOneWithDataStays) {
    const std::filesystem::path file = folder() / session->protocol.file;
    write(file, "");
    EXPECT_TRUE(session::end_session(session));
    EXPECT_FALSE(std::filesystem::exists(file));
    write(file, "x");
    EXPECT_TRUE(session::end_session(session));
    EXPECT_TRUE(std::filesystem::exists(file));
}

TEST_F(EndOfASession, AProtocolFileWithAFolderIsFoundThere) {
    std::filesystem::create_directory(folder() / "sub");
    const std::filesystem::path file = folder() / "sub" / "P.CSV";
    write(file, "");
    session.change()->protocol.file = file.string();
    EXPECT_TRUE(session::end_session(session));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(EndOfASession, TheSessionOfAnotherRunThatEndedMeanwhileIsKept) {
    have_a_substance();
    write(last(), "of another run");
    EXPECT_TRUE(session::end_session(session));
    EXPECT_EQ(builder::ReadFile(folder() / "QuorLastSession_1.QCF"), "of another run");
    EXPECT_NE(builder::ReadFile(last()), "of another run");

    EXPECT_TRUE(session::end_session(session));
    EXPECT_FALSE(std::filesystem::exists(folder() / "QuorLastSession_2.QCF"))
        << "the file is this run's own now";
}

class Tips : public SessionTest {
  protected:
    void write(const std::string& name, const std::string& content) {
        std::ofstream(folder() / name, std::ios::binary) << content;
    }
};

TEST_F(Tips, StartAtARandomLineAndWrapAround) {
    write("QUORTIPS_E.TXT", "one\r\ntwo\r\nthree\r\n");
    session::Tips tips = session::load_tips(session, 4);
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
    EXPECT_EQ(session::current_tip(session::load_tips(session, 0)), "grüß");
}

TEST_F(Tips, AMissingFileIsToldAndLeavesNothing) {
    session::Tips tips = session::load_tips(session, 3);
    EXPECT_TRUE(tips.missing);
    ASSERT_EQ(user.messages.size(), 1U);
    EXPECT_EQ(user.lastText(), "The file QUORTIPS_E.TXTnot found in the QUOR directory ");
    session::next_tip(tips);
    EXPECT_EQ(session::current_tip(tips), "");
}

TEST_F(Tips, AnEmptyFileShowsNothing) {
    write("QUORTIPS_E.TXT", "\r\n\r\n");
    session::Tips tips = session::load_tips(session, 7);
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

TEST_F(EndOfASession, ASessionThatCannotBeSavedIsToldAndSavedElsewhere) {
    have_a_substance();
    std::filesystem::create_directory(last());
    user.fileAnswers = {(folder() / "MINE").string()};
    EXPECT_TRUE(session::end_session(session));
    EXPECT_EQ(user.lastText(),
              "The file QuorLastSession.QCF could not be written (it is a folder).\n"
              "The next start will not find this session.\n\n"
              "Save it as a project in another place?");
    EXPECT_TRUE(std::filesystem::is_regular_file(folder() / "MINE.QCF"));
}

TEST_F(EndOfASession, EscapeOnTheQuestionAboutAFailedSaveKeepsTheProgramOpen) {
    have_a_substance();
    std::filesystem::create_directory(last());
    user.answers = {dialogs::Answer::Cancel};
    EXPECT_FALSE(session::end_session(session));
    user.answers = {dialogs::Answer::Yes};
    user.fileAnswers = {std::nullopt};
    EXPECT_FALSE(session::end_session(session)) << "nor does a cancelled choice of a place end it";
    user.answers = {dialogs::Answer::No};
    EXPECT_TRUE(session::end_session(session));
}

}  // namespace
