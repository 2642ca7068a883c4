#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/paths.h"

/// The help: pages in a folder, with a table of contents that also tells which page belongs to
/// which number.
namespace quor::help {

/// A line of the contents.
struct Entry {
    std::string title;
    std::string page;  ///< file in the folder, "#" and an anchor may follow; empty for a heading
    int depth = 0;     ///< 0 for the outermost
};

/// A page that a search has found.
struct Hit {
    std::string title, page;
    std::string excerpt;  ///< some words around the first place
};

class Book {
  public:
    /// Reads "contents.json" and the pages it names. Nothing when the folder holds no readable
    /// contents; pages that are missing are passed over by the search. Files above 1 MiB are as if
    /// they were missing, and lines nested more than 16 deep are left out.
    static std::optional<Book> load(const std::filesystem::path& folder);

    const std::filesystem::path& folder() const { return folder_; }
    const std::vector<Entry>& contents() const { return contents_; }

    /// The page of a number; the first page when the number has none.
    std::string page_of(int topic) const;
    bool has_topic(int topic) const;

    /// Pages that hold all words of the text, whatever their case: those with the words in their
    /// title come first. Nothing for a text without letters and digits.
    std::vector<Hit> search(std::string_view text) const;

  private:
    struct Page {
        std::string file, title, text, folded;  // folded: lower case, for the search
    };
    struct Topic {
        int number;
        std::string page;
    };

    std::filesystem::path folder_;
    std::vector<Entry> contents_;
    std::vector<Topic> topics_;
    std::vector<Page> pages_;
};

/// Where the pages lie: beside the program, or in the shared folder of an installed one.
std::filesystem::path folder(const Places& places);

/// The text of a page without its marks.
std::string plain_text(std::string_view html);

}  // namespace quor::help
