#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quor::datafiles {

inline constexpr std::size_t kRecordSize = 684;  ///< bytes of every record of a database
inline constexpr std::size_t kSlotCount = 124;   ///< values of a record
inline constexpr std::size_t kNameLength = 40;
inline constexpr std::size_t kFormulaLength = 12;
inline constexpr std::size_t kCasrnLength = 12;
/// A real zero in a slot; 0 itself means that there is no value.
inline constexpr float kRealZero = 1e-37F;

template <std::size_t N>
constexpr std::array<char, N> blanks() {
    std::array<char, N> blanks{};
    blanks.fill(' ');
    return blanks;
}

/// One record of a database, the header or a substance. Texts are kept as the bytes of the file
/// (code page 1252, blank-padded), so that what nobody changes goes back as it came.
struct SubstanceFileRecord {
    std::array<char, kFormulaLength> formula = blanks<kFormulaLength>();  ///< header: date
    std::array<char, kNameLength> name_english = blanks<kNameLength>();
    std::array<char, kNameLength> name_german = blanks<kNameLength>();
    std::array<char, kCasrnLength> casrn = blanks<kCasrnLength>();
    std::array<char, 41> text5 = blanks<41>();
    std::array<char, 41> text6 = blanks<41>();
    std::int16_t number = 0;  ///< substance number; header: number of substances
    std::array<float, kSlotCount> values{};
};

using RecordBytes = std::array<char, kRecordSize>;

SubstanceFileRecord decode_record(std::span<const char, kRecordSize> bytes);
RecordBytes encode_record(const SubstanceFileRecord& record);

/// A text field as UTF-8 with its full width; control characters become blanks.
std::string field_text(std::span<const char> field);
/// The name of a name field: what stands before the first ";", without blanks at its end.
std::string first_name(std::string_view name_field);
/// Writes a text into a field: as many characters as it holds, padded with blanks.
void set_field_text(std::span<char> field, std::string_view utf8);

}  // namespace quor::datafiles
