#include "datafiles/search.h"

#include <algorithm>
#include <charconv>

#include "common/text.h"

namespace quor::datafiles {

namespace {

/// The number of a text like "#49".
std::optional<int> typed_number(const std::string& text) {
    if (!text.starts_with('#')) return std::nullopt;
    int number = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data() + 1, end, number);
    const bool whole = result.ec == std::errc() && result.ptr == end;
    return whole ? std::optional(number) : std::nullopt;
}

Failure not_involved(const SynonymHit& known) {
    return {" This substance is not involved in the database \n" +
            text::split(known.line, '_').front() + "\nCASRN " + known.casrn};
}

}  // namespace

Result<std::size_t> find_substance(const Database& database, const Synonyms& synonyms,
                                   const std::string& search) {
    const std::string wanted = text::trim_right(search);
    if (const std::optional<int> number = typed_number(wanted)) {
        const std::optional<std::size_t> place = find_by_number(database, *number);
        return place ? Result<std::size_t>(*place) : Failure{"Nothing found."};
    }
    if (const std::optional<std::size_t> place = database.place_of(wanted)) return *place;
    const std::optional<SynonymHit> known = synonyms.find(wanted);
    const bool named = known && !known->casrn.empty();
    if (named)
        if (const std::optional<std::size_t> place = find_by_casrn(database, known->casrn))
            return *place;
    if (const std::optional<std::size_t> place = database.place_of_name(wanted)) return *place;
    return named ? not_involved(*known) : Failure{"Nothing found."};
}

bool is_known(const Synonyms& synonyms, const std::string& search) {
    const std::optional<SynonymHit> known = synonyms.find(text::trim_right(search));
    return known && !known->casrn.empty();
}

std::optional<std::size_t> find_by_number(const Database& database, int number) {
    return database.place_of_number(number);
}

std::optional<std::size_t> find_by_casrn(const Database& database, const std::string& casrn) {
    return database.place_of_casrn(text::trim_right(casrn));
}

std::vector<std::string> names_of(std::string_view name_field) {
    std::vector<std::string> names;
    for (const std::string& part : text::split(name_field, ';')) {
        std::string name = text::trim(part);
        if (names.empty() || !name.empty()) names.push_back(std::move(name));
    }
    return names;
}

std::string first_name_of(std::string_view name_field) {
    return text::trim(name_field.substr(0, name_field.find(';')));
}

std::string short_name_of(std::string_view name_field) {
    const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
    const std::vector<std::string> names = names_of(name_field);
    if (std::ranges::none_of(names.front(), is_digit)) return names.front();
    for (const std::string& name : names)
        if (name.starts_with("R-") && name.size() > 2 && is_digit(name[2]))
            return "R" + name.substr(2);
    return names.front();
}

std::string formula_and_casrn(const DatabaseEntry& entry) {
    return text::trim_right(entry.formula) + " CASRN: " + text::trim_right(entry.casrn);
}

}  // namespace quor::datafiles
