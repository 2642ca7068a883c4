#pragma once

#include <string>
#include <string_view>

namespace quor::datafiles {

/// A substance name in the spelling of the synonym file: upper case with umlauts, without blanks,
/// and with the usual variants (ZYKLO, ÄTH, SULPH, OXYD, ME-, ...) brought to one form.
std::string normalise_name(std::string_view name);
/// The form that is compared: a normalised name without "-", "(", ")" and ".".
std::string comparing_form(std::string_view normalised);

/// A block of the synonym file.
struct SynonymHit {
    bool found = false;
    bool fileMissing = false;  ///< the synonym file could not be read
    std::string casrn{};       ///< of the block that holds the text, "END" behind the last one
    std::string line{};        ///< its description, fields separated by "_"
};

/// Looks a text up among the blocks of a synonym file's text (UTF-8): the first block whose CASRN
/// it is, or that has a synonym equal to the comparing form of the text.
SynonymHit find_in_synonyms(std::string_view file, std::string_view search);
/// The same in "SYNOM.TXT" (code page 850) of the program's folder.
SynonymHit search_synonyms(const std::string& search);

}  // namespace quor::datafiles
