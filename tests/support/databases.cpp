#include "support/databases.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include "datafiles/database_table.h"

using namespace quor;

namespace databases {

namespace {

std::string whole_table() {
    std::ifstream in(std::string(QUOR_SOURCE_DATA) + "/substances.csv", std::ios::binary);
    if (!in) throw std::runtime_error("data/substances.csv is missing");
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

std::vector<std::string> cells_of(const std::string& line) {
    std::vector<std::string> cells(1);
    bool quoted = false;
    for (const char c : line) {
        if (c == '"')
            quoted = !quoted;
        else if (c == ',' && !quoted)
            cells.emplace_back();
        else if (c != '\r')
            cells.back() += c;
    }
    return cells;
}

std::vector<std::string> heads() {
    std::istringstream in(whole_table());
    std::string line;
    std::getline(in, line);
    return cells_of(line);
}

void write_csv(const std::filesystem::path& file, const std::string& csv) {
    const datafiles::DatabaseTable table = datafiles::read_database_table(csv);
    if (!table.errors.empty()) throw std::runtime_error(table.errors.front());
    std::ofstream(file, std::ios::binary) << datafiles::database_bytes(table.records);
}

}  // namespace

TableRow Row(std::string_view englishName) {
    std::istringstream in(whole_table());
    std::string line;
    std::getline(in, line);
    const std::vector<std::string> names = cells_of(line);
    while (std::getline(in, line)) {
        const std::vector<std::string> cells = cells_of(line);
        TableRow row;
        for (std::size_t i = 0; i < names.size() && i < cells.size(); ++i) row[names[i]] = cells[i];
        if (row["name_en"] == englishName) return row;
    }
    throw std::runtime_error("no such substance: " + std::string(englishName));
}

void Write(const std::filesystem::path& file, const std::vector<TableRow>& rows) {
    const std::vector<std::string> names = heads();
    std::string csv;
    const auto add_line = [&](const auto& cell) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (i > 0) csv += ',';
            csv += '"' + cell(names[i]) + '"';
        }
        csv += '\n';
    };
    add_line([](const std::string& name) { return name; });
    for (const TableRow& row : rows)
        add_line([&](const std::string& name) {
            const auto it = row.find(name);
            return it == row.end() ? std::string() : it->second;
        });
    write_csv(file, csv);
}

void WriteAll(const std::filesystem::path& file) {
    write_csv(file, whole_table());
}

}  // namespace databases
