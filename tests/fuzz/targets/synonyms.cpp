#include "datafiles/synonyms.h"

#include "common/text.h"
#include "harness.h"

using namespace quor;

namespace {

/// The synonym file (SYNOM.TXT), asked for each of its own lines.
bool read(std::string_view input) {
    const auto synonyms = datafiles::Synonyms::read(fuzz::as_file(input, "SYNOM.TXT"));
    FUZZ_CHECK(static_cast<bool>(synonyms));
    bool found = false;
    for (const std::string& line : text::lines(text::from_oem(input))) {
        const auto hit = synonyms->find(line);
        found = found || (hit && !hit->casrn.empty());
    }
    return found;
}

const fuzz::Registered registered("synonyms", read);

}  // namespace
