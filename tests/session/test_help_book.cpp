#include "app/help_book.h"
#include "support/codes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "app/menu_catalogue.h"
#include "app/menu_help.h"
#include "gui/widgets/help_topics.h"
#include "models/model_codes.h"

using namespace quor;

namespace {

namespace fs = std::filesystem;

const fs::path kPages = fs::path(QUOR_SOURCE_DATA).parent_path() / "help";

std::string content(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

help::Book book() {
    std::optional<help::Book> loaded = help::Book::load(kPages);
    EXPECT_TRUE(loaded);
    return loaded.value_or(help::Book());
}

std::string file_of(const std::string& page) {
    return page.substr(0, page.find('#'));
}

/// True when the file is there and holds the anchor.
bool exists(const std::string& page) {
    const fs::path file = kPages / file_of(page);
    if (!fs::exists(file)) return false;
    const auto mark = page.find('#');
    if (mark == std::string::npos) return true;
    return content(file).find("<a name=\"" + page.substr(mark + 1) + "\">") != std::string::npos;
}

TEST(HelpBook, EveryNumberOfTheViewsHasAPage) {
    const help::Book b = book();
    std::vector<int> topics{help::kContents,    help::kLiquidDensity,     help::kIdealGasCp,
                            help::kPriority,    help::kManualVirial,      help::kReferencePoint,
                            help::kTriplePoint, help::kCorrelatedAntoine, help::kWatsonPoint,
                            help::kRealRange};
    for (const help::NamedTopic& view : help::view_topics()) topics.push_back(view.topic);
    for (const menu::Row& row : menu::rows())
        if (row.kind != menu::Kind::Separator)
            topics.push_back(help::topic_of_row(menu::object_name(row)));
    for (const int topic : topics) {
        EXPECT_TRUE(b.has_topic(topic)) << topic;
        EXPECT_TRUE(exists(b.page_of(topic))) << topic << " " << b.page_of(topic);
    }
    for (std::int16_t code = 0; code <= 16; ++code)
        EXPECT_TRUE(b.has_topic(help::kEquationsOfState + code)) << code;
    for (int code = 0; models::vapour_pressure_of_code(code); ++code)
        EXPECT_TRUE(b.has_topic(help::kVapourPressure + code)) << code;
    for (std::int16_t code = 0; code <= 7; ++code)
        EXPECT_TRUE(b.has_topic(help::kVaporisation + code)) << code;
    EXPECT_EQ(b.page_of(help::kEquationsOfState + 6), "2006.html");
    EXPECT_EQ(b.page_of(-7), "0.html") << "a number without a page opens the first one";
}

TEST(HelpBook, EveryPageIsInTheContentsAndEveryEntryLeadsToAPage) {
    std::set<std::string> listed;
    const help::Book b = book();
    for (const help::Entry& entry : b.contents()) {
        EXPECT_FALSE(entry.title.empty());
        EXPECT_TRUE(exists(entry.page)) << entry.title << " " << entry.page;
        listed.insert(file_of(entry.page));
    }
    std::size_t pages = 0;
    for (const auto& file : fs::directory_iterator(kPages)) {
        if (file.path().extension() != ".html") continue;
        ++pages;
        EXPECT_TRUE(listed.contains(file.path().filename().string())) << file.path().filename();
    }
    EXPECT_GT(pages, 100U);
}

TEST(HelpBook, EveryLinkLeadsToAPage) {
    constexpr std::string_view kLink = "href=\"";
    std::size_t links = 0;
    for (const auto& file : fs::directory_iterator(kPages)) {
        if (file.path().extension() != ".html") continue;
        const std::string html = content(file.path());
        for (std::size_t at = 0; (at = html.find(kLink, at)) != std::string::npos; ++links) {
            at += kLink.size();
            const std::string target = html.substr(at, html.find('"', at) - at);
            EXPECT_TRUE(exists(target)) << file.path().filename() << ": " << target;
        }
    }
    EXPECT_GT(links, 15U);
}

TEST(HelpBook, TheSearchFindsPagesWithAllWords) {
    const help::Book b = book();
    const auto tank = b.search("tank");
    ASSERT_FALSE(tank.empty());
    EXPECT_EQ(tank.front().page, "3500.html") << "words in the title come first";
    const auto both = b.search("  MAXWELL areas ");
    ASSERT_FALSE(both.empty());
    for (const help::Hit& hit : both) EXPECT_TRUE(exists(hit.page));
    EXPECT_NE(both.front().excerpt.find("Maxwell"), std::string::npos) << both.front().excerpt;
    EXPECT_TRUE(b.search("xyzzyplugh").empty());
    EXPECT_TRUE(b.search("tank xyzzyplugh").empty());
    EXPECT_TRUE(b.search(" .,; ").empty());
}

TEST(HelpBook, PlainTextHoldsNoMarks) {
    EXPECT_EQ(help::plain_text("<h1>A &lt; B</h1>\n<p>T<sub>c</sub> &amp;  p</p>"), "A < B Tc & p");
    EXPECT_EQ(help::plain_text("<head><title>T</title></head><body><p>x</p></body>"), "x");
    EXPECT_EQ(help::plain_text(""), "");
    EXPECT_EQ(help::plain_text("a < b"), "a");
}

TEST(HelpBook, DamagedContentsAreNoHelp) {
    const fs::path folder = fs::path(testing::TempDir()) / "help_book";
    fs::create_directories(folder);
    EXPECT_FALSE(help::Book::load(folder / "missing"));
    for (const char* text : {"", "{}", "no json", "[{\"title\": 7}]"}) {
        std::ofstream(folder / "contents.json") << text;
        EXPECT_FALSE(help::Book::load(folder)) << text;
    }
    std::ofstream(folder / "contents.json") << R"([{"title": "A", "page": "gone.html"}])";
    const auto loaded = help::Book::load(folder);
    ASSERT_TRUE(loaded);
    EXPECT_TRUE(loaded->search("a").empty()) << "a missing page is passed over";
}

}  // namespace
