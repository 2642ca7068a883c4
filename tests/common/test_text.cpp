#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "common/text.h"

using namespace quor;

namespace {

TEST(Text, CodePagesConvertUmlautsBothWays) {
    EXPECT_EQ(text::from_ansi("\xC4thanol"), "Äthanol");
    EXPECT_EQ(text::to_ansi("Äthanol"), "\xC4thanol");
    EXPECT_EQ(text::from_oem("\x8Ether"), "Äther");
    EXPECT_EQ(text::to_oem("Äther"), "\x8Ether");
}

TEST(Text, WhatAPageDoesNotHoldBecomesAQuestionMark) {
    EXPECT_EQ(text::to_ansi("a\xE2\x86\x92z"), "a?z");
}

/// Long texts of umlauts, so that a conversion of one thread meets one of the other.
TEST(Text, ThreadsConvertAtTheSameTime) {
    const auto run = [](const std::string& letter, std::size_t& wrong) {
        std::string letters;
        for (int i = 0; i < 5000; ++i) letters += letter;
        const std::string ansi = text::to_ansi(letters);
        for (int i = 0; i < 500; ++i)
            if (text::to_ansi(letters) != ansi || text::from_ansi(ansi) != letters) ++wrong;
    };
    std::size_t wrong[2] = {};
    {
        const std::jthread first([&] { run("Ä", wrong[0]); });
        const std::jthread second([&] { run("ö ", wrong[1]); });
    }
    EXPECT_EQ(wrong[0], 0U);
    EXPECT_EQ(wrong[1], 0U);
}

TEST(Text, FixedFieldsCountCharactersNotBytes) {
    EXPECT_EQ(text::pad_right("Ä", 3), "Ä  ");
    EXPECT_EQ(text::pad_right("ÄÖÜ", 2), "ÄÖ");
    EXPECT_EQ(text::pad_left("Ä", 3), "  Ä");
    EXPECT_EQ(text::length("Äbc"), 3U);
}

TEST(Text, UpperCaseKnowsUmlauts) {
    EXPECT_EQ(text::to_upper("äthyl öl ü é ß"), "ÄTHYL ÖL Ü É ß");
}

TEST(Text, LinesEndWithAnyLineEnd) {
    EXPECT_EQ(text::lines("a\r\nb\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(text::lines("a\r\n\r\n"), (std::vector<std::string>{"a", ""}));
}

TEST(Text, TrimsAndSplits) {
    EXPECT_EQ(text::trim("  a b "), "a b");
    EXPECT_EQ(text::remove_blanks(" a b "), "ab");
    EXPECT_EQ(text::split("a;;b", ';'), (std::vector<std::string>{"a", "", "b"}));
    EXPECT_EQ(text::replace_all("aXbX", "X", "YY"), "aYYbYY");
}

TEST(Text, BytesThatAreNoUtf8AreKnown) {
    for (const char* right : {"", "abc", "Äther", "温度", "\xF0\x9F\x94\xA5", "\xEF\xBF\xBF"})
        EXPECT_TRUE(text::is_utf8(right)) << right;
    EXPECT_TRUE(text::is_utf8(std::string(3000, 'x') + "Ä"));
    for (const char* wrong :
         {"\xFF", "a\x80z", "\xC3", "\xC0\xAF", "\xE2\x82", "\xF5\x80\x80\x80", "\xED\xA0\x80"})
        EXPECT_FALSE(text::is_utf8(wrong)) << wrong;
}

TEST(Text, UnitsArePrintedWithTheirSigns) {
    const std::pair<const char*, const char*> rows[] = {
        {"m^3/kmol", "m³/kmol"},
        {"v / (ft^3/lb)", "v / (ft³/lb)"},
        {"kJ/(kmol K)", "kJ/(kmol·K)"},
        {"kJ/(kg K)", "kJ/(kg·K)"},
        {"J/(mol K)", "J/(mol·K)"},
        {"BTU/(lb degR)", "BTU/(lb·°R)"},
        {"T / degC", "T / °C"},
        {"80.33 degF", "80.33 °F"},
        {"pv / (kPa*m^3/kmol)", "pv / (kPa·m³/kmol)"},
        {"pv / (bar*l/kg)", "pv / (bar·l/kg)"},
    };
    for (const auto& [plain, printed] : rows) EXPECT_EQ(text::with_unit_signs(plain), printed);
}

TEST(Text, WhatIsNoUnitKeepsItsCharacters) {
    for (const char* plain : {"x^25", "^3", "degCelsius", "xdegC", "(kg Kr)", "5 kg K", "a * m^",
                              "", "p(red) * v(red)", "10^3", "²³·°"})
        EXPECT_EQ(text::with_unit_signs(plain), plain);
}

}  // namespace
