#include "models/parameter_program.h"

#include <fstream>
#include <sstream>

#include "common/text.h"
#include "models/cubic_eos.h"
#include "support/codes.h"
#include "support/fluids.h"
#include "support/temporary_folder.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;
using models::Eos;

class JiTorvikExchange : public testing::Test {
  protected:
    models::SubstanceRecord s = fluids::ReferencePropane();
    models::VapourPressureEquation equation = models::VapourPressureEquation::wagner;
    std::chrono::milliseconds wait{20000};
    bool installed = false;

    fs::path folder() const { return folder_.path(); }
    Result<models::JiTorvikParameters> ask(Eos form) const {
        return models::ask_parameter_program(
            {installed ? folder() / "djipar.exe" : fs::path(), folder(), wait}, s, equation, form);
    }
    /// Installs a stand-in for the parameter program: a shell script.
    void install(const std::string& script) {
        const fs::path program = folder() / "djipar.exe";
        std::ofstream(program) << "#!/bin/sh\n" << script << "\n";
        fs::permissions(program, fs::perms::owner_all);
        installed = true;
    }
    std::vector<std::string> request() const {
        std::ifstream in(folder() / "jipar.tmp", std::ios::binary);
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
    install("exit 0");
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
    install("exit 0");
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
    install("sleep 3; touch ended");
    wait = std::chrono::milliseconds(50);
    EXPECT_FALSE(ask(Eos::jiTorvik1));
    EXPECT_FALSE(fs::exists(folder() / "ended")) << "it was not waited for";
}

TEST_F(JiTorvikExchange, AGarbledAnswerIsAFailure) {
    for (const char* answer : {"", "Propane", "Propane 1 x y z u", "Propane 1 0.9 0.55 0.35 0",
                               "Propane 1 0.9 0.55 0.35 99"}) {
        install(std::string("printf '%s' '") + answer + "' > PARAM_JI.DAT");
        const Result<models::JiTorvikParameters> jt = ask(Eos::jiTorvik1);
        ASSERT_FALSE(jt) << answer;
        EXPECT_EQ(jt.reason(), "The parameter-file cannot be read.") << answer;
    }
}

}  // namespace
