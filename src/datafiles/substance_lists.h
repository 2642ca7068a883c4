#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quor::datafiles {

/// Lists of all substances of the open database, index 0 unused, entries 1 to SubstanceCount.
struct SubstanceLists {
    std::vector<std::int16_t> Numbers;
    std::vector<std::string> Formulas;
    std::vector<std::string> Names;
    std::vector<std::string> Casrn;
};

}  // namespace quor::datafiles
