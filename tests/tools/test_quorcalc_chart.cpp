#include "tools/quorcalc_call.h"

namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

Words chart_of(const std::string& kind, const Words& more = {}) {
    Words words{"chart", "--substance", "Propane", "--eos", "6", "--json", "--kind", kind};
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

json answer(const std::string& kind, const Words& more = {}) {
    const Outcome r = call_quorcalc(chart_of(kind, more));
    EXPECT_EQ(r.exit, 0) << kind << r.err;
    EXPECT_EQ(r.err, "");
    return r.object();
}

TEST(QuorcalcChart, HasADomeAndFamiliesInsideTheWindowForEveryKind) {
    for (const char* kind : {"logph", "ts", "hs", "pv", "logpv", "tv", "pt", "th", "zp", "eh"}) {
        const json r = answer(kind);
        const json& w = r.at("window");
        ASSERT_EQ(w.size(), 4U);
        const auto inside = [&](const json& point) {
            const double x = point.at(0), y = point.at(1);
            const double dx = 1e-9 * (w[1].get<double>() - w[0].get<double>()),
                         dy = 1e-9 * (w[3].get<double>() - w[2].get<double>());
            return x >= w[0].get<double>() - dx && x <= w[1].get<double>() + dx &&
                   y >= w[2].get<double>() - dy && y <= w[3].get<double>() + dy;
        };
        EXPECT_EQ(r.at("kind"), kind);
        EXPECT_GT(r.at("dome").size(), 20U) << kind;
        EXPECT_NEAR(r.at("critical").at(2).get<double>(), 369.9, 0.1);
        EXPECT_TRUE(r.at("skipped").is_array());
        EXPECT_FALSE(r.at("families").empty());
        for (const json& family : r.at("families")) {
            EXPECT_GE(family.at("lines").size(), 3U) << kind << family.at("quantity");
            for (const json& line : family.at("lines")) {
                EXPECT_TRUE(line.at("value").is_number());
                EXPECT_GE(line.at("points").size(), 2U);
                for (const json& point : line.at("points"))
                    EXPECT_TRUE(point.is_null() || inside(point)) << kind << point;
                for (const json& point : line.at("dome")) EXPECT_TRUE(inside(point));
            }
        }
    }
}

TEST(QuorcalcChart, CrossesTheDomeWhereTsatTells) {
    const json r = answer("ts", {"--families", "p"});
    ASSERT_EQ(r.at("families").size(), 1U);
    int crossings = 0;
    for (const json& line : r.at("families")[0].at("lines")) {
        const double p = line.at("value");
        for (const json& point : line.at("dome")) {
            const double T = call_quorcalc({"tsat", "--substance", "Propane", "--eos", "6", "--p",
                                            json(p).dump(), "--json"})
                                 .object()
                                 .at("T");
            EXPECT_NEAR(point.at(1).get<double>(), T, 1e-9 * T) << p;
            ++crossings;
        }
    }
    EXPECT_GE(crossings, 8);
}

TEST(QuorcalcChart, IsInTheChosenUnits) {
    const json molar = answer("logph"), metric = answer("logph", {"--out-units", "metric"});
    const json& a = molar.at("critical");
    const json& b = metric.at("critical");
    EXPECT_EQ(molar.at("xaxis").at("unit"), "kJ/kmol");
    EXPECT_EQ(metric.at("xaxis").at("unit"), "kJ/kg");
    EXPECT_EQ(metric.at("yaxis").at("unit"), "bar");
    EXPECT_TRUE(metric.at("yaxis").at("log").get<bool>());
    EXPECT_NEAR(b.at(1).get<double>(), a.at(1).get<double>() / 100, 1e-9);
    EXPECT_NEAR(b.at(2).get<double>(), a.at(2).get<double>() - 273.15, 1e-9);
    EXPECT_EQ(metric.at("families").at(0).at("unit"), "degC");
}

TEST(QuorcalcChart, KeepsTheWindowOfTheCall) {
    const json r = answer("logph", {"--window", "-20000,5000,100,8000", "--families", "T,v"});
    EXPECT_EQ(r.at("window"), json::parse("[-20000.0, 5000.0, 100.0, 8000.0]"));
    ASSERT_EQ(r.at("families").size(), 2U);
    EXPECT_EQ(r.at("families")[0].at("quantity"), "T");
    EXPECT_EQ(r.at("families")[1].at("quantity"), "v");
}

TEST(QuorcalcChart, RefusesWrongCallsInWords) {
    const auto refused = [](const Words& words, const std::string& why) {
        const Outcome r = call_quorcalc(words);
        EXPECT_EQ(r.exit, 2) << r.out;
        EXPECT_NE(r.err.find(why), std::string::npos) << r.err;
    };
    refused(chart_of("xy"), "--kind: no such chart: xy (logph, ts, hs");
    refused(chart_of("7"), "--kind: no such chart: 7");
    refused(chart_of("ts", {"--families", "T,q"}), "--families: none of T, p, v, h, s: q");
    refused(chart_of("ts", {"--window", "1,2,3"}), "--window needs xmin,xmax,ymin,ymax");
    refused(chart_of("ts", {"--window", "1,2,3,a"}), "--window: not a number: a");
    refused(chart_of("ts", {"--window", "2,1,3,4"}), "the smaller ones first");
    refused({"surface", "--substance", "Propane", "--kind", "logph"},
            "--kind: no such surface: logph");
    const Outcome log = call_quorcalc(chart_of("logph", {"--window", "-2000,5000,0,8000"}));
    EXPECT_EQ(log.exit, 1);
    EXPECT_NE(log.err.find("above 0 on a logarithmic axis"), std::string::npos) << log.err;
}

TEST(QuorcalcChart, WritesLinesOfNumbersWithoutJson) {
    const Outcome r = call_quorcalc(
        {"chart", "--substance", "Propane", "--eos", "6", "--kind", "ts", "--families", "p"});
    EXPECT_EQ(r.exit, 0) << r.err;
    EXPECT_TRUE(r.out.starts_with("# dome\n"));
    EXPECT_NE(r.out.find("\n# p = 100.0 kPa\n"), std::string::npos) << r.out.substr(0, 400);
}

}  // namespace
