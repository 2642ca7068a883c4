#include "common/numbers.h"
#include "diagrams/curve.h"
#include "diagrams/polytropic_exchange.h"
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

using diagrams::PolytropicFailure;
namespace fs = std::filesystem;

class PolytropicExchange : public ActiveFluid {
  protected:
    PolytropicExchange() {
        activate("Propane");
        process.T1 = 300;
        process.p1 = 500;
        process.range_start = 500;
        process.range_end = 900;
        diagram = &diagrams::diagram_of(107);
        process.polytropic_exponent = 1.3;
        process.kappa = 1.13;
        runner.patience.limit = std::chrono::milliseconds(200);
        runner.patience.pass = [this] {
            ++passes;
            return true;
        };
    }

    void bring_program() { std::ofstream(folder() / diagrams::kPolytropicProgram) << "a program"; }
    /// A stand-in that answers at once.
    void answer_with(const std::string& text) {
        runner.start = [this, text](const std::string& program, const std::string& where, auto&) {
            started = program;
            std::ofstream(fs::path(where) / "FROM_DAL.DAT", std::ios::binary) << text;
            std::ofstream(fs::path(where) / "WRITEEND.END");
            return true;
        };
    }
    std::string answer(const std::vector<std::string>& points) {
        std::string text = "1.0 2.0 " + std::to_string(points.size()) + "\r\n";
        for (int i = 1; i <= 22; ++i) text += std::to_string(i) + ".5\r\n";
        for (const std::string& point : points) text += point + "\r\n";
        return text;
    }
    std::vector<std::string> lines_of(const std::string& text) {
        std::vector<std::string> lines = text::lines(text);
        return lines;
    }

    diagrams::PolytropicTask task() const { return {diagram, process, options, csv_separator}; }
    /// Takes the line of a run, or tells why there is none.
    std::optional<PolytropicFailure> run() {
        const fs::path program = folder() / diagrams::kPolytropicProgram;
        auto answer = diagrams::run_polytrope(
            basis(), task(), {fs::exists(program) ? program : fs::path(), folder()}, runner);
        if (!answer) return answer.failure();
        process = std::move(*answer);
        return std::nullopt;
    }
    bool take(const std::string& text) {
        const auto taken = diagrams::take_polytropic_answer(text, process, csv_separator);
        if (taken) process = *taken;
        return taken.has_value();
    }
    std::string request_text() const { return diagrams::polytropic_request_text(basis(), task()); }

    diagrams::PolytropicRunner runner = diagrams::real_runner();
    const diagrams::Diagram* diagram = nullptr;
    char csv_separator = ';';
    std::string started;
    int passes = 0;
};

TEST_F(PolytropicExchange, AnAnswerBecomesThePointsOfTheProcess) {
    bring_program();
    answer_with(answer({"300;500;1.5;2.5", "310;600;1.6;2.6", "320;700;1.7;2.7"}));
    EXPECT_EQ(run(), std::nullopt);
    ASSERT_EQ(process.polytropic_points.size(), 3U);
    EXPECT_EQ(process.polytropic_points[1].T, 310);
    EXPECT_EQ(process.polytropic_points[1].p, 600);
    EXPECT_EQ(process.polytropic_points[2].columns, (std::vector<double>{1.7, 2.7}));
    EXPECT_EQ(process.polytropic_values[0], 1.5);
    EXPECT_EQ(process.polytropic_values[21], 22.5);
    EXPECT_EQ(fs::path(started).filename(), "POLYTROPEN_1.EXE");
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false})) << "busy meanwhile";
}

TEST_F(PolytropicExchange, AMissingProgramIsToldAndNoFileIsTouched) {
    std::ofstream(folder() / "FROM_DAL.DAT") << "old";
    EXPECT_EQ(run(), PolytropicFailure::missingProgram);
    EXPECT_EQ(static_cast<int>(PolytropicFailure::missingProgram), 10);
    EXPECT_EQ(user.lastText(), "File POLYTROPEN_1.EXE not found in in QUOR directory");
    EXPECT_EQ(user.lastTitle(), "Execution not possible");
    EXPECT_TRUE(fs::exists(folder() / "FROM_DAL.DAT"));
    EXPECT_FALSE(fs::exists(folder() / "TO_DAL.DAT"));
}

TEST_F(PolytropicExchange, NoAnswerWithinTheWaitIsATimeOut) {
    bring_program();
    runner.patience.limit = std::chrono::milliseconds(20);
    runner.start = [](const std::string&, const std::string&, auto&) { return true; };
    EXPECT_EQ(run(), PolytropicFailure::timeOut);
    EXPECT_GT(passes, 0);
    EXPECT_TRUE(process.polytropic_points.empty());
    EXPECT_EQ(user.pointer.back(), false) << "the pointer is itself again";
}

TEST_F(PolytropicExchange, TheWaitCanBeGivenUp) {
    bring_program();
    runner.start = [](const std::string&, const std::string&, auto&) { return true; };
    runner.patience.pass = [this] { return ++passes < 3; };
    EXPECT_EQ(run(), PolytropicFailure::givenUp);
    EXPECT_EQ(passes, 3);
}

TEST_F(PolytropicExchange, AProgramThatCannotBeStartedIsTold) {
    bring_program();
    runner.start = [](const std::string&, const std::string&, auto&) { return false; };
    EXPECT_EQ(run(), PolytropicFailure::notStarted);
}

TEST_F(PolytropicExchange, ARealChildProcessAnswersThroughTheFiles) {
    const fs::path program = folder() / diagrams::kPolytropicProgram;
    std::ofstream(program) << "#!/bin/sh\n"
                              "test -f TO_DAL.DAT || exit 1\n"
                              "cp ../prepared.txt FROM_DAL.DAT\n"
                              ": > WRITEEND.END\n";
    std::ofstream(folder() / "prepared.txt", std::ios::binary) << answer({"300;500", "305;550"});
    fs::permissions(program, fs::perms::owner_all);
    runner.patience.pass = [] {
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return true;
    };
    runner.patience.limit = std::chrono::seconds(20);
    EXPECT_EQ(run(), std::nullopt);
    EXPECT_EQ(process.polytropic_points.size(), 2U);
    fs::remove(program);
    fs::remove(folder() / "prepared.txt");
    EXPECT_TRUE(fs::is_empty(folder())) << "the files of the run are gone";
}

TEST_F(PolytropicExchange, FilesOfAnEarlierRunDoNotCount) {
    bring_program();
    std::ofstream(folder() / "FROM_DAL.DAT") << answer({"1;2"});
    std::ofstream(folder() / "WRITEEND.END");
    runner.patience.limit = std::chrono::milliseconds(5);
    runner.start = [](const std::string&, const std::string&, auto&) { return true; };
    EXPECT_EQ(run(), PolytropicFailure::timeOut);
}

TEST_F(PolytropicExchange, AValueAboveTheLimitIsMissing) {
    ASSERT_TRUE(take(answer({"300;500;1E+38;2", "310;1.0E+99;;4"})));
    EXPECT_TRUE(std::isnan(process.polytropic_points[0].columns[0]));
    EXPECT_EQ(process.polytropic_points[0].columns[1], 2);
    EXPECT_TRUE(std::isnan(process.polytropic_points[1].p));
    EXPECT_TRUE(std::isnan(process.polytropic_points[1].columns[0])) << "so is an empty field";
    // 1E+37 itself is a value.
    ASSERT_TRUE(take(answer({"300;500;1E+37"})));
    EXPECT_EQ(process.polytropic_points[0].columns[0], 1e37);
}

TEST_F(PolytropicExchange, TheSeparatorAndTheDecimalCommaFollowTheSession) {
    ASSERT_TRUE(take(answer({"300,5;500,25"})));
    EXPECT_EQ(process.polytropic_points[0].T, 300.5);
    csv_separator = ',';
    ASSERT_TRUE(take(answer({"300.5,500.25"})));
    EXPECT_EQ(process.polytropic_points[0].p, 500.25);
}

TEST_F(PolytropicExchange, AGarbledAnswerChangesNothing) {
    ASSERT_TRUE(take(answer({"300;500"})));
    const auto values = process.polytropic_values;
    const std::string good = answer({"300;500", "310;600"});
    for (const std::string& bad :
         {std::string(), std::string("nonsense"), good.substr(0, good.size() / 2), answer({"300"}),
          answer({"a;b"}), "1 2 99999999\r\n" + good, good.substr(0, good.size() - 10),
          std::string(1000, '\0')}) {
        EXPECT_FALSE(take(bad)) << bad.substr(0, 40);
        EXPECT_EQ(process.polytropic_points.size(), 1U);
        EXPECT_EQ(process.polytropic_values, values);
    }
    bring_program();
    answer_with("nonsense");
    EXPECT_EQ(run(), PolytropicFailure::unreadable);
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
        taken += take(text) ? 1 : 0;
    }
    EXPECT_LT(taken, 3000);
}

TEST_F(PolytropicExchange, TheRequestHoldsOneValueALineInItsOrder) {
    set_units(3, 1);
    const auto lines = lines_of(request_text());
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
    const double v = *solve(300, 500)->vV;
    EXPECT_EQ(lines[16], numbers::format_point(v, "0.0000000E+00"));
    EXPECT_EQ(lines[15], numbers::format_point(v * basis().v_factor(), "0.0000000E+00"));
    for (const std::size_t zero : {17, 18, 19, 22}) EXPECT_EQ(lines[zero], "0.0000000E+00");
    EXPECT_EQ(lines[23], "1.3000000E+00");
    EXPECT_EQ(lines[24], "1.1300000E+00");
    const auto z = functions(300, 500, v);
    EXPECT_EQ(lines[29], numbers::format_point(z->h * basis().units.caloric, "0.0000000E+00"));
    EXPECT_EQ(lines[38], numbers::format_point(z->w, "0.0000000E+00")) << "speed of sound";
    EXPECT_EQ(lines[39],
              numbers::format_point(500 * std::exp(z->table.residual[0]), "0.0000000E+00"))
        << "fugacity";
    set_units(0, 0);
    EXPECT_EQ(lines_of(request_text())[3], "1");
    numbers::set_decimal_mark(',');
    EXPECT_EQ(lines_of(request_text())[11], "3.0000000E+02") << "a point whatever the locale";
}

TEST_F(PolytropicExchange, TheLineIsDrawnFromTheAnswer) {
    process.kind = diagrams::ProcessKind::polytropic;
    ASSERT_TRUE(take(answer({"300;500", "1E+38;550", "320;700"})));
    diagrams::CurveRequest wanted =
        diagrams::process_request(diagrams::diagram_of(5), process, {300, 500, 1});
    wanted.window = {0, 1e6F, 0, 1e6F};
    const diagrams::Curve drawn = diagrams::curve(basis(), wanted);
    EXPECT_EQ(drawn.status, diagrams::CurveStatus::complete);
    ASSERT_EQ(drawn.points.size(), 2U) << "a point without T is left out";
    EXPECT_EQ(drawn.points[0].x, 300);
    EXPECT_EQ(drawn.points[1].y, 700);
}

}  // namespace
