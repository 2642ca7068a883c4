#include "common/numbers.h"
#include "tools/quorcalc_call.h"

namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

Words call_of(const std::string& given, const Words& more = {}) {
    Words words{"flash", "--substance", "Propane", "--eos", "6", "--json", "--given", given};
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

json answer(const std::string& given, const Words& more = {}) {
    const Outcome r = call_quorcalc(call_of(given, more));
    EXPECT_EQ(r.exit, 0) << given << r.err;
    EXPECT_EQ(r.err, "");
    return r.object();
}

std::string given(const char* a, double x, const char* b, double y) {
    return std::string(a) + "=" + quor::numbers::general_point(x) + "," + b + "=" +
           quor::numbers::general_point(y);
}

TEST(QuorcalcFlash, ComesBackToTheStateByTAndPFromEveryPair) {
    const json functions = call_quorcalc({"functions", "--substance", "Propane", "--eos", "6",
                                          "--T", "350", "--p", "900", "--json"})
                               .object()
                               .at("V");
    const json start = answer("T=350,p=900");
    for (const char* key : {"v", "h", "s", "u", "g", "a", "cp", "cv", "w"})
        EXPECT_NEAR(start.at(key).get<double>(), functions.at(key).get<double>(),
                    1e-9 * std::fabs(functions.at(key).get<double>()))
            << key;
    EXPECT_EQ(start.at("phase"), "vapour");
    EXPECT_TRUE(start.at("x").is_null());
    EXPECT_TRUE(start.at("L").is_null());
    const char* names[] = {"T", "p", "v", "rho", "h", "s", "u"};
    int pairs = 0;
    for (const char* a : names)
        for (const char* b : names) {
            if (a == b || start.at(a) == start.at(b)) continue;
            const bool both_v = (a[0] == 'v' && b[0] == 'r') || (a[0] == 'r' && b[0] == 'v');
            const std::string asked = given(a, start.at(a), b, start.at(b));
            if (both_v) {
                EXPECT_EQ(call_quorcalc(call_of(asked)).exit, 2);
                continue;
            }
            json r = answer(asked);
            if (r.at("answers") > 1 && std::fabs(r.at("p").get<double>() - 900) > 1e-4)
                r = answer(asked, {"--choice", "second"});
            EXPECT_NEAR(r.at("T").get<double>(), 350, 1e-6) << asked;
            EXPECT_NEAR(r.at("p").get<double>(), 900, 1e-4) << asked;
            ++pairs;
        }
    EXPECT_EQ(pairs, 40);
}

TEST(QuorcalcFlash, OfTwoPhasesHasTheirShareAndTheValuesOfBoth) {
    const json r = answer("p=1000,x=0.25");
    const double T =
        call_quorcalc({"tsat", "--substance", "Propane", "--eos", "6", "--p", "1000", "--json"})
            .object()
            .at("T");
    EXPECT_NEAR(r.at("T").get<double>(), T, 1e-9 * T);
    EXPECT_EQ(r.at("phase"), "two phases");
    EXPECT_EQ(r.at("x"), 0.25);
    for (const char* key : {"v", "h", "s", "u", "g", "a"}) {
        const double L = r.at("L").at(key), V = r.at("V").at(key);
        EXPECT_NEAR(r.at(key).get<double>(), L + 0.25 * (V - L), 1e-9 * (std::fabs(L) + 1)) << key;
    }
    EXPECT_NEAR(r.at("L").at("g").get<double>(), r.at("V").at("g").get<double>(), 1e-6);
    for (const char* key : {"cp", "cv", "w"}) EXPECT_TRUE(r.at(key).is_null());
    EXPECT_EQ(r.at("substance"), "Propane");
    EXPECT_EQ(r.at("units").at("h"), "kJ/kmol");
}

TEST(QuorcalcFlash, TellsHowManyStatesThereAreAndGivesTheChosenOne) {
    const json dense = answer("T=300,h=-15900"),
               light = answer("T=300,h=-15900", {"--choice", "second"});
    EXPECT_EQ(dense.at("answers"), 2);
    EXPECT_EQ(dense.at("answer"), 1);
    EXPECT_EQ(light.at("answer"), 2);
    EXPECT_LT(dense.at("v"), light.at("v"));
    EXPECT_EQ(dense.at("phase"), "liquid");
    EXPECT_EQ(light.at("phase"), "two phases");
    const Outcome third = call_quorcalc(call_of("T=300,h=-15900", {"--choice", "third"}));
    EXPECT_EQ(third.exit, 1);
    EXPECT_EQ(third.err, "quorcalc: There is no further state with both values.\n");
    EXPECT_EQ(call_quorcalc(call_of("T=300,p=100", {"--choice", "fourth"})).exit, 2);
}

TEST(QuorcalcFlash, RefusesAWrongCallWithTwo) {
    for (const char* wrong :
         {"", "T=300", "T=300,p=100,h=1", "T=300;p=100", "T,p", "T=300,y=1", "T=,p=100",
          "T=x,p=100", "T=nan,p=100", "T=300,T=300", "T=300,p=0", "T=-300,p=1", "v=-1,p=100",
          "rho=0,p=100", "T=300,x=1.5", "v=2,rho=3", "T=300,p=1e400"}) {
        const Outcome r = call_quorcalc(call_of(wrong));
        EXPECT_EQ(r.exit, 2) << wrong;
        EXPECT_TRUE(r.err.starts_with("quorcalc: --given")) << r.err;
        EXPECT_EQ(r.object().at("status"), -1);
    }
    EXPECT_EQ(call_quorcalc({"flash", "--substance", "Propane"}).exit, 2);
}

TEST(QuorcalcFlash, SaysWhyThereIsNoStateAndExitsWithOne) {
    const auto reason = [](const std::string& given, const char* eos) {
        Words words = call_of(given);
        words[4] = eos;
        const Outcome r = call_quorcalc(words);
        EXPECT_EQ(r.exit, 1) << given;
        EXPECT_EQ(r.object().at("status"), -1);
        return r.object().at("message").get<std::string>();
    };
    EXPECT_NE(reason("T=400,x=0.5", "6").find("above the critical point"), std::string::npos);
    EXPECT_NE(reason("p=100,h=1e8", "6").find("no state with both values"), std::string::npos);
    EXPECT_NE(reason("T=300,x=0.5", "0").find("vapour alone"), std::string::npos);
    EXPECT_NE(reason("T=300,h=100", "0").find("depend on T alone"), std::string::npos);
    EXPECT_NE(reason("T=300,v=0.01", "6").find("smallest volume"), std::string::npos);
}

TEST(QuorcalcFlash, FollowsTheReferenceState) {
    const json plain = answer("T=250,x=0"), iir = answer("T=273.15,x=0", {"--refstate", "iir"});
    const double M = iir.at("v").get<double>() * iir.at("rho").get<double>();
    EXPECT_NEAR(iir.at("h").get<double>(), 200 * M, 1e-6 * M);
    EXPECT_NEAR(iir.at("s").get<double>(), M, 1e-8 * M);
    EXPECT_EQ(iir.at("reference").at("state"), "iir");
    EXPECT_TRUE(plain.at("reference").at("state").is_null());
}

TEST(QuorcalcFlash, TellsOfStatesOutsideTheRangesOfTheData) {
    const json cold = answer("T=80,p=100"), usual = answer("T=300,p=100"),
               hot = answer("T=1100,p=100");
    EXPECT_TRUE(cold.at("belowTriple"));
    EXPECT_FALSE(usual.at("belowTriple"));
    EXPECT_EQ(hot.at("deviation"), 100);
    EXPECT_EQ(usual.at("deviation"), 0);
}

}  // namespace
