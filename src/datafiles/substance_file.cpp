#include "datafiles/substance_file.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "common/text.h"

namespace quor::datafiles {

namespace {

/// Walks over the fields of a record in the order of the file.
template <class Byte>
struct Cursor {
    Byte* at;

    template <std::size_t N>
    void text(std::array<char, N>& field) {
        std::copy_n(at, N, field.begin());
        at += N;
    }
    template <std::size_t N>
    void put_text(const std::array<char, N>& field) {
        at = std::copy(field.begin(), field.end(), at);
    }
    template <class Word>
    Word word() {
        Word value = 0;
        for (std::size_t i = 0; i < sizeof(Word); ++i)
            value = static_cast<Word>(
                value |
                static_cast<Word>(static_cast<Word>(static_cast<unsigned char>(at[i])) << (8 * i)));
        at += sizeof(Word);
        return value;
    }
    template <class Word>
    void put_word(Word value) {
        for (std::size_t i = 0; i < sizeof(Word); ++i) at[i] = static_cast<char>(value >> (8 * i));
        at += sizeof(Word);
    }
};

bool is_control(char c) {
    return static_cast<unsigned char>(c) < 0x20;
}

}  // namespace

SubstanceFileRecord decode_record(std::span<const char, kRecordSize> bytes) {
    SubstanceFileRecord r;
    Cursor<const char> in{bytes.data()};
    in.text(r.formula);
    in.text(r.name_english);
    in.text(r.name_german);
    in.text(r.casrn);
    in.text(r.text5);
    in.text(r.text6);
    r.number = static_cast<std::int16_t>(in.word<std::uint16_t>());
    for (float& slot : r.values) slot = std::bit_cast<float>(in.word<std::uint32_t>());
    return r;
}

RecordBytes encode_record(const SubstanceFileRecord& r) {
    RecordBytes bytes{};
    Cursor<char> out{bytes.data()};
    out.put_text(r.formula);
    out.put_text(r.name_english);
    out.put_text(r.name_german);
    out.put_text(r.casrn);
    out.put_text(r.text5);
    out.put_text(r.text6);
    out.put_word(static_cast<std::uint16_t>(r.number));
    for (const float slot : r.values) out.put_word(std::bit_cast<std::uint32_t>(slot));
    return bytes;
}

std::string field_text(std::span<const char> field) {
    const std::string_view raw(field.data(), field.size());
    if (std::none_of(raw.begin(), raw.end(), is_control)) return text::from_ansi(raw);
    std::string bytes(raw);
    std::replace_if(bytes.begin(), bytes.end(), is_control, ' ');
    return text::from_ansi(bytes);
}

std::string first_name(std::string_view name_field) {
    return text::trim_right(name_field.substr(0, name_field.find(';')));
}

void set_field_text(std::span<char> field, std::string_view utf8) {
    const std::string bytes = text::to_ansi(text::pad_right(utf8, field.size()));
    std::fill(field.begin(), field.end(), ' ');
    std::copy_n(bytes.begin(), std::min(bytes.size(), field.size()), field.begin());
}

}  // namespace quor::datafiles
