// What quorcalc tells of its results, and what it refuses.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

#include "common/numbers.h"
#include "common/text.h"
#include "common/whole_file.h"
#include "support/temporary_folder.h"
#include "tools/quorcalc_call.h"

using namespace quor;

namespace {

using nlohmann::json;

using Words = std::vector<std::string>;

class QuorcalcTells : public testing::Test {
  protected:
    static Outcome call(const Words& words) { return call_quorcalc(words); }
    static json result(Words words) {
        words.emplace_back("--json");
        return call(words).object();
    }
    static std::string sample(const std::string& name) {
        return std::string(QUOR_SOURCE_DATA) + "/samples/" + name;
    }
    /// A file of points of x and y.
    std::string points(const std::vector<std::pair<double, double>>& xy) const {
        const std::string file = (folder_.path() / "points.XY").string();
        std::ofstream out(file);
        out << "points\n";
        for (const auto& [x, y] : xy)
            out << numbers::general_point(x) << ";" << numbers::general_point(y) << "\n";
        return file;
    }
    /// The program itself, with its painters; texts of the picture that it draws.
    std::string picture(const std::string& words) const {
        const std::string file = (folder_.path() / "picture.svg").string();
        const std::string command = std::string(QUOR_BINARY_FOLDER) + "/quorcalc " + words +
                                    " --svg " + file + " >/dev/null 2>/dev/null";
        if (std::system(command.c_str()) != 0) return {};
        std::ostringstream content;
        content << std::ifstream(file).rdbuf();
        return content.str();
    }

    TemporaryFolder folder_;
};

// ------------------------------------------------------------------------------------------ fits

TEST_F(QuorcalcTells, AWorthlessFitHasItsReasonsAndExitsWithOne) {
    std::vector<std::pair<double, double>> xy;
    for (int i = 1; i <= 8; ++i) xy.emplace_back(i, 60000.0 + i);
    const Words words{"fit",     "--model",  "11",     "--fix",   "2,3,4",
                      "--start", "10,0,0,0", "--file", points(xy)};
    const Outcome text = call(words);
    EXPECT_EQ(text.exit, 1);
    EXPECT_NE(text.err.find("On a bound of its range: A."), std::string::npos) << text.err;
    EXPECT_NE(text.err.find("This fit is worthless"), std::string::npos) << text.err;
    EXPECT_NE(text.out.find("parameters = [50000"), std::string::npos) << text.out;
    const json r = result(words);
    EXPECT_EQ(r.at("status"), 1);
    EXPECT_TRUE(r.at("worthless"));
    const json reasons = r.at("reasons");
    EXPECT_NE(std::find(reasons.begin(), reasons.end(), "onBound"), reasons.end());
    EXPECT_EQ(r.at("notes").size(), reasons.size());
    EXPECT_TRUE(r.at("stdDev")[0].is_null()) << "no -9999, and no 0 as of a fixed parameter";
    EXPECT_EQ(r.at("stdDev")[1], 0);
    EXPECT_TRUE(r.at("interval95")[0].is_null());
    double squares = 0;
    for (const auto& [x, y] : xy) squares += (50000 - y) * (50000 - y);
    EXPECT_NEAR(r.at("SQ").get<double>() / squares, 1, 1e-6) << "the sum of the parameters shown";
}

TEST_F(QuorcalcTells, AGoodFitHasIntervalsAndCorrelations) {
    const json r = result({"fit", "--model", "4", "--file", sample("benzene_vapour_pressure.XY")});
    EXPECT_EQ(r.at("status"), 0);
    EXPECT_FALSE(r.at("worthless"));
    EXPECT_TRUE(r.at("notes").empty());
    EXPECT_EQ(r.at("model").at("name"), "ANTOINE");
    for (std::size_t i = 0; i < 3; ++i) {
        const double half = r.at("interval95")[i], deviation = r.at("stdDev")[i];
        EXPECT_NEAR(half / deviation, 2.1604, 0.05) << "Student's t at 13 degrees of freedom";
        EXPECT_EQ(r.at("correlation")[i][i], 1);
        for (std::size_t j = 0; j < 3; ++j)
            EXPECT_EQ(r.at("correlation")[i][j], r.at("correlation")[j][i]);
    }
}

TEST_F(QuorcalcTells, FailedStartValuesAreReplacedByProposedOnesAndItIsSaid) {
    const Words words{"fit",
                      "--substance",
                      "Propane",
                      "--model",
                      "5",
                      "--file",
                      sample("propane_vapour_pressure.XY")};
    const json by_itself = result(words);
    EXPECT_EQ(by_itself.at("status"), 0);
    EXPECT_EQ(by_itself.at("reasons"), json::array({"secondTry"}));
    Words proposed = words;
    proposed.emplace_back("--propose");
    const json asked = result(proposed);
    EXPECT_TRUE(asked.at("reasons").empty());
    EXPECT_EQ(asked.at("start"), by_itself.at("start"));
    EXPECT_EQ(asked.at("SQ"), by_itself.at("SQ"));
    EXPECT_NEAR(asked.at("SQ").get<double>(), 1.0706, 1e-4);
    proposed.insert(proposed.end(), {"--start", "1,2"});
    EXPECT_EQ(call(proposed).exit, 2) << "one or the other";
}

TEST_F(QuorcalcTells, TheThodosFormStartsFromTheCriticalTemperatureThatIsGiven) {
    const json with = result({"fit", "--substance", "Propane", "--model", "6", "--file",
                              sample("propane_vapour_pressure.XY")});
    const json without = result(
        {"fit", "--model", "6", "--Tcr", "369.89", "--file", sample("propane_vapour_pressure.XY")});
    EXPECT_EQ(without.at("status"), 0);
    EXPECT_NEAR(without.at("SQ").get<double>(), 5.4936, 1e-4) << "it was 0, of B = -0";
    EXPECT_EQ(with.at("parameters"), without.at("parameters"));
}

TEST_F(QuorcalcTells, ParametersFixedByDefaultCanBeFreed) {
    std::vector<std::pair<double, double>> xy;
    for (int i = 0; i < 12; ++i) {
        const double x = 1 + 0.5 * i;
        xy.emplace_back(x, 3 - 2 * x + 0.5 * x * x + 0.25 * x * x * x);
    }
    const std::string file = points(xy);
    const json fixed = result({"fit", "--model", "0", "--file", file});
    EXPECT_EQ(fixed.at("parameters")[3], 0);
    const json free = result({"fit", "--model", "0", "--fix", "none", "--file", file});
    EXPECT_NEAR(free.at("parameters")[3].get<double>(), 0.25, 1e-3);
}

TEST_F(QuorcalcTells, NumbersOfParametersAreWholeOnes) {
    for (const char* fix : {"1.9", "0", "8", "x", "1,,2", "-1", ""}) {
        const Outcome r = call(
            {"fit", "--model", "4", "--fix", fix, "--file", sample("benzene_vapour_pressure.XY")});
        EXPECT_EQ(r.exit, std::string(fix).empty() ? 0 : 2) << fix;
    }
}

// ---------------------------------------------------------------------------------------- groups

TEST_F(QuorcalcTells, ABoilingPointThatIsNotPositiveIsAWrongCall) {
    for (const char* Tb : {"0", "-100"})
        EXPECT_EQ(call({"groups", "--groups", "-CH3=2", "--Tb", Tb}).exit, 2) << Tb;
}

TEST_F(QuorcalcTells, ImplausibleEstimatesAreMarked) {
    const Words words{"groups", "--groups", "-CH3=30"};
    const json r = result(words);
    ASSERT_LT(r.at("Tf").get<double>(), 0);
    EXPECT_EQ(r.at("implausible")[0], "T(f) is not plausible: it is not positive.");
    EXPECT_NE(call(words).err.find("T(f) is not plausible"), std::string::npos);
    EXPECT_TRUE(result({"groups", "--groups", "-CH3=2"}).at("implausible").empty());
}

// ------------------------------------------------------------------------- messages and refusals

TEST_F(QuorcalcTells, AFailedCalculationTellsWhyOnStandardError) {
    const Outcome input =
        call({"calc", "--mode", "3", "--substance", "Carbon dioxide", "--p", "5000"});
    EXPECT_EQ(input.exit, 1);
    EXPECT_NE(input.err.find("no T in this data set"), std::string::npos) << input.err;
    const Outcome tank = call(
        {"calc", "--mode", "10", "--substance", "Propane", "--T", "400", "--V", "1", "--m", "10"});
    EXPECT_EQ(tank.exit, 1);
    EXPECT_NE(tank.err.find("usable only for phase equilibria"), std::string::npos) << tank.err;
    EXPECT_EQ(tank.err.find("no result"), std::string::npos) << tank.err;
}

TEST_F(QuorcalcTells, ACurveWithoutWhatItHoldsConstantIsAWrongCall) {
    for (const auto& [type, missing] : {std::pair{"1", "--T"},
                                        {"3", "--p"},
                                        {"5", "--v"},
                                        {"21", "--T"},
                                        {"22", "--p"},
                                        {"150", "--T"}}) {
        const Outcome r = call({"curve", "--substance", "Propane", "--type", type});
        EXPECT_EQ(r.exit, 2) << type;
        EXPECT_EQ(r.err, "quorcalc: " + std::string(missing) + " is required for this curve\n");
    }
    EXPECT_EQ(call({"curve", "--substance", "Propane", "--type", "6"}).exit, 0);
}

TEST_F(QuorcalcTells, PagesOfEnthalpiesOfVaporisationAreRefused) {
    for (const char* mode : {"6", "7"})
        for (const char* page : {"1", "2", "3", "4"}) {
            const Outcome r = call({"batch", "--mode", mode, "--page", page, "--file",
                                    sample("propane_saturation.BAQ")});
            EXPECT_EQ(r.exit, *page == '1' ? 0 : 2) << mode << " " << page;
        }
}

TEST_F(QuorcalcTells, DataOfAnotherSubstanceAreToldOf) {
    const Outcome r = call({"batch", "--mode", "4", "--substance", "Water", "--file",
                            sample("propane_saturation.BAQ")});
    EXPECT_EQ(r.exit, 0);
    EXPECT_NE(r.err.find("for different substance"), std::string::npos) << r.err;
    EXPECT_EQ(call({"batch", "--mode", "4", "--file", sample("propane_saturation.BAQ")}).err, "");
}

TEST_F(QuorcalcTells, ANegativeTemperatureIsAWrongCallInEveryCommand) {
    int commands = 0;
    for (const quorcalc::Command& command : quorcalc::commands()) {
        Words words{std::string(command.name), "--substance", "Propane", "--T", "-300"};
        bool takes_T = false;
        for (std::string_view option : command.options) {
            const bool needed = option.ends_with('!');
            if (needed) option.remove_suffix(1);
            takes_T = takes_T || option == "T";
            if (!needed || option == "T") continue;
            words.push_back("--" + std::string(option));
            words.emplace_back("1");
        }
        if (!takes_T) continue;
        ++commands;
        const Outcome r = call(words);
        EXPECT_EQ(r.exit, 2) << command.name;
        EXPECT_EQ(r.err, "quorcalc: --T is negative\n") << command.name;
    }
    EXPECT_GE(commands, 15);
    EXPECT_EQ(call({"psat", "--substance", "Propane", "--T", "300", "--T0", "-1"}).exit, 2);
}

TEST_F(QuorcalcTells, ATemperatureThatCannotBeFoundExitsWithOne) {
    const Words words{"T", "--substance", "Water", "--eos", "6", "--p", "1e-30", "--rho", "2000"};
    const Outcome r = call(words);
    EXPECT_EQ(r.exit, 1);
    EXPECT_NE(r.err, "");
    EXPECT_EQ(r.out, "");
    EXPECT_TRUE(result(words).at("T").is_null());
    EXPECT_EQ(call({"T", "--substance", "Water", "--eos", "6", "--p", "100", "--rho", "1"}).exit,
              0);
}

// -------------------------------------------------------------------------- what was it made with

TEST_F(QuorcalcTells, ResultsNameSubstanceModelsUnitsAndReferenceState) {
    const json r = result({"psat", "--substance", "R-290", "--eos", "5", "--T", "300", "--vp",
                           "KFW", "--priority", "ceos", "--T0", "300", "--p0", "100"});
    EXPECT_EQ(r.at("substance"), "Propane");
    EXPECT_NE(r.at("model").at("eos").get<std::string>().find("Soave"), std::string::npos)
        << r.at("model");
    EXPECT_EQ(r.at("model").at("vp"), "KFW");
    EXPECT_EQ(r.at("model").at("priority"), "ceos");
    EXPECT_EQ(r.at("units").at("p"), "kPa");
    EXPECT_EQ(r.at("units").at("h"), "kJ/kmol");
    EXPECT_EQ(r.at("reference").at("T0"), 300);
    EXPECT_EQ(r.at("reference").at("p0"), 100);
    const Words specific{"functions", "--substance", "Propane", "--T",     "300",
                         "--p",       "100",         "--units", "specific"};
    EXPECT_EQ(result(specific).at("units").at("h"), "kJ/kmol") << "its numbers are always molar";
    EXPECT_EQ(result({"calc", "--mode", "8", "--substance", "Propane", "--T", "300", "--p", "100",
                      "--units", "specific"})
                  .at("units")
                  .at("h"),
              "kJ/kg");
    EXPECT_FALSE(result({"list"}).contains("substance"));
    EXPECT_EQ(call({"psat", "--substance", "Propane", "--T", "300"}).out.find("reference"),
              std::string::npos)
        << "a text is for reading";
}

TEST_F(QuorcalcTells, TheManualVirialEquationTakesItsCoefficients) {
    for (const Words& sets : {Words{"--set", "b0=0.1", "b1=60000", "b2=2"},
                              Words{"--set", "b0=0.1", "--set", "b1=60000", "--set", "b2=2"}}) {
        Words words{"virial", "--substance", "Propane", "--T", "400", "--eos", "10"};
        words.insert(words.end(), sets.begin(), sets.end());
        const json r = result(words);
        EXPECT_NEAR(r.at("B").get<double>(), 0.1 - 60000 / (400.0 * 400.0), 1e-12);
    }
    EXPECT_EQ(
        call({"virial", "--substance", "Propane", "--T", "400", "--eos", "10", "--set", "b0=x"})
            .exit,
        2);
}

// --------------------------------------------------------------------------------------- pictures

TEST_F(QuorcalcTells, APictureLeavesStandardOutputEmptyUnlessThePointsAreAskedFor) {
    const std::string program = std::string(QUOR_BINARY_FOLDER) + "/quorcalc";
    const std::string out = (folder_.path() / "out").string();
    const auto lines = [&](const std::string& words) {
        const std::string picture = (folder_.path() / "a.png").string();
        if (std::system((program + " " + words + " --png " + picture + " >" + out).c_str()) != 0)
            return -1L;
        std::ifstream file(out);
        return static_cast<long>(std::count(std::istreambuf_iterator<char>(file), {}, '\n'));
    };
    const std::string curve = "curve --substance Water --type 1 --T 550";
    EXPECT_EQ(lines(curve), 0);
    EXPECT_GT(lines(curve + " --points-out"), 5);
    EXPECT_EQ(lines(curve + " --json"), 1);
    const std::string surface = "surface --substance Water --kind 3 --nx 4 --ny 4";
    EXPECT_EQ(lines(surface), 0);
    EXPECT_EQ(lines(surface + " --points-out"), 16);
}

TEST_F(QuorcalcTells, AnAddedCurveHasTheTitleAndAxesOfItsDiagram) {
    for (const int code :
         {70, 71, 72, 73, 74, 75, 80, 89, 96, 97, 98, 99, 100, 101, 102, 105, 120, 121}) {
        const diagrams::Diagram& home = diagrams::home_of(diagrams::diagram_of(code));
        ASSERT_TRUE(home.opens()) << code;
        const std::string drawn =
            picture("curve --substance Propane --type " + std::to_string(code));
        EXPECT_NE(drawn.find(std::string(home.title)), std::string::npos) << code;
        for (const diagrams::Axis axis : {home.x, home.y}) {
            // Pictures print units with their signs.
            const std::string shown =
                text::with_unit_signs(text::trim(diagrams::axis_text(axis, {})));
            EXPECT_NE(drawn.find(">" + shown), std::string::npos) << code << " " << shown;
        }
    }
}

TEST_F(QuorcalcTells, TwoFunctionsOverEachOtherAreDrawnOverARange) {
    for (const auto& [code, at] : {std::pair{21, "--T 330"},
                                   {107, "--T 330"},
                                   {109, "--T 330"},
                                   {22, "--p 500"},
                                   {23, "--p 500"},
                                   {24, "--p 500"}}) {
        const std::string words =
            "curve --substance Propane --type " + std::to_string(code) + " " + at;
        EXPECT_NE(picture(words).find(std::string(diagrams::diagram_of(code).title)),
                  std::string::npos)
            << code;
    }
    const json all = result({"curve", "--substance", "Propane", "--type", "107", "--T", "330"});
    const json part = result({"curve", "--substance", "Propane", "--type", "107", "--T", "330",
                              "--from", "100", "--to", "500"});
    EXPECT_EQ(all.at("status"), 0);
    EXPECT_GT(part.at("count").get<int>(), 100);
    for (const json& point : part.at("points")) {
        EXPECT_GE(point[2].get<double>(), 100 - 1e-3);
        EXPECT_LE(point[2].get<double>(), 500 + 1e-3);
    }
    for (const Words& wrong : {Words{"--from", "500", "--to", "100"}, Words{"--from", "0"}}) {
        Words words{"curve", "--substance", "Propane", "--type", "107", "--T", "330"};
        words.insert(words.end(), wrong.begin(), wrong.end());
        EXPECT_EQ(call(words).exit, 2);
    }
    EXPECT_EQ(
        call({"curve", "--substance", "Propane", "--type", "1", "--T", "330", "--from", "1"}).exit,
        2);
}

// ------------------------------------------------------------------------------ reference states

TEST_F(QuorcalcTells, FunctionsInANamedReferenceStateNameIt) {
    const auto functions = [](Words more) {
        Words words{"functions", "--substance", "R-134a", "--T", "300", "--p", "100"};
        words.insert(words.end(), more.begin(), more.end());
        return result(words);
    };
    const auto h = [&](const Words& more) { return functions(more).at("V").at("h").get<double>(); };
    EXPECT_EQ(functions({"--refstate", "iir"}).at("reference").at("state"), "iir");
    EXPECT_EQ(functions({}).at("reference").at("state"), nullptr);
    EXPECT_EQ(functions({"--refstate", "formation"}).at("reference").at("mode"), 10);
    // An own state at the state that is asked for is what comes out.
    EXPECT_NEAR(h({"--refstate", "own:300,100,V,-77.5,3"}), -77.5, 1e-6);
    EXPECT_GT(std::fabs(h({"--refstate", "iir"}) - h({})), 1000);
}

TEST_F(QuorcalcTells, AReferenceStateThatIsNoneIsRefused) {
    const auto told = [](Words more) {
        Words words{"functions", "--substance", "Methane", "--T", "300", "--p", "100"};
        words.insert(words.end(), more.begin(), more.end());
        return call(words);
    };
    const Outcome lacking = told({"--refstate", "iir"});
    EXPECT_EQ(lacking.exit, 1);
    EXPECT_NE(lacking.err.find("Methane has no saturated liquid at 273.15 K by"), std::string::npos)
        << lacking.err;
    for (const char* wrong : {"IIX", "own", "own:300,100,V,1", "own:300,100,S,1,2",
                              "own:300,x,V,1,2", "own:300,nan,V,1,2"})
        EXPECT_EQ(told({"--refstate", wrong}).exit, 2) << wrong;
    EXPECT_EQ(told({"--refstate", "nbp", "--href", "5"}).exit, 2);
}

}  // namespace
