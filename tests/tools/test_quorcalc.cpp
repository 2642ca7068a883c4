#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "tools/quorcalc_call.h"

using namespace quor;

namespace {

using nlohmann::json;

class Quorcalc : public testing::Test {
  protected:
    static Outcome call(const std::vector<std::string>& words, const std::string& input = "") {
        return call_quorcalc(words, input);
    }
};

TEST_F(Quorcalc, ListsTheWholeDatabase) {
    const Outcome r = call({"list", "--json"});
    EXPECT_EQ(r.exit, 0);
    const json substances = r.object().at("substances");
    EXPECT_EQ(substances.size(), 180U);
    EXPECT_EQ(substances[0].at("name"), "Helium;R-704");
    EXPECT_EQ(substances[0].at("casrn"), "7440-59-7");
    EXPECT_EQ(substances[0].at("index"), 1);
}

TEST_F(Quorcalc, DataHoldsEveryFieldByName) {
    const json d = call({"data", "--substance", "Propane", "--json"}).object();
    EXPECT_EQ(d.at("Name"), "Propane");
    EXPECT_EQ(d.at("WAG").size(), 10U);
    EXPECT_EQ(d.at("VPCode"), "WAG");
    EXPECT_DOUBLE_EQ(d.at("Tcrit"), 369.89);
    EXPECT_TRUE(d.at("hasCpSinh"));
}

TEST_F(Quorcalc, FindsASubstanceByNameSynonymNumberAndCasrn) {
    for (const char* wanted : {"Carbon dioxide", "124-38-9", "Kohlendioxyd", "R-744"})
        EXPECT_EQ(call({"data", "--substance", wanted, "--json"}).object().at("CASRN"), "124-38-9")
            << wanted;
    const json first = call({"data", "--substance", "#1", "--json"}).object();
    EXPECT_EQ(first.at("Name"), "Helium");
}

TEST_F(Quorcalc, AnUnknownSubstanceIsAFailureWithItsMessage) {
    const Outcome r =
        call({"state", "--substance", "Unobtainium", "--T", "300", "--p", "100", "--json"});
    EXPECT_EQ(r.exit, 1);
    EXPECT_EQ(r.object().at("status"), -1);
    EXPECT_NE(r.err.find("Nothing found."), std::string::npos) << r.err;
}

TEST_F(Quorcalc, WrongCallsExitWithTwo) {
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {},
             {"nothing"},
             {"state", "--substance", "Propane", "--T", "300"},
             {"state", "--substance", "Propane", "--T", "x", "--p", "1"},
             {"state", "--substance", "Propane", "--T", "", "--p", "1"},
             {"state", "--substance", "Propane", "--T", "300", "--p", "1", "--eos", ""},
             {"state", "--T", "300", "--p", "1"},
             {"state", "--substance", "Propane", "--T", "300", "--p", "1", "--eos", "99"},
             {"state", "--substance", "Propane", "--T", "300", "--p", "1", "--vp", "XYZ"},
             {"state", "--substance", "Propane", "--T", "300", "--p", "1", "--set", "Nothing=1"},
             {"state", "--substance", "Propane", "--T", "300", "--p", "1", "--set", "M"},
             {"state", "--substance", "Propane", "--T", "300", "--p", "1", "--units", "odd"}}) {
        const Outcome r = call(words);
        EXPECT_EQ(r.exit, 2) << (words.empty() ? "nothing" : words.back());
        EXPECT_FALSE(r.err.empty());
    }
}

TEST_F(Quorcalc, AMissingDatabaseIsAFailure) {
    const Outcome r = call({"list", "--db", "/nowhere/NONE.Q05", "--json"});
    EXPECT_EQ(r.exit, 1);
    EXPECT_EQ(r.object().at("message"), "Database NONE.Q05 not found or empty resp.");
}

TEST_F(Quorcalc, WhatIsNotThereIsNull) {
    const json gas =
        call({"state", "--substance", "Carbon dioxide", "--T", "300", "--p", "5000", "--json"})
            .object();
    EXPECT_TRUE(gas.at("rhoL").is_null());
    EXPECT_TRUE(gas.at("vL").is_null());
    EXPECT_GT(gas.at("rhoV").get<double>(), 1.0);
    EXPECT_TRUE(gas.at("hasV"));
}

TEST_F(Quorcalc, OverridesAreFollowedByTheCorrelatedSetsAndTheParameters) {
    const json plain = call({"eos", "--substance", "Propane", "--T", "300", "--json"}).object();
    const json other =
        call({"eos", "--substance", "Propane", "--T", "300", "--set", "pcrit=8000", "--json"})
            .object();
    EXPECT_NEAR(other.at("b").get<double>() * 8000, plain.at("b").get<double>() * 4251.2, 1e-4);
    const json kfw = call({"vp", "--substance", "Propane", "--T", "250", "--set", "Tboil=250",
                           "--code", "KFW", "--json"})
                         .object();
    EXPECT_NEAR(kfw.at("p").get<double>(), 101.325, 0.05);
    const json given = call({"vp", "--substance", "Propane", "--T", "250", "--set", "AUG.1=5",
                             "--set", "AUG.2=-250", "--code", "AUG", "--json"})
                           .object();
    EXPECT_NEAR(given.at("p").get<double>(), std::exp(4.0), 1e-9);
}

TEST_F(Quorcalc, RunGivesOneObjectALineAndGoesOnAfterAFailure) {
    const Outcome r = call({"run", "-"},
                           "# a remark\n"
                           "psat --substance Propane --T 300\n"
                           "\n"
                           "psat --substance Propane --T 900\n"
                           "nonsense\n"
                           "state --substance \"Carbon dioxide\" --T 300 --p 5000\n");
    std::vector<json> lines;
    std::istringstream in(r.out);
    for (std::string line; std::getline(in, line);) lines.push_back(json::parse(line));
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0].at("status"), 0);
    EXPECT_EQ(lines[1].at("status"), -1);
    EXPECT_TRUE(lines[1].at("p").is_null());
    EXPECT_EQ(lines[2].at("status"), -1);
    EXPECT_NEAR(lines[3].at("rhoV").get<double>(), 131.4966, 1e-3);
    EXPECT_EQ(r.exit, 1);
    EXPECT_EQ(call({"run", "/nowhere/file"}).exit, 1);
}

TEST_F(Quorcalc, CalcGivesTheTextsOfTheResultView) {
    const json r = call({"calc", "--mode", "3", "--substance", "Carbon dioxide", "--T", "300",
                         "--p", "5000", "--json"})
                       .object();
    EXPECT_EQ(r.at("status"), 0);
    EXPECT_EQ(r.at("par1"), "T = 300.000 K");
    EXPECT_EQ(r.at("par2"), "p = 5000.000 kPa");
    EXPECT_EQ(r.at("State"), " V ");
    EXPECT_EQ(r.at("Fu").size(), 42U);
    EXPECT_NEAR(r.at("Fu")[9].get<double>(), 0.334678, 1e-6);
    EXPECT_FALSE(r.at("exit"));
    const Outcome text =
        call({"calc", "--mode", "3", "--substance", "Carbon dioxide", "--T", "300", "--p", "5000"});
    EXPECT_NE(text.out.find("131.4966"), std::string::npos);
}

TEST_F(Quorcalc, AMissingInputIsTold) {
    const Outcome r =
        call({"calc", "--mode", "3", "--substance", "Carbon dioxide", "--p", "5000", "--json"});
    EXPECT_EQ(r.exit, 1);
    EXPECT_EQ(r.object().at("par1"), "no T in this data set");
}

TEST_F(Quorcalc, TheTankRefusesAPartialCalculationAboveTheCriticalPoint) {
    const Outcome r = call({"calc", "--mode", "10", "--substance", "Propane", "--T", "400", "--V",
                            "1", "--m", "10", "--json"});
    EXPECT_EQ(r.exit, 1);
    EXPECT_TRUE(r.object().at("exit"));
    ASSERT_EQ(r.object().at("messages").size(), 1U);
}

TEST_F(Quorcalc, APictureNeedsTheProgramThatCanDrawIt) {
    const Outcome r = call({"curve", "--substance", "Water", "--type", "1", "--T", "550", "--png",
                            testing::TempDir() + "/never.png"});
    EXPECT_EQ(r.exit, 1);
    EXPECT_EQ(r.err, "quorcalc: Pictures cannot be drawn here.\n");
}

TEST_F(Quorcalc, TheProgramDrawsACurveInEveryFormat) {
    const std::string program = std::string(QUOR_BINARY_FOLDER) + "/quorcalc";
    const std::pair<std::string, std::string> formats[] = {
        {"png", "\x89PNG"}, {"svg", "<?xml"}, {"pdf", "%PDF-1.4"}};
    for (const auto& [format, mark] : formats) {
        const std::string file = testing::TempDir() + "/quorcalc_isotherm." + format;
        const std::string words =
            " curve --substance Water --type 1 --T 550 --" + format + " " + file;
        ASSERT_EQ(std::system((program + words + " >/dev/null").c_str()), 0) << format;
        std::ostringstream content;
        content << std::ifstream(file, std::ios::binary).rdbuf();
        EXPECT_EQ(content.str().substr(0, mark.size()), mark);
        EXPECT_GT(content.str().size(), 5000U) << format;
        if (format == "svg") {  // texts of the isotherm's diagram
            EXPECT_NE(content.str().find("550.0 K"), std::string::npos);
            EXPECT_NE(content.str().find("Isothermal section p - v"), std::string::npos);
        }
    }
    EXPECT_NE(std::system((program + " curve --substance Water --type 1 --T 550 --png "
                                     "/no/such/folder/a.png >/dev/null 2>/dev/null")
                              .c_str()),
              0);
}

TEST_F(Quorcalc, ASurfaceHoldsTheValuesOfItsStates) {
    const json s = call({"surface", "--substance", "Propane", "--kind", "7", "--nx", "5", "--ny",
                         "4", "--json"})
                       .object();
    EXPECT_EQ(s.at("status"), 0);
    EXPECT_EQ(s.at("nx"), 5);
    EXPECT_EQ(s.at("ny"), 4);
    ASSERT_EQ(s.at("z").size(), 5U);
    ASSERT_EQ(s.at("z")[0].size(), 4U);
    for (int i = 0; i < 5; ++i)
        for (int j = 0; j < 4; ++j) {
            const double x = s.at("x0").get<double>() + i * s.at("dx").get<double>();
            const double p = x == 0 ? 0.05 : x;
            const double T = s.at("y0").get<double>() + j * s.at("dy").get<double>();
            const json f = call({"functions", "--substance", "Propane", "--T", json(T).dump(),
                                 "--p", json(p).dump(), "--json"})
                               .object();
            const json& row = f.at("V").is_null() ? f.at("L") : f.at("V");
            const double h = row.at("h").get<double>();
            EXPECT_NEAR(s.at("z")[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)], h,
                        1e-5 * std::fabs(h) + 0.05)
                << T << " K, " << p << " kPa";
        }
}

TEST_F(Quorcalc, ASurfaceOfPressureIsFlatInTheTwoPhaseRegionAndHasHoles) {
    const std::vector<std::string> words{"surface", "--substance", "Propane",
                                         "--kind",  "1",           "--json"};
    const json s = call(words).object();
    EXPECT_EQ(s.at("nx"), 41);
    EXPECT_EQ(s.at("ny"), 41);
    EXPECT_TRUE(s.at("z")[0][0].is_null()) << "there is no state of no volume";
    const double T = s.at("y0").get<double>() + 10 * s.at("dy").get<double>();
    const json equilibrium =
        call({"psat", "--substance", "Propane", "--T", json(T).dump(), "--json"}).object();
    const double pLV = equilibrium.at("p").get<double>();
    const double middle = s.at("x0").get<double>() + 10 * s.at("dx").get<double>();
    EXPECT_GT(middle, equilibrium.at("v")[0].get<double>());
    EXPECT_NEAR(s.at("z")[10][10].get<double>(), pLV, 1e-4 * pLV);
    std::vector<std::string> curved = words;
    curved.push_back("--scurve");
    EXPECT_NE(call(curved).object().at("z")[10], s.at("z")[10]);
}

TEST_F(Quorcalc, WrongSurfacesAreWrongCalls) {
    for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
             {"surface", "--substance", "Propane"},
             {"surface", "--substance", "Propane", "--kind", "6"},
             {"surface", "--substance", "Propane", "--kind", "65543"},
             {"surface", "--substance", "Propane", "--kind", "7", "--nx", "1"},
             {"surface", "--substance", "Propane", "--kind", "7", "--ny", "202"}})
        EXPECT_EQ(call(words).exit, 2) << words.back();
}

TEST_F(Quorcalc, TheProgramDrawsASurfaceInEveryFormat) {
    const std::string program = std::string(QUOR_BINARY_FOLDER) + "/quorcalc";
    const std::pair<std::string, std::string> formats[] = {
        {"png", "\x89PNG"}, {"svg", "<?xml"}, {"pdf", "%PDF-1.4"}};
    std::string words = program + " surface --substance Water --kind 3";
    const auto file = [](const std::string& format) {
        return testing::TempDir() + "/quorcalc_surface." + format;
    };
    for (const auto& [format, mark] : formats) words += " --" + format + " " + file(format);
    ASSERT_EQ(std::system((words + " >/dev/null").c_str()), 0);
    for (const auto& [format, mark] : formats) {
        std::ostringstream content;
        content << std::ifstream(file(format), std::ios::binary).rdbuf();
        EXPECT_EQ(content.str().substr(0, mark.size()), mark);
        EXPECT_GT(content.str().size(), 20000U) << format;
        if (format != "svg") continue;
        EXPECT_NE(content.str().find("Volume  v(p, T)"), std::string::npos);
    }
}

TEST_F(Quorcalc, TheProgramItselfReadsNoEnvironmentAndPrintsJson) {
    const std::string command =
        "env -i " QUOR_BINARY_FOLDER "/quorcalc psat --substance Water --T 373.15 --json";
    FILE* pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    char buffer[4096] = {};
    const std::size_t n = fread(buffer, 1, sizeof buffer - 1, pipe);
    const int status = pclose(pipe);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    const json r = json::parse(std::string(buffer, n));
    EXPECT_NEAR(r.at("p").get<double>(), 101.3, 6.0);
}

TEST(QuorcalcLines, AreSplitAtBlanksOutsideQuotes) {
    EXPECT_EQ(quorcalc::split_line("a  'b c' \"d\" \"\" e\"f g\""),
              (std::vector<std::string>{"a", "b c", "d", "", "ef g"}));
}

}  // namespace
