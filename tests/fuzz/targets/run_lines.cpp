#include <nlohmann/json.hpp>
#include <sstream>

#include "common/text.h"
#include "harness.h"
#include "session_value.h"
#include "tools/quorcalc/program.h"

using namespace quor;

namespace {

/// The folder of the files that the calls name, written once: a database whose time has changed
/// would be read anew for each input.
const std::filesystem::path& files() {
    fuzz::as_file(fuzz::content(fuzz::database_file()), "STUDENT.Q05");
    fuzz::as_file("points\r\n250;1.5\r\n300;2\r\n350;2.75\r\n400;4\r\n", "points.XY");
    fuzz::as_file("15.11.2026\r\n\r\n74-98-6     \r\n1\r\n300,998.5,489.4,21.6,14750,73.5\r\n",
                  "data.BAQ");
    std::filesystem::current_path(fuzz::own_folder());
    return fuzz::own_folder();
}

/// The lines of `quorcalc run`. Those that name a list to write are left out, for no file outside
/// the folder of the test is to be touched.
bool read(std::string_view input) {
    constexpr std::size_t kMostLines = 4;
    if (input.find("lst") != std::string_view::npos) return false;
    static quorcalc::Program program{Places(files(), {}, "15.11.2026")};

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
