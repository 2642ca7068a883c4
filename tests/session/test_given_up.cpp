#include <chrono>
#include <fstream>

#include "common/progress.h"
#include "datafiles/xy_file.h"
#include "session/calculations.h"
#include "session/xy_session.h"
#include "support/session_test.h"

using namespace quor;

namespace {

/// A user who gives up every work that lasts.
class GivenUp : public SessionTest {
  protected:
    GivenUp() {
        progress::current() = [this](const std::string& what, double done) {
            shown_.push_back(what);
            last_ = done;
            return false;
        };
        // However fast the machine is.
        progress::moment() = std::chrono::milliseconds(0);
    }
    ~GivenUp() override {
        progress::current() = [](const std::string&, double) { return true; };
        progress::moment() = usual_;
    }

    /// More than are read between two looks at the clock.
    static constexpr int kLines = 10000;
    const std::chrono::milliseconds usual_ = progress::moment();

    std::vector<std::string> shown_;
    double last_ = 0;
};

TEST_F(GivenUp, ReadingPointsLeavesTheListAsItWas) {
    const std::string file = (folder() / "long.XY").string();
    {
        std::ofstream out(file, std::ios::binary);
        out << "comment\r\n";
        for (int i = 0; i < kLines; ++i) out << "1;2\r\n";
    }
    session.change()->xy.points = {{1, 2, 0}};
    const datafiles::XyData before = session->xy;
    EXPECT_EQ(session::load_xy(session, file), std::nullopt);
    EXPECT_EQ(session->xy, before);
    ASSERT_EQ(shown_.size(), 2U) << "once while it lasts, once at its end";
    EXPECT_EQ(shown_.front(), "Reading points");
    EXPECT_EQ(last_, 1);
}

TEST_F(GivenUp, SavingPointsWritesNothing) {
    datafiles::XyData data;
    data.points.assign(kLines, {1, 2, 0});
    user.fileAnswers = {(folder() / "none.XY").string()};
    EXPECT_FALSE(session::save_xy(session, data));
    EXPECT_FALSE(std::filesystem::exists(folder() / "none.XY"));
    EXPECT_EQ(shown_.front(), "Writing points");
}

TEST_F(GivenUp, AListOfResultsIsNeitherPrintedNorWritten) {
    {
        const auto now = session.change();
        now->measured.points.assign(10, {.T = 300, .p = 500});
        now->calculation.task = calculation::Task::state;
        now->batch_mode = true;
    }
    EXPECT_FALSE(session::print_result(session, "T, p", false));
    EXPECT_TRUE(user.prints.empty());
    user.fileAnswers = {(folder() / "none.LST").string()};
    EXPECT_FALSE(session::save_result_list(session, "T, p", false));
    EXPECT_FALSE(std::filesystem::exists(folder() / "none.LST"));
    EXPECT_EQ(shown_.front(), "Calculating");
}

TEST_F(GivenUp, AWorkOfAMomentIsNotShown) {
    progress::moment() = usual_;
    datafiles::XyData data;
    data.points.assign(10, {1, 2, 0});
    user.fileAnswers = {(folder() / "short.XY").string()};
    EXPECT_TRUE(session::save_xy(session, data));
    EXPECT_TRUE(shown_.empty());
}

}  // namespace
