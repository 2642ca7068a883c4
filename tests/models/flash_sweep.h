#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "models/flash.h"

using namespace quor;

/// The round trip over all pairs: a state from T and p, or T and x, with all its properties, is
/// asked for again by each pair of them.
namespace flash_sweep {

/// What came out, in numbers.
struct Counts {
    long fluids = 0, states = 0, two_phases = 0, pairs = 0;
    long others = 0;           ///< of the pairs, those with more than one answer
    long ill_conditioned = 0;  ///< of the pairs, those whose values hardly tell states apart
    std::map<std::string, long> gaps;   ///< pairs or states that have no answer, by the reason told
    std::vector<std::string> failures;  ///< the first of them in words
    std::map<std::string, long> failed_by;  ///< by equation and pair
    long failed = 0;
    double worst_pair = 0;  ///< largest difference of a value from the one asked for, over 1E-9
    std::string worst_where;

    void fail(const std::string& what);
};

/// One fluid with that many states, drawn by its own generator.
void sweep(const models::Fluid& fluid, const std::string& name, int states, Counts& counts);

/// All substances of the table with these equations; every `stride`-th combination from `first`.
void sweep_all(int states, std::size_t first, std::size_t stride, Counts& counts);

/// Counts as lines for a reader.
std::string told(const Counts& counts);

}  // namespace flash_sweep
