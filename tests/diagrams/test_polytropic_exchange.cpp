#include "common/numbers.h"
#include "diagrams/curve.h"
#include "diagrams/polytropic_exchange.h"
#include "legacy/wrappers.h"
#include "models/caloric.h"

#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "common/text.h"
#include "diagrams/active_fluid.h"
#include "diagrams/process_line.h"
#include "models/state_solver.h"

using namespace quor;

namespace {

using diagrams::PolytropicCode;
using legacy::the_polytropicPoints;
using legacy::the_processLine;
using legacy::the_session;
namespace fs = std::filesystem;

class PolytropicExchange : public ActiveFluid {
  protected:
    PolytropicExchange() : saved_(diagrams::polytropic_runner()) {
        activate("Propane");
        the_processLine.T1 = 300;
        the_processLine.p1 = 500;
        the_processLine.RangeStart = 500;
        the_processLine.RangeEnd = 900;
        the_processLine.BaseDiagramType = 107;
        the_processLine.PolytropicExponent = 1.3;
        the_processLine.Kappa = 1.13;
        diagrams::polytropic_runner().limit = std::chrono::milliseconds(200);
        diagrams::polytropic_runner().pass = [this] {
            ++passes;
            return true;
        };
    }
    ~PolytropicExchange() override { diagrams::polytropic_runner() = saved_; }

    void bring_program() { std::ofstream(folder() / diagrams::kPolytropicProgram) << "a program"; }
    /// A stand-in that answers at once.
    void answer_with(const std::string& text) {
        diagrams::polytropic_runner().start = [this, text](const std::string& program,
                                                           const std::string& where) {
            started = program;
            std::ofstream(fs::path(where) / "FROM_DAL.DAT", std::ios::binary) << text;
            std::ofstream(fs::path(where) / "WRITEEND.END");
            return true;
        };
    }
    static std::string answer(const std::vector<std::string>& points) {
        std::string text = "1.0 2.0 " + std::to_string(points.size()) + "\r\n";
        for (int i = 1; i <= 22; ++i) text += std::to_string(i) + ".5\r\n";
        for (const std::string& point : points) text += point + "\r\n";
        return text;
    }
    static std::vector<std::string> lines_of(const std::string& text) {
        std::vector<std::string> lines = text::Lines(text);
        return lines;
    }

    std::string started;
    int passes = 0;

  private:
    diagrams::PolytropicRunner saved_;
};

TEST_F(PolytropicExchange, AnAnswerBecomesThePointsOfTheProcess) {
    bring_program();
    answer_with(answer({"300;500;1.5;2.5", "310;600;1.6;2.6", "320;700;1.7;2.7"}));
    EXPECT_EQ(diagrams::run_polytrope(), PolytropicCode::kDone);
    ASSERT_EQ(the_polytropicPoints.size(), 3U);
    EXPECT_EQ(the_polytropicPoints[1].T, 310);
    EXPECT_EQ(the_polytropicPoints[1].p, 600);
    EXPECT_EQ(the_polytropicPoints[2].columns, (std::vector<double>{1.7, 2.7}));
    EXPECT_EQ(the_processLine.PolytropicValues[0], 1.5);
    EXPECT_EQ(the_processLine.PolytropicValues[21], 22.5);
    EXPECT_EQ(fs::path(started).filename(), "POLYTROPEN_1.EXE");
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false})) << "busy meanwhile";
}

TEST_F(PolytropicExchange, AMissingProgramIsToldAndNoFileIsTouched) {
    std::ofstream(folder() / "FROM_DAL.DAT") << "old";
    EXPECT_EQ(diagrams::run_polytrope(), PolytropicCode::kMissingProgram);
    EXPECT_EQ(static_cast<int>(PolytropicCode::kMissingProgram), 10);
    EXPECT_EQ(user.lastText(), "File POLYTROPEN_1.EXE not found in in QUOR directory");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_TRUE(fs::exists(folder() / "FROM_DAL.DAT"));
    EXPECT_FALSE(fs::exists(folder() / "TO_DAL.DAT"));
}

TEST_F(PolytropicExchange, NoAnswerWithinTheWaitIsATimeOut) {
    bring_program();
    diagrams::polytropic_runner().limit = std::chrono::milliseconds(20);
    diagrams::polytropic_runner().start = [](const std::string&, const std::string&) {
        return true;
    };
    EXPECT_EQ(diagrams::run_polytrope(), PolytropicCode::kTimeOut);
    EXPECT_GT(passes, 0);
    EXPECT_TRUE(the_polytropicPoints.empty());
    EXPECT_EQ(user.pointer.back(), false) << "the pointer is itself again";
}

TEST_F(PolytropicExchange, TheWaitCanBeGivenUp) {
    bring_program();
    diagrams::polytropic_runner().start = [](const std::string&, const std::string&) {
        return true;
    };
    diagrams::polytropic_runner().pass = [this] { return ++passes < 3; };
    EXPECT_EQ(diagrams::run_polytrope(), PolytropicCode::kGivenUp);
    EXPECT_EQ(passes, 3);
}

TEST_F(PolytropicExchange, AProgramThatCannotBeStartedIsTold) {
    bring_program();
    diagrams::polytropic_runner().start = [](const std::string&, const std::string&) {
        return false;
    };
    EXPECT_EQ(diagrams::run_polytrope(), PolytropicCode::kNotStarted);
}

TEST_F(PolytropicExchange, ARealChildProcessAnswersThroughTheFiles) {
    const fs::path program = folder() / diagrams::kPolytropicProgram;
    std::ofstream(program) << "#!/bin/sh\n"
                              "test -f TO_DAL.DAT || exit 1\n"
                              "cp prepared.txt FROM_DAL.DAT\n"
                              ": > WRITEEND.END\n";
    std::ofstream(folder() / "prepared.txt", std::ios::binary) << answer({"300;500", "305;550"});
    fs::permissions(program, fs::perms::owner_all);
    diagrams::PolytropicRunner real;
    diagrams::polytropic_runner().pass = [] {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return true;
    };
    diagrams::polytropic_runner().limit = std::chrono::seconds(20);
    EXPECT_EQ(diagrams::run_polytrope(), PolytropicCode::kDone);
    EXPECT_EQ(the_polytropicPoints.size(), 2U);
}

TEST_F(PolytropicExchange, FilesOfAnEarlierRunDoNotCount) {
    bring_program();
    std::ofstream(folder() / "FROM_DAL.DAT") << answer({"1;2"});
    std::ofstream(folder() / "WRITEEND.END");
    diagrams::polytropic_runner().limit = std::chrono::milliseconds(5);
    diagrams::polytropic_runner().start = [](const std::string&, const std::string&) {
        return true;
    };
    EXPECT_EQ(diagrams::run_polytrope(), PolytropicCode::kTimeOut);
}

TEST_F(PolytropicExchange, AValueAboveTheLimitIsMissing) {
    ASSERT_TRUE(diagrams::take_polytropic_answer(answer({"300;500;1E+38;2", "310;1.0E+99;;4"})));
    EXPECT_TRUE(std::isnan(the_polytropicPoints[0].columns[0]));
    EXPECT_EQ(the_polytropicPoints[0].columns[1], 2);
    EXPECT_TRUE(std::isnan(the_polytropicPoints[1].p));
    EXPECT_TRUE(std::isnan(the_polytropicPoints[1].columns[0])) << "so is an empty field";
    // 1E+37 itself is a value.
    ASSERT_TRUE(diagrams::take_polytropic_answer(answer({"300;500;1E+37"})));
    EXPECT_EQ(the_polytropicPoints[0].columns[0], 1e37);
}

TEST_F(PolytropicExchange, TheSeparatorAndTheDecimalCommaFollowTheSession) {
    ASSERT_TRUE(diagrams::take_polytropic_answer(answer({"300,5;500,25"})));
    EXPECT_EQ(the_polytropicPoints[0].T, 300.5);
    the_session.CsvSeparator = ',';
    ASSERT_TRUE(diagrams::take_polytropic_answer(answer({"300.5,500.25"})));
    EXPECT_EQ(the_polytropicPoints[0].p, 500.25);
}

TEST_F(PolytropicExchange, AGarbledAnswerChangesNothing) {
    ASSERT_TRUE(diagrams::take_polytropic_answer(answer({"300;500"})));
    const auto values = the_processLine.PolytropicValues;
    const std::string good = answer({"300;500", "310;600"});
    for (const std::string& bad :
         {std::string(), std::string("nonsense"), good.substr(0, good.size() / 2), answer({"300"}),
          answer({"a;b"}), "1 2 99999999\r\n" + good, good.substr(0, good.size() - 10),
          std::string(1000, '\0')}) {
        EXPECT_FALSE(diagrams::take_polytropic_answer(bad)) << bad.substr(0, 40);
        EXPECT_EQ(the_polytropicPoints.size(), 1U);
        EXPECT_EQ(the_processLine.PolytropicValues, values);
    }
    bring_program();
    answer_with("nonsense");
    EXPECT_EQ(diagrams::run_polytrope(), PolytropicCode::kUnreadable);
}

TEST_F(PolytropicExchange, AnyMutilatedAnswerIsReadOrRefused) {
    std::mt19937 random(17);
    const std::string good = answer({"300;500;1;2", "310;600;3;4", "320;700;5;6"});
    int taken = 0;
    for (int round = 0; round < 3000; ++round) {
        std::string text = good;
        for (int k = 0; k < 4; ++k)
            text[random() % text.size()] = static_cast<char>(random() % 256);
        text.resize(random() % (text.size() + 1));
        taken += diagrams::take_polytropic_answer(text) ? 1 : 0;
    }
    EXPECT_LT(taken, 3000);
}

TEST_F(PolytropicExchange, TheRequestHoldsOneValueALineInItsOrder) {
    set_units(3, 1);
    const auto lines = lines_of(diagrams::polytropic_request_text());
    ASSERT_EQ(lines.size(), 49U);
    EXPECT_EQ(lines[0], "1");
    EXPECT_EQ(lines[1], "Propane");
    EXPECT_EQ(lines[3], "0") << "specific units";
    EXPECT_EQ(lines[7], "51") << "the h-s diagram, isothermal";
    EXPECT_EQ(lines[8], "300") << "points per curve";
    EXPECT_EQ(lines[10], "4.4097000E+01") << "kg/kmol";
    EXPECT_EQ(lines[11], "3.0000000E+02");
    EXPECT_EQ(lines[12], "5.0000000E+02");
    EXPECT_EQ(lines[13], "5.0000000E+02");
    EXPECT_EQ(lines[14], "9.0000000E+02");
    const double v = models::SolveStateTP(300, 500).vV;
    EXPECT_EQ(lines[16], numbers::format_point(v, "0.0000000E+00"));
    EXPECT_EQ(lines[15], numbers::format_point(v * the_session.VolumeFactor, "0.0000000E+00"));
    for (const std::size_t zero : {17, 18, 19, 22}) EXPECT_EQ(lines[zero], "0.0000000E+00");
    EXPECT_EQ(lines[23], "1.3000000E+00");
    EXPECT_EQ(lines[24], "1.1300000E+00");
    const models::StateValues z = models::StateFunctions(300, 500, v);
    EXPECT_EQ(lines[29], numbers::format_point(z.h * the_session.CaloricFactor, "0.0000000E+00"));
    EXPECT_EQ(lines[38], numbers::format_point(z.w, "0.0000000E+00")) << "speed of sound";
    EXPECT_EQ(lines[39],
              numbers::format_point(500 * std::exp(z.table.residual[0]), "0.0000000E+00"))
        << "fugacity";
    set_units(0, 0);
    EXPECT_EQ(lines_of(diagrams::polytropic_request_text())[3], "1");
    numbers::set_decimal_mark(',');
    EXPECT_EQ(lines_of(diagrams::polytropic_request_text())[11], "3.0000000E+02")
        << "a point whatever the locale";
}

TEST_F(PolytropicExchange, TheLineIsDrawnFromTheAnswer) {
    the_processLine.Kind = 6;
    the_processLine.BaseDiagramType = 5;
    ASSERT_TRUE(diagrams::take_polytropic_answer(answer({"300;500", "1E+38;550", "320;700"})));
    diagrams::DiagramRequest request;
    request.DiagramType = 5;
    request.xMin = request.yMin = 0;
    request.xMax = request.yMax = 1e6F;
    diagrams::CurvePointArray points;
    diagrams::CurveResult result;
    diagrams::with_process_line(
        request, [&] { result = diagrams::calc_curve(request, points, 300, 500, 1); });
    EXPECT_EQ(result.status, 0);
    ASSERT_EQ(points.size(), 3U) << "a point without T is left out";
    EXPECT_EQ(points[1].x, 300);
    EXPECT_EQ(points[2].y, 700);
}

}  // namespace
