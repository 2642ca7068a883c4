#include "datafiles/search.h"

#include "common/dialogs.h"
#include "common/text.h"
#include "datafiles/synonyms.h"
#include "legacy/declare.h"

namespace quor::datafiles {

namespace {

using legacy::the_session;
using legacy::the_substances;

constexpr const char* kTitle = "ERROR: Selection of a substance";

/// The first place whose entry fits, 0 if none.
template <class Fits>
std::int16_t first_place(std::size_t entries, const Fits& fits) {
    for (std::size_t i = 1; i < entries; ++i)
        if (fits(i)) return static_cast<std::int16_t>(i);
    return 0;
}

void note_missing_synonyms() {
    if (!the_session.SynonymNotePending) return;
    the_session.SynonymNotePending = false;
    dialogs::tell(
        "The file SYNOM.TXT was not found in the QUOR directory.\n"
        "Substances are found by their exact name or CASRN only.",
        "Remark", dialogs::Icon::Information);
}

void tell_not_involved(const SynonymHit& block) {
    const std::string name = text::split(block.line, '_').front();
    dialogs::tell(
        " This substance is not involved in the database \n" + name + "\nCASRN " + block.casrn,
        kTitle, dialogs::Icon::Exclamation);
}

}  // namespace

SubstanceFound FindSubstance(const std::string& search) {
    const std::string wanted = text::trim_right(search);
    const std::int16_t exact = first_place(the_substances.Names.size(), [&](std::size_t i) {
        return !wanted.empty() && (wanted == text::trim_right(the_substances.Names[i]) ||
                                   wanted == text::trim_right(the_substances.Casrn[i]));
    });
    if (exact != 0) return {exact, true};

    const SynonymHit block = search_synonyms(wanted);
    if (block.fileMissing) note_missing_synonyms();
    if (!block.found || block.casrn.empty()) {
        dialogs::tell("Nothing found.", kTitle, dialogs::Icon::Exclamation);
        return {};
    }
    const std::int16_t index = find_by_casrn(block.casrn);
    if (index == 0) {
        tell_not_involved(block);
        return {};
    }
    return {index, true};
}

std::int16_t find_by_number(std::int16_t number) {
    return first_place(the_substances.Numbers.size(),
                       [&](std::size_t i) { return the_substances.Numbers[i] == number; });
}

std::int16_t find_by_casrn(const std::string& casrn) {
    const std::string wanted = text::trim_right(casrn);
    if (wanted.empty()) return 0;
    return first_place(the_substances.Casrn.size(), [&](std::size_t i) {
        return text::trim_right(the_substances.Casrn[i]) == wanted;
    });
}

}  // namespace quor::datafiles
