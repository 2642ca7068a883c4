#include "legacy/wrappers.h"
#include "models/parameter_program.h"
#include "support/codes.h"

#include <fstream>
#include <sstream>

#include "common/text.h"
#include "models/cubic_eos.h"
#include "support/fluids.h"
#include "support/session_test.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;

class JiTorvikExchange : public SessionTest {
  protected:
    JiTorvikExchange() {
        legacy::the_substance = fluids::ReferencePropane();
        legacy::the_models.EOSModel = codes::eos(7);
        legacy::the_models.VPModel = codes::vp(4);
        legacy::the_models.VPModel = codes::vp("WAG");
        models::set_ji_torvik_wait(std::chrono::seconds(20));
    }
    ~JiTorvikExchange() override { models::set_ji_torvik_wait(std::chrono::seconds(100)); }

    /// Installs a stand-in for the parameter program: a shell script.
    void install(const std::string& script) {
        const fs::path program = folder() / "djipar.exe";
        std::ofstream(program) << "#!/bin/sh\n" << script << "\n";
        fs::permissions(program, fs::perms::owner_all);
    }
    std::vector<std::string> request() {
        std::ifstream in(folder() / "jipar.tmp", std::ios::binary);
        std::stringstream s;
        s << in.rdbuf();
        return text::Lines(s.str());
    }
};

TEST_F(JiTorvikExchange, FormOneGetsFourNumbers) {
    install("printf 'Propane 1.0 0.9 0.55\\n0.35, 0.281' > PARAM_JI.DAT");
    EXPECT_EQ(models::calc_eos_parameters(7), kSuccess);
    EXPECT_EQ(legacy::the_jiTorvik.jtM, 0.9);
    EXPECT_EQ(legacy::the_jiTorvik.jtP, 0.55);
    EXPECT_EQ(legacy::the_jiTorvik.jtQ, 0.35);
    EXPECT_EQ(legacy::the_jiTorvik.jtZc, 0.281);
    EXPECT_GT(legacy::the_eosParameters.vcritCalc, 0);
    // The critical point satisfies the equation with these coefficients.
    models::eval_eos_at_t(369.89);
    EXPECT_NEAR(
        models::cubic_pressure(legacy::the_eosState, 369.89, legacy::the_eosParameters.vcritCalc),
        4251.2, 1e-6 * 4251.2);
    EXPECT_EQ(user.pointer, (std::vector<bool>{true, false}))
        << "the busy pointer shows while it waits";
}

TEST_F(JiTorvikExchange, FormTwoNeedsAFifthNumber) {
    install("echo '\"Propane, liquid\" 1.0 0.9 0.55 0.35 0.281 0.06' > PARA_JI2.DAT");
    legacy::the_models.EOSModel = codes::eos(8);
    EXPECT_EQ(models::calc_eos_parameters(8), kSuccess);
    EXPECT_EQ(legacy::the_jiTorvik.jtK, 0.06);
    install("echo 'Propane 1.0 0.9 0.55 0.35 0.281' > PARA_JI2.DAT");
    EXPECT_EQ(models::calc_eos_parameters(8), 1);
}

TEST_F(JiTorvikExchange, TheRequestHoldsTheSubstanceInSixLines) {
    install("exit 0");
    models::calc_eos_parameters(7);
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
    install("exit 0");
    struct Row {
        const char *code, *line;
    };
    for (const Row& r : {Row{"ALP", "0, 1, 0"}, Row{"THO", "0, 1, 0"}, Row{"AHP", "1, 1, 0"},
                         Row{"AUG", "1, 1, 1"}, Row{"FRO", "2, 1, 0"}, Row{"KFR", "2, 1, 0"},
                         Row{"KFW", "2, 1, 0"}, Row{"WAG", "3, 1, 1"}}) {
        legacy::the_models.VPModel = codes::vp(r.code);
        models::calc_eos_parameters(8);
        EXPECT_EQ(request()[2], r.line) << r.code;
        EXPECT_EQ(request()[0], "11");
        EXPECT_EQ(text::split(request()[5], ',').size(), 12U) << r.code;
    }
}

TEST_F(JiTorvikExchange, AMissingProgramIsTold) {
    EXPECT_EQ(models::calc_eos_parameters(7), 1);
    ASSERT_EQ(user.messages.size(), 2U);
    EXPECT_EQ(user.messages[0].text, "No parameter-file generated.");
    EXPECT_EQ(user.messages[0].title, "Execution not possible");
    EXPECT_EQ(user.messages[1].text, "Error during EOS-parameter calculation");
    EXPECT_EQ(user.messages[1].title, "Execution not possible");
    EXPECT_EQ(legacy::the_eosParameters.vcritCalc, 0);
}

TEST_F(JiTorvikExchange, AnOldAnswerIsNotTakenForANewOne) {
    std::ofstream(folder() / "PARAM_JI.DAT") << "old 1 0.9 0.5 0.3 0.28";
    install("exit 0");
    EXPECT_EQ(models::calc_eos_parameters(7), 1);
    EXPECT_EQ(user.messages[0].text, "No parameter-file generated.");
}

TEST_F(JiTorvikExchange, ALateProgramDoesNotHoldTheSystem) {
    install("sleep 1");
    models::set_ji_torvik_wait(std::chrono::milliseconds(50));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(models::calc_eos_parameters(7), 1);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST_F(JiTorvikExchange, AGarbledAnswerIsAFailureWithoutConstants) {
    for (const char* answer : {"", "Propane", "Propane 1 x y z u", "Propane 1 0.9 0.55 0.35 0",
                               "Propane 1 0.9 0.55 0.35 99"}) {
        user.messages.clear();
        install(std::string("printf '%s' '") + answer + "' > PARAM_JI.DAT");
        EXPECT_EQ(models::calc_eos_parameters(7), 1) << answer;
        ASSERT_EQ(user.messages.size(), 1U) << answer;
        EXPECT_EQ(user.lastText(), "Error during EOS-parameter calculation");
        EXPECT_EQ(legacy::the_eosParameters.vcritCalc, 0);
        EXPECT_EQ(legacy::the_jiTorvik.jtZc, 0);
    }
}

}  // namespace
