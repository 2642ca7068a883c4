#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <sstream>
#include <streambuf>

#include "common/whole_file.h"
#include "datafiles/database_table.h"
#include "support/temporary_folder.h"
#include "tools/quorcalc/program.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

Places shipped() {
    return Places(QUOR_BINARY_FOLDER);
}

/// The shipped files in a folder of their own.
Places copied(std::initializer_list<const char*> files, const TemporaryFolder& folder) {
    for (const char* file : files)
        fs::copy(fs::path(QUOR_BINARY_FOLDER) / file, folder.path() / file);
    return Places(folder.path());
}

/// What a run over these lines prints.
std::vector<std::string> run(quorcalc::Program& program, const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    std::istringstream in(text);
    std::ostringstream out, err;
    program.main({"run", "-"}, in, out, err);
    EXPECT_EQ(err.str(), "");
    return lines_of(out.str());
}

std::vector<std::string> run(const Places& places, const std::vector<std::string>& lines) {
    quorcalc::Program program(places);
    return run(program, lines);
}

/// What a call of its own gives: its JSON, or its message where the words are wrong.
std::string single(const Places& places, const std::string& line) {
    quorcalc::Program program(places);
    std::vector<std::string> words = quorcalc::split_line(line);
    words.insert(words.begin(), "--json");
    std::istringstream in;
    std::ostringstream out, err;
    program.main(words, in, out, err);
    if (!out.str().empty() && out.str().front() == '{') return lines_of(out.str()).front();
    const std::string prefix = "quorcalc: ";
    const std::string message =
        out.str().empty() ? err.str().substr(prefix.size()) : "help is not a calculation\n";
    return nlohmann::ordered_json{{"status", -1},
                                  {"message", message.substr(0, message.size() - 1)}}
        .dump();
}

/// Calls of every kind, in an order in which each would betray what it has left behind.
std::vector<std::string> mixed_calls() {
    std::vector<std::string> calls = {
        "list",
        "groups --groups \"-CH3=2,>CH-=1\"",
        "groups --groups nonsense",
        "fit --model 1 --file /nowhere.XY",
        "batch --mode 3 --file /nowhere.BAQ",
        "psat --T 300",
        "psat --substance Unobtainium --T 300",
        "psat --substance Propane",
        "psat --substance Propane --T x",
        "psat --substance Propane --T ''",
        "psat --substance Propane --T 300 --T 301",
        "psat --substance Propane --T 300 --v 3",
        "psat --substance Propane --T",
        "psat --substance=Propane --T=300",
        "--substance Propane psat --T 300",
        "psat stray --substance Propane --T 300",
        "nonsense",
        "--help",
        "psat --help",
        "psat --db /nowhere/NONE.Q05 --substance Propane --T 300",
        "data --substance Kohlendioxyd",
        "data --substance \"#3\" --units specific",
        "curve --substance Water --type 1 --T 550 --points 20",
        "curve --substance Water --type 1 --T 550 --points 20 --scurve --units reduced",
        "curve --substance Water --type 1 --T 550 --png never.png",
        "curve --substance Water --type none",
        "surface --substance Propane --kind 7 --nx 3 --ny 3",
        "surface --substance Propane --kind 99",
        "calc --mode 10 --substance Propane --T 400 --V 1 --m 10",
        "calc --mode 3 --substance Propane --p 500",
        "functions --substance Methane --T 300 --p 100 --row X",
        "hlv --substance Propane",
    };
    // Each of these leaves something in a session: overrides, models, units, a reference state.
    const char* left[] = {"",
                          " --set Tcrit=400",
                          " --set pcrit=4000 --set omega=0.2",
                          " --set jtM=0.4 --set jtP=0.1 --set jtQ=0.1 --set jtZc=0.3 --eos 7",
                          " --set AUG.1=5 --set AUG.2=-250 --vp AUG",
                          " --set M=0 --units specific",
                          " --set Nothing=1",
                          " --eos 4",
                          " --eos 7",
                          " --eos 14 --priority vp",
                          " --eos 99",
                          " --vp KFW",
                          " --vp XYZ",
                          " --hlv 4 --watson 0.4",
                          " --cp 1",
                          " --units specific",
                          " --units reduced",
                          " --units odd",
                          " --refmode 2",
                          " --refmode 10 --T0 300 --p0 200",
                          " --refmode 3",
                          " --href 1000 --sref 5",
                          " --href 0",
                          " --href -0.0",
                          " --Tenv 280 --penv 90",
                          " --benson 250,200,560,4.8",
                          " --benson 1,2"};
    const char* asked[] = {"psat --T 300",
                           "state --T 300 --p 500",
                           "eos --T 310",
                           "hlv --T 290",
                           "vp --T 280",
                           "functions --T 300 --p 500",
                           "calc --mode 3 --T 300 --p 500 --uhs",
                           "calc --mode 4 --partial --T 290 --page 2"};
    const char* substances[] = {"Propane", "\"Carbon dioxide\"", "Water", "#1", "R-134a"};
    std::size_t n = 0;
    for (const char* options : left)
        for (const char* call : asked)
            for (int repeat = 0; repeat < 2; ++repeat)
                calls.push_back(std::string(call) + " --substance " +
                                substances[(n++ / 3) % std::size(substances)] + options);
    return calls;
}

TEST(QuorcalcRun, EveryLineGivesWhatACallOfItsOwnGives) {
    // An equation without its parameters leaves a file for the program that finds them.
    const TemporaryFolder folder;
    const Places places = copied({"STUDENT.Q05", "SYNOM.TXT"}, folder);
    const std::vector<std::string> calls = mixed_calls();
    std::vector<std::string> expected;
    int good = 0, bad = 0;
    for (const std::string& call : calls) {
        expected.push_back(single(places, call));
        (json::parse(expected.back()).at("status") == 0 ? good : bad)++;
    }
    EXPECT_GT(good, 250);
    EXPECT_GT(bad, 60);

    // With what is no call between the lines; then once more over all that was kept, backwards.
    std::vector<std::string> lines;
    for (const std::string& call : calls) lines.insert(lines.end(), {"# remark", "", call});
    quorcalc::Program program(places);
    const std::vector<std::string> forward = run(program, lines);
    ASSERT_EQ(forward.size(), calls.size());
    for (std::size_t i = 0; i < calls.size(); ++i) EXPECT_EQ(forward[i], expected[i]) << calls[i];
    const std::vector<std::string> backward = run(program, {calls.rbegin(), calls.rend()});
    ASSERT_EQ(backward.size(), calls.size());
    for (std::size_t i = 0; i < calls.size(); ++i)
        EXPECT_EQ(backward[calls.size() - 1 - i], expected[i]) << calls[i];
}

TEST(QuorcalcRun, MoreSetUpsThanAreKeptGiveTheSame) {
    std::vector<std::string> calls;
    for (int i = 0; i < 700; ++i)
        calls.push_back("psat --T 300 --substance Propane --set Tcrit=" +
                        std::to_string(360 + i % 350) + (i < 350 ? "" : " --eos 6"));
    const std::vector<std::string> results = run(shipped(), calls);
    ASSERT_EQ(results.size(), calls.size());
    for (std::size_t i = 0; i < calls.size(); i += 13)
        EXPECT_EQ(results[i], single(shipped(), calls[i])) << calls[i];
}

TEST(QuorcalcRun, EveryLineIsToldOfAMissingSynonymFile) {
    const TemporaryFolder folder;
    const Places places = copied({"STUDENT.Q05"}, folder);
    const std::string unknown = "psat --substance Kohlendioxyd --T 280";
    const std::string known = "psat --substance 124-38-9 --T 280";
    const std::vector<std::string> results = run(places, {unknown, known, unknown});
    ASSERT_EQ(results.size(), 3U);
    EXPECT_NE(results[0].find("SYNOM.TXT was not found"), std::string::npos) << results[0];
    EXPECT_EQ(results[0], results[2]);
    EXPECT_EQ(results[0], single(places, unknown));
    EXPECT_EQ(results[1], single(places, known));
    EXPECT_EQ(json::parse(results[1]).at("status"), 0);
}

/// Lines of which each is written only when it is waited for.
class SlowLines : public std::streambuf {
  public:
    /// `beforeLine` is called with the number of the line, from 0, before it is there.
    SlowLines(std::vector<std::string> lines, std::function<void(std::size_t)> beforeLine)
        : lines_(std::move(lines)), beforeLine_(std::move(beforeLine)) {}

  private:
    int_type underflow() override {
        if (next_ == lines_.size()) return traits_type::eof();
        beforeLine_(next_);
        std::string& line = lines_[next_++];
        line += '\n';
        setg(line.data(), line.data(), line.data() + line.size());
        return traits_type::to_int_type(line.front());
    }

    std::vector<std::string> lines_;
    std::function<void(std::size_t)> beforeLine_;
    std::size_t next_ = 0;
};

/// Counts how often what was written is passed on, and keeps what has been by then.
class CountedOutput : public std::stringbuf {
  public:
    int flushes = 0;
    std::string seen;

  private:
    int sync() override {
        ++flushes;
        seen = str();
        return 0;
    }
};

TEST(QuorcalcRun, AWriterThatWaitsForAResultGetsIt) {
    CountedOutput output;
    SlowLines source({"psat --substance Propane --T 300", "# remark", "nonsense", "list"},
                     [&](std::size_t line) {
                         const std::size_t results[] = {0, 1, 1, 2};
                         EXPECT_EQ(lines_of(output.seen).size(), results[line]) << line;
                     });
    std::istream in(&source);
    std::ostream out(&output);
    std::ostringstream err;
    quorcalc::Program(shipped()).main({"run", "-"}, in, out, err);
    EXPECT_EQ(lines_of(output.seen).size(), 3U);
}

TEST(QuorcalcRun, ResultsOfLinesThatAreThereArePassedOnTogether) {
    std::string lines;
    for (int i = 0; i < 100; ++i) lines += "psat --substance Propane --T 300\n";
    std::istringstream in(lines);
    CountedOutput output;
    std::ostream out(&output);
    std::ostringstream err;
    quorcalc::Program(shipped()).main({"run", "-"}, in, out, err);
    EXPECT_EQ(lines_of(output.seen).size(), 100U);
    EXPECT_LT(output.flushes, 10);
}

TEST(QuorcalcRun, RunsDoNotNest) {
    const std::vector<std::string> results = run(shipped(), {"run -", "run /nowhere/file"});
    ASSERT_EQ(results.size(), 2U);
    EXPECT_EQ(json::parse(results[0]).at("message"), "run does not nest");
    EXPECT_EQ(results[1], results[0]);
}

TEST(QuorcalcRun, TheLastLineNeedsNoEnd) {
    std::istringstream in("psat --substance Propane --T 300\npsat --substance Propane --T 300");
    std::ostringstream out, err;
    EXPECT_EQ(quorcalc::Program(shipped()).main({"run", "-"}, in, out, err), 0);
    const std::vector<std::string> results = lines_of(out.str());
    ASSERT_EQ(results.size(), 2U);
    EXPECT_EQ(results[0], results[1]);
}

TEST(QuorcalcRun, ADatabaseThatIsReplacedBetweenLinesIsReadAnew) {
    const TemporaryFolder folder;
    const std::string database = (folder.path() / "OWN.Q05").string();
    const auto write = [&](const std::string& Tcrit) {
        const auto table = datafiles::read_database_table(
            "formula,name_en,casrn,M,Tcrit,pcrit\nC3H8,Propane,74-98-6,44.096," + Tcrit +
            ",4251.2\n");
        ASSERT_TRUE(table.errors.empty());
        ASSERT_TRUE(files::write_whole(database, datafiles::database_bytes(table.records)));
    };
    const std::string call = "data --db " + database + " --substance Propane";
    write("369.89");
    SlowLines source({call, call, call, call}, [&](std::size_t line) {
        if (line == 2) write("380.5");
        if (line == 3) fs::remove(database);
    });
    std::istream in(&source);
    std::ostringstream out, err;
    quorcalc::Program(shipped()).main({"run", "-"}, in, out, err);
    const std::vector<std::string> results = lines_of(out.str());
    ASSERT_EQ(results.size(), 4U);
    EXPECT_DOUBLE_EQ(json::parse(results[0]).at("Tcrit"), 369.89);
    EXPECT_EQ(results[1], results[0]);
    EXPECT_DOUBLE_EQ(json::parse(results[2]).at("Tcrit"), 380.5);
    EXPECT_EQ(json::parse(results[3]).at("message"), "Database OWN.Q05 not found or empty resp.");
}

TEST(QuorcalcRun, ProgramsSideBySideKeepToThemselves) {
    const TemporaryFolder empty;
    quorcalc::Program here(shipped()), elsewhere{Places(empty.path())};
    const std::string call = "psat --substance Propane --T 300";
    const std::string good = run(here, {call}).front();
    EXPECT_EQ(json::parse(good).at("status"), 0);
    EXPECT_EQ(json::parse(run(elsewhere, {call}).front()).at("message"),
              "Database STUDENT.Q05 not found or empty resp.");
    EXPECT_EQ(run(here, {call}).front(), good);
}

}  // namespace
