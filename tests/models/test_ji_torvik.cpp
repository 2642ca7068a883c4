#include "models/parameter_program.h"

#include <array>
#include <chrono>
#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

#include "common/text.h"
#include "models/cubic_eos.h"
#include "support/codes.h"
#include "support/fluids.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;
using models::Eos;

/// False also for a program whose end nobody has asked for yet.
bool is_running(int process) {
    std::string number, name, state;
    std::ifstream("/proc/" + std::to_string(process) + "/stat") >> number >> name >> state;
    return !state.empty() && state != "Z";
}

class JiTorvikExchange : public testing::Test {
  protected:
    models::SubstanceRecord s = fluids::ReferencePropane();
    models::VapourPressureEquation equation = models::VapourPressureEquation::wagner;
    std::chrono::milliseconds wait{20000};
    bool installed = false;

    fs::path folder() const { return folder_.path(); }
    Result<models::JiTorvikParameters> ask(Eos form) const {
        return models::ask_parameter_program(
            {installed ? folder() / "djipar.exe" : fs::path(), folder(), {wait}}, s, equation,
            form);
    }
    /// Installs a stand-in for the parameter program: a shell script.
    void install(const std::string& script) {
        const fs::path program = folder() / "djipar.exe";
        std::ofstream(program) << "#!/bin/sh\n" << script << "\n";
        fs::permissions(program, fs::perms::owner_all);
        installed = true;
    }
    std::vector<std::string> request() const {
        std::ifstream in(folder() / "request", std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text::lines(text.str());
    }

  private:
    TemporaryFolder folder_;
};

TEST_F(JiTorvikExchange, FormOneGetsFourNumbers) {
    install("printf 'Propane 1.0 0.9 0.55\\n0.35, 0.281' > PARAM_JI.DAT");
    const Result<models::JiTorvikParameters> jt = ask(Eos::jiTorvik1);
    ASSERT_TRUE(jt);
    EXPECT_EQ(jt->m, 0.9);
    EXPECT_EQ(jt->p, 0.55);
    EXPECT_EQ(jt->q, 0.35);
    EXPECT_EQ(jt->zc, 0.281);

    models::ModelSelection m = fluids::selection(s, Eos::jiTorvik1);
    m.ji_torvik = *jt;
    const models::Fluid fluid = fluids::fluid(s, m);
    EXPECT_GT(fluid.eos().vcrit_calculated, 0);
    // The critical point satisfies the equation with these coefficients.
    EXPECT_NEAR(
        models::cubic_pressure(models::eos_at(fluid, 369.89), 369.89, fluid.eos().vcrit_calculated),
        4251.2, 1e-6 * 4251.2);
}

TEST_F(JiTorvikExchange, FormTwoNeedsAFifthNumber) {
    install("echo '\"Propane, liquid\" 1.0 0.9 0.55 0.35 0.281 0.06' > PARA_JI2.DAT");
    const Result<models::JiTorvikParameters> jt = ask(Eos::jiTorvik2);
    ASSERT_TRUE(jt);
    EXPECT_EQ(jt->k, 0.06);
    install("echo 'Propane 1.0 0.9 0.55 0.35 0.281' > PARA_JI2.DAT");
    EXPECT_FALSE(ask(Eos::jiTorvik2));
}

TEST_F(JiTorvikExchange, TheRequestHoldsTheSubstanceInSixLines) {
    install("cp jipar.tmp ../request");
    EXPECT_FALSE(ask(Eos::jiTorvik1));
    const std::vector<std::string> lines = request();
    ASSERT_EQ(lines.size(), 6U);
    EXPECT_EQ(lines[0], "10");
    EXPECT_EQ(lines[1], "74-98-6");
    EXPECT_EQ(lines[2], "3, 1, 1");
    EXPECT_EQ(lines[3],
              "4.40956001E+01, 0.00000000E+00, 3.69890000E+02, 4.25120000E+03, 2.20478100E+02, "
              "1.52100000E-01");
    EXPECT_EQ(lines[4].substr(0, 48), "5.00000000E+02, -1.29999995E+00, 2.98149994E+02,");
    EXPECT_EQ(text::split(lines[5], ',').size(), 12U);
    EXPECT_EQ(lines[5].substr(lines[5].size() - 30), "1.45000000E+02, 3.69000000E+02");
}

TEST_F(JiTorvikExchange, ClassesOfTheVapourPressureEquations) {
    install("cp jipar.tmp ../request");
    struct Row {
        const char *code, *line;
    };
    for (const Row& r : {Row{"ALP", "0, 1, 0"}, Row{"THO", "0, 1, 0"}, Row{"AHP", "1, 1, 0"},
                         Row{"AUG", "1, 1, 1"}, Row{"FRO", "2, 1, 0"}, Row{"KFR", "2, 1, 0"},
                         Row{"KFW", "2, 1, 0"}, Row{"WAG", "3, 1, 1"}}) {
        equation = codes::vp(r.code);
        EXPECT_FALSE(ask(Eos::jiTorvik2)) << r.code;
        EXPECT_EQ(request()[2], r.line) << r.code;
        EXPECT_EQ(request()[0], "11");
        EXPECT_EQ(text::split(request()[5], ',').size(), 12U) << r.code;
    }
}

TEST_F(JiTorvikExchange, AMissingProgramIsTold) {
    const Result<models::JiTorvikParameters> jt = ask(Eos::jiTorvik1);
    ASSERT_FALSE(jt);
    EXPECT_EQ(jt.reason(), "No parameter-file generated.");
}

TEST_F(JiTorvikExchange, AnOldAnswerIsNotTakenForANewOne) {
    std::ofstream(folder() / "PARAM_JI.DAT") << "old 1 0.9 0.5 0.3 0.28";
    install("exit 0");
    const Result<models::JiTorvikParameters> jt = ask(Eos::jiTorvik1);
    ASSERT_FALSE(jt);
    EXPECT_EQ(jt.reason(), "No parameter-file generated.");
}

TEST_F(JiTorvikExchange, ALateProgramDoesNotHoldTheSystem) {
    install("sleep 3; touch ../ended");
    wait = std::chrono::milliseconds(50);
    EXPECT_EQ(ask(Eos::jiTorvik1).reason(), "No parameter-file generated.");
    EXPECT_FALSE(fs::exists(folder() / "ended")) << "it was not waited for";
}

TEST_F(JiTorvikExchange, ALateProgramEndsWithAllThatItHasStarted) {
    // It does not end when it is asked to, nor does its child.
    install(
        "trap '' TERM; echo $$ > ../own; sh -c 'trap \"\" TERM; echo $$ > ../child; sleep 60' &\n"
        "while true; do sleep 1; done");
    wait = std::chrono::milliseconds(500);
    EXPECT_FALSE(ask(Eos::jiTorvik1));
    for (const char* name : {"own", "child"}) {
        int process = 0;
        ASSERT_TRUE(std::ifstream(folder() / name) >> process) << name;
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        // An orphan is there until someone has asked for its end.
        while (is_running(process) && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_FALSE(is_running(process)) << name;
    }
}

TEST_F(JiTorvikExchange, AWaitThatIsGivenUpEndsTheProgram) {
    install("echo $$ > ../own; sleep 60");
    int looks = 0;
    const Result<models::JiTorvikParameters> jt = models::ask_parameter_program(
        {folder() / "djipar.exe",
         folder(),
         {std::chrono::seconds(30),
          [&] {
              std::this_thread::sleep_for(std::chrono::milliseconds(5));
              return ++looks < 4 || !fs::exists(folder() / "own");
          }}},
        s, equation, Eos::jiTorvik1);
    ASSERT_FALSE(jt);
    EXPECT_EQ(jt.reason(), models::kParametersGivenUp);
    int process = 0;
    ASSERT_TRUE(std::ifstream(folder() / "own") >> process);
    EXPECT_FALSE(is_running(process));
}

TEST_F(JiTorvikExchange, TwoRunsAtOnceDoNotTakeEachOthersAnswers) {
    // The program answers with the critical temperature that it was asked about.
    install(
        "sleep 0.1\n"
        "set -- $(sed -n 4p jipar.tmp | tr -d ,)\n"
        "sleep 0.1\n"
        "echo \"Name 1 $3 0.5 0.3 0.28\" > PARAM_JI.DAT");
    std::vector<std::thread> runs;
    std::array<double, 6> answers{};
    for (std::size_t i = 0; i < answers.size(); ++i)
        runs.emplace_back([&, i] {
            models::SubstanceRecord other = s;
            other.Tcrit = 300.0 + 10.0 * static_cast<double>(i);
            const auto jt = models::ask_parameter_program(
                {folder() / "djipar.exe", folder(), {wait}}, other, equation, Eos::jiTorvik1);
            answers[i] = jt ? jt->m : 0;
        });
    for (std::thread& run : runs) run.join();
    for (std::size_t i = 0; i < answers.size(); ++i)
        EXPECT_DOUBLE_EQ(answers[i], 300.0 + 10.0 * static_cast<double>(i));
    fs::remove(folder() / "djipar.exe");
    EXPECT_TRUE(fs::is_empty(folder())) << "the files of the runs are gone";
}

TEST_F(JiTorvikExchange, APipeOrAHugeFileInPlaceOfTheAnswerIsRefused) {
    for (const char* script : {"mkfifo PARAM_JI.DAT", "head -c 100000 /dev/zero > PARAM_JI.DAT",
                               "ln -s /dev/zero PARAM_JI.DAT", "mkdir PARAM_JI.DAT"}) {
        install(script);
        const Result<models::JiTorvikParameters> jt = ask(Eos::jiTorvik1);
        ASSERT_FALSE(jt) << script;
        EXPECT_EQ(jt.reason(), "The parameter-file cannot be read.") << script;
    }
}

TEST_F(JiTorvikExchange, WhatTheProgramSaysIsDropped) {
    install(
        "yes | head -c 2000000; yes | head -c 2000000 >&2; read line\n"
        "echo 'Propane 1.0 0.9 0.55 0.35 0.281' > PARAM_JI.DAT");
    testing::internal::CaptureStdout();
    EXPECT_TRUE(ask(Eos::jiTorvik1)) << "and it is not held up by a full pipe or by its input";
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(JiTorvikExchange, AProgramWhosePathHasOddCharactersIsStarted) {
    const fs::path odd = folder() / "a b;$(touch x)'\"ä";
    fs::create_directory(odd);
    std::ofstream(odd / "djipar.exe")
        << "#!/bin/sh\necho 'Propane 1.0 0.9 0.55 0.35 0.281' > PARAM_JI.DAT\n";
    fs::permissions(odd / "djipar.exe", fs::perms::owner_all);
    EXPECT_TRUE(models::ask_parameter_program({odd / "djipar.exe", odd, {wait}}, s, equation,
                                              Eos::jiTorvik1));
}

TEST_F(JiTorvikExchange, AProgramThatCannotBeStartedIsTold) {
    std::ofstream(folder() / "djipar.exe") << "no program";
    installed = true;
    EXPECT_EQ(ask(Eos::jiTorvik1).reason(),
              "The program djipar.exe could not be started (Permission denied).");
}

TEST_F(JiTorvikExchange, AGarbledAnswerIsAFailure) {
    for (const char* answer :
         {"", "Propane", "Propane 1 x y z u", "Propane 1 0.9 0.55 0.35 0",
          "Propane 1 0.9 0.55 0.35 99", "Propane 1 0.9 0.55 0.35 nan", "Propane 1 inf 0.5 0.3 0.28",
          "Propane 1 0.9 1e99 0.3 0.28", "Propane 1 0.9-0.5 0.5 0.3 0.28",
          "Propane x 0.9 0.5 0.3 0.28", "Propane 1 0.9 0.5 e 0.28"}) {
        install(std::string("printf '%s' '") + answer + "' > PARAM_JI.DAT");
        const Result<models::JiTorvikParameters> jt = ask(Eos::jiTorvik1);
        ASSERT_FALSE(jt) << answer;
        EXPECT_EQ(jt.reason(), "The parameter-file cannot be read.") << answer;
    }
}

}  // namespace
