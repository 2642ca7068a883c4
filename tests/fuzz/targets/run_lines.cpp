#include <nlohmann/json.hpp>
#include <sstream>

#include "common/text.h"
#include "harness.h"
#include "session_value.h"
#include "tools/quorcalc/program.h"

using namespace quor;

namespace {

/// The lines of `quorcalc run`. Those that name a list to write are left out, for no file outside
/// the folder of the test is to be touched.
bool read(std::string_view input) {
    constexpr std::size_t kMostLines = 8;
    if (input.find("lst") != std::string_view::npos) return false;
    fuzz::as_file(fuzz::content(fuzz::database_file()), "STUDENT.Q05");
    static quorcalc::Program program{Places(fuzz::own_folder(), {}, "15.11.2026")};

    std::string lines;
    std::size_t calls = 0;
    std::istringstream all{std::string(input)};
    for (std::string line; std::getline(all, line) && calls < kMostLines;) {
        const std::vector<std::string> words = quorcalc::split_line(line);
        if (!words.empty() && !words.front().starts_with('#')) ++calls;
        lines += line + "\n";
    }
    std::istringstream in(lines);
    std::ostringstream out, messages;
    const int code = program.main({"run", "-"}, in, out, messages);
    FUZZ_CHECK(code == 0 || code == 1);

    // One answer a call, each a JSON object that says how it went.
    std::size_t answers = 0;
    bool good = false;
    std::istringstream told(out.str());
    for (std::string line; std::getline(told, line); ++answers) {
        const auto answer = nlohmann::json::parse(line, nullptr, false);
        FUZZ_CHECK(answer.is_object());
        FUZZ_CHECK(answer.contains("status") && answer["status"].is_number_integer());
        FUZZ_CHECK(answer["status"] == 0 || answer.contains("message"));
        good = good || answer["status"] == 0;
    }
    FUZZ_CHECK(answers == calls);
    return good;
}

const fuzz::Registered registered("run_lines", read);

}  // namespace
