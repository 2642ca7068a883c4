#include "common/text_parts.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "common/text.h"

using namespace quor;

namespace {

std::vector<std::string> lines_of(std::string_view text) {
    std::vector<std::string> lines;
    text::LineCursor cursor(text);
    while (const auto line = cursor.next()) lines.emplace_back(*line);
    return lines;
}

std::vector<std::string> cells_of(std::string_view line) {
    std::vector<std::string> cells;
    text::CellCursor cursor(line, ';');
    while (const auto cell = cursor.next()) cells.emplace_back(*cell);
    return cells;
}

TEST(TextParts, LinesEndAsThoseThatAreCopied) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(lines_of(""), Lines{});
    EXPECT_EQ(lines_of("\n"), Lines{""});
    EXPECT_EQ(lines_of("a\r\nb\rc\n\nd"), (Lines{"a", "b", "c", "", "d"}));
    EXPECT_EQ(lines_of("a\n\r\n"), (Lines{"a", ""}));
    EXPECT_EQ(lines_of("a\r\r\n"), (Lines{"a", ""}));
    std::mt19937 random{20261122};
    for (int i = 0; i < 1000; ++i) {
        std::string text(random() % 12, ' ');
        for (char& c : text) c = "\r\na "[random() % 4];
        EXPECT_EQ(lines_of(text), text::lines(text));
    }
}

TEST(TextParts, CellsStandBetweenSeparatorsAndAnEmptyLineHasOne) {
    using Cells = std::vector<std::string>;
    EXPECT_EQ(cells_of(""), Cells{""});
    EXPECT_EQ(cells_of(";"), (Cells{"", ""}));
    EXPECT_EQ(cells_of("a;;b"), (Cells{"a", "", "b"}));
    for (const char* line : {"", ";", ";;a", "a;b;", "x"})
        EXPECT_EQ(cells_of(line), text::split(line, ';')) << line;
}

TEST(TextParts, ReplacedPartsAreNotLookedThroughAgain) {
    EXPECT_EQ(text::replace_all("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(text::replace_all("aaa", "aa", "b"), "ba");
    EXPECT_EQ(text::replace_all("abc", "", "x"), "abc");
    EXPECT_EQ(text::replace_all("a&b&", "&", ""), "ab");
    EXPECT_EQ(text::replace_all("none", "x", "y"), "none");
}

}  // namespace
