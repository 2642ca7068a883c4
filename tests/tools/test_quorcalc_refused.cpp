// What quorcalc refuses, and that it says so. Exit codes are those of the program itself.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "support/temporary_folder.h"
#include "tools/quorcalc/options.h"
#include "tools/quorcalc_call.h"

using namespace quor;

namespace {

using nlohmann::json;
using Words = std::vector<std::string>;
using A = quorcalc::Arguments;

std::string sample(const std::string& name) {
    return std::string(QUOR_SOURCE_DATA) + "/samples/" + name;
}

Words joined(Words words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

/// An option of a command by its name and whether it is needed.
struct Named {
    std::string name;
    bool needed;
};
Named named(std::string_view option) {
    const bool needed = option.ends_with('!');
    return {std::string(option.substr(0, option.size() - (needed ? 1 : 0))), needed};
}

bool takes_number(const quorcalc::Option* option) {
    return option != nullptr &&
           (std::holds_alternative<std::optional<double> A::*>(option->field) ||
            std::holds_alternative<std::optional<int> A::*>(option->field));
}

/// A call with all that a command needs but `left_out`.
Words call_without(const quorcalc::Command& command, const std::string& left_out) {
    Words words{std::string(command.name), "--substance", "Propane"};
    for (const std::string_view text : command.options) {
        const auto [name, needed] = named(text);
        if (needed && name != left_out && name != "FILE") words = joined(words, {"--" + name, "1"});
    }
    return words;
}

/// Refused: no result, the exit code, and one sentence.
void expect_refused(const Words& words, int exit) {
    const Outcome r = run_quorcalc(words);
    const std::string asked = testing::PrintToString(words);
    EXPECT_EQ(r.exit, exit) << asked << r.err;
    EXPECT_EQ(r.out, "") << asked;
    EXPECT_TRUE(r.err.starts_with("quorcalc: ")) << asked << r.err;
    EXPECT_GT(r.err.size(), std::string("quorcalc: \n").size()) << asked;
}

TEST(QuorcalcRefuses, WhatIsNoNumberInEveryOptionThatTakesOne) {
    int options = 0;
    for (const quorcalc::Command& command : quorcalc::commands())
        for (const std::string_view text : command.options) {
            const std::string option = named(text).name;
            if (!takes_number(quorcalc::find_option(option))) continue;
            ++options;
            const Words words = call_without(command, option);
            for (const char* wrong :
                 {"nan", "inf", "-inf", "", "1e400", "1,5", "x", "0x10", "3 0"}) {
                const Outcome r = call_quorcalc(joined(words, {"--" + option, wrong}));
                EXPECT_EQ(r.exit, 2) << command.name << " --" << option << " " << wrong;
                EXPECT_NE(r.err.find("--" + option), std::string::npos) << r.err;
            }
        }
    EXPECT_GT(options, 30);
    for (const quorcalc::Option& option : quorcalc::common_options()) {
        if (!takes_number(&option)) continue;
        for (const char* wrong : {"nan", "inf", ""})
            EXPECT_EQ(call_quorcalc({"psat", "--substance", "Propane", "--T", "300",
                                     "--" + std::string(option.name), wrong})
                          .exit,
                      2)
                << option.name << " " << wrong;
    }
}

TEST(QuorcalcRefuses, NumbersThatAreNoneInListsOfNumbers) {
    const std::string xy = sample("benzene_vapour_pressure.XY");
    const Words psat{"psat", "--substance", "Propane", "--T", "300"};
    const Words curve{"curve", "--substance", "Propane", "--type", "1", "--T", "300"};
    const Words fit{"fit", "--model", "1", "--file", xy};
    for (const std::string wrong : {"nan", "inf", "1e39", "1e400", "x", "", "1 2"}) {
        expect_refused(joined(psat, {"--benson", "300,100,500," + wrong}), 2);
        expect_refused(joined(curve, {"--window", "0,1,0," + wrong}), 2);
        expect_refused(joined(psat, {"--set", "Tcrit=" + wrong}), 2);
        if (wrong != "1e39") expect_refused(joined(fit, {"--start", "1," + wrong}), 2);
        if (!wrong.empty()) expect_refused(joined(fit, {"--fix", wrong}), 2);
    }
}

TEST(QuorcalcRefuses, CodesThatOnlyLookLikeOthersIn16Bits) {
    expect_refused({"fit", "--model", "65537", "--file", sample("benzene_vapour_pressure.XY")}, 2);
    expect_refused({"data", "--substance", "#65585"}, 1);
    expect_refused({"data", "--substance", "#4294967345"}, 1);
    expect_refused({"curve", "--substance", "Propane", "--type", "1x", "--T", "300"}, 2);
    expect_refused({"vp", "--substance", "Propane", "--T", "300", "--code", "XYZ"}, 2);
    EXPECT_EQ(run_quorcalc({"data", "--substance", "#49"}).exit, 0);
}

TEST(QuorcalcRefuses, StatesThatThereAreNot) {
    const auto propane = [](const std::string& command, const Words& more) {
        return joined({command, "--substance", "Propane"}, more);
    };
    for (const char* command : {"psat", "virial", "eos", "cpid", "rhol", "rhos", "vp", "vpslope"})
        for (const char* T : {"0", "-1"}) expect_refused(propane(command, {"--T", T}), 2);
    for (const char* command : {"tsat", "tboil"})
        for (const char* p : {"0", "-5"}) expect_refused(propane(command, {"--p", p}), 2);
    for (const char* command : {"state", "roots", "functions"}) {
        expect_refused(propane(command, {"--T", "300", "--p", "0"}), 2);
        expect_refused(propane(command, {"--T", "0", "--p", "100"}), 2);
    }
    expect_refused(propane("p", {"--T", "-1", "--v", "1"}), 2);
    expect_refused(propane("p", {"--T", "300", "--v", "0"}), 2);
    expect_refused(propane("p", {"--T", "300", "--v", "1e-30"}), 1);
    expect_refused(propane("T", {"--p", "100", "--rho", "0"}), 2);
    // Neither the ideal gas nor a virial equation has a liquid.
    for (const char* eos : {"1", "9", "15"}) {
        expect_refused(propane("psat", {"--T", "300", "--eos", eos}), 1);
        expect_refused(propane("tsat", {"--p", "300", "--eos", eos}), 1);
    }
}

TEST(QuorcalcRefuses, NumbersBeyond32BitsWhereTheCoreHasNoMore) {
    for (const char* command : {"rhol", "rhos"})
        expect_refused({command, "--substance", "Propane", "--T", "1e39"}, 2);
    for (const char* option : {"--V", "--m", "--T"}) {
        Words words{"calc", "--substance", "Propane", "--mode", "9"};
        for (const char* one : {"--V", "--m", "--T"})
            words = joined(words, {one, std::string(one) == option ? "1e39" : "300"});
        expect_refused(words, 2);
    }
    expect_refused({"psat", "--substance", "Propane", "--T", "300", "--T0", "1e39"}, 2);
}

// --------------------------------------------------------------------------------- odd bytes

TEST(QuorcalcTakesAnyBytes, InANameAndAnswersWithUtf8) {
    for (const std::string odd : {"\xff", "\xc3", "Prop\xe9n", "\xed\xa0\x80", "\x80\x80", "\x1b["})
        for (const Words& more : {Words{}, Words{"--json"}}) {
            const Outcome r =
                run_quorcalc(joined({"psat", "--substance", odd, "--T", "300"}, more));
            EXPECT_EQ(r.exit, 1) << r.err;
            EXPECT_EQ(r.out.empty(), more.empty());
            if (!more.empty()) {
                EXPECT_EQ(r.object().at("status"), -1);
            }
            const Outcome database =
                run_quorcalc(joined({"list", "--db", "/nowhere/" + odd}, more));
            EXPECT_EQ(database.exit, 1) << database.err;
            if (!more.empty()) {
                EXPECT_EQ(database.object().at("status"), -1);
            }
        }
}

TEST(QuorcalcTakesAnyBytes, InALineOfARunAndGoesOn) {
    const std::string good = "psat --substance Propane --T 300";
    std::string calls;
    for (int byte = 0; byte < 256; ++byte) {
        const char c = static_cast<char>(byte);
        if (c == '\n') continue;
        calls += "psat --substance Prop" + std::string(1, c) + "ane --T 300\n";
        calls += std::string(1, c) + "\xff --set " + std::string(1, c) + "=\xfe\n";
    }
    calls += good + "\n";
    const Outcome r = run_quorcalc({"run", "-"}, calls);
    EXPECT_EQ(r.exit, 1);
    const std::vector<std::string> answers = lines_of(r.out);
    // A line that begins with # is a remark.
    ASSERT_EQ(answers.size(), 2U * 255U - 1U + 1U);
    for (const std::string& answer : answers) EXPECT_TRUE(json::accept(answer)) << answer;
    EXPECT_EQ(json::parse(answers.back()).at("status"), 0);
}

// ------------------------------------------------------------------------ files and the output

TEST(QuorcalcTellsOfFiles, AFullStandardOutputIsAFailure) {
    for (const Words& words :
         {Words{"list"}, Words{"--help"}, Words{"psat", "--substance", "Propane", "--T", "300"},
          Words{"psat", "--substance", "Propane", "--T", "300", "--json"}}) {
        const Outcome r = run_quorcalc(words, "", "/dev/full");
        EXPECT_EQ(r.exit, 1) << words.front();
        EXPECT_NE(r.err.find("standard output cannot be written"), std::string::npos) << r.err;
    }
    std::string calls;
    for (int i = 0; i < 20000; ++i) calls += "psat --substance Propane --T 300\n";
    const Outcome r = run_quorcalc({"run", "-"}, calls, "/dev/full");
    EXPECT_EQ(r.exit, 1);
    EXPECT_NE(r.err.find("standard output cannot be written"), std::string::npos) << r.err;
}

TEST(QuorcalcTellsOfFiles, AFolderIsNoFileOfCalls) {
    const TemporaryFolder folder;
    const Outcome r = run_quorcalc({"run", folder.path().string()});
    EXPECT_EQ(r.exit, 1);
    EXPECT_NE(r.err.find(folder.path().string()), std::string::npos) << r.err;
    for (const Words& words : {Words{"fit", "--model", "1", "--file", folder.path().string()},
                               Words{"batch", "--mode", "4", "--file", folder.path().string()},
                               Words{"list", "--db", folder.path().string()}})
        expect_refused(words, 1);
}

TEST(QuorcalcTellsOfFiles, PointsThatAFitLeavesOut) {
    const TemporaryFolder folder;
    const std::string file = (folder.path() / "many.XY").string();
    std::ofstream out(file);
    out << "points\n";
    for (int i = 0; i < 40000; ++i) out << 300 + i % 100 << ";" << 1 + i % 100 << "\n";
    out.close();
    const Words words{"fit", "--model", "0", "--file", file};
    EXPECT_NE(run_quorcalc(words).err.find("Only the first 32767"), std::string::npos);
    const json r = run_quorcalc(joined(words, {"--json"})).object();
    EXPECT_NE(r.at("messages").dump().find("Only the first 32767"), std::string::npos);
}

}  // namespace
