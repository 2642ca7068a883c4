#include "support/session_test.h"

#include <unistd.h>

#include "common/numbers.h"
#include "session/module2.h"

using namespace quor;

SessionTest::SessionTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "quor-test-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    numbers::set_decimal_mark('.');
    session::set_program_folder(folder_);
    session::set_short_date("15.11.2026");
    session::reset_everything();
}

SessionTest::~SessionTest() {
    std::error_code ignored;
    std::filesystem::permissions(folder_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(folder_, ignored);
    numbers::set_decimal_mark('.');
    session::set_short_date("");
}
