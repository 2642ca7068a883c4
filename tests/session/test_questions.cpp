#include "session/questions.h"
#include "support/session_test.h"

using namespace quor;

namespace {

class Questions : public SessionTest {};

TEST_F(Questions, RemovalIsAskedAbout) {
    user.answers = {dialogs::Answer::Yes, dialogs::Answer::No};
    EXPECT_TRUE(session::confirm_removal(3, 3));
    EXPECT_EQ(user.lastText(), "line 3 really remove?");
    EXPECT_FALSE(session::confirm_removal(3, 7));
    EXPECT_EQ(user.lastText(), "lines 3 till 7 really remove?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_FALSE(session::confirm_removal(0, 0));
    EXPECT_EQ(user.lastText(), "No marked item!");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
}

}  // namespace
