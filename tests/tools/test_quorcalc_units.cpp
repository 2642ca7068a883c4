// Numbers of quorcalc in units of the user's choice.

#include <gtest/gtest.h>

#include "tools/quorcalc_call.h"

using namespace quor;

namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

Outcome told(Words words, const Words& more = {}) {
    words.insert(words.end(), {"--substance", "Propane", "--eos", "6"});
    words.insert(words.end(), more.begin(), more.end());
    return call_quorcalc(words);
}

json result(Words words, Words more = {}) {
    more.emplace_back("--json");
    return told(std::move(words), more).object();
}

double at(const json& object, const char* key) {
    return object.at(key).get<double>();
}

TEST(QuorcalcUnits, AreThoseThatTheCallNames) {
    const json base = result({"state", "--T", "300.15", "--p", "500"});
    const json in = result({"state", "--T", "27", "--p", "5"}, {"--in-units", "metric"});
    EXPECT_EQ(in.at("units").at("T"), "K") << "what is told stays as it is";
    EXPECT_NEAR(at(in, "rhoV"), at(base, "rhoV"), 1e-9);
    const json us =
        result({"state", "--T", "80.6", "--p", "72.51886886487022"}, {"--in-units", "us"});
    EXPECT_NEAR(at(us, "rhoV"), at(base, "rhoV"), 1e-9);
    const json gauge = result({"T", "--p", "3.98675", "--rho", "10"}, {"--in-units", "p=bar(g)"});
    EXPECT_NEAR(at(gauge, "T"), at(result({"T", "--p", "500", "--rho", "10"}), "T"), 1e-9);
}

TEST(QuorcalcUnits, OfResultsAreConvertedAndNamed) {
    const json base = result({"functions", "--T", "300", "--p", "500"}).at("V");
    const json told_us = result({"functions", "--T", "300", "--p", "500"}, {"--out-units", "us"});
    const json& us = told_us.at("V");
    constexpr double kM = 44.097, kBtu = 2.326;
    EXPECT_NEAR(at(us, "h"), at(base, "h") / kM / kBtu, 1e-4 * std::abs(at(us, "h")));
    EXPECT_NEAR(at(us, "cp"), at(base, "cp") / kM / 4.1868, 1e-4 * at(us, "cp"));
    EXPECT_NEAR(at(us, "w"), at(base, "w") / 0.3048, 1e-9 * at(us, "w"));
    const char* const kNames[][2] = {{"v", "ft^3/lb"},       {"h", "BTU/lb"},
                                     {"s", "BTU/(lb degR)"}, {"cp", "BTU/(lb degR)"},
                                     {"w", "ft/s"},          {"eU", "BTU/lb"}};
    for (const auto& [key, unit] : kNames) EXPECT_EQ(told_us.at("units").at(key), unit) << key;
    const json T = result({"tsat", "--p", "101.325"}, {"--out-units", "T=degC"});
    EXPECT_NEAR(at(T, "T"), at(result({"tsat", "--p", "101.325"}), "T") - 273.15, 1e-9);
    EXPECT_EQ(T.at("units").at("T"), "degC");
}

TEST(QuorcalcUnits, StandBehindEachNumberOfTheText) {
    EXPECT_NE(told({"psat", "--T", "300"}, {"--out-units", "p=bar"}).out.find("p = 9.974"),
              std::string::npos);
    const std::string text = told({"psat", "--T", "300"}, {"--out-units", "p=bar"}).out;
    EXPECT_NE(text.find(" bar\n"), std::string::npos) << text;
    EXPECT_EQ(told({"psat", "--T", "300"}).out.find("kPa"), std::string::npos);
}

TEST(QuorcalcUnits, OfTheReferenceStateAreConvertedToo) {
    const auto h = [](const Words& more) {
        return at(result({"functions", "--p", "100"}, more).at("V"), "h");
    };
    const double base = h({"--T", "300", "--href", "4409.7", "--T0", "290", "--p0", "100"});
    EXPECT_NEAR(h({"--T", "26.85", "--href", "100", "--T0", "16.85", "--p0", "100", "--in-units",
                   "T=degC,h=kJ/kg"}),
                base, 0.1);
    EXPECT_NEAR(
        h({"--T", "26.85", "--refstate", "own:26.85,100,V,-77.5,3", "--in-units", "T=degC"}), -77.5,
        1e-6);
}

TEST(QuorcalcUnits, OfTwoGivenPropertiesAreConverted) {
    const json base = result({"flash", "--given", "T=300,p=500"});
    const json state = result({"flash", "--given", "T=80.33,p=72.51886886487022"},
                              {"--in-units", "us", "--out-units", "metric"});
    EXPECT_NEAR(at(state, "T"), 26.85, 1e-9);
    EXPECT_NEAR(at(state, "p"), 5, 1e-9);
    EXPECT_NEAR(at(state, "rho"), at(base, "rho"), 1e-9);
    EXPECT_NEAR(at(state, "h"), at(base, "h") / 44.097, 1e-3);
    EXPECT_EQ(state.at("units").at("h"), "kJ/kg");
    EXPECT_EQ(told({"flash", "--given", "T=300,q=1"}, {"--in-units", "us"}).exit, 2);
}

TEST(QuorcalcUnits, ThatAreNoneAreRefused) {
    const Outcome in = told({"psat", "--T", "27"}, {"--in-units", "T=bar"});
    EXPECT_EQ(in.exit, 2);
    EXPECT_NE(in.err.find("--in-units: \"bar\" is no unit of T; there are K, degC"),
              std::string::npos)
        << in.err;
    EXPECT_EQ(told({"psat", "--T", "27"}, {"--out-units", "imperial"}).exit, 2);
    EXPECT_EQ(told({"psat", "--T", "27"}, {"--out-units", "us", "--units", "molar"}).exit, 2);
    const Outcome cold = told({"psat", "--T", "-300"}, {"--in-units", "metric"});
    EXPECT_EQ(cold.exit, 2);
    EXPECT_NE(cold.err.find("--T is negative"), std::string::npos) << cold.err;
    EXPECT_EQ(told({"psat", "--T", "-5"}, {"--in-units", "metric"}).exit, 0);
}

}  // namespace
