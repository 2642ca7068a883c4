#include <gtest/gtest.h>

#include "common/text.h"

using namespace quor;

namespace {

TEST(Text, CodePagesConvertUmlautsBothWays) {
    EXPECT_EQ(text::FromAnsi("\xC4thanol"), "Äthanol");
    EXPECT_EQ(text::ToAnsi("Äthanol"), "\xC4thanol");
    EXPECT_EQ(text::FromOem("\x8Ether"), "Äther");
    EXPECT_EQ(text::ToOem("Äther"), "\x8Ether");
}

TEST(Text, WhatAPageDoesNotHoldBecomesAQuestionMark) {
    EXPECT_EQ(text::ToAnsi("a\xE2\x86\x92z"), "a?z");
}

TEST(Text, FixedFieldsCountCharactersNotBytes) {
    EXPECT_EQ(text::PadRight("Ä", 3), "Ä  ");
    EXPECT_EQ(text::PadRight("ÄÖÜ", 2), "ÄÖ");
    EXPECT_EQ(text::PadLeft("Ä", 3), "  Ä");
    EXPECT_EQ(text::Length("Äbc"), 3U);
}

TEST(Text, UpperCaseKnowsUmlauts) {
    EXPECT_EQ(text::ToUpper("äthyl öl ü é ß"), "ÄTHYL ÖL Ü É ß");
}

TEST(Text, LinesEndWithAnyLineEnd) {
    EXPECT_EQ(text::Lines("a\r\nb\nc\rd"), (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(text::Lines("a\r\n\r\n"), (std::vector<std::string>{"a", ""}));
}

TEST(Text, TrimsAndSplits) {
    EXPECT_EQ(text::Trim("  a b "), "a b");
    EXPECT_EQ(text::RemoveBlanks(" a b "), "ab");
    EXPECT_EQ(text::Split("a;;b", ';'), (std::vector<std::string>{"a", "", "b"}));
    EXPECT_EQ(text::ReplaceAll("aXbX", "X", "YY"), "aYYbYY");
}

}  // namespace
