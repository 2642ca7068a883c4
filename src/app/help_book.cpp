#include "app/help_book.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "common/text.h"
#include "common/whole_file.h"

namespace quor::help {

namespace fs = std::filesystem;
using Json = nlohmann::json;

namespace {

// Bounds that no help comes near, so that a damaged or planted file costs nothing.
constexpr std::size_t kLargestFile = std::size_t{1} << 20;
constexpr int kDeepest = 16;

std::optional<std::string> read(const fs::path& file) {
    Result<std::string> bytes = files::read_whole(file, kLargestFile);
    if (!bytes) return std::nullopt;
    return *std::move(bytes);
}

std::string folded(std::string_view s) {
    std::string lower(s);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

bool is_word_part(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || static_cast<unsigned char>(c) > 127;
}

std::vector<std::string> words_of(std::string_view text) {
    std::vector<std::string> words;
    std::string word;
    for (const char c : folded(text) + " ") {
        if (is_word_part(c)) {
            word += c;
        } else if (!word.empty()) {
            words.push_back(std::exchange(word, {}));
        }
    }
    return words;
}

std::string without_anchor(const std::string& page) {
    return page.substr(0, page.find('#'));
}

/// Some words around a place, cut at blanks.
std::string excerpt_at(const std::string& text, std::size_t place) {
    constexpr std::size_t kBefore = 40, kLength = 140;
    std::size_t from = place > kBefore ? text.find(' ', place - kBefore) : 0;
    if (from == std::string::npos || from > place) from = place;
    std::size_t to = text.find(' ', std::min(text.size(), from + kLength));
    if (to == std::string::npos) to = text.size();
    return text::trim(text.substr(from, to - from));
}

}  // namespace

std::string plain_text(std::string_view html) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kSigns{
        {{"&lt;", "<"}, {"&gt;", ">"}, {"&nbsp;", " "}, {"&quot;", "\""}, {"&amp;", "&"}}};
    // The head repeats the title.
    if (const auto body = html.find("<body"); body != std::string_view::npos)
        html.remove_prefix(body);
    std::string text;
    bool in_tag = false;
    for (std::size_t i = 0; i < html.size(); ++i) {
        const char c = html[i];
        if (c == '<') {
            // A raised or lowered sign belongs to its word.
            const std::string_view rest = html.substr(i + 1 + (html.substr(i, 2) == "</" ? 1 : 0));
            if (!rest.starts_with("sub") && !rest.starts_with("sup")) text += ' ';
            in_tag = true;
        } else if (c == '>' && in_tag) {
            in_tag = false;
        } else if (!in_tag) {
            text += c == '\n' || c == '\r' || c == '\t' ? ' ' : c;
        }
    }
    for (const auto& [sign, plain] : kSigns) text = text::replace_all(text, sign, plain);
    text.erase(
        std::unique(text.begin(), text.end(), [](char a, char b) { return a == ' ' && b == ' '; }),
        text.end());
    return text::trim(text);
}

std::optional<Book> Book::load(const fs::path& folder) {
    const std::optional<std::string> contents = read(folder / "contents.json");
    if (!contents) return std::nullopt;
    const Json root = Json::parse(*contents, nullptr, false);
    if (!root.is_array()) return std::nullopt;

    Book book;
    book.folder_ = folder;
    const auto take = [&](const auto& self, const Json& list, int depth) -> void {
        for (const Json& item : list) {
            if (!item.is_object()) continue;
            Entry entry{item.value("title", ""), item.value("page", ""), depth};
            if (item.contains("topics"))
                for (const Json& topic : item["topics"])
                    if (topic.is_number_integer())
                        book.topics_.push_back({topic.get<int>(), entry.page});
            book.contents_.push_back(std::move(entry));
            if (item.contains("children") && depth < kDeepest)
                self(self, item["children"], depth + 1);
        }
    };
    try {
        take(take, root, 0);
    } catch (const Json::exception&) {
        return std::nullopt;  // a field of another kind than it should be
    }
    for (const Entry& entry : book.contents_) {
        const std::string file = without_anchor(entry.page);
        const auto known = [&](const Page& page) { return page.file == file; };
        if (file.empty() || std::any_of(book.pages_.begin(), book.pages_.end(), known)) continue;
        const std::optional<std::string> html = read(folder / file);
        if (!html) continue;
        Page page{file, entry.title, plain_text(*html), {}};
        page.folded = folded(page.text);
        book.pages_.push_back(std::move(page));
    }
    return book;
}

bool Book::has_topic(int topic) const {
    return std::any_of(topics_.begin(), topics_.end(),
                       [topic](const Topic& t) { return t.number == topic; });
}

std::string Book::page_of(int topic) const {
    for (const Topic& t : topics_)
        if (t.number == topic) return t.page;
    for (const Entry& entry : contents_)
        if (!entry.page.empty()) return entry.page;
    return {};
}

std::vector<Hit> Book::search(std::string_view text) const {
    const std::vector<std::string> words = words_of(text);
    if (words.empty()) return {};
    std::vector<Hit> in_title, in_text;
    for (const Page& page : pages_) {
        const auto in = [&](const std::string& where) {
            return std::all_of(words.begin(), words.end(), [&](const std::string& word) {
                return where.find(word) != std::string::npos;
            });
        };
        if (!in(page.folded)) continue;
        Hit hit{page.title, page.file, excerpt_at(page.text, page.folded.find(words.front()))};
        (in(folded(page.title)) ? in_title : in_text).push_back(std::move(hit));
    }
    in_title.insert(in_title.end(), in_text.begin(), in_text.end());
    return in_title;
}

fs::path folder(const Places& places) {
    return places.data_folder() / "help";
}

}  // namespace quor::help
