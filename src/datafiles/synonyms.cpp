#include "datafiles/synonyms.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/text.h"
#include "common/whole_file.h"

namespace quor::datafiles {

namespace {

constexpr std::string_view kEnd = "END";

/// More than the synonyms of the largest database. A file of many short blocks takes its size in
/// memory many times over.
constexpr std::size_t kLargestFile = std::size_t{8} << 20;

using Replacement = std::pair<std::string_view, std::string_view>;

/// Variants of spelling and the one that the synonym file uses, applied in this order.
constexpr std::array<Replacement, 11> kSpellings{{
    {"ÄTH", "ETH"},
    {"GLYKO", "GLYCO"},
    {"KARBO", "CARBO"},
    {"SULPH", "SULF"},
    {"AZET", "ACET"},
    {"SEK", "SEC"},
    {"ZYKLO", "CYCLO"},
    {"ZYCLO", "CYCLO"},
    {"CYKLO", "CYCLO"},
    {"DEKAN", "DECAN"},
    {"KRESOL", "CRESOL"},
}};

/// Abbreviations written out, after the spellings.
constexpr std::array<Replacement, 3> kAbbreviations{{
    {"ME-", "METHYL"},
    {"ET-", "ETHYL"},
    {"SAEURE", "SÄURE"},
}};

/// Every OXYD becomes OXID, but not in OXYDI...
std::string oxides(std::string name) {
    constexpr std::string_view oxyd = "OXYD";
    constexpr std::size_t letter_y = 2;
    for (std::size_t i = name.find(oxyd); i != std::string::npos; i = name.find(oxyd, i + 1)) {
        const std::size_t next = i + oxyd.size();
        if (next >= name.size() || name[next] != 'I') name[i + letter_y] = 'I';
    }
    return name;
}

/// The lines of a text one after the other.
class LineReader {
  public:
    explicit LineReader(std::string_view text) : rest_(text) {}

    bool at_end() const { return rest_.empty(); }
    std::string_view next() {
        const std::size_t end = rest_.find('\n');
        std::string_view line = rest_.substr(0, end);
        rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
        while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.remove_suffix(1);
        return line;
    }
    /// The next line that is not empty; empty at the end.
    std::string_view next_filled() {
        std::string_view line;
        while (line.empty() && !at_end()) line = next();
        return line;
    }

  private:
    std::string_view rest_;
};

}  // namespace

std::string normalise_name(std::string_view name) {
    std::string s = text::remove_blanks(text::to_upper(name));
    for (const auto& [from, to] : kSpellings) s = text::replace_all(std::move(s), from, to);
    s = oxides(std::move(s));
    for (const auto& [from, to] : kAbbreviations) s = text::replace_all(std::move(s), from, to);
    return s;
}

std::string comparing_form(std::string_view normalised) {
    std::string form;
    for (const char c : normalised)
        if (c != '-' && c != '(' && c != ')' && c != '.') form += c;
    return form;
}

Synonyms::Synonyms(std::string_view file) {
    Content content;
    LineReader lines(file);
    while (!lines.at_end()) {
        SynonymHit block;
        block.casrn = lines.next_filled();
        if (block.casrn == kEnd) break;
        block.line = lines.next();
        const std::size_t place = content.blocks.size();
        if (!block.casrn.empty()) content.by_casrn.try_emplace(block.casrn, place);
        for (std::string_view line = lines.next(); !line.empty(); line = lines.next()) {
            std::string form = comparing_form(line);
            if (!form.empty()) content.by_synonym.try_emplace(std::move(form), place);
        }
        content.blocks.push_back(std::move(block));
    }
    content_ = std::make_shared<const Content>(std::move(content));
}

Result<Synonyms> Synonyms::read(const std::filesystem::path& file) {
    const Result<std::string> bytes = files::read_whole(file, kLargestFile);
    if (!bytes) return bytes.failure();
    return Synonyms(text::from_oem(*bytes));
}

std::optional<SynonymHit> Synonyms::find(std::string_view search) const {
    if (!content_) return std::nullopt;
    const auto place = [](const Places& places, const std::string& key) {
        const auto found = places.find(key);
        return found == places.end() ? std::string::npos : found->second;
    };
    const std::size_t first =
        std::min(place(content_->by_casrn, text::trim_right(search)),
                 place(content_->by_synonym, comparing_form(normalise_name(search))));
    if (first == std::string::npos) return std::nullopt;
    return content_->blocks[first];
}

}  // namespace quor::datafiles
