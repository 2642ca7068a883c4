#pragma once

#include <cstdint>
#include <string>

namespace quor::datafiles {

struct SubstanceFound {
    std::int16_t index = 0;  ///< place in the lists of the open database, from 1; 0 for none
    bool found = false;
};

/// Finds what the user typed: a name or CASRN exactly as the database has it, else a synonym in
/// any usual spelling. A miss is told.
SubstanceFound FindSubstance(const std::string& search);

/// Place of a substance number in the lists, 0 if none.
std::int16_t find_by_number(std::int16_t number);
/// Place of a CASRN in the lists, blanks at the end aside; 0 if none and for an empty one.
std::int16_t find_by_casrn(const std::string& casrn);

}  // namespace quor::datafiles
