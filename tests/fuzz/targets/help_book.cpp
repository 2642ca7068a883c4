#include "app/help_book.h"

#include "harness.h"

using namespace quor;

namespace {

/// The contents of the help, with one page beside them whose text is the same bytes.
bool read(std::string_view input) {
    fuzz::as_file(input, "contents.json");
    fuzz::as_file(input, "page.html");
    const auto book = help::Book::load(fuzz::own_folder());
    if (!book) return false;
    for (const help::Entry& entry : book->contents()) {
        FUZZ_CHECK(entry.depth >= 0 && entry.depth <= 16);
        book->search(entry.title);
    }
    for (int topic = 0; topic < 10; ++topic) {
        FUZZ_CHECK(!book->has_topic(topic) || !book->contents().empty());
        book->page_of(topic);
    }
    book->search("page");
    return !book->contents().empty();
}

const fuzz::Registered registered("help_book", read);

}  // namespace
