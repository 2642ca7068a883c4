#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "datafiles/substance_file.h"
#include "support/database_builder.h"

using namespace quor;

namespace {

using datafiles::SubstanceFileRecord;

SubstanceFileRecord decode(const std::string& bytes) {
    return datafiles::decode_record(std::span<const char, 684>(bytes.data(), 684));
}

std::string encode(const SubstanceFileRecord& record) {
    const datafiles::RecordBytes bytes = datafiles::encode_record(record);
    return {bytes.begin(), bytes.end()};
}

TEST(SubstanceFile, EveryFieldLiesAtItsOffset) {
    builder::Substance s{.formula = "C2H6O",
                         .name_english = "Ethanol;alcohol",
                         .name_german = "\xC4thanol",
                         .casrn = "64-17-5",
                         .number = -2,
                         .slots = {{1, 46.068F}, {124, -1.5F}},
                         .text5 = "five",
                         .text6 = "six"};
    const SubstanceFileRecord r = decode(builder::Record(s));
    EXPECT_EQ(datafiles::field_text(r.formula), "C2H6O       ");
    EXPECT_EQ(datafiles::field_text(r.name_english), "Ethanol;alcohol                         ");
    EXPECT_EQ(datafiles::field_text(r.name_german).substr(0, 8), "Äthanol");
    EXPECT_EQ(datafiles::field_text(r.casrn), "64-17-5     ");
    EXPECT_EQ(std::string(r.text5.begin(), r.text5.begin() + 5), "five ");
    EXPECT_EQ(std::string(r.text6.begin(), r.text6.begin() + 4), "six ");
    EXPECT_EQ(r.number, -2);
    EXPECT_EQ(r.values[0], 46.068F);
    EXPECT_EQ(r.values[123], -1.5F);
}

TEST(SubstanceFile, EverySlotAndByteSurvivesARoundTrip) {
    std::string bytes(684, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 37 + 11);
    EXPECT_EQ(encode(decode(bytes)), bytes);
    for (int slot = 1; slot <= 124; ++slot) {
        const float value = static_cast<float>(slot) * 1.25F - 50.0F;
        const SubstanceFileRecord r = decode(builder::Record({.slots = {{slot, value}}}));
        for (int other = 1; other <= 124; ++other)
            EXPECT_EQ(r.values[static_cast<std::size_t>(other - 1)], other == slot ? value : 0.0F);
    }
}

TEST(SubstanceFile, NothingZeroAndNumberAreThreeForms) {
    const SubstanceFileRecord r =
        decode(builder::Record({.slots = {{5, 0.0F}, {6, 1e-37F}, {7, 1.0F}}}));
    EXPECT_EQ(r.values[4], 0.0F);
    EXPECT_EQ(r.values[5], 1e-37F);
    EXPECT_EQ(r.values[6], 1.0F);
    EXPECT_EQ(decode(encode(r)).values[5], 1e-37F);
}

TEST(SubstanceFile, SpecialFloatsGoThroughTheCodecUnchanged) {
    for (const float value :
         {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::denorm_min(),
          std::numeric_limits<float>::max(), -0.0F}) {
        const std::string bytes = builder::Record({.slots = {{77, value}}});
        EXPECT_EQ(encode(decode(bytes)), bytes);
    }
}

TEST(SubstanceFile, TextFieldsCountCharactersAndCutAtTheirWidth) {
    std::array<char, 5> field{};
    datafiles::set_field_text(field, "ÄÖÜäöü");
    EXPECT_EQ(std::string(field.begin(), field.end()), "\xC4\xD6\xDC\xE4\xF6");
    datafiles::set_field_text(field, "ß");
    EXPECT_EQ(std::string(field.begin(), field.end()), "\xDF    ");
    EXPECT_EQ(datafiles::field_text(field), "ß    ");
}

TEST(SubstanceFile, ControlCharactersOfADamagedFileBecomeBlanks) {
    const std::array<char, 6> field{'a', '\0', '\n', 'b', '\x1B', '\t'};
    EXPECT_EQ(datafiles::field_text(field), "a  b  ");
}

TEST(SubstanceFile, AnEmptyRecordHasBlankTexts) {
    const std::string bytes = encode({});
    EXPECT_EQ(bytes.substr(0, 186), std::string(186, ' '));
    EXPECT_EQ(bytes.substr(186), std::string(498, '\0'));
}

}  // namespace
