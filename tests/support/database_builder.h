#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

/// Databases laid out byte by byte, as the format describes them.
namespace builder {

struct Substance {
    std::string formula{}, name_english{}, name_german{}, casrn{};  ///< bytes of code page 1252
    std::int16_t number = 0;
    std::map<int, float> slots{};  ///< by slot number from 1
    std::string text5{}, text6{};
};

/// The 684 bytes of a record.
std::string Record(const Substance& s);
/// A whole file: header with the count, then the substances.
std::string Database(const std::vector<Substance>& substances);

/// A substance with critical data and a molar mass.
Substance Plain(const std::string& name, const std::string& casrn);
/// Propane with its Wagner set.
Substance Propane();

void WriteFile(const std::filesystem::path& path, const std::string& bytes);
std::string ReadFile(const std::filesystem::path& path);

}  // namespace builder
