#include "support/database_builder.h"

#include <cstring>
#include <fstream>
#include <sstream>

namespace builder {

namespace {

void put(std::string& record, std::size_t offset, std::size_t width, const std::string& text) {
    record.replace(offset, width, (text + std::string(width, ' ')).substr(0, width));
}

}  // namespace

std::string Record(const Substance& s) {
    std::string record(684, '\0');
    put(record, 0, 12, s.formula);
    put(record, 12, 40, s.name_english);
    put(record, 52, 40, s.name_german);
    put(record, 92, 12, s.casrn);
    put(record, 104, 41, s.text5);
    put(record, 145, 41, s.text6);
    std::memcpy(record.data() + 186, &s.number, 2);
    for (const auto& [slot, value] : s.slots)
        std::memcpy(record.data() + 188 + 4 * (slot - 1), &value, 4);
    return record;
}

std::string Database(const std::vector<Substance>& substances) {
    Substance header;
    header.number = static_cast<std::int16_t>(substances.size());
    std::string bytes = Record(header);
    for (const Substance& s : substances) bytes += Record(s);
    return bytes;
}

Substance Plain(const std::string& name, const std::string& casrn) {
    Substance s;
    s.formula = "X2";
    s.name_english = name;
    s.casrn = casrn;
    s.number = 1;
    s.slots = {{1, 50.0F}, {7, 400.0F}, {8, 4000.0F}, {9, 200.0F}, {10, 0.2F}, {11, 250.0F}};
    return s;
}

Substance Propane() {
    Substance s = Plain("Propane", "74-98-6");
    s.formula = "C3H8";
    s.slots[1] = 44.096F;
    s.slots[7] = 369.89F;
    s.slots[8] = 4251.2F;
    s.slots[11] = 231.036F;
    const float wagner[] = {-6.76368F, 1.55481F, -1.5872F, 2.5F,    -2.024F,
                            5.0F,      0.0F,     0.0F,     369.89F, 4251.2F};
    for (int i = 0; i < 10; ++i) s.slots[49 + i] = wagner[i];
    s.slots[59] = 145.0F;
    s.slots[60] = 369.0F;
    return s;
}

void WriteFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream all;
    all << in.rdbuf();
    return all.str();
}

}  // namespace builder
