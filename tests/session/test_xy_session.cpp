#include "datafiles/xy_points.h"
#include "session/xy_session.h"
#include "support/database_builder.h"
#include "support/session_test.h"

using namespace quor;

namespace {

using datafiles::FitPoint;
using dialogs::Answer;

class XySession : public SessionTest {
  protected:
    std::string path(const std::string& name) { return (folder() / name).string(); }
    std::vector<float> xs() const {
        std::vector<float> list;
        for (const FitPoint& p : session->xy.points) list.push_back(p.x);
        return list;
    }
};

TEST_F(XySession, LoadingReplacesTheListAndTellsTheFile) {
    session.change()->xy.points = {{9, 9, 0}};
    builder::WriteFile(folder() / "A.XY", "comment\r\n1;2\r\n3;4\r\n");
    user.fileAnswers.push_back("A.XY");
    EXPECT_EQ(session::load_xy(session), path("A.XY"));
    EXPECT_EQ(session->xy.comment, "comment");
    EXPECT_EQ(xs(), (std::vector<float>{1, 3}));
    EXPECT_EQ(user.files[0].title, "Load (Curve)Points");
    EXPECT_EQ(user.files[0].filter, "x-y Data (*.XY)|*.XY|(*.LRG)|*LRG");
    EXPECT_EQ(user.files[0].name, "*.XY");
    EXPECT_EQ(session->folder_xy, (folder() / "").string());
}

TEST_F(XySession, AFileWithAnotherDelimiterIsNoPerfectLineAtZero) {
    session.change()->csv_separator = ';';
    builder::WriteFile(folder() / "A.XY", "c\r\n300,10\r\n310,12\r\n320,15\r\n");
    ASSERT_TRUE(session::load_xy(session, "A.XY"));
    ASSERT_EQ(session->xy.points.size(), 3U);
    EXPECT_TRUE(datafiles::active_points(session->xy.points).empty());
    EXPECT_EQ(user.lastText(),
              "3 lines do not hold a number in each of their cells and are inactive.\n"
              "Lines 1, 2, 3 of the table.");
    std::string many = "c\r\n";
    for (int i = 0; i < 100; ++i) many += "x;1\r\n";
    builder::WriteFile(folder() / "B.XY", many);
    ASSERT_TRUE(session::load_xy(session, "B.XY"));
    EXPECT_TRUE(user.lastText().starts_with("100 lines do not"));
    EXPECT_TRUE(user.lastText().ends_with("19, 20 and 80 more of the table.")) << user.lastText();
}

TEST_F(XySession, AMissingFileIsToldAndTheListStays) {
    session.change()->xy.points = {{9, 9, 0}};
    EXPECT_EQ(session::load_xy(session, "MISSING.XY"), std::nullopt);
    EXPECT_EQ(user.lastText(), "The file MISSING.XY was not found.");
    user.fileAnswers.push_back(std::nullopt);
    EXPECT_EQ(session::load_xy(session), std::nullopt);
    EXPECT_EQ(session->xy.points.size(), 1U);
}

TEST_F(XySession, SavingWritesTheActivePointsWithTheSessionsSeparator) {
    session.change()->xy.points = {{1, 2, 0}, {3, 4, -1}};
    session.change()->xy.comment = "c";
    session.change()->csv_separator = '\t';
    user.fileAnswers.push_back("B");
    EXPECT_TRUE(session::save_xy(session));
    EXPECT_EQ(builder::ReadFile(folder() / "B.XY"), "c\r\n.1000000E+01\t.2000000E+01\r\n");
    EXPECT_EQ(user.files[0].title, "(Curve)Points Save as ... ");
    EXPECT_EQ(user.files[0].default_extension, ".XY");
    EXPECT_EQ(user.files[0].filter, "x-y Data (*.XY)|*.XY");
    EXPECT_TRUE(user.files[0].overwrite_prompt);
}

TEST_F(XySession, ChangedDataAreAskedAbout) {
    EXPECT_TRUE(session::may_leave_xy(session));
    EXPECT_TRUE(user.messages.empty());
    session.change()->xy_unsaved = true;
    user.answers = {Answer::No, Answer::Cancel, Answer::Yes};
    EXPECT_TRUE(session::may_leave_xy(session));
    EXPECT_FALSE(session::may_leave_xy(session));
    EXPECT_EQ(user.lastText(), "Data not yet saved.\nSave now?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    EXPECT_FALSE(session::may_leave_xy(session)) << "no name was given";
}

TEST_F(XySession, ACurveIsSavedWithItsCount) {
    const std::vector<FitPoint> curve{{1, 10, 0}, {2, 20, 0}};
    user.fileAnswers = {path("C"), path("C")};
    EXPECT_TRUE(session::save_curve_as_xy(session, curve));
    EXPECT_EQ(builder::ReadFile(folder() / "C.XY"),
              "2 curve points\r\n.1000000E+01;.1000000E+02\r\n.2000000E+01;.2000000E+02\r\n");
    EXPECT_EQ(user.files[0].title, "Save curve as *.XY");
    EXPECT_EQ(user.files[0].filter, "XY text file (*.XY)|*.XY");
    EXPECT_EQ(user.files[0].default_extension, ".XY");
    user.answers = {Answer::No};
    EXPECT_FALSE(session::save_curve_as_xy(session, curve));
    EXPECT_EQ(user.lastText(), "such a file is already existing\nOverwright?");
    EXPECT_EQ(user.lastTitle(), "WARNING");
    user.fileAnswers = {path("missing/C.XY")};
    EXPECT_FALSE(session::save_curve_as_xy(session, curve));
    EXPECT_EQ(user.lastTitle(), "ERROR");
}

TEST_F(XySession, ADrawingNeedsEnoughActivePoints) {
    const std::vector<FitPoint> none{{1, 1, -1}}, one{{1, 1, 0}, {2, 2, -1}},
        two{{1, 1, 0}, {2, 2, 0}};
    EXPECT_TRUE(session::enough_active_points(one, true));
    EXPECT_TRUE(session::enough_active_points(two, false));
    EXPECT_TRUE(user.messages.empty());
    EXPECT_FALSE(session::enough_active_points(none, true));
    EXPECT_EQ(user.lastText(), "at least one active point!");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_FALSE(session::enough_active_points(one, false));
    EXPECT_EQ(user.lastText(), "at least two active points!");
    EXPECT_EQ(datafiles::active_points(one).size(), 1U);
}

TEST_F(XySession, ACurveWithoutPointsIsSavedAsSuch) {
    user.fileAnswers = {path("D")};
    EXPECT_TRUE(session::save_curve_as_xy(session, {}));
    EXPECT_EQ(builder::ReadFile(folder() / "D.XY"), "0 curve points\r\n");
}

}  // namespace
