// make_database TABLE.csv OUT.Q05: writes a table of substances as a substance database.
// Exit status 0 when it is written, 1 when the table is bad or a file cannot be read or written,
// 2 for a wrong call.

#include <cstdio>
#include <string>

#include "common/whole_file.h"
#include "datafiles/database_table.h"

using namespace quor;

namespace {

constexpr int kBadTable = 1;
constexpr int kWrongCall = 2;

int fail(const std::string& message) {
    std::fprintf(stderr, "make_database: %s\n", message.c_str());
    return kBadTable;
}

int make_database(const std::string& table_path, const std::string& database_path) {
    const Result<std::string> file = files::read_whole(table_path);
    if (!file) return fail(file.reason());
    const datafiles::DatabaseTable table = datafiles::read_database_table(*file);
    for (const std::string& error : table.errors) fail(table_path + ": " + error);
    if (!table.errors.empty()) return kBadTable;
    const Result<void> written =
        files::write_whole(database_path, datafiles::database_bytes(table.records));
    if (!written) return fail(written.reason());
    std::printf("%zu substances written to %s\n", table.records.size(), database_path.c_str());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_database TABLE.csv OUT.Q05\n");
        return kWrongCall;
    }
    return make_database(argv[1], argv[2]);
}
