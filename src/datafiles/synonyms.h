#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/result.h"

namespace quor::datafiles {

/// A substance name in the spelling of the synonym file: upper case with umlauts, without blanks,
/// and with the usual variants (ZYKLO, ÄTH, SULPH, OXYD, ME-, ...) brought to one form.
std::string normalise_name(std::string_view name);
/// The form that is compared: a normalised name without "-", "(", ")" and ".".
std::string comparing_form(std::string_view normalised);

/// A block of the synonym file: a substance that has the text as a synonym or CASRN.
struct SynonymHit {
    std::string casrn{};
    std::string line{};  ///< its description, fields separated by "_"
};

/// The synonym file, read and converted once. A value, cheap to copy.
class Synonyms {
  public:
    /// No file: nothing is found.
    Synonyms() = default;
    /// From a file's text (UTF-8). What stands behind the block "END" does not count.
    explicit Synonyms(std::string_view file);

    /// Reads a file (code page 850); refused when it cannot be read.
    static Result<Synonyms> read(const std::filesystem::path& file);

    /// The first block whose CASRN a text is, or that has a synonym equal to its comparing form.
    std::optional<SynonymHit> find(std::string_view search) const;

  private:
    /// The first block that has a key.
    using Places = std::unordered_map<std::string, std::size_t>;
    struct Content {
        std::vector<SynonymHit> blocks;
        Places by_casrn, by_synonym;
    };
    std::shared_ptr<const Content> content_;
};

/// Title of the synonym file.
inline constexpr std::string_view kSynonymFile = "SYNOM.TXT";

}  // namespace quor::datafiles
